// What comes out on paper: lengths, places, widths, pages. Measured in the PDF by another program.
#include "display/Stampa.h"

#include <gtest/gtest.h>

#include <cmath>

#include "display/Disegno.h"
#include "display/StampaPiastrelle.h"
#include "model/Carattere.h"
#include "model/Documento.h"
#include "model/Lucidi.h"
#include "model/Penna.h"
#include "model/Unita.h"
#include "model/Vista.h"
#include "platform/pict/Pict.h"
#include "support/Avvisi.h"
#include "support/Carta.h"
#include "support/Foglio.h"

using namespace tessaro;
using namespace prova;

namespace {

constexpr double decimo = 0.1;   // mm

void foglio(std::int16_t larghezza, std::int16_t altezza) {
    fogliovuoto();
    XFDecimi = larghezza;
    YFDecimi = altezza;
}

Rect pagina(std::int32_t w, std::int32_t h) { return Rect{0, 0, h, w}; }

}   // namespace

TEST(Stampa, ASheetFallsIntoPagesByWholePointsAndOneMore) {
    struct Caso {
        std::int16_t x, y;   // sheet, tenths of a millimetre
        Rect pagina;         // points
        std::int32_t colonne, righe;
    };
    const Caso casi[] = {
        {2100, 2970, pagina(595, 842), 2, 2},     // fits exactly: one more of each
        {2090, 2960, pagina(595, 842), 1, 1},     // a little smaller
        {8410, 5940, pagina(595, 842), 5, 3},     // A1 across on A4
        {8410, 5940, pagina(2551, 1984), 1, 1},   // on one great sheet
        {2540, 2540, pagina(360, 720), 3, 2},     // 720 points: exact multiples
        {2540, 2540, pagina(361, 721), 2, 1},   {10, 10, pagina(595, 842), 1, 1},
    };
    for (const Caso& c : casi) {
        XFDecimi = c.x;
        YFDecimi = c.y;
        const Piastrelle p = PiastrelleDi(c.pagina, {});
        EXPECT_EQ(p.colonne, c.colonne) << c.x << " on " << c.pagina.right;
        EXPECT_EQ(p.righe, c.righe) << c.y << " on " << c.pagina.bottom;
        EXPECT_EQ(p.passoH, c.pagina.right);
        EXPECT_EQ(p.scala, 1.0);
    }
}

TEST(Stampa, ChoicesChangeTheGridAsTheySay) {
    XFDecimi = 8410;
    YFDecimi = 5940;
    ScelteStampa s;
    s.sovrapposte = 1;
    Piastrelle p = PiastrelleDi(pagina(595, 842), s);
    EXPECT_EQ(p.passoH, 595 - 28);
    EXPECT_EQ(p.larga, 595);
    s.crocini = 1;
    p = PiastrelleDi(pagina(595, 842), s);
    EXPECT_EQ(p.larga, 595 - 46);
    EXPECT_EQ(p.passoV, 842 - 46 - 28);
    s.strisciaMm = 100;   // a strip wider than the page still leaves progress
    EXPECT_GE(PiastrelleDi(pagina(100, 100), s).passoH, 1);
    s = {};
    s.unaPagina = 1;
    p = PiastrelleDi(pagina(842, 595), s);
    EXPECT_EQ(p.pagine(), 1);
    EXPECT_NEAR(p.scala * 8410 * 72 / 254, 842, 2);
    XFDecimi = 1000;
    YFDecimi = 1000;
    EXPECT_EQ(PiastrelleDi(pagina(842, 595), s).scala, 1.0);   // never enlarged
}

TEST(Stampa, OnlyPagesThatNothingTouchesAreEmpty) {
    foglio(4200, 2970);
    const Piastrelle p = PiastrelleDi(pagina(595, 842), {});   // 3 columns, 2 rows
    ASSERT_EQ(p.colonne, 3);
    const auto piene = [&] {
        std::string s;
        for (std::int32_t n = 1; n <= p.pagine(); ++n) s += PiastrellaVuota(p, n) ? '.' : '#';
        return s;
    };
    EXPECT_EQ(piene(), "......");
    segmento(100, 100, 200, 200);
    EXPECT_EQ(piene(), "#.....");
    segmento(100, 4000, 4300, 6100);   // its box covers more than it does
    EXPECT_EQ(piene(), "#..##.");
    Elem(4).lucido = 7;
    VisioneGraf.visibile[7] = 0;
    EXPECT_EQ(piene(), "#.....");
}

TEST(Stampa, AnA1DrawingIsTrueToATenthOfAMillimetre) {
    SENZA_POPPLER_SALTA;
    foglio(8410, 5940);
    segmento(50, 50, 8360, 50);
    segmento(50, 50, 50, 5890);
    segmento(8360.4, 2000, 8360.4, 5890);
    segmento(1234.5, 1000, 1234.5, 1100);
    cerchio(4000, 3000, 1000);
    const Pdf pdf;
    ASSERT_EQ(pdf.stampa(900, 650), 0);
    ASSERT_EQ(pdf.pagine(), 1);
    constexpr double dpi = 1016;   // 0.025 mm
    const auto presso = [&](double x, double y) { return pdf.resa(1, dpi, x - 2, y - 2, 4, 4).inchiostro(); };
    EXPECT_NEAR(presso(836, 5).x2, 836, decimo);   // ends of the long lines
    EXPECT_NEAR(presso(5, 589).y2, 589, decimo);
    const auto destra = presso(836.04, 589);
    EXPECT_NEAR((destra.x1 + destra.x2) / 2, 836.04, decimo / 2);
    EXPECT_NEAR(destra.y2, 589, decimo);
    const auto corta = pdf.resa(1, dpi, 122, 98, 4, 14).inchiostro();
    EXPECT_NEAR((corta.x1 + corta.x2) / 2, 123.45, decimo / 2);
    EXPECT_NEAR(corta.y2 - corta.y1, 10, decimo);
    const auto sinistra = presso(300, 300), sotto = presso(400, 400);   // of the circle
    EXPECT_NEAR(sinistra.x1, 300 - 0.125, decimo);
    EXPECT_NEAR(sotto.y2, 400 + 0.125, decimo);
}

TEST(Stampa, APenPrintsAsWideAsItsPixelsTimesThePenOfThePaper) {
    SENZA_POPPLER_SALTA;
    for (const double penna : {2.5, 1.0}) {
        foglio(2000, 500);
        SpessorePenna = penna;
        for (const std::int16_t n : std::initializer_list<std::int16_t>{1, 3, 9}) {
            spessore = n;
            segmento(100.0 + 200 * n, 100, 100 + 200 * n, 300);
        }
        const Pdf pdf;
        ASSERT_EQ(pdf.stampa(220, 100), 0);
        for (const int n : {1, 3, 9}) {
            const auto e = pdf.resa(1, 2032, 10 + 20.0 * n - 5, 19, 10, 1).inchiostro();
            EXPECT_NEAR(e.x2 - e.x1, n * penna / 10, 0.03) << n;
            EXPECT_NEAR((e.x2 + e.x1) / 2, 10 + 20.0 * n, 0.03) << n;
        }
    }
}

TEST(Stampa, PagesJoinWithoutASeam) {
    SENZA_POPPLER_SALTA;
    foglio(3000, 2000);
    segmento(20, 30, 2950, 1950);
    cerchio(1500, 1000, 800);
    NumAreaPat = 4;
    polilinea({{300, 300}, {2700, 500}, {2400, 1800}, {300, 300}});
    testo(900, 700, "across the pages");
    const Pdf intero, pagine;
    ASSERT_EQ(intero.stampa(400, 300), 0);
    ASSERT_EQ(pagine.stampa(120, 100), 0);
    constexpr double dpi = 144;
    const Resa tutta = intero.resa(1, dpi);
    const Piastrelle p = PiastrelleDi(rectgr, {});
    ASSERT_EQ(pagine.pagine(), p.pagine());
    int diversi = 0;
    for (int n = 1; n <= p.pagine(); ++n) {
        const Resa r = pagine.resa(n, dpi);
        const int dx = p.colonna(n) * p.passoH * 2, dy = p.riga(n) * p.passoV * 2;   // 2 pixels a point
        for (int y = 0; y < r.alta && y + dy < tutta.alta; ++y)
            for (int x = 0; x < r.larga && x + dx < tutta.larga; ++x)
                diversi += std::abs(r.in(x, y) - tutta.in(x + dx, y + dy)) > 64;
    }
    EXPECT_EQ(diversi, 0);
}

TEST(Stampa, APageRangeLimitsWhatIsDrawnAndNotTheNumbers) {
    SENZA_POPPLER_SALTA;
    foglio(2970, 2100);
    testo(100, 200, "uno");
    testo(2200, 200, "due");
    testo(100, 1900, "terzo");
    const Pdf tutte, due;
    ASSERT_EQ(tutte.stampa(200, 150), 0);
    EXPECT_EQ(tutte.pagine(), 4);
    ASSERT_EQ(due.stampa(200, 150, 2, 3), 0);
    EXPECT_EQ(due.pagine(), 2);
    EXPECT_EQ(diConsole("pdftotext -f 1 -l 1 " + due.percorso + " -").substr(0, 3), "due");
    EXPECT_EQ(diConsole("pdftotext -f 2 -l 2 " + due.percorso + " -").substr(0, 5), "terzo");
    EXPECT_EQ(due.stampa(200, 150, 7, 9), kPMInvalidPageRange);
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9145});
    EXPECT_EQ(due.pagine(), 2);   // the file that was there stays
}

TEST(Stampa, TurnedTextsAreLettersAtTheirAngle) {
    SENZA_POPPLER_SALTA;
    foglio(2000, 2000);
    gFontSize = 24;
    testo(1000, 1000, "diritto", 100);
    testo(1000, 1000, "dritto", 200);   // a quarter turn clockwise, in the angle system of a new drawing
    testo(300, 1500, "obliquo", 133);
    const Pdf pdf;
    ASSERT_EQ(pdf.stampa(210, 297), 0);
    const std::string parole = diConsole("pdftotext " + pdf.percorso + " -");
    for (const char* p : {"diritto", "dritto"}) EXPECT_NE(parole.find(p), std::string::npos) << p;
    const auto giu = pdf.resa(1, 254, 95, 100.5, 20, 60).inchiostro();
    EXPECT_GT(giu.y2 - giu.y1, 2 * (giu.x2 - giu.x1));
    EXPECT_NEAR(giu.x1, 100, 3.0);
    const auto obliquo = pdf.resa(1, 254, 25, 145, 60, 60).inchiostro();
    EXPECT_GT(obliquo.x2 - obliquo.x1, 10);
    EXPECT_GT(obliquo.y2 - obliquo.y1, 5);
}

TEST(Stampa, APictureKeepsItsOwnPixels) {
    SENZA_POPPLER_SALTA;
    foglio(2100, 2970);
    std::vector<std::uint32_t> pixel(900 * 600);
    for (std::size_t i = 0; i < pixel.size(); ++i)
        pixel[i] = 0xFF000000U | static_cast<std::uint32_t>(i * 2654435761U >> 8);
    immagine(300, 400, 762, 508, PictDaPixel(pixel.data(), 900, 600));   // 300 an inch
    const Pdf pdf;
    ASSERT_EQ(pdf.stampa(297, 420), 0);
    const std::string elenco = diConsole("pdfimages -list " + pdf.percorso);
    int pag = 0, num = 0, w = 0, h = 0;
    const std::size_t riga = elenco.find('\n', elenco.find("---"));
    ASSERT_EQ(std::sscanf(elenco.c_str() + riga, "%d %d %*s %d %d", &pag, &num, &w, &h), 4) << elenco;
    EXPECT_EQ(w, 900);
    EXPECT_EQ(h, 600);
    const auto e = pdf.resa(1, 508, 25, 35, 90, 70).inchiostro();
    EXPECT_NEAR(e.x1, 30, 2 * decimo);
    EXPECT_NEAR(e.y2, 90.8, 2 * decimo);
}

TEST(Stampa, TheViewIsAsItWasAndTheScreenComesBackWithTheNextCommand) {
    foglio(2100, 2970);
    scalavid = 0.37;
    ScalaTesto = 1.25;
    OrigX = 41;
    OrigY = -17;
    GrafPtr prima = GetPort();
    const Pdf pdf;
    ASSERT_EQ(pdf.stampa(210, 297), 0);
    EXPECT_EQ(scalavid, 0.37);
    EXPECT_EQ(ScalaTesto, 1.25);
    EXPECT_EQ(OrigX, 41);
    EXPECT_EQ(OrigY, -17);
    EXPECT_EQ(GetPort(), prima);
    EXPECT_EQ(StoStampando, 0);
    EXPECT_EQ(DisegnaPict, 1);
    EXPECT_TRUE(DopoStampa());
    EXPECT_EQ(DisegnaPict, 0);
    EXPECT_FALSE(DopoStampa());
}

TEST(Stampa, AFileThatCannotBeWrittenIsSaid) {
    foglio(2100, 2970);
    Pdf pdf;
    pdf.percorso = "/nowhere/at/all.pdf";
    EXPECT_EQ(pdf.stampa(210, 297), kPMGeneralError);
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9145});
    PMPrintSettings s;   // neither printer nor file
    PMFlattenPrintSettings(s, hPrintSettings);
    EXPECT_EQ(DoPrint(), kPMNoDefaultPrinter);
}

TEST(Stampa, MarksNumberAndRulerStandInTheRim) {
    SENZA_POPPLER_SALTA;
    foglio(3000, 2000);
    NomeLavoro = "Mappa";
    scelteStampa.crocini = scelteStampa.numeri = scelteStampa.righello = 1;
    const Pdf pdf;
    ASSERT_EQ(pdf.stampa(250, 180), 0);
    const std::string parole = diConsole("pdftotext -f 2 -l 2 " + pdf.percorso + " -");
    EXPECT_NE(parole.find("Mappa - page 2 of 4, row 1, column 2"), std::string::npos) << parole;
    EXPECT_NE(parole.find("100 mm"), std::string::npos);
    // The ruler's line, below the drawing on the right: it ends a crop mark's length before the rim.
    const auto e = pdf.resa(4, 1016, 100, 180 - 8.1, 150, 7).inchiostro();
    const auto segno = pdf.resa(1, 1016, 0, 0, 7, 12).inchiostro();
    EXPECT_LT(segno.x1, 4);
    EXPECT_GT(e.x2 - e.x1, 100);
}

TEST(Stampa, FlattenedFormsComeBackAndDamagedOnesAreHeldToBounds) {
    PMPageFormat f{841, 594, 5, 6, 7, 8.5}, g;
    std::string piatto;
    PMFlattenPageFormat(f, piatto);
    EXPECT_TRUE(PMUnflattenPageFormat(piatto, g));
    EXPECT_EQ(g.larghezza, 841);
    EXPECT_EQ(g.sotto, 8.5);
    bool cambiato = false;
    EXPECT_FALSE(PMUnflattenPageFormat("nothing of the kind\n\n", g));
    PMUnflattenPageFormat("width 3\nheight nan\nleft 900\nright -4\n", g);
    PMSessionValidatePageFormat(nullptr, g, cambiato);
    EXPECT_TRUE(cambiato);
    EXPECT_EQ(g.larghezza, 10);
    EXPECT_EQ(g.altezza, 297);
    EXPECT_EQ(g.destra, 0);
    PMPrintSettings s, t;
    s.copie = 3;
    s.luogo = "/tmp/a b.pdf";
    s.stampante = "Plotter at the left";
    PMFlattenPrintSettings(s, piatto);
    EXPECT_TRUE(PMUnflattenPrintSettings(piatto, t));
    EXPECT_EQ(t.copie, 3);
    EXPECT_EQ(t.luogo, s.luogo);
    EXPECT_EQ(t.stampante, s.stampante);
}
