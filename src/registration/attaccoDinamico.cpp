// The live transformation: its destination points, the preparation of its mapping, the mapping.
#include "registration/attaccoDinamico.h"

#include <algorithm>
#include <cmath>

#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "model/VociDocumento.h"
#include "registration/Coordinate.h"
#include "registration/MappaFoglio.h"
#include "registration/PuntiControllo.h"
#include "text/Conversione.h"

namespace tessaro {

ActiveAttach attaccoAttivo;

namespace {

enum : std::int32_t { duePunti = 0, quattroPt = 1, cinquePt = 2 };   // modes

bool conRisolutore(std::int32_t tipo) { return tipo == quattroPt || tipo == cinquePt; }

}   // namespace

bool AnteprimaAttiva() {
    return mappaMolti != nullptr || (attaccoAttivo.GetModificato() != 0 && attaccoAttivo.Preparato());
}

std::int32_t TipoMappa() { return mappaMolti != nullptr ? mappaPerMolti : attaccoAttivo.GetTipo(); }

ActiveAttach::ActiveAttach() {
    SetDelta(0, 0, 0);
    SetRot(0, 0, 0, 0);
    SetIngr(1);
    SetCoord(0, 0, 0, 0, 0, 0);
}

void ActiveAttach::Azzera() { *this = ActiveAttach(); }

// --- setters

void ActiveAttach::SetXYAtt(std::int16_t i, const double& x, const double& y) {
    if (i < 0 || i >= static_cast<std::int16_t>(xAtt.size())) return;
    xAtt[static_cast<std::size_t>(i)] = x;
    yAtt[static_cast<std::size_t>(i)] = y;
}

void ActiveAttach::GetAttacco(std::int16_t n, double& x, double& y) const {
    if (n < 1 || n > static_cast<std::int16_t>(xAtt.size())) return;
    x = xAtt[static_cast<std::size_t>(n - 1)];
    y = yAtt[static_cast<std::size_t>(n - 1)];
}

void ActiveAttach::SetDelta(const double& x, const double& y, const double& z) {
    transf.deltaX = x;
    transf.deltaY = y;
    transf.deltaZ = z;
}

// Kept: the fourth value lands on the third place, and rot22 stays as it was.
void ActiveAttach::SetRot(const double& a, const double& b, const double& c, const double& d) {
    transf.rot11 = a;
    transf.rot12 = b;
    transf.rot21 = c;
    transf.rot21 = d;
}

void ActiveAttach::SetIngr(const double& v) { transf.ingr = v; }

void ActiveAttach::SetCoord(const double& x1, const double& y1, const double& z1, const double& x2, const double& y2,
                            const double& z2) {
    transf.x1 = x1;
    transf.y1 = y1;
    transf.z1 = z1;
    transf.x2 = x2;
    transf.y2 = y2;
    transf.z2 = z2;
}

// --- preparation and mapping

namespace {

// Points that have been given. Kept: point 4 counts unless it is at (0, 1), the rest of a new drawing's record 2.
std::ptrdiff_t puntiDati(const std::array<Coppia, 4>& p) {
    return std::count_if(p.begin(), p.end() - 1, [](const Coppia& c) { return c.x != 0 || c.y != 0; })
           + (p[3].x != 0 || p[3].y != 1.0 ? 1 : 0);
}

}   // namespace

// Kept: source and target of every preparation of this object err by 25 and 26; the inverse has them so that 26 stands for
// its source diagonals and first axis, 25 for its target diagonals and the second.
namespace {
constexpr ErroriPrep erroriDiretti{25, 26, 25, 25, 26, 26}, erroriInversi{26, 25, 26, 25, 26, 26};
}   // namespace

void ActiveAttach::CalcolaCoefficienti() {
    if (!RisolviOmografia(lavoro.src, lavoro.dst, coef) && deformProspettica)
        preparato = false;   // coef are older ones
}

ErroriIncontrati ActiveAttach::PrepAtt4pt() {
    const ErroriIncontrati errori = PreparaQuattro(lavoro, erroriDiretti);
    fuga = MappaFuga(lavoro);
    return errori;
}

ErroriIncontrati ActiveAttach::PrepAtt5pt() {
    const ErroriIncontrati errori = PreparaCinque(lavoro, erroriDiretti);
    fuga = MappaFuga(lavoro);
    return errori;
}

ErroriIncontrati ActiveAttach::PrepAtt4ptInverso() {
    const ErroriIncontrati errori = PreparaQuattro(lavoro, erroriInversi);
    fuga = MappaFuga(lavoro);
    return errori;
}

// The similarity that takes s1, s2 to d1, d2, turning about s1.
void ActiveAttach::similitudine(const Coppia& s1, const Coppia& s2, const Coppia& d1, const Coppia& d2) {
    SetCoord(s1.x, s1.y, transf.z1, s2.x, s2.y, transf.z2);
    transf.deltaX = d1.x - s1.x;
    transf.deltaY = d1.y - s1.y;
    rotazione = CoordAng(d1.x, d1.y, d2.x, d2.y) - CoordAng(s1.x, s1.y, s2.x, s2.y);
    transf.rot11 = std::cos(rotazione);
    transf.rot12 = -std::sin(rotazione);
    transf.rot21 = std::sin(rotazione);
    transf.rot22 = std::cos(rotazione);
    transf.ingr = Distanza(d1.x, d1.y, d2.x, d2.y) / Distanza(s1.x, s1.y, s2.x, s2.y);
}

ErroriIncontrati ActiveAttach::PreparaAttacco() {
    for (std::size_t i = 0; i < 4; ++i) {
        lavoro.src[i] = LeggiAttacco(static_cast<std::int16_t>(i + 1));
        lavoro.dst[i] = {xAtt[i], yAtt[i]};
    }
    lavoro.okSrc = lavoro.okDst = 1;
    lavoro.dstC = {xAtt[4], yAtt[4]};
    lavoro.srcC = {xAttacco5, yAttacco5};
    preparato = puntiDati(lavoro.src) >= 2;
    if (!preparato) {
        fuga = MappaFuga(lavoro);
        return {};
    }
    if (tipo == quattroPt) {
        CalcolaCoefficienti();
        return PrepAtt4pt();
    }
    if (tipo == cinquePt) return PrepAtt5pt();
    similitudine({XA1, YA1}, {XA2, YA2}, lavoro.dst[0], lavoro.dst[1]);
    return {};
}

ErroriIncontrati ActiveAttach::PreparaAttaccoInverso() {
    for (std::size_t i = 0; i < 4; ++i) {
        lavoro.dst[i] = LeggiAttacco(static_cast<std::int16_t>(i + 1));
        lavoro.src[i] = {xAtt[i], yAtt[i]};
    }
    lavoro.okSrc = lavoro.okDst = 1;
    lavoro.srcC = {xAtt[4], yAtt[4]};
    lavoro.dstC = {xAttacco5, yAttacco5};
    preparato = true;
    if (tipo == quattroPt) return PrepAtt4ptInverso();
    if (tipo == cinquePt) return PrepAtt5pt();
    similitudine(lavoro.src[0], lavoro.src[1], {XA1, YA1}, {XA2, YA2});
    return {};
}

void ActiveAttach::mappaPerFuga(bool curva, double& x, double& y) {
    if (fuga.orientamento() != orientCorrente) fuga = MappaFuga(lavoro);
    fuga(curva, x, y);
}

void ActiveAttach::Traf4Pt(double& x, double& y) {
    if (mappaMolti != nullptr) {
        const Coppia p = (*mappaMolti)({x, y});
        x = p.x;
        y = p.y;
        return;
    }
    const std::int32_t modo = attaccoAttivo.tipo;   // the global object's, whichever object maps
    if (modo == quattroPt && deformProspettica) {
        TrasformaOmografia(coef, x, y);
    } else if (!conRisolutore(modo)) {
        Tracoord(transf, x, y, x, y);
    } else {
        mappaPerFuga(deformProspettica != 0, x, y);
    }
}

void ActiveAttach::Traf4PtInverso(double& x, double& y) {
    if (conRisolutore(attaccoAttivo.tipo)) {
        mappaPerFuga(true, x, y);
    } else {
        Tracoord(transf, x, y, x, y);
    }
}

namespace {

std::string json() {
    const ActiveAttach& a = attaccoAttivo;
    std::string s = "{\"tipo\":" + NumeroJson(a.tipo) + ",\"modificato\":" + NumeroJson(a.modificato) + ",\"opzione\":"
                    + NumeroJson(a.opzione) + ",\"rotazione\":" + NumeroJson(a.rotazione) + ",\"punti\":[";
    for (std::size_t i = 0; i < a.xAtt.size(); ++i)
        s += std::string(i ? "," : "") + "[" + NumeroJson(a.xAtt[i]) + "," + NumeroJson(a.yAtt[i]) + "]";
    return s + "]}";
}

const VoceStato righe[] = {
    {"attaccoAttivo", [] { attaccoAttivo.Azzera(); }, json},
};
const TabellaStato tabella(righe);

}   // namespace

// What the journal keeps of it. What a preparation works out comes along with what it is worked out from.
struct VociAttacco {
    using V = VoceDocumento;
    inline static ActiveAttach& a = attaccoAttivo;
    inline static const VoceDocumento voci[] = {
        VoceDi("attacco.tipo", V::documento, a.tipo),
        VoceDi("attacco.xAtt", V::documento, a.xAtt),
        VoceDi("attacco.yAtt", V::documento, a.yAtt),
        VoceDi("attacco.opzione", V::documento, a.opzione),
        VoceDi("attacco.modificato", V::documento, a.modificato),
        VoceDi("attacco.radioTipo", V::documento, a.radioTipo),
        VoceDi("attacco.rotazione", V::derivata, a.rotazione),
        VoceDi("attacco.transf", V::derivata, a.transf),
        VoceDi("attacco.lavoro", V::derivata, a.lavoro),
        VoceDi("attacco.coef", V::derivata, a.coef),
        VoceDi("attacco.fuga", V::derivata, a.fuga),
        VoceDi("attacco.preparato", V::derivata, a.preparato),
    };
    inline static const VociDocumento tabella{voci};
};

}   // namespace tessaro
