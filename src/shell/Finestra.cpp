// The life of a drawing: its window opens with everything at its start value, and closes when its owner agrees.
#include <algorithm>
#include <string>

#include "dialogs/Parametri.h"
#include "display/Barra.h"
#include "display/Disposizione.h"
#include "display/Lettura.h"
#include "display/palette.h"
#include "display/Ridisegno.h"
#include "display/Sovrapposto.h"
#include "display/Zoom.h"
#include "files/Richieste.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Estensioni.h"
#include "model/Giornale.h"
#include "model/Mesh.h"
#include "model/Penna.h"
#include "model/PreferenzeVista.h"
#include "model/Registrazione.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "model/Vista.h"
#include "model/Voci.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Menus.h"
#include "platform/Resources.h"
#include "shell/Archivia.h"
#include "shell/Modificato.h"
#include "shell/Recupero.h"
#include "shell/Trascinamento.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

constinit std::int16_t htavp = 3000;   // htav as it was when the drawing was opened
constexpr std::int16_t finestraDisegno = 1000, listaNomi = 129, nomeSenzaTitolo = 1;
constexpr std::int16_t avvisoSalva = 3001, risponde2Salva = 2, risponde3Annulla = 3;
constexpr std::int16_t dialogoInformazioni = 1033, listaInformazioni = 9121;

// Kept: 11 is a line between the items, and nothing shows that it is off.
constexpr std::int16_t vociArchivio[] = {
    voci::archivio::chiudi, voci::archivio::salva,    voci::archivio::salvaCome, voci::archivio::esporta, 11,
    voci::archivio::stampa, voci::archivio::anteprima};
constexpr std::int16_t vociModifica[] = {voci::modifica::annulla, voci::modifica::copia, voci::modifica::incolla};
// Drawing, transforming, zooming, exporting, attributes and constraints make no sense without a drawing.
constexpr std::int16_t conDisegno[] = {
    menuDisegna,
    menuTrasforma,
    menuPatternPenna,
    menuZoom,
    menuNomiColori,
    menuSpessore,
    menuEsporta,
    menuCaratteri,
    menuCorpi,
    menuStili,
    menuAref,
    menuColore,
    menuPatternArea,
    menuIngressoAttacco,
    menuAttacchiOrigine,
    menuAttacchiDestinazione,
    menuImmagine,
    menuVincoli,
};

void apriFinestra() {
    if (theWindow) DisposeWindow(theWindow);
    bottoneToolbar = {};
    theWindow = GetNewCWindow(finestraDisegno);
    const Rect schermo = ScreenBounds();
    SizeWindow(theWindow, schermo.right - schermo.left - 15, schermo.bottom - schermo.top - 50);
    SetWindowSmooth(theWindow, lineeMorbide != 0);
    SetPortWindowPort(theWindow);
    noWindow = 0;
}

void pennaIniziale() {
    PatCorrente = PatAttuale = qdBlack;
    NumPat = 1;
    PatAreaCorrente = PatAreaAttuale = qdWhite;
    NumAreaPat = 0;
    ModoCorrente = ModoAttuale = patXor;
    colorCorrente = colorAttuale = 1;
    markerCorrente = 1;
    spessore = 1;
    spess = static_cast<std::int16_t>(spessore / 2);
    PenSize(spessore, spessore);
}

void vistaIniziale() {
    XVisualPrec = YVisualPrec = ZVisualPrec = 0;
    Xmin = Ymin = 0;
    Xmax = Ymax = 300;
    OrigX = -latoCella;
    OrigY = -hToolbar;
    PageCorner = {};
    RifTablet = 1;
    XtabFin = YtabFin = 0;
    htavp = htav;
}

void cursoreIniziale() {
    xcurs = ycurs = 1000;
    zcurs = 0;
    XSpost1 = YSpost1 = XSpost2 = YSpost2 = -10000;
    XDeltaSpost = YDeltaSpost = ZDeltaSpost = 0;
    Sposta2ndClick = 0;
    xprecedente = yprecedente = angoloprecedente = distprecedente = 0;
    lastX = lastY = 0;
}

void senzaAttacchi() { XA1 = YA1 = XA2 = YA2 = 0; }

void archivioVuoto() {
    AzzeraArchivio();
    senzaAttacchi();
    xAttacco5 = yAttacco5 = 0;
    OKAttacco5 = 0;
    AzzeraRettSel();
    meshOrigine.nx = meshOrigine.ny = meshDestinazione.nx = meshDestinazione.ny = 0;
}

void controlli() {
    VScroll = NewScrollBar(theWindow, true);
    HScroll = NewScrollBar(theWindow, false);
    panel = NewPanel(theWindow);
    StrOperCorr = "";
}

// The whole tablet in the view, and the whole sheet, with half of what they leave free on each side.
void primoZoom() {
    constexpr std::int32_t margine = barraScorrimento / 2;
    const double w = myViewRect.right - myViewRect.left - barraScorrimento;
    const double h = myViewRect.bottom - myViewRect.top - barraScorrimento;
    CambiaScala(std::min({w / btav1, h / htav1, w / XFDecimi, h / YFDecimi}));
    PageCorner = {-margine, -margine};
    OrigX = PageCorner.h - latoCella;
    OrigY = PageCorner.v - hToolbar;
    scalaImmagineX = scalaImmagineY = 1;
    AggiornaTolleranze();
}

void mostra() {
    MoveScrollBars();
    MoveToolbar();
    AggiornaBarre();
    for (ControlHandle c : {VScroll, HScroll, panel}) ShowControl(c);
    ShowWindow(theWindow);
    SelectWindow(theWindow);
    PenPat(qdBlack);
    PenMode(patXor);
    DrawPallette();
    inizializzaMainToolbar();
}

// What a drawing takes with it.
void chiudiDisegno() {
    PoniAnnulla(aNiente);
    ChiudiPasso({});   // a picture that the last command gave up is a step's until now
    GiornaleFine();
    for (std::int32_t n = 3; n <= indElem; ++n)
        if (Elem(n).tipo == tPict) KillPicture(Elem(n).pict.maniglia);
    RemoveDragHandlers();
    DisposeWindow(theWindow);
    theWindow = nullptr;
    VScroll = HScroll = panel = nullptr;
    bottoneToolbar = {};
    noWindow = 1;
    FineRecupero();
    AzzeraArchivio();
    AzzeraEstensioni();
    indElem = 1;
    senzaAttacchi();
    Azione = sFermo;   // a figure in progress ends with its drawing
    ContinuaPoligono = 0;
    Sposta2ndClick = 0;
    AzzeraPuntosel();
    AzzeraRettSel();
    AbilitaMenu(false);
}

}   // namespace

void AbilitaMenu(bool disegnoAperto) {
    const auto poni = [disegnoAperto](std::int16_t menu, std::int16_t voce) {
        (disegnoAperto ? EnableMenuItem : DisableMenuItem)(menu, voce);
    };
    (disegnoAperto ? DisableMenuItem : EnableMenuItem)(menuArchivio, voci::archivio::nuovo);
    for (const std::int16_t voce : vociArchivio) poni(menuArchivio, voce);
    for (const std::int16_t voce : vociModifica) poni(menuModifica, voce);
    for (const std::int16_t menu : conDisegno) poni(menu, 0);
    DrawMenuBar();
}

void SetUpWindow() {
    apriFinestra();
    pennaIniziale();
    vistaIniziale();
    cursoreIniziale();
    archivioVuoto();
    NomeD = PStr255(std::string_view(GetIndString(listaNomi, nomeSenzaTitolo)));
    NomeLavoro = NomeD;
    SetWTitle(theWindow, NomeLavoro.view());
    DisponiVista();
    controlli();
    primoZoom();
    mostra();
    Croce();
    InstallDragHandlers();
    AbilitaMenu(true);
    SegnaSalvato();
    GiornaleNuovo();
    RicominciaRecupero();
}

std::uint8_t TuttoChiuso() {
    if (noWindow) return 1;
    std::int16_t risposta = 1;
    const bool conFile = NomeD.view() != GetIndString(listaNomi, nomeSenzaTitolo);
    if ((indElem > 2 || conFile) && DisegnoDiverso()) {
        ParamText(NomeD.view(), "", "", "");
        risposta = CautionAlert(avvisoSalva);
    }
    if (risposta == risponde3Annulla) return noWindow;
    if (risposta == risponde2Salva) {
        theItem = rSalva;
        archivia();
        if (!ultimoSalvataggioRiuscito) return noWindow;
    }
    chiudiDisegno();
    return noWindow;
}

void AboutTessaro() {
    const std::int32_t usati = std::max(indElem - 2, 0), possibili = std::max(maxElementi - 2, 0);
    ParamText(GetIndString(listaInformazioni, 1), NumToString(usati).view(), NumToString(possibili).view(), "");
    {
        const DialogoAperto aperto(dialogoInformazioni);
        std::int16_t voce = 0;
        while (voce < 1 || voce > 10) ModalDialog(MyMovableFilter, voce);
    }
    InvalWind();
}

namespace {
const VoceStato righe[] = {
    voce<htavp>("htavp"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
