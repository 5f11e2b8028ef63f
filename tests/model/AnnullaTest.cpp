// Undo and redo of each kind, and when a deleted picture's data are really given up.
#include <gtest/gtest.h>

#include <cmath>

#include "model/Annulla.h"
#include "model/Mesh.h"
#include "model/Strumento.h"
#include "support/Foglio.h"

using namespace tessaro;
using namespace prova;

namespace {

void aggiungiTreSegmenti() {
    inizioAggiunta = indElem;
    for (int i = 0; i < 3; ++i) segmento(i, 0, i, 10);
    PoniAnnulla(aAggiunta);
}

}   // namespace

TEST(Annulla, AnAdditionGoesAndComesBack) {
    fogliovuoto();
    aggiungiTreSegmenti();
    EXPECT_TRUE(EseguiAnnulla());
    EXPECT_EQ(indElem, 2);
    EXPECT_EQ(annullamento, aCancella);
    EXPECT_TRUE(EseguiAnnulla());
    EXPECT_EQ(indElem, 5);
    EXPECT_EQ(annullamento, aAggiunta);
    EXPECT_EQ(Elem(5).segm.x1, 2.0);
    EXPECT_TRUE(EseguiAnnulla());
    EXPECT_EQ(indElem, 2);
}

TEST(Annulla, AParkedPictureLivesUntilSomethingElseIsArmed) {
    fogliovuoto();
    inizioAggiunta = indElem;
    immagine(0, 0, 10, 10, "dati");
    const PicHandle h = Elem(3).pict.maniglia;
    PoniAnnulla(aAggiunta);
    EseguiAnnulla();
    EXPECT_EQ(PictBytes(h), "dati");
    EseguiAnnulla();   // redo: the picture is back
    EXPECT_EQ(PictBytes(Elem(3).pict.maniglia), "dati");
    EseguiAnnulla();
    PoniAnnulla(aNiente);
    EXPECT_EQ(PictBytes(h), "");
    EXPECT_EQ(PictMemory(), 0);
}

TEST(Annulla, AChangedRecordIsSwappedEachTime) {
    fogliovuoto();
    const auto n = segmento(0, 0, 1, 1);
    recuperaElemento = Elem(n);
    daRecuperare = n;
    Elem(n).segm.x2 = 50;
    PoniAnnulla(aElemento);
    EseguiAnnulla();
    EXPECT_EQ(Elem(n).segm.x2, 1.0);
    EseguiAnnulla();
    EXPECT_EQ(Elem(n).segm.x2, 50.0);
}

TEST(Annulla, AChangeWithNoRecordToBringBackSwapsNothing) {
    fogliovuoto();
    const auto n = segmento(0, 0, 1, 1);
    const elemento prima = Elem(n);
    for (const std::int32_t numero : {0, -4, n + 1}) {
        daRecuperare = numero;
        PoniAnnulla(aElemento);
        EXPECT_FALSE(EseguiAnnulla());
        EXPECT_EQ(std::memcmp(&Elem(n), &prima, sizeof prima), 0);
    }
}

TEST(Annulla, AMoveKeepsTheInverseDeltas) {
    fogliovuoto();
    XDeltaSpost = 3;
    YDeltaSpost = -4;
    ZDeltaSpost = 5;
    PoniAnnulla(aSposta);
    EXPECT_EQ(XDeltaSpost, -3);
    EXPECT_EQ(YDeltaSpost, 4);
    EXPECT_EQ(ZDeltaSpost, -5);
    ZDeltaSpost = 0;
    PoniAnnulla(aSposta);
    EXPECT_FALSE(std::signbit(ZDeltaSpost));   // "-0.000" would stand in the dialog
}

TEST(Annulla, AScaledPictureGoesBackOnce) {
    fogliovuoto();
    numElementoScalato = immagine(0, 0, 200, 60, "x");
    scalaImmagineX = 2;
    scalaImmagineY = 3;
    PoniAnnulla(aScalaPict);
    EseguiAnnulla();
    EXPECT_EQ(Elem(3).pict.larghezza, 100.0);
    EXPECT_EQ(Elem(3).pict.altezza, 20.0);
    EXPECT_EQ(annullamento, aNiente);
    EXPECT_FALSE(EseguiAnnulla());
}

TEST(Annulla, MeshesAreSwappedWithTheirCopies) {
    fogliovuoto();
    meshOrigine.nx = 4;
    undoMeshOrigine.nx = 7;
    meshDestinazione.ny = 5;
    undoMeshDestinazione.ny = 9;
    PoniAnnulla(aMeshOrigine);
    EseguiAnnulla();
    EXPECT_EQ(meshOrigine.nx, 7);
    PoniAnnulla(aMeshDestinazione);
    EseguiAnnulla();
    EXPECT_EQ(meshDestinazione.ny, 9);
}
