// The calculator's buttons, its window and the path that it has traced.
#include "shell/Calcolatrice.h"

#include <array>

#include "dialogs/Parametri.h"
#include "digitising/Tavoletta.h"
#include "display/palette.h"
#include "display/Ridisegno.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Figura.h"
#include "model/Percorso.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "model/Vista.h"
#include "model/Voci.h"
#include "platform/Menus.h"
#include "platform/Resources.h"
#include "registration/Coordinate.h"
#include "shell/FinestraAttacchi.h"
#include "shell/FinestraPunti.h"
#include "shell/PannelloLucidi.h"
#include "shell/Proprieta.h"
#include "shell/Rapporto.h"
#include "text/Conversione.h"
#include "tools/Costruzione.h"
#include "tools/PennaFigura.h"

namespace tessaro {

constinit std::int32_t Operazione = 0;

constinit DialogPtr calcDialog = nullptr;
constinit std::uint8_t ModifCalc = 0;

namespace {

constexpr std::int16_t dialogoCalcolatrice = 134;
constexpr std::int16_t nomi = 131;   // string list: what stands in the display
constexpr std::int16_t decimali = 3;
constexpr std::int32_t nessunaOperazione = 4;
enum : std::int16_t {   // items
    vChiudi = 0,
    vDisplay = 1,
    vFattore = 2,
    vAzzeraMemoria = 5,
    vLeggiMemoria = 6,
    vMemoria = 7,   // to 10: add, subtract, multiply, divide
    vPiu = 18,      // to 22: the operators in the order of Operazione, then the result
    vUguale = 22,
    vAzimut = 23,
};
constexpr std::int16_t nomeMemoria = 1, nomeAzimut = 8, nomeArea = 18, nomeRisultato = 19;

struct Misura {
    std::int16_t voce;
    std::int16_t nome;   // in the list
    double Risultati::*valore;
};
constexpr Misura misure[] = {
    {11, nomeArea, &Risultati::area}, {12, 2, &Risultati::perimetro},   {13, 3, &Risultati::sviluppo},
    {14, 4, &Risultati::baricentroX}, {15, 5, &Risultati::baricentroY}, {16, 6, &Risultati::momentoX},
    {17, 7, &Risultati::momentoY},    {24, 9, &Risultati::primoX},      {25, 10, &Risultati::primoY},
    {26, 11, &Risultati::primoZ},     {27, 12, &Risultati::ultimoX},    {28, 13, &Risultati::ultimoY},
    {29, 14, &Risultati::ultimoZ},    {30, 15, &Risultati::deltaX},     {31, 16, &Risultati::deltaY},
    {32, 17, &Risultati::deltaZ},
};

void applica(double& a, double b, std::int32_t operazione) {
    switch (operazione) {
    case 0: a += b; break;
    case 1: a -= b; break;
    case 2: a *= b; break;
    case 3: a /= b; break;
    default: a = b; break;
    }
}

// The field's number; a bad one is told and selected, and the value stays.
bool leggi(std::int16_t item, double min, double max, double& value) {
    const PStr255 scritto(std::string_view(GetDialogItemText(calcDialog, item)));
    double letto = 0;
    std::int16_t posto = 0;
    const std::int16_t codice = STRtoFP(min, max, scritto, letto, posto, 1);
    if (codice >= 1) {
        value = letto;
        return true;
    }
    const bool unCarattere = codice == -3;
    SelectDialogItemText(calcDialog, item, unCarattere ? posto : 0, unCarattere ? posto + 1 : 255);
    return false;
}

bool leggeDisplay(std::int16_t item) {
    return (item >= vMemoria && item < vMemoria + 4) || (item >= vPiu && item <= vUguale);
}

// What stands in the fields and the item needs. The display's bounds, 1e-15 and 1e15, are the parser's and hold nothing
// back there: a difference may well be negative.
bool campiLetti(std::int16_t item) {
    bool bene = !leggeDisplay(item) || leggi(vDisplay, 1e-15, 1e15, RisCalc.valore);
    if (item == vFattore) {
        ModifCalc = 1;
    } else if (ModifCalc) {
        if (leggi(vFattore, -1e20, 1e20, RisCalc.fattore)) {
            ModifCalc = 0;
        } else {
            bene = false;
        }
    }
    return bene;
}

void operatore(std::int16_t item) {
    applica(RisCalc.accumulatore, RisCalc.valore, Operazione);
    ponidisp(RisCalc.accumulatore, GetIndString(nomi, nomeRisultato));
    Operazione = item - vPiu;
    if (item == vUguale) RisCalc.accumulatore = 0;
    SelectDialogItemText(calcDialog, vDisplay, 0, 255);
}

void agisci(std::int16_t item) {
    Risultati& r = RisCalc;
    if (item == vAzzeraMemoria) {
        r.memoria = 0;
    } else if (item == vLeggiMemoria) {
        ponidisp(r.memoria, GetIndString(nomi, nomeMemoria));
    } else if (item >= vMemoria && item < vMemoria + 4) {
        applica(r.memoria, r.valore, item - vMemoria);
    } else if (item >= vPiu && item <= vUguale) {
        operatore(item);
    } else if (item == vAzimut) {
        ponidisp(RadToAng(r.azimut, gradCorrente) * r.fattore, GetIndString(nomi, nomeAzimut));
    }
    // Kept: an area is multiplied once, like a length; the factor is no unit of length.
    for (const Misura& m : misure)
        if (m.voce == item) ponidisp(r.*m.valore * r.fattore, GetIndString(nomi, m.nome));
}

// --- the path

// The rubber band hangs on the path's last point.
void ancora(double x, double y) {
    RisCalc.primoX = x;
    RisCalc.primoY = y;
}

void iniziato(const puntot& p) {
    InizioPercorso(p.x, p.y, p.z);
    ancora(Xini, Yini);
}

void aggiunto(const puntot& p) {
    AggiungiAlPercorso(p.x, p.y, p.z);
    ancora(Xfine, Yfine);
}

void apri() {
    CalcWindow = 1;
    Operazione = nessunaOperazione;
    ParamText("", "", "", "");
    calcDialog = GetNewDialog(dialogoCalcolatrice);
    if (!calcDialog) {
        CalcWindow = 0;
        operazCorrente = opSegmento;
        return;
    }
    ModifCalc = 0;
    percorsoMisurato = {iniziato, aggiunto, Calcolo, IndietroPercorso};
    MettiDisplay(RisCalc.valore, vDisplay);
    MettiDisplay(RisCalc.fattore, vFattore);
    SelectDialogItemText(calcDialog, vDisplay, 0, 255);
    CheckMenuItem(menuStrumenti, voci::strumenti::calcolatrice, true);
}

void ridisegna() {
    Ridisegna();
    PennaElastico();
}

}   // namespace

void MettiDisplay(const double& value, std::int16_t item) {
    PStr255& s = Stdato[static_cast<std::size_t>(item)];
    RToStr(value, decimali, s);
    SetDialogItemText(calcDialog, item, s.view());
}

void ponidisp(const double& value, std::string_view label) {
    RisCalc.valore = value;
    ParamText(label, "", "", "");
    MettiDisplay(RisCalc.valore, vDisplay);
    DrawDialog(calcDialog);
}

void ApriCalcolatrice() {
    FineFigura();
    operazCorrente = opCalcolatrice;
    if (CalcWindow) {
        SelectDialogWindow(calcDialog);
    } else {
        apri();
    }
    DrawPallette();
}

void ChiudiCalcolatrice() {
    if (!CalcWindow) return;
    CalcWindow = 0;
    if (calcDialog) DisposeDialog(calcDialog);
    calcDialog = nullptr;
    CheckMenuItem(menuStrumenti, voci::strumenti::calcolatrice, false);
    if (RisCalc.numPunti > 1 && !noWindow) InvalFinestra();   // the traced path is no part of the drawing
}

void LasciaCalcolatrice() {
    if (!CalcWindow) return;
    ChiudiCalcolatrice();
    if (Azione != sPercorso) return;
    Azione = sFermo;
    InvalFinestra();
}

void ChiusaCalcolatrice() {
    ChiudiCalcolatrice();
    tabButton = bNessuno;   // the path ends where it is, with no further point
    if (!noWindow) FineSegm();
    operazCorrente = opSegmento;
    DrawPallette();
}

void DealwithDialogs(const EventRecord& event) {
    const auto dialogo = static_cast<std::int16_t>(event.message >> 16);
    const auto item = static_cast<std::int16_t>(event.message & 0xFFFF);
    if (dialogo == dialogoAttacchi) return ColpoAttacchi(item);
    if (dialogo == dialogoRapporto) return ColpoRapporto(item);
    if (dialogo == dialogoPannelloLucidi) return ColpoPannelloLucidi(item);
    if (dialogo == dialogoProprieta) return ColpoProprieta(item);
    if (dialogo == dialogoPunti) return ColpoPunti(item);
    if (dialogo != dialogoCalcolatrice || !calcDialog) return;   // a click that was still queued when it closed
    if (item == vChiudi) {
        ChiusaCalcolatrice();
        return;
    }
    const bool letti = campiLetti(item);
    ParamText("", "", "", "");
    if (letti) agisci(item);
}

void IndietroPercorso() {
    if (noWindow || RisCalc.numPunti <= 1) return;
    Azione = sPercorso;
    --RisCalc.numPunti;
    const auto n = static_cast<std::size_t>(RisCalc.numPunti);
    // Kept: the plain scale, also when the sheet is attached; the band itself goes by the registration.
    ancora(Xspezz[n] / rappvid, Yspezz[n] / rappvid - YFDecimi);
    RealToDigi(Xspezz[n], Yspezz[n], Xini, Yini);
    Zinizio = Zspezz[n];
    lastX = Xini;
    lastY = Yini;
    Xfine = xcurs;
    Yfine = ycurs;
    ridisegna();   // without the side that went
}

namespace {

const VoceStato righe[] = {
    voce<Operazione>("Operazione"),
    voce<ModifCalc>("ModifCalc"),
    {"calcDialog",
     [] {
         if (calcDialog) DisposeDialog(calcDialog);
         calcDialog = nullptr;
     },
     nullptr},
};
const TabellaStato tabella(righe);

// The tablet's buttons reach the calculator through these.
[[maybe_unused]] const bool agganciati = [] {
    apriCalcolatrice = ApriCalcolatrice;
    mostraMisura = ponidisp;
    return true;
}();

}   // namespace

}   // namespace tessaro
