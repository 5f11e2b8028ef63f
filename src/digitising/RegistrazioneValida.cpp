// The faults of a registration and of the live transformation that forbid their use, in the words of the report.
#include "digitising/RegistrazioneValida.h"

#include <cmath>

#include "digitising/RapportoAttacchi.h"
#include "digitising/RapportoTesti.h"
#include "platform/Dialogs.h"

namespace tessaro {

namespace {

constexpr std::int16_t avvisoRegistrazione = 9151;
constexpr double tolleranza = 0.001;   // sheet units

bool zero(double x, double y) { return x == 0 && y == 0; }

std::string dei(Difetto difetto, std::vector<std::int16_t> punti) {
    return TestoAvviso({difetto, false, std::move(punti)});
}

}   // namespace

std::string GuastoRegistrazione(const elemento& primo, const elemento& secondo) {
    if (!secondo.att.coordReali) return {};
    const auto& s = primo.att;
    const auto& r = secondo.att;
    if (zero(s.x1, s.y1) && zero(s.x2, s.y2)) return dei(Difetto::mancanti, {1, 2});
    const double foglioX = s.x2 - s.x1, foglioY = s.y2 - s.y1, realeX = r.x2 - r.x1, realeY = r.y2 - r.y1;
    if (std::fabs(foglioX) < tolleranza && std::fabs(foglioY) < tolleranza) return dei(Difetto::coincidenti, {1, 2});
    const double rapporto = std::hypot(realeX, realeY) / std::hypot(foglioX, foglioY);
    if (zero(realeX, realeY) || !std::isfinite(rapporto) || !std::isfinite(1 / rapporto))
        return dei(Difetto::realiCoincidenti, {1, 2});
    return {};
}

void RifiutaRegistrazione(const std::string& guasto) { StopAlertParam(avvisoRegistrazione, guasto); }

std::string GuastoTrasformazione() {
    DatiRapporto d = DatiDelMomento();
    d.coordReali = false;   // the points that its mode takes, whatever the sheet's own registration is
    for (const AvvisoPunti& a : CalcolaRapportoAttacchi(d).avvisi)
        if (a.difetto == Difetto::mancanti || a.difetto == Difetto::coincidenti) return TestoAvviso(a);
    return {};
}

}   // namespace tessaro
