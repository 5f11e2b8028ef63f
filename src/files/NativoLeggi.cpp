// The open file into the drawing, or merged into it. Records are turned straight from the read buffer into their places;
// what a file claims is held against what it has before it is believed.
#include <algorithm>
#include <bit>
#include <cstring>
#include <new>
#include <string>

#include "dialogs/Errori.h"
#include "dialogs/Parametri.h"
#include "display/AttacchiMarche.h"
#include "display/Ridisegno.h"
#include "display/Zoom.h"
#include "files/Blocchi.h"
#include "files/BloccoEstensioni.h"
#include "files/Fusione.h"
#include "files/Migrazione.h"
#include "files/Nativo.h"
#include "files/Risanamento.h"
#include "files/TestiFile.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Estensioni.h"
#include "model/Registrazione.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "registration/attaccoDinamico.h"
#include "text/EndianConvert.h"
#include "text/FileDati.h"

namespace tessaro {

constinit OSType fType = tipoTS3D;
constinit bool lettoIntero = true;

namespace {

constexpr std::int16_t avvisoMemoria = 128;
constexpr std::int32_t riservati = 2;   // records 1 and 2 of every drawing
constexpr std::int16_t angoloNonDetto = 100;
constexpr std::int16_t primaNuova = 5;   // the first version of the present record
constexpr std::size_t posizioneConto = 76;

struct Intestazione {
    std::int16_t versione = 0;
    double x5 = 0, y5 = 0;   // control point 5
    std::uint8_t ok5 = 0;
};

// One reading: what the file says of itself, and the first thing that was wrong with it.
struct Lettura {
    Intestazione testa;
    elemento primo{}, secondo{};   // the file's records 1 and 2
    std::int32_t conto = 0;        // elements it claims, the reserved ones too
    bool conTipo = true;           // version word and a record 2 of its own
    Fusione fusione = Fusione::comeSono;
    Guasto guasto;
    bool guasta = false;
    bool fermata = false;   // the person stopped it

    // The first fault is told whole, of later ones what is wrong.
    void segnala(const Guasto& g) {
        if (!guasta) {
            guasto = g;
        } else {
            guasto.what += " " + g.what;
        }
        guasta = true;
    }
    void segnala(TestoFile t, std::int16_t codice = noErr, std::string_view p0 = {}, std::string_view p1 = {}) {
        if (uscita) return;   // a failure of the file itself has shown its own message
        std::int64_t pos = 0;
        GetFPos(RefNum, pos);
        segnala(Guasto{codice, TestoDi(t, p0, p1), {}, pos});
    }
};

std::int64_t resto() {
    std::int64_t pos = 0, fine = 0;
    GetFPos(RefNum, pos);
    GetEOF(RefNum, fine);
    return fine - pos;
}

std::int32_t byteRecord(std::int16_t versione) {
    if (versione <= 2) return sizeof(Oldelemento);
    return versione <= 4 ? sizeof(elemento_Ext) : sizeof(elemento);
}

std::int64_t byteIntestazione(std::int16_t versione) {
    if (versione < 4) return 0;
    return versione == 4 ? 21 : 17;
}

bool leggiIntestazione(Lettura& l) {
    if (l.conTipo) {
        if (resto() < 2) return false;
        l.testa.versione = leggii();
    }
    if (resto() < byteIntestazione(l.testa.versione)) return false;
    if (l.testa.versione < 4) return true;
    if (l.testa.versione == 4) {
        l.testa.x5 = static_cast<double>(x80told(leggiExtended()));
        l.testa.y5 = static_cast<double>(x80told(leggiExtended()));
    } else {
        l.testa.x5 = leggir();
        l.testa.y5 = leggir();
    }
    l.testa.ok5 = leggib();
    return !uscita;
}

// One record of the file's version, still in disk order. False when the file has no more.
bool leggiRecord(std::int16_t versione, elemento& disco) {
    if (resto() < byteRecord(versione)) return false;
    if (versione <= 2) {
        Oldelemento vecchio;
        leggiBlocco(vecchio.byte.data(), sizeof vecchio);
        TrasformaOldNew(vecchio, disco);
    } else if (versione <= 4) {
        elemento_Ext vecchio;
        leggiBlocco(vecchio.byte.data(), sizeof vecchio);
        TrasformaExtDoub(vecchio, disco);
    } else {
        leggiBlocco(&disco, sizeof disco);
    }
    return !uscita;
}

std::int32_t contoDi(const elemento& disco, std::int16_t versione) {
    const unsigned char* p = reinterpret_cast<const unsigned char*>(&disco) + posizioneConto;
    if (versione >= 8) {
        std::int32_t conto = 0;
        std::memcpy(&conto, p, sizeof conto);
        return EndiansLong_BtoN(conto);
    }
    const auto corto = static_cast<std::int16_t>(p[0] << 8 | p[1]);
    return corto < 0 ? corto + 65536 : corto;
}

// Record 2 of a file that has none.
elemento secondoFittizio() {
    elemento e{};
    e.tipo = tAttacco2;
    e.lucido = 1;
    e.att.t.linea = 1;
    e.att.t.aref = ArefVecchio;
    e.att.x1 = e.att.y1 = e.att.z1 = 0;
    e.att.x2 = e.att.y2 = e.att.z2 = 1.0;
    return e;
}

bool leggiRiservati(Lettura& l) {
    if (!leggiRecord(l.testa.versione, l.primo)) return false;
    l.conto = contoDi(l.primo, l.testa.versione);
    TrasformaElemBtoN(l.primo);
    if (!l.conTipo) {
        l.secondo = secondoFittizio();
        return l.conto >= 1;
    }
    if (!leggiRecord(l.testa.versione, l.secondo)) return false;
    TrasformaElemBtoN(l.secondo);
    if (l.testa.versione <= 1) l.secondo.att.quattroPunti = 0;
    return l.conto >= riservati;
}

std::int32_t elementiDetti(const Lettura& l) { return l.conto - (l.conTipo ? riservati : 1); }

// A count that the file cannot hold: of a drawing that was cut off the rest is worth having, anything else is none.
bool contoCredibile(const Lettura& l) {
    const std::int64_t voluti = std::int64_t{elementiDetti(l)} * byteRecord(l.testa.versione);
    return voluti <= resto() || (l.primo.tipo == tAttacco1 && l.secondo.tipo == tAttacco2);
}

// Before version 8 some fields held nothing.
void predefiniti(std::int16_t versione, elemento& e) {
    if (versione >= 8) return;
    switch (e.tipo) {
    case tTesto: e.test.angolo = angoloNonDetto; break;
    case tPoligono: e.poli.patternArea = 0; break;
    case tCerchio: e.cerc.patternArea = 0; break;
    case tArco: e.arco.patternArea = 0; break;
    default: break;
    }
}

// The data behind a picture's record. False when the file does not have them.
bool leggiPict(Lettura& l, std::int32_t n) {
    if (resto() < 4) return false;
    const std::int32_t byte = leggiLong();
    if (uscita) return false;
    if (byte < 0 || byte > resto()) {
        l.segnala(TestoFile::immagine, eofErr, std::to_string(n - riservati));
        return false;
    }
    try {
        std::string dati(static_cast<std::size_t>(byte), '\0');
        leggiBlocco(dati.data(), byte);
        Elem(n).pict.maniglia = NewPict(std::move(dati));
    } catch (const std::bad_alloc&) {
        StopAlert(avvisoMemoria);   // Kept: its bytes are not skipped, and what follows is read from the wrong place
    }
    return !uscita;
}

enum class Sorte : std::uint8_t { entrato, scartato, fine };

// What is left to do with a record that lies in its place, in native order.
Sorte completa(Lettura& l, Risanamento& r, std::int32_t n) {
    elemento& e = Elem(n);
    if (e.tipo == tPict && !leggiPict(l, n)) return Sorte::fine;
    if (!r.accetta(e, l.testa.versione >= primaNuova)) {
        if (e.tipo == tPict) KillPicture(e.pict.maniglia);
        return Sorte::scartato;
    }
    predefiniti(l.testa.versione, e);
    if (l.fusione != Fusione::comeSono) AdattaElemento(l.fusione, e);
    r.passa(n, e);
    return Sorte::entrato;
}

// Where the reading stands: the next free number, and how many records are still to come.
struct Posto {
    std::int32_t n, restano;
};

// As many records of the present shape as the read buffer holds whole, up to the first picture. False when there was
// none, or the reading is over.
bool leggiDalBuffer(Lettura& l, Risanamento& r, Posto& p) {
    const char* dati = nullptr;
    std::int64_t quanti = 0;
    if (FSPeek(RefNum, dati, quanti) != noErr) return false;
    std::int64_t pos = 0;
    GetFPos(RefNum, pos);
    const auto interi = std::min<std::int64_t>(quanti / std::int64_t{sizeof(elemento)}, p.restano);
    for (std::int64_t i = 0; i < interi; ++i) {
        elemento& e = Elem(p.n);
        std::memcpy(&e, dati + i * std::int64_t{sizeof(elemento)}, sizeof e);
        TrasformaElemBtoN(e);
        const bool immagine = e.tipo == tPict;
        if (immagine) SetFPos(RefNum, pos + (i + 1) * std::int64_t{sizeof(elemento)});
        const Sorte sorte = completa(l, r, p.n);
        if (sorte == Sorte::fine) return false;
        if (sorte == Sorte::entrato) ++p.n;
        --p.restano;
        if (immagine) return true;
    }
    SetFPos(RefNum, pos + interi * std::int64_t{sizeof(elemento)});
    return interi > 0;
}

// `quanti` records from number n on; gives how many did not come.
std::int32_t leggiElementi(Lettura& l, Risanamento& r, std::int32_t& n, std::int32_t quanti) {
    Posto p{n, quanti};
    Termometro termometro(PStr255(std::string_view(TestoDi(TestoFile::avanzaLettura))));
    std::int32_t mostrati = quanti;   // that were left when the progress was shown last
    while (p.restano > 0 && !uscita && !l.guasta) {
        constexpr std::int32_t traDomande = 2048;   // records; a picture is one
        if (mostrati - p.restano >= traDomande || Elem(p.n - 1).tipo == tPict) {
            mostrati = p.restano;
            l.fermata = !termometro.passo(1 - static_cast<double>(p.restano) / quanti) || escapePressed();
            if (l.fermata) break;
        }
        if (l.testa.versione >= 5 && leggiDalBuffer(l, r, p)) continue;
        // One that lies across the buffer's end, or has an old shape.
        if (p.restano == 0 || uscita || l.guasta || !leggiRecord(l.testa.versione, Elem(p.n))) break;
        TrasformaElemBtoN(Elem(p.n));
        const Sorte sorte = completa(l, r, p.n);
        if (sorte == Sorte::fine) break;
        if (sorte == Sorte::entrato) ++p.n;
        --p.restano;
    }
    r.fine();
    n = p.n;
    return p.restano;
}

void accogli(const Lettura& l) {
    Elem(1) = l.primo;
    Elem(2) = l.secondo;
    // By their places; a damaged type would make a picture of them at the next save.
    Elem(1).tipo = tAttacco1;
    Elem(2).tipo = tAttacco2;
    XA1 = l.primo.att1.x1;
    YA1 = l.primo.att1.y1;
    XA2 = l.primo.att1.x2;
    YA2 = l.primo.att1.y2;
    xAttacco5 = l.testa.x5;
    yAttacco5 = l.testa.y5;
    OKAttacco5 = l.testa.ok5;
    AzzeraEstensioni();
}

void rinuncia(std::int32_t prima, std::int32_t ultimo) {
    for (std::int32_t n = prima; n <= ultimo; ++n)
        if (Elem(n).tipo == tPict) KillPicture(Elem(n).pict.maniglia);
}

// The elements, behind what is open. True when the blocks that follow them can be read.
bool leggiDisegno(Lettura& l, bool inFusione) {
    const std::int32_t prima = inFusione ? indElem + 1 : riservati + 1;
    const std::int64_t voluto = std::int64_t{prima} + elementiDetti(l) - 1;
    const auto ultimo = static_cast<std::int32_t>(std::min<std::int64_t>(voluto, maxElementi));
    Risanamento r(prima);
    std::int32_t prossimo = prima;
    const bool mancano = leggiElementi(l, r, prossimo, ultimo - prima + 1) > 0;
    const std::int32_t letto = prossimo - 1;
    if (mancano && inFusione) {
        rinuncia(prima, letto);
        l.fermata ? l.segnala(TestoFile::fermata, noErr, "0") : l.segnala(TestoFile::troncatoFusione, eofErr);
        uscita = 1;
        return false;
    }
    indElem = letto;
    lettoIntero = !mancano && !uscita && voluto <= ultimo && r.scartati() == 0;
    if (l.fermata)
        l.segnala(TestoFile::fermata, noErr, std::to_string(letto - riservati));
    else if (mancano)
        l.segnala(TestoFile::troncato, eofErr, std::to_string(letto - riservati));
    if (mancano || uscita) return false;
    if (r.scartati() > 0) l.segnala(TestoFile::scartati, noErr, std::to_string(r.scartati()));
    if (voluto > ultimo)
        l.segnala(TestoFile::troppi, noErr, std::to_string(elementiDetti(l)), std::to_string(ultimo - prima + 1));
    else if (r.risanati() > 0)
        l.segnala(TestoFile::risanati, noErr, std::to_string(r.risanati()));
    // Kept: behind a drawing that was clipped the blocks are read from where the reading stopped.
    return true;
}

bool leggiTutto(Lettura& l) {
    const bool inFusione = indElem > riservati;
    if (!leggiIntestazione(l) || !leggiRiservati(l) || !contoCredibile(l)) {
        l.segnala(TestoFile::nonDisegno);
        uscita = 1;
        return false;
    }
    if (inFusione) {
        l.fusione = ScegliFusione(theItem, l.primo, l.secondo);
        constexpr std::int16_t primoLasciato = 32, ultimoLasciato = 34;   // requests of a drop, which says why
        const bool lasciato = theItem >= primoLasciato && theItem <= ultimoLasciato;
        if (l.fusione == Fusione::nessuna && lasciato) l.segnala(TestoFile::senzaPunti);
        if (l.fusione == Fusione::nessuna) return true;
    } else {
        accogli(l);
    }
    if (!leggiDisegno(l, inFusione)) return !inFusione;
    // Kept: a merge without a similarity, by four points too, replaces view, colours, units and meshes by the file's.
    if (l.fusione != Fusione::comeSono && l.fusione != Fusione::quattroPunti) return true;
    Guasto g;
    // A drawing's own entries come with it; what is merged into another leaves its entries behind.
    if (!LeggiBlocchi(l.testa.versione, g) || (!inFusione && !LeggiEstensioni(g))) lettoIntero = false;
    if (!g.what.empty()) l.segnala(g);
    return true;
}

}   // namespace

void (*apriDisegno)() = nullptr;

void leggidati() {
    if (noWindow && apriDisegno) apriDisegno();
    Lettura l;
    lettoIntero = true;
    l.conTipo = fType == tipoTS3D;
    const bool buono = !uscita && leggiTutto(l);
    if (buono) {
        NewDis = 1;
        const ErroriIncontrati errori = attaccoAttivo.PreparaAttacco();
        // Points that nobody gave are no news to who opens a drawing of two.
        const bool tutti = attaccoAttivo.GetTipo() == 0 || (AttaccoDato(3) && AttaccoDato(4));
        if (tutti) ErroreAlert(errori);
        PoniAnnulla(aNiente);
        InvalFinestra();
    }
    if (l.guasta) MostraGuasto(l.guasto);
}

}   // namespace tessaro
