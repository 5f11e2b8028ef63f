// The tablet's readers: on, off, and one step of reading.
#include "digitising/TavolettaLettori.h"

#include <cmath>
#include <optional>
#include <string>

#include "digitising/Tavoletta.h"
#include "digitising/TavolettaImpostazioni.h"
#include "digitising/TavolettaPacchetti.h"
#include "files/Impostazioni.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "model/Vista.h"
#include "model/Voci.h"
#include "platform/Dialogs.h"
#include "platform/Menus.h"
#include "platform/Resources.h"

namespace tessaro {

constinit std::int16_t lettoreVivo = 0;

namespace {

constexpr std::int16_t avvisoTavoletta = 9104;
constexpr std::int16_t testi = 9160;                      // string list
constexpr std::int16_t primoNome = 1, primoGuasto = 10;   // by LettoreTavoletta, by GuastoSeriale
constexpr std::int16_t portaMancante = 17;

DecodificaTavoletta decodifica(FormatoPacchetti::virgole);
PressioneTasti pressione;

void racconta(std::int16_t testo) {
    ParamText(GetIndString(testi, testo), PortaTavIn.view(), "", "");
    StopAlert(avvisoTavoletta);
}

void racconta(GuastoSeriale g) { racconta(static_cast<std::int16_t>(primoGuasto + static_cast<std::int16_t>(g))); }

void mostraLettore() {
    SetMenuItemText(menuStrumenti, voci::strumenti::lettura,
                    GetIndString(testi, static_cast<std::int16_t>(primoNome + lettoreVivo)));
    CheckMenuItem(menuStrumenti, voci::strumenti::lettura, TabAbilit != 0);
}

bool apriLinea() {
    if (PortaTavIn.view().empty()) {
        racconta(portaMancante);
        return false;
    }
    if (const GuastoSeriale g = SerialOpen(LineaTavoletta()); g != GuastoSeriale::nessuno) {
        racconta(g);
        return false;
    }
    Parita = parity;
    StopBit = bitstop;
    decodifica = DecodificaTavoletta(static_cast<FormatoPacchetti>(formatoTavoletta));
    pressione.azzera();
    return true;
}

void elabora(const Campione& c) { CampioneTavoletta(c.x, c.y, c.bottone); }

}   // namespace

bool AccendiTavoletta(LettoreTavoletta quale) {
    SpegniTavoletta();
    if (quale == LettoreTavoletta::seriale && !apriLinea()) return false;
    if (quale == LettoreTavoletta::penna) PenListen(PennaDigita);
    lettoreVivo = static_cast<std::int16_t>(quale);
    TabAbilit = quale != LettoreTavoletta::nessuno;
    mostraLettore();
    return true;
}

void SpegniTavoletta() {
    SerialClose();
    PenListen(nullptr);
    lettoreVivo = 0;
    TabAbilit = 0;
    tabButton = bNessuno;
    frazioneXt = frazioneYt = 0;
    Parita = StopBit = 0;
    mostraLettore();
}

void CambiaLettura() {
    if (TabAbilit) {
        SpegniTavoletta();
    } else {
        AccendiTavoletta(static_cast<LettoreTavoletta>(lettoreScelto));
    }
}

bool LeggiTavoletta() {
    if (lettoreVivo != static_cast<std::int16_t>(LettoreTavoletta::seriale)) return false;
    bool letto = false;
    if (SerialCut()) decodifica.azzera();
    const GuastoSeriale guasto = SerialFault();
    std::optional<Campione> moto;   // of a run of samples without a button the last one counts
    std::uint8_t byte[512];
    for (std::size_t n = SerialRead(byte, sizeof byte); n > 0; n = SerialRead(byte, sizeof byte)) {
        for (std::size_t i = 0; i < n; ++i) {
            Campione c;
            if (!decodifica.prendi(byte[i], c)) continue;
            letto = true;
            c.bottone = pressione.premuto(c.bottone, TickCount());
            if (c.bottone == 0) {
                moto = c;
                continue;
            }
            moto.reset();   // the press has its own place
            elabora(c);
        }
    }
    if (moto) elabora(*moto);
    if (guasto != GuastoSeriale::nessuno) {
        SpegniTavoletta();
        racconta(guasto);
    }
    return letto;
}

void CampioneTavoletta(std::int32_t xt, std::int32_t yt, std::int16_t bottone) {
    if (!TabAbilit || noWindow) return;
    xtab = xt;
    ytab = yt;
    tabButton = bottone;
    CheckTablet();
}

void PennaTavoletta(double h, double v, std::int16_t bottone) {
    const double xt = ((h + OrigX) / scalavid - XtabFin) / scalaXt;
    const double yt = (htav1 + YtabFin - (v + OrigY) / scalavid) / scalaYt;
    constexpr double limite = 2e9;
    if (!(std::fabs(xt) < limite && std::fabs(yt) < limite)) return;
    SetCursor(DigitaCursor);
    frazioneXt = xt - std::floor(xt);
    frazioneYt = yt - std::floor(yt);
    CampioneTavoletta(static_cast<std::int32_t>(std::floor(xt)), static_cast<std::int32_t>(std::floor(yt)), bottone);
}

bool PennaDigita(double h, double v) {
    const Point p{static_cast<std::int32_t>(std::floor(v)), static_cast<std::int32_t>(std::floor(h))};
    return TabAbilit && !noWindow && Modalita == mDigitazione && PtInRect(p, myViewRect);
}

namespace {
const VoceStato righe[] = {
    {"lettoreVivo",
     [] {
         SerialClose();
         PenListen(nullptr);
         lettoreVivo = 0;
     },
     [] { return std::to_string(lettoreVivo); }},
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
