// A drawing of a million entities from a DXF file into records and back. Reading is measured against a loop that only
// walks the same bytes in memory, and against dxflib with empty callbacks where it is installed; writing against one
// write of the same bytes. Best of several turns each; the turns alternate.
#include <array>
#include <charconv>
#include <random>

#ifdef CON_DXFLIB
#include <dl_creationadapter.h>
#include <dl_dxf.h>
#endif

#include "dwg/Confronto.h"
#include "dwg/DbDumper.h"
#include "dwg/dwgdxf.h"
#include "exchange/DXF.h"
#include "exchange/ScriviDXF.h"
#include "Misure.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"

namespace {

using namespace misure;

constexpr int quante = 1'000'000;
constexpr std::int32_t postiRecord = 3'000'000;
constexpr int volte = 7, voltePari = 2;

// A town's sheet in a national grid: coordinates to the millimetre, as other programs write them.
class FileDxf {
    std::string s, a;   // a: end of a line
    std::mt19937 caso{20260101};
    static constexpr std::array<std::string_view, 5> layer{"0", "STRADE", "CONFINI", "FABBRICATI", "ACQUE"};

    void due(std::string_view codice, std::string_view valore) {
        s += codice;
        s += a;
        s += valore;
        s += a;
    }
    void numero(std::string_view codice, double v, int decimali) {
        char testo[40];
        const auto r = std::to_chars(testo, testo + sizeof testo, v, std::chars_format::fixed, decimali);
        due(codice, {testo, static_cast<std::size_t>(r.ptr - testo)});
    }
    double fra(double da, double fino) { return std::uniform_real_distribution<double>(da, fino)(caso); }
    void punto(char indice, double x, double y) {
        const auto codice = [indice](char asse) { return std::string{' ', asse, indice}; };
        numero(codice('1'), x, 3);
        numero(codice('2'), y, 3);
        due(codice('3'), "0.0");
    }
    void testa(std::string_view nome) {
        due("  0", nome);
        due("  8", layer[caso() % layer.size()]);
    }
    void tabellaLayer() {
        due("  0", "SECTION");
        due("  2", "TABLES");
        due("  0", "TABLE");
        due("  2", "LAYER");
        due(" 70", "     5");
        for (const std::string_view nome : layer) {
            due("  0", "LAYER");
            due("  2", nome);
            due(" 70", "     0");
            due(" 62", "     5");
            due("  6", "CONTINUOUS");
        }
        due("  0", "ENDTAB");
        due("  0", "ENDSEC");
    }

    void entita(int n) {
        const double x = fra(1'684'000, 1'694'000), y = fra(4'990'000, 4'998'000);
        if (n < 5) {
            testa("LINE");
            due(" 62", "     3");
            punto('0', x, y);
            punto('1', x + fra(-50, 50), y + fra(-50, 50));
        } else if (n < 8) {
            testa("POLYLINE");
            due(" 66", "     1");
            due(" 70", "     0");
            const int vertici = 2 + static_cast<int>(caso() % 6);
            for (int i = 0; i < vertici; ++i) {
                testa("VERTEX");
                punto('0', x + fra(-50, 50), y + fra(-50, 50));
            }
            due("  0", "SEQEND");
        } else if (n == 8) {
            const bool arco = caso() % 2 != 0;
            testa(arco ? "ARC" : "CIRCLE");
            punto('0', x, y);
            numero(" 40", fra(0.5, 20), 4);
            if (arco) {
                numero(" 50", fra(0, 360), 6);
                numero(" 51", fra(0, 360), 6);
            }
        } else {
            testa("TEXT");
            punto('0', x, y);
            due(" 40", "2.5");
            due("  1", "p. " + std::to_string(caso() % 10000));
            numero(" 50", fra(0, 360), 4);
        }
    }

public:
    explicit FileDxf(std::string_view fineRiga) : a(fineRiga) {
        tabellaLayer();
        due("  0", "SECTION");
        due("  2", "ENTITIES");
        for (int i = 0; i < quante; ++i) entita(i % 10);
        due("  0", "ENDSEC");
        due("  0", "EOF");
    }
    [[nodiscard]] const std::string& byte() const { return s; }
};

// The store stays: its memory is taken once, as in the program.
void leggi(const std::string& file) {
    AzzeraArchivio();
    uscita = 0;
    apri(file);
    LeggiDXF();
    FSClose(RefNum);
    if (uscita != 0 || indElem < quante) fallito("the reading");
}

void scrivi(const std::string& file) {
    scriviFile(file, [] {
        ScritturaDXF s;
        ScriviHeader(s);
        ControllaLucidi();
        ScriviTableLTypeDXF(s);
        ScriviTableLayerDXF(s);
        ScriviTableStyleDXF(s);
        ScriviEntitiesDXF(s);
        s.b.righe2("  0", "EOF");
    });
}

void leggiComePari([[maybe_unused]] const std::string& file) {
#ifdef CON_DXFLIB
    DL_CreationAdapter nulla;
    if (!DL_Dxf().in(file, &nulla)) fallito("dxflib");
#endif
}

// The same through the drawing database: read, walked, stored.
void leggiNelDatabase(const std::string& file) {
    AzzeraArchivio();
    ImportaDWGFile(FSMakeFSSpec(file));
    if (indElem < quante) fallito("the import");
}

// A hundred thousand of them out as the newest DXF, and read back as every export is.
void database() {
    constexpr int centomila = 100'000;
    AzzeraArchivio();
    for (int i = 0; i < centomila; ++i) Memorizza(tSegmento, i, i % 977, 1, i % 31, i, 2, 1, 1, 1, "");
    const FileBreve file("tessaro-bench-kit.dxf");
    std::vector<double> nostri, nudi;
    for (int i = 0; i < volte; ++i) {
        nostri.push_back(millisecondi([&] {
            Scritti conto;
            const auto db = CreaDatabaseDisegno(conto);
            OdWrFileBuf buffer;
            MyServices svcs;
            if (writeFile(*db, buffer, OdDbSaveType::kDxf, 29, svcs).codice != eOk) fallito("the export");
            file.riempi({buffer.byte.data(), buffer.byte.size()});
            OdDbDatabase riletto = createDatabase(false, 0);
            if (readFile(riletto, FSMakeFSSpec(file.percorso), svcs).codice != eOk) fallito("the reading back");
            if (ConfrontaDatabase(*db, riletto, 29).quante != 0) fallito("the comparison");
        }));
        const std::string byte = contenuto(file.percorso);
        volatile std::uint64_t somma = 0;
        nudi.push_back(millisecondi([&] { somma = passeggia(byte); }));
    }
    riga("100,000 out and back", nostri, "byte walk", nudi, 90);
}

// The same hundred thousand as a DWG of each version, against the newest DXF; nothing reads these back.
void scritturaDwg() {
    Scritti conto;
    const auto db = CreaDatabaseDisegno(conto);
    const auto scritto = [&db](OdDbSaveType tipo, std::int16_t versione) {
        return millisecondi([&] {
            OdWrFileBuf buffer;
            MyServices svcs;
            if (writeFile(*db, buffer, tipo, versione, svcs).codice != eOk) fallito("the export");
        });
    };
    for (const OdDbDwgVersion& v : VersioniScrivibili()) {
        std::vector<double> dwg, dxf;
        for (int i = 0; i < voltePari; ++i) {
            dwg.push_back(scritto(OdDbSaveType::kDwg, v.numero));
            dxf.push_back(scritto(OdDbSaveType::kDxf, VersioniScrivibili().front().numero));
        }
        riga(("  as DWG, " + std::string(v.prodotto)).c_str(), dwg, "newest DXF", dxf, 20);
    }
}

void lettura(const char* che, std::string_view fineRiga, bool colPari) {
    const FileDxf dxf(fineRiga);
    const FileBreve file("tessaro-bench-in.dxf");
    file.riempi(dxf.byte());
    std::vector<double> nostri, nudi, pari, kit;
    volatile std::uint64_t somma = 0;
    for (int i = 0; i < volte; ++i) {
        nostri.push_back(millisecondi([&] { leggi(file.percorso); }));
        if (i < voltePari) kit.push_back(millisecondi([&] { leggiNelDatabase(file.percorso); }));
        nudi.push_back(millisecondi([&] { somma = passeggia(dxf.byte()); }));
        if (colPari && i < voltePari) pari.push_back(millisecondi([&] { leggiComePari(file.percorso); }));
    }
    std::printf("%d entities, %d records, %.0f MB\n", quante, indElem, static_cast<double>(dxf.byte().size()) / 1e6);
    riga(che, nostri, "byte walk", nudi, 5);
    riga("  by the database", kit, "this reader", nostri, 2.5);
    if (!pari.empty()) riga("  the peer", pari, "this reader", nostri, 12);   // at least as much slower
}

void scrittura() {
    const FileBreve nostro("tessaro-bench-out.dxf"), grezzo("tessaro-bench-out.raw");
    scrivi(nostro.percorso);
    const std::string byte = contenuto(nostro.percorso);
    std::vector<double> nostri, nudi;
    for (int i = 0; i < volte; ++i) {
        nostri.push_back(millisecondi([&] { scrivi(nostro.percorso); }));
        nudi.push_back(millisecondi([&] { scriviInUnColpo(grezzo.percorso, byte); }));
    }
    std::printf("%.0f MB\n", static_cast<double>(byte.size()) / 1e6);
    riga("DXF written", nostri, "plain write", nudi, 8);
}

}   // namespace

int main() {
    AzzeraStato();
    noWindow = 0;
    rappvid = 1;
    if (!AllocaElementi(postiRecord)) fallito("the store");
#ifdef CON_DXFLIB
    constexpr bool colPari = true;
#else
    constexpr bool colPari = false;
    std::puts("dxflib is not installed: no peer");
#endif
    lettura("DXF read, CR LF", "\r\n", colPari);
    lettura("DXF read, LF", "\n", false);
    scrittura();
    database();
    scritturaDwg();
    return 0;
}
