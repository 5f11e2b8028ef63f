// The export as a whole: the database of the drawing, the file, and the look at what was written.
#include <algorithm>
#include <cstdio>
#include <string>

#include "dialogs/Errori.h"
#include "dwg/Confronto.h"
#include "dwg/dwgdxf.h"
#include "dwg/ParoleDWG.h"
#include "exchange/NomiLayer.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/IndiceColori.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Resources.h"
#include "registration/Coordinate.h"
#include "text/FileDati.h"

namespace tessaro {

std::unique_ptr<OdDbDatabase> pDb;
ScelteEsporta scelteEsporta;
std::array<OdDbObjectId, 100> newLayerId;

void InizioDWG() { pDb.reset(); }
void FineDWG() { pDb.reset(); }

namespace {

// The extent of what was made, for the view with which other programs begin.
void estensione(OdDbDatabase& db) {
    OdDbHeader& h = db.header;
    const auto punto = [&h](const OdGePoint3d& p, double r = 0) {
        if (!SonoFiniti(p)) return;
        h.extMin = {std::min(h.extMin.x, p.x - r), std::min(h.extMin.y, p.y - r), std::min(h.extMin.z, p.z)};
        h.extMax = {std::max(h.extMax.x, p.x + r), std::max(h.extMax.y, p.y + r), std::max(h.extMax.z, p.z)};
    };
    for (const OdDbEntityPtr& e : db.spazioModello().entita) {
        if (const auto* l = odCast<OdDbLine>(*e)) {
            punto(l->startPoint);
            punto(l->endPoint);
        } else if (const auto* c = odCast<OdDbCircle>(*e)) {
            punto(c->center, c->radius);
        } else if (const auto* a = odCast<OdDbArc>(*e)) {
            punto(a->center, a->radius);
        } else if (const auto* t = odCast<OdDbText>(*e)) {
            punto(t->position);
        } else if (const auto* p = odCast<OdDb3dPolyline>(*e)) {
            for (const OdDbVertice& v : p->vertici) punto(v.punto);
        }
    }
}

std::array<bool, 100> lucidiInUso() {
    std::array<bool, 100> usati{};
    for (std::int32_t i = 3; i <= indElem; ++i) {
        const std::int16_t l = Elem(i).lucido;
        usati[l >= 0 && l <= 99 ? static_cast<std::size_t>(l) : 0] = true;
    }
    return usati;
}

void limiti(OdDbDatabase& db) {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    const double largo = 100 * Xfoglio, alto = 100 * yfoglio;
    DigiToReal(0, alto, x1, y1);
    DigiToReal(largo, 0, x2, y2);
    db.header.limMin = {std::min(x1, x2), std::min(y1, y2), 0};
    db.header.limMax = {std::max(x1, x2), std::max(y1, y2), 0};
}

}   // namespace

std::unique_ptr<OdDbDatabase> CreaDatabaseDisegno(Scritti& conto) {
    auto db = std::make_unique<OdDbDatabase>(createDatabase(true, 0));
    addRegApp(*db, "ODA");
    const std::array<bool, 100> usati = lucidiInUso();
    // Kept: every sheet has its layer, whether used or not; unless the person wants it otherwise.
    newLayerId.fill({});
    const auto nomi = NomiLayer("Layer ");
    for (std::size_t i = 0; i < newLayerId.size(); ++i)
        if (scelteEsporta.soloInUso == 0 || usati[i]) addLayer(*db, MacToUtf8(nomi[i]).c_str(), newLayerId[i]);
    addLinetypes(*db);
    CreaDWG(*db, conto);
    limiti(*db);
    estensione(*db);
    return db;
}

namespace {

struct Genere {
    std::int16_t tipo;
    OdDbSaveType salva;
    const char* suffisso;
    OSType fdType, creatore;
    ParolaDWG invito;
};
constexpr Genere generi[] = {
    {1, OdDbSaveType::kDwg, ".dwg", tipoDi("DWG "), tipoDi("DWDX"), ParolaDWG::salvaDWG},
    {2, OdDbSaveType::kDxf, ".dxf", tipoDi("TEXT"), tipoDi("ttxt"), ParolaDWG::salvaDXF},
};

// The drawing's name, without its own suffix.
std::string nomeOfferto(const char* suffisso) {
    constexpr std::string_view nostro = ".ts3d";
    std::string s = NomeD.str();
    if (s.size() > nostro.size() && s.ends_with(nostro)) s.resize(s.size() - nostro.size());
    return s + suffisso;
}

// The text of an error for the console, where it has always been, and for the person.
void mostraErrore(const OdError& e, const FSSpec& file) {
    const std::string testo = getErrorDescription(e);
    // Kept: a slash and an n; whoever reads the output takes lines apart by them.
    std::printf("OdError: %s/n", MacToUtf8(testo).c_str());
    std::fflush(stdout);
    if (e.codice != eUserBreak) MostraGuasto({0, testo, Utf8ToMac(file.percorso), -1});
}

// The bytes into a file that replaces the old one only when all of it was written.
OdError scriviFile(OdDbDatabase& db, const Genere& g, const FSSpec& file, std::int16_t versione, MyServices& svcs) {
    std::int16_t ref = 0;
    if (const OSErr e = FSpOpenReplacing(file, g.creatore, g.fdType, ref); e != noErr) return {eFileWriteError, e, {}};
    OdWrFileBuf buffer(ref);
    OdError esito = writeFile(db, buffer, g.salva, versione, svcs);
    if (esito.codice != eOk) {
        FSAbandon(ref);
        return esito;
    }
    if (const OSErr e = FSClose(ref); e != noErr) esito = {eFileWriteError, e, {}};
    return esito;
}

// Reads the file back and compares it with what was meant.
void rileggi(const OdDbDatabase& inteso, const Genere& g, const FSSpec& file, std::int16_t versione, MyServices& svcs) {
    if (!PuoLeggere(g.salva)) return;
    OdDbDatabase riletto = createDatabase(false, 0);
    Differenze d;
    const OdError e = readFile(riletto, file, svcs);
    if (e.codice == eUserBreak || e.codice == eHelperMissing) return;
    if (e.codice != eOk) d.prima = MacToUtf8(getErrorDescription(e));
    d = e.codice != eOk ? Differenze{1, d.prima} : ConfrontaDatabase(inteso, riletto, versione);
    if (d.quante == 0) return;
    constexpr std::int16_t avvisoDifferenze = 9112;
    ParamText(Utf8ToMac(file.percorso), ConMigliaia(d.quante), Utf8ToMac(d.prima), {});
    StopAlert(avvisoDifferenze);
}

// Files older than 2004 know colours by number alone; how many elements take one that is not quite theirs.
std::int64_t coloriVicini(const OdDbDatabase& db, std::int16_t versione) {
    constexpr std::int16_t dxf2004 = 25;
    if (versione >= dxf2004) return 0;
    const auto& entita = db.spazioModello().entita;
    return std::count_if(entita.begin(), entita.end(), [](const OdDbEntityPtr& e) {
        if (e->color.metodo != OdCmColor::byColor) return false;
        const TernaColore t = ColoreDiIndice(e->color.indice);
        return t.r != e->color.red || t.g != e->color.green || t.b != e->color.blue;
    });
}

}   // namespace

void SaveDWGDXF(std::int16_t tipo, std::int16_t versione) {
    const auto* const g =
        std::find_if(std::begin(generi), std::end(generi), [tipo](const Genere& x) { return x.tipo == tipo; });
    FSSpec file;
    if (g == std::end(generi) || !NavPutFile(Parola(g->invito), nomeOfferto(g->suffisso), file)) return;
    constexpr std::int16_t preparo = 52, scrivo = 53;   // strings of list 129
    SetCursor(ClockCursor);
    Scritti conto;
    OdError esito;
    {
        MyServices svcs;
        svcs.newProgressMeter(preparo);
        pDb = CreaDatabaseDisegno(conto);
        conto.cambiati.aggiungi(cColoriVicini, coloriVicini(*pDb, versione));
        svcs.newProgressMeter(scrivo);
        esito = scriviFile(*pDb, *g, file, versione, svcs);
        if (esito.codice == eOk) rileggi(*pDb, *g, file, versione, svcs);
    }
    SetCursor(arrowCursor);
    pDb.reset();
    if (esito.codice != eOk)
        mostraErrore(esito, file);
    else
        MostraScritti(conto, TestoScambio::nonNelKit);
}

namespace {
const VoceStato righe[] = {
    {"pDb", [] { pDb.reset(); }, nullptr},
    {"newLayerId", [] { newLayerId.fill({}); }, nullptr},
    {"scelteEsporta", [] { scelteEsporta = {}; }, nullptr},
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
