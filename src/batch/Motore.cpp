// Opening and writing without a person: the hooks that the toolbox asks, and what came of it.
#include "batch/Motore.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <utility>

#include "batch/Batch.h"
#include "batch/Rigo.h"
#include "batch/StampaPdf.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "platform/Automation.h"
#include "registration/gauss.h"
#include "shell/Archivia.h"
#include "shell/Inizializza.h"
#include "shell/Modificato.h"
#include "text/FileDati.h"

namespace tessaro {

Detto detto;

namespace {

std::string fileRichiesto;   // what the next request for a file is given

// Alerts that are no faults, and the button that is pressed. Every other is a fault, and its default button is pressed.
struct Notizia {
    std::int16_t id, bottone;
    bool nota;
};
constexpr Notizia notizie[] = {
    {9110, 1, true},    // what an import brought and lost
    {9111, 1, true},    // what an export wrote and lost
    {9123, 1, false},   // is the world file to register the sheet
    {9350, 1, false},   // are the files of a map to be replaced
    {9351, 1, true},    // longitude and latitude come in as the zone that is told
    {9352, 1, false},   // is the sheet laid over a map
    {9400, 1, false},   // is the sheet made as large as a picture
    {9401, 1, false},   // is the sheet brought to what lies far from it
};

std::int16_t avviso(std::int16_t id, std::string_view testo, std::int16_t predefinito) {
    const auto* n = std::find_if(std::begin(notizie), std::end(notizie), [id](const Notizia& x) { return x.id == id; });
    if (n == std::end(notizie)) {
        detto.guasti.emplace_back(testo);
        return predefinito;
    }
    if (n->nota) detto.note.emplace_back(testo);
    return n->bottone;
}

bool file(bool, std::string& percorso) {
    if (fileRichiesto.empty()) return false;
    percorso = std::exchange(fileRichiesto, {});
    return true;
}

// Nobody answers: a dialog is a fault, and is cancelled.
constexpr Copione ganci{
    .passo = [] { return false; },
    .avviso = avviso,
    .dialogoAperto = [](std::int16_t id,
                        std::string_view) { detto.guasti.push_back(Testo(Frase::dialogo, std::to_string(id))); },
    .passoDialogo = [](DialogPtr) { return false; },
    .dialogoChiuso = [](std::int16_t) {},
    .file = file,
    .popup = [] { return std::int16_t{0}; },
    .colore = [](std::uint16_t&, std::uint16_t&, std::uint16_t&) { return false; },
    .stampa = [](std::string&, std::int32_t&, std::int32_t&) { return false; },
    .carta = [](double&, double&) { return false; },
    .beep = [](std::int32_t) {},
};

constexpr GenereFile pdf{".pdf", nullptr, StampaFoglio};

std::string tutti(const std::vector<std::string>& frasi) {
    std::string s;
    for (const std::string& f : frasi) s += (s.empty() ? "" : " ") + f;
    std::replace(s.begin(), s.end(), '\n', ' ');
    return s;
}

}   // namespace

std::string LinguaAmbiente() {
    for (const char* nome : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* v = std::getenv(nome);
        if (v != nullptr && *v != '\0') return std::string_view(v).starts_with("it") ? "it" : "en";
    }
    return "en";
}

std::string LinguaDi(const Chiamata& c) { return c.ha("language") ? c.valore("language") : LinguaAmbiente(); }

void AccendiMotore(int& argc, char** argv, const Chiamata& c) {
    static const SenzaTraccia silenzio;
    Avvio a;
    a.script = true;
    a.settings = c.valore("settings");
    a.language = LinguaDi(c);
    SetCopione(&ganci);
    StartToolbox(argc, argv, a);
    Initialize();
    LeggiImpostazioni();
}

void SpegniMotore(Esito e) {
    ChiudiUscita();
    AutoExit(static_cast<std::int32_t>(e));
}

std::string Assoluto(const std::string& percorso) {
    std::error_code guasto;
    const auto intero = std::filesystem::absolute(percorso, guasto);
    return guasto ? percorso : intero.string();
}

std::int64_t ByteDi(const std::string& percorso) {
    std::error_code guasto;
    const auto n = std::filesystem::file_size(percorso, guasto);
    return guasto ? -1 : static_cast<std::int64_t>(n);
}

bool StessoFile(const std::string& a, const std::string& b) {
    std::error_code guasto;
    return std::filesystem::equivalent(a, b, guasto) && !guasto;
}

Esito ApriIngresso(const Chiamata& c, const std::string& percorso, bool posa) {
    const GenereFile* f = GenereDi(percorso);
    if (f == nullptr || f->leggi == nullptr) return Rifiuta(c, Esito::nonLetto, percorso, Testo(Frase::nonSiLegge));
    if (ByteDi(percorso) < 0) return Rifiuta(c, Esito::nonLetto, percorso, Testo(Frase::assente));
    SegnaSalvato();
    detto = {};
    ApriConGenere(*f, FSMakeFSSpec(Assoluto(percorso)), posa);
    if (detto.guasti.empty() && indElem >= maxElementi) detto.guasti.push_back(Testo(Frase::pieno));
    if (detto.guasti.empty() && (noWindow || uscita)) detto.guasti.push_back(Testo(Frase::assente));
    if (!detto.guasti.empty()) return Rifiuta(c, Esito::nonLetto, percorso, tutti(detto.guasti));
    return Esito::fatto;
}

const GenereFile* FormaUscita(const Chiamata& c, const std::string& percorso) {
    const GenereFile* f = Minuscole(percorso).ends_with(pdf.suffisso) ? &pdf : GenereDi(percorso);
    if (f != nullptr && f->scrivi != nullptr) return f;
    Rifiuta(c, Esito::uso, percorso, Testo(Frase::nonSiScrive));
    return nullptr;
}

Esito ScriviUscita(const Chiamata& c, const GenereFile& formato, const std::string& percorso) {
    detto = {};
    uscita = 0;
    fileRichiesto = Assoluto(percorso);
    formato.scrivi();
    // A shapefile is several, each with its kind of figures behind the name: the report tells them.
    const bool scritto = ByteDi(percorso) >= 0 || !detto.note.empty();
    if (detto.guasti.empty() && (uscita || !fileRichiesto.empty() || !scritto))
        detto.guasti.push_back(Testo(Frase::nulla));
    if (!detto.guasti.empty()) return Rifiuta(c, Esito::nonFatto, percorso, tutti(detto.guasti));
    return Esito::fatto;
}

}   // namespace tessaro
