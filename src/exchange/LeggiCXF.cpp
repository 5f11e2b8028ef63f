// Parcels, lines and texts of a cadastral map as elements.
#include <algorithm>
#include <limits>
#include <string_view>

#include "editing/Scelta.h"
#include "exchange/CXF.h"
#include "exchange/RigheDxf.h"
#include "model/Archivio.h"
#include "model/Carattere.h"
#include "model/Cursore.h"
#include "model/Lucidi.h"
#include "model/Unita.h"
#include "platform/Events.h"
#include "registration/Coordinate.h"
#include "text/Conversione.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr std::int16_t lucidoParticelle = 0, lucidoFabbricati = 1, lucidoNomiFabbricati = 2, lucidoTesti = 5,
                       lucidoLinee = 6;
constexpr std::int16_t coloreComune = 1, coloreNomiFabbricati = 4;

void suLucido(std::int16_t l) { VisioneGraf.lucidoCorrente = l; }

struct TipoLinea {
    std::int16_t codice, colore, pattern;
};
constexpr TipoLinea tipiLinea[] = {{1, 1, 1}, {11, 1, 1}, {12, 5, 1}, {5, 1, 4}, {6, 1, 3}};
constexpr TipoLinea altraLinea{0, 1, 2};

TipoLinea tipoDiLinea(std::int16_t codice) {
    const auto* t = std::find_if(std::begin(tipiLinea), std::end(tipiLinea),
                                 [codice](const TipoLinea& x) { return x.codice == codice; });
    return t == std::end(tipiLinea) ? altraLinea : *t;
}

}   // namespace

void TLeggiEntitaCXF::ReadlnDisco(PStr255& s) {
    if (!RigaDisco(s, charprec, true)) return;
    numriga = i16(numriga + 1);
    ++contate;
    if (s[0] > 0 && s[1] == ' ') s = s.Copy(2, 255);
    // Values are padded to the width of their column: a name is its characters.
    while (s[0] > 0 && s[s[0]] == ' ') --s[0];
    InMacRoman(s, codifica);
}

bool TLeggiEntitaCXF::eParola(const char* parola) const {
    const PStr255 p(parola);
    return linea.Copy(1, p[0]) == p;
}

bool TLeggiEntitaCXF::continua() { return !uscita && !pieno && lunga.continua(); }

// One fault, one message: what follows in the entity is not looked at any more.
double TLeggiEntitaCXF::reale() {
    ReadlnDisco(linea);
    double v = 0;
    return !uscita && RealeDaRiga(linea.view(), v) ? v : 0;
}

// A count may be any that a head can hold; what is larger is as much as that.
std::int16_t TLeggiEntitaCXF::intero() {
    constexpr std::int16_t malformato = 0, massimo = std::numeric_limits<std::int16_t>::max();
    ReadlnDisco(linea);
    std::int16_t v = 0;
    if (uscita) return 0;
    switch (InteroDaRiga(linea.view(), -massimo, massimo, v)) {
    case Intero::buono: return v;
    case Intero::fuoriLimiti: return linea.view().find('-') == std::string_view::npos ? massimo : std::int16_t{-1};
    case Intero::malformato: Sbaglio(malformato, uscita);
    }
    return 0;
}

TLeggiEntitaCXF::Coppia2 TLeggiEntitaCXF::punto() {
    const double x = reale(), y = reale();
    Coppia2 p;
    RealToDigi(x, y, p.x, p.y);
    return p;
}

// The height is that of a letter on the sheet, in tenths of a millimetre.
void TLeggiEntitaCXF::dimensione() {
    const double altezza = reale();
    if (!uscita) gFontSize = std::clamp<std::int16_t>(arrotonda16(altezza / DecPunto * 1.6), 5, 127);
}

// From radians, counter-clockwise from East.
std::int16_t TLeggiEntitaCXF::angolo() {
    const double radianti = reale();
    return arrotonda16(SessadToAng(90, gradCorrente) - RadToAng(radianti, gradCorrente));
}

void TLeggiEntitaCXF::metti(Tipoelem tipo, const Coppia2& p, double z, const Coppia2& q, std::int16_t penna,
                            std::int16_t colore, std::int16_t pattern, const PStr255& testo) {
    pieno = indElem >= maxElementi;   // the store beeps once, and nothing more is read
    if (pieno) resoconto.pieno();
    const bool segmento = tipo == tSegmento;
    Memorizza(tipo, p.x, p.y, z, segmento ? q.x : 0, segmento ? q.y : 0, 0, penna, colore, pattern, testo);
}

void TLeggiEntitaCXF::scritta(const PStr255& testo, const Coppia2& dove, std::int16_t ang, std::int16_t colore) {
    if (testo[0] != 0) metti(tTesto, dove, 0, dove, 1, colore, ang, testo);
}

// Recognised on purpose, and nothing more: their values go by as lines that begin no entity.
void TLeggiEntitaCXF::Simbolo() {
    MostraOperazione("SIMBOLO");
    resoconto.tralascia("SIMBOLO");
    prova.tipo = tMarker;
}

void TLeggiEntitaCXF::Fiduciale() {
    MostraOperazione("FIDUCIALE");
    resoconto.tralascia("FIDUCIALE");
    prova.tipo = tCerchio;
}

void TLeggiEntitaCXF::anello(std::int32_t vertici, std::int16_t penna, std::int16_t colore, std::int16_t pattern,
                             std::int32_t& contatore) {
    constexpr std::int32_t massimi = 32768;   // a head and what it can count; the points behind go by as lines
    vertici = std::min(vertici, massimi);
    contatore = 0;
    const auto vertice = [&](Tipoelem tipo) {
        const Coppia2 p = punto();
        if (!uscita) metti(tipo, p, zcurs, p, penna, colore, pattern, "");
    };
    if (vertici < 1) return;
    vertice(tPoligono);
    for (; contatore < vertici - 1 && continua(); ++contatore) vertice(tVertice);
}

// Kept: the loop asks the counter that the ring before it has left, so the islands are read only when that ring has no
// more points than there are islands; else their lines go by unread.
void TLeggiEntitaCXF::isole(const std::vector<std::int16_t>& vertici, std::int32_t contatore) {
    const auto quante = static_cast<std::int32_t>(vertici.size());
    std::int32_t isola = 0;
    for (; isola < quante && contatore < quante && continua(); ++isola)
        anello(vertici[static_cast<std::size_t>(isola)], 1, coloreComune, 1, contatore);
    if (continua()) resoconto.parti.aggiungi(cIsole, quante - isola);
}

void TLeggiEntitaCXF::Poligono() {
    MostraOperazione("BORDO");
    PStr255 nome;
    ReadlnDisco(nome);
    dimensione();
    const std::int16_t ang = angolo();
    const Coppia2 dove = punto();
    ReadlnDisco(linea);   // the inner point, for nothing
    ReadlnDisco(linea);
    std::vector<std::int16_t> verticiIsola;
    const std::int16_t quante = intero();
    std::int32_t esterni = intero();
    for (std::int16_t i = 0; i < quante && !uscita; ++i) {
        verticiIsola.push_back(intero());
        esterni -= verticiIsola.back();
    }
    if (uscita) return;

    // Kept: roads and waters ("STRADA", "ACQUA") are parcels like any other, their names are stored.
    const bool fabbricato = nome[0] != 0 && nome[nome[0]] == '+';
    if (fabbricato) {
        --nome[0];
        suLucido(lucidoNomiFabbricati);
    } else {
        suLucido(lucidoParticelle);
    }
    scritta(nome, dove, ang, fabbricato ? coloreNomiFabbricati : coloreComune);
    if (fabbricato) suLucido(lucidoFabbricati);

    if (esterni < 1) return;   // counts that do not agree: the points go by as lines of no entity
    std::int32_t contatore = 0;
    anello(esterni, fabbricato ? 2 : 1, coloreComune, 1, contatore);
    isole(verticiIsola, contatore);
}

void TLeggiEntitaCXF::Linea() {
    MostraOperazione("LINEA");
    suLucido(lucidoLinee);
    const TipoLinea tipo = tipoDiLinea(intero());
    const std::int16_t punti = intero();
    if (uscita) return;
    if (punti != 2) {
        std::int32_t contatore = 0;
        anello(punti, 1, tipo.colore, tipo.pattern, contatore);
        return;
    }
    const Coppia2 da = punto(), a = punto();
    if (!uscita) metti(tSegmento, da, 0, a, 1, tipo.colore, tipo.pattern, "");
}

void TLeggiEntitaCXF::CXFTesto() {
    MostraOperazione("TESTO");
    suLucido(lucidoTesti);
    gFontSize = 12;
    PStr255 testo;
    ReadlnDisco(testo);
    testo[0] = std::min<std::uint8_t>(testo[0], 40);
    dimensione();
    const std::int16_t ang = angolo();
    const Coppia2 dove = punto();
    if (!uscita) scritta(testo, dove, ang, coloreComune);
}

void TLeggiEntitaCXF::Leggi() {
    struct Entita {
        const char* parola;
        void (TLeggiEntitaCXF::*leggi)();
    };
    static constexpr Entita entita[] = {
        {"LINEA", &TLeggiEntitaCXF::Linea},         {"SIMBOLO", &TLeggiEntitaCXF::Simbolo},
        {"FIDUCIALE", &TLeggiEntitaCXF::Fiduciale}, {"BORDO", &TLeggiEntitaCXF::Poligono},
        {"TESTO", &TLeggiEntitaCXF::CXFTesto},
    };
    uscita = 0;
    EndFile = 0;
    charprec = 0;
    codifica = RiconosciCodifica();
    const std::int32_t primo = indElem + 1;
    while (continua() && !EndFile) {
        ReadlnDisco(linea);
        const auto* e =
            std::find_if(std::begin(entita), std::end(entita), [this](const Entita& x) { return eParola(x.parola); });
        if (e != std::end(entita))
            (this->*e->leggi)();
        else if (linea == "EOF")
            EndFile = 1;
    }
    NessunaSelezione();
    ElementiContati entrati;
    entrati.contaRecord(primo);
    resoconto.mostra(entrati, uscita || pieno || lunga.fermata() ? contate : 0, lunga.fermata());
}

void EntitaCXF() {
    const std::int16_t lucido = VisioneGraf.lucidoCorrente;
    TLeggiEntitaCXF().Leggi();
    suLucido(lucido);
}

void LeggiCXF() { EntitaCXF(); }

}   // namespace tessaro
