// From a menu choice to an action: a table of menus, each with its own short routine.
#include "shell/Comandi.h"

#include <algorithm>

#include "digitising/Attacchi.h"
#include "digitising/AttaccoAggiungi.h"
#include "digitising/AttaccoDialogo.h"
#include "digitising/GeoRiferimento.h"
#include "digitising/PuntiDigitati.h"
#include "digitising/Tavoletta.h"
#include "digitising/TavolettaLettori.h"
#include "display/Lettura.h"
#include "display/palette.h"
#include "display/Zoom.h"
#include "dwg/DbDumper.h"
#include "editing/Aref.h"
#include "editing/AttributiSel.h"
#include "editing/LucidiClassi.h"
#include "editing/Scelta.h"
#include "editing/SceltaColori.h"
#include "editing/TestoSelezione.h"
#include "editing/TratteggiDialogo.h"
#include "exchange/FormatoXYZ.h"
#include "exchange/XYZ.h"
#include "files/Impostazioni.h"
#include "maps/DialogoSistema.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Figura.h"
#include "model/Mesh.h"
#include "model/Penna.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/Voci.h"
#include "platform/Dialogs.h"
#include "platform/Menus.h"
#include "raster/CreaMesh.h"
#include "raster/Lenti.h"
#include "raster/pictrot.h"
#include "raster/raster.h"
#include "registration/attaccoDinamico.h"
#include "shell/Archivia.h"
#include "shell/Calcolatrice.h"
#include "shell/ClicBarra.h"
#include "shell/FinestraAttacchi.h"
#include "shell/FinestraPunti.h"
#include "shell/Modi.h"
#include "shell/PannelloLucidi.h"
#include "shell/Rapporto.h"
#include "shell/Recenti.h"
#include "tools/CursoreVincolato.h"
#include "tools/Marker.h"

namespace tessaro {

void ChkOnOffItem(std::int16_t menu, std::int16_t item, std::int16_t first, std::int16_t last) {
    for (std::int16_t i = first; i <= last; ++i) CheckMenuItem(menu, i, i == item);
}

void SpuntaCurve() {
    using namespace voci::strumenti;
    ChkOnOffItem(menuStrumenti, CurvePerPunti ? curvePerPunti : curvePerCentro, curvePerCentro, curvePerPunti);
}

namespace {

// A choice among attributes goes to the selection when there is one and no figure is in progress.
bool perLaSelezione() { return Puntosel.attiva && Azione == sFermo; }

void coordinateSempre() {
    DrawPallette();
    scriviSempreCoord = 1;
    SetDrawCoordCorr();
}

void comandoSistema() {
    if (theItem == voci::aiuto::informazioni) AboutTessaro();
    if (theItem == voci::aiuto::guida) ApriGuida();
}

void comandoDisegna() {
    using namespace voci::disegna;
    if (noWindow) return;
    switch (theItem) {
    case segmento:
        FineFigura();
        PrendiStrumento(opSegmento);
        break;
    case polilinea: PrendiStrumento(opPolilinea); break;
    case marker:
        FineFigura();
        PrendiStrumento(opMarker);
        break;
    case formaMarker: ScegliMarker(); break;
    case quota: PoniZeta(); return;
    case testo:
        FineFigura();
        PrendiStrumento(opTesto);
        DrawPallette();
        [[fallthrough]];   // Kept: the item ends in the circle tool; the text tool is reached from the palette
    case cerchio: PrendiStrumento(opCerchio); break;
    case arco: PrendiStrumento(opArco); break;
    case vertice: IngressoVertici(); break;
    case markerDigitato: IngressoMarker(); break;
    case tratteggi: PoniTratteggi(); return;
    default: break;
    }
    DrawPallette();
}

void dialogoTrasformazione() {
    if (KeyModifiers() & optionKey) {
        TAttaccoDialogo().DialogoOld();
    } else {
        TAttaccoDialogo().Dialogo();
    }
}

void nuovaMesh(TTipoMesh tipo) {
    const Mesh& m = tipo == TTipoMesh::origine ? meshOrigine : meshDestinazione;
    if (CreaMesh(tipo)) SpostaDaPunto(m.x[0][0], m.y[0][0]);
}

void comandoTrasforma() {
    using namespace voci::trasforma;
    if (theItem == origineDaSelezione || theItem == destinazioneDaSelezione) do_Trasforma();
    if (noWindow) return;
    if (theItem == dinamica) dialogoTrasformazione();
    if (theItem == aggiungi) Aggiungi();
    if (theItem == voci::trasforma::meshOrigine) nuovaMesh(TTipoMesh::origine);
    if (theItem == voci::trasforma::meshDestinazione) nuovaMesh(TTipoMesh::destinazione);
    if (theItem == ruotaImmagine) ModificaRuotaImmagine();
    if (theItem == distorsione) CorreggiPictSel();
    if (theItem == rapporto) {
        ApriAttacchi();
        ApriRapporto();
    }
    if (theItem == attacchi) ApriAttacchi();
    if (theItem == puntiControllo) ApriPunti();
}

void comandoStrumenti() {
    using namespace voci::strumenti;
    switch (theItem) {
    case calcolatrice: ApriCalcolatrice(); break;
    case paramGraf: ParamGraf(); break;
    case lucidi: ParamLucidi(); break;
    case colori: SceltaColori(0); break;
    case griglia: ModificaGriglia(); break;
    case categoria: PoniCateg_Insieme(1); break;
    case insieme: PoniCateg_Insieme(2); break;
    case coordinateReali: ParAttacco(); break;
    case georeferenzia: ParGeoRefer(0); break;
    case riferimento:
        if (!noWindow) ParSistema();
        break;
    case tavolettaSulFoglio: RiferimentoFoglio(); break;
    case tavolettaSullaVista: RiferimentoVista(); break;
    case lettura: CambiaLettura(); break;
    case tavoletta: ParTavoletta(); break;
    case voci::strumenti::pannelloLucidi: ApriPannelloLucidi(); break;
    case curvePerCentro:
    case curvePerPunti:
        PrendiCurve(theItem == curvePerPunti);
        DrawPallette();
        break;
    default: break;
    }
}

void comandoPatternPenna() {
    if (perLaSelezione()) {
        CambiaRetSel(theItem);
        return;
    }
    PatCorrente = PatAttuale = GetIndPattern(theItem);
    NumPat = theItem;
    PoniAnnulla(aNiente);
    DrawPallette();
}

void comandoSpessore() {
    if (perLaSelezione()) {
        CambiaSpessSel(theItem);
        return;
    }
    spessore = theItem;
    spess = static_cast<std::int16_t>(spessore / 2);
    PenSize(spessore, spessore);
    ChkOnOffItem(menuSpessore, theItem, 1, 9);
    DrawPallette();
    PoniAnnulla(aNiente);
}

void comandoColore() {
    if (perLaSelezione()) {
        CambiaColoreSel(theItem);
        return;
    }
    colorCorrente = theItem;
    ChkOnOffItem(menuNomiColori, theItem, 1, CountMenuItems(menuNomiColori));
    ChkOnOffItem(menuColore, theItem, 1, CountMenuItems(menuColore));
    DrawPallette();
    PoniAnnulla(aNiente);
}

void comandoPatternArea() {
    if (perLaSelezione()) {
        CambiaRetAreaSel(static_cast<std::int16_t>(theItem - 1));
        return;
    }
    NumAreaPat = static_cast<std::int16_t>(theItem - 1);
    PatAreaCorrente = PatAreaAttuale = NumAreaPat > 0 ? GetIndPattern(NumAreaPat) : qdWhite;
    DrawPallette();
    PoniAnnulla(aNiente);
}

void comandoAref() {
    static constexpr std::int16_t tipi[] = {tSegmento, tPoligono, tCerchio, tArco, tMarker};
    const auto i = static_cast<std::size_t>(theItem - 1);
    if (!noWindow && i < std::size(tipi)) PoniAREF(tipi[i]);
}

void comandoZoom() { FaiZoom(theItem); }

void comandoIngressoAttacco() {
    const std::int16_t punto = theItem;   // an item is its point
    if (!noWindow && punto >= 1 && punto <= 4) IngressoAttacco(punto);
}

// Items 1 to 4 choose a control point; item 5 sets cursor and mode only.
// Kept: item 5 leaves operazCorrente alone, so the click does what the last chosen point did.
void sceltaAttacco(std::int32_t primaOperazione, const std::array<std::int16_t, 5>& cursori) {
    const auto i = static_cast<std::size_t>(theItem - 1);
    if (noWindow || i >= cursori.size()) return;
    if (i + 1 < cursori.size()) {
        FineFigura();
        LasciaCalcolatrice();
        operazCorrente = primaOperazione + theItem - 1;
    }
    attaccoCursor = cursori[i];
    SetCursor(attaccoCursor);
    CambiaModo(mAttacco);
    DrawPallette();
}

void comandoAttacchiOrigine() {
    if (theItem == voci::attacchiOrigine::verifica) {
        VerificaAttacchi();
        return;
    }
    sceltaAttacco(opOrigine1, origineCursor);
}

void comandoAttacchiDestinazione() {
    if (theItem == voci::attacchiDestinazione::verifica) {
        VerificaDestinazione();
        return;
    }
    sceltaAttacco(opDestinazione1, destinazioneCursor);
}

void comandoVincoli() {
    using namespace voci::vincoli;
    static constexpr void (*azioni[])() = {MettiAttaccoPt,      MettiAttaccoZ,    MettiParallelo,
                                           MettiPerpendicolare, MettiOrizzontale, MettiVerticale};
    if (noWindow) return;
    if (theItem == griglia) {
        AttivaGriglia();
        AggiustaStatoBottoni();
        DrawPallette();
        return;
    }
    if (theItem < punto || theItem > verticale) return;
    azioni[theItem - punto]();
    coordinateSempre();
}

void comandoAgganci() { CambiaAggancio(static_cast<TipoAggancio>(theItem)); }

void comandoImmagine() {
    if (!noWindow) TrasformaPictSel(theItem);
}

void comandoRecenti() {
    if (theItem == voci::recenti::svuota) return SvuotaRecenti();
    ApriRecente(theItem);
}

struct VoceMenu {
    std::int16_t menu;
    void (*azione)();
};
constexpr VoceMenu comandi[] = {
    {menuAiuto, comandoSistema},
    {menuArchivio, DoArchivio},
    {menuModifica, DoEdit},
    {menuDisegna, comandoDisegna},
    {menuTrasforma, comandoTrasforma},
    {menuStrumenti, comandoStrumenti},
    {menuPatternPenna, comandoPatternPenna},
    {menuRecenti, comandoRecenti},
    {menuZoom, comandoZoom},
    {menuNomiColori, comandoColore},
    {menuSpessore, comandoSpessore},
    {menuEsporta, DoEsporta},
    {menuApriAltri, DoApriAltri},
    {menuImporta, DoImporta},
    {menuCaratteri, [] { CheckFontMac(theItem); }},
    {menuCorpi, [] { CheckDimFMac(theItem); }},
    {menuStili, [] { CheckStile(theItem); }},
    {menuAref, comandoAref},
    {menuColore, comandoColore},
    {menuPatternArea, comandoPatternArea},
    {menuIngressoAttacco, comandoIngressoAttacco},
    {menuAttacchiOrigine, comandoAttacchiOrigine},
    {menuAttacchiDestinazione, comandoAttacchiDestinazione},
    {menuImmagine, comandoImmagine},
    {menuVincoli, comandoVincoli},
    {menuAgganci, comandoAgganci},
};

}   // namespace

void DoCommand(std::uint32_t choice) {
    const auto menu = static_cast<std::int16_t>(choice >> 16);
    const auto item = static_cast<std::int16_t>(choice & 0xFFFF);
    if (menu == 0 || item == 0) return;
    const auto* voce =
        std::find_if(std::begin(comandi), std::end(comandi), [&](const VoceMenu& v) { return v.menu == menu; });
    if (voce == std::end(comandi)) return;
    theItem = item;
    voce->azione();
}

}   // namespace tessaro
