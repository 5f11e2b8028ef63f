// Every long work, stopped by the person at its first steps, in the middle and at its last: the drawing is what it was, the
// file that was there stays and nothing lies beside it, nobody is told anything that is not so, and the next command works.
#include <algorithm>
#include <map>
#include <ostream>
#include <random>

#include "bitmap/PerRighe.h"
#include "digitising/PuntiApplica.h"
#include "display/Disegno.h"
#include "display/palette.h"
#include "display/Ridisegno.h"
#include "display/Strisce.h"
#include "dwg/DbDumper.h"
#include "dwg/dwgdxf.h"
#include "dwg/EsportaDWG.h"
#include "exchange/DXF.h"
#include "exchange/MiniCad.h"
#include "exchange/XYZ.h"
#include "files/Disco.h"
#include "files/Richieste.h"
#include "maps/Gdal.h"
#include "maps/Mappe.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Estensioni.h"
#include "model/Figura.h"
#include "model/Penna.h"
#include "model/Stato.h"
#include "model/Strumento.h"
#include "model/Vista.h"
#include "platform/Automation.h"
#include "platform/Dialogs.h"
#include "platform/Images.h"
#include "platform/paint/RasterPort.h"
#include "platform/Scrap.h"
#include "platform/Windows.h"
#include "raster/Banco.h"
#include "raster/Correzione.h"
#include "raster/CreaPict.h"
#include "raster/Immagini.h"
#include "raster/pictrot.h"
#include "raster/RettificaMesh.h"
#include "registration/MappaFoglio.h"
#include "registration/Solutori.h"
#include "registration/TabellaPunti.h"
#include "shell/Archivia.h"
#include "support/Avvisi.h"
#include "support/Carta.h"
#include "support/Invarianti.h"
#include "support/Passi.h"

using namespace tessaro;
using namespace prova;

namespace {

std::string fileScelto;   // what the next request for a file is answered with

Copione conFile() {
    Copione c{};
    c.passo = [] { return false; };
    c.avviso = [](std::int16_t id, std::string_view testo, std::int16_t predefinito) {
        avvisi.push_back({id, std::string(testo)});
        return predefinito;
    };
    c.dialogoAperto = [](std::int16_t, std::string_view) {};
    c.passoDialogo = [](DialogPtr) { return false; };
    c.dialogoChiuso = [](std::int16_t) {};
    c.file = [](bool, std::string& percorso) {
        percorso = fileScelto;
        return true;
    };
    c.popup = []() -> std::int16_t { return 0; };
    c.colore = [](std::uint16_t&, std::uint16_t&, std::uint16_t&) { return false; };
    c.stampa = [](std::string&, std::int32_t&, std::int32_t&) { return false; };
    c.carta = [](double&, double&) { return false; };
    c.beep = [](std::int32_t) { ++suoni; };
    return c;
}

// Records of every kind, enough of them that a scan asks more than once, and a picture large enough for several blocks.
constexpr std::int32_t primaPict = 3;

void disegnoPieno() {
    mettiPict(pixelAcaso(300, 1100, 7), 100, 100, 700, 1500);
    for (int i = 0; i < 17000; ++i) segmento(i % 200, i % 90, i % 170 + 10, i % 130);
    const std::int32_t testa = polilinea({{0, 0}, {2000, 0}, {2000, 2000}, {0, 2000}});
    Elem(testa).poli.numVertici = 3;
    Elem(testa).poli.tratteggio = 1;
    Elem(testa).poli.passoTratt = 0.01;
    testo(10, 10, "Via Roma");
}

void scegliPict() { seleziona(primaPict, oPict); }

void quattroPunti() {
    attaccoAttivo.tipo = 1;
    preparaAttacco({{{100, 1600}, {100, 100}, {800, 100}, {800, 1600}}},
                   {{{90, 1590}, {120, 110}, {790, 95}, {810, 1620}}});
    Elem(2).att.quattroPunti = 1;
    coeffRisoluzione = DecPunto;
    risoluzione = 72 * DecPunto;
}

void mesh() {
    faiMesh(meshOrigine, 3, 3, [](int r, int c) { return Coppia{150.0 + 250 * c, 150.0 + 600 * r}; });
    faiMesh(meshDestinazione, 3, 3, [](int r, int c) { return Coppia{140.0 + 260 * c, 160.0 + 590 * r}; });
    coeffRisoluzione = DecPunto;
}

void moltiPunti() {
    TabellaPunti t;
    t.metodo = Metodo::lastra;
    std::mt19937 sorte(5);
    std::uniform_real_distribution<double> poco(-3, 3);
    for (int r = 0; r < 5; ++r)
        for (int c = 0; c < 5; ++c) {
            const Coppia f{100 + 170.0 * c, 100 + 370.0 * r};
            t.righe.push_back({"", f, {f.x + poco(sorte), -f.y + poco(sorte)}, true, true, true});
        }
    PoniTabella(t);
    coeffRisoluzione = DecPunto;
}

void esporta(std::int16_t richiesta) {
    myFSS = FSMakeFSSpec(fileScelto);
    NomeD = PStr255(std::string_view(myFSS.nome));
    theItem = richiesta;
    archivia();
}

struct Lavoro {
    const char* nome;
    const char* file;   // what it writes, that stands there before; empty for none
    void (*prepara)();
    void (*fai)();
    bool rilegge = false;   // what was written stands in its place before it is read back: stopped there, it stays
};
void PrintTo(const Lavoro& l, std::ostream* o) { *o << l.nome; }
constexpr auto niente = [] {};

template <bool liscia>
void rettifica() {
    morbida = liscia;
    CalcolaVertici(Elem(primaPict), 0);
    PictureToPixMap(Elem(primaPict).pict.maniglia, false);
}
template <bool liscia>
void gira() {
    morbida = liscia;
    pictRot.pictIn = Elem(primaPict).pict.maniglia;
    pictRot.larghezza = 7;
    pictRot.altezza = 15;
    pictRot.angolo = 0.3;
    pictRot.risoluzione = 254;
    pictRot.colori = 4;
    RuotaImmagine(&pictRot);
    EXPECT_TRUE(pictRot.pictOut == 0 || !ProgressStopped());
    if (pictRot.pictOut != 0) {   // the command's own end
        Elem(primaPict).pict.maniglia = pictRot.pictOut;
        KillPicture(pictRot.pictIn);
    }
}
template <bool liscia>
void lente() {
    morbida = liscia;
    risoluzione = 254;
    coeffRisoluzione = risoluzione / 72;
    CalcolaVerticiCorrezione(Elem(primaPict));
    PictureToPixMapCorrezione(Elem(primaPict).pict.maniglia);
}
template <bool liscia>
void perMesh() {
    morbida = liscia;
    const SenzaTraccia muto;
    CalcolaVerticiMesh(Elem(primaPict));
    PictureToPixMapMesh(Elem(primaPict).pict.maniglia);
}

const Lavoro lavori[] = {
    {"save", "d.ts3d", niente, [] { esporta(rSalva); }},
    {"export of the older form", "d.ts5", niente, [] { esporta(rEsporta); }},
    {"PICT of the drawing", "d.pict", niente, [] { esporta(tessaro::rPict); }},
    {"PNG of the drawing", "d.png", niente, [] { esporta(tessaro::rPict); }},
    {"TIFF of a picture", "d.tif", scegliPict, [] { esporta(rPictSel); }},
    {"JPEG of a picture", "d.jpg", scegliPict, [] { esporta(rPictSel); }},
    {"DXF", "d.dxf", niente, FaiDXF},
    {"point list", "d.xyz", niente, FaiXYZAsci},
    {"script", "d.mcad", niente, [] { FaiMiniCad(tre_D); }},
    {"DXF by the kit", "k.dxf", niente, [] { SaveDWGDXF(2, 29); }, true},
    {"DWG by the kit", "k.dwg", niente, [] { SaveDWGDXF(1, 29); }, true},
    {"map", "d.geojson", niente, [] { ScriviMappa(FSMakeFSSpec(fileScelto)); }},
    {"GeoTIFF", "g.tif", niente, [] { ScriviGeoTIFF(FSMakeFSSpec(fileScelto), primaPict); }},
    {"print", "d.pdf", niente,
     [] {
         PMPageFormat f;
         f.larghezza = 297;
         f.altezza = 210;
         PMPrintSettings p;
         p.luogo = fileScelto;
         PMFlattenPageFormat(f, hPageFormat);
         PMFlattenPrintSettings(p, hPrintSettings);
         DoPrint();
         DopoStampa();
     }},
    {"rectification", "", quattroPunti, rettifica<false>},
    {"smooth rectification", "", quattroPunti, rettifica<true>},
    {"rectification by many points", "", moltiPunti,
     [] {
         morbida = 1;
         risoluzione = 72 * DecPunto;
         const auto mappa = MappaDellaTabella();
         ASSERT_TRUE(mappa);
         RettificaPictMolti(Elem(primaPict), 0, *mappa);
     }},
    {"mesh", "", mesh, perMesh<false>},
    {"smooth mesh", "", mesh, perMesh<true>},
    {"rotation", "", niente, gira<false>},
    {"smooth rotation", "", niente, gira<true>},
    {"lens", "", niente, lente<false>},
    {"smooth lens", "", niente, lente<true>},
    {"a picture from the selection", "",
     [] {
         for (std::int32_t n = 4; n <= indElem; ++n) Elem(n).selezionato = 1;
         Puntosel.attiva = Puntosel.multipla = 1;
         rettSel = {0, 0, 2000, 2000};
     },
     CreaImmagineDaSelezione},
    {"import of a PICT", "",
     [] { metti(fileScelto, std::string(512, '\0') + PictBytes(Elem(primaPict).pict.maniglia)); },
     [] { ImportaImmagine(FSMakeFSSpec(fileScelto)); }},
    {"import of a picture", "",
     [] {
         const Pixels p = pixelAcaso(900, 900, 3);
         std::string png;
         ASSERT_TRUE(EncodeImage(FormatoImmagine::png,
                                 PixMap{const_cast<std::uint32_t*>(p.p.data()), p.w, Rect{0, 0, p.h, p.w}}, 254, 254,
                                 png));
         metti(fileScelto, png);
     },
     [] { ImportaImmagine(FSMakeFSSpec(fileScelto)); }},
};

// What must be as it was beside the drawing's own bytes.
std::string contorno() {
    std::string s;
    for (const double v :
         {double(deformProspettica), double(DisegnaPict), double(StoStampando), scalavid, ScalaTesto, double(OrigX),
          double(OrigY), double(Azione), double(Modalita), double(operazCorrente), double(Puntosel.attiva),
          double(Puntosel.indice), double(indElem), double(GetPort() != nullptr), double(StrOperCorr.view().size()),
          double(mappaMolti != nullptr)})
        s += std::to_string(v) + " ";
    return s;
}

constexpr const char* vecchio = "the file that was there";

class LavoriLunghi : public testing::TestWithParam<Lavoro> {
    Copione copione = conFile();

protected:
    std::unique_ptr<Cartella> cartella;

    // The drawing afresh, and the work's file in a folder of its own.
    void ricomincia() {
        chiudi();
        AzzeraStato();
        ASSERT_TRUE(AllocaElementi(40000));
        AzzeraEstensioni();
        SetCopione(&copione);
        SetUpWindow();
        disegnoPieno();
        cartella = std::make_unique<Cartella>();
        const std::string_view nome = GetParam().file;
        fileScelto = *cartella / (nome.empty() ? "in" : nome);
        if (!nome.empty()) metti(fileScelto, vecchio);
        GetParam().prepara();
        avvisi.clear();
    }
    static void chiudi() {
        AutoStopWork(-1);
        indElem = 2;
        if (!noWindow) TuttoChiuso();
    }
    void TearDown() override {
        chiudi();
        ganciDellaSuite();
    }
};

TEST_P(LavoriLunghi, StoppedTheyLeaveEverythingAsItWas) {
    const SenzaTraccia muto;
    const Lavoro& l = GetParam();
    const bool scrive = !std::string_view(l.file).empty();
    // By one thread, which asks at every step; with two each job asks as often as the other one leaves it rows.
    ricomincia();
    filiRaster = 1;
    const std::string intatto = scriviByte();
    AutoStopWork(-1);
    l.fai();
    const std::int64_t passi = AutoWorkSteps();
    const std::string intero = scrive ? contenuto(fileScelto) : scriviByte();
    ASSERT_GE(passi, 2) << "nobody can stop it";
    EXPECT_TRUE(intero != (scrive ? vecchio : intatto)) << "it did nothing";
    const struct {
        std::int64_t quando;
        std::int32_t fili;
    } fermate[] = {{0, 1}, {l.rilegge ? passi / 8 : passi / 2, 1}, {passi - 1, 1}, {passi / 8, 2}};
    for (const auto& [quando, fili] : fermate) {
        SCOPED_TRACE("stopped at step " + std::to_string(quando) + " of " + std::to_string(passi) + ", threads "
                     + std::to_string(fili));
        ricomincia();
        filiRaster = fili;
        const std::string prima = scriviByte(), stato = contorno();
        const std::size_t file = cartella->quanti();
        AutoStopWork(quando);
        l.fai();
        EXPECT_EQ(AutoWorkSteps(), quando + 1) << "it went on";
        AutoStopWork(-1);
        const bool giaFatto = l.rilegge && quando == passi - 1;
        EXPECT_TRUE(giaFatto || numeriAvvisi().empty()) << avvisi[0].testo;
        EXPECT_EQ(contorno(), stato);
        EXPECT_TRUE(scriviByte() == prima);
        EXPECT_EQ(cartella->quanti(), file);
        if (scrive && !giaFatto) { EXPECT_TRUE(contenuto(fileScelto) == vecchio); }
        if (giaFatto) {
            EXPECT_NEAR(double(contenuto(fileScelto).size()), double(intero.size()), 100);
        }   // it has a date
        EXPECT_FALSE(ProgressStopped());
    }
}

INSTANTIATE_TEST_SUITE_P(Uno, LavoriLunghi, testing::ValuesIn(lavori), [](const auto& i) {
    std::string nome = i.param.nome;
    std::erase(nome, ' ');
    return nome;
});

// --- what is read before a stop stays, is told, and goes with one Undo

struct Importo {
    const char* nome;
    const char* file;
    void (*scrivi)();   // the file, from the full drawing
    void (*leggi)();
};
void PrintTo(const Importo& i, std::ostream* o) { *o << i.nome; }

void leggiTesto(void (*lettore)()) {
    uscita = 0;
    CominciaAggiunta();
    ASSERT_EQ(FSpOpenDF(FSMakeFSSpec(fileScelto), fsRdPerm, RefNum), noErr);
    lettore();
    if (RefNum != 0) FSClose(RefNum);
    PoniAnnulla(aAggiunta);
}

const Importo importi[] = {
    {"DXF", "d.dxf", FaiDXF, [] { leggiTesto(LeggiDXF); }},
    {"point list", "d.xyz", FaiXYZAsci, [] { leggiTesto(LeggiXYZ); }},
    {"DXF by the kit", "k.dxf", [] { SaveDWGDXF(2, 29); }, [] { ImportaDWGFile(FSMakeFSSpec(fileScelto)); }},
    {"map", "d.geojson", [] { ScriviMappa(FSMakeFSSpec(fileScelto)); }, [] { LeggiMappa(FSMakeFSSpec(fileScelto)); }},
    {"drawing", "d.ts3d", [] { esporta(rSalva); },
     [] {
         theItem = rUnisciDato;
         myFSS = FSMakeFSSpec(fileScelto);
         archivia();
     }},
};

class ImportiLunghi : public testing::TestWithParam<Importo> {};

TEST_P(ImportiLunghi, StoppedTheyKeepWhatWasReadSayItAndGoWithOneUndo) {
    const SenzaTraccia muto;
    const Copione copione = conFile();
    ASSERT_TRUE(AllocaElementi(60000));
    AzzeraEstensioni();
    SetCopione(&copione);
    SetUpWindow();
    disegnoPieno();
    const Cartella cartella;
    fileScelto = cartella / GetParam().file;
    AutoStopWork(-1);
    GetParam().scrivi();
    const std::string file = contenuto(fileScelto);
    AzzeraArchivio();
    segmento(1, 2, 3, 4);
    avvisi.clear();
    const ConGiornale giornale;
    const std::string prima = scriviByte();
    AutoStopWork(-1);
    GetParam().leggi();
    const std::int64_t passi = AutoWorkSteps();
    const std::int32_t tutti = indElem;
    ASSERT_GT(tutti, 1000);
    finePasso();
    annulla();
    ASSERT_EQ(indElem, 3);
    avvisi.clear();
    AutoStopWork(passi / 2);
    GetParam().leggi();
    AutoStopWork(-1);
    EXPECT_LT(indElem, tutti);
    EXPECT_EQ(guastoFigure(true), "");
    EXPECT_FALSE(avvisi.empty());
    EXPECT_TRUE(contenuto(fileScelto) == file);
    if (indElem > 3) {
        finePasso();
        annulla();
    }
    EXPECT_TRUE(scriviByte() == prima);
    EXPECT_TRUE(StrOperCorr.view().empty());
    indElem = 2;
    TuttoChiuso();
    ganciDellaSuite();
}

INSTANTIATE_TEST_SUITE_P(Uno, ImportiLunghi, testing::ValuesIn(importi), [](const auto& i) {
    std::string nome = i.param.nome;
    std::erase(nome, ' ');
    return nome;
});

// --- a repaint

TEST(LavoroLungo, AStoppedRepaintEndsEarlyAndTheNextOneIsWhole) {
    ASSERT_TRUE(AllocaElementi(40000));
    SetUpWindow();
    disegnoPieno();
    const RasterPort& porta = static_cast<RasterPort&>(*GetWindowPort(theWindow));
    const auto pixel = [&porta] {
        return std::vector<std::uint32_t>(porta.pixels(), porta.pixels() + porta.rowPixels() * porta.deviceHeight());
    };
    for (const std::int32_t soglia : {1, 1 << 30}) {   // in bands, and in one scan
        sogliaStrisce = soglia;
        AutoStopWork(-1);
        Ridisegna();
        const std::int64_t passi = AutoWorkSteps();
        const auto intero = pixel();
        ASSERT_GE(passi, 2);
        const std::string prima = scriviByte(), stato = contorno();
        AutoStopWork(0);
        Ridisegna();
        EXPECT_EQ(AutoWorkSteps(), 1);
        EXPECT_TRUE(pixel() != intero);
        EXPECT_TRUE(scriviByte() == prima);
        EXPECT_EQ(contorno(), stato);
        AutoStopWork(-1);
        Ridisegna();
        EXPECT_TRUE(pixel() == intero);
    }
    indElem = 2;
    TuttoChiuso();
}

}   // namespace
