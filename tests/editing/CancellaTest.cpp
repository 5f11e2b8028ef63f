// Deleting and reordering: which records end where, with and without room behind them.
#include "editing/Cancella.h"

#include <vector>

#include "../display/Scena.h"
#include "editing/AnnullaComando.h"
#include "editing/Scelta.h"
#include "model/Annulla.h"
#include "model/Selezione.h"

using namespace tessaro;
using namespace prova;

namespace {

// Each record shows who it is by its sheet number.
void numera() {
    for (std::int32_t i = 3; i <= indElem; ++i) Elem(i).lucido = i16(i);
}
std::vector<int> ordine(std::int32_t fino) {
    std::vector<int> v;
    for (std::int32_t i = 3; i <= fino; ++i) v.push_back(Elem(i).lucido);
    return v;
}
void scegli(std::initializer_list<std::int32_t> numeri) {
    for (const std::int32_t n : numeri) {
        Elem(n).selezionato = 1;
        Puntosel.oggetto = Elem(n).tipo == tPoligono ? oPoligono : oSegmento;
        Puntosel.indice = n;
    }
    Puntosel.attiva = 1;
    Puntosel.numSel = static_cast<std::int32_t>(numeri.size());
    Puntosel.multipla = numeri.size() > 1;
}
// Records 3 and 4 segments, 5 to 7 a polyline, 8 a segment.
void seiRecord() {
    segmento(1, 1, 2, 2);
    segmento(1, 1, 2, 2);
    polilinea({{1, 1}, {2, 2}, {3, 3}});
    segmento(1, 1, 2, 2);
    numera();
}

}   // namespace

TEST(Cancella, TheDeletedLieBehindTheRestInTheirOldOrderAndComeBackThere) {
    struct Caso {
        std::initializer_list<std::int32_t> scelti;
        std::vector<int> dopo;
        std::int32_t tolti;
    };
    for (const Caso& c : {Caso{{3}, {4, 5, 6, 7, 8, 3}, 1},
                          {{8}, {3, 4, 5, 6, 7, 8}, 1},
                          {{5}, {3, 4, 8, 5, 6, 7}, 3},
                          {{3, 5}, {4, 8, 3, 5, 6, 7}, 4},
                          {{4, 8}, {3, 5, 6, 7, 4, 8}, 2},
                          {{3, 4, 5, 8}, {3, 4, 5, 6, 7, 8}, 6}}) {
        const Scena s;
        NessunaSelezione();
        annullamento = aNiente;
        seiRecord();
        scegli(c.scelti);
        CancellaSelezione();
        EXPECT_EQ(indElem, 8 - c.tolti);
        EXPECT_EQ(AnnullaIndElem, 8);
        EXPECT_EQ(annullamento, aCancella);
        EXPECT_FALSE(Puntosel.attiva);
        EXPECT_EQ(ordine(8), c.dopo);
        AnnullaUltima();
        EXPECT_EQ(indElem, 8);
        EXPECT_EQ(annullamento, aAggiunta);
        for (std::int32_t i = 3; i <= 8; ++i) EXPECT_FALSE(Elem(i).selezionato) << i;
    }
}

TEST(Cancella, WithoutSelectionOnlyTheUndoGoes) {
    const Scena s;
    seiRecord();
    annullamento = aAggiunta;
    CancellaSelezione();
    EXPECT_EQ(indElem, 8);
    EXPECT_EQ(annullamento, aNiente);
    EXPECT_EQ(AnnullaIndElem, 8);
}

TEST(Cancella, WithoutRoomItDeletesForGoodAndGivesPicturesUp) {
    struct Caso {
        std::int32_t capacita;
        std::initializer_list<std::int32_t> scelti;
        bool tornabile;
    };
    for (const Caso& c : {Caso{8, {4}, true},   // turned round in place
                          {11, {5}, false},     // a polyline wants a record to spare
                          {12, {5}, true},
                          {9, {3, 8}, false},
                          {10, {3, 8}, true},
                          {12, {3, 5}, false},
                          {13, {3, 5}, true}}) {
        const Scena s;
        fogliovuoto(c.capacita);
        seiRecord();
        scegli(c.scelti);
        CancellaSelezione();
        EXPECT_EQ(annullamento, c.tornabile ? aCancella : aNiente) << c.capacita;
        EXPECT_LT(indElem, 8);
        EXPECT_LE(indElem, 7);
    }
    const Scena s;
    fogliovuoto(5);
    segmento(1, 1, 2, 2);
    segmento(1, 1, 2, 2);
    const std::int32_t n = immagine(1, 1, 5, 5, "dati");
    const PicHandle h = Elem(n).pict.maniglia;
    scegli({3, n});
    CancellaSelezione();
    EXPECT_EQ(indElem, 3);
    EXPECT_EQ(annullamento, aNiente);
    EXPECT_TRUE(PictBytes(h).empty());
}

TEST(Cancella, AParkedPictureStaysUntilTheNextOperation) {
    const Scena s;
    segmento(1, 1, 2, 2);
    const std::int32_t n = immagine(1, 1, 5, 5, "dati");
    const PicHandle h = Elem(n).pict.maniglia;
    scegli({n});
    Puntosel.oggetto = oPict;
    CancellaSelezione();
    EXPECT_EQ(PictBytes(h), "dati");
    AnnullaUltima();
    EXPECT_EQ(PictBytes(Elem(n).pict.maniglia), "dati");
    AnnullaUltima();
    PoniAnnulla(aNiente);
    EXPECT_TRUE(PictBytes(h).empty());
}

TEST(Cancella, VerticesFlaggedWithoutTheirHeadStayWithIt) {
    const Scena s;
    seiRecord();
    SelezionaTutto();
    Elem(5).selezionato = 0;   // the polyline taken off by Shift
    CancellaSelezione();
    EXPECT_EQ(indElem, 5);
    EXPECT_EQ(ordine(5), (std::vector<int>{5, 6, 7}));
}

TEST(Ordine, ToTheEndAndToTheBeginningInTheirOldOrder) {
    for (const bool avanti : {true, false}) {
        const Scena s;
        NessunaSelezione();
        seiRecord();
        annullamento = aSposta;
        scegli({3, 5});
        AvantiEIndietroSelezione(avanti);
        EXPECT_EQ(ordine(8), avanti ? (std::vector<int>{4, 8, 3, 5, 6, 7}) : (std::vector<int>{3, 5, 6, 7, 4, 8}));
        EXPECT_EQ(indElem, 8);
        EXPECT_EQ(annullamento, aNiente);
        EXPECT_FALSE(Puntosel.attiva);
        for (std::int32_t i = 3; i <= 8; ++i) EXPECT_FALSE(Elem(i).selezionato) << i;
    }
    // A full store turns a single thing round in place, and a picture that moves keeps its data.
    const Scena s;
    fogliovuoto(5);
    const std::int32_t n = immagine(1, 1, 5, 5, "dati");
    segmento(1, 1, 2, 2);
    segmento(1, 1, 2, 2);
    scegli({n});
    Puntosel.oggetto = oPict;
    AvantiEIndietroSelezione(true);
    EXPECT_EQ(PictBytes(Elem(5).pict.maniglia), "dati");
    scegli({5});
    AvantiEIndietroSelezione(false);
    EXPECT_EQ(PictBytes(Elem(3).pict.maniglia), "dati");
}
