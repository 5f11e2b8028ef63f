// One recovery file at a time, begun at a drawing's first step (of a large one when it is opened, so that no keystroke
// waits for it). Its lock tells a program that lives from one that died.
#include "shell/Recupero.h"

#include <array>
#include <ctime>
#include <string>

#include "display/palette.h"
#include "display/Zoom.h"
#include "files/RecuperoFormato.h"
#include "model/Archivio.h"
#include "model/Colori.h"
#include "model/Documento.h"
#include "model/TabellaStato.h"
#include "platform/Automation.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Resources.h"
#include "shell/Archivia.h"
#include "shell/Modificato.h"

namespace tessaro {

constinit std::uint8_t recuperoAttivo = 1;
constinit std::int16_t recuperoSecondi = minimoRecupero;

namespace {

constexpr std::int16_t avvisoRecupero = 9103, rispondeApri = 1, avvisoDisco = 9108;
constexpr std::int16_t listaNomi = 129, nomeSenzaTitolo = 1;
constexpr std::int32_t grande = 100000;      // records: from here on the file is begun at the opening
constexpr std::uint32_t riprova = 30 * 60;   // ticks until a disk that refused is tried again
const char* const suffisso = ".recovery";

struct Corrente {
    ScritturaRecupero scrittura;
    bool guasto = false;   // the disk has refused: what is in the file stays, and no step is added behind a gap
    bool detto = true;     // and the person knows
    bool daScaricare = false;
    std::uint32_t quando = 0;   // ticks of the last refusal
};
Corrente& stato() {
    static Corrente s;
    return s;
}

std::int64_t adesso() { return static_cast<std::int64_t>(std::time(nullptr)); }

std::string nomeFile() {
    static std::int32_t numero = 0;
    return StateFolder() + "/drawing-" + std::to_string(adesso()) + "-" + std::to_string(ProcessNumber()) + "-"
           + std::to_string(++numero) + suffisso;
}

void rifiutato(Corrente& s) {
    s.detto = s.detto && s.guasto;
    s.guasto = true;
    s.quando = TickCount();
}

// A new file with the drawing of the moment; one that lies there already goes only when it is written.
void comincia(Corrente& s, bool diverso) {
    ScritturaRecupero nuova;
    nuova.file = StateCreate(nomeFile());
    if (nuova.file == 0 || !ScriviInizio(nuova, NomeD.str(), adesso(), diverso)) {
        StateClose(nuova.file, true);
        rifiutato(s);
        return;
    }
    StateClose(s.scrittura.file, true);
    s.scrittura = std::move(nuova);
    s.guasto = false;
    s.daScaricare = true;
}

void passo(const Transizione& t) {
    if (!recuperoAttivo) return;
    Corrente& s = stato();
    if (s.guasto && TickCount() - s.quando < riprova) return;
    if (s.scrittura.file == 0 || s.guasto) {
        comincia(s, true);
    } else if (ScriviPasso(s.scrittura, t, adesso())) {
        s.daScaricare = true;
    } else {
        rifiutato(s);
    }
}

std::string data(std::int64_t secondi) {
    const auto t = static_cast<std::time_t>(secondi);
    std::array<char, 32> testo{};
    if (const std::tm* giorno = std::localtime(&t)) std::strftime(testo.data(), testo.size(), "%Y-%m-%d %H:%M", giorno);
    return testo.data();
}

// The drawing has no file: its next save asks where to.
void apri(const DisegnoRecuperato& d) {
    SetUpWindow();
    AccogliRecupero(d);
    GiornaleNuovo();
    NomeD = PStr255(std::string_view(d.nome));
    comincia(stato(), true);
    NomeD = PStr255(std::string_view(GetIndString(listaNomi, nomeSenzaTitolo)));
    NomeLavoro = NomeD;
    myFSS = FSSpec{};
    SetWTitle(theWindow, NomeLavoro.view());
    RifaiMenuColori();
    AggiornaBarre();
    DrawPallette();
    SegnaDiverso();
    NewDis = 1;
    InvalFinestra();
}

}   // namespace

void FineRecupero() {
    Corrente& s = stato();
    StateClose(s.scrittura.file, true);
    s = Corrente{};
}

void RicominciaRecupero() {
    FineRecupero();
    if (recuperoAttivo && !noWindow && indElem > grande) comincia(stato(), false);
}

void PoniRecupero(std::uint8_t attivo) {
    if (!attivo) FineRecupero();
    recuperoAttivo = attivo;
}

bool RecuperoDaScaricare() { return stato().daScaricare; }

void RecuperoARiposo(bool fermo) {
    Corrente& s = stato();
    if (fermo && s.daScaricare) {
        StateFlush(s.scrittura.file);
        s.daScaricare = false;
    }
    if (s.detto) return;
    s.detto = true;
    StopAlert(avvisoDisco);
}

void PreparaRecupero() {
    dopoTransizione = passo;
    salvaRecupero = [] { RecuperoARiposo(true); };
}

void OffriRecupero() {
    for (const std::string& percorso : StateFiles(suffisso)) {
        const StateFile f = StateTakeOver(percorso);
        if (f == 0) continue;
        DisegnoRecuperato d;
        if (!LeggiRecupero(f, d) || !d.diverso) {
            StateClose(f, true);
            continue;
        }
        ParamText(d.nome, data(d.secondi), "", "");
        if (CautionAlert(avvisoRecupero) != rispondeApri) {
            StateClose(f, true);
            continue;
        }
        const bool entra = static_cast<std::int64_t>(d.record.size()) <= maxElementi;
        if (TuttoChiuso()) {
            apri(d);
            StateClose(f, entra && !stato().guasto);   // what is nowhere else stays where it is
        } else {
            StateClose(f, false);
        }
        return;
    }
}

namespace {
const VoceStato righe[] = {
    {"recupero", FineRecupero},
    voce<recuperoAttivo>("recuperoAttivo"),
    voce<recuperoSecondi>("recuperoSecondi"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
