// The preview of the live transformation: what it shows is what its copies would be, and the marks of its points.
#include "digitising/AttaccoAggiungi.h"
#include "display/AttacchiMarche.h"
#include "display/Scena.h"

#include "display/Disegno.h"
#include "display/RiquadroTesto.h"
#include "display/Sovrapposto.h"
#include "model/Selezione.h"
#include "support/Attacco.h"

using namespace tessaro;
using namespace prova;

namespace {

constexpr Quad casa{{{20, 90}, {20, 20}, {110, 20}, {110, 90}}};
constexpr Quad spostata{{{220, 290}, {220, 220}, {310, 220}, {310, 290}}};
constexpr Quad girata{{{220, 220}, {360, 220}, {360, 400}, {220, 400}}};   // a quarter turn, twice the size
constexpr Quad sopra{{{10, 115}, {25, 10}, {125, 30}, {145, 105}}};        // lies over the source: only lines agree
constexpr Quad inFuga{{{210, 380}, {240, 210}, {330, 230}, {390, 390}}};

void togliArea(elemento& e) {
    if (e.tipo == tPoligono) e.poli.patternArea = 0;
    if (e.tipo == tCerchio) e.cerc.patternArea = 0;
    if (e.tipo == tArco) e.arco.patternArea = 0;
}

}   // namespace

TEST(Anteprima, ItShowsWhatTheCopiesWouldBe) {
    using Fai = std::int32_t (*)();
    const struct {
        const char* nome;
        Fai fai;
    } figure[] = {
        {"segment", [] { return segmento(30, 30, 90, 70); }},
        {"marker", [] { return marker(50, 60); }},
        {"polygon",
         [] {
             const std::int32_t n = polilinea({{30, 30}, {100, 40}, {60, 80}, {30, 30}});
             Elem(n).poli.patternArea = 4;
             return n;
         }},
        {"circle",
         [] {
             const std::int32_t n = cerchio(60, 55, 20);
             Elem(n).cerc.patternArea = 4;
             return n;
         }},
        {"arc",
         [] {
             const std::int32_t n = arco(60, 55, 25, 30, 100);
             Elem(n).arco.patternArea = 4;
             return n;
         }},
        {"text",
         [] {
             const std::int32_t n = testo(40, 50, "Via");
             Elem(n).test.altezza = Elem(n).test.dimensione = 12;
             Elem(n).test.larghezza = 30;
             return n;
         }},
    };
    const struct {
        const char* nome;
        std::int32_t tipo;
        const Quad& dst;
    } modi[] = {{"moved", 0, spostata}, {"turned", 0, girata}, {"four points", 1, inFuga}, {"five points", 2, sopra}};
    for (const auto& m : modi) {
        for (const auto& f : figure) {
            if (std::string_view(f.nome) == "text" && m.tipo != 0) continue;   // sized by its base line, not its height
            SCOPED_TRACE(testing::Message() << f.nome << ", " << m.nome);
            Scena scena(420, 420);
            xAttacco5 = 60;
            yAttacco5 = 50;
            preparaAttacco(m.tipo, casa, m.dst);
            const std::int32_t n = f.fai();
            if (m.tipo == 2) togliArea(Elem(n));
            Disegna();
            const int senza = scena.quanti(bianco);
            scena.pulisci();
            attaccoAttivo.SetModificato(1);
            Disegna();
            const auto anteprima = scena.immagine();
            EXPECT_LT(scena.quanti(bianco), senza);
            attaccoAttivo.SetModificato(0);
            Puntosel.indice = n;
            AggiungiElemento(Elem(n).lucido);
            scena.pulisci();
            Disegna();
            EXPECT_TRUE(scena.immagine() == anteprima);
        }
    }
}

TEST(Anteprima, AHighlightStandsWhereAFigureLiesAndWhereItWouldLand) {
    Scena scena(420, 420);
    preparaAttacco(0, casa, spostata);
    attaccoAttivo.SetModificato(1);
    const std::int32_t figure[] = {segmento(30, 30, 90, 70), polilinea({{30, 30}, {100, 40}}),
                                   cerchio(60, 55, 20),      arco(60, 55, 25, 30, 100),
                                   testo(40, 50, "Via"),     marker(70, 40)};
    Elem(figure[4]).test.altezza = Elem(figure[4]).test.larghezza = 30;
    for (const std::int32_t n : figure) {
        Puntosel = {1, 0, 1, OggettoDi(Elem(n).tipo), n};
        scena.pulisci();
        DipingiEvidenza();
        int qui = 0, altrove = 0;
        for (std::int32_t y = 0; y < 220; ++y) {
            for (std::int32_t x = 0; x < 220; ++x) {
                qui += !scena.e(x, y, bianco);
                if (x + 200 < 420 && y + 200 < 420) altrove += !scena.e(x + 200, y + 200, bianco);
            }
        }
        EXPECT_GT(qui, 0) << int{Elem(n).tipo};
        EXPECT_NEAR(altrove, qui, qui / 4.0) << int{Elem(n).tipo};   // the grey falls differently
        DipingiEvidenza();
        EXPECT_EQ(scena.quanti(bianco), 420 * 420) << int{Elem(n).tipo};
    }
}

TEST(Anteprima, TheMarksAreThoseOfTheMode) {
    for (std::int32_t tipo = 0; tipo <= 2; ++tipo) {
        Scena scena(400, 100);
        attaccoAttivo.tipo = tipo;
        constexpr double posti[5] = {20, 90, 160, 230, 300};
        for (std::int16_t i = 0; i < 5; ++i) attaccoAttivo.SetXYAtt(i, posti[i], 40);
        attaccoAttivo.lavoro.dstC = {300, 80};   // the black dot goes with the solver's centre
        DisAttacchiDin();
        const auto inchiostro = [&](double cx, double cy) {
            int n = 0;
            for (int y = -5; y <= 5; ++y)
                for (int x = -5; x <= 5; ++x) n += !scena.e(static_cast<int>(cx) + x, static_cast<int>(cy) + y, bianco);
            return n;
        };
        for (int i = 0; i < 5; ++i) {
            const bool c = i < 2 || (i < 4 && tipo > 0) || tipo == 2;
            EXPECT_EQ(inchiostro(posti[i], 40) > 0, c) << "mode " << tipo << ", point " << i + 1;
        }
        EXPECT_EQ(inchiostro(300, 80) > 0, tipo == 2);
        EXPECT_EQ(scena.e(300, 80, nero), tipo == 2);
    }
}
