// How the parts of an R12 file lie: header, entities, ten tables, an empty part each for entities of blocks and for
// further ones, and a second header. Every part stands between two marks of 16 bytes, the second the first's complement.
#include "dwg/kit/scrividwg/FileDwg12.h"

#include <cstring>

#include "dwg/kit/scrividwg/OggettoDwg.h"

namespace tessaro {

namespace {

using Segno = std::array<unsigned char, 16>;
constexpr Segno segnoEntita{0xC4, 0x6E, 0x68, 0x54, 0xF8, 0x6E, 0x33, 0x30,
                            0x63, 0x3E, 0xC1, 0x85, 0x2A, 0xDC, 0x94, 0x01};
constexpr std::array<Segno, nTavole12> segniTavole{{
    {0xDB, 0xEF, 0xB3, 0xF0, 0xC7, 0x3E, 0x6D, 0xA6, 0xC9, 0xB6, 0x24, 0x5C, 0x4C, 0x6F, 0x32, 0xCB},
    {0x0E, 0xC4, 0x64, 0x6F, 0xBB, 0x1D, 0xD3, 0x8B, 0x00, 0x49, 0xC2, 0xEF, 0x18, 0xEA, 0x6F, 0xFB},
    {0xE2, 0x3E, 0xC1, 0x82, 0x43, 0x9F, 0x61, 0x77, 0x50, 0xAB, 0xC7, 0x66, 0x96, 0x00, 0x06, 0x18},
    {0xAC, 0x90, 0x1A, 0xCA, 0x1C, 0xBD, 0x95, 0x15, 0x16, 0x16, 0x4C, 0x14, 0xCE, 0x18, 0x88, 0xAF},
    {0xC1, 0x3C, 0xAA, 0x56, 0x68, 0xF4, 0xB4, 0x1E, 0x4B, 0x74, 0xF4, 0x08, 0x42, 0x4D, 0xBF, 0xA5},
    {0x60, 0x4A, 0xFA, 0x3D, 0x84, 0x90, 0xCC, 0x5B, 0xEF, 0xE7, 0xD6, 0xA5, 0x7F, 0x1E, 0x61, 0xCD},
    {0xF6, 0xED, 0x44, 0x61, 0x2A, 0xDC, 0xE4, 0x7B, 0x4E, 0xB9, 0x2B, 0xBB, 0x66, 0x60, 0x63, 0x8D},
    {0xE1, 0x25, 0xC2, 0x50, 0x36, 0x68, 0x6C, 0x0C, 0x3B, 0xD3, 0x5D, 0x56, 0xC1, 0x79, 0x1C, 0x3A},
    {0xB4, 0x18, 0x3E, 0x42, 0xC9, 0x9F, 0xFF, 0xE5, 0xB6, 0xE2, 0xCB, 0xB3, 0x75, 0xC3, 0xC3, 0xB0},
    {0xE0, 0xCA, 0x36, 0x7C, 0xCE, 0xE7, 0x58, 0x6F, 0x2B, 0x7D, 0x74, 0x55, 0x05, 0xF1, 0x44, 0x7F},
}};
constexpr Segno segnoNeiBlocchi{0x72, 0x2B, 0x7D, 0xEC, 0x3E, 0x8C, 0x88, 0x6C,
                                0x7A, 0x72, 0x0A, 0xFD, 0xC8, 0x6C, 0x84, 0x26};
constexpr Segno segnoAltre{0xD5, 0xF9, 0xD3, 0xBB, 0x0A, 0xA9, 0x69, 0xA6,
                           0xCD, 0x1C, 0x87, 0xC7, 0xEE, 0x80, 0x4B, 0x17};
constexpr Segno segnoSeconda{0x29, 0x8D, 0xD1, 0x49, 0xA9, 0x73, 0x1F, 0xEA,
                             0x99, 0xDE, 0x32, 0xF9, 0x4D, 0x0A, 0xE0, 0x19};

// Lengths of the two parts that are empty here carry a bit that says which they are.
constexpr std::uint32_t neiBlocchiVuota = 0x40000000, altreVuota = 0x80000000;

void metti(std::string& s, const Segno& segno) { s.append(reinterpret_cast<const char*>(segno.data()), segno.size()); }
void mettiFine(std::string& s, const Segno& segno) {
    for (const unsigned char c : segno) s.push_back(static_cast<char>(~c));
}

struct Luoghi {
    std::uint32_t fineEntita, neiBlocchi, altre;
};

// What the header tells, said once more, so that a cut or patched file is found out.
std::string secondaIntestazione(const Luoghi& l, const TavoleDwg12& tavole, std::uint32_t qui) {
    constexpr std::array<int, nTavole12> numeri{1, 2, 3, 5, 6, 7, 8, 9, 10, 11};   // none has the number 4
    constexpr int variabili = 16, byteInTutto = 138;
    ByteDwg12 b;
    b.RS(variabili);
    b.RS(byteInTutto);
    for (const std::uint32_t v : {inizioEntita12, l.fineEntita, l.neiBlocchi, l.altre}) b.RL(v);
    b.RS(0);   // entities have no handles
    b.RL(0);
    b.RL(0);
    b.RS(nTavole12);
    for (std::size_t i = 0; i < tavole.size(); ++i) {
        b.RS(numeri[i]);
        b.RS(tavole[i].lunghezza);
        b.RS(tavole[i].record);
        b.RL(tavole[i].dove);
    }
    b.RL(qui);
    b.controllo(0);
    return b.s;
}

std::string intestazione(const OdDbDatabase& db, std::string_view sigla, const Luoghi& l, const TavoleDwg12& tavole) {
    constexpr int parti = 3, tavoleInTesta = 5, variabili = 205;
    ByteDwg12 b;
    b.s = sigla;
    b.s.append(6, '\0');
    b.RC(1);
    b.RS(parti);
    b.RS(tavoleInTesta);
    b.RS(variabili);
    b.RC(0);
    for (const std::uint32_t v : {inizioEntita12, l.fineEntita, l.neiBlocchi, neiBlocchiVuota, l.altre, altreVuota})
        b.RL(v);
    for (std::size_t i = 0; i < tavoleInTesta; ++i) rigaTavola12(b, tavole[i]);
    b.s += VariabiliDwg12(db, tavole);
    b.controllo(0);
    return b.s;
}

}   // namespace

void ByteDwg12::RD(double v) {
    std::uint64_t n = 0;
    std::memcpy(&n, &v, sizeof n);
    RL(static_cast<std::uint32_t>(n));
    RL(static_cast<std::uint32_t>(n >> 32));
}
void ByteDwg12::RD2(double x, double y) {
    RD(x);
    RD(y);
}
void ByteDwg12::RD3(const OdGePoint3d& p) {
    RD2(p.x, p.y);
    RD(p.z);
}
void ByteDwg12::testo(std::string_view utf8, std::size_t posti) {
    std::string t = TestoDwg(utf8).substr(0, posti - 1);
    t.resize(posti, '\0');
    s += t;
}

void rigaTavola12(ByteDwg12& b, const TavolaDwg12& t) {
    b.RS(t.lunghezza);
    b.RS(t.record);
    b.RS(0);
    b.RL(t.dove);
}

OdError ScriviDwg12(const OdDbDatabase& db, const OdDbDwgVersion& versione, OdWrFileBuf& file,
                    OdDbHostAppProgressMeter& meter) {
    constexpr std::size_t massimo = 0x7FFFFFFF;
    meter.setLimit(static_cast<std::int32_t>(db.spazioModello().entita.size()));
    std::string corpo;
    metti(corpo, segnoEntita);
    const std::size_t primaDelCorpo = inizioEntita12 - corpo.size();
    if (!EntitaDwg12(db, corpo, meter)) return {eUserBreak, 0, {}};
    if (corpo.size() > massimo) return {eFileWriteError, 0, {}};
    const auto qui = [&] { return static_cast<std::uint32_t>(primaDelCorpo + corpo.size()); };
    Luoghi l{qui(), 0, 0};
    mettiFine(corpo, segnoEntita);
    TavoleDwg12 tavole{};
    const std::array<std::string, nTavole12> righe = TabelleDwg12(db, tavole);
    for (std::size_t i = 0; i < righe.size(); ++i) {
        metti(corpo, segniTavole[i]);
        tavole[i].dove = qui();
        corpo += righe[i];
        mettiFine(corpo, segniTavole[i]);
    }
    metti(corpo, segnoNeiBlocchi);
    l.neiBlocchi = qui();
    mettiFine(corpo, segnoNeiBlocchi);
    metti(corpo, segnoAltre);
    l.altre = qui();
    mettiFine(corpo, segnoAltre);
    const std::string seconda = secondaIntestazione(l, tavole, qui());
    metti(corpo, segnoSeconda);
    corpo += seconda;
    mettiFine(corpo, segnoSeconda);
    file.put(intestazione(db, versione.sigla, l, tavole));
    file.put(corpo);
    return {};
}

}   // namespace tessaro
