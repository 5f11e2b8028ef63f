// What a move touches, and its undo.
#include "editing/Sposta.h"

#include "../display/Scena.h"
#include "editing/AnnullaComando.h"
#include "editing/Scelta.h"
#include "model/Annulla.h"
#include "model/Mesh.h"
#include "model/Selezione.h"
#include "model/Strumento.h"

using namespace tessaro;
using namespace prova;

namespace {
void delta(double x, double y, double z) {
    XDeltaSpost = x;
    YDeltaSpost = y;
    ZDeltaSpost = z;
}
}   // namespace

TEST(SpostaTest, EveryPointMovesOnceAndOnlyPointsWithAnElevationRise) {
    const Scena s;
    ripetiSpostamento = SpostaSelezione;
    const std::int32_t seg = segmento(1, 2, 3, 4, 5, 6), segno = marker(7, 8, 9),
                       poli = polilinea({{1, 1}, {2, 2}, {3, 3}}), cer = cerchio(10, 20, 5),
                       scritta = testo(30, 40, "a"), pict = immagine(1, 2, 30, 40, "d");
    SelezionaTutto();
    const RettSel prima = rettSel;
    delta(100, 200, 3);
    SpostaSelezione();
    EXPECT_EQ(Elem(seg).segm.x1, 101);
    EXPECT_EQ(Elem(seg).segm.y2, 204);
    EXPECT_EQ(Elem(seg).segm.z1, 8);
    EXPECT_EQ(Elem(seg).segm.z2, 9);
    EXPECT_EQ(Elem(segno).mark.z, 12);
    EXPECT_EQ(Elem(poli).poli.x, 101);
    EXPECT_EQ(Elem(poli + 2).vert.x, 103);
    EXPECT_EQ(Elem(poli + 2).vert.z, 3);
    EXPECT_EQ(Elem(cer).cerc.cx, 110);
    EXPECT_EQ(Elem(cer).cerc.raggio, 5);
    EXPECT_EQ(Elem(scritta).test.y, 240);
    EXPECT_EQ(Elem(pict).pict.x, 101);
    EXPECT_EQ(Elem(pict).pict.larghezza, 30);
    EXPECT_EQ(rettSel.xmin, prima.xmin + 100);
    EXPECT_EQ(rettSel.ymax, prima.ymax + 200);
    EXPECT_EQ(annullamento, aSposta);
    EXPECT_EQ(XDeltaSpost, -100);
    AnnullaUltima();
    EXPECT_EQ(Elem(poli + 2).vert.x, 3);
    EXPECT_EQ(rettSel.xmin, prima.xmin);
    AnnullaUltima();
    EXPECT_EQ(Elem(poli + 2).vert.x, 103);
}

TEST(SpostaTest, AMeshKeepsACopyForItsOwnUndo) {
    const Scena s;
    for (Mesh* m : {&meshOrigine, &meshDestinazione}) {
        m->nx = m->ny = 2;
        m->x[1][1] = 10;
        m->x[0][2] = 7;   // beside the grid
    }
    delta(1, 2, 3);
    Puntosel.oggetto = oMeshOrigine;
    SpostaMesh();
    EXPECT_EQ(annullamento, aMeshOrigine);
    EXPECT_EQ(meshOrigine.x[1][1], 11);
    EXPECT_EQ(meshOrigine.y[0][0], 2);
    EXPECT_EQ(meshOrigine.x[0][2], 7);
    EXPECT_EQ(undoMeshOrigine.x[1][1], 10);
    EXPECT_EQ(meshDestinazione.x[1][1], 10);
    AnnullaUltima();
    EXPECT_EQ(meshOrigine.x[1][1], 10);
    Puntosel.oggetto = oMeshDestinazione;
    SpostaMesh();
    EXPECT_EQ(annullamento, aMeshDestinazione);
    EXPECT_EQ(meshDestinazione.y[1][1], 2);
}
