// The preferences' settings file: UTF-8 lines of `name = value`, `#` for remarks. One table names every value with its
// bounds, for the reading and the writing. A file "journal" of earlier days, with its line `memory`, is read before it.
#include "shell/Preferenze.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "dialogs/Errori.h"
#include "files/TestiFile.h"
#include "model/Giornale.h"
#include "model/PreferenzeVista.h"
#include "model/TabellaStato.h"
#include "platform/Files.h"
#include "platform/Resources.h"
#include "shell/Recupero.h"

namespace tessaro {

constinit std::int16_t linguaPreferita = linguaDelDesktop;
constinit std::int16_t unitaNuovi = 0;
constinit std::uint8_t mostraInizio = 1;

namespace {

constexpr std::int32_t maxFile = 65536;   // bytes; what lies behind is nothing of ours
constexpr std::size_t maxIgnote = 100;    // lines of a newer program that are kept
constexpr std::string_view nomeColore = "highlight", nomeLingua = "language";
constexpr std::string_view lingue[] = {"desktop", "en", "it"};

template <auto& v>
std::int32_t leggi() {
    return static_cast<std::int32_t>(v);
}
template <auto& v>
void poni(std::int32_t n) {
    v = static_cast<std::remove_reference_t<decltype(v)>>(n);
}
struct VoceIntera {
    std::string_view nome;
    std::int32_t min, max;
    std::int32_t (*leggi)();
    void (*poni)(std::int32_t);
};
template <auto& v>
constexpr VoceIntera intera(std::string_view nome, std::int32_t min, std::int32_t max) {
    return {nome, min, max, leggi<v>, poni<v>};
}
constexpr VoceIntera intere[] = {
    intera<mostraInizio>("start-page", 0, 1),
    intera<rotellaIngrandisce>("wheel-zooms", 0, 1),
    intera<lineeMorbide>("smooth-lines", 0, 1),
    intera<distanzaAggancio>("snap-distance", distanzaAggancioMinima, distanzaAggancioMassima),
    intera<agganciAttivi>("snap-kinds", 0, (1 << (numAgganci - 1)) - 1),
    intera<memoriaGiornale>("memory", 1, 65536),
    intera<unitaNuovi>("unit", 0, 6),
    intera<recuperoAttivo>("recovery", 0, 1),
    intera<recuperoSecondi>("recovery-seconds", minimoRecupero, massimoRecupero),
};

// Lines that another version wrote.
std::vector<std::string>& ignote() {
    static std::vector<std::string> righe;
    return righe;
}

std::string_view pulita(std::string_view s) {
    const auto da = s.find_first_not_of(" \t\r"), a = s.find_last_not_of(" \t\r");
    return da == std::string_view::npos ? std::string_view{} : s.substr(da, a - da + 1);
}

bool numeroTra(std::string_view s, int base, std::int32_t min, std::int32_t max, std::int32_t& v) {
    std::int32_t n = 0;
    const auto r = std::from_chars(s.data(), s.data() + s.size(), n, base);
    if (r.ec != std::errc{} || r.ptr != s.data() + s.size() || n < min || n > max) return false;
    v = n;
    return true;
}

// `#RRGGBB`, not black: black on the drawing would show nothing.
bool leggiColore(std::string_view s) {
    std::int32_t rgb = 0;
    if (s.size() != 7 || s.front() != '#' || !numeroTra(s.substr(1), 16, 1, 0xFFFFFF, rgb)) return false;
    const auto parte = [rgb](int spostamento) {
        return static_cast<std::uint16_t>(static_cast<std::uint32_t>(rgb >> spostamento & 0xFF) * 257U);
    };
    coloreEvidenza = {parte(16), parte(8), parte(0)};
    return true;
}

std::string coloreScritto() {
    constexpr std::string_view cifre = "0123456789ABCDEF";
    std::string s = "#";
    for (const std::uint16_t c : {coloreEvidenza.red, coloreEvidenza.green, coloreEvidenza.blue}) {
        s += cifre[c >> 12U];
        s += cifre[c >> 8U & 15U];
    }
    return s;
}

enum class Esito : std::uint8_t { presa, rifiutata, ignota };

Esito assegna(std::string_view nome, std::string_view valore) {
    if (nome == nomeColore) return leggiColore(valore) ? Esito::presa : Esito::rifiutata;
    if (nome == nomeLingua) {
        const auto* l = std::find(std::begin(lingue), std::end(lingue), valore);
        if (l == std::end(lingue)) return Esito::rifiutata;
        linguaPreferita = static_cast<std::int16_t>(l - std::begin(lingue));
        return Esito::presa;
    }
    const auto* v =
        std::find_if(std::begin(intere), std::end(intere), [nome](const auto& x) { return x.nome == nome; });
    if (v == std::end(intere)) return Esito::ignota;
    std::int32_t n = 0;
    if (!numeroTra(valore, 10, v->min, v->max, n)) return Esito::rifiutata;
    v->poni(n);
    return Esito::presa;
}

bool eNome(std::string_view s) {
    return !s.empty() && s.size() < 64
           && std::all_of(s.begin(), s.end(), [](char c) { return (c >= 'a' && c <= 'z') || c == '-'; });
}

Esito riga(std::string_view r) {
    const auto uguale = r.find('=');
    if (uguale == std::string_view::npos) return Esito::rifiutata;
    const std::string_view nome = pulita(r.substr(0, uguale));
    const Esito e = assegna(nome, pulita(r.substr(uguale + 1)));
    if (e != Esito::ignota) return e;
    if (!eNome(nome) || r.size() > 1000) return Esito::rifiutata;
    if (ignote().size() < maxIgnote) ignote().emplace_back(r);
    return Esito::ignota;
}

void leggiFile(const char* nome) {
    const FSSpec file = FSMakeFSSpecIn(SettingsFolder(), nome);
    std::int16_t ref = 0;
    const OSErr aperto = FSpOpenDF(file, fsRdPerm, ref);
    if (aperto == fnfErr) return;
    std::string testo(maxFile, '\0');
    std::int32_t quanti = maxFile;
    const OSErr letto = aperto == noErr ? FSRead(ref, quanti, testo.data()) : aperto;
    if (aperto == noErr) FSClose(ref);
    if (letto != noErr && letto != eofErr) return MostraGuasto({letto, {}, Utf8ToMac(file.percorso), -1});
    const std::string rifiutate =
        LeggiTestoPreferenze(std::string_view(testo).substr(0, static_cast<std::size_t>(quanti)));
    if (rifiutate.empty()) return;
    MostraGuasto({noErr, TestoDi(TestoFile::impostazioni, rifiutate), Utf8ToMac(file.percorso), -1});
}

}   // namespace

std::string LeggiTestoPreferenze(std::string_view testo) {
    std::string rifiutate;
    for (int numero = 1; !testo.empty(); ++numero) {
        const auto capo = testo.find('\n');
        const std::string_view r = pulita(testo.substr(0, capo));
        testo.remove_prefix(capo == std::string_view::npos ? testo.size() : capo + 1);
        if (r.empty() || r.front() == '#' || riga(r) != Esito::rifiutata) continue;
        if (rifiutate.size() > 60) {   // of a file that is none a few lines are enough
            rifiutate += " ...";
            break;
        }
        rifiutate += (rifiutate.empty() ? "" : ", ") + std::to_string(numero);
    }
    return rifiutate;
}

std::string TestoPreferenze() {
    std::string s;
    const auto aggiungi = [&s](std::string_view nome, std::string_view valore) {
        s.append(nome).append(" = ").append(valore).append("\n");
    };
    aggiungi(nomeLingua, lingue[static_cast<std::size_t>(std::clamp<std::int16_t>(linguaPreferita, 0, 2))]);
    for (const VoceIntera& v : intere) aggiungi(v.nome, std::to_string(v.leggi()));
    aggiungi(nomeColore, coloreScritto());
    for (const std::string& r : ignote()) s.append(r).append("\n");
    return s;
}

void LeggiPreferenze() {
    ignote().clear();
    leggiFile("journal");
    leggiFile("preferences");
}

bool ScriviPreferenze() {
    const FSSpec file = FSMakeFSSpecIn(SettingsFolder(), "preferences");
    const std::string testo = TestoPreferenze();
    std::int16_t ref = 0;
    OSErr e = FSpOpenReplacing(file, tipoDi("TSC3"), tipoDi("TEXT"), ref);
    if (e == noErr) {
        auto quanti = static_cast<std::int32_t>(testo.size());
        const OSErr scritto = FSWrite(ref, quanti, testo.data());
        e = FSClose(ref);
        if (scritto != noErr) e = scritto;
    }
    if (e != noErr) MostraGuasto({e, {}, Utf8ToMac(file.percorso), -1});
    return e == noErr;
}

namespace {
const VoceStato righe[] = {
    voce<linguaPreferita>("linguaPreferita"),
    voce<unitaNuovi>("unitaNuovi"),
    voce<mostraInizio>("mostraInizio"),
    {"preferenzeIgnote", [] { ignote().clear(); }, nullptr},
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
