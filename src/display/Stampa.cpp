// Printing: Disegna at the scale of the paper, a page after the other.
#include "display/Stampa.h"

#include <cmath>

#include "dialogs/Parametri.h"
#include "display/Disegno.h"
#include "display/Interruzione.h"
#include "display/StampaPiastrelle.h"
#include "display/Zoom.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Registrazione.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "model/Vista.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Resources.h"

namespace tessaro {

constinit PMPrintSession printSession = nullptr;
std::string hPageFormat, hPrintSettings, destFormatP, destLocationP;
constinit std::int16_t destTypeP = 0;
constinit Rect rectgr{};

namespace {

constexpr std::int16_t avvisoStampa = 9145, listaStampa = 9146;
enum Parola : std::int16_t { titoloAvanzamento = 1, nessunaStampante, nonScritto, nessunaPagina, prefissoScelte };
constexpr std::int16_t scelteNelDialogo = 7;

// The session of one operation; the global names it while it lives.
struct Sessione {
    OSStatus err = PMCreateSession(printSession);
    Sessione() = default;
    ~Sessione() {
        PMRelease(printSession);
        printSession = nullptr;
    }
    Sessione(const Sessione&) = delete;
    Sessione& operator=(const Sessione&) = delete;
};

PMPageFormat formatoTenuto() {
    PMPageFormat f;
    bool cambiato = false;
    PMUnflattenPageFormat(hPageFormat, f);
    PMSessionValidatePageFormat(printSession, f, cambiato);
    return f;
}
PMPrintSettings impostazioniTenute() {
    PMPrintSettings s;
    bool cambiato = false;
    PMUnflattenPrintSettings(hPrintSettings, s);
    PMSessionValidatePrintSettings(printSession, s, cambiato);
    return s;
}

void tieniDestinazione(const PMPrintSettings& s) {
    PMDestinationType tipo{};
    PMGetDestination(s, tipo, destFormatP, destLocationP);
    destTypeP = tipo;
}

void avvisa(OSStatus err) {
    if (err == 0 || err == kPMCancel) return;
    const Parola perche = err == kPMNoDefaultPrinter   ? nessunaStampante
                          : err == kPMInvalidPageRange ? nessunaPagina
                                                       : nonScritto;
    ParamText(GetIndString(listaStampa, perche), Utf8ToMac(destLocationP), "", "");
    StopAlert(avvisoStampa);
}

// The view while pages are drawn; what it was comes back.
class VistaDiCarta {
    double scala = scalavid, testo = ScalaTesto;
    std::int32_t h = OrigX, v = OrigY;
    GrafPtr porto = GetPort();

public:
    VistaDiCarta() = default;
    ~VistaDiCarta() {
        SetPort(porto);
        scalavid = scala;
        ScalaTesto = testo;
        OrigX = h;
        OrigY = v;
    }
    VistaDiCarta(const VistaDiCarta&) = delete;
    VistaDiCarta& operator=(const VistaDiCarta&) = delete;
};

Rect puntiInteri(const PMRect& r) {
    const auto intero = [](double p) { return static_cast<std::int32_t>(std::lround(p)); };
    return Rect{intero(r.top), intero(r.left), intero(r.bottom), intero(r.right)};
}

void disegnaPagina(const Piastrelle& p, std::int32_t n) {
    constexpr std::int32_t k = finezzaPagina;
    OrigX = (p.colonna(n) * p.passoH - p.bordo) * k;
    OrigY = (p.riga(n) * p.passoV - p.bordo) * k;
    GrafPtr porto = nullptr;
    if (PMSessionGetGraphicsContext(printSession, kPMGraphicsContextQuickdraw, Point{OrigY, OrigX}, porto) != 0) return;
    SetPort(porto);
    const Region tutta = porto->clip;
    ClipRect(SetRect(p.bordo * k, p.bordo * k, (p.bordo + p.larga) * k, (p.bordo + p.alta) * k));
    Disegna();
    SetClip(tutta);
    DisMarchePagina(p, n, rectgr, scelteStampa);
    SetPort(nullptr);
}

}   // namespace

void SetUpPrPort() {
    hPageFormat.clear();
    hPrintSettings.clear();
}

OSStatus DoDefault(PMPrintSession session) {
    OSStatus err = 0;
    if (hPageFormat.empty()) {
        PMPageFormat f;
        err = PMSessionDefaultPageFormat(session, f);
        if (err == 0) err = PMFlattenPageFormat(f, hPageFormat);
    }
    if (err == 0 && hPrintSettings.empty()) {
        PMPrintSettings s;
        err = PMSessionDefaultPrintSettings(session, s);
        tieniDestinazione(s);
        if (err == 0) err = PMFlattenPrintSettings(s, hPrintSettings);
    }
    return err;
}

OSStatus DoPageSetupDialog() {
    const Sessione sessione;
    OSStatus err = sessione.err != 0 ? sessione.err : DoDefault(printSession);
    if (err != 0) return err;
    PMPageFormat f = formatoTenuto();
    SetCursor(arrowCursor);
    err = PMSessionPageSetupDialog(printSession, f);
    if (err == 0) err = PMFlattenPageFormat(f, hPageFormat);
    return err;
}

OSStatus DoPrintSetup() {
    const Sessione sessione;
    OSStatus err = sessione.err != 0 ? sessione.err : DoDefault(printSession);
    if (err != 0) return err;
    PMPrintSettings s = impostazioniTenute();
    s.prima = 1;   // a range is for one print alone
    s.ultima = paginaFinale;
    std::uint8_t* const accese[scelteNelDialogo] = {
        &scelteStampa.crocini,    &scelteStampa.sovrapposte, &scelteStampa.numeri,   &scelteStampa.righello,
        &scelteStampa.saltaVuote, &scelteStampa.unaPagina,   &scelteStampa.compresse};
    std::string testi[scelteNelDialogo];
    SceltaStampa scelte[scelteNelDialogo];
    for (std::int16_t i = 0; i < scelteNelDialogo; ++i) {
        testi[i] = GetIndString(listaStampa, static_cast<std::int16_t>(prefissoScelte + i));
        scelte[i] = {testi[i], accese[i]};
    }
    SetCursor(arrowCursor);
    err = PMSessionPrintDialog(printSession, s, formatoTenuto(), NomeLavoro.view(), scelte);
    if (err != 0) return err;
    tieniDestinazione(s);
    return PMFlattenPrintSettings(s, hPrintSettings);
}

OSStatus DoPrint() {
    const Sessione sessione;
    OSStatus err = sessione.err != 0 ? sessione.err : DoDefault(printSession);
    if (err == 0) err = Print_Dis(formatoTenuto(), impostazioniTenute());
    avvisa(err);
    return err;
}

OSStatus Print_Dis(const PMPageFormat& pageFormat, const PMPrintSettings& printSettings) {
    PMPrintSettings settings = printSettings;
    settings.conPerdita = scelteStampa.compresse != 0;
    PMPageFormat formato = pageFormat;
    PMSessionHoldToPrinter(printSession, settings, formato);
    if (settings.destinazione == kPMDestinationFile && settings.luogo.empty()) return kPMNoDefaultPrinter;
    const VistaDiCarta vista;
    DisegnaPict = 1;
    StoStampando = 1;
    SetCursor(ClockCursor);
    PMSessionSetDestination(printSession, settings, settings.destinazione, destFormatP, settings.luogo);
    OSStatus err = PMSessionBeginDocument(printSession, settings, formato, NomeLavoro.view());
    std::int32_t prima = 1, ultima = 1, stampate = 0;
    PMRect carta;
    PMGetAdjustedPageRect(formato, carta);
    PMGetFirstPage(settings, prima);
    PMGetLastPage(settings, ultima);
    rectgr = puntiInteri(carta);
    const Piastrelle p = PiastrelleDi(rectgr, scelteStampa);
    // A page is counted finer than in whole points, so that what is drawn lies within a hundredth of a millimetre.
    scalavid = 72 / DecPollice * p.scala * finezzaPagina;
    ScalaTesto = scalavid * DecPunto;
    if (err == 0) {
        Termometro termometro(PStr255(std::string_view(GetIndString(listaStampa, titoloAvanzamento))));
        for (std::int32_t n = 1; n <= p.pagine() && err == 0; ++n) {
            if (n < prima || n > ultima) continue;
            if (scelteStampa.saltaVuote && PiastrellaVuota(p, n)) continue;
            err = PMSessionBeginPage(printSession);
            ++stampate;
            if (err == 0) {
                const DisegnoSeguito seguito((n - 1.0) / p.pagine(), static_cast<double>(n) / p.pagine());
                disegnaPagina(p, n);
            }
            PMSessionEndPage(printSession);
            if (!termometro.passo(static_cast<double>(n) / p.pagine())) err = kPMCancel;
        }
    }
    if (err == 0) err = stampate > 0 ? PMSessionEndDocument(printSession) : kPMInvalidPageRange;
    StoStampando = 0;
    SetCursor(arrowCursor);
    // Kept: DisegnaPict stays at 1; whoever works on calls DopoStampa first.
    return err;
}

OSStatus Stampa() {
    const OSStatus err = DoPrintSetup();
    return err != 0 ? err : DoPrint();
}

bool DopoStampa() {
    if (!DisegnaPict || StoStampando) return false;
    DisegnaPict = 0;
    return true;
}

namespace {
const VoceStato righe[] = {
    {"hPageFormat", SetUpPrPort},
    voce<destTypeP>("destTypeP"),
    {"destLocationP",
     [] {
         destFormatP.clear();
         destLocationP.clear();
     }},
    {"rectgr", [] { rectgr = {}; },
     [] {
         return "[" + NumeroJson(rectgr.left) + "," + NumeroJson(rectgr.top) + "," + NumeroJson(rectgr.right) + ","
                + NumeroJson(rectgr.bottom) + "]";
     }},
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
