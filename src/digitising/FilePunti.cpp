// Lines to rows and back.
#include "digitising/FilePunti.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>

namespace tessaro {

namespace {

std::string_view senzaBianchi(std::string_view s) {
    while (!s.empty() && std::isspace(static_cast<unsigned char>(s.front()))) s.remove_prefix(1);
    while (!s.empty() && std::isspace(static_cast<unsigned char>(s.back()))) s.remove_suffix(1);
    return s;
}

std::string minuscole(std::string_view s) {
    std::string m(senzaBianchi(s));
    for (char& c : m) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return m;
}

// A field may stand in quotes, with two for one inside.
std::vector<std::string> campi(std::string_view riga, char parte) {
    std::vector<std::string> v;
    std::string campo;
    bool dentro = false, bianchi = parte == ' ';
    for (std::size_t i = 0; i < riga.size(); ++i) {
        const char c = riga[i];
        if (c == '"') {
            if (dentro && i + 1 < riga.size() && riga[i + 1] == '"') {
                campo += c;
                ++i;
            } else {
                dentro = !dentro;
            }
        } else if (!dentro && (bianchi ? std::isspace(static_cast<unsigned char>(c)) != 0 : c == parte)) {
            if (!bianchi || !campo.empty()) v.push_back(campo);
            campo.clear();
        } else {
            campo += c;
        }
    }
    if (!bianchi || !campo.empty()) v.push_back(campo);
    return v;
}

char separatore(std::string_view riga) {
    for (const char c : {'\t', ';', ','})
        if (riga.find(c) != std::string_view::npos) return c;
    return ' ';
}

bool numero(std::string_view s, char parte, double& v) {
    std::string t(senzaBianchi(s));
    if (parte != ',') std::replace(t.begin(), t.end(), ',', '.');
    if (!t.empty() && t.front() == '+') t.erase(0, 1);
    double letto = 0;
    const auto e = std::from_chars(t.data(), t.data() + t.size(), letto);
    if (e.ec != std::errc{} || e.ptr != t.data() + t.size() || !std::isfinite(letto)) return false;
    v = letto;
    return true;
}

enum Colonna : std::size_t { cNome, cFoglioX, cFoglioY, cRealeX, cRealeY, cUso, numColonne };
struct Disposto {
    std::array<int, numColonne> dove{-1, -1, -1, -1, -1, -1};
    bool qgis = false;
};

bool titoli(const std::vector<std::string>& c, Disposto& d) {
    struct Nome {
        std::string_view nome;
        Colonna colonna;
    };
    constexpr Nome nomi[] = {
        {"name", cNome},        {"nome", cNome},       {"point", cNome},      {"punto", cNome},
        {"id", cNome},          {"sheet x", cFoglioX}, {"sheet y", cFoglioY}, {"foglio x", cFoglioX},
        {"foglio y", cFoglioY}, {"pixelx", cFoglioX},  {"pixely", cFoglioY},  {"sourcex", cFoglioX},
        {"sourcey", cFoglioY},  {"real x", cRealeX},   {"real y", cRealeY},   {"reale x", cRealeX},
        {"reale y", cRealeY},   {"mapx", cRealeX},     {"mapy", cRealeY},     {"x", cRealeX},
        {"y", cRealeY},         {"e", cRealeX},        {"n", cRealeY},        {"east", cRealeX},
        {"north", cRealeY},     {"est", cRealeX},      {"nord", cRealeY},     {"in use", cUso},
        {"in uso", cUso},       {"enable", cUso}};
    std::size_t trovati = 0;
    for (std::size_t i = 0; i < c.size(); ++i)
        for (const Nome& n : nomi)
            if (minuscole(c[i]) == n.nome && d.dove[n.colonna] < 0) {
                d.dove[n.colonna] = static_cast<int>(i);
                ++trovati;
                d.qgis = d.qgis || n.nome == "mapx";
            }
    return trovati >= 3;
}

bool leggiRiga(const std::vector<std::string>& c, char parte, const Disposto& d, const PixelDelFoglio& pixel,
               RigaPunto& r) {
    const auto campo = [&](Colonna k) -> std::string_view {
        const int i = d.dove[k];
        return i >= 0 && static_cast<std::size_t>(i) < c.size() ? std::string_view(c[static_cast<std::size_t>(i)])
                                                                : std::string_view();
    };
    const auto coppia = [&](Colonna x, Colonna y, Coppia& p, bool& data) {
        if (senzaBianchi(campo(x)).empty() && senzaBianchi(campo(y)).empty()) return true;
        data = numero(campo(x), parte, p.x) && numero(campo(y), parte, p.y);
        return data;
    };
    r.nome = std::string(senzaBianchi(campo(cNome))).substr(0, massimoNomePunto);
    if (!coppia(cFoglioX, cFoglioY, r.foglio, r.conFoglio) || !coppia(cRealeX, cRealeY, r.reale, r.conReale))
        return false;
    if (!r.conFoglio && !r.conReale) return false;
    if (r.conFoglio && d.qgis) r.foglio = pixel.foglio(r.foglio.x, r.foglio.y);
    const std::string uso = minuscole(campo(cUso));
    r.inUso = uso != "0" && uso != "no" && uso != "false";
    return true;
}

std::string cifre(double v, int decimali) {
    std::array<char, 400> b{};
    const auto fine = std::to_chars(b.data(), b.data() + b.size(), v, std::chars_format::fixed, decimali);
    return {b.data(), fine.ptr};
}
// As many digits as bring the same number back.
std::string tutte(double v) {
    std::array<char, 64> b{};
    return {b.data(), std::to_chars(b.data(), b.data() + b.size(), v).ptr};
}

// The row's residual, when the table is solved; computed less given.
bool residuo(const StatoPunti& s, std::size_t riga, Coppia& r) {
    const auto dove = std::lower_bound(s.righe.begin(), s.righe.end(), riga);
    if (!s.esito || dove == s.righe.end() || *dove != riga) return false;
    r = s.soluzione.punti[static_cast<std::size_t>(dove - s.righe.begin())].residuo;
    return true;
}

}   // namespace

EsitoFilePunti LeggiFilePunti(std::string_view testo, const PixelDelFoglio& pixel) {
    EsitoFilePunti e;
    Disposto d;
    bool cominciato = false;
    if (testo.substr(0, 3) == "\xEF\xBB\xBF") testo.remove_prefix(3);
    for (std::size_t numeroRiga = 1; !testo.empty(); ++numeroRiga) {
        const std::size_t fine = std::min(testo.find_first_of("\r\n"), testo.size());
        const std::string_view riga = testo.substr(0, fine);
        const bool crlf = testo.substr(fine, 2) == "\r\n";
        testo.remove_prefix(std::min(testo.size(), fine + (crlf ? 2 : 1)));
        const std::string_view piena = senzaBianchi(riga);
        if (piena.empty() || piena.front() == '#') continue;
        const char parte = separatore(piena);
        const std::vector<std::string> c = campi(piena, parte);
        if (!cominciato) {
            cominciato = true;
            if (titoli(c, d)) continue;
            d = {};
            if (c.size() >= 5) {
                d.dove = {0, 1, 2, 3, 4, -1};
            } else {
                d.dove = {0, -1, -1, 1, 2, -1};
            }
        }
        RigaPunto r;
        if (leggiRiga(c, parte, d, pixel, r) && e.tabella.righe.size() < massimoPuntiTabella) {
            e.tabella.righe.push_back(std::move(r));
        } else if (++e.scartate == 1) {
            e.primaScartata = numeroRiga;
        }
    }
    return e;
}

std::string ScriviPointsQgis(const TabellaPunti& t, const StatoPunti& stato, const PixelDelFoglio& pixel) {
    std::string s = "mapX,mapY,sourceX,sourceY,enable,dX,dY,residual\n";
    for (std::size_t i = 0; i < t.righe.size(); ++i) {
        const RigaPunto& r = t.righe[i];
        if (!r.intera()) continue;   // the format has no place for half a point
        const Coppia p = pixel.pixel(r.foglio);
        Coppia q;
        (void)residuo(stato, i, q);
        s += tutte(r.reale.x) + ',' + tutte(r.reale.y) + ',' + tutte(p.x) + ',' + tutte(p.y) + (r.inUso ? ",1," : ",0,")
             + tutte(q.x) + ',' + tutte(q.y) + ',' + tutte(std::hypot(q.x, q.y)) + '\n';
    }
    return s;
}

std::string ScriviCsvPunti(const TabellaPunti& t, const StatoPunti& stato) {
    std::string s = "number,name,sheet x,sheet y,real x,real y,in use,residual x,residual y,residual\n";
    for (std::size_t i = 0; i < t.righe.size(); ++i) {
        const RigaPunto& r = t.righe[i];
        std::string nome;
        for (const char c : r.nome) nome += c == '"' ? std::string("\"\"") : std::string(1, c);
        const auto coppia = [](bool data, const Coppia& c) {
            return data ? ',' + tutte(c.x) + ',' + tutte(c.y) : std::string(",,");
        };
        Coppia q;
        s += std::to_string(i + 1) + ",\"" + nome + '"' + coppia(r.conFoglio, r.foglio) + coppia(r.conReale, r.reale)
             + (r.inUso ? ",1" : ",0");
        s += residuo(stato, i, q) ? ',' + cifre(q.x, 6) + ',' + cifre(q.y, 6) + ',' + cifre(std::hypot(q.x, q.y), 6)
                                  : ",,,";
        s += '\n';
    }
    return s;
}

std::size_t AbbinaPerNome(TabellaPunti& t, const TabellaPunti& elenco) {
    std::size_t quanti = 0;
    for (RigaPunto& r : t.righe) {
        const std::string nome = minuscole(r.nome);
        if (nome.empty()) continue;
        for (const RigaPunto& e : elenco.righe) {
            if (!e.conReale || minuscole(e.nome) != nome) continue;
            r.reale = e.reale;
            r.conReale = true;
            ++quanti;
            break;
        }
    }
    return quanti;
}

}   // namespace tessaro
