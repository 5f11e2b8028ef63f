// The units with their start values, and the ratios that follow from them.
#include "model/Unita.h"

#include "model/Archivio.h"
#include "model/TabellaStato.h"
#include "text/Conversione.h"

namespace tessaro {

constinit std::int32_t gradCorrente = 0;
constinit std::int32_t orientCorrente = 1;
constinit std::int16_t tipoAngolo = 1;
constinit std::int16_t UnitaMCorrente = 6;
constinit double Scaladis = 1000;
constinit double decimiUnita = 10000;
constinit double rappvid = 0.1;
constinit float RappPunti = static_cast<float>(0.1 * 254 / 72);
constinit double Xfoglio = 42;
constinit double yfoglio = 29.7;
constinit std::int16_t XFDecimi = 4200;
constinit std::int16_t YFDecimi = 2970;
constinit std::int16_t btav = 4200;
constinit std::int16_t htav = 3000;
constinit double btav1 = 4200;
constinit double htav1 = 3000;
constinit double scalaX = 1;
constinit double scalaY = 1;
constinit double puntimm = 40;

void CalcolaRapporti() {
    if (ArrElementi && Elem(2).att.coordReali) {
        const auto& foglio = Elem(1).att;
        const auto& reali = Elem(2).att;
        rappvid =
            Distanza(reali.x1, reali.y1, reali.x2, reali.y2) / Distanza(foglio.x1, foglio.y1, foglio.x2, foglio.y2);
        Scaladis = decimiUnita * rappvid;
    } else {
        rappvid = Scaladis / decimiUnita;
    }
    RappPunti = static_cast<float>(rappvid * 254 / 72);
}

namespace {

const VoceStato righe[] = {
    voce<gradCorrente>("gradCorrente"),
    voce<orientCorrente>("orientCorrente"),
    voce<tipoAngolo>("tipoAngolo"),
    voce<UnitaMCorrente>("UnitaMCorrente"),
    voce<Scaladis>("Scaladis"),
    voce<decimiUnita>("decimiUnita"),
    voce<rappvid>("rappvid"),
    voce<RappPunti>("RappPunti"),
    voce<Xfoglio>("Xfoglio"),
    voce<yfoglio>("yfoglio"),
    voce<XFDecimi>("XFDecimi"),
    voce<YFDecimi>("YFDecimi"),
    voce<btav>("btav"),
    voce<htav>("htav"),
    voce<btav1>("btav1"),
    voce<htav1>("htav1"),
    voce<scalaX>("scalaX"),
    voce<scalaY>("scalaY"),
    voce<puntimm>("puntimm"),
    // The angle system in force is read by the conversions, which stand below the model.
    {"gradInUso", [] { gradInUso = &gradCorrente; }},
    {"tipoAngoloInUso", [] { tipoAngoloInUso = &tipoAngolo; }},
};
const TabellaStato tabella(righe);

}   // namespace

}   // namespace tessaro
