// The entities of R12. Each is a record: kind, flags of its common part, length, layer, options of its own part, then
// only what those say, and a check. A polyline's vertices follow it up to an end mark that names the polyline's place.
#include "dwg/kit/scrividwg/FileDwg12.h"
#include "dwg/kit/scrividwg/OggettoDwg.h"

namespace tessaro {

namespace {

constexpr unsigned linea12 = 1, punto12 = 2, cerchio12 = 3, testo12 = 7, arco12 = 8, fine12 = 17, polilinea12 = 19,
                   vertice12 = 20;
constexpr unsigned haColore = 1, haLinea = 2, haQuota = 4, haSpessore = 8, haParti = 128;

constexpr unsigned se(bool c, unsigned bit) { return c ? bit : 0; }

struct Stesura12 {
    const OdDbDatabase& db;
    std::vector<std::int32_t> linee;
    ByteDwg12& b;
    std::uint32_t prima;   // place in the file of the first byte of b
    std::size_t da = 0;    // of the record being written

    void apri(const OdDbEntity& e, unsigned tipo, unsigned opzioni, double quota, double spessore, bool parti = false) {
        da = b.s.size();
        const bool suaLinea = !e.linetype.isNull() && linee[e.linetype.n - 1] != lineaDaPiano12;
        const bool suoColore = e.color.metodo != OdCmColor::byLayer;
        b.RC(tipo);
        b.RC(se(suoColore, haColore) | se(suaLinea, haLinea) | se(quota != 0, haQuota) | se(spessore != 0, haSpessore)
             | se(parti, haParti));
        b.RS(0);   // the length, put in at the end
        b.RS(static_cast<std::int32_t>(e.layer.isNull() ? db.header.clayer.n - 1 : e.layer.n - 1));
        b.RS(static_cast<std::int32_t>(opzioni));
        if (suoColore) b.RC(static_cast<unsigned>(e.color.indice));
        if (suaLinea) b.RS(linee[e.linetype.n - 1]);
        if (quota != 0) b.RD(quota);
        if (spessore != 0) b.RD(spessore);
    }
    void chiudi() {
        const std::size_t n = b.s.size() - da + 2;
        b.s[da + 2] = static_cast<char>(n & 0xFF);
        b.s[da + 3] = static_cast<char>(n >> 8);
        b.controllo(da);
    }
    [[nodiscard]] std::uint32_t qui() const { return prima + static_cast<std::uint32_t>(b.s.size()); }
};

void linea(Stesura12& s, const OdDbEntity& e) {
    const auto& l = static_cast<const OdDbLine&>(e);
    const bool piana = NormaleZ(l.normal);
    s.apri(e, linea12, piana ? 0 : 1, 0, l.thickness);   // both ends with their heights
    s.b.RD3(l.startPoint);
    s.b.RD3(l.endPoint);
    if (!piana) s.b.RD3(l.normal);
    s.chiudi();
}

void punto(Stesura12& s, const OdDbEntity& e) {
    s.apri(e, punto12, 0, 0, 0);
    s.b.RD3(static_cast<const OdDbPoint&>(e).position);
    s.chiudi();
}

void cerchio(Stesura12& s, const OdDbEntity& e) {
    const auto& c = static_cast<const OdDbCircle&>(e);
    s.apri(e, cerchio12, NormaleZ(c.normal) ? 0 : 1, c.center.z, c.thickness);
    s.b.RD2(c.center.x, c.center.y);
    s.b.RD(c.radius);
    if (!NormaleZ(c.normal)) s.b.RD3(c.normal);
    s.chiudi();
}

void arco(Stesura12& s, const OdDbEntity& e) {
    const auto& a = static_cast<const OdDbArc&>(e);
    s.apri(e, arco12, NormaleZ(a.normal) ? 0 : 1, a.center.z, a.thickness);
    s.b.RD2(a.center.x, a.center.y);
    s.b.RD(a.radius);
    s.b.RD2(GiroInteroDwg(a.startAngle), GiroInteroDwg(a.endAngle));
    if (!NormaleZ(a.normal)) s.b.RD3(a.normal);
    s.chiudi();
}

void testo(Stesura12& s, const OdDbEntity& e) {
    constexpr unsigned rotato = 1, largo = 2, obliquo = 4, conStile = 8, girato = 16, inX = 32, allineato = 64,
                       fuoriPiano = 128, inY = 256;
    constexpr std::size_t massimo = 0x7FFF;   // the record's length has 16 bits
    const auto& t = static_cast<const OdDbText&>(e);
    const std::uint32_t stile = (t.textStyle.isNull() ? s.db.header.textStyle : t.textStyle).n;
    const bool dalPunto = t.horizontalMode == 0 && t.verticalMode == 0;
    const unsigned opzioni = se(t.rotation != 0, rotato) | se(t.widthFactor != 1, largo) | se(t.oblique != 0, obliquo)
                             | se(stile > 1, conStile) | se(t.textGenerationFlags != 0, girato)
                             | se(t.horizontalMode != 0, inX) | se(!dalPunto, allineato)
                             | se(!NormaleZ(t.normal), fuoriPiano) | se(t.verticalMode != 0, inY);
    s.apri(e, testo12, opzioni, t.position.z, t.thickness);
    s.b.RD2(t.position.x, t.position.y);
    s.b.RD(t.height);
    const std::string byte = TestoDwg(t.textString).substr(0, massimo);
    s.b.RS(static_cast<std::int32_t>(byte.size()));
    s.b.s += byte;
    if ((opzioni & rotato) != 0) s.b.RD(t.rotation);
    if ((opzioni & largo) != 0) s.b.RD(t.widthFactor);
    if ((opzioni & obliquo) != 0) s.b.RD(t.oblique);
    if ((opzioni & conStile) != 0) s.b.RC(stile - 1);
    if ((opzioni & girato) != 0) s.b.RC(static_cast<unsigned>(t.textGenerationFlags));
    if ((opzioni & inX) != 0) s.b.RC(static_cast<unsigned>(t.horizontalMode));
    if ((opzioni & allineato) != 0) s.b.RD2(t.alignmentPoint.x, t.alignmentPoint.y);
    if ((opzioni & fuoriPiano) != 0) s.b.RD3(t.normal);
    if ((opzioni & inY) != 0) s.b.RC(static_cast<unsigned>(t.verticalMode));
    s.chiudi();
}

void vertice(Stesura12& s, const OdDbPolylineBase& p, const OdDbVertice& v, bool spaziale) {
    constexpr unsigned largoInizio = 1, largoFine = 2, curvo = 4, conFlag = 8;
    constexpr unsigned diSpaziale = 32;
    const unsigned opzioni =
        spaziale ? conFlag
                 : se(v.startWidth != 0, largoInizio) | se(v.endWidth != 0, largoFine) | se(v.bulge != 0, curvo);
    s.apri(p, vertice12, opzioni, spaziale ? v.punto.z : p.elevation, 0);
    s.b.RD2(v.punto.x, v.punto.y);
    if ((opzioni & largoInizio) != 0) s.b.RD(v.startWidth);
    if ((opzioni & largoFine) != 0) s.b.RD(v.endWidth);
    if ((opzioni & curvo) != 0) s.b.RD(v.bulge);
    if (spaziale) s.b.RC(diSpaziale);
    s.chiudi();
}

void polilinea(Stesura12& s, const OdDbEntity& e) {
    constexpr unsigned conFlag = 1, largaInizio = 2, largaFine = 4, fuoriPiano = 8;
    constexpr unsigned chiusa = 1, treDimensioni = 8;
    const auto& p = static_cast<const OdDbPolylineBase&>(e);
    const bool spaziale = e.classe == OdDbClasse::Polyline3d, storta = !spaziale && !NormaleZ(p.normal);
    const unsigned flag = se(p.closed, chiusa) | se(spaziale, treDimensioni);
    const unsigned opzioni = se(flag != 0, conFlag) | se(p.startWidth != 0, largaInizio)
                             | se(p.endWidth != 0, largaFine) | se(storta, fuoriPiano);
    const std::uint32_t capo = s.qui();
    s.apri(e, polilinea12, opzioni, spaziale ? 0 : p.elevation, p.thickness, true);
    if ((opzioni & conFlag) != 0) s.b.RC(flag);
    if ((opzioni & largaInizio) != 0) s.b.RD(p.startWidth);
    if ((opzioni & largaFine) != 0) s.b.RD(p.endWidth);
    if (storta) s.b.RD3(p.normal);
    s.chiudi();
    for (const OdDbVertice& v : p.vertici) vertice(s, p, v, spaziale);
    s.apri(e, fine12, 0, 0, 0);
    s.b.RL(capo);
    s.chiudi();
}

constexpr struct {
    OdDbClasse classe;
    void (*scrivi)(Stesura12& s, const OdDbEntity& e);
} scritture[] = {
    {OdDbClasse::Line, linea},           {OdDbClasse::Point, punto},
    {OdDbClasse::Circle, cerchio},       {OdDbClasse::Arc, arco},
    {OdDbClasse::Text, testo},           {OdDbClasse::Polyline, polilinea},
    {OdDbClasse::Polyline2d, polilinea}, {OdDbClasse::Polyline3d, polilinea},
};

}   // namespace

bool EntitaDwg12(const OdDbDatabase& db, std::string& byte, OdDbHostAppProgressMeter& meter) {
    ByteDwg12 b;
    Stesura12 s{db, NumeriLinee12(db), b, inizioEntita12};
    for (const OdDbEntityPtr& e : db.spazioModello().entita) {
        if (e->erased) continue;
        for (const auto& w : scritture)
            if (w.classe == e->classe) w.scrivi(s, *e);
        if (!meter.meterProgress()) return false;
    }
    byte += b.s;
    return true;
}

}   // namespace tessaro
