// A new database, and the handles of its objects.
#include "dwg/kit/OdDbDatabase.h"

#include <chrono>
#include <ctime>

#include "model/IndiceColori.h"

namespace tessaro {

void OdCmColor::setRGB(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    metodo = byColor;
    red = r;
    green = g;
    blue = b;
    indice = IndiceVicino(r, g, b);
}

OdTimeStamp OdTimeStamp::getLocalTime() {
    constexpr std::int32_t giornoUnix =
        2440588;   // Julian day that begins at noon of 1 January 1970; files count it whole
    const auto adesso = std::chrono::system_clock::now();
    const std::time_t secondi = std::chrono::system_clock::to_time_t(adesso);
    std::tm qui{};
    localtime_r(&secondi, &qui);
    const std::chrono::year_month_day data{std::chrono::year(qui.tm_year + 1900),
                                           std::chrono::month(static_cast<unsigned>(qui.tm_mon) + 1),
                                           std::chrono::day(static_cast<unsigned>(qui.tm_mday))};
    const auto giorni = std::chrono::sys_days(data).time_since_epoch().count();
    return {static_cast<std::int32_t>(giorni) + giornoUnix, ((qui.tm_hour * 60 + qui.tm_min) * 60 + qui.tm_sec) * 1000};
}

namespace {

OdDbObjectId spazio(OdDbDatabase& db, const char* nome, const char* nomeLayout, std::int32_t linguetta) {
    OdDbBlockTableRecord b;
    b.name = nome;
    const OdDbObjectId id = db.blocks.add(std::move(b));
    OdDbLayout l;
    l.name = nomeLayout;
    l.tabOrder = linguetta;
    l.blockTableRecord = id;
    db.blocks[id].layout = db.layouts.add(std::move(l));
    return id;
}

}   // namespace

OdDbDatabase createDatabase(bool initDefaults, std::int16_t measurement) {
    OdDbDatabase db;
    db.header.measurement = measurement;
    db.modelSpace = spazio(db, nomeSpazioModello, "Model", 0);
    db.paperSpace = spazio(db, nomeSpazioCarta, "Layout1", 1);
    if (!initDefaults) return db;
    db.header.tdCreate = db.header.tdUpdate = OdTimeStamp::getLocalTime();
    for (const char* nome : {"ByBlock", "ByLayer", "Continuous"}) db.linetypes.getOrAdd(nome);
    db.linetypes[db.linetypes.getAt("Continuous")].comments = "Solid line";
    OdDbLayerTableRecord zero;
    zero.name = "0";
    zero.color.setColorIndex(7);
    zero.linetype = db.linetypes.getAt("Continuous");
    db.header.clayer = db.layers.add(std::move(zero));
    db.header.textStyle = db.textStyles.getOrAdd("Standard");
    db.regApps.getOrAdd("ACAD");
    return db;
}

std::uint32_t HandleOccupati(const OdDbEntity& e) {
    switch (e.classe) {
    case OdDbClasse::Polyline2d:
    case OdDbClasse::Polyline3d:
        return static_cast<std::uint32_t>(static_cast<const OdDbPolylineBase&>(e).vertici.size()) + 2;
    case OdDbClasse::PolygonMesh:
        return static_cast<std::uint32_t>(static_cast<const OdDbPolygonMesh&>(e).punti.size()) + 2;
    case OdDbClasse::PolyFaceMesh: {
        const auto& m = static_cast<const OdDbPolyFaceMesh&>(e);
        return static_cast<std::uint32_t>(m.punti.size() + m.facce.size()) + 2;
    }
    case OdDbClasse::BlockReference:
    case OdDbClasse::MInsertBlock: {
        const std::size_t n = static_cast<const OdDbBlockBase&>(e).attributi.size();
        return n == 0 ? 1 : static_cast<std::uint32_t>(n) + 2;
    }
    default: return 1;
    }
}

namespace {

template <class T>
void tabella(OdDbTabella<T>& t, OdDbHandle& prossimo) {
    t.handle = prossimo++;
    for (T& r : t.record) r.handle = prossimo++;
}

OdDbDizionario& dizionario(OdDbDatabase& db, const char* nome, OdDbHandle& prossimo) {
    db.dizionari.push_back({nome, prossimo++, {}});
    if (db.dizionari.size() > 1) db.dizionari.front().voci.emplace_back(nome, db.dizionari.back().handle);
    return db.dizionari.back();
}

void dizionari(OdDbDatabase& db, OdDbHandle& prossimo) {
    db.dizionari.clear();
    dizionario(db, "", prossimo);
    dizionario(db, "ACAD_GROUP", prossimo);
    OdDbDizionario& layout = dizionario(db, "ACAD_LAYOUT", prossimo);
    for (OdDbLayout& l : db.layouts.record) {
        l.handle = prossimo++;
        layout.voci.emplace_back(l.name, l.handle);
    }
    db.handleMlineStyleStandard = prossimo++;
    dizionario(db, "ACAD_MLINESTYLE", prossimo).voci = {{"Standard", db.handleMlineStyleStandard}};
    db.handlePlotPlaceholder = prossimo++;
    dizionario(db, "ACAD_PLOTSTYLENAME", prossimo).voci = {{"Normal", db.handlePlotPlaceholder}};
}

}   // namespace

void AssegnaHandle(OdDbDatabase& db) {
    OdDbHandle prossimo = 1;
    tabella(db.blocks, prossimo);
    tabella(db.layers, prossimo);
    tabella(db.textStyles, prossimo);
    tabella(db.linetypes, prossimo);
    db.handleViews = prossimo++;
    db.handleUcs = prossimo++;
    db.handleVport = prossimo++;
    db.handleVportActive = prossimo++;
    tabella(db.regApps, prossimo);
    db.handleDimStyles = prossimo++;
    db.handleDimStyleStandard = prossimo++;
    db.handleVpEntHdr = prossimo++;
    dizionari(db, prossimo);
    for (OdDbBlockTableRecord& b : db.blocks.record) {
        b.handleBlock = prossimo++;
        for (const OdDbEntityPtr& e : b.entita) {
            if (e->erased) continue;
            e->handle = prossimo;
            prossimo += HandleOccupati(*e);
            if (e->classe == OdDbClasse::Polyline2d || e->classe == OdDbClasse::Polyline3d)
                static_cast<OdDbPolylineBase&>(*e).handleSeqend = prossimo - 1;
        }
        b.handleEndBlk = prossimo++;
    }
    db.handseed = prossimo;
}

}   // namespace tessaro
