// The command line: the program's own options are taken out, the toolkit's stay for it, the rest are drawings to open.
#include <algorithm>
#include <charconv>
#include <string_view>

#include "script/Copione.h"
#include "script/Messaggi.h"

namespace tessaro {

namespace {

constexpr std::int32_t latoMinimo = 64, latoMassimo = 16384, rapportoMassimo = 8;

bool numero(std::string_view s, std::int32_t min, std::int32_t max, std::int32_t& v) {
    const auto [fine, guasto] = std::from_chars(s.data(), s.data() + s.size(), v);
    return !s.empty() && guasto == std::errc{} && fine == s.data() + s.size() && v >= min && v <= max;
}

bool finestra(std::string_view s, Opzioni& o) {
    const auto per = s.find_first_of("xX");
    return per != std::string_view::npos && numero(s.substr(0, per), latoMinimo, latoMassimo, o.avvio.width)
           && numero(s.substr(per + 1), latoMinimo, latoMassimo, o.avvio.height);
}

struct Opzione {
    std::string_view nome;
    bool (*prendi)(std::string_view valore, Opzioni& o);   // null: a switch
    bool Opzioni::*interruttore = nullptr;
};
constexpr Opzione opzioni[] = {
    {"--script",
     [](std::string_view v, Opzioni& o) {
         o.copione = v;
         o.avvio.script = true;
         return !v.empty();
     }},
    {"--window", finestra},
    {"--ratio", [](std::string_view v, Opzioni& o) { return numero(v, 1, rapportoMassimo, o.avvio.ratio); }},
    {"--settings",
     [](std::string_view v, Opzioni& o) {
         o.avvio.settings = v;
         return !v.empty();
     }},
    {"--language",
     [](std::string_view v, Opzioni& o) {
         o.avvio.language = v;
         return v == "en" || v == "it";
     }},
    {"--print-to",
     [](std::string_view v, Opzioni& o) {
         o.stampaSu = v;
         return !v.empty();
     }},
    {"--print", nullptr, &Opzioni::stampa},
    {"--dark", nullptr, &Opzioni::scuro},
    {"--help", nullptr, &Opzioni::aiuto},
    {"-h", nullptr, &Opzioni::aiuto},
    {"--version", nullptr, &Opzioni::versione},
};

// Options of the toolkit that have their value in the next argument.
constexpr std::string_view delToolkit[] = {"platform",
                                           "platformpluginpath",
                                           "platformtheme",
                                           "plugin",
                                           "qwindowgeometry",
                                           "geometry",
                                           "qwindowicon",
                                           "qwindowtitle",
                                           "session",
                                           "style",
                                           "stylesheet",
                                           "display",
                                           "name",
                                           "icon",
                                           "title"};
constexpr std::string_view delToolkitSoli[] = {"reverse", "widgetcount", "sync", "nograb", "dograb"};

std::string_view senzaTratti(std::string_view s) {
    s.remove_prefix(std::min(s.find_first_not_of('-'), s.size()));
    return s.substr(0, s.find('='));
}

template <std::size_t N>
bool fra(std::string_view s, const std::string_view (&nomi)[N]) {
    return std::find(std::begin(nomi), std::end(nomi), s) != std::end(nomi);
}

// A file holds one drawing's pages: a second drawing would take the first one's place.
bool stampaPossibile(Opzioni& o, std::string& guasto) {
    const bool suFile = !o.stampaSu.empty();
    o.avvio.muta = o.stampa || suFile;
    if (!o.avvio.muta) return true;
    const std::string nome = suFile ? "--print-to" : "--print";
    if (o.documenti.empty())
        guasto = TestoAvviso(Avviso::senzaDisegno, nome);
    else if (suFile && o.documenti.size() > 1)
        guasto = TestoAvviso(Avviso::unSoloDisegno, nome);
    return guasto.empty();
}

}   // namespace

bool LeggiOpzioni(int& argc, char** argv, Opzioni& out, std::string& guasto) {
    int tenuti = argc > 0 ? 1 : 0;
    for (int i = tenuti; i < argc; ++i) {
        const std::string_view a = argv[i];
        if (a == "--") {
            for (++i; i < argc; ++i) out.documenti.emplace_back(argv[i]);
            break;
        }
        if (a.size() < 2 || a[0] != '-') {
            out.documenti.emplace_back(a);
            continue;
        }
        const auto uguale = a.find('=');
        const auto* o = std::find_if(std::begin(opzioni), std::end(opzioni),
                                     [&](const Opzione& x) { return x.nome == a.substr(0, uguale); });
        if (o == std::end(opzioni)) {
            const std::string_view nome = senzaTratti(a);
            if (!fra(nome, delToolkit) && !fra(nome, delToolkitSoli)) {
                guasto = TestoAvviso(Avviso::opzioneIgnota, std::string(a));
                return false;
            }
            argv[tenuti++] = argv[i];
            if (fra(nome, delToolkit) && uguale == std::string_view::npos && i + 1 < argc) argv[tenuti++] = argv[++i];
            continue;
        }
        if (o->interruttore != nullptr) {
            out.*(o->interruttore) = true;
            continue;
        }
        if (uguale == std::string_view::npos && i + 1 >= argc) {
            guasto = TestoAvviso(Avviso::opzioneSenzaValore, std::string(a));
            return false;
        }
        const std::string_view valore =
            uguale == std::string_view::npos ? std::string_view(argv[++i]) : a.substr(uguale + 1);
        if (!o->prendi(valore, out)) {
            guasto = TestoAvviso(Avviso::opzioneValore, std::string(o->nome), std::string(valore));
            return false;
        }
    }
    out.avvio.dark = out.scuro;
    argc = tenuti;
    argv[argc] = nullptr;
    return stampaPossibile(out, guasto);
}

}   // namespace tessaro
