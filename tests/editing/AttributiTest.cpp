// Attribute changes on the selection: what each type takes, what can be undone, what beeps.
#include "editing/AttributiSel.h"

#include <gtest/gtest.h>

#include "../support/Foglio.h"
#include "display/Tratteggi.h"
#include "editing/Aref.h"
#include "editing/LucidiClassi.h"
#include "editing/Selezionati.h"
#include "model/Annulla.h"
#include "support/Avvisi.h"

using namespace tessaro;
using namespace prova;

namespace {

// One of each: segment 3, marker 4, head 5 with vertices 6 and 7, text 8, circle 9, arc 10, picture 11.
void unoPerTipo() {
    fogliovuoto();
    segmento(0, 0, 10, 10);
    marker(5, 5);
    polilinea({{0, 0}, {10, 0}, {10, 10}});
    testo(1, 1, "abc");
    cerchio(5, 5, 3);
    arco(5, 5, 3, 0, 90);
    immagine(0, 0, 10, 10, "");
}

void seleziona(std::int32_t n, std::int32_t oggetto) {
    Puntosel.attiva = 1;
    Puntosel.multipla = 0;
    Puntosel.numSel = 1;
    Puntosel.oggetto = oggetto;
    Puntosel.indice = n;
    Elem(n).selezionato = 1;
}

void selezionaTutti() {
    for (std::int32_t n = 3; n <= indElem; ++n) Elem(n).selezionato = 1;
    Puntosel.attiva = Puntosel.multipla = 1;
    Puntosel.numSel = indElem - 2;
    Puntosel.indice = 3;
}

// The records in the order above, one character each: 'x' where the field holds the value, '.' where not or none.
std::string dove(f16* (*campoDi)(elemento&), std::int16_t valore) {
    std::string s;
    for (std::int32_t n = 3; n <= indElem; ++n) {
        const f16* campo = campoDi(Elem(n));
        s += campo != nullptr && *campo == valore ? 'x' : '.';
    }
    return s;
}

}   // namespace

TEST(AttributiSel, EachTypeTakesTheFieldsThatItHas) {
    struct Caso {
        void (*cambia)(std::int16_t);
        f16* (*campoDi)(elemento&);
        const char* presi;
    };
    for (const Caso& c :
         {Caso{CambiaColoreSel, ColoreDi, "xxx..xxx."}, Caso{CambiaSpessSel, SpessoreDi, "xxx...xx."},
          Caso{CambiaRetSel, PatternDi, "xxx...xx."}, Caso{CambiaRetAreaSel, PatternAreaDi, "..x...xx."}}) {
        unoPerTipo();
        const std::vector<elemento> prima(&Elem(1), &Elem(indElem) + 1);
        selezionaTutti();
        PoniAnnulla(aAggiunta);
        c.cambia(6);
        EXPECT_EQ(dove(c.campoDi, 6), c.presi);
        EXPECT_EQ(annullamento, aNiente);   // several cannot be undone
        for (std::int32_t n = 3; n <= indElem; ++n) {
            // nothing but that field has changed
            elemento e = Elem(n), p = prima[static_cast<std::size_t>(n - 1)];
            p.selezionato = 1;
            if (f16* campo = c.campoDi(e)) *campo = *c.campoDi(p);
            EXPECT_EQ(std::memcmp(&e, &p, sizeof e), 0) << n;
        }
    }
}

TEST(AttributiSel, OneElementIsUndoneAndDoneAgain) {
    unoPerTipo();
    seleziona(9, oCerchio);
    CambiaColoreSel(4);
    CambiaSpessSel(7);
    EXPECT_EQ(annullamento, aElemento);
    EXPECT_TRUE(EseguiAnnulla());
    EXPECT_EQ(Elem(9).cerc.spessore, 1);
    EXPECT_EQ(Elem(9).cerc.colore, 4);   // one step only
    EXPECT_TRUE(EseguiAnnulla());
    EXPECT_EQ(Elem(9).cerc.spessore, 7);
}

TEST(AttributiSel, AnUnsuitableSelectionBeepsAndKeepsTheUndo) {
    struct Caso {
        void (*cambia)(std::int16_t);
        std::int32_t n, oggetto;
        int suoni;
    };
    for (const Caso& c : {Caso{CambiaSpessSel, 8, oTesto, 1}, Caso{CambiaColoreSel, 11, oPict, 1},
                          Caso{CambiaRetAreaSel, 3, oSegmento, 1}, Caso{CambiaColoreSel, 8, oTesto, 0},
                          Caso{CambiaColoreSel, 3, oMeshOrigine, 1}}) {
        prova::suoni = 0;
        unoPerTipo();
        seleziona(c.n, c.oggetto);
        PoniAnnulla(aAggiunta);
        c.cambia(5);
        EXPECT_EQ(prova::suoni, c.suoni);
        EXPECT_EQ(annullamento, c.suoni ? aAggiunta : aElemento);
    }
}

TEST(AttributiSel, TagsGoToTheNamedTypeOnly) {
    prova::suoni = 0;
    unoPerTipo();
    selezionaTutti();
    const Aref tredici{13, 'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h', 'i', 'j', 'k', 'l', 'm'};
    CambiaAREF(tPoligono, tredici);
    for (std::int32_t n = 3; n <= indElem; ++n) {
        if (Elem(n).tipo == tTesto) continue;
        EXPECT_EQ(Elem(n).testa.aref == tredici, n == 5) << n;
    }
    EXPECT_EQ(prova::suoni, 0);
    seleziona(5, oPoligono);
    CambiaAREF(tCerchio, tredici);
    EXPECT_EQ(prova::suoni, 1);
}

TEST(AttributiSel, SheetsAndClasses) {
    prova::suoni = 0;
    unoPerTipo();
    const elemento testoPrima = Elem(8);
    seleziona(5, oPoligono);
    CambiaLucido(42);
    EXPECT_EQ(Elem(5).lucido, 42);
    EXPECT_EQ(Elem(6).lucido, 0);   // the vertices stay where they were
    EXPECT_EQ(Puntosel.attiva, 1);
    CambiaClass(1, 200);
    CambiaClass(2, 201);
    EXPECT_EQ(Elem(5).testa.categoria, 200);
    EXPECT_EQ(Elem(5).testa.insieme, 201);
    EXPECT_EQ(Elem(6).testa.categoria, 1);
    EXPECT_EQ(prova::suoni, 0);
    seleziona(8, oTesto);
    CambiaClass(1, 9);
    EXPECT_EQ(prova::suoni, 1);
    for (std::int32_t n = 3; n <= indElem; ++n) Elem(n).selezionato = n == 8;
    Puntosel.multipla = 1;
    CambiaClass(2, 9);
    EXPECT_EQ(prova::suoni, 2);
    elemento t = Elem(8);
    t.selezionato = testoPrima.selezionato;
    EXPECT_EQ(std::memcmp(&t, &testoPrima, sizeof t), 0);
    AzzeraPuntosel();
    CambiaLucido(3);
    EXPECT_EQ(prova::suoni, 3);
}

TEST(AttributiSel, ANewHeadTakesTheTemplatesHatch) {
    fogliovuoto();
    TrattCorrente.poli.passoTratt = 0.5;
    TrattCorrente.poli.angoloTratt = 1.5;
    TrattCorrente.poli.tratteggio = 1;
    const std::int32_t testa = polilinea({{0, 0}, {10, 0}});
    TratteggiaNuovo(testa);
    EXPECT_EQ(Elem(testa).poli.passoTratt, 0.5);
    EXPECT_EQ(Elem(testa).poli.tratteggio, 1);
    EXPECT_EQ(Elem(testa).poli.numVertici, 1);
}
