// The walk: header, layers, model space; and how the elements of a database come into the drawing.
#include "dwg/DbDumper.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

#include "display/palette.h"
#include "dwg/kit/Alfabeto.h"
#include "exchange/Operazione.h"
#include "model/Archivio.h"
#include "model/Carattere.h"
#include "model/Documento.h"
#include "model/NomiLucidi.h"
#include "model/Penna.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "model/Voci.h"
#include "platform/Fonts.h"
#include "platform/Menus.h"
#include "platform/Resources.h"
#include "registration/Coordinate.h"
#include "text/Conversione.h"

namespace tessaro {

ScelteImporta scelteImporta;
std::vector<std::string> arrayNameLayer;
constinit std::int16_t layerTot = 0;
constinit std::int32_t numElImportati = 0;
constinit std::int32_t ixSpazioCarta = -1;
constinit std::uint8_t layoutPicked = 0;
constinit std::uint8_t suddividi_piani = 0;

namespace {

constexpr std::int16_t lucidoEntita = 1, lucidoPunti = 4;
constexpr std::int16_t lucidiMassimi = 99;
const PStr255 senzaTesto("");

}   // namespace

void DbDumper::dumpHeader() const {
    // The layout that is the paper's; nothing chooses one.
    ixSpazioCarta = -1;
    for (std::size_t i = 0; i < db.layouts.record.size(); ++i)
        if (db.layouts.record[i].blockTableRecord == db.paperSpace) ixSpazioCarta = static_cast<std::int32_t>(i);
}

void DbDumper::dumpLayers() const {
    arrayNameLayer.clear();
    for (const OdDbLayerTableRecord& l : db.layers.record)
        if (!l.erased) arrayNameLayer.push_back(l.name);
    layerTot = static_cast<std::int16_t>(std::min<std::size_t>(arrayNameLayer.size(), 32767));
}

bool DbDumper::dumpBlocks() {
    for (const OdDbBlockTableRecord& b : db.blocks.record) {
        if (&b != &db.spazioModello()) continue;   // paper space and the definitions are never read as such
        for (const OdDbEntityPtr& e : b.entita) {
            if (e->erased || !e->visible) continue;
            if (!dumpCommonData(*e)) return false;
            dumpEntity(*e);
            if (indElem >= maxElementi) {
                resoconto.pieno();
                return true;
            }
        }
    }
    return true;
}

bool DbDumper::dump() {
    numElImportati = 0;
    coloriOltre = 0;
    visti.assign(db.layers.record.size() + 1, false);
    dumpHeader();
    dumpLayers();
    lucidoDiLayer.clear();
    if (suddividi_piani != 0)
        for (std::size_t i = 0; i < db.layers.record.size(); ++i)
            lucidoDiLayer.push_back({static_cast<std::int16_t>(std::min<std::size_t>(i + 1, lucidiMassimi)), false});
    const bool intero = dumpBlocks();
    FineOperazione();
    return intero;
}

bool DbDumper::dumpCommonData(const OdDbEntity& e) {
    constexpr std::int32_t ogni = 100;
    static constexpr const char* nomi[] = {"Line",        "Point",        "Circle",         "Arc",
                                           "Ellipse",     "Spline",       "Text",           "AttributeDefinition",
                                           "Attribute",   "MText",        "Solid",          "Trace",
                                           "Face",        "Polyline",     "2dPolyline",     "3dPolyline",
                                           "PolygonMesh", "PolyFaceMesh", "BlockReference", "MInsertBlock",
                                           "Dimension",   "Entity"};
    static_assert(std::size(nomi) == static_cast<std::size_t>(OdDbClasse::nClassi));
    if (numElImportati % ogni == 0) {
        const std::string parola =
            std::string("OdDb") + nomi[static_cast<std::size_t>(e.classe)] + ' ' + std::to_string(numElImportati);
        if (!noWindow) MostraOperazione(parola.c_str());
        const auto tutte = static_cast<double>(db.spazioModello().entita.size());
        if (!AvanzaLettura(numElImportati / tutte)) return false;
    }
    ++numElImportati;
    visti[e.layer.n] = true;
    return true;
}

bool DbDumper::interno(const OdGePoint3d& p, double& x, double& y) {
    constexpr double limite = 1e12;   // sheet units: beyond, no drawing lies
    if (!SonoFiniti(p)) return false;
    RealToDigi(p.x, p.y, x, y);
    return std::fabs(x) < limite && std::fabs(y) < limite;
}

namespace {

// The layer that every database has, and those that an export of a drawing without names makes.
bool senzaNome(std::string_view nome) {
    constexpr std::string_view nostro = "Layer ";
    if (nome.starts_with(nostro)) nome.remove_prefix(nostro.size());
    return nome.find_first_not_of("0123456789") == std::string_view::npos;
}

}   // namespace

void DbDumper::lucido(const OdDbEntity& e, std::int16_t altrimenti) {
    VisioneGraf.lucidoCorrente = altrimenti;
    if (lucidoDiLayer.empty()) return;
    const OdDbObjectId id = e.layer.isNull() ? db.layers.getAt("0") : e.layer;
    if (id.isNull()) return;
    LucidoDelLayer& l = lucidoDiLayer[id.n - 1];
    if (!l.noto) {
        l.noto = true;
        const std::string nome = Utf8ToMac(db.layers[id].name);
        if (!senzaNome(nome)) l.lucido = AccogliLucido(nome, l.lucido);
    }
    VisioneGraf.lucidoCorrente = l.lucido;
}

bool DbDumper::posto() {
    if (indElem < maxElementi) return true;
    resoconto.senzaPosto();
    return false;
}

std::int16_t DbDumper::colore(const OdDbEntity& e) {
    bool overflow = false;
    const std::int16_t c = ColoreDXFDWGtoTessaro(db, e, overflow);
    if (overflow) ++coloriOltre;
    return c;
}

void DbDumper::perde(const char* nome, const char* stampa) {
    if (stampa != nullptr) {
        std::puts(stampa);
        std::fflush(stdout);
    }
    resoconto.tralascia(nome);
}

void DbDumper::faiLine(const OdDbEntity& e, const OdGePoint3d& a, const OdGePoint3d& b) {
    constexpr std::int16_t lineaUno = 1;   // Kept: a segment takes line 1, whatever its line type
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    if (!interno(a, x1, y1) || !interno(b, x2, y2)) {
        resoconto.tralascia("LINE");
        return;
    }
    if (!posto()) return;
    lucido(e, lucidoEntita);
    Memorizza(tSegmento, x1, y1, a.z, x2, y2, b.z, SpessoreBordo(db, e), colore(e), lineaUno, senzaTesto);
}

// A head counts its vertices in 16 bits: a longer figure goes on in a new one, from where the old one ends.
void DbDumper::faiPolilinea(const OdDbEntity& e, const std::vector<OdGePoint3d>& punti, bool chiusa) {
    constexpr std::int32_t massimi = 32767;
    const std::int16_t s = SpessoreBordo(db, e), c = colore(e), p = tipoLineaModelSpace(db, e);
    std::int32_t vertici = 0, testa = 0;
    lucido(e, lucidoEntita);
    const auto testaNuova = [&](double x, double y, double z) {
        testa = indElem + 1;
        vertici = 0;
        Memorizza(tPoligono, x, y, z, 0, 0, 0, s, c, p, senzaTesto);
    };
    double px = 0, py = 0, pz = 0;
    const auto aggiungi = [&](const OdGePoint3d& q) {
        double x = 0, y = 0;
        if (!interno(q, x, y)) {
            resoconto.tralascia("VERTEX");
            return true;
        }
        if (testa == 0) {
            if (!posto()) return false;
            testaNuova(x, y, q.z);
        } else {
            if (vertici == massimi) {
                if (!posto()) return false;
                testaNuova(px, py, pz);
            }
            if (!posto()) return false;
            Memorizza(tVertice, x, y, q.z, 0, 0, 0, s, c, p, senzaTesto);
            ++vertici;
        }
        px = x;
        py = y;
        pz = q.z;
        return true;
    };
    for (const OdGePoint3d& q : punti)
        if (!aggiungi(q)) return;
    if (chiusa && !punti.empty()) aggiungi(punti.front());
}

void DbDumper::faiPunto(const OdDbPoint& p) {
    constexpr std::int16_t retino = 3;
    double x = 0, y = 0;
    if (!interno(p.position, x, y)) {
        resoconto.tralascia("POINT");
        return;
    }
    if (!posto()) return;
    lucido(p, lucidoPunti);
    Memorizza(tMarker, x, y, p.position.z, markerCorrente, 0, 0, SpessoreBordo(db, p), colore(p), retino, senzaTesto);
}

void DbDumper::creaCerchio2D(const OdDbCircle& c) {
    double x = 0, y = 0;
    const OdGePoint3d centro = OdGeMatrix3d::planeToWorld(c.normal) * c.center;
    if (!interno(centro, x, y) || !std::isfinite(c.radius) || !(c.radius > 0)) {
        resoconto.tralascia("CIRCLE");
        return;
    }
    if (!posto()) return;
    lucido(c, lucidoEntita);
    Memorizza(tCerchio, x, y, c.radius / rappvid, 0, 0, 0, SpessoreBordo(db, c), colore(c), tipoLineaModelSpace(db, c),
              senzaTesto);
}

// Off the plane of the drawing, the ends are looked for where they stand in plan; seen from below it turns the other way.
void DbDumper::creaArco2D(const OdDbArc& a, bool nelPiano) {
    constexpr double inGradi = 180 / 3.14159265358979323846, giro = 360;
    const OdGeMatrix3d m = OdGeMatrix3d::planeToWorld(a.normal);
    const OdGePoint3d centro = m * a.center;
    const auto direzione = [&](double angolo) {
        if (nelPiano) return angolo * inGradi;
        const OdGeVector3d d = m * OdGeVector3d{std::cos(angolo), std::sin(angolo), 0};
        return std::atan2(d.y, d.x) * inGradi;
    };
    const bool rovescio = !nelPiano && a.normal.z < 0;
    const double da = direzione(rovescio ? a.endAngle : a.startAngle),
                 fino = direzione(rovescio ? a.startAngle : a.endAngle);
    // Clockwise from straight up: it begins where the counter-clockwise one ends. Equal ends are a full turn.
    const auto inGiro = [](double g) {
        g = std::fmod(g, giro);
        return g < 0 ? g + giro : g;
    };
    const double comincia = inGiro(90 - fino);
    double ampiezza = inGiro(fino - da);
    if (ampiezza == 0) ampiezza = giro;
    double x = 0, y = 0;
    if (!interno(centro, x, y) || !std::isfinite(comincia + ampiezza) || !std::isfinite(a.radius) || !(a.radius > 0)) {
        resoconto.tralascia("ARC");
        return;
    }
    if (!posto()) return;
    lucido(a, lucidoEntita);
    const double r = a.radius / rappvid;
    Memorizza(tArco, x, y, r, comincia, ampiezza, 0, SpessoreBordo(db, a), colore(a), tipoLineaModelSpace(db, a),
              senzaTesto);
}

namespace {

std::string maiuscolo(std::string_view s) { return OdDbTabella<OdDbRecord>::maiuscolo(s); }

// The font of a style's file. Kept: minus the number of the family in the menu, else 65514 in 16 bits.
std::int16_t fontDi(const std::string& file) {
    constexpr std::int16_t ignoto = -22;
    constexpr std::size_t troppoLungo = 255;
    std::string nome = maiuscolo(file);
    nome = nome.substr(0, nome.find('.'));
    if (nome == "COUR") nome = "COURIER";
    if (nome.empty() || nome.size() >= troppoLungo) return ignoto;
    const std::int16_t voci = CountMenuItems(menuCaratteri);
    for (std::int16_t i = 1; i <= voci; ++i) {
        const std::string voce = GetMenuItemText(menuCaratteri, i);
        if (maiuscolo(voce) == nome) return i16(-std::int32_t{GetFNum(voce)});
    }
    return ignoto;
}

}   // namespace

void DbDumper::faiTesto(const OdDbEntity& e, const OdGePoint3d& mondo, const OdGeVector3d& direzione, double altezza,
                        OdDbObjectId stile, const std::string& font, const std::string& utf8) {
    constexpr double minimo = 5, massimo = 127;
    const std::string s = TestoDelDisegno(utf8);
    if (s.empty()) return;
    constexpr std::size_t lungoMassimo = sizeof(elemento::test.testo) - 1;
    double x = 0, y = 0;
    const double rotazione = std::atan2(direzione.y, direzione.x);
    if (!interno(mondo, x, y) || !std::isfinite(rotazione)) {
        resoconto.tralascia("TEXT");
        return;
    }
    if (!posto()) return;
    const std::string& file = !font.empty() || stile.isNull() ? font : db.textStyles[stile].fileName;
    const double h = std::trunc(1.2 * (altezza / rappvid) / DecPunto);
    gFontSize = static_cast<std::int16_t>(std::isfinite(h) ? std::clamp(h, minimo, massimo) : minimo);
    const auto noto = fontNoti.find(file);
    gFontID = noto != fontNoti.end() ? noto->second : fontNoti.emplace(file, fontDi(file)).first->second;
    const std::int16_t angolo = arrotonda16(SessadToAng(90, gradCorrente) - RadToAng(rotazione, gradCorrente));
    if (s.size() > lungoMassimo) resoconto.cambiati.aggiungi(cTestiTagliati);
    lucido(e, lucidoEntita);
    Memorizza(tTesto, x, y, 0, 0, 0, 0, 1, colore(e), angolo, PStr255(std::string_view(s).substr(0, lungoMassimo)));
}

namespace {
void azzera() {
    scelteImporta = {};
    arrayNameLayer.clear();
    layerTot = 0;
    numElImportati = 0;
}
const VoceStato righe[] = {
    voce<numElImportati>("numElImportati"),   voce<layerTot>("layerTot"),
    voce<suddividi_piani>("suddividi_piani"), voce<layoutPicked>("layoutPicked"),
    voce<ixSpazioCarta>("ixSpazioCarta"),     {"scelteImporta", azzera, nullptr},
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
