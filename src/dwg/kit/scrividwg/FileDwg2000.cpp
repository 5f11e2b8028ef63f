// The file of formats R14 and 2000: a list of sections at the front, each at its place, and a second header that says
// the same at the end.
#include <array>

#include "dwg/kit/scrividwg/FileDwg.h"

namespace tessaro {

namespace {

using Segno = std::array<unsigned char, 16>;
constexpr Segno segnoInizio{0x95, 0xA0, 0x4E, 0x28, 0x99, 0x82, 0x1A, 0xE5,
                            0x5E, 0x41, 0xE0, 0x5F, 0x9D, 0x3A, 0x4D, 0x00};
constexpr Segno segnoAnteprima{0x1F, 0x25, 0x6D, 0x07, 0xD4, 0x36, 0x28, 0x28,
                               0x9D, 0x57, 0xCA, 0x3F, 0x9D, 0x44, 0x10, 0x2B};
constexpr Segno segnoSecondo{0xD4, 0x7B, 0x21, 0xCE, 0x28, 0x93, 0x9F, 0xBF,
                             0x53, 0x24, 0x40, 0x09, 0x12, 0x3C, 0xAA, 0x01};

constexpr unsigned paginaCodici = 30;   // the format's number of code page 1252

void metti(std::string& s, const Segno& segno) { s.append(reinterpret_cast<const char*>(segno.data()), segno.size()); }
// The end of a section has the complement of its beginning.
void mettiFine(std::string& s, const Segno& segno) {
    for (const unsigned char c : segno) s.push_back(static_cast<char>(~c));
}

struct Sezione {
    std::uint32_t dove = 0, quanti = 0;
};

// A section with marks, its length and its check.
Sezione incornicia(std::string& s, const Segno& segno, const std::string& dati) {
    Sezione z{static_cast<std::uint32_t>(s.size()), 0};
    metti(s, segno);
    std::string corpo;
    aggiungiRL(corpo, static_cast<std::uint32_t>(dati.size()));
    corpo += dati;
    aggiungiRS(corpo, CrcDwg(corpo, semeCrc));
    s += corpo;
    mettiFine(s, segno);
    z.quanti = static_cast<std::uint32_t>(s.size()) - z.dove;
    return z;
}

void momento(std::string& s, const OdTimeStamp& t) {
    aggiungiRL(s, static_cast<std::uint32_t>(t.giorno));
    aggiungiRL(s, static_cast<std::uint32_t>(t.millisecondi));
}

std::string secondaIntestazione(const StesuraDwg& st, std::string_view sigla, unsigned versione, std::uint32_t dove,
                                const std::vector<Sezione>& sezioni) {
    const OdDbDatabase& db = st.db;
    BitDwg d;
    d.RL(0);   // the length, put in below
    d.BL(static_cast<std::int32_t>(dove));
    d.byte(sigla);
    for (int i = 0; i < 5; ++i) d.RC(0);
    d.RC(6);
    d.RC(1);
    d.BS(static_cast<std::int32_t>(versione));
    d.RS(paginaCodici);
    d.BS(static_cast<std::int32_t>(sezioni.size()));
    for (std::size_t i = 0; i < sezioni.size(); ++i) {
        d.RC(static_cast<unsigned>(i));
        d.BL(static_cast<std::int32_t>(sezioni[i].dove));
        d.BL(static_cast<std::int32_t>(sezioni[i].quanti));
    }
    const std::array<OdDbHandle, 14> noti{db.handseed,
                                          db.blocks.handle,
                                          db.layers.handle,
                                          db.textStyles.handle,
                                          db.linetypes.handle,
                                          db.handleViews,
                                          db.handleUcs,
                                          db.handleVport,
                                          db.regApps.handle,
                                          db.handleDimStyles,
                                          db.handleVpEntHdr,
                                          db.dizionari.empty() ? 0 : db.dizionari.front().handle,
                                          db.handleMlineStyleStandard,
                                          st.dizionario("ACAD_GROUP")};
    d.BS(static_cast<std::int32_t>(noti.size()));
    for (std::size_t i = 0; i < noti.size(); ++i) {
        unsigned lunghezza = 0;
        for (OdDbHandle resto = noti[i]; resto != 0; resto >>= 8) ++lunghezza;
        d.RC(lunghezza);
        d.RC(static_cast<unsigned>(i));
        for (unsigned k = lunghezza; k > 0; --k) d.RC(static_cast<unsigned>(noti[i] >> (8 * (k - 1))) & 0xFF);
    }
    d.allinea();
    d.poniRL(0, static_cast<std::uint32_t>(d.dati().size() + 2 + 8));
    std::string s(d.dati().begin(), d.dati().end());
    aggiungiRS(s, CrcDwg(s, semeCrc));
    s.append(8, '\0');
    return s;
}

}   // namespace

std::string AusiliariaDwg(const StesuraDwg& st, unsigned versione) {
    constexpr unsigned rilascio = 6;
    std::string s;
    s += "\xFF\x77\x01";
    aggiungiRS(s, versione);
    aggiungiRS(s, rilascio);
    aggiungiRL(s, 1);   // saves
    aggiungiRL(s, 0xFFFFFFFF);
    aggiungiRS(s, 1);
    aggiungiRS(s, 0);
    aggiungiRL(s, 0);
    for (int i = 0; i < 2; ++i) {
        aggiungiRS(s, versione);
        aggiungiRS(s, rilascio);
    }
    for (const unsigned v : {5U, 0x893U, 5U, 0x893U, 0U, 1U, 0U, 0U, 0U, 0U}) aggiungiRS(s, v);
    for (int i = 0; i < 3; ++i) aggiungiRL(s, 0);
    momento(s, st.db.header.tdCreate);
    momento(s, st.db.header.tdUpdate);
    aggiungiRL(s, static_cast<std::uint32_t>(st.db.handseed));
    aggiungiRL(s, 0);
    aggiungiRS(s, 0);
    aggiungiRS(s, 1);
    for (int i = 0; i < 3; ++i) aggiungiRL(s, 0);
    aggiungiRL(s, 1);
    for (int i = 0; i < 4; ++i) aggiungiRL(s, 0);
    return s;
}

std::string SpazioLiberoDwg(const StesuraDwg& st, std::uint32_t inizioOggetti) {
    std::string s;
    aggiungiRL(s, 0);
    aggiungiRL(s, static_cast<std::uint32_t>(st.mappa.size()));
    momento(s, st.db.header.tdUpdate);
    aggiungiRL(s, inizioOggetti);
    s.push_back(4);
    for (const std::uint32_t v : {0x32U, 0x64U, 0x200U, 0xFFFFFFFFU}) {
        aggiungiRL(s, v);
        aggiungiRL(s, 0);
    }
    return s;
}

std::string MappaDwg(const StesuraDwg& st, std::int64_t inizio) {
    constexpr std::size_t pieno = 2032;
    std::vector<std::pair<OdDbHandle, std::uint32_t>> ordinata = st.mappa;
    std::sort(ordinata.begin(), ordinata.end());
    std::string s, pezzo;
    const auto chiudi = [&] {
        const std::size_t n = pezzo.size() + 2;
        std::string t{static_cast<char>(n >> 8), static_cast<char>(n & 0xFF)};   // alone in this part: high byte first
        t += pezzo;
        const std::uint16_t crc = CrcDwg(t, semeCrc);
        t.push_back(static_cast<char>(crc >> 8));
        t.push_back(static_cast<char>(crc & 0xFF));
        s += t;
        pezzo.clear();
    };
    OdDbHandle handle = 0;
    std::int64_t posto = 0;
    for (const auto& [h, dove] : ordinata) {
        std::string coppia;
        const std::int64_t qui = inizio + dove;
        aggiungiUMC(coppia, h - handle);
        aggiungiMC(coppia, qui - posto);
        if (pezzo.size() + coppia.size() + 2 > pieno) {
            chiudi();
            coppia.clear();   // each part counts from the beginning
            aggiungiUMC(coppia, h);
            aggiungiMC(coppia, qui);
        }
        pezzo += coppia;
        handle = h;
        posto = qui;
    }
    if (!pezzo.empty()) chiudi();
    chiudi();   // an empty part ends the map
    return s;
}

namespace {

// The sections in the order of their numbers in the list at the front.
enum : std::size_t { sVariabili, sClassi, sMappa, sLibero, sModello, sAusiliaria };

// The file in the making: its front is put in last, when all places are known.
struct File2000 {
    std::string s;
    std::vector<Sezione> sezioni;
    std::uint32_t anteprima = 0;

    template <class F>
    void sezione(std::size_t quale, F scrivi) {
        sezioni[quale].dove = static_cast<std::uint32_t>(s.size());
        scrivi();
        sezioni[quale].quanti = static_cast<std::uint32_t>(s.size()) - sezioni[quale].dove;
    }
};

// The last section stands behind the second header, whose length its own sections decide: two rounds find it.
void mettiSeconda(File2000& f, const StesuraDwg& st, std::string_view sigla, unsigned versione) {
    constexpr std::uint32_t lungoSegno = 16;
    f.sezioni[sModello].quanti = 4;
    const auto dove = static_cast<std::uint32_t>(f.s.size());
    std::string seconda;
    for (int i = 0; i < 3; ++i) {
        seconda = secondaIntestazione(st, sigla, versione, dove, f.sezioni);
        f.sezioni[sModello].dove = dove + lungoSegno + static_cast<std::uint32_t>(seconda.size()) + lungoSegno;
    }
    metti(f.s, segnoSecondo);
    f.s += seconda;
    mettiFine(f.s, segnoSecondo);
    aggiungiRS(f.s, 0);   // no template
    aggiungiRS(f.s, static_cast<unsigned>(st.db.header.measurement));
}

std::string inizio(const File2000& f, std::string_view sigla, unsigned versione) {
    std::string testa(sigla);
    testa.append(5, '\0');
    testa.push_back(6);
    testa.push_back(1);
    aggiungiRL(testa, f.anteprima);
    testa.push_back(static_cast<char>(versione));
    testa.push_back(6);
    aggiungiRS(testa, paginaCodici);
    aggiungiRL(testa, static_cast<std::uint32_t>(f.sezioni.size()));
    for (std::size_t i = 0; i < f.sezioni.size(); ++i) {
        testa.push_back(static_cast<char>(i));
        aggiungiRL(testa, f.sezioni[i].dove);
        aggiungiRL(testa, f.sezioni[i].quanti);
    }
    // The check of the list is turned by a number of its own for each count of sections.
    const std::uint16_t giro = f.sezioni.size() == 5 ? 0x3CC4 : 0x8461;
    aggiungiRS(testa, CrcDwg(testa, 0) ^ giro);
    metti(testa, segnoInizio);
    return testa;
}

}   // namespace

OdError FileDwg2000(const StesuraDwg& st, std::string_view sigla, OdWrFileBuf& file) {
    const bool del14 = st.formato == FormatoDwg::r14;
    const unsigned versione = del14 ? 0x15 : 0x17;   // as the format numbers its versions
    File2000 f;
    f.sezioni.resize(del14 ? sAusiliaria : sAusiliaria + 1);
    f.s.assign(inizio(f, sigla, versione).size(), '\0');
    if (!del14) f.sezione(sAusiliaria, [&] { f.s += AusiliariaDwg(st, versione); });
    f.anteprima = static_cast<std::uint32_t>(f.s.size());
    metti(f.s, segnoAnteprima);
    aggiungiRL(f.s, 1);
    f.s.push_back(0);   // no picture
    mettiFine(f.s, segnoAnteprima);
    f.sezioni[sVariabili] = incornicia(f.s, segnoVariabili, VariabiliDwg(st));
    f.sezioni[sClassi] = incornicia(f.s, segnoClassi, ClassiDwg(st));
    f.s.append(4, '\0');   // between classes and objects, no object's
    const auto inizioOggetti = static_cast<std::uint32_t>(f.s.size());
    if (f.s.size() + st.oggetti.size() > 0x7FFFFFFF) return {eFileWriteError, 0, {}};
    f.s += st.oggetti;
    f.sezione(sMappa, [&] { f.s += MappaDwg(st, inizioOggetti); });
    f.sezione(sLibero, [&] { f.s += SpazioLiberoDwg(st, inizioOggetti); });
    mettiSeconda(f, st, sigla, versione);
    const std::string testa = inizio(f, sigla, versione);
    f.s.replace(0, testa.size(), testa);
    file.put(f.s);
    return {};
}

}   // namespace tessaro
