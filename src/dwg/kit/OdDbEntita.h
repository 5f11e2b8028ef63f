// The entity classes, as plain data. Points stand as the formats store them: in the object coordinate system of the
// normal for circles, arcs, texts, solids, traces, inserts, 2D and lightweight polylines; in the world's for all others.
// Angles are radians, counter-clockwise from the x axis. Texts are UTF-8.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "dwg/kit/OdDbBase.h"
#include "dwg/kit/OdGe.h"

namespace tessaro {

enum class OdDbClasse : std::uint8_t {
    Line,
    Point,
    Circle,
    Arc,
    Ellipse,
    Spline,
    Text,
    AttributeDefinition,
    Attribute,
    MText,
    Solid,
    Trace,
    Face,
    Polyline,
    Polyline2d,
    Polyline3d,
    PolygonMesh,
    PolyFaceMesh,
    BlockReference,
    MInsertBlock,
    Dimension,
    Altra,   // of any other class: only its name is known
    nClassi
};

struct OdDbEntity {
    explicit OdDbEntity(OdDbClasse c) : classe(c) {}
    virtual ~OdDbEntity() = default;
    [[nodiscard]] virtual std::unique_ptr<OdDbEntity> clone() const = 0;   // a copy of the same class, in no block

    OdDbClasse classe;
    bool erased = false;
    bool visible = true;
    std::int16_t lineWeight = kLnWtByLayer;
    OdDbObjectId layer;      // none: layer "0"
    OdDbObjectId linetype;   // none: by layer
    OdCmColor color;
    OdDbHandle handle = 0;   // of the file read; of the file written after AssegnaHandle

protected:
    OdDbEntity(const OdDbEntity&) = default;
    OdDbEntity& operator=(const OdDbEntity&) = default;
};
using OdDbEntityPtr = std::unique_ptr<OdDbEntity>;

// Gives a class its number and its copy.
template <class T, OdDbClasse C>
struct OdDbEntityDi : OdDbEntity {
    static constexpr OdDbClasse numero = C;
    OdDbEntityDi() : OdDbEntity(C) {}
    [[nodiscard]] OdDbEntityPtr clone() const override { return std::make_unique<T>(static_cast<const T&>(*this)); }
};

struct OdDbLine : OdDbEntityDi<OdDbLine, OdDbClasse::Line> {
    OdGePoint3d startPoint, endPoint;
    double thickness = 0;
    OdGeVector3d normal = OdGeVector3d::asseZ();
};

struct OdDbPoint : OdDbEntityDi<OdDbPoint, OdDbClasse::Point> {
    OdGePoint3d position;
};

struct OdDbCircle : OdDbEntityDi<OdDbCircle, OdDbClasse::Circle> {
    OdGePoint3d center;
    double radius = 0;
    double thickness = 0;
    OdGeVector3d normal = OdGeVector3d::asseZ();
};

struct OdDbArc : OdDbEntityDi<OdDbArc, OdDbClasse::Arc> {
    OdGePoint3d center;
    double radius = 0;
    double startAngle = 0, endAngle = 0;   // counter-clockwise from one to the other
    double thickness = 0;
    OdGeVector3d normal = OdGeVector3d::asseZ();
};

struct OdDbEllipse : OdDbEntityDi<OdDbEllipse, OdDbClasse::Ellipse> {
    OdGePoint3d center;                // world
    OdGeVector3d majorAxis{1, 0, 0};   // world, of the half axis' length
    OdGeVector3d normal = OdGeVector3d::asseZ();
    double radiusRatio = 1;                // minor to major, negative when the sense is turned
    double startParam = 0, endParam = 0;   // of the parameter, which is no angle; equal: the whole ellipse
};

struct OdDbSpline : OdDbEntityDi<OdDbSpline, OdDbClasse::Spline> {
    std::int16_t degree = 3;
    bool closed = false;
    std::vector<double> knots;     // controlPoints + degree + 1; empty: only fit points are known
    std::vector<double> weights;   // empty: all 1
    std::vector<OdGePoint3d> controlPoints, fitPoints;
};

struct OdDbTextBase : OdDbEntity {
    using OdDbEntity::OdDbEntity;
    OdGePoint3d position, alignmentPoint;
    double height = 0;
    double rotation = 0;
    double widthFactor = 1, oblique = 0, thickness = 0;
    std::int16_t horizontalMode = 0, verticalMode = 0;   // DXF groups 72 and 73
    std::int16_t textGenerationFlags = 0;                // 2 backwards, 4 upside down
    OdGeVector3d normal = OdGeVector3d::asseZ();
    OdDbObjectId textStyle;   // none: the database's default
    std::string textString;
};
template <class T, OdDbClasse C>
struct OdDbTestoDi : OdDbTextBase {
    static constexpr OdDbClasse numero = C;
    OdDbTestoDi() : OdDbTextBase(C) {}
    [[nodiscard]] OdDbEntityPtr clone() const override { return std::make_unique<T>(static_cast<const T&>(*this)); }
};
struct OdDbText : OdDbTestoDi<OdDbText, OdDbClasse::Text> {};
struct OdDbAttributeDefinition : OdDbTestoDi<OdDbAttributeDefinition, OdDbClasse::AttributeDefinition> {
    std::string tag, prompt;
    std::int16_t flags = 0;   // 1 invisible, 2 constant
};
struct OdDbAttribute : OdDbTestoDi<OdDbAttribute, OdDbClasse::Attribute> {
    std::string tag;
    std::int16_t flags = 0;
};

struct OdDbMText : OdDbEntityDi<OdDbMText, OdDbClasse::MText> {
    OdGePoint3d location;              // world, of the attachment point
    OdGeVector3d direction{1, 0, 0};   // world, of the lines
    OdGeVector3d normal = OdGeVector3d::asseZ();
    double textHeight = 0;
    double width = 0;   // reference rectangle; 0: lines are not wrapped
    double lineSpacing = 1;
    std::int16_t attachment = 1;   // 1 top left, by rows, to 9 bottom right
    OdDbObjectId textStyle;
    std::string contents;   // with its format codes
};

// Corners in the order of the formats: the third and fourth cross over.
template <class T, OdDbClasse C>
struct OdDbCornersDi : OdDbEntityDi<T, C> {
    std::array<OdGePoint3d, 4> corner;
    double thickness = 0;
    OdGeVector3d normal = OdGeVector3d::asseZ();
    [[nodiscard]] const OdGePoint3d& getPointAt(std::size_t i) const { return corner[i]; }
};
struct OdDbSolid : OdDbCornersDi<OdDbSolid, OdDbClasse::Solid> {};
struct OdDbTrace : OdDbCornersDi<OdDbTrace, OdDbClasse::Trace> {};
struct OdDbFace : OdDbEntityDi<OdDbFace, OdDbClasse::Face> {
    std::array<OdGePoint3d, 4> corner;   // world, around; the fourth equals the third in a triangle
    std::int16_t invisibili = 0;         // sides that are not drawn, a bit each
};

struct OdDbVertice {
    OdGePoint3d punto;
    double bulge = 0;   // tangent of a quarter of the angle of the arc to the next vertex
    double startWidth = 0, endWidth = 0;
    std::int16_t flags = 0;   // group 70; 16: of the frame of a spline, which is not drawn
    bool suddiviso = false;   // stands on an arc that was split because a transformation bent it
};
struct OdDbPolylineBase : OdDbEntity {
    using OdDbEntity::OdDbEntity;
    std::vector<OdDbVertice> vertici;   // z of those that lie in a plane is not told here but by elevation
    bool closed = false;
    double elevation = 0;
    double thickness = 0;
    double startWidth = 0, endWidth = 0;   // of vertices that tell none
    OdGeVector3d normal = OdGeVector3d::asseZ();
    OdDbHandle handleSeqend = 0;   // vertices take the handles between the polyline's and this one
};
template <class T, OdDbClasse C>
struct OdDbPolylineDi : OdDbPolylineBase {
    static constexpr OdDbClasse numero = C;
    OdDbPolylineDi() : OdDbPolylineBase(C) {}
    [[nodiscard]] OdDbEntityPtr clone() const override { return std::make_unique<T>(static_cast<const T&>(*this)); }
    void makeOpen() { closed = false; }
    [[nodiscard]] std::size_t numVerts() const { return vertici.size(); }
};
struct OdDbPolyline : OdDbPolylineDi<OdDbPolyline, OdDbClasse::Polyline> {};
struct OdDb2dPolyline : OdDbPolylineDi<OdDb2dPolyline, OdDbClasse::Polyline2d> {};
struct OdDb3dPolyline : OdDbPolylineDi<OdDb3dPolyline, OdDbClasse::Polyline3d> {};

struct OdDbPolygonMesh : OdDbEntityDi<OdDbPolygonMesh, OdDbClasse::PolygonMesh> {
    std::int32_t m = 0, n = 0;   // rows, and points of a row
    bool chiusaM = false, chiusaN = false;
    std::vector<OdGePoint3d> punti;   // m * n, row by row; never another number
};

struct OdDbPolyFaceMesh : OdDbEntityDi<OdDbPolyFaceMesh, OdDbClasse::PolyFaceMesh> {
    std::vector<OdGePoint3d> punti;
    std::vector<std::array<std::int32_t, 4>> facce;   // numbers of points from 1; 0 none; negative: side not drawn
};

struct OdDbBlockBase : OdDbEntity {
    using OdDbEntity::OdDbEntity;
    OdDbObjectId blockTableRecord;
    OdGePoint3d position;
    double scaleX = 1, scaleY = 1, scaleZ = 1, rotation = 0;
    OdGeVector3d normal = OdGeVector3d::asseZ();
    std::int32_t columns = 1, rows = 1;   // above 1: an array
    double columnSpacing = 0, rowSpacing = 0;
    std::vector<OdDbAttribute> attributi;
    // One that came out of another insert: what moved it there, behind its own place.
    bool conMatrice = false;
    OdGeMatrix3d matrice;
    std::int32_t profondita = 0;
};
template <class T, OdDbClasse C>
struct OdDbBlockDi : OdDbBlockBase {
    static constexpr OdDbClasse numero = C;
    OdDbBlockDi() : OdDbBlockBase(C) {}
    [[nodiscard]] OdDbEntityPtr clone() const override { return std::make_unique<T>(static_cast<const T&>(*this)); }
};
struct OdDbBlockReference : OdDbBlockDi<OdDbBlockReference, OdDbClasse::BlockReference> {};
struct OdDbMInsertBlock : OdDbBlockDi<OdDbMInsertBlock, OdDbClasse::MInsertBlock> {};

struct OdDbDimension : OdDbEntityDi<OdDbDimension, OdDbClasse::Dimension> {
    OdDbObjectId dimBlock;    // its picture, in world coordinates; none in files that left it out
    OdGeVector3d insertion;   // shift of that block
    OdGePoint3d defPoint, textPosition;
    bool conMatrice = false;   // came out of an insert, which moved it so
    OdGeMatrix3d matrice;
    std::string text;   // empty or "<>": the measured value
};

struct OdDbAltra : OdDbEntityDi<OdDbAltra, OdDbClasse::Altra> {
    std::string nome;   // as a DXF file calls it
};

// The entity as its class; null when it is of another.
template <class T>
T* odCast(OdDbEntity& e) {
    return e.classe == T::numero ? static_cast<T*>(&e) : nullptr;
}
template <class T>
const T* odCast(const OdDbEntity& e) {
    return e.classe == T::numero ? static_cast<const T*>(&e) : nullptr;
}

}   // namespace tessaro
