// The tables of R12: layers, text styles, line types, the one viewport, registered applications.
#include <algorithm>

#include "dwg/kit/scrividwg/FileDwg12.h"
#include "dwg/kit/scrividwg/OggettoDwg.h"

namespace tessaro {

namespace {

constexpr unsigned inUso = 64, gelato = 1, bloccato = 4;
constexpr std::size_t postiNome = 32;

// Flags, name, and a count of uses that is not kept.
std::size_t inizioRecord(ByteDwg12& b, unsigned flag, std::string_view nome) {
    const std::size_t da = b.s.size();
    b.RC(flag);
    b.testo(nome, postiNome);
    b.RS(-1);
    return da;
}

// Layers whose names are the same as far as a record holds them: the later ones end with their place.
std::string nomeUnico(const std::string& nome, std::size_t posto, std::vector<std::string>& dati) {
    std::string n = TestoDwg(nome).substr(0, postiNome - 1);
    if (std::find(dati.begin(), dati.end(), n) != dati.end()) {
        const std::string coda = '~' + std::to_string(posto);
        n = n.substr(0, postiNome - 1 - coda.size()) + coda;
    }
    dati.push_back(n);
    return n;
}

void piani(ByteDwg12& b, const OdDbDatabase& db) {
    const std::vector<std::int32_t> linee = NumeriLinee12(db);
    std::vector<std::string> dati;
    for (const OdDbLayerTableRecord& r : db.layers.record) {
        const std::size_t da = b.s.size();
        b.RC(inUso | (r.isFrozen ? gelato : 0) | (r.isLocked ? bloccato : 0));
        const std::string suo = nomeUnico(r.name, dati.size(), dati);
        b.s += suo + std::string(postiNome - suo.size(), '\0');
        b.RS(-1);
        const int colore = r.color.indice >= 1 && r.color.indice <= 255 ? r.color.indice : 7;
        b.RS(r.isOff ? -colore : colore);
        const std::int32_t linea = r.linetype.isNull() ? 0 : linee[r.linetype.n - 1];
        b.RS(linea == lineaDaPiano12 || linea == lineaDaBlocco12 ? 0 : linea);
        b.controllo(da);
    }
}

void stili(ByteDwg12& b, const OdDbDatabase& db) {
    constexpr std::size_t postiFile = 64;
    for (const OdDbTextStyleTableRecord& r : db.textStyles.record) {
        const std::size_t da = inizioRecord(b, inUso | (r.isVertical ? 4U : 0U) | (r.isShapeFile ? 1U : 0U), r.name);
        b.RD(r.textSize);
        b.RD(r.xScale);
        b.RD(r.obliquingAngle);
        b.RC((r.isBackwards ? 2U : 0U) | (r.isUpsideDown ? 4U : 0U));
        b.RD(r.priorSize);
        b.testo(r.fileName, postiFile);
        b.testo(r.bigFontFileName, postiFile);
        b.controllo(da);
    }
}

void linee(ByteDwg12& b, const OdDbDatabase& db) {
    constexpr std::size_t postiDescrizione = 48, trattiMassimi = 12;
    const std::vector<std::int32_t> numeri = NumeriLinee12(db);
    std::vector<const OdDbLinetypeTableRecord*> inOrdine(numeri.size(), nullptr);
    for (std::size_t i = 0; i < numeri.size(); ++i)
        if (numeri[i] < lineaDaBlocco12) inOrdine[static_cast<std::size_t>(numeri[i])] = &db.linetypes.record[i];
    for (const OdDbLinetypeTableRecord* r : inOrdine) {
        if (r == nullptr) continue;
        const std::size_t da = inizioRecord(b, inUso, r->name);
        b.testo(r->comments, postiDescrizione);
        b.RC('A');
        const std::size_t quanti = std::min(r->dashes.size(), trattiMassimi);
        b.RC(static_cast<unsigned>(quanti));
        b.RD(r->patternLength);
        for (std::size_t i = 0; i < trattiMassimi; ++i) b.RD(i < quanti ? r->dashes[i] : 0);
        b.controllo(da);
    }
}

// It sees the whole drawing.
void finestra(ByteDwg12& b, const OdDbDatabase& db) {
    constexpr double aspetto = 1.5, margine = 1.05, lente = 50;
    const OdGePoint3d &min = db.header.extMin, &max = db.header.extMax;
    const bool vuoto = !(min.x <= max.x && min.y <= max.y);
    const double largo = vuoto ? 420 : max.x - min.x, alto = vuoto ? 297 : max.y - min.y;
    const std::size_t da = inizioRecord(b, 0, "*ACTIVE");
    b.RD2(0, 0);
    b.RD2(1, 1);
    b.RD3(OdGePoint3d{});
    b.RD3(OdGeVector3d::asseZ());
    b.RD(0);   // twist
    b.RD(std::max({alto, largo / aspetto, 1.0}) * margine);
    b.RD2(vuoto ? largo / 2 : (min.x + max.x) / 2, vuoto ? alto / 2 : (min.y + max.y) / 2);
    b.RD(aspetto);
    b.RD(lente);
    b.RD2(0, 0);   // clipping planes
    for (const int v : {0, 0, 1000, 1, 1, 0, 0, 0})
        b.RS(v);   // view, follow, circles, fast zoom, axes' sign, snap, grid
    b.RD(0);
    b.RD2(0, 0);
    b.RD2(1, 1);
    b.RD2(0, 0);
    b.controllo(da);
}

void programmi(ByteDwg12& b, const OdDbDatabase& db) {
    for (const OdDbRegAppTableRecord& r : db.regApps.record) b.controllo(inizioRecord(b, inUso, r.name));
}

}   // namespace

std::vector<std::int32_t> NumeriLinee12(const OdDbDatabase& db) {
    std::vector<std::int32_t> numeri;
    const OdDbObjectId continua = db.linetypes.getAt("Continuous");
    std::int32_t prossimo = continua.isNull() ? 0 : 1;   // it is the first
    for (std::size_t i = 0; i < db.linetypes.record.size(); ++i) {
        const OdDbObjectId id{static_cast<std::uint32_t>(i + 1)};
        numeri.push_back(id == continua                        ? 0
                         : id == db.linetypes.getAt("ByLayer") ? lineaDaPiano12
                         : id == db.linetypes.getAt("ByBlock") ? lineaDaBlocco12
                                                               : prossimo++);
    }
    return numeri;
}

std::array<std::string, nTavole12> TabelleDwg12(const OdDbDatabase& db, TavoleDwg12& tavole) {
    // Lengths of the records; tables that this program leaves empty have theirs all the same.
    static constexpr struct {
        std::uint16_t lunghezza;
        void (*scrivi)(ByteDwg12& b, const OdDbDatabase& db);
    } tutte[nTavole12] = {{45, nullptr},  {41, piani},     {198, stili},    {191, linee},   {153, nullptr},
                          {109, nullptr}, {253, finestra}, {37, programmi}, {324, nullptr}, {43, nullptr}};
    std::array<std::string, nTavole12> righe;
    for (std::size_t i = 0; i < righe.size(); ++i) {
        ByteDwg12 b;
        if (tutte[i].scrivi != nullptr) tutte[i].scrivi(b, db);
        tavole[i].lunghezza = tutte[i].lunghezza;
        tavole[i].record = static_cast<std::uint16_t>(b.s.size() / tutte[i].lunghezza);
        righe[i] = std::move(b.s);
    }
    return righe;
}

}   // namespace tessaro
