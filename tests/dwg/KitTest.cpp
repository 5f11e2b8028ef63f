// The drawing database: matrices, colours by index, handles.
#include <cmath>
#include <set>

#include <gtest/gtest.h>

#include "dwg/kit/OdDbDatabase.h"
#include "dwg/kit/OdVersioni.h"
#include "model/IndiceColori.h"

using namespace tessaro;

namespace {

void stesso(const OdGePoint3d& a, const OdGePoint3d& b) {
    EXPECT_NEAR(a.x, b.x, 1e-12);
    EXPECT_NEAR(a.y, b.y, 1e-12);
    EXPECT_NEAR(a.z, b.z, 1e-12);
}

}   // namespace

TEST(KitMatrici, aMirroredPlaneTurnsItsXAxisAndBack) {
    stesso(OdGeMatrix3d::planeToWorld({0, 0, -1}) * OdGePoint3d{3, 4, 0}, {-3, 4, 0});
    for (const OdGeVector3d n : {OdGeVector3d{0, 0, -2}, {1, 2, 3}, {0.001, 0.001, 1}, {1, 0, 0}, {0, 0, 0}}) {
        const OdGePoint3d p{12, -5, 7};
        stesso(OdGeMatrix3d::planeToWorld(n) * (OdGeMatrix3d::worldToPlane(n) * p), p);
    }
}

TEST(KitMatrici, theRightMatrixActsFirst) {
    const auto m = OdGeMatrix3d::translation({10, 0, 0}) * OdGeMatrix3d::rotationZ(std::acos(-1.0) / 2)
                   * OdGeMatrix3d::scaling(2, 2, 2);
    stesso(m * OdGePoint3d{1, 0, 1}, {10, 2, 2});
}

TEST(IndiceColori, thePublishedShadesAndTheNearestOfThem) {
    const struct {
        std::int16_t indice;
        int r, g, b;
    } casi[] = {{1, 255, 0, 0}, {3, 0, 255, 0},   {7, 255, 255, 255},   {12, 165, 0, 0},  {30, 255, 127, 0},
                {96, 0, 76, 0}, {170, 0, 0, 255}, {191, 191, 127, 255}, {250, 51, 51, 51}};
    for (const auto& c : casi) {
        const TernaColore t = ColoreDiIndice(c.indice);
        EXPECT_EQ((std::array{int{t.r}, int{t.g}, int{t.b}}), (std::array{c.r, c.g, c.b})) << c.indice;
        const TernaColore vicino = ColoreDiIndice(IndiceVicino(t.r, t.g, t.b));
        EXPECT_EQ((std::array{vicino.r, vicino.g, vicino.b}), (std::array{t.r, t.g, t.b})) << c.indice;
    }
    EXPECT_EQ(IndiceVicino(0, 0, 0), 7);
    EXPECT_EQ(IndiceVicino(250, 3, 2), 1);
}

TEST(KitHandle, noTwoObjectsShareOneAndPartsFollowTheirEntity) {
    OdDbDatabase db = createDatabase(true, 0);
    auto p = std::make_unique<OdDb3dPolyline>();
    p->vertici.resize(5);
    auto& poli = static_cast<OdDb3dPolyline&>(db.spazioModello().appendOdDbEntity(std::move(p)));
    OdDbEntity& dopo = db.spazioModello().appendOdDbEntity(std::make_unique<OdDbLine>());
    AssegnaHandle(db);
    EXPECT_EQ(poli.handleSeqend, poli.handle + 6);
    EXPECT_EQ(dopo.handle, poli.handle + 7);
    std::set<OdDbHandle> visti;
    const auto uno = [&](OdDbHandle h) {
        EXPECT_GT(h, 0U);
        EXPECT_LT(h, db.handseed);
        EXPECT_TRUE(visti.insert(h).second) << h;
    };
    for (const auto& l : db.layers.record) uno(l.handle);
    for (const auto& l : db.linetypes.record) uno(l.handle);
    for (const auto& b : db.blocks.record) {
        uno(b.handle);
        uno(b.handleBlock);
        uno(b.handleEndBlk);
    }
    for (const auto& l : db.layouts.record) uno(l.handle);
    for (const auto& d : db.dizionari) uno(d.handle);
    for (const OdDbHandle h : {db.layers.handle, db.blocks.handle, db.handleVport, db.handleMlineStyleStandard,
                               db.handlePlotPlaceholder, poli.handle, dopo.handle})
        uno(h);
}

TEST(KitTabelle, aNameIsFoundWhateverItsCase) {
    OdDbDatabase db = createDatabase(true, 0);
    EXPECT_EQ(db.linetypes.getAt("BYLAYER"), db.linetypes.getAt("ByLayer"));
    EXPECT_TRUE(db.linetypes.getAt("none of them").isNull());
    EXPECT_EQ(VersioneDi(23)->sigla, "AC1015");
    EXPECT_EQ(VersioneDi(24), nullptr);
}
