// From the table of control points to the drawing, and from its markers to the table.
#include "digitising/PuntiApplica.h"

#include <algorithm>
#include <cmath>

#include "digitising/PuntiTesti.h"
#include "digitising/RegistrazioneValida.h"
#include "display/Zoom.h"
#include "editing/AttacchiCambiati.h"
#include "model/Archivio.h"
#include "model/Unita.h"
#include "registration/PuntiControllo.h"
#include "registration/TabellaPunti.h"

namespace tessaro {

namespace {

// The similarity by the points and weights of the table's own solution.
bool similitudine(MappaPunti& m) {
    const StatoPunti& s = StatoTabella();
    SoluzionePunti q;
    if (!s.esito || !RisolviPunti(PuntiDellaTabella(LaTabella(), false), Metodo::helmert, q, s.pesi)) return false;
    m = q.mappa;
    return true;
}

void piuLontani(Coppia& a, Coppia& b) {
    const std::vector<PuntoNoto> p = PuntiDellaTabella(LaTabella(), true);
    double massimo = -1;
    for (std::size_t i = 0; i < p.size(); ++i)
        for (std::size_t j = i + 1; j < p.size(); ++j) {
            const double d = std::hypot(p[i].foglio.x - p[j].foglio.x, p[i].foglio.y - p[j].foglio.y);
            if (!(d > massimo)) continue;
            massimo = d;
            a = p[i].foglio;
            b = p[j].foglio;
        }
}

}   // namespace

std::string ApplicaPunti(bool tutta) {
    MappaPunti m;
    if (!similitudine(m)) return TestoEsito(LaTabella(), StatoTabella());
    const elemento primo = Elem(1), secondo = Elem(2);
    Coppia a = LeggiAttacco(1), b = LeggiAttacco(2);
    constexpr double vicino = 1;   // sheet units: nearer points say nothing about the scale
    if ((a.x == 0 && a.y == 0) || (b.x == 0 && b.y == 0) || std::hypot(a.x - b.x, a.y - b.y) < vicino) {
        piuLontani(a, b);
        AssegnaAttacco(1, a.x, a.y);
        AssegnaAttacco(2, b.x, b.y);
    }
    const Coppia ra = m(a), rb = m(b);
    auto& r = Elem(2).att;
    r.x1 = ra.x;
    r.y1 = ra.y;
    r.x2 = rb.x;
    r.y2 = rb.y;
    r.coordReali = 1;
    if (const std::string guasto = GuastoRegistrazione(Elem(1), Elem(2)); !guasto.empty()) {
        Elem(1) = primo;
        Elem(2) = secondo;
        return guasto;
    }
    TabellaPunti t = LaTabella();
    t.inVigore = tutta;
    t.firma = FirmaAttuale();
    PoniTabella(t);
    AttacchiCambiati();
    CalcolaRapporti();
    InvalFinestra();
    return {};
}

std::unique_ptr<MappaFoglio> MappaDellaTabella() {
    const StatoPunti& s = StatoTabella();
    if (!s.esito) return nullptr;
    auto m = std::make_unique<MappaFoglio>(s.soluzione.mappa, PuntiDellaTabella(LaTabella(), true),
                                           Elem(2).att.coordReali != 0);
    return *m ? std::move(m) : nullptr;
}

void SoloSimilitudine() {
    TabellaPunti t = LaTabella();
    t.inVigore = false;
    PoniTabella(t);
}

std::size_t PuntiDaiMarker(TabellaPunti& t, std::int16_t lucido) {
    std::size_t quanti = 0;
    for (std::int32_t n = 3; n <= indElem; ++n) {
        const elemento& e = Elem(n);
        if (e.tipo != tMarker || e.lucido != lucido || t.righe.size() >= massimoPuntiTabella) continue;
        std::string nome;   // the tag: a length and its characters
        const auto& tag = e.mark.t.aref;
        for (std::size_t i = 1; i <= tag[0] && i < tag.size(); ++i) nome += static_cast<char>(tag[i]);
        const auto stesso = std::find_if(t.righe.begin(), t.righe.end(),
                                         [&](const RigaPunto& r) { return !nome.empty() && r.nome == nome; });
        RigaPunto& r = stesso == t.righe.end() ? t.righe.emplace_back() : *stesso;
        r.nome = nome;
        r.foglio = {e.mark.x, e.mark.y};
        r.conFoglio = true;
        ++quanti;
    }
    return quanti;
}

std::size_t PrimoSenzaFoglio(const TabellaPunti& t, std::size_t da) {
    for (std::size_t i = da; i < t.righe.size(); ++i)
        if (!t.righe[i].conFoglio) return i;
    return t.righe.size();
}

}   // namespace tessaro
