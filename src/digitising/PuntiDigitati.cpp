// The dialogs of typed points. What they read is real coordinates; what they hand over is sheet units.
#include "digitising/PuntiDigitati.h"

#include "dialogs/Parametri.h"
#include "digitising/Attacchi.h"
#include "display/Ridisegno.h"
#include "editing/Domanda.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Penna.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "model/Vincoli.h"
#include "platform/Resources.h"
#include "registration/Coordinate.h"
#include "registration/PuntiControllo.h"
#include "text/Conversione.h"
#include "tools/Costruzione.h"
#include "tools/Marker.h"

namespace tessaro {

constinit std::uint8_t inserimentoRelativo = 1;

namespace {

enum : std::int16_t { ok = 1, annulla = 2, chiude = 9 };   // items; 9 also ends the figure
constexpr double senzaLimite = 1e30;

// --- what all of them share

// The selected segment or marker, the kinds whose first point is offered; 0 for none.
std::int32_t selezionatoConPunto() {
    if (Puntosel.oggetto >= oMeshOrigine || Puntosel.indice < 3 || Puntosel.indice > indElem) return 0;
    const auto tipo = Elem(Puntosel.indice).tipo;
    return tipo == tSegmento || tipo == tMarker ? Puntosel.indice : 0;
}

bool leggiCampo(std::int16_t item, double minimo, double massimo, double& valore) {
    constexpr std::int16_t troppoGrande = -1;
    if (LeggiCampoReale(item, minimo, massimo, valore)) return true;
    if (err_ == troppoGrande) SelectDialogItemText(theDialog, item, inx, 255);
    return false;
}

enum class FuoriFoglio : std::uint8_t { rifiuta, chiedi };

// Off the sheet the typed point is refused, or taken when the person insists.
bool sulFoglio(FuoriFoglio fuori) {
    constexpr std::int16_t avviso = 1014, usaComunque = 1, rifiutato = -4;
    if (XDigit >= 0 && XDigit <= XFDecimi && YDigit >= 0 && YDigit <= YFDecimi) return true;
    if (fuori == FuoriFoglio::rifiuta) {
        StopAlert(avviso);
    } else if (NoteAlert(avviso) == usaComunque) {
        err_ = 1;
        return true;
    }
    err_ = rifiutato;
    return false;
}

// The real point becomes the typed one.
bool accettaReale(const double& X, const double& Y, double Z, FuoriFoglio fuori) {
    RealToDigi(X, Y, XDigit, YDigit);
    ZDigit = Z;
    return sulFoglio(fuori);
}

// --- three coordinates

enum : std::int16_t { campoX = 4, campoY = 6, campoZ = 8 };

void mostraPunto(double x, double y, double z) {
    DigiToReal(x, y, x, y);
    ScriviCampoReale(campoX, x, 3);
    ScriviCampoReale(campoY, y, 3);
    ScriviCampoReale(campoZ, z, 3);
}

// The selected segment's or marker's first point; of anything else nothing; without a selection the point given.
void proponiPunto(double x, double y, double z) {
    if (!Puntosel.attiva) {
        mostraPunto(x, y, z);
    } else if (const std::int32_t n = selezionatoConPunto()) {
        const auto& s = Elem(n).segm;   // a marker's point stands at the same place
        mostraPunto(s.x1, s.y1, s.z1);
    }
}

bool leggiPunto(puntot& p) {
    return leggiCampo(campoX, -senzaLimite, senzaLimite, p.x) && leggiCampo(campoY, -senzaLimite, senzaLimite, p.y)
           && leggiCampo(campoZ, -senzaLimite, senzaLimite, p.z);
}

bool AccettaIngreAtt() {
    puntot p;
    return leggiPunto(p) && accettaReale(p.x, p.y, p.z, FuoriFoglio::rifiuta);
}

bool AccettaIngreMark() { return AccettaIngreAtt(); }

// Dialog 2024 under a prompt; true when it gave a point.
bool chiediPunto(const PStr255& richiesta, bool (*accetta)()) {
    constexpr std::int16_t dialogo = 2024;
    ParamText(richiesta.view(), "", "", "");
    const DialogoAperto aperto(dialogo);
    proponiPunto(xcurs, ycurs, ZetaCorrente);
    SelectDialogItemText(theDialog, campoX, 0, 100);
    do { ModalDialog(MyMovableFilter, Noitem); } while (Noitem != annulla && !(Noitem == ok && accetta()));
    IntroDigitale = Noitem == ok;
    return IntroDigitale != 0;
}

PStr255 richiesta(std::int16_t stringa) {
    constexpr std::int16_t lista = 129;
    return PStr255(std::string_view(GetIndString(lista, stringa)));
}

}   // namespace

void IngressoAttacco(std::int16_t n) {
    if (!chiediPunto(NumToString(n) + richiesta(38), AccettaIngreAtt)) return;
    Attacco(n);
    InvalWind();
}

bool AttaccoDigitato(std::int16_t n, double x, double y) {
    XDigit = x;
    YDigit = y;
    ZDigit = zcurs;
    if (!sulFoglio(FuoriFoglio::rifiuta)) return false;
    IntroDigitale = 1;
    Attacco(n);
    InvalWind();
    const Coppia dove = LeggiAttacco(n);
    return dove.x == x && dove.y == y;
}

void IngressoMarker() {
    if (!chiediPunto(richiesta(37), AccettaIngreMark)) return;
    FaiMarker();
    InvalWind();
}

// --- vertices

namespace {

enum : std::int16_t { assolute = 11, relative = 12 };

// What an accepted dialog does with the point: OK begins a figure or goes on with it, item 9 ends it.
void traccia(std::int16_t item) {
    const bool inCorso = Azione == sPrimoPunto || Azione == sPercorso;
    if (inCorso && (item == ok || item == chiude)) {
        IntroDigitale = 1;
        tabButton = item == ok ? bContinua : bTermina;
        FineSegm();
    } else if (item == ok && Azione == sFermo) {
        IntroDigitale = 1;
        InitSegm();
    }
    InvalWind();
}

bool AccettaIngreVert() {
    puntot p;
    if (!leggiPunto(p)) return false;
    if (inserimentoRelativo) {
        puntot ultimo;
        DigiToReal(lastX, lastY, ultimo.x, ultimo.y);
        p.x += ultimo.x;
        p.y += ultimo.y;
        p.z += ZetaCorrente;
    }
    return accettaReale(p.x, p.y, p.z, FuoriFoglio::chiedi);
}

void proponiVertice() {
    if (!inserimentoRelativo) {
        proponiPunto(lastX, lastY, ZetaCorrente);
        return;
    }
    for (const std::int16_t campo : {campoX, campoY, campoZ}) ScriviCampoReale(campo, 0, 3);
}

}   // namespace

void IngressoVertici() {
    bool accettato = false;
    const std::uint8_t relativoPrima = inserimentoRelativo;
    {
        constexpr std::int16_t dialogo = 2023;
        const DialogoAperto aperto(dialogo);
        std::int16_t radio = inserimentoRelativo ? relative : assolute;
        SetDialogItemValue(theDialog, radio, 1);
        proponiVertice();
        SelectDialogItemText(theDialog, campoX, 0, 100);
        do {
            ModalDialog(MyMovableFilter, Noitem);
            if (Noitem == assolute || Noitem == relative) RadioBoxItem(radio);
            if (Noitem == ok || Noitem == chiude) {
                inserimentoRelativo = radio == relative;
                accettato = AccettaIngreVert();
            }
        } while (Noitem != annulla && !accettato);
    }
    if (accettato) {
        traccia(Noitem);
    } else {
        inserimentoRelativo = relativoPrima;
    }
}

// --- direction and distance

namespace {

enum : std::int16_t { campoAngolo = 4, campoDistanza = 6 };

bool AccettaIngrePol() {
    constexpr double limiteDistanza = 400;   // Kept: the narrow bound stands on the distance, the wide one on the angle
    double angolo = 0, distanza = 0;
    if (!leggiCampo(campoAngolo, -senzaLimite, senzaLimite, angolo)) return false;
    if (!leggiCampo(campoDistanza, -limiteDistanza, limiteDistanza, distanza)) return false;
    double X = 0, Y = 0;
    PolarCart(xprecedente, yprecedente, Pig - AngToRad(angolo, gradCorrente), distanza, X, Y, orientCorrente);
    return accettaReale(X, Y, ZetaCorrente, FuoriFoglio::chiedi);
}

void proponiPolare() {
    double angolo = angoloprecedente;
    if (statoCursore.perpendicolare) angolo += PigMezzi;
    ScriviCampoReale(campoAngolo, RadToAng(angolo, gradCorrente), 4);
    ScriviCampoReale(campoDistanza, distprecedente * rappvid, 3);
}

// From the selected segment's or marker's first point, when there is one.
void partiDallaSelezione() {
    if (!Puntosel.attiva) return;
    if (const std::int32_t n = selezionatoConPunto())
        DigiToReal(Elem(n).segm.x1, Elem(n).segm.y1, xprecedente, yprecedente);
}

}   // namespace

void IngressoPolare() {
    bool accettato = false;
    {
        constexpr std::int16_t dialogo = 148;
        ParamText(NomeAngoli(), "", "", "");
        const DialogoAperto aperto(dialogo);
        proponiPolare();
        partiDallaSelezione();
        SelectDialogItemText(theDialog, campoAngolo, 0, 100);
        do {
            ModalDialog(MyMovableFilter, Noitem);
            if (Noitem == ok || Noitem == chiude) accettato = AccettaIngrePol();
        } while (Noitem != annulla && !accettato);
    }
    if (accettato) traccia(Noitem);
}

namespace {
const VoceStato righe[] = {
    voce<inserimentoRelativo>("inserimentoRelativo"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
