// Steps back and forward: every record, row and picture as it was, whatever the commands between did.
#include "model/Giornale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>

#include "model/Colori.h"
#include "model/Impronta.h"
#include "model/Lucidi.h"
#include "model/Mesh.h"
#include "model/VociDocumento.h"
#include "support/Foglio.h"
#include "support/Passi.h"

using namespace tessaro;
using namespace prova;

namespace {

// All that a step is answerable for.
struct Disegno {
    std::vector<elemento> record;
    std::vector<std::string> righe;
    std::vector<std::string> immagini;

    static Disegno adesso() {
        Disegno d;
        d.record.assign(ArrElementi, ArrElementi + indElem);
        for (elemento& e : d.record) {
            e.selezionato = 0;
            if (e.tipo == tPict) d.immagini.push_back(PictBytes(e.pict.maniglia));
        }
        for (const VoceDocumento& v : VociGiornale())
            if (v.genere <= VoceDocumento::derivata) d.righe.emplace_back(static_cast<const char*>(v.dove), v.byte);
        return d;
    }
    bool operator==(const Disegno& altro) const {
        return record.size() == altro.record.size()
               && std::memcmp(record.data(), altro.record.data(), record.size() * sizeof(elemento)) == 0
               && righe == altro.righe && immagini == altro.immagini;
    }
};

// One random command on the store, as the program's own do it: direct writes, runs that move, pictures that come and go.
class Caso {
    std::mt19937 sorte;

    std::int32_t fino(std::int32_t n) {
        return n <= 0 ? 0 : static_cast<std::int32_t>(sorte() % static_cast<unsigned>(n));
    }
    std::int32_t uno() { return 3 + fino(indElem - 2); }

    void aggiunge() {
        for (std::int32_t n = 1 + fino(40); n > 0; --n) {
            const double x = fino(1000);
            if (fino(12) == 0)
                immagine(x, x, 5, 5, std::string(static_cast<std::size_t>(fino(200)), 'p'));
            else if (fino(3) == 0)
                polilinea({{x, 1}, {x, 2}, {x, 3}});
            else
                segmento(x, fino(5), fino(5), 1);   // often the same one again
        }
    }
    void toglie() {
        if (indElem < 4) return;
        const std::int32_t da = uno(), quanti = 1 + fino(std::min<std::int32_t>(indElem - da + 1, fino(4) ? 3 : 2000));
        for (std::int32_t n = da; n < da + quanti; ++n)
            if (Elem(n).tipo == tPict) KillPicture(Elem(n).pict.maniglia);
        CopiaRecord(da, da + quanti, indElem - da - quanti + 1);
        indElem -= quanti;
    }
    void cambia() {
        if (indElem < 3) return;
        const std::int32_t passo = 1 + fino(fino(2) ? 3 : 300);
        for (std::int32_t n = uno(); n <= indElem; n += passo)
            if (Elem(n).tipo == tSegmento) Elem(n).segm.x1 = -Elem(n).segm.x1, Elem(n).segm.y2 += 1;
    }
    void riordina() {
        if (indElem < 5) return;
        const std::int32_t a = uno(), b = uno(), c = uno();
        std::int32_t n[] = {a, b, c};
        std::sort(n, n + 3);
        std::rotate(&Elem(n[0]), &Elem(n[1]), &Elem(n[2]));
    }
    void sostituisceImmagine() {
        for (std::int32_t n = 3; n <= indElem; ++n) {
            if (Elem(n).tipo != tPict) continue;
            KillPicture(Elem(n).pict.maniglia);
            Elem(n).pict.maniglia = NewPict(std::to_string(fino(1000)));
            return;
        }
    }
    void righe() {
        switch (fino(4)) {
        case 0: VisioneGraf.lucidoCorrente = static_cast<std::int16_t>(fino(100)); break;
        case 1: arrColori[static_cast<std::size_t>(fino(300))].rgb.red = static_cast<std::uint16_t>(fino(60000)); break;
        case 2: meshOrigine.x[fino(100)][fino(100)] = fino(1000); break;
        default: Elem(1).att.x1 = fino(1000);
        }
    }
    void seleziona() {
        for (std::int32_t n = 3; n <= indElem; ++n) Elem(n).selezionato = static_cast<std::uint8_t>(fino(2));
    }

public:
    explicit Caso(unsigned seme) : sorte(seme) {}
    bool alto() { return fino(2) != 0; }
    std::int32_t numero(std::int32_t n) { return fino(n); }

    void comando() {
        for (std::int32_t n = 1 + fino(2); n > 0; --n) {
            switch (fino(8)) {
            case 0:
            case 1: aggiunge(); break;
            case 2:
            case 3: toglie(); break;
            case 4: cambia(); break;
            case 5: riordina(); break;
            case 6: sostituisceImmagine(); break;
            default: righe();
            }
        }
        seleziona();
    }
};

}   // namespace

TEST(Giornale, AThousandRandomCommandsGoAllTheWayBackAndForwardAgain) {
    for (unsigned seme = 1; seme <= 5; ++seme) {
        SCOPED_TRACE(seme);
        fogliovuoto(60000);
        const ConGiornale g;
        Caso caso(seme);
        std::vector<Disegno> stati{Disegno::adesso()};
        for (int i = 0; i < 200; ++i) {
            caso.comando();
            if (ChiudiPasso({})) {
                stati.resize(static_cast<std::size_t>(PassiGiornale()));
                stati.push_back(Disegno::adesso());
            }
            // Now and then some way back, and on from there or forward again.
            for (std::int32_t n = caso.numero(10) ? 0 : caso.numero(5); n > 0 && PassiGiornale() > 0; --n)
                AnnullaPasso();
            if (caso.alto())
                while (RipetiPasso().fatto) {}
            ASSERT_TRUE(Disegno::adesso() == stati[static_cast<std::size_t>(PassiGiornale())]) << i;
        }
        while (RipetiPasso().fatto) {}
        const PicHandle prova = NewPict("");   // numbers do not come again, so none is mistaken for another
        KillPicture(prova);
        for (auto n = stati.size() - 1; n-- > 0;) {
            ASSERT_TRUE(AnnullaPasso().fatto);
            ASSERT_TRUE(Disegno::adesso() == stati[n]) << n;
        }
        EXPECT_FALSE(AnnullaPasso().fatto);
        for (std::size_t n = 1; n < stati.size(); ++n) {
            ASSERT_TRUE(RipetiPasso().fatto);
            ASSERT_TRUE(Disegno::adesso() == stati[n]) << n;
        }
        EXPECT_FALSE(RipetiPasso().fatto);
        EXPECT_FALSE(ChiudiPasso({}));   // walking leaves nothing to store
    }
}

TEST(Giornale, SelectingIsNoStepAndTheFlagsStayWithTheirRecords) {
    fogliovuoto();
    const ConGiornale g;
    for (int i = 0; i < 5; ++i) segmento(i, 0, i, 1);
    ASSERT_TRUE(ChiudiPasso({}));
    Elem(4).selezionato = 1;
    EXPECT_FALSE(ChiudiPasso({}));
    Elem(4).segm.x1 = 50;
    Elem(6).segm.x1 = 60;
    ASSERT_TRUE(ChiudiPasso({}));
    Elem(4).selezionato = 0;
    Elem(6).selezionato = 1;
    const EsitoPasso e = AnnullaPasso();
    EXPECT_TRUE(e.alPosto);
    EXPECT_EQ(Elem(4).segm.x1, 1);
    EXPECT_FALSE(Elem(4).selezionato);
    EXPECT_TRUE(Elem(6).selezionato);
    CopiaRecord(3, 4, 4);   // the first one is deleted: the flag goes along with its record
    --indElem;
    ASSERT_TRUE(ChiudiPasso({}));
    EXPECT_TRUE(Elem(5).selezionato);
    EXPECT_FALSE(AnnullaPasso().alPosto);
    EXPECT_TRUE(Elem(6).selezionato);
    EXPECT_FALSE(Elem(5).selezionato);
}

TEST(Giornale, ADeletedPictureLivesAsLongAsAStepCanBringItBack) {
    fogliovuoto();
    const ConGiornale g;
    const PicHandle h = Elem(immagine(0, 0, 10, 10, "dati")).pict.maniglia;
    ChiudiPasso({});
    KillPicture(h);
    --indElem;
    ChiudiPasso({});
    EXPECT_EQ(PictBytes(h), "dati");
    AnnullaPasso();
    EXPECT_EQ(PictBytes(Elem(3).pict.maniglia), "dati");
    AnnullaPasso();   // before it was imported: still there for the way forward
    EXPECT_EQ(PictBytes(h), "dati");
    segmento(0, 0, 1, 1);
    ChiudiPasso({});   // the way forward is cut
    EXPECT_EQ(PictMemory(), 0);
    const PicHandle breve = NewPict("breve");   // made and given up within one command
    KillPicture(breve);
    EXPECT_EQ(PictMemory(), 0);
}

TEST(Giornale, BeyondItsMemoryTheOldestStepsGo) {
    fogliovuoto(40000);
    memoriaGiornale = 1;
    const ConGiornale g;
    for (int i = 0; i < 5000; ++i) segmento(i, 0, 1, 1);
    ChiudiPasso({});
    for (int passo = 0; passo < 10; ++passo) {
        for (std::int32_t n = 3; n <= indElem; ++n) Elem(n).segm.x1 += 0.25;
        ChiudiPasso({});
        EXPECT_LE(PesoGiornale(), 1024 * 1024);
    }
    EXPECT_EQ(PassiGiornale(), 2);   // 420,000 bytes each
    AnnullaPasso();
    AnnullaPasso();
    EXPECT_EQ(Elem(3).segm.x1, 2);   // after eight of the ten
    EXPECT_FALSE(AnnullaPasso().fatto);
    immagine(0, 0, 1, 1, std::string(3 << 20, 'p'));
    ChiudiPasso({});
    --indElem;
    ChiudiPasso({});
    EXPECT_EQ(PassiGiornale(), 1);   // the last one stays, whatever it weighs
}

TEST(Giornale, ASmallStepCostsLittleWhereverItIs) {
    fogliovuoto(60000);
    for (int i = 0; i < 50000; ++i) segmento(i, 0, 1, 1);
    const ConGiornale g;
    struct Prova {
        const char* nome;
        void (*fai)();
    };
    for (const Prova& p : {Prova{"deletes one at the front",
                                 [] {
                                     CopiaRecord(3, 4, indElem - 3);
                                     --indElem;
                                 }},
                           {"deletes some here and there",
                            [] {
                                std::int32_t scritto = 3;
                                for (std::int32_t n = 3; n <= indElem; ++n)
                                    if (n % 5000 != 0) Elem(scritto++) = Elem(n);
                                indElem = scritto - 1;
                            }},
                           {"brings one to the front", [] { std::rotate(&Elem(100), &Elem(101), &Elem(indElem) + 1); }},
                           {"sends one to the back", [] { std::rotate(&Elem(3), &Elem(40000), &Elem(40001)); }},
                           {"changes first and last", [] {
                                Elem(3).segm.y1 = 7;
                                Elem(indElem).segm.y1 = 7;
                            }}}) {
        const std::int64_t prima = PesoGiornale();
        p.fai();
        ASSERT_TRUE(ChiudiPasso({})) << p.nome;
        EXPECT_LT(PesoGiornale() - prima, 4096) << p.nome;
    }
}

TEST(Impronta, ItSeesASignAndIsBlindToTheFlag) {
    fogliovuoto();
    for (int i = 0; i < 7; ++i) segmento(1, 2, 3, 4, 5, 6);
    for (const std::int32_t quanti : {1, 2, 7}) {
        const std::uint64_t prima = ImprontaRecord(&Elem(3), quanti);
        for (std::int32_t n = 3; n < 3 + quanti; ++n) Elem(n).selezionato = 1;
        EXPECT_EQ(ImprontaRecord(&Elem(3), quanti), prima);
        auto& s = Elem(2 + quanti).segm;
        for (f64* a : {&s.x1, &s.y1, &s.z1, &s.x2, &s.y2, &s.z2})
            for (f64* b : {&s.x1, &s.y1, &s.z1, &s.x2, &s.y2, &s.z2}) {   // nor do two signs cancel out
                *a = -*a;
                if (a != b) *b = -*b;
                EXPECT_NE(ImprontaRecord(&Elem(3), quanti), prima);
                *a = -*a;
                if (a != b) *b = -*b;
            }
        EXPECT_EQ(ImprontaRecord(&Elem(3), quanti), prima);
    }
}
