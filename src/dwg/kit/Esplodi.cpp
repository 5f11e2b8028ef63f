// Inserts and dimensions taken apart.
#include "dwg/kit/Esplodi.h"

#include <algorithm>

namespace tessaro {

OdGeMatrix3d MatriceInserto(const OdDbBlockBase& b, const OdGePoint3d& origine, std::int32_t colonna,
                            std::int32_t riga) {
    const OdGeMatrix3d piano = OdGeMatrix3d::planeToWorld(b.normal);
    const OdGeVector3d passo{colonna * b.columnSpacing, riga * b.rowSpacing, 0};
    const OdGeMatrix3d m = piano * OdGeMatrix3d::translation({b.position.x, b.position.y, b.position.z})
                           * OdGeMatrix3d::rotationZ(b.rotation) * OdGeMatrix3d::translation(passo)
                           * OdGeMatrix3d::scaling(b.scaleX, b.scaleY, b.scaleZ)
                           * OdGeMatrix3d::translation({-origine.x, -origine.y, -origine.z});
    return b.conMatrice ? b.matrice * m : m;
}

namespace {

// What the insert decides for its parts.
void eredita(const OdDbDatabase& db, OdDbEntity& e, const OdDbEntity& inserto) {
    const bool suZero = e.layer.isNull() || db.layers[e.layer].name == "0";
    if (suZero) e.layer = inserto.layer;
    if (e.color.metodo == OdCmColor::byBlock) e.color = inserto.color;
    if (!e.linetype.isNull()
        && OdDbTabella<OdDbLinetypeTableRecord>::maiuscolo(db.linetypes[e.linetype].name) == "BYBLOCK")
        e.linetype = inserto.linetype;
    if (e.lineWeight == kLnWtByBlock) e.lineWeight = inserto.lineWeight;
}

// An attribute's text stands in the insert; of a definition only what is the same everywhere shows.
bool mostrata(const OdDbEntity& e) {
    constexpr std::int16_t costante = 2;
    const auto* d = odCast<OdDbAttributeDefinition>(e);
    return !e.erased && e.visible && (d == nullptr || (d->flags & costante) != 0);
}

}   // namespace

bool explodeToBlock(OdDbDatabase& db, const OdDbBlockBase& inserto, OdDbObjectId dentro, std::size_t limite) {
    constexpr std::int16_t invisibile = 1;
    const OdDbObjectId id = inserto.blockTableRecord;
    std::vector<OdDbEntityPtr>& meta = db.blocks[dentro].entita;
    const auto posto = [&] { return meta.size() < limite; };
    for (const OdDbAttribute& a : inserto.attributi) {
        if ((a.flags & invisibile) != 0 || !a.visible) continue;
        if (!posto()) return false;
        OdDbEntityPtr t = a.clone();
        eredita(db, *t, inserto);
        meta.push_back(std::move(t));
    }
    if (id.isNull() || id == dentro) return true;
    const auto& parti = db.blocks[id].entita;
    if (std::none_of(parti.begin(), parti.end(), [](const OdDbEntityPtr& e) { return mostrata(*e); })) return true;
    const std::int32_t colonne = std::max(inserto.columns, 1), righe = std::max(inserto.rows, 1);
    for (std::int32_t r = 0; r < righe; ++r)
        for (std::int32_t c = 0; c < colonne; ++c) {
            const OdGeMatrix3d m = MatriceInserto(inserto, db.blocks[id].origin, c, r);
            for (const OdDbEntityPtr& e : parti) {
                if (!mostrata(*e)) continue;
                if (!posto()) return false;
                OdDbEntityPtr copia = getTransformedCopy(*e, m);
                eredita(db, *copia, inserto);
                if (copia->classe == OdDbClasse::BlockReference || copia->classe == OdDbClasse::MInsertBlock)
                    static_cast<OdDbBlockBase&>(*copia).profondita = inserto.profondita + 1;
                meta.push_back(std::move(copia));
            }
        }
    return true;
}

bool explodeDatabaseBlock(OdDbDatabase& db, std::size_t limite) {
    constexpr std::int32_t profonditaMassima = 50;   // no drawing nests so; a block that holds itself does
    for (std::size_t i = 0; i < db.spazioModello().entita.size(); ++i) {
        OdDbEntity& e = *db.spazioModello().entita[i];
        if (e.erased || (e.classe != OdDbClasse::BlockReference && e.classe != OdDbClasse::MInsertBlock)) continue;
        auto& inserto = static_cast<OdDbBlockBase&>(e);
        if (inserto.profondita < profonditaMassima && !explodeToBlock(db, inserto, db.modelSpace, limite)) return false;
        inserto.erased = true;
    }
    return true;
}

namespace {

// The parts of a dimension's picture, those of inserts and dimensions within it among them.
class PartiQuota {
public:
    explicit PartiQuota(const OdDbDatabase& d) : db(d) {}
    void prendi(const OdDbEntity& padre, OdDbObjectId blocco, const OdGeMatrix3d& m, int profondita = 0) {
        constexpr int massima = 8;
        if (blocco.isNull() || profondita > massima) return;
        for (const OdDbEntityPtr& e : db.blocks[blocco].entita) {
            if (++visti > limite) return;
            if (!mostrata(*e) || e->classe == OdDbClasse::Point) continue;
            OdDbEntityPtr copia = getTransformedCopy(*e, m);
            eredita(db, *copia, padre);
            if (e->classe == OdDbClasse::BlockReference || e->classe == OdDbClasse::MInsertBlock) {
                const auto& b = static_cast<const OdDbBlockBase&>(*copia);
                if (!b.blockTableRecord.isNull())
                    prendi(b, b.blockTableRecord, MatriceInserto(b, db.blocks[b.blockTableRecord].origin, 0, 0),
                           profondita + 1);
            } else if (e->classe == OdDbClasse::Dimension) {
                const auto& q = static_cast<const OdDbDimension&>(*copia);
                prendi(q, q.dimBlock, matrice(q), profondita + 1);
            } else {
                parti.push_back(std::move(copia));
            }
        }
    }
    static OdGeMatrix3d matrice(const OdDbDimension& q) {
        const OdGeMatrix3d m = OdGeMatrix3d::translation(q.insertion);
        return q.conMatrice ? q.matrice * m : m;
    }
    std::vector<OdDbEntityPtr> parti;

private:
    static constexpr std::size_t limite = 5000;   // a dimension has a dozen parts; a block that holds itself has no end
    const OdDbDatabase& db;
    std::size_t visti = 0;
};

}   // namespace

std::vector<OdDbEntityPtr> EsplodiQuota(const OdDbDatabase& db, const OdDbDimension& quota) {
    PartiQuota q(db);
    q.prendi(quota, quota.dimBlock, PartiQuota::matrice(quota));
    return std::move(q.parti);
}

}   // namespace tessaro
