// The dialogs of a point's coordinates and of a curve. A value that is refused keeps the dialog open and dims Cancel.
#include "editing/Modifica.h"

#include "dialogs/Parametri.h"
#include "editing/Domanda.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Stato.h"
#include "model/Unita.h"
#include "platform/Quickdraw.h"
#include "registration/Coordinate.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

constexpr double limiteAngolo = 400;

class TModificaCoord : public TParametri {
    double xMostrata = 0, yMostrata = 0, zMostrata = 0;   // real
    double &x, &y, &z;                                    // sheet units, Z as it is

public:
    TModificaCoord(double& a, double& b, double& c) : x(a), y(b), z(c) { Poni(1, 2, 0, 9, 141); }

    void Display() override {
        DigiToReal(x, y, xMostrata, yMostrata);
        zMostrata = z;
        ScriviCampoReale(4, xMostrata, 3);
        ScriviCampoReale(6, yMostrata, 3);
        ScriviCampoReale(8, zMostrata, 3);
    }

    void IngGene(std::uint8_t ripristino) override {
        esito = 1;
        if (ripristino) return;
        if (!LeggiCampo(4, -limiteReale, limiteReale, xMostrata) || !LeggiCampo(6, -limiteReale, limiteReale, yMostrata)
            || !LeggiCampo(8, -limiteReale, limiteReale, zMostrata))
            return;
        RealToDigi(xMostrata, yMostrata, x, y);
        z = zMostrata;
        PoniAnnulla(aElemento);
    }

    void Dialogo() override {
        const DialogoAperto aperto(dialogoId);
        Giro(4);
    }
};

struct Curva {
    double x = 0, y = 0, raggio = 0, inizio = 0, ampiezza = 0;
};

class TModificaCurva : public TParametri {
    Curva mostrata;   // real units, angles in the system in force
    Curva& curva;     // sheet units, angles in the system in force
    bool cerchio;

    bool leggi() {
        return LeggiCampo(4, -limiteReale, limiteReale, mostrata.x)
               && LeggiCampo(6, -limiteReale, limiteReale, mostrata.y)
               && LeggiCampo(8, -limiteReale, limiteReale, mostrata.raggio)
               && (cerchio
                   || (LeggiCampo(10, -limiteAngolo, limiteAngolo, mostrata.inizio)
                       && LeggiCampo(12, -limiteAngolo, limiteAngolo, mostrata.ampiezza)));
    }

public:
    TModificaCurva(Curva& c, bool unCerchio) : curva(c), cerchio(unCerchio) { Poni(1, 2, 0, 13, cerchio ? 143 : 144); }

    void Display() override {
        mostrata = curva;
        DigiToReal(curva.x, curva.y, mostrata.x, mostrata.y);
        mostrata.raggio = curva.raggio * rappvid;
        ScriviCampoReale(4, mostrata.x, 3);
        ScriviCampoReale(6, mostrata.y, 3);
        ScriviCampoReale(8, mostrata.raggio, 3);
        if (cerchio) return;
        ScriviCampoReale(10, mostrata.inizio, 3);
        ScriviCampoReale(12, mostrata.ampiezza, 3);
    }

    void IngGene(std::uint8_t ripristino) override {
        esito = 1;
        if (ripristino || !leggi()) return;
        curva = mostrata;
        RealToDigi(mostrata.x, mostrata.y, curva.x, curva.y);
        curva.raggio = mostrata.raggio / rappvid;   // Kept: a negative radius is not refused
        PoniAnnulla(aElemento);
    }

    void Dialogo() override {
        const DialogoAperto aperto(dialogoId);
        Giro(4);
    }
};

bool modificaCerchio(elemento& e) {
    Curva c{e.cerc.cx, e.cerc.cy, e.cerc.raggio, 0, 0};
    TModificaCurva d(c, true);
    d.Dialogo();
    if (!d.Accettato()) return false;
    e.cerc.cx = c.x;
    e.cerc.cy = c.y;
    e.cerc.raggio = c.raggio;
    return true;
}

bool modificaArco(elemento& e) {
    Curva c{e.arco.cx, e.arco.cy, e.arco.raggio, SessadToAng(e.arco.angoloInizio, gradCorrente),
            SessadToAng(e.arco.ampiezza, gradCorrente)};
    TModificaCurva d(c, false);
    d.Dialogo();
    if (!d.Accettato()) return false;
    e.arco.cx = c.x;
    e.arco.cy = c.y;
    e.arco.raggio = c.raggio;
    e.arco.angoloInizio = AngToSessad(c.inizio, gradCorrente);
    e.arco.ampiezza = AngToSessad(c.ampiezza, gradCorrente);
    return true;
}

}   // namespace

bool ModificaCoord(double& x, double& y, double& z) {
    const PortaCorrente porta;
    TModificaCoord d(x, y, z);
    d.Dialogo();
    return d.Accettato();
}

bool ModificaCurva(std::int32_t index, bool cerchio) {
    const PortaCorrente porta;
    ParamText(NomeAngoli(), "", "", "");
    const bool cambiata = cerchio ? modificaCerchio(Elem(index)) : modificaArco(Elem(index));
    return cambiata;
}

}   // namespace tessaro
