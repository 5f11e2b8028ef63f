// The two dialogs of the control points: a point's position by typing, and the real coordinates of points 1 and 2.
#include "dialogs/Parametri.h"
#include "digitising/Attacchi.h"
#include "digitising/Coordinate.h"
#include "display/Zoom.h"
#include "model/Archivio.h"
#include "model/Attributi.h"
#include "model/Selezione.h"
#include "platform/Resources.h"
#include "text/Conversione.h"

namespace tessaro {

// --- a point by typing

namespace {

constexpr std::int16_t campoX = 4, campoY = 6, campoZ = 8;

void mostraPunto(double x, double y, double z) {
    DigiToReal(x, y, x, y);
    ScriviCampoReale(campoX, x, 3);
    ScriviCampoReale(campoY, y, 3);
    ScriviCampoReale(campoZ, z, 3);
}

// The selected segment's or marker's first point; of anything else nothing; without a selection the cursor.
void proponiPunto() {
    if (!Puntosel.attiva) {
        mostraPunto(xcurs, ycurs, ZetaCorrente);
        return;
    }
    if (Puntosel.oggetto >= oMeshOrigine || Puntosel.indice < 3 || Puntosel.indice > indElem) return;
    const elemento& e = Elem(Puntosel.indice);
    if (e.tipo == tSegmento || e.tipo == tMarker) mostraPunto(e.segm.x1, e.segm.y1, e.segm.z1);
}

bool leggiCampoPunto(std::int16_t item, double& valore) {
    constexpr double limite = 1e30;
    constexpr std::int16_t troppoGrande = -1;
    if (LeggiCampoReale(item, -limite, limite, valore)) return true;
    if (err_ == troppoGrande) SelectDialogItemText(theDialog, item, inx, 255);
    return false;
}

bool sulFoglio(double x, double y) { return x >= 0 && x <= XFDecimi && y >= 0 && y <= YFDecimi; }

// The three fields, in real coordinates, to the typed point in sheet units.
bool AccettaIngreAtt(double& x, double& y, double& z) {
    constexpr std::int16_t fuoriFoglio = 1014, rifiutato = -4;
    if (!leggiCampoPunto(campoX, x) || !leggiCampoPunto(campoY, y) || !leggiCampoPunto(campoZ, z)) return false;
    RealToDigi(x, y, XDigit, YDigit);
    ZDigit = z;
    if (sulFoglio(XDigit, YDigit)) return true;
    StopAlert(fuoriFoglio);
    err_ = rifiutato;
    return false;
}

}   // namespace

void IngressoAttacco(std::int16_t n) {
    constexpr std::int16_t dialogo = 2024, ok = 1, annulla = 2, lista = 129, richiesta = 38;
    const PStr255 titolo = NumToString(n) + GetIndString(lista, richiesta).c_str();
    ParamText(titolo.view(), "", "", "");
    theDialog = GetNewDialog(dialogo);
    proponiPunto();
    SelectDialogItemText(theDialog, campoX, 0, 100);
    double x = 0, y = 0, z = 0;
    do {
        ModalDialog(MyMovableFilter, Noitem);
    } while (Noitem != annulla && !(Noitem == ok && AccettaIngreAtt(x, y, z)));
    const bool accettato = Noitem == ok;
    DisposeDialog(theDialog);
    if (!accettato) return;
    IntroDigitale = 1;
    Attacco(n);
    InvalWind();
}

// --- real coordinates of points 1 and 2

namespace {

class TParAttacco : public TParametri {
    enum : std::int16_t { campoX1 = 4, campoY1 = 6, campoX2 = 8, campoY2 = 10, conReali = 17, senzaReali = 18 };

    elemento copia{};   // of record 2, until OK
    std::int16_t radio = senzaReali;

    void riprendi() {
        copia = Elem(2);
        radio = copia.att.coordReali ? conReali : senzaReali;
    }

public:
    void Display() override {
        ScriviCampoReale(campoX1, copia.att.x1, 3);
        ScriviCampoReale(campoY1, copia.att.y1, 3);
        ScriviCampoReale(campoX2, copia.att.x2, 3);
        ScriviCampoReale(campoY2, copia.att.y2, 3);
        SetDialogItemValue(theDialog, conReali, radio == conReali);
        SetDialogItemValue(theDialog, senzaReali, radio == senzaReali);
    }

    void IngGene(std::uint8_t ripristino) override {
        constexpr double limite = 2000000;
        constexpr std::int16_t campi[] = {campoX1, campoY1, campoX2, campoY2};
        esito = 1;
        if (ripristino) return;
        std::array<double, 4> v{};
        for (std::size_t i = 0; i < v.size(); ++i)
            if (!LeggiCampo(campi[i], -limite, limite, v[i])) return;
        copia.att.x1 = v[0];
        copia.att.y1 = v[1];
        copia.att.x2 = v[2];
        copia.att.y2 = v[3];
        copia.att.coordReali = radio == conReali;
    }

    void Dialogo() override {
        theDialog = GetNewDialog(dialogoId);
        riprendi();
        Display();
        SelectDialogItemText(theDialog, campoX1, 0, 100);
        do {
            ModalDialog(MyMovableFilter, itemCorrente);
            if (itemCorrente == conReali || itemCorrente == senzaReali) RadioBoxItem(radio);
            if (itemCorrente == okItem) IngGene(0);
            if (itemCorrente == ripristinaItem) {
                riprendi();
                IngGene(1);
                Display();
            }
            OscuraAnnulla();
            if (quitPending()) break;
        } while ((itemCorrente != okItem && itemCorrente != annullaItem) || esito <= 0);
        DisposeDialog(theDialog);
    }

    void Param() {
        Dialogo();
        if (itemCorrente != okItem || esito <= 0) return;
        Elem(2) = copia;
        if (copia.att.coordReali) CalcTransfC();
        CalcolaRapporti();
    }
};

}   // namespace

void ParAttacco() {
    const GrafPtr prima = GetPort();
    TParAttacco d;
    d.Poni(1, 2, 0, 11, 2006);
    d.Param();
    SetPort(prima);
}

}   // namespace tessaro
