// The named parts that files from 2004 on are made of, before each generation packs them in its own way.
#include "dwg/kit/scrividwg/FileDwg.h"

namespace tessaro {

namespace {

std::string incorniciata(const std::array<unsigned char, 16>& segno, FormatoDwg formato, const std::string& dati) {
    std::string s(reinterpret_cast<const char*>(segno.data()), segno.size());
    std::string corpo;
    aggiungiRL(corpo, static_cast<std::uint32_t>(dati.size()));
    if (formato >= FormatoDwg::r2010) aggiungiRL(corpo, 0);   // the length's upper half, of releases above 3
    corpo += dati;
    aggiungiRS(corpo, CrcDwg(corpo, semeCrc));
    s += corpo;
    for (const unsigned char c : segno) s.push_back(static_cast<char>(~c));
    return s;
}

std::string riassunto(const StesuraDwg& st) {
    std::string s;
    for (int i = 0; i < 8; ++i) aggiungiRS(s, 0);   // title, subject, author and their like
    for (int i = 0; i < 2; ++i) aggiungiRL(s, 0);
    for (const OdTimeStamp& t : {st.db.header.tdCreate, st.db.header.tdUpdate}) {
        aggiungiRL(s, static_cast<std::uint32_t>(t.giorno));
        aggiungiRL(s, static_cast<std::uint32_t>(t.millisecondi));
    }
    aggiungiRS(s, 0);
    for (int i = 0; i < 2; ++i) aggiungiRL(s, 0);
    return s;
}

std::string anteprima() {
    constexpr std::array<unsigned char, 16> segno{0x1F, 0x25, 0x6D, 0x07, 0xD4, 0x36, 0x28, 0x28,
                                                  0x9D, 0x57, 0xCA, 0x3F, 0x9D, 0x44, 0x10, 0x2B};
    std::string s(reinterpret_cast<const char*>(segno.data()), segno.size());
    aggiungiRL(s, 1);
    s.push_back(0);
    for (const unsigned char c : segno) s.push_back(static_cast<char>(~c));
    return s;
}

}   // namespace

std::vector<ParteDwg> PartiDwg(const StesuraDwg& st, unsigned versione) {
    constexpr std::uint32_t inizioOggetti = 0x0DCA;   // what the objects' part begins with
    std::string oggetti;
    aggiungiRL(oggetti, inizioOggetti);
    const auto primo = static_cast<std::int64_t>(oggetti.size());
    oggetti += st.oggetti;
    std::string modello;
    aggiungiRS(modello, 0);
    aggiungiRS(modello, static_cast<unsigned>(st.db.header.measurement));
    std::vector<ParteDwg> parti;
    const auto parte = [&parti](const char* nome, std::string dati, bool intorno = false) {
        parti.push_back({nome, std::move(dati), intorno});
    };
    parte("AcDb:SummaryInfo", riassunto(st), true);
    parte("AcDb:Preview", anteprima(), true);
    parte("AcDb:FileDepList", std::string(8, '\0'), true);
    parte("AcDb:RevHistory", std::string(12, '\0'));
    parte("AcDb:AcDbObjects", std::move(oggetti));
    parte("AcDb:ObjFreeSpace", SpazioLiberoDwg(st, static_cast<std::uint32_t>(primo)));
    parte("AcDb:Template", std::move(modello));
    parte("AcDb:Handles", MappaDwg(st, primo));
    parte("AcDb:Classes", incorniciata(segnoClassi, st.formato, ClassiDwg(st)));
    parte("AcDb:AuxHeader", AusiliariaDwg(st, versione));
    parte("AcDb:Header", incorniciata(segnoVariabili, st.formato, VariabiliDwg(st)));
    return parti;
}

}   // namespace tessaro
