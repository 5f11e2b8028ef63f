// The named globals as JSON: the rows of the reset table, and what the window shows.
#include "script/Rapporti.h"

#include <map>

#include "display/Lettura.h"
#include "model/Archivio.h"
#include "model/TabellaStato.h"
#include "platform/Automation.h"
#include "platform/Resources.h"
#include "platform/Windows.h"
#include "script/Json.h"
#include "script/Messaggi.h"
#include "script/Parole.h"
#include "text/PascalString.h"

namespace tessaro {

namespace {

// Empty for a row that keeps itself out of `state`.
std::string rigaJson(const VoceStato& v) { return v.json != nullptr ? v.json() : std::string{}; }

struct Calcolata {
    const char* nome;
    std::string (*json)();
};
const Calcolata calcolate[] = {
    {"cursor", [] { return std::to_string(CurrentCursor()); }},
    {"readout", [] { return TestoJson(lineaCoordinate.str()); }},
    {"ticks", [] { return std::to_string(TickCount()); }},
    {"title", [] { return TestoJson(Utf8ToMac(AutoWindowTitle())); }},
};

std::map<std::string, std::string> tutte() {
    std::map<std::string, std::string> m;
    for (const auto& c : calcolate) m[c.nome] = c.json();
    for (const TabellaStato* t = TabellaStato::prima; t != nullptr; t = t->prossima)
        for (const VoceStato& v : t->righe) {
            std::string json = rigaJson(v);
            if (!json.empty()) m[v.nome] = std::move(json);
        }
    return m;
}

}   // namespace

std::string GlobaleJson(const std::string& nome) {
    for (const auto& c : calcolate)
        if (nome == c.nome) return c.json();
    for (const TabellaStato* t = TabellaStato::prima; t != nullptr; t = t->prossima)
        for (const VoceStato& v : t->righe)
            if (nome == v.nome) return rigaJson(v);
    return {};
}

std::string StatoJson(const std::vector<std::string>& nomi) {
    std::string out;
    const auto aggiungi = [&out](const std::string& nome, const std::string& json) {
        out.append(out.empty() ? "{\"" : ",\"").append(nome).append("\":").append(json);
    };
    if (nomi.empty())
        for (const auto& [nome, json] : tutte()) aggiungi(nome, json);
    for (const std::string& nome : nomi) {
        const std::string json = GlobaleJson(nome);
        if (json.empty()) sbaglia(Avviso::nomeIgnoto, nome);
        aggiungi(nome, json);
    }
    return out.empty() ? "{}" : out + "}";
}

std::string ValoreDi(const std::string& percorso) {
    const auto punto = percorso.find('.');
    const std::string nome = percorso.substr(0, punto);
    std::string resto = punto == std::string::npos ? std::string{} : percorso.substr(punto + 1);
    std::string json;
    if (nome == "rec") {
        const auto secondo = resto.find('.');
        const std::int32_t n = Intero(resto.substr(0, secondo));
        if (n < 1 || n > maxElementi || ArrElementi == nullptr) sbaglia(Avviso::recordIgnoto, std::to_string(n));
        json = RecordJson(n);
        resto = secondo == std::string::npos ? std::string{} : resto.substr(secondo + 1);
    } else {
        json = GlobaleJson(nome);
    }
    std::string_view valore;
    if (json.empty() || !JsonSotto(json, resto, valore)) sbaglia(Avviso::nomeIgnoto, percorso);
    return std::string(valore);
}

}   // namespace tessaro
