// The import as a whole: the file, the drawing's scale, the database, the walk, the report.
#include <cstdio>
#include <string>

#include "dialogs/Errori.h"
#include "display/Zoom.h"
#include "dwg/DbDumper.h"
#include "dwg/kit/Esplodi.h"
#include "dwg/ParoleDWG.h"
#include "exchange/Operazione.h"
#include "files/Impostazioni.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Carattere.h"
#include "model/Colori.h"
#include "model/Cursore.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Resources.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

// The text of a fault for the console, where it has always been, and for the person.
void mostraErrore(const OdError& e, const FSSpec& file) {
    const std::string testo = getErrorDescription(e);
    // Kept: a slash and an n; whoever reads the output takes lines apart by them.
    std::printf("OdError: %s/n", MacToUtf8(testo).c_str());
    std::fflush(stdout);
    if (uscita == 0) MostraGuasto({0, testo, Utf8ToMac(file.percorso), -1});
}

void InterpretaDXFDWG(Resoconto& resoconto, bool& intero) {
    ExProtocolExtension::initialize();
    DbDumper d(*pDb, resoconto);
    const std::int16_t corpo = gFontSize, carattere = gFontID;
    {
        const LatoRimandato rimanda;
        intero = d.dump() && intero;
    }
    gFontSize = corpo;
    gFontID = carattere;
    if (d.coloriOltre > 0) resoconto.nota(Parola(ParolaDWG::coloriOltre, ConMigliaia(d.coloriOltre)));
    const std::int64_t lasciati = suddividi_piani != 0 ? 99 : 1;   // layers that keep a sheet each
    if (d.layerUsati() > lasciati) resoconto.nota(Parola(ParolaDWG::pianiUniti, ConMigliaia(d.layerUsati())));
    ExProtocolExtension::uninitialize();
}

void importa(const FSSpec& file) {
    uscita = 0;
    PoniAnnulla(aNiente);
    const std::int32_t prima = indElem;
    inizioAggiunta = indElem;
    suddividi_piani = scelteImporta.piani;
    SetCursor(ClockCursor);
    fileInLavoro = Utf8ToMac(file.percorso);
    Resoconto resoconto;
    OdError esito;
    bool intero = true;
    ProgressOpen(Parola(ParolaDWG::avanzaLettura));
    {
        MyServices svcs;
        pDb = std::make_unique<OdDbDatabase>(createDatabase(false, 0));
        esito = readFile(*pDb, file, svcs);
        // Thrice what the drawing can hold: of what inserts are made of, some is not stored.
        const auto limite =
            pDb->spazioModello().entita.size() + 3 * static_cast<std::size_t>(maxElementi - indElem) + 1;
        if (!explodeDatabaseBlock(*pDb, limite)) resoconto.nota(Parola(ParolaDWG::troppiInserti));
        InterpretaDXFDWG(resoconto, intero);
    }
    ProgressClose();
    pDb.reset();
    arrayNameLayer.clear();
    fileInLavoro.clear();
    RifaiMenuColori();
    if (indElem > prima) PoniAnnulla(aAggiunta);
    SetCursor(arrowCursor);
    InvalFinestra();
    if (esito.codice != eOk) mostraErrore(esito, file);
    uscita = 0;
    ElementiContati entrati;
    entrati.contaRecord(prima + 1);
    if (!intero) resoconto.nota(getErrorDescription({eUserBreak, 0, {}}));
    if (esito.codice == eOk || !entrati.vuoti()) resoconto.mostra(entrati, 0, false);
}

// Names of drawings that the kit reads.
constexpr std::int16_t tipiDisegniCad = 304;

}   // namespace

void ImportaDWGFile(const FSSpec& file) { importa(file); }

void ImportaDWG() {
    constexpr std::int16_t listaNomi = 129, invito = 57;
    FSSpec file;
    if (!NavGetFile(GetIndString(listaNomi, invito), tipiDisegniCad, file)) return;
    if (!ParamGraf()) return;
    importa(file);
}

}   // namespace tessaro
