// An element record as a JSON object, by tables of field names and offsets.
#include <algorithm>
#include <cstring>
#include <span>

#include "model/Archivio.h"
#include "model/TabellaStato.h"
#include "script/Rapporti.h"

namespace tessaro {

namespace {

struct Campo {
    enum Tipo : std::uint8_t { byte, corto, lungo, reale, testo } tipo;
    const char* nome;
    std::size_t posto;          // in the record
    std::size_t capienza = 0;   // testo: most characters behind the length byte
};

// NOLINTBEGIN(bugprone-macro-parentheses): names of members, which take none
#define CAMPO(tipo, gruppo, nome)                                                                                      \
    Campo { Campo::tipo, #nome, offsetof(elemento, gruppo.nome) }
// NOLINTEND(bugprone-macro-parentheses)

constexpr Campo comuni[] = {{Campo::corto, "lucido", offsetof(elemento, lucido)},
                            {Campo::byte, "selezionato", offsetof(elemento, selezionato)}};
constexpr Campo testa[] = {CAMPO(corto, testa, linea),
                           {Campo::testo, "aref", offsetof(elemento, testa.aref), 13},
                           CAMPO(corto, testa, categoria),
                           CAMPO(corto, testa, insieme)};
constexpr Campo attacco1[] = {CAMPO(reale, att1, x1),   CAMPO(reale, att1, y1), CAMPO(reale, att1, z1),
                              CAMPO(reale, att1, x2),   CAMPO(reale, att1, y2), CAMPO(reale, att1, z2),
                              CAMPO(lungo, att1, conto)};
constexpr Campo attacco2[] = {CAMPO(reale, att, x1),        CAMPO(reale, att, y1),         CAMPO(reale, att, z1),
                              CAMPO(reale, att, x2),        CAMPO(reale, att, y2),         CAMPO(reale, att, z2),
                              CAMPO(byte, att, coordReali), CAMPO(byte, att, quattroPunti)};
constexpr Campo segmento[] = {CAMPO(reale, segm, x1),       CAMPO(reale, segm, y1),      CAMPO(reale, segm, z1),
                              CAMPO(reale, segm, x2),       CAMPO(reale, segm, y2),      CAMPO(reale, segm, z2),
                              CAMPO(corto, segm, spessore), CAMPO(corto, segm, pattern), CAMPO(corto, segm, colore)};
constexpr Campo marker[] = {CAMPO(reale, mark, x),     CAMPO(reale, mark, y),        CAMPO(reale, mark, z),
                            CAMPO(corto, mark, forma), CAMPO(corto, mark, spessore), CAMPO(corto, mark, pattern),
                            CAMPO(corto, mark, colore)};
constexpr Campo poligono[] = {
    CAMPO(reale, poli, x),          CAMPO(reale, poli, y),           CAMPO(reale, poli, z),
    CAMPO(reale, poli, passoTratt), CAMPO(reale, poli, angoloTratt), CAMPO(byte, poli, tratteggio),
    CAMPO(byte, poli, incrociato),  CAMPO(corto, poli, numVertici),  CAMPO(corto, poli, spessore),
    CAMPO(corto, poli, pattern),    CAMPO(corto, poli, colore),      CAMPO(corto, poli, patternArea)};
constexpr Campo vertice[] = {CAMPO(reale, vert, x), CAMPO(reale, vert, y), CAMPO(reale, vert, z),
                             CAMPO(lungo, vert, distanzaTesta)};
constexpr Campo scritta[] = {CAMPO(corto, test, larghezza),
                             CAMPO(corto, test, altezza),
                             CAMPO(reale, test, x),
                             CAMPO(reale, test, y),
                             {Campo::testo, "testo", offsetof(elemento, test.testo), 40},
                             CAMPO(byte, test, stile),
                             CAMPO(corto, test, font),
                             CAMPO(corto, test, dimensione),
                             CAMPO(corto, test, colore),
                             CAMPO(corto, test, angolo)};
constexpr Campo figura[] = {CAMPO(reale, pict, x), CAMPO(reale, pict, y), CAMPO(lungo, pict, maniglia),
                            CAMPO(reale, pict, larghezza), CAMPO(reale, pict, altezza)};
constexpr Campo cerchio[] = {CAMPO(reale, cerc, cx),         CAMPO(reale, cerc, cy),      CAMPO(reale, cerc, raggio),
                             CAMPO(corto, cerc, spessore),   CAMPO(corto, cerc, pattern), CAMPO(corto, cerc, colore),
                             CAMPO(corto, cerc, patternArea)};
constexpr Campo arco[] = {
    CAMPO(reale, arco, cx),           CAMPO(reale, arco, cy),       CAMPO(reale, arco, raggio),
    CAMPO(reale, arco, angoloInizio), CAMPO(reale, arco, ampiezza), CAMPO(corto, arco, spessore),
    CAMPO(corto, arco, pattern),      CAMPO(corto, arco, colore),   CAMPO(corto, arco, patternArea)};

#undef CAMPO

std::span<const Campo> campiDi(std::uint8_t tipo) {
    switch (tipo) {
    case tAttacco1: return attacco1;
    case tAttacco2: return attacco2;
    case tSegmento: return segmento;
    case tMarker: return marker;
    case tPoligono: return poligono;
    case tVertice: return vertice;
    case tTesto: return scritta;
    case tPict: return figura;
    case tCerchio: return cerchio;
    case tArco: return arco;
    default: return {};
    }
}

template <class T>
T leggi(const elemento& e, std::size_t posto) {
    T v;
    std::memcpy(&v, reinterpret_cast<const unsigned char*>(&e) + posto, sizeof v);
    return v;
}

std::string valore(const elemento& e, const Campo& c) {
    switch (c.tipo) {
    case Campo::byte: return std::to_string(leggi<std::uint8_t>(e, c.posto));
    case Campo::corto: return std::to_string(leggi<std::int16_t>(e, c.posto));
    case Campo::lungo: return std::to_string(leggi<std::int32_t>(e, c.posto));
    case Campo::reale: return NumeroJson(leggi<double>(e, c.posto));
    case Campo::testo: break;
    }
    const auto* byte = reinterpret_cast<const char*>(&e) + c.posto;
    const auto lunga = std::min<std::size_t>(static_cast<unsigned char>(*byte), c.capienza);
    return TestoJson(std::string(byte + 1, lunga));
}

void scrivi(std::string& out, const elemento& e, std::span<const Campo> campi) {
    for (const Campo& c : campi) out.append(",\"").append(c.nome).append("\":").append(valore(e, c));
}

}   // namespace

std::string RecordJson(std::int32_t n) {
    const elemento& e = Elem(n);
    std::string out = "{\"n\":" + std::to_string(n) + ",\"tipo\":" + std::to_string(e.tipo);
    scrivi(out, e, comuni);
    if (e.tipo != tTesto) scrivi(out, e, testa);
    scrivi(out, e, campiDi(e.tipo));
    if (e.tipo == tPict) out += ",\"bytes\":" + std::to_string(PictBytes(e.pict.maniglia).size());
    return out + "}";
}

}   // namespace tessaro
