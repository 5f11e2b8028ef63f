// Point lists that are tables: what their lines tell of themselves, and what comes in.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "exchange/FormatoXYZ.h"
#include "exchange/ImportaElenco.h"
#include "model/Archivio.h"
#include "model/Unita.h"
#include "platform/Resources.h"
#include "support/Avvisi.h"
#include "support/FileProva.h"
#include "support/Foglio.h"

using namespace tessaro;
using namespace prova;

namespace {

std::vector<std::string> righeDi(std::string_view testo) {
    std::vector<std::string> righe;
    while (!testo.empty()) {
        const auto fine = std::min(testo.find_first_of("\r\n"), testo.size());
        if (fine > 0) righe.emplace_back(testo.substr(0, fine));
        testo.remove_prefix(std::min(fine + 1, testo.size()));
    }
    return righe;
}

// "; , head nxyz": separator, decimal sign, head, columns.
std::string inParole(const std::optional<FormaElenco>& f) {
    if (!f) return "none";
    std::string s(1, "t;,_"[static_cast<std::size_t>(f->separa)]);
    s += f->virgolaDecimale ? " , " : " . ";
    if (f->conTesta) s += "head ";
    for (std::size_t c = 0; c < std::min<std::size_t>(f->quante, maxColonneElenco); ++c)
        s += "-nxyzc"[static_cast<std::size_t>(f->colonne[c])];
    return s;
}

std::string indovina(std::string_view testo) { return inParole(IndovinaElenco(righeDi(testo))); }

std::string aref(std::int32_t n) {
    const Aref a = Elem(n).testa.aref;
    return MacToUtf8({reinterpret_cast<const char*>(a.data()) + 1, a[0]});
}

FormaElenco formaDi(std::string_view testo) { return IndovinaElenco(righeDi(testo)).value_or(FormaElenco{}); }

void leggi(std::string_view testo, const FormaElenco& forma) {
    fogliovuoto();
    rappvid = 1;
    YFDecimi = 1000;
    const FileProva file(testo);
    LeggiElenco(forma);
}

}   // namespace

TEST(Elenco, TheLinesTellWhatPartsThemAndWhatTheyHold) {
    const struct {
        const char *testo, *atteso;
    } casi[] = {
        {"1\t2.5\t3.5\n4\t5.5\t6.5\n", "t . xyz"},
        {"P1\t2.5\t3.5\t7.25\tpalo\nP2\t5.5\t6.5\t7.5\tpozzo\n", "t . nxyzc"},
        {"1;2,5;3,5\n2;4,5;6,5\n3;4,5;7,5\n", "; , nxy"},
        {"1,2.5,3.5,9.1\n2,4.5,6.5,9.2\n3,4.5,6.5,9.3\n", ", . nxyz"},
        {"12,5 7,25 1,5\n13,5 8,25 1,75\n", "_ , xyz"},
        {"12.5   7.25\n 13.5  8.25\n", "_ . xy"},
        // heads: by their words, whatever their order
        {"Nord;Est;Quota\n12,5;7,5;1,5\n13,5;8,5;1,5\n", "; , head yxz"},
        {"N,E,Z\n1.5,2.5,3\n4.5,5.5,6\n", ", . head yxz"},
        {"N,EST,NORD,QUOTA\n1,1.5,2.5,3\n2,4.5,5.5,6\n", ", . head nxyz"},
        {"\"id\",\"x\",\"y\",\"note\"\n7,1.5,2.5,\"by the wall, left\"\n9,3.5,4.5,tree\n", ", . head nxyc"},
        {"a\tb\tc\n1\t1.5\t2.5\n2\t1.5\t2.5\n", "t . head nxy"},
        // remarks, blank lines and a bad row do not change it
        {"# remark\n\n1 1.5 2.5\n2 1.5 3.5\nbad\n3 2.5 3.5\n", "_ . nxy"},
        {"12\n13\n14\n", "none"},
        {"one two\nthree four\n", "none"},
        {"", "none"},
    };
    for (const auto& c : casi) EXPECT_EQ(indovina(c.testo), c.atteso) << c.testo;
}

TEST(Elenco, RealListsAreGuessedAndRead) {
    const char* dati = std::getenv("TESSARO_DATA");
    if (!dati) GTEST_SKIP() << "TESSARO_DATA is not set";
    const struct {
        const char *nome, *atteso;
    } casi[] = {
        {"bad_mixed.xyz", "_ . xyz"},
        {"confine_comma_num_crlf.csv", ", . head nxyz"},
        {"confine_semicolon_decimalcomma.csv", "; , nxyz"},
        {"confine_space.xyz", "_ . xyz"},
        {"confine_tab_code_cr.txt", "t . nxyzc"},
    };
    for (const auto& c : casi) {
        std::ifstream f(std::filesystem::path(dati) / "xyz" / c.nome, std::ios::binary);
        const std::string testo{std::istreambuf_iterator<char>(f), {}};
        ASSERT_FALSE(testo.empty()) << c.nome;
        EXPECT_EQ(indovina(testo), c.atteso) << c.nome;
        leggi(testo, formaDi(testo));
        ASSERT_GT(indElem, 200) << c.nome;
        EXPECT_NEAR(Elem(3).mark.x, 280119.738, 1e-6) << c.nome;
        EXPECT_NEAR(1000 - Elem(3).mark.y, 4637437.767, 1e-6) << c.nome;
        EXPECT_NEAR(Elem(3).mark.z, 30.63, 1e-9) << c.nome;
    }
}

TEST(Elenco, RowsBecomeMarkersWithNumberAndCode) {
    const std::string testo =
        "n;x;y;z;cod\nP1;1,5;2,5;;palo\nP2;3,5;4,5;7;un codice lunghissimo\nP3;no;1;1;a\nP4;1;2\n";
    FormaElenco f;   // more of it is damaged than can be guessed
    f.separa = SeparaElenco::puntoEVirgola;
    f.virgolaDecimale = f.conTesta = true;
    f.quante = 5;
    f.colonne = {ColonnaElenco::numero, ColonnaElenco::x, ColonnaElenco::y, ColonnaElenco::z, ColonnaElenco::codice};
    leggi(testo, f);
    ASSERT_EQ(indElem, 4);
    EXPECT_EQ(aref(3), "P1 palo");
    EXPECT_EQ(Elem(3).mark.z, 0.0);   // an empty elevation is none
    EXPECT_EQ(aref(4), "P2 un codice ");
    EXPECT_EQ(avvisi.back().testo,
              "Imported: 2 markers.\nLeft out: 2 rows that cannot be read.\nChanged: 1 tag cut at 13 characters.");
}

TEST(Elenco, AFormThatNamesNoPointIsRefused) {
    FormaElenco f;
    EXPECT_FALSE(FormaUsabile(f));
    f.colonne = {ColonnaElenco::x, ColonnaElenco::y};
    EXPECT_TRUE(FormaUsabile(f));
    f.separa = SeparaElenco::virgola;
    f.virgolaDecimale = true;
    EXPECT_FALSE(FormaUsabile(f));
    f.virgolaDecimale = false;
    f.colonne[2] = ColonnaElenco::x;
    EXPECT_FALSE(FormaUsabile(f));
}

TEST(Elenco, TheLastFormStandsBehindTheLayoutInItsSettingsFile) {
    ultimoElenco.forma = formaDi("id;x;y;z\n1;2,5;3,5;4,5\n2;2,5;3,5;4,5\n");
    const ScelteElenco voluto = ultimoElenco;
    TFormatoXYZ formato;
    formato.scrivipar();
    ultimoElenco = {};
    formato.leggipar();
    EXPECT_EQ(inParole(ultimoElenco.forma), inParole(voluto.forma));
    EXPECT_EQ(inParole(ultimoElenco.forma), "; , head nxyz");
    ultimoElenco.forma.colonne[1] = static_cast<ColonnaElenco>(77);   // what no version writes
    formato.scrivipar();
    ultimoElenco = {};
    formato.leggipar();
    EXPECT_EQ(ultimoElenco.forma, FormaElenco{});
    std::filesystem::remove(SettingsFolder() + "/FormParD");
}
