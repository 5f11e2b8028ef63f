// Pictures that leave the drawing keep what they show, their size and, of a
// JPEG, their own bytes.
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "display/Disegno.h"
#include "files/Richieste.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Penna.h"
#include "model/Selezione.h"
#include "model/Stato.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "platform/Images.h"
#include "platform/paint/RasterPort.h"
#include "platform/pict/Pict.h"
#include "raster/CreaPict.h"
#include "raster/Immagini.h"
#include "support/Avvisi.h"

using namespace tessaro;

namespace {

class PictureOut : public testing::Test {
protected:
    void SetUp() override {
        AzzeraStato();
        ASSERT_TRUE(AllocaElementi(100));
        AzzeraArchivio();
        cartella = std::filesystem::temp_directory_path() / ("tessaro-fuori-" + std::to_string(::getpid()));
        std::filesystem::create_directories(cartella);
    }
    void TearDown() override {
        SetPort(nullptr);
        std::filesystem::remove_all(cartella);
    }
    // What request 43 writes under that name for the selected record 3; empty
    // when it refuses.
    std::string scritta(const char* nome) {
        const FSSpec file = FSMakeFSSpec((cartella / nome).string());
        std::int16_t ref = 0;
        if (FSpOpenReplacing(file, 0, 0, ref) != noErr) return {};
        theItem = rPictSel;
        const bool bene = SuffissoImmagine(file) ? PutImageFile(ref, file) : PutPictFile(ref);
        if (!bene) {
            FSAbandon(ref);
            return {};
        }
        FSClose(ref);
        std::ifstream f(file.percorso, std::ios::binary);
        return std::string((std::istreambuf_iterator<char>(f)), {});
    }
    static void scegli(std::int32_t n) {
        Elem(n).selezionato = 1;
        Puntosel = PuntoselT{1, 0, 1, oPict, n};
    }
    std::filesystem::path cartella;
};

TEST_F(PictureOut, aPictureOfAHundredBytesIsNone) {
    for (const std::size_t n : {std::size_t{100}, std::size_t{101}}) {
        AzzeraArchivio();
        prova::avvisi.clear();
        ASSERT_TRUE(MemorizzaPict(std::string(n, 'p'), 0, 0, 10, 10));
        scegli(3);
        const std::string file = scritta("a.pict");
        if (n == 100) {
            EXPECT_TRUE(file.empty());
            EXPECT_EQ(prova::numeriAvvisi(), std::vector<std::int16_t>{128});
            continue;
        }
        ASSERT_EQ(file.size(), 512 + n);
        EXPECT_EQ(file.substr(0, 512), std::string(512, '\0'));
        EXPECT_EQ(file.substr(512), std::string(n, 'p'));
    }
}

TEST_F(PictureOut, aJpegLeavesWithItsOwnBytesAndItsSizeOnTheSheet) {
    std::vector<std::uint32_t> pixel;
    for (std::uint32_t i = 0; i < 60 * 40; ++i) pixel.push_back(0xFF000000U | i * 1103515245U >> 8);
    std::string jpeg;
    ASSERT_TRUE(EncodeImage(FormatoImmagine::jpeg, PixMap{pixel.data(), 60, Rect{0, 0, 40, 60}}, 72, 72, jpeg));
    ASSERT_TRUE(ImportaBytes(jpeg, "x"));
    Elem(3).pict.larghezza = 60 * DecPollice / 400;   // scaled on the sheet since
    Elem(3).pict.altezza = 40 * DecPollice / 400;
    scegli(3);
    const std::string file = scritta("a.jpg");
    constexpr std::size_t testa = 20;   // up to the end of the segment that tells the resolution
    ASSERT_EQ(file.size(), jpeg.size());
    EXPECT_EQ(file.substr(testa), jpeg.substr(testa));
    Immagine im;
    std::string reason;
    ASSERT_TRUE(DecodeImageData(file, im, reason));
    EXPECT_NEAR(im.dpiX, 400, 0.01);
    EXPECT_NEAR(im.dpiY, 400, 0.01);
}

TEST_F(PictureOut, pixelsAreTheSameInEveryFormatThatKeepsThem) {
    std::vector<std::uint32_t> pixel;
    for (std::uint32_t i = 0; i < 64 * 48; ++i) pixel.push_back(0xFF000000U | (i * 2654435761U) >> 8);
    ASSERT_TRUE(MemorizzaPict(PictDaPixel(pixel.data(), 64, 48), 0, 0, 64, 48));
    scegli(3);
    for (const char* nome : {"a.png", "a.tif", "a.pict"}) {
        const std::string file = scritta(nome);
        ASSERT_TRUE(ImportaBytes(file, nome)) << nome;
        const std::string seconda = PictBytes(Elem(indElem).pict.maniglia);
        EXPECT_EQ(seconda.substr(seconda.size() - 2000), PictBytes(Elem(3).pict.maniglia).substr(seconda.size() - 2000))
            << nome;
    }
}

TEST_F(PictureOut, whatIsCopiedComesBackAsLargeAsItWas) {
    for (const double x : {100.0, 2345.6, 20000.0}) {   // the last beyond 16 bits at 300 to the inch
        AzzeraArchivio();
        Memorizza(tSegmento, x, 500, 0, x + 1234.5, 900.25, 0, 1, 1, 1, PStr255(""));
        Memorizza(tSegmento, x, 900, 0, x + 800, 600, 0, 1, 1, 1, PStr255(""));
        Elem(3).selezionato = Elem(4).selezionato = 1;
        Puntosel = PuntoselT{1, 1, 2, oSegmento, 4};
        rettSel = RettSel{x, 500, x + 1234.5, 900.25};
        FiguraPict p;
        ASSERT_TRUE(CreaPict(p));
        double larghi = 0, alti = 0;
        ASSERT_TRUE(PictPunti(p.bytes, larghi, alti));
        const double fine = x < 10000 ? DecPollice / 300 : DecPollice / 100;
        EXPECT_NEAR(larghi * DecPunto, 1234.5, fine) << x;
        EXPECT_NEAR(alti * DecPunto, 400.25, fine) << x;
        EXPECT_EQ(p.x, x);
        EXPECT_EQ(DisegnaPict, 0);
    }
}

}   // namespace
