// A point list that is a table, read into markers.
#include <algorithm>
#include <string>
#include <vector>

#include "dialogs/Errori.h"
#include "display/Ridisegno.h"
#include "editing/SpostaXY.h"
#include "exchange/Codifica.h"
#include "exchange/ImportaElenco.h"
#include "exchange/Operazione.h"
#include "exchange/RigheElenco.h"
#include "exchange/XYZ.h"
#include "model/Annulla.h"
#include "model/Archivio.h"

namespace tessaro {

namespace {

struct Punto {
    double x = 0, y = 0, z = 0;
    std::string numero, codice;

    // Both, as far as a tag goes.
    [[nodiscard]] std::string aref() const {
        return numero.empty() || codice.empty() ? numero + codice : numero + " " + codice;
    }
};

class LettoreElenco {
    const FormaElenco& forma;
    Codifica codifica = RiconosciCodifica();
    RigheElenco righe;
    std::string convertita;
    std::vector<std::string_view> campi;
    std::int32_t numeroRiga = 0;
    bool testaVista = false;
    bool fermato = false;
    std::int64_t tagliati = 0;
    ElementiContati entrati;
    Resoconto resoconto;

    bool prendi(ColonnaElenco colonna, std::string_view campo, Punto& p) const {
        switch (colonna) {
        case ColonnaElenco::numero: p.numero = campo; return true;
        case ColonnaElenco::codice: p.codice = campo; return true;
        case ColonnaElenco::x: return NumeroElenco(campo, forma.virgolaDecimale, p.x);
        case ColonnaElenco::y: return NumeroElenco(campo, forma.virgolaDecimale, p.y);
        case ColonnaElenco::z: return campo.empty() || NumeroElenco(campo, forma.virgolaDecimale, p.z);
        case ColonnaElenco::niente: break;
        }
        return true;
    }

    // Columns that a row does not have are faults, but for a code at its end.
    bool analizza(std::string_view riga, Punto& p) {
        CampiElenco(riga, forma.separa, campi);
        for (std::size_t c = 0; c < forma.colonne.size(); ++c) {
            const ColonnaElenco k = forma.colonne[c];
            if (k == ColonnaElenco::niente || (c >= campi.size() && k == ColonnaElenco::codice)) continue;
            if (c >= campi.size() || !prendi(k, campi[c], p)) return false;
        }
        return true;
    }

    void riga(std::string_view testo) {
        if (CommentoElenco(testo)) return;
        if (forma.conTesta && !testaVista) {
            testaVista = true;
            return;
        }
        Punto p;
        bool tagliato = false;
        if (!analizza(testo, p) || !PuntoXYZ(indElem + 1, p.x, p.y, p.z, p.aref(), tagliato)) {
            resoconto.parti.aggiungi(cRigheGuaste);
            return;
        }
        ++indElem;
        tagliati += tagliato;
        entrati.aggiungi(tMarker);
    }

public:
    explicit LettoreElenco(const FormaElenco& f) : forma(f) {}

    void leggi() {
        LetturaLunga lunga(TestoScambio::avanzaPunti);
        MostraOperazione("XYZ");
        indElem = std::max(indElem, 2);
        while (!EndFile && !uscita && indElem < maxElementi && lunga.continua())
            riga(InMacRoman(righe.riga(numeroRiga), codifica, convertita));
        fermato = lunga.fermata();
    }

    void mostra() {
        const bool pieno = !uscita && !fermato && indElem >= maxElementi && EndFile == 0 && righe.resta();
        if (pieno) resoconto.pieno();
        const std::string nota = viaDeiPunti.nota != nullptr ? viaDeiPunti.nota() : std::string();
        if (!nota.empty()) resoconto.nota(nota);
        if (tagliati > 0) resoconto.cambiati.aggiungi(cAttributiTagliati, tagliati);
        resoconto.mostra(entrati, uscita || fermato || pieno ? numeroRiga : 0, fermato);
    }
};

}   // namespace

void LeggiElenco(const FormaElenco& forma) {
    uscita = 0;
    EndFile = 0;
    const std::string vietato = viaDeiPunti.comincia != nullptr ? viaDeiPunti.comincia() : std::string();
    if (!vietato.empty()) return MostraGuasto({noErr, vietato, {}, -1});
    LettoreElenco lettore(forma);
    lettore.leggi();
    SpostaXY();
    PoniAnnulla(aNiente);
    InvalFinestra();
    lettore.mostra();
}

}   // namespace tessaro
