// The menus of files: the drawing's own, what is opened, brought in and sent out.
#include "shell/Comandi.h"

#include "display/Stampa.h"
#include "display/StampaPiastrelle.h"
#include "dwg/DbDumper.h"
#include "dwg/EsportaDWG.h"
#include "exchange/FormatoXYZ.h"
#include "exchange/MiniCad.h"
#include "exchange/XYZ.h"
#include "files/Richieste.h"
#include "maps/Mappe.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Selezione.h"
#include "model/Voci.h"
#include "platform/Dialogs.h"
#include "platform/Menus.h"
#include "shell/Archivia.h"
#include "shell/Arrivo.h"
#include "shell/Preferenze.h"
#include "shell/Recenti.h"

namespace tessaro {

namespace {

void disegnoAperto() {
    DisableMenuItem(menuArchivio, voci::archivio::nuovo);
    EnableMenuItem(menuArchivio, voci::archivio::chiudi);
}

}   // namespace

void Apri() {
    if (!TuttoChiuso()) return;
    SetUpWindow();
    theItem = rApri;
    archivia();
    disegnoAperto();
}

void Chiudi() { TuttoChiuso(); }

void DoArchivio() {
    using namespace voci::archivio;
    switch (theItem) {
    case nuovo:
        if (noWindow) {
            SetUpWindow();
            noWindow = 0;
            UnitaDelDisegnoNuovo();
        }
        break;
    case apri: Apri(); break;
    case chiudi: Chiudi(); break;
    case esempio: ApriEsempio(); break;
    case salva:
    case salvaCome: archivia(); break;
    case formato: FormatoXYZ(0); break;
    case impostaPagina: DoPageSetupDialog(); break;
    case stampa: Stampa(); break;
    case anteprima:
        if (AnteprimaStampa()) Stampa();
        break;
    case esci: fine = TuttoChiuso(); break;
    default: break;
    }
}

namespace {

bool soloImmagine() {
    return Puntosel.attiva && !Puntosel.multipla && Puntosel.indice >= 3 && Puntosel.indice <= indElem
           && Elem(Puntosel.indice).tipo == tPict;
}

}   // namespace

void DoEsporta() {
    using namespace voci::esporta;
    switch (theItem) {
    case versionePrecedente:
        theItem = rEsporta;
        archivia();
        break;
    case immagineDisegno:
        theItem = rPict;
        archivia();
        break;
    case immagineSelezionata:
        if (!soloImmagine()) {
            StopAlert(146);
            break;
        }
        theItem = rPictSel;
        archivia();
        break;
    case dwg:
        if (!noWindow) EsportaDWG();
        break;
    case xyz: FaiXYZAsci(); break;
    case miniCad2D: FaiMiniCad(due_D); break;
    case miniCad3D: FaiMiniCad(tre_D); break;
    case mappa:
        if (!noWindow) EsportaMappa();
        break;
    case geoTiff:
        if (!noWindow) EsportaGeoTIFF();
        break;
    default: break;
    }
}

void DoApriAltri() {
    theItem = static_cast<std::int16_t>(menuApriAltri + theItem);
    if (noWindow) SetUpWindow();
    archivia();
    disegnoAperto();
}

void DoImporta() {
    if (theItem == voci::importa::scelteDWG) {
        SceglieImportaDWG();
        return;
    }
    if (noWindow) SetUpWindow();
    if (theItem == voci::importa::dwg && (KeyModifiers() & optionKey) == 0) {
        const Arrivo arrivo;
        ImportaDWG();
    } else if (theItem == voci::importa::mappa) {
        const Arrivo arrivo;
        ImportaMappa();
    } else if (theItem == voci::importa::raster) {
        const Arrivo arrivo;
        ImportaRaster();
    } else {
        theItem = static_cast<std::int16_t>(menuImporta + theItem);
        archivia();
    }
    disegnoAperto();
}

}   // namespace tessaro
