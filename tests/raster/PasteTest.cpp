// What other programs copied comes in as the picture it was: every form the clipboard may have, and lists of files.
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>

#include "Banco.h"
#include "model/Annulla.h"
#include "model/Cursore.h"
#include "model/Vista.h"
#include "platform/Images.h"
#include "platform/Scrap.h"
#include "raster/Immagini.h"
#include "support/Avvisi.h"

using namespace prova;

namespace {

class Paste : public BancoRaster {
protected:
    void TearDown() override {
        PutScrap({{"text/plain", [] { return std::string("words"); }}});
        BancoRaster::TearDown();
    }
    // An even colour: JPEG keeps it to a few levels.
    static Pixels tinta(std::uint32_t colore) {
        return {48, 32, std::vector<std::uint32_t>(48 * 32, 0xFF000000U | colore)};
    }
    static std::string codificata(const Pixels& q, FormatoImmagine f) {
        std::vector<std::uint32_t> pixel = q.p;
        std::string bytes;
        EXPECT_TRUE(EncodeImage(f, PixMap{pixel.data(), q.w, Rect{0, 0, q.h, q.w}}, 144, 144, bytes));
        return bytes;
    }
    static bool simile(std::uint32_t a, std::uint32_t b) {
        for (const int s : {0, 8, 16})
            if (std::abs(static_cast<int>(a >> s & 255) - static_cast<int>(b >> s & 255)) > 6) return false;
        return true;
    }
};

TEST_F(Paste, everyFormOfAPictureComesInWithItsPixelsAndSize) {
    constexpr std::uint32_t colore = 0x336699;
    const Pixels q = tinta(colore);
    const std::string pict = PictDaPixel(q.p.data(), q.w, q.h);
    struct Caso {
        const char* mime;
        std::string bytes;
        double dpi;
    };
    const Caso casi[] = {{"image/x-pict", pict, 72},
                         {"image/pict", pict, 72},
                         {"image/png", codificata(q, FormatoImmagine::png), 144},
                         {"image/tiff", codificata(q, FormatoImmagine::tiff), 144},
                         {"image/jpeg", codificata(q, FormatoImmagine::jpeg), 144}};
    xcurs = 300;
    ycurs = 400;
    for (const Caso& c : casi) {
        AzzeraArchivio();
        ASSERT_TRUE(PutScrap({{c.mime, [&c] { return c.bytes; }}})) << c.mime;
        IncollaPict();
        ASSERT_EQ(indElem, 3) << c.mime;
        EXPECT_EQ(Elem(3).pict.x, 300.0);
        EXPECT_NEAR(Elem(3).pict.larghezza, 48 * DecPollice / c.dpi, 0.05) << c.mime;
        EXPECT_NEAR(Elem(3).pict.altezza, 32 * DecPollice / c.dpi, 0.05) << c.mime;
        const Pixels r = pixelDelPict(Elem(3).pict.maniglia);
        ASSERT_EQ(r.w, q.w) << c.mime;
        EXPECT_TRUE(simile(r.at(20, 20), colore)) << c.mime << " " << std::hex << r.at(20, 20);
        EXPECT_EQ(annullamento, aAggiunta);
    }
    EXPECT_TRUE(avvisi.empty());
}

TEST_F(Paste, theBestFormIsTakenAndWhatIsNoPictureIsSaid) {
    const std::string png = codificata(tinta(0x00FF00), FormatoImmagine::png);
    const Pixels rossa = tinta(0xFF0000);
    ASSERT_TRUE(PutScrap({{"image/png", [&] { return png; }},
                          {"image/x-pict", [&] { return PictDaPixel(rossa.p.data(), rossa.w, rossa.h); }}}));
    IncollaPict();
    ASSERT_EQ(indElem, 3);
    EXPECT_TRUE(simile(pixelDelPict(Elem(3).pict.maniglia).at(5, 5), 0xFF0000));
    ASSERT_TRUE(PutScrap({{"text/plain", [] { return std::string("words"); }}}));
    IncollaPict();
    EXPECT_EQ(indElem, 3);
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{128});
}

TEST_F(Paste, whatWouldLieOutOfSightComesIntoTheView) {
    const Pixels q = tinta(0x445566);
    ASSERT_TRUE(PutScrap({{"image/x-pict", [&] { return PictDaPixel(q.p.data(), q.w, q.h); }}}));
    myViewRect = Rect{50, 32, 450, 632};
    scalavid = 1;
    OrigX = -32;
    OrigY = -50;
    xcurs = ycurs = 5000;
    IncollaPict();
    ASSERT_EQ(indElem, 3);
    EXPECT_NEAR(Elem(3).pict.x, 300, 1);
    EXPECT_NEAR(Elem(3).pict.y, 200, 1);
    EXPECT_EQ(xcurs, 5000.0) << "the cursor stays";
    xcurs = ycurs = 120;
    IncollaPict();
    EXPECT_EQ(Elem(4).pict.x, 120.0) << "in sight, at the cursor";
}

TEST_F(Paste, aCopiedListOfFilesBringsThemAllBesideEachOther) {
    const auto cartella = std::filesystem::temp_directory_path() / ("tessaro-incolla " + std::to_string(::getpid()));
    std::filesystem::create_directories(cartella);
    const auto metti = [&](const char* nome, const std::string& bytes) {
        std::ofstream(cartella / nome, std::ios::binary) << bytes;
        return "file://" + (cartella / nome).string() + "\r\n";
    };
    const Pixels q = tinta(0x112233);
    std::string elenco = metti("one.png", codificata(q, FormatoImmagine::png));
    elenco += metti("broken.png", "no picture at all");
    elenco += metti("two.pict", std::string(512, '\0') + PictDaPixel(q.p.data(), q.w, q.h));
    for (std::size_t i = 0; (i = elenco.find(' ', i)) != std::string::npos;) elenco.replace(i, 1, "%20");
    ASSERT_TRUE(PutScrap({{"text/uri-list", [&] { return elenco; }}}));
    scalavid = 1;
    xcurs = ycurs = 100;
    IncollaPict();
    ASSERT_EQ(indElem, 4);
    EXPECT_EQ(numeriAvvisi().size(), 1U);   // the broken one, and the others came in
    EXPECT_EQ(Elem(3).pict.x, 100.0);
    EXPECT_GT(Elem(4).pict.x, 100.0) << "not one under the other";
    EXPECT_EQ(annullamento, aAggiunta);
    EXPECT_EQ(xcurs, 100.0);
    IncollaPict();   // and once more
    ASSERT_EQ(indElem, 6);
    EXPECT_GT(Elem(6).pict.y, Elem(5).pict.y);
    EXPECT_GT(Elem(5).pict.y, Elem(4).pict.y);
    std::filesystem::remove_all(cartella);
}

}   // namespace
