// The point list's reader: each row becomes a marker.
#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/Errori.h"
#include "display/Ridisegno.h"
#include "editing/SpostaXY.h"
#include "exchange/Codifica.h"
#include "exchange/FormatoXYZ.h"
#include "exchange/Operazione.h"
#include "exchange/RigheElenco.h"
#include "exchange/XYZ.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Lucidi.h"
#include "model/Penna.h"
#include "platform/Dialogs.h"
#include "platform/Resources.h"
#include "platform/Windows.h"
#include "registration/Coordinate.h"
#include "text/Conversione.h"
#include "text/Decimale.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr std::int16_t avvisoRiga = 3007, risponde2Ferma = 2;
constexpr std::int16_t senzaRiga = -5;   // the file ended instead of a row
constexpr char tab = 9;

// A tag holds 13 characters; what is longer is cut.
Aref arefDa(std::string_view campo) {
    Aref a{};
    const std::string_view tenuti = campo.substr(0, a.size() - 1);
    a[0] = static_cast<std::uint8_t>(tenuti.size());
    std::copy(tenuti.begin(), tenuti.end(), a.begin() + 1);
    return a;
}

// False when the point is in another reference system and has no place in the drawing's.
bool puntoIn(elemento& e, double x, double y, double z) {
    double px = 0, py = 0;
    if (viaDeiPunti.porta != nullptr && !viaDeiPunti.porta(x, y)) return false;
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
    return true;
}

// The codes of STRtoFP, messages included; beyond the range of numbers it is 0 or 1e38, and no fault.
std::int16_t numeroDa(std::string_view campo, double& valore) {
    constexpr std::int16_t buono = 1, malformato = -3;
    constexpr std::size_t pieno = 255;   // a full string loses its last character there
    if (cifreEstese != 0 && campo.size() < pieno && RealePiano(campo, valore)) return buono;
    std::int16_t pos = 0;
    if (STRtoFP(-1e30, 1e30, PStr255(campo), valore, pos, 0) != malformato) return buono;
    Sbaglio(malformato, uscita);
    return malformato;
}

class LettoreXYZ {
    Codifica codifica = RiconosciCodifica();
    RigheElenco righe;        // from where the text begins, which the line above found
    std::string convertita;   // a row in Mac Roman
    std::int32_t numeroRiga = 0;
    std::int32_t posto = 0;   // record of this round
    std::int16_t codice = senzaRiga;
    bool rigaLetta = false;   // this round began a row
    bool guasta = false;      // one of its fields is no number
    bool stop = false;        // the person stopped the list
    ElementiContati entrati;
    Resoconto resoconto;
    // Kept: not cleared between rows, so a column that the layout leaves out stays at zero.
    double x = 0, y = 0, z = 0;
    std::vector<double*> numeriDellaRiga = soloNumeri();

    // Where a row's fields go when they are all coordinates; else empty.
    std::vector<double*> soloNumeri() {
        std::vector<double*> campi;
        for (const std::int16_t colonna : DatoP) {
            if (colonna == colonnaAref) return {};
            if (colonna != colonnaNessuna) campi.push_back(&coordinata(colonna));
        }
        return campi;
    }

    std::string_view prossima() { return InMacRoman(righe.riga(numeroRiga), codifica, convertita); }

    [[nodiscard]] bool restaDaLeggere() const { return EndFile == 0 && righe.resta(); }

    double& coordinata(std::int16_t colonna) { return colonna == colonnaX ? x : colonna == colonnaY ? y : z; }

    // A line that holds only good numbers needs no further look: true, and the columns have them.
    bool presi(std::span<double* const> campi) {
        if (!righe.numeri(campi, numeroRiga)) return false;
        codice = 1;
        return true;
    }

    void analizza(std::int16_t colonna, std::string_view campo) {
        if (colonna == colonnaAref) {
            Elem(posto).mark.t.aref = arefDa(campo);
            codice = 1;
            return;
        }
        codice = numeroDa(campo, coordinata(colonna));
        guasta = guasta || codice <= 0;
    }

    // Each column a line of its own. A row that the file's end cuts short is a fault, its plain end is none.
    void rigaPerRiga() {
        rigaLetta = false;
        for (const std::int16_t colonna : DatoP) {
            if (colonna == colonnaNessuna) continue;
            double* const campo[] = {&coordinata(colonna)};
            if (colonna != colonnaAref && presi(campo)) {
                rigaLetta = true;
                continue;
            }
            const std::string_view riga = prossima();
            if (uscita || (EndFile && riga.empty())) {
                codice = senzaRiga;
                guasta = true;
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
        rigaLetta = presi(numeriDellaRiga);
        if (rigaLetta) return;
        std::string_view resto = prossima();
        rigaLetta = !uscita && !(EndFile && resto.empty());
        if (!rigaLetta) {
            codice = senzaRiga;
            return;
        }
        for (const std::int16_t colonna : DatoP) {
            if (colonna == colonnaNessuna) continue;
            const std::size_t fineCampo = std::min(resto.find(tab), resto.size());
            analizza(colonna, resto.substr(0, fineCampo));
            ContrErr(codice, numeroRiga);
            if (uscita) return;
            resto.remove_prefix(std::min(fineCampo + 1, resto.size()));
        }
    }

    // A row with a field that is no number is left out, whatever its other fields say; what a column held before stays.
    void riga() {
        const double primaX = x, primaY = y, primaZ = z;
        guasta = false;
        Elem(posto).testa.aref = ArefMarkerDef;
        if (TipoForm == rigaPerPunto)
            rigaIntera();
        else
            rigaPerRiga();
        if (codice > 0 && !guasta && puntoIn(Elem(posto), x, y, z)) {
            indElem = posto;
            entrati.aggiungi(tMarker);
            return;
        }
        --posto;   // the slot was not used
        x = primaX;
        y = primaY;
        z = primaZ;
        if (rigaLetta) resoconto.parti.aggiungi(cRigheGuaste);
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
        const std::string nota = viaDeiPunti.nota != nullptr ? viaDeiPunti.nota() : std::string();
        if (!nota.empty()) resoconto.nota(nota);
        resoconto.mostra(entrati, uscita || stop || pieno ? numeroRiga : 0, stop);
    }
};

}   // namespace

constinit ViaDeiPunti viaDeiPunti;

bool PuntoXYZ(std::int32_t posto, double x, double y, double z, std::string_view aref, bool& tagliato) {
    elemento& e = Elem(posto);
    e = elemento{};
    e.testa.aref = aref.empty() ? ArefMarkerDef : arefDa(aref);
    tagliato = aref.size() >= e.testa.aref.size();
    return puntoIn(e, x, y, z);
}

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
    const std::string vietato = viaDeiPunti.comincia != nullptr ? viaDeiPunti.comincia() : std::string();
    if (!vietato.empty()) return MostraGuasto({noErr, vietato, {}, -1});
    LettoreXYZ lettore;
    lettore.leggi();
    SpostaXY();
    PoniAnnulla(aNiente);
    InvalFinestra();
    lettore.mostra();
}

}   // namespace tessaro
