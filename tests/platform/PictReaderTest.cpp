// What users meet when a picture of another program is shown: its shapes, colours, pixels, and damaged files.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Images.h"
#include "platform/paint/RasterPort.h"
#include "platform/pict/Codici.h"
#include "platform/pict/Pict.h"
#include "platform/pict/RighePict.h"
#include "platform/pict/Scrittore.h"

using namespace tessaro;

namespace {

constexpr std::uint32_t bianco = 0xFFFFFFFF, nero = 0xFF000000, rosso = 0xFFFF0000;

// A picture that has `corpo` behind the head.
template <class F>
std::string pict(const Rect& frame, const F& corpo) {
    Scrittore s;
    s.testa(frame);
    corpo(s);
    return s.fine();
}

struct Tela {
    RasterPort porto;
    Tela(std::int32_t w, std::int32_t h) : porto(w, h, 1) { SetPort(&porto); }
    ~Tela() { SetPort(nullptr); }
    std::uint32_t a(std::int32_t x, std::int32_t y) { return porto.pixel(x, y); }
};

// The opcodes of a one-bit map of 16 by 2: upper row black on the left half, lower row on the right half.
void bitmap(Scrittore& s, std::uint16_t op, const Rect& dst, std::int16_t modo) {
    s.codice(op);
    s.u16(2);
    s.rettangolo(Rect{0, 0, 2, 16});
    s.rettangolo(Rect{0, 0, 2, 16});
    s.rettangolo(dst);
    s.u16(modo);
    s.u16(0xFF00);
    s.u16(0x00FF);
}

TEST(PictReader, figureIsScaledIntoTheGivenRectangle) {
    const std::string p = pict(Rect{10, 20, 60, 120}, [](Scrittore& s) {
        s.codice(opRGBFgCol);
        s.colore(RGBColor{65535, 0, 0});
        s.codice(opRect + 1);
        s.rettangolo(Rect{20, 40, 40, 80});
    });
    Tela t(200, 100);
    t.porto.foreground = RGBColor{0, 65535, 0};
    EXPECT_TRUE(DrawPicture(p, Rect{0, 0, 100, 200}));
    EXPECT_EQ(t.a(40, 20), rosso);
    EXPECT_EQ(t.a(119, 59), rosso);
    EXPECT_EQ(t.a(39, 20), bianco);
    EXPECT_EQ(t.a(120, 59), bianco);
    EXPECT_EQ(t.porto.foreground, (RGBColor{0, 65535, 0})) << "the port's own state comes back";
}

TEST(PictReader, sameFormsRepeatTheLastRectangleOfWhateverKind) {
    const std::string p = pict(Rect{0, 0, 20, 40}, [](Scrittore& s) {
        s.codice(opOval + 1);
        s.rettangolo(Rect{0, 20, 20, 40});
        s.codice(opRect + 1);
        s.rettangolo(Rect{2, 2, 18, 18});
        s.codice(opRGBFgCol);
        s.colore(RGBColor{65535, 0, 0});
        s.codice(opOval + 8 + 1);
    });
    Tela t(40, 20);
    EXPECT_TRUE(DrawPicture(p, Rect{0, 0, 20, 40}));
    EXPECT_EQ(t.a(10, 10), rosso) << "the oval within the rectangle drawn last";
    EXPECT_EQ(t.a(2, 2), nero) << "whose corners it leaves";
    EXPECT_EQ(t.a(30, 10), nero);
}

TEST(PictReader, aHighlightIsNoInversion) {
    const RGBColor giallo{65535, 65535, 0};
    const std::string p = pict(Rect{0, 0, 10, 30}, [&](Scrittore& s) {
        s.codice(opHiliteColor);
        s.colore(giallo);
        s.codice(opHiliteMode);
        s.codice(opRect + 3);
        s.rettangolo(Rect{0, 0, 10, 10});
        s.codice(opRect + 3);   // the mode holds for one figure
        s.rettangolo(Rect{0, 10, 10, 20});
    });
    Tela t(30, 10);
    EXPECT_TRUE(DrawPicture(p, Rect{0, 0, 10, 30}));
    EXPECT_EQ(t.a(5, 5), 0xFFFFFF00U);
    EXPECT_EQ(t.a(15, 5), nero);
    EXPECT_EQ(t.a(25, 5), bianco);
}

TEST(PictReader, aPictureThatBreaksOffIsCrossedOut) {
    const std::string intera = pict(Rect{0, 0, 20, 20}, [](Scrittore& s) {
        s.codice(opRect + 1);
        s.rettangolo(Rect{2, 8, 4, 10});
        s.codice(opRect + 1);
        s.rettangolo(Rect{12, 8, 14, 10});
    });
    const auto esito = [&](std::size_t n, std::uint32_t& angolo) {
        Tela t(20, 20);
        EsitoPict e;
        DrawPicture(std::string_view(intera).substr(0, n), Rect{0, 0, 20, 20}, &e);
        angolo = t.a(0, 0);
        return e;
    };
    std::uint32_t angolo = 0;
    EXPECT_TRUE(esito(intera.size(), angolo).finita);
    EXPECT_EQ(angolo, bianco);
    const EsitoPict senzaFine = esito(intera.size() - 2, angolo);   // only its end is missing: all is there
    EXPECT_FALSE(senzaFine.finita);
    EXPECT_FALSE(senzaFine.rotta);
    EXPECT_EQ(angolo, bianco);
    EXPECT_TRUE(esito(intera.size() - 5, angolo).rotta);
    EXPECT_EQ(angolo, nero);
}

TEST(PictReader, clipHoldsInsideThePortsOwnClip) {
    const std::string p = pict(Rect{0, 0, 20, 20}, [](Scrittore& s) {
        s.codice(opClip);
        s.u16(10);
        s.rettangolo(Rect{0, 0, 10, 20});
        s.codice(opRect + 1);
        s.rettangolo(Rect{0, 0, 20, 20});
    });
    Tela t(20, 20);
    ClipRect(Rect{5, 0, 20, 20});
    DrawPicture(p, Rect{0, 0, 20, 20});
    EXPECT_EQ(t.a(3, 3), bianco);
    EXPECT_EQ(t.a(3, 7), nero);
    EXPECT_EQ(t.a(3, 12), bianco);
    EXPECT_EQ(GetClip().box(), (Rect{5, 0, 20, 20}));
}

TEST(PictReader, unknownAndReservedOpcodesArePassedOver) {
    const std::string p = pict(Rect{0, 0, 10, 10}, [](Scrittore& s) {
        s.codice(0x0035);   // reserved, 8 bytes
        s.u32(0x00FF00FF);
        s.u32(0x00FF00FF);
        s.codice(0x0092);   // reserved, length in front
        s.u16(3);
        s.bytes += "\x00\xFF\x00";
        s.codice(0x00D0);   // reserved, 32-bit length in front
        s.u32(2);
        s.u16(0x00FF);
        s.codice(0x0200);   // four bytes
        s.u32(0x00FF00FF);
        s.codice(0x8100);   // 32-bit length
        s.u32(4);
        s.u32(0x00FF00FF);
        s.codice(opRect + 1);
        s.rettangolo(Rect{0, 0, 10, 10});
    });
    Tela t(10, 10);
    EXPECT_TRUE(DrawPicture(p, Rect{0, 0, 10, 10}));
    EXPECT_EQ(t.a(9, 9), nero);
}

TEST(PictReader, oneBitMapsTakeTheColoursOfTheMomentAndTheirMode) {
    struct Caso {
        std::int16_t modo;
        std::uint32_t chiaro;   // what the clear bits leave on a red ground
    };
    for (const Caso c : {Caso{bitsCopia, bianco}, Caso{bitsOr, rosso}, Caso{bitsTrasparente, rosso}}) {
        const std::string p = pict(Rect{0, 0, 2, 16}, [&](Scrittore& s) {
            bitmap(s, 0x90, Rect{0, 0, 2, 16}, c.modo);
        });
        Tela t(16, 2);
        RGBForeColor(RGBColor{65535, 0, 0});
        PaintRect(Rect{0, 0, 2, 16});
        EXPECT_TRUE(DrawPicture(p, Rect{0, 0, 2, 16}));
        EXPECT_EQ(t.a(0, 0), nero) << c.modo;
        EXPECT_EQ(t.a(15, 0), c.chiaro) << c.modo;
        EXPECT_EQ(t.a(15, 1), nero) << c.modo;
    }
}

TEST(PictReader, regionsOfManyPartsAreTheirPixels) {
    const std::string p = pict(Rect{0, 0, 12, 12}, [](Scrittore& s) {   // a frame of 2 around a hole
        s.codice(opRgn + 1);
        const std::vector<std::int16_t> dati{1, 1, 11,     0x7FFF, 3, 3,  9,      0x7FFF, 9,
                                             3, 9, 0x7FFF, 11,     1, 11, 0x7FFF, 0x7FFF};
        s.u16(static_cast<std::int64_t>(10 + dati.size() * 2));
        s.rettangolo(Rect{1, 1, 11, 11});
        for (const auto d : dati) s.u16(d);
    });
    Tela t(12, 12);
    EXPECT_TRUE(DrawPicture(p, Rect{0, 0, 12, 12}));
    EXPECT_EQ(t.a(1, 1), nero);
    EXPECT_EQ(t.a(2, 5), nero);
    EXPECT_EQ(t.a(5, 5), bianco);
    EXPECT_EQ(t.a(10, 10), nero);
    EXPECT_EQ(t.a(11, 11), bianco);
}

TEST(PictReader, everyCutOfAPictureEndsWithoutHarm) {
    std::vector<std::uint32_t> pixel(70 * 9, rosso);
    for (std::size_t i = 0; i < pixel.size(); i += 3) pixel[i] = nero;
    const std::string intero = PictDaPixel(pixel.data(), 70, 9);
    Tela t(70, 9);
    for (std::size_t n = 0; n < intero.size(); ++n) {
        const std::string taglio = intero.substr(0, n);
        Rect frame;
        double x = 0, y = 0;
        EXPECT_EQ(PictFrame(taglio, frame, x, y), n >= 10);
        PictRaster r;
        PictSoloRaster(taglio, r);
        DrawPicture(taglio, Rect{0, 0, 9, 70});
    }
    EXPECT_TRUE(DrawPicture(intero, Rect{0, 0, 9, 70}));
    EXPECT_EQ(t.a(0, 0), nero);
    EXPECT_EQ(t.a(1, 0), rosso);
}

TEST(PictReader, aFewBytesCannotClaimAGreatRaster) {
    const std::string p = pict(Rect{0, 0, 32767, 32767}, [](Scrittore& s) {
        s.codice(opDirectBitsRect);
        s.u32(0xFF);
        s.u16(0xBFFE);
        s.rettangolo(Rect{-32768, -32768, 32767, 32767});
        s.bytes += std::string("\0\0\0\4\0\0\0\0\0\x48\0\0\0\x48\0\0\0\x10\0\x20\0\3\0\x08", 24);
        s.bytes += std::string(12, '\0');
        for (int i = 0; i < 2; ++i) s.rettangolo(Rect{-32768, -32768, 32767, 32767});
        s.u16(0);
        s.bytes += std::string(64, '\0');
    });
    Tela t(20, 20);
    EXPECT_FALSE(DrawPicture(p, Rect{0, 0, 20, 20}));
    EXPECT_FALSE(RighePict().apri(p));
}

TEST(PictReader, otherProgramsFilesAreRead) {
    const char* dove = std::getenv("TESSARO_DATA");
    const auto cartella = std::filesystem::path(dove == nullptr ? "" : dove) / "pict";
    if (dove == nullptr || !std::filesystem::is_directory(cartella)) {
        std::puts("no folder of real files (TESSARO_DATA): nothing tried");
        return;
    }
    // Damaged on purpose, or of another format under this name.
    const std::vector<std::string> guasti{"synth_bad_truncated.pict", "qdv_polygon-reference.pict"};
    for (const auto& voce : std::filesystem::directory_iterator(cartella)) {
        const std::string nome = voce.path().filename().string();
        if (nome.ends_with(".png")) continue;
        std::ifstream f(voce.path(), std::ios::binary);
        std::string bytes((std::istreambuf_iterator<char>(f)), {});
        if (bytes.size() > 512 && VociPict(bytes.substr(512)).valido()) bytes.erase(0, 512);
        Tela t(300, 200);
        const bool bene = DrawPicture(bytes, Rect{0, 0, 200, 300});
        const bool atteso = std::find(guasti.begin(), guasti.end(), nome) == guasti.end();
        EXPECT_EQ(bene, atteso) << nome;
        if (!atteso) continue;
        const std::uint32_t* p = t.porto.pixels();
        EXPECT_TRUE(std::any_of(p, p + 300 * 200, [](std::uint32_t v) { return v != bianco; })) << nome << " is empty";
    }
}

}   // namespace
