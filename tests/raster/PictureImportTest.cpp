// Scans coming in at their true size and drawn at every zoom.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "bitmap/Piramide.h"
#include "display/Disegno.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Lucidi.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "model/Vista.h"
#include "platform/paint/RasterPort.h"
#include "platform/pict/Pict.h"
#include "platform/pict/RighePict.h"
#include "platform/pict/Scrittore.h"
#include "raster/Immagini.h"
#include "support/Avvisi.h"

using namespace tessaro;

namespace {

class PictureImport : public testing::Test {
protected:
    void SetUp() override {
        AzzeraStato();
        ASSERT_TRUE(AllocaElementi(100));
        AzzeraArchivio();
        OrigX = OrigY = 0;   // the ports of these tests have no palette beside them
        cartella = std::filesystem::temp_directory_path() / ("tessaro-immagini-" + std::to_string(::getpid()));
        std::filesystem::create_directories(cartella);
    }
    void TearDown() override {
        SetPort(nullptr);
        std::filesystem::remove_all(cartella);
    }
    std::string percorso(const char* nome) const { return (cartella / nome).string(); }
    FSSpec scrivi(const char* nome, const std::string& bytes) const {
        std::ofstream(percorso(nome), std::ios::binary) << bytes;
        return FSMakeFSSpec(percorso(nome));
    }
    static std::string leggi(const std::string& dove) {
        std::ifstream f(dove, std::ios::binary);
        return std::string((std::istreambuf_iterator<char>(f)), {});
    }
    std::filesystem::path cartella;
};

void metti32(std::string& s, std::uint32_t v, bool piccolo = true) {
    for (int i = 0; i < 4; ++i) s.push_back(static_cast<char>(v >> (8 * (piccolo ? i : 3 - i))));
}

// A Windows bitmap of 24 bits, the colour of a pixel from its place; dots per metre as given.
std::string bmp(std::int32_t w, std::int32_t h, std::uint32_t perMetro) {
    std::string s = "BM";
    const std::uint32_t riga = (static_cast<std::uint32_t>(w) * 3 + 3) / 4 * 4;
    metti32(s, 54 + riga * static_cast<std::uint32_t>(h));
    metti32(s, 0);
    metti32(s, 54);
    metti32(s, 40);
    metti32(s, static_cast<std::uint32_t>(w));
    metti32(s, static_cast<std::uint32_t>(h));
    metti32(s, 1 | 24 << 16);
    metti32(s, 0);
    metti32(s, riga * static_cast<std::uint32_t>(h));
    metti32(s, perMetro);
    metti32(s, perMetro);
    metti32(s, 0);
    metti32(s, 0);
    for (std::int32_t y = h - 1; y >= 0; --y) {   // from the bottom
        std::string r;
        for (std::int32_t x = 0; x < w; ++x) {
            r.push_back(static_cast<char>(x * 5));
            r.push_back(static_cast<char>(y * 3));
            r.push_back(static_cast<char>(x + y));
        }
        r.resize(riga);
        s += r;
    }
    return s;
}

TEST_F(PictureImport, aScanComesInAtItsTrueSizeWithoutLoss) {
    struct Caso {
        std::uint32_t perMetro;
        double dpi;
    };
    for (const Caso c : {Caso{11811, 300}, Caso{23622, 600}, Caso{2835, 72}, Caso{0, 72}, Caso{5906, 150}}) {
        xcurs = 500;
        ycurs = 700;
        ASSERT_TRUE(ImportaImmagine(scrivi("scansione.bmp", bmp(100, 40, c.perMetro))));
        const elemento& e = Elem(indElem);
        ASSERT_EQ(e.tipo, tPict);
        EXPECT_DOUBLE_EQ(e.pict.x, 500);
        EXPECT_DOUBLE_EQ(e.pict.y, 700);
        EXPECT_DOUBLE_EQ(e.pict.larghezza, 100 * 254.0 / c.dpi);
        EXPECT_DOUBLE_EQ(e.pict.altezza, 40 * 254.0 / c.dpi);
        RighePict righe;
        ASSERT_TRUE(righe.apri(PictBytes(e.pict.maniglia)));
        std::vector<std::uint32_t> r(100);
        righe.riga(17, 0, 100, r.data());
        EXPECT_EQ(r[33], 0xFF000000U | (33 + 17) << 16 | (17 * 3) << 8 | (33 * 5));
    }
}

TEST_F(PictureImport, aPhotographKeepsItsBytesUnlessItLiesOnItsSide) {
    const char* dove = std::getenv("TESSARO_DATA");
    const std::string jpeg = dove == nullptr ? "" : leggi(std::string(dove) + "/photo/left01.jpg");
    if (jpeg.empty()) {
        std::puts("no folder of real files (TESSARO_DATA): nothing tried");
        return;
    }
    ASSERT_TRUE(ImportaImmagine(scrivi("foto.jpg", jpeg)));
    PictRaster raster;
    ASSERT_TRUE(PictSoloRaster(PictBytes(Elem(indElem).pict.maniglia), raster));
    EXPECT_TRUE(raster.jpeg);
    EXPECT_EQ(raster.data, jpeg);
    Rect dritta, girata;
    ASSERT_TRUE(GetPictInfo(PictBytes(Elem(indElem).pict.maniglia), dritta));

    // The same with an orientation tag: 6, turned a quarter to the right.
    using namespace std::string_literals;
    const std::string tag = "\xFF\xE1\0\x22"s + "Exif\0\0II*\0\x08\0\0\0\1\0\x12\1\3\0\1\0\0\0\6\0\0\0\0\0\0\0"s;
    ASSERT_TRUE(ImportaImmagine(scrivi("girata.jpg", jpeg.substr(0, 2) + tag + jpeg.substr(2))));
    ASSERT_TRUE(GetPictInfo(PictBytes(Elem(indElem).pict.maniglia), girata));
    EXPECT_EQ(girata, (Rect{0, 0, dritta.right, dritta.bottom}));
    EXPECT_TRUE(RighePict().apri(PictBytes(Elem(indElem).pict.maniglia)));
}

TEST_F(PictureImport, whatIsNoPictureEndsInAMessageThatNamesTheFile) {
    EXPECT_FALSE(ImportaImmagine(scrivi("lettera.png", "Gentile cliente, ...")));
    EXPECT_FALSE(ImportaImmagine(FSMakeFSSpec(percorso("manca.png"))));
    EXPECT_FALSE(ImportaImmagine(scrivi("mozza.bmp", bmp(40, 40, 0).substr(0, 40))));
    EXPECT_EQ(indElem, 2);
    ASSERT_EQ(prova::numeriAvvisi(), (std::vector<std::int16_t>{9102, 9102, 9102}));
    EXPECT_NE(prova::avvisi[0].testo.find("lettera.png"), std::string::npos) << prova::avvisi[0].testo;
}

TEST_F(PictureImport, aSideBeyondSixteenBitsComesInWhole) {
    ASSERT_TRUE(ImportaImmagine(scrivi("lunga.bmp", bmp(40001, 2, 0))));
    ASSERT_EQ(indElem, 3);
    EXPECT_EQ(Piramide(PictBytes(Elem(3).pict.maniglia)).width(), 40001);
    EXPECT_NEAR(Elem(3).pict.larghezza, 40001 * DecPunto, 0.01);
}

TEST_F(PictureImport, everyPictFileOfOthersComesInThroughTheMenu) {
    const char* dove = std::getenv("TESSARO_DATA");
    const auto vere = std::filesystem::path(dove == nullptr ? "" : dove) / "pict";
    if (dove == nullptr || !std::filesystem::is_directory(vere)) {
        std::puts("no folder of real files (TESSARO_DATA): nothing tried");
        return;
    }
    for (const auto& voce : std::filesystem::directory_iterator(vere)) {
        const std::string nome = voce.path().filename().string();
        prova::avvisi.clear();
        const std::int32_t prima = indElem;
        EXPECT_TRUE(ImportaImmagine(FSMakeFSSpec(voce.path().string()))) << nome;
        ASSERT_EQ(indElem, prima + 1) << nome;
        const auto& p = Elem(indElem).pict;
        EXPECT_TRUE(p.larghezza > 10 && p.altezza > 10 && p.larghezza < 10000 && p.altezza < 10000) << nome;
        const bool guasta = nome.starts_with("synth_bad_");
        EXPECT_EQ(prova::numeriAvvisi(), guasta ? std::vector<std::int16_t>{9121} : std::vector<std::int16_t>{})
            << nome;
    }
}

TEST_F(PictureImport, aFullStoreTakesNothing) {
    indElem = maxElementi;
    EXPECT_FALSE(ImportaImmagine(scrivi("a.bmp", bmp(10, 10, 0))));
    EXPECT_TRUE(prova::avvisi.empty());
    EXPECT_EQ(PictMemory(), 0);
}

TEST_F(PictureImport, pictFilesAreReadBehindTheirHeader) {
    const std::vector<std::uint32_t> pixel(72 * 36, 0xFF336699U);
    const std::string pict = PictDaPixel(pixel.data(), 72, 36);
    struct Caso {
        std::string bytes;
        bool entra;
    };
    const Caso casi[] = {
        {std::string(512, '\0') + pict, true},
        {pict + std::string(600, '\0'), true},   // without a header
        {std::string(511, '\0'), false},
        {std::string(512, '\0'), false},
    };
    for (const Caso& c : casi) {
        const std::int32_t prima = indElem;
        std::int16_t ref = 0;
        ASSERT_EQ(FSpOpenDF(scrivi("a.pict", c.bytes), fsRdPerm, ref), noErr);
        LeggiPict(ref);
        FSClose(ref);
        ASSERT_EQ(indElem, prima + (c.entra ? 1 : 0)) << c.bytes.size();
        if (!c.entra) continue;
        EXPECT_DOUBLE_EQ(Elem(indElem).pict.larghezza, DecPunto * 72);
        EXPECT_DOUBLE_EQ(Elem(indElem).pict.altezza, DecPunto * 36);
    }
}

// A picture of 64 by 64: a red upper left quarter on white.
std::string quarto(std::int16_t modo) {
    Scrittore s;
    const Rect r{0, 0, 64, 64};
    s.testa(r);
    PixelInCorso corso(s, 64, 64, PostoBits{r, r, modo});
    std::vector<std::uint32_t> riga(64);
    for (std::int32_t y = 0; y < 64; ++y) {
        for (std::size_t x = 0; x < 64; ++x) riga[x] = x < 32 && y < 32 ? 0xFFFF0000U : 0xFFFFFFFFU;
        corso.riga(riga.data());
    }
    return s.fine();
}

void mettiPict(std::string bytes, double x, double y, double lato) {
    Memorizza(tPict, x, y, 0, lato, lato, 0, 1, 1, 1, PStr255(""));
    Elem(indElem).pict.maniglia = NewPict(std::move(bytes));
}

TEST_F(PictureImport, pictureIsDrawnInPlaceAtEveryZoom) {
    mettiPict(quarto(bitsCopia), 100, 100, 640);
    for (const double scala : {0.01, 0.05, 0.1, 0.33, 1.0, 7.0, 400.0}) {
        scalavid = scala;
        // The middle of the picture, where four colours meet, comes to the middle of the port.
        OrigX = static_cast<std::int32_t>(420 * scala) - 50;
        OrigY = static_cast<std::int32_t>(420 * scala) - 50;
        RasterPort porto(100, 100, 1);
        SetPort(&porto);
        DisPict(indElem);
        SetPort(nullptr);
        EXPECT_EQ(porto.pixel(48, 48), 0xFFFF0000U) << scala;
        EXPECT_EQ(porto.pixel(53, 48), 0xFFFFFFFFU) << scala;
        EXPECT_EQ(porto.pixel(48, 53), 0xFFFFFFFFU) << scala;
    }
}

TEST_F(PictureImport, holesOfATransparentPictureShowWhatIsBelow) {
    mettiPict(quarto(bitsTrasparente), 0, 0, 64);
    scalavid = 0.5;
    RasterPort porto(32, 32, 1);
    SetPort(&porto);
    ForeColor(blueColor);
    const RGBColor blu = porto.foreground;
    PaintRect(Rect{0, 0, 32, 32});
    DisPict(indElem);
    EXPECT_EQ(porto.pixel(8, 8), 0xFFFF0000U);
    EXPECT_EQ(porto.pixel(24, 24), pixelDi(blu));
}

TEST_F(PictureImport, whatCannotBeDecodedIsACrossedFrameAndKeepsItsBytes) {
    const std::string rotta = PictDaJpeg("no image at all", 64, 64, 72, 72);
    mettiPict(rotta, 0, 0, 64);
    scalavid = 1;
    RasterPort porto(64, 64, 1);
    SetPort(&porto);
    DisPict(indElem);
    EXPECT_EQ(porto.pixel(0, 20), 0xFF000000U);
    EXPECT_EQ(porto.pixel(32, 32), 0xFF000000U);
    EXPECT_EQ(porto.pixel(10, 40), 0xFFFFFFFFU);
    EXPECT_EQ(PictBytes(Elem(indElem).pict.maniglia), rotta);
}

TEST_F(PictureImport, picturesOfOtherSheetsAreVeiledWhenOthersAreGrey) {
    mettiPict(quarto(bitsCopia), 0, 0, 64);
    Elem(indElem).lucido = 5;
    VisioneGraf.lucidoCorrente = 0;
    VisioneGraf.grigiaAltri = 1;
    scalavid = 1;
    RasterPort porto(64, 64, 1);
    SetPort(&porto);
    DisPict(indElem);
    int rossi = 0, bianchi = 0;
    for (std::int32_t y = 2; y < 30; ++y)
        for (std::int32_t x = 2; x < 30; ++x) (porto.pixel(x, y) == 0xFFFF0000U ? rossi : bianchi)++;
    EXPECT_GT(rossi, 0);
    EXPECT_GT(bianchi, 0);
    EXPECT_EQ(porto.pen.pnMode, patCopy);
}

TEST_F(PictureImport, reducedRowsAreTheMeanOfWhatTheyCover) {
    struct Scacchi final : FonteRighe {
        void riga(std::int32_t y, std::int32_t x0, std::int32_t x1, std::uint32_t* out) override {
            for (std::int32_t x = x0; x < x1; ++x) *out++ = (x + y) % 2 == 0 ? 0xFFFFFFFFU : 0xFF000000U;
        }
    } scacchi;
    scacchi.width = scacchi.height = 100;
    std::vector<std::uint32_t> out(20 * 20);
    for (const double scala : {0.5, 0.25, 0.2}) {
        Riduttore r(scacchi, Posa{0, 0, scala, scala}, 0, 20);
        r.righe(0, 20, out.data());
        for (const std::uint32_t p : out) {
            const auto grigio = static_cast<int>(p & 0xFF);
            EXPECT_NEAR(grigio, 128, scala == 0.2 ? 6 : 1) << scala;
        }
    }
}

}   // namespace
