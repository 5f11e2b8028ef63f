// The helper is a script for Node.js around a library that knows every version of the format. It runs in a process of its
// own: a file that brings it down, or sends it round for ever, leaves the drawing as it was.
#include "dwg/kit/leggidwg/LeggiDwg.h"

#include "dwg/kit/dxfleggi/LetturaDxfKit.h"
#include "platform/Process.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

constexpr const char* interprete = "node";
// The compiler that starts at once: the other takes five seconds for the library before the first byte is read.
constexpr const char* compilatoreRapido = "--liftoff-only";
constexpr const char* aiutante = "lettore/lettore.mjs";
constexpr const char* libreria = "lettore/node_modules/@mlightcad/libredwg-web/package.json";
constexpr int secondiMassimi = 120;
constexpr std::int64_t megabyteMassimi = 3072;
constexpr std::int16_t listaAiutante = 9154;   // what is missing or went wrong
enum : std::int16_t {
    mancaNode = 1,
    mancaLibreria = 2,
    troppoTempo = 3,
    troppaMemoria = 4,
    caduto = 5,
    senzaTemporanei = 6
};
enum : int { letto = 0, nonDwg = 3 };   // statuses of the helper

OdError detto(OdResult codice, std::int16_t riga) { return {codice, 0, MacToUtf8(GetIndString(listaAiutante, riga))}; }

}   // namespace

OdError LeggiDwg(OdDbDatabase& db, const FSSpec& file, OdDbHostAppProgressMeter& meter) {
    const std::string script = FileDelProgramma(aiutante);
    if (script.empty() || FileDelProgramma(libreria).empty()) return detto(eHelperMissing, mancaLibreria);
    const FileTemporaneo flusso;
    if (flusso.percorso().empty()) return detto(eHelperFailed, senzaTemporanei);
    meter.setLimit(0);   // nobody can tell how long it will take
    ChiamataProcesso c;
    c.programma = interprete;
    c.argomenti = {compilatoreRapido, script, file.percorso};
    c.uscita = flusso.percorso();
    c.secondi = secondiMassimi;
    c.megabyte = megabyteMassimi;
    c.continua = [&meter] { return meter.meterProgress(); };
    const FineProcesso f = EseguiProcesso(c);
    switch (f.esito) {
    case EsitoProcesso::manca: return detto(eHelperMissing, mancaNode);
    case EsitoProcesso::lento: return detto(eHelperFailed, troppoTempo);
    case EsitoProcesso::grande: return detto(eHelperFailed, troppaMemoria);
    case EsitoProcesso::caduto: return detto(eHelperFailed, caduto);
    case EsitoProcesso::fermato: return {eUserBreak, 0, {}};
    case EsitoProcesso::finito: break;
    }
    if (f.stato == nonDwg) return {eBadDwgFile, 0, {}};
    if (f.stato != letto) return {eHelperFailed, 0, f.detto};
    return LeggiDxfKit(db, FSMakeFSSpec(flusso.percorso()), meter);
}

}   // namespace tessaro
