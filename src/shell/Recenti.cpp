// The list's file is text, a path a line, so that it can be read and mended by hand.
#include "shell/Recenti.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "dialogs/Errori.h"
#include "files/Richieste.h"
#include "model/Documento.h"
#include "model/TabellaStato.h"
#include "model/Voci.h"
#include "platform/Dialogs.h"
#include "platform/Menus.h"
#include "platform/Process.h"
#include "platform/Resources.h"
#include "platform/Windows.h"
#include "shell/Archivia.h"
#include "shell/Inizializza.h"

namespace tessaro {

namespace {

constexpr std::int16_t avvisoSparito = 9480, listaNomi = 129, nomeSenzaTitolo = 1;
constexpr std::int32_t maxFile = 65536;      // bytes of the list's file that are looked at
constexpr std::size_t maxPercorso = 4096;    // bytes of a path
constexpr std::size_t maxCartella = 48;      // characters of a folder in the menu
const char* const esempio = "sample.ts3d";   // among the program's own files

std::vector<std::string> recenti;

FSSpec fileElenco() { return FSMakeFSSpecIn(SettingsFolder(), "recent"); }

bool ePercorso(std::string_view riga) {
    return riga.size() > 1 && riga.size() < maxPercorso && riga.front() == '/'
           && std::none_of(riga.begin(), riga.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

// `name   (folder)`: the person's own folder as ~, a long one without its middle.
std::string vista(const std::string& percorso) {
    const std::filesystem::path p(percorso);
    std::string cartella = p.parent_path().string();
    const char* casa = std::getenv("HOME");
    if (casa != nullptr && *casa == '/' && cartella.starts_with(casa))
        cartella.replace(0, std::string(casa).size(), "~");
    std::string mac = Utf8ToMac(cartella);
    if (mac.size() > maxCartella) {
        const std::size_t meta = maxCartella / 2;
        mac = mac.substr(0, meta) + "..." + mac.substr(mac.size() - meta);
    }
    return Utf8ToMac(p.filename().string()) + "   (" + mac + ")";
}

void aggiornaMenu() {
    using namespace voci::recenti;
    for (std::int16_t i = primo; i <= ultimo; ++i) {
        const auto n = static_cast<std::size_t>(i - primo);
        const bool occupata = n < recenti.size();
        if (occupata) SetMenuItemText(menuRecenti, i, vista(recenti[n]));
        ShowMenuItem(menuRecenti, i, occupata);
    }
    (recenti.empty() ? DisableMenuItem : EnableMenuItem)(menuRecenti, svuota);
    ShowMenuItem(menuArchivio, voci::archivio::recenti, !recenti.empty());
}

// A list that cannot be kept is no one's trouble: the menu has it as long as the program runs.
void scriviElenco() {
    std::string testo = "# Drawings opened last, newest first.\n";
    for (const std::string& p : recenti) testo += p + '\n';
    std::int16_t ref = 0;
    if (FSpOpenReplacing(fileElenco(), tipoDi("TSC3"), tipoDi("TEXT"), ref) != noErr) return;
    auto n = static_cast<std::int32_t>(testo.size());
    FSWrite(ref, n, testo.data());
    FSClose(ref);
}

void togli(const std::string& percorso) {
    LeggiRecenti();
    std::erase(recenti, percorso);
    scriviElenco();
    aggiornaMenu();
}

std::string assoluto(const std::string& percorso) {
    std::error_code e;
    const std::filesystem::path p = std::filesystem::absolute(percorso, e);
    return e ? percorso : p.lexically_normal().string();
}

}   // namespace

std::vector<std::string> RecentiDa(std::string_view byte) {
    std::vector<std::string> trovati;
    while (!byte.empty() && trovati.size() < maxRecenti) {
        const auto capo = byte.find('\n');
        std::string_view riga = byte.substr(0, capo);
        byte.remove_prefix(capo == std::string_view::npos ? byte.size() : capo + 1);
        if (riga.ends_with('\r')) riga.remove_suffix(1);
        if (ePercorso(riga) && std::find(trovati.begin(), trovati.end(), riga) == trovati.end())
            trovati.emplace_back(riga);
    }
    return trovati;
}

void LeggiRecenti() {
    std::int16_t ref = 0;
    if (FSpOpenDF(fileElenco(), fsRdPerm, ref) == noErr) {
        std::string testo(maxFile, '\0');
        std::int32_t quanti = maxFile;
        FSRead(ref, quanti, testo.data());
        FSClose(ref);
        recenti = RecentiDa(std::string_view(testo).substr(0, static_cast<std::size_t>(std::max(quanti, 0))));
    }
    aggiornaMenu();
}

void RicordaRecente(const FSSpec& file) {
    const std::string percorso = assoluto(file.percorso);
    if (!ePercorso(percorso) || percorso == FileDelProgramma(esempio)) return;
    LeggiRecenti();
    std::erase(recenti, percorso);
    recenti.insert(recenti.begin(), percorso);
    if (recenti.size() > maxRecenti) recenti.resize(maxRecenti);
    scriviElenco();
    aggiornaMenu();
}

void ApriRecente(std::int16_t item) {
    const auto n = static_cast<std::size_t>(item - voci::recenti::primo);
    if (item < voci::recenti::primo || n >= recenti.size()) return;
    const std::string percorso = recenti[n];
    FInfo info;
    const OSErr errore = FSpGetFInfo(FSMakeFSSpec(percorso), info);
    if (errore == fnfErr) {
        StopAlertParam(avvisoSparito, Utf8ToMac(percorso));
        return togli(percorso);
    }
    if (errore != noErr) return Messaggio(errore);
    ApriPercorso(percorso.c_str());
}

void SvuotaRecenti() {
    recenti.clear();
    scriviElenco();
    aggiornaMenu();
}

bool EsempioInstallato() { return !FileDelProgramma(esempio).empty(); }

void ApriEsempio() {
    const std::string percorso = FileDelProgramma(esempio);
    if (percorso.empty()) return;
    ApriPercorso(percorso.c_str());
    if (noWindow || myFSS.percorso != percorso) return;   // the drawing that was open stayed, or nothing was read
    NomeD = PStr255(std::string_view(GetIndString(listaNomi, nomeSenzaTitolo)));
    NomeLavoro = NomeD;
    myFSS = FSSpec{};
    OKArchivioFss = 0;
    SetWTitle(theWindow, NomeLavoro.view());
}

namespace {
const VoceStato righe[] = {
    {"recenti", [] { recenti.clear(); }, nullptr},
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
