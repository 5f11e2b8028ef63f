// From a menu choice to an action: a table of menus, each with its own short routine.
#include "shell/Comandi.h"

#include <algorithm>

#include "digitising/Attacchi.h"
#include "digitising/attaccoAggiungi.h"
#include "digitising/attaccoDialogo.h"
#include "digitising/GeoRiferimento.h"
#include "digitising/PuntiDigitati.h"
#include "digitising/Tavoletta.h"
#include "digitising/TavolettaLettori.h"
#include "display/Lettura.h"
#include "display/palette.h"
#include "display/Ridisegno.h"
#include "display/Zoom.h"
#include "dwg/DbDumper.h"
#include "dwg/EsportaDWG.h"
#include "editing/AnnullaComando.h"
#include "editing/Aref.h"
#include "editing/AttributiSel.h"
#include "editing/Cancella.h"
#include "editing/Conversioni.h"
#include "editing/LucidiClassi.h"
#include "editing/SceltaColori.h"
#include "editing/Selezione.h"
#include "editing/Sposta.h"
#include "editing/Testi.h"
#include "editing/TratteggiDialogo.h"
#include "exchange/FormatoXYZ.h"
#include "exchange/MiniCad.h"
#include "exchange/XYZ.h"
#include "files/Impostazioni.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Attributi.h"
#include "model/Figura.h"
#include "model/Mesh.h"
#include "model/Selezione.h"
#include "model/Vista.h"
#include "platform/Menus.h"
#include "raster/CreaMesh.h"
#include "raster/Lenti.h"
#include "raster/pictrot.h"
#include "raster/raster.h"
#include "registration/attaccoDinamico.h"
#include "shell/Archivia.h"
#include "shell/Calcolatrice.h"
#include "shell/Modi.h"
#include "shell/Rapporto.h"
#include "tools/CursoreVincolato.h"
#include "tools/Marker.h"

namespace tessaro {

const std::int16_t myMenu[27] = {1,   2,   3,   4,   5,   6,   40,  50,  60, 100, 101, 102, 103, 104,
                                 105, 106, 107, 108, 109, 110, 111, 112, 20, 0,   22,  23,  24};

void ChkOnOffItem(std::int16_t menu, std::int16_t item, std::int16_t first, std::int16_t last) {
    for (std::int16_t i = first; i <= last; ++i) CheckMenuItem(menu, i, i == item);
}

void Apri() {
    if (!TuttoChiuso()) return;
    SetUpWindow();
    theItem = 2;
    archivia();
    DisableMenuItem(2, 1);
    EnableMenuItem(2, 3);
}

void Chiudi() { TuttoChiuso(); }

void DoArchivio() {
    switch (theItem) {
    case 1:
        if (noWindow) {
            SetUpWindow();
            noWindow = 0;
        }
        break;
    case 2: Apri(); break;
    case 3: Chiudi(); break;
    case 4:
    case 5: archivia(); break;
    case 9: FormatoXYZ(0); break;
    case 16: fine = TuttoChiuso(); break;
    default: break;
    }
}

namespace {

void selezionaTutto() {
    SelezionaTutto();
    Ridisegna();
}

void spostaDiValori() {
    if (!Puntosel.attiva) return;
    Sposta();
    Ridisegna();
}

struct VoceModifica {
    std::int16_t item;
    bool conFinestra;
    void (*azione)();
};
constexpr VoceModifica modifiche[] = {
    {1, true, AnnullaUltima},
    {6, false, CancellaSelezione},
    {8, true, selezionaTutto},
    {9, true, [] { AvantiEIndietroSelezione(true); }},
    {10, true, [] { AvantiEIndietroSelezione(false); }},
    {12, true, spostaDiValori},
    {14, true, TrasformaPoligSel},
    {15, true, TrasformaSegmentiSel},
    {16, true, [] { PoniLucido(); }},
};

}   // namespace

void DoEdit() {
    if (CalcWindow) {   // the only thing to take back is the path's last point
        if (theItem == 1) IndietroPercorso();
        return;
    }
    for (const VoceModifica& v : modifiche) {
        if (v.item != theItem) continue;
        if (!v.conFinestra || !noWindow) v.azione();
        return;
    }
    SysBeep(30);
}

namespace {

// A choice among attributes goes to the selection when there is one and no figure is in progress.
bool perLaSelezione() { return Puntosel.attiva && Azione == 0; }

void coordinateSempre() {
    DrawPallette();
    scriviSempreCoord = 1;
    SetDrawCoordCorr();
}

void menuSistema() {
    if (theItem == 1) AboutTessaro();
}

void menuDisegna() {
    if (noWindow) return;
    switch (theItem) {
    case 1:
        FineFigura();
        PrendiStrumento(0);
        break;
    case 2: PrendiStrumento(1); break;
    case 3:
        FineFigura();
        PrendiStrumento(3);
        break;
    case 4: ScegliMarker(); break;
    case 5: PoniZeta(); return;
    case 6:
        FineFigura();
        PrendiStrumento(2);
        DrawPallette();
        [[fallthrough]];   // Kept: the item ends in the circle tool; the text tool is reached from the palette
    case 7: PrendiStrumento(5); break;
    case 8: PrendiStrumento(6); break;
    case 20: IngressoVertici(); break;
    case 21: IngressoMarker(); break;
    case 14: PoniTratteggi(); return;
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

void menuTrasforma() {
    if (theItem == 2 || theItem == 7) do_Trasforma();
    if (noWindow) return;
    if (theItem == 5) dialogoTrasformazione();
    if (theItem == 8) Aggiungi();
    if (theItem == 10) nuovaMesh(TTipoMesh::origine);
    if (theItem == 11) nuovaMesh(TTipoMesh::destinazione);
    if (theItem == 15) ModificaRuotaImmagine();
    if (theItem == 17) CorreggiPictSel();
    if (theItem == 18) ApriRapporto();
}

void menuStrumenti() {
    switch (theItem) {
    case 1: ApriCalcolatrice(); break;
    case 2: ParamGraf(); break;
    case 3: ParamLucidi(); break;
    case 4: SceltaColori(0); break;
    case 5: ModificaGriglia(); break;
    case 8: PoniCateg_Insieme(1); break;
    case 9: PoniCateg_Insieme(2); break;
    case 11: ParAttacco(); break;
    case 12: ParGeoRefer(0); break;
    case 14: RiferimentoFoglio(); break;
    case 15: RiferimentoVista(); break;
    case 20: CambiaLettura(); break;
    case 21: ParTavoletta(); break;
    case 17:
    case 18:
        PrendiCurve(theItem == 18);
        DrawPallette();
        break;
    default: break;
    }
}

void menuPatternPenna() {
    if (perLaSelezione()) {
        CambiaRetSel(theItem);
        return;
    }
    PatCorrente = PatAttuale = GetIndPattern(theItem);
    NumPat = theItem;
    PoniAnnulla(aNiente);
    DrawPallette();
}

void menuSpessore() {
    if (perLaSelezione()) {
        CambiaSpessSel(theItem);
        return;
    }
    spessore = theItem;
    spess = static_cast<std::int16_t>(spessore / 2);
    PenSize(spessore, spessore);
    ChkOnOffItem(24, theItem, 1, 9);
    DrawPallette();
    PoniAnnulla(aNiente);
}

void menuColore() {
    if (perLaSelezione()) {
        CambiaColoreSel(theItem);
        return;
    }
    colorCorrente = theItem;
    ChkOnOffItem(23, theItem, 1, CountMenuItems(23));
    ChkOnOffItem(104, theItem, 1, CountMenuItems(104));
    DrawPallette();
    PoniAnnulla(aNiente);
}

void menuPatternArea() {
    if (perLaSelezione()) {
        CambiaRetAreaSel(static_cast<std::int16_t>(theItem - 1));
        return;
    }
    NumAreaPat = static_cast<std::int16_t>(theItem - 1);
    PatAreaCorrente = PatAreaAttuale = NumAreaPat > 0 ? GetIndPattern(NumAreaPat) : qdWhite;
    DrawPallette();
    PoniAnnulla(aNiente);
}

void menuAref() {
    static constexpr std::int16_t tipi[] = {tSegmento, tPoligono, tCerchio, tArco, tMarker};
    if (!noWindow && theItem >= 1 && theItem <= 5) PoniAREF(tipi[theItem - 1]);
}

void menuZoom() { FaiZoom(theItem); }

void menuEsporta() {
    switch (theItem) {
    case 1:
        theItem = 41;
        archivia();
        break;
    case 4:
        if (!noWindow) EsportaDWG();
        break;
    case 5: FaiXYZAsci(); break;
    case 7: FaiMiniCad(due_D); break;
    case 8: FaiMiniCad(tre_D); break;
    default: break;
    }
}

void menuApriAltri() {
    theItem = static_cast<std::int16_t>(50 + theItem);
    if (noWindow) SetUpWindow();
    archivia();
    DisableMenuItem(2, 1);
    EnableMenuItem(2, 3);
}

void menuImporta() {
    constexpr std::int16_t voceDWG = 2, voceScelteDWG = 5;
    if (theItem == voceScelteDWG) {
        SceglieImportaDWG();
        return;
    }
    if (noWindow) SetUpWindow();
    if (theItem == voceDWG && (KeyModifiers() & optionKey) == 0) {
        ImportaDWG();
    } else {
        theItem = static_cast<std::int16_t>(60 + theItem);
        archivia();
    }
    DisableMenuItem(2, 1);
    EnableMenuItem(2, 3);
}

void menuIngressoAttacco() {
    if (!noWindow && theItem >= 1 && theItem <= 4) IngressoAttacco(theItem);
}

// Items 1 to 4 choose a control point; item 5 sets cursor and mode only.
// Kept: item 5 leaves operazCorrente alone, so the click does what the last chosen point did.
void sceltaAttacco(std::int32_t primaOperazione, const std::array<std::int16_t, 5>& cursori) {
    if (noWindow || theItem > 5) return;
    if (theItem <= 4) {
        FineFigura();
        LasciaCalcolatrice();
        operazCorrente = primaOperazione + theItem - 1;
    }
    attaccoCursor = cursori[static_cast<std::size_t>(theItem - 1)];
    SetCursor(attaccoCursor);
    CambiaModo(6);
    DrawPallette();
}

void menuAttacchiOrigine() {
    if (theItem == 6) {
        VerificaAttacchi();
        return;
    }
    sceltaAttacco(7, origineCursor);
}

void menuAttacchiDestinazione() {
    if (theItem == 6) {
        VerificaDestinazione();
        return;
    }
    sceltaAttacco(12, destinazioneCursor);
}

void menuVincoli() {
    static constexpr void (*azioni[])() = {MettiAttaccoPt,      MettiAttaccoZ,    MettiParallelo,
                                           MettiPerpendicolare, MettiOrizzontale, MettiVerticale};
    if (noWindow) return;
    if (theItem == 7) {
        AttivaGriglia();
        AggiustaStatoBottoni();
        DrawPallette();
        return;
    }
    if (theItem < 1 || theItem > 6) return;
    azioni[theItem - 1]();
    coordinateSempre();
}

void menuTrasformaImmagine() {
    if (!noWindow) TrasformaPictSel(theItem);
}

struct VoceMenu {
    std::int16_t menu;
    void (*azione)();
};
constexpr VoceMenu comandi[] = {
    {1, menuSistema},
    {2, DoArchivio},
    {3, DoEdit},
    {4, menuDisegna},
    {5, menuTrasforma},
    {6, menuStrumenti},
    {20, menuPatternPenna},
    {22, menuZoom},
    {23, menuColore},
    {24, menuSpessore},
    {40, menuEsporta},
    {50, menuApriAltri},
    {60, menuImporta},
    {100, [] { CheckFontMac(theItem); }},
    {101, [] { CheckDimFMac(theItem); }},
    {102, [] { CheckStile(theItem); }},
    {103, menuAref},
    {104, menuColore},
    {105, menuPatternArea},
    {106, menuIngressoAttacco},
    {107, menuAttacchiOrigine},
    {108, menuAttacchiDestinazione},
    {111, menuTrasformaImmagine},
    {112, menuVincoli},
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
