// The point list's reader: each row becomes a marker.
#include <algorithm>
#include <array>

#include "digitising/Attacchi.h"
#include "digitising/Coordinate.h"
#include "display/Zoom.h"
#include "exchange/Codifica.h"
#include "exchange/FormatoXYZ.h"
#include "exchange/Operazione.h"
#include "exchange/XYZ.h"
#include "files/Risanamento.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Attributi.h"
#include "model/Lucidi.h"
#include "platform/Dialogs.h"
#include "platform/Resources.h"
#include "text/Conversione.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr std::int16_t avvisoRiga = 3007, risponde2Ferma = 2;
constexpr std::int16_t senzaRiga = -5;   // the file ended instead of a row
constexpr std::uint8_t tab = 9;

// A tag holds 13 characters; what is longer is cut.
Aref arefDa(const PStr255& campo) {
    Aref a{};
    a[0] = std::min<std::uint8_t>(campo[0], static_cast<std::uint8_t>(a.size() - 1));
    std::copy_n(campo.bytes() + 1, a[0], a.begin() + 1);
    return a;
}

class LettoreXYZ {
    Codifica codifica = RiconosciCodifica();
    std::int32_t numeroRiga = 0;
    std::int32_t posto = 0;   // record of this round
    std::int16_t codice = senzaRiga;
    bool rigaLetta = false;   // this round began a row
    bool stop = false;        // the person stopped the list
    ElementiContati entrati;
    Resoconto resoconto;
    // Kept: not cleared between rows, so a column that the layout leaves out stays at zero.
    double x = 0, y = 0, z = 0;

    void leggi(PStr255& s) {
        LeggiRiga(s, numeroRiga);
        InMacRoman(s, codifica);
    }

    [[nodiscard]] bool restaDaLeggere() const {
        std::int64_t qui = 0, fine = 0;
        return EndFile == 0 && GetFPos(RefNum, qui) == noErr && GetEOF(RefNum, fine) == noErr && qui < fine;
    }

    void analizza(std::int16_t colonna, const PStr255& campo) {
        if (colonna == colonnaAref) {
            Elem(posto).mark.t.aref = arefDa(campo);
            codice = 1;
            return;
        }
        std::int16_t pos = 0;
        double& valore = colonna == colonnaX ? x : colonna == colonnaY ? y : z;
        codice = STRtoFP(-1e30, 1e30, campo, valore, pos, 1);
    }

    // Each column a line of its own. A row that the file's end cuts short is a fault, its plain end is none.
    void rigaPerRiga() {
        rigaLetta = false;
        for (const std::int16_t colonna : DatoP) {
            if (colonna == colonnaNessuna) continue;
            PStr255 riga;
            leggi(riga);
            if (uscita || (EndFile && riga[0] == 0)) {
                codice = senzaRiga;
                if (rigaLetta && !uscita) ContrErr(codice, numeroRiga);
                return;
            }
            rigaLetta = true;
            analizza(colonna, riga);
            ContrErr(codice, numeroRiga);
            if (uscita) return;
        }
    }

    // The whole row in one line, its fields between tabs; fields that are missing are empty.
    void rigaIntera() {
        PStr255 riga;
        leggi(riga);
        rigaLetta = !uscita && !(EndFile && riga[0] == 0);
        if (!rigaLetta) {
            codice = senzaRiga;
            return;
        }
        std::int16_t inizio = 1;
        for (const std::int16_t colonna : DatoP) {
            if (colonna == colonnaNessuna) continue;
            const std::int16_t dopo = static_cast<std::int16_t>(riga[0] + 1);
            std::int16_t fineCampo = inizio;
            while (fineCampo < dopo && riga[fineCampo] != tab) ++fineCampo;
            analizza(colonna, riga.Copy(inizio, static_cast<std::int16_t>(fineCampo - inizio)));
            ContrErr(codice, numeroRiga);
            if (uscita) return;
            inizio = std::min(dopo, static_cast<std::int16_t>(fineCampo + 1));
        }
    }

    void memorizza() {
        elemento& e = Elem(posto);
        double px = 0, py = 0;
        RealToDigi(x, y, px, py);
        e.lucido = VisioneGraf.lucidoCorrente;
        e.selezionato = e.riservato3 = 0;
        e.riservato4 = 0;
        e.tipo = tMarker;
        e.mark.t.linea = 1;
        e.mark.t.categoria = CategoriaCorrente;
        e.mark.t.insieme = InsiemeCorrente;
        e.mark.x = px;
        e.mark.y = py;
        e.mark.z = z;
        e.mark.forma = markerCorrente;
        e.mark.spessore = spessore;
        e.mark.pattern = NumPat;
        e.mark.colore = colorCorrente;
    }

    // Kept: the slot counts though no row came for it, with what it held. As it may hold anything that was parked
    // there, a polyline's count and a text's length are made to fit.
    void conta() const {
        indElem = posto;
        Risanamento risana(posto);
        risana.passa(posto, Elem(posto));
        risana.fine();
    }

    void riga() {
        Elem(posto).testa.aref = ArefMarkerDef;
        if (TipoForm == rigaPerPunto)
            rigaIntera();
        else
            rigaPerRiga();
        // Kept: the row's last field decides alone; a fault in an earlier one was the user's to judge.
        if (codice > 0) {
            memorizza();
            entrati.aggiungi(tMarker);
        } else if (rigaLetta) {
            resoconto.parti.aggiungi(cRigheGuaste);
        }
        conta();
    }

public:
    void leggi() {
        LetturaLunga lunga(TestoScambio::avanzaPunti);
        MostraOperazione("XYZ");
        posto = std::max(indElem, 2);
        while (!EndFile && !uscita && posto < maxElementi && lunga.continua()) {
            ++posto;
            riga();
        }
        stop = lunga.fermata() || RefNum == 0;   // Escape, or the button of a bad row
    }

    void mostra() {
        const bool pieno = !uscita && !stop && posto >= maxElementi && restaDaLeggere();
        if (pieno) resoconto.pieno();
        resoconto.mostra(entrati, uscita || stop || pieno ? numeroRiga : 0, stop);
    }
};

}   // namespace

bool ApriXYZ(FSSpec& file) {
    constexpr std::int16_t listaNomi = 129, invito = 3, tipiTesti = 302;
    return NavGetFile(GetIndString(listaNomi, invito), tipiTesti, file);
}

void ContrErr(std::int16_t code, std::int32_t& line) {
    if (code > 0) return;
    ParamText(NumToString(line).view(), "", "", "");
    if (CautionAlert(avvisoRiga) != risponde2Ferma) {
        uscita = 0;
        return;
    }
    FSClose(RefNum);
    RefNum = 0;
    uscita = 1;
    SetCursor(arrowCursor);
}

void LeggiXYZ() {
    uscita = 0;
    EndFile = 0;
    if (ColonneXYZ() == 0) return;
    LettoreXYZ lettore;
    lettore.leggi();
    SpostaXY();
    PoniAnnulla(aNiente);
    InvalFinestra();
    lettore.mostra();
}

}   // namespace tessaro
