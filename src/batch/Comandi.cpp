// The table of commands with what each may be called with, and the reading of a call.
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <span>

#include "batch/Batch.h"
#include "batch/Comandi.h"
#include "batch/Motore.h"
#include "batch/Rigo.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

// Options end in '=' when a value belongs to them.
constexpr std::string_view perTutti[] = {"json", "help", "language=", "settings="};
constexpr std::string_view diConverti[] = {"version=", "scale=", "unit="};
constexpr std::string_view diRegistra[] = {"sheet", "pixels", "unit=", "max-residual=", "method="};
constexpr std::string_view diRaddrizza[] = {"dpi=", "scale=", "unit=", "plain", "crop", "method=", "max-residual="};
constexpr std::string_view diMisura[] = {"layer=", "total", "unit=", "scale="};
constexpr std::string_view diStampa[] = {"paper=",   "landscape",  "margin=", "pages=",  "one-page",
                                         "overlap=", "skip-empty", "marks",   "numbers", "ruler"};

constexpr std::string_view diMiniatura[] = {"size="};

struct Comando {
    std::string_view nome;
    std::size_t file;   // how many it takes
    std::span<const std::string_view> opzioni;
    Esito (*esegui)(const Chiamata& c);
};
constexpr Comando comandi[] = {
    {"convert", 2, diConverti, ComandoConverti},     {"info", 1, {}, ComandoInforma},
    {"register", 3, diRegistra, ComandoRegistra},    {"rectify", 3, diRaddrizza, ComandoRaddrizza},
    {"measure", 1, diMisura, ComandoMisura},         {"print", 2, diStampa, ComandoStampa},
    {"thumbnail", 2, diMiniatura, ComandoMiniatura},
};

const Comando* comandoDi(std::string_view nome) {
    const auto* c =
        std::find_if(std::begin(comandi), std::end(comandi), [nome](const Comando& x) { return x.nome == nome; });
    return c == std::end(comandi) ? nullptr : c;
}

enum class Specie : std::uint8_t { ignota, sola, conValore };
Specie specieDi(const Comando& c, std::string_view nome) {
    for (const std::span<const std::string_view> elenco : {c.opzioni, std::span<const std::string_view>(perTutti)})
        for (const std::string_view o : elenco) {
            if (o == nome) return Specie::sola;
            if (o.ends_with('=') && o.substr(0, o.size() - 1) == nome) return Specie::conValore;
        }
    return Specie::ignota;
}

// What is wrong with a call: said when there is a language to say it in.
struct Sbaglio {
    Frase frase = Frase::opzioneIgnota;
    std::string che;
    bool c = false;
};

void sbaglia(Sbaglio& s, Frase f, std::string_view che) {
    if (!s.c) s = {f, std::string(che), true};
}

Chiamata leggi(const Comando& comando, std::span<char*> parole, Sbaglio& sbaglio) {
    Chiamata c{std::string(comando.nome), {}, {}};
    bool soloFile = false;
    for (std::size_t i = 0; i < parole.size(); ++i) {
        const std::string_view p = parole[i];
        if (soloFile || p.size() < 2 || p[0] != '-') {
            c.file.emplace_back(p);
            continue;
        }
        if (p == "--") {
            soloFile = true;
            continue;
        }
        const auto uguale = p.find('=');
        std::string_view nome = p == "-h" ? "help" : p.substr(0, uguale);
        if (nome.starts_with("--")) nome.remove_prefix(2);
        const Specie s = specieDi(comando, nome);
        if (s == Specie::ignota || (s == Specie::sola && uguale != std::string_view::npos)) {
            sbaglia(sbaglio, Frase::opzioneIgnota, p);
        } else if (s == Specie::sola) {
            c.opzioni.emplace(nome, "");
        } else if (uguale != std::string_view::npos) {
            c.opzioni.insert_or_assign(std::string(nome), std::string(p.substr(uguale + 1)));
        } else if (i + 1 < parole.size()) {
            c.opzioni.insert_or_assign(std::string(nome), parole[++i]);
        } else {
            sbaglia(sbaglio, Frase::senzaValore, p);
        }
    }
    if (c.file.size() != comando.file) sbaglia(sbaglio, Frase::quantiFile, comando.nome);
    if (const std::string l = c.valore("language"); !l.empty() && l != "en" && l != "it") {
        sbaglia(sbaglio, Frase::opzioneIgnota, "--language " + l);
        c.opzioni.erase("language");
    }
    return c;
}

}   // namespace

bool EComando(std::string_view parola) { return comandoDi(parola) != nullptr; }

void EseguiComando(int argc, char** argv) {
    const Comando& comando = *comandoDi(argv[1]);
    Sbaglio sbaglio;
    const Chiamata c = leggi(comando, std::span<char*>(argv + 2, static_cast<std::size_t>(argc - 2)), sbaglio);
    if (c.ha("help")) {
        const std::string aiuto = "help/" + LinguaDi(c) + "/" + std::string(comando.nome) + ".txt";
        std::fputs(ResourceFile(aiuto).c_str(), stdout);
        std::fflush(stdout);
        std::exit(0);
    }
    PrendiUscita();
    int uno = 1;   // the words are the command's: the toolkit gets none of them
    AccendiMotore(uno, argv, c);
    SpegniMotore(sbaglio.c ? Rifiuta(c, Esito::uso, "", Testo(sbaglio.frase, sbaglio.che)) : comando.esegui(c));
}

}   // namespace tessaro
