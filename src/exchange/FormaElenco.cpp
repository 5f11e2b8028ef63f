// Rows of a point list into fields, and the guess of what they mean.
#include "exchange/FormaElenco.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>

namespace tessaro {

namespace {

constexpr std::string_view bianchi = " \t";
constexpr std::size_t lungoNumero = 64;

std::string_view rifila(std::string_view s) {
    const auto da = s.find_first_not_of(bianchi);
    if (da == std::string_view::npos) return {};
    s = s.substr(da, s.find_last_not_of(bianchi) - da + 1);
    if (s.size() >= 2 && s.front() == '"' && s.back() == '"') s = s.substr(1, s.size() - 2);
    return s;
}

char segnoDi(SeparaElenco s) {
    switch (s) {
    case SeparaElenco::tab: return '\t';
    case SeparaElenco::puntoEVirgola: return ';';
    case SeparaElenco::virgola: return ',';
    case SeparaElenco::bianchi: break;
    }
    return ' ';
}

// --- the guess

struct Modo {
    SeparaElenco separa;
    bool virgola;
};
// In the order in which they win when they do equally well: who parts by tabs or semicolons means it.
constexpr Modo modi[] = {
    {SeparaElenco::tab, false},          {SeparaElenco::tab, true},      {SeparaElenco::puntoEVirgola, false},
    {SeparaElenco::puntoEVirgola, true}, {SeparaElenco::virgola, false}, {SeparaElenco::bianchi, false},
    {SeparaElenco::bianchi, true},
};

using Riga = std::vector<std::string>;

struct Tavola {
    Modo modo;
    std::size_t quante = 0;                               // columns of most rows
    std::vector<Riga> righe;                              // those of that many columns
    std::array<std::size_t, maxColonneElenco> numeri{};   // of each column, how many are numbers, but for the first row

    [[nodiscard]] std::size_t prima() const { return righe.size() > 1 ? 1 : 0; }   // the one above may be a head
    [[nodiscard]] bool numerica(std::size_t c) const { return 10 * numeri[c] >= 9 * (righe.size() - prima()); }
    [[nodiscard]] std::size_t numeriche() const {
        std::size_t n = 0;
        for (std::size_t c = 0; c < std::min(quante, maxColonneElenco); ++c) n += numerica(c);
        return n;
    }
};

Tavola tavolaDi(const Modo& modo, std::span<const std::string> righe) {
    Tavola t{modo, 0, {}, {}};
    std::vector<std::string_view> campi;
    std::map<std::size_t, std::size_t> conteggi;
    std::vector<Riga> tutte;
    for (const std::string& r : righe) {
        if (CommentoElenco(r)) continue;
        CampiElenco(r, modo.separa, campi);
        tutte.emplace_back(campi.begin(), campi.end());
        ++conteggi[campi.size()];
    }
    std::size_t massimo = 0;
    for (const auto& [quante, volte] : conteggi)
        if (quante >= 2 && volte > massimo) {
            massimo = volte;
            t.quante = quante;
        }
    for (Riga& r : tutte)
        if (r.size() == t.quante) t.righe.push_back(std::move(r));
    for (std::size_t i = t.prima(); i < t.righe.size(); ++i)
        for (std::size_t c = 0; c < std::min(t.quante, maxColonneElenco); ++c) {
            double v = 0;
            t.numeri[c] += NumeroElenco(t.righe[i][c], modo.virgola, v);
        }
    return t;
}

// Better by rows first, then by columns that are numbers.
bool migliore(const Tavola& a, const Tavola& b) {
    if (a.righe.size() != b.righe.size()) return a.righe.size() > b.righe.size();
    return a.numeriche() > b.numeriche();
}

// The head is a row without a number where the others have them.
bool testaDi(const Tavola& t) {
    double v = 0;
    const Riga& prima = t.righe.front();
    for (std::size_t c = 0; c < std::min(t.quante, maxColonneElenco); ++c)
        if (NumeroElenco(prima[c], t.modo.virgola, v)) return false;
    return t.righe.size() > 1;
}

std::string maiuscola(std::string_view s) {
    std::string m(s);
    for (char& c : m)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return m;
}

// What a word of a head says. "N" is told apart behind: number beside a northing, else northing.
ColonnaElenco daParola(std::string_view parola) {
    struct Nome {
        std::string_view inizio;
        ColonnaElenco colonna;
    };
    constexpr Nome intere[] = {
        {"X", ColonnaElenco::x},       {"E", ColonnaElenco::x},      {"Y", ColonnaElenco::y},
        {"Z", ColonnaElenco::z},       {"H", ColonnaElenco::z},      {"Q", ColonnaElenco::z},
        {"ID", ColonnaElenco::numero}, {"P", ColonnaElenco::numero}, {"N.", ColonnaElenco::numero},
        {"NR", ColonnaElenco::numero}, {"PT", ColonnaElenco::numero}};
    constexpr Nome inizi[] = {
        {"EST", ColonnaElenco::x},        {"EAST", ColonnaElenco::x},      {"NORD", ColonnaElenco::y},
        {"NORT", ColonnaElenco::y},       {"QUOTA", ColonnaElenco::z},     {"ELEV", ColonnaElenco::z},
        {"ALT", ColonnaElenco::z},        {"HEIGHT", ColonnaElenco::z},    {"COD", ColonnaElenco::codice},
        {"DESC", ColonnaElenco::codice},  {"NOTE", ColonnaElenco::codice}, {"PUNTO", ColonnaElenco::numero},
        {"POINT", ColonnaElenco::numero}, {"NUM", ColonnaElenco::numero},  {"NOME", ColonnaElenco::numero},
        {"NAME", ColonnaElenco::numero},  {"X", ColonnaElenco::x},         {"Y", ColonnaElenco::y},
        {"Z", ColonnaElenco::z}};
    const std::string m = maiuscola(parola);
    for (const Nome& n : intere)
        if (m == n.inizio) return n.colonna;
    for (const Nome& n : inizi)
        if (m.starts_with(n.inizio)) return n.colonna;
    return ColonnaElenco::niente;
}

bool dallaTesta(const Riga& testa, FormaElenco& f) {
    const std::size_t n = std::min(testa.size(), maxColonneElenco);
    for (std::size_t c = 0; c < n; ++c) f.colonne[c] = daParola(testa[c]);
    const auto ha = [&](ColonnaElenco k) { return std::count(f.colonne.begin(), f.colonne.end(), k) > 0; };
    for (std::size_t c = 0; c < n; ++c)
        if (maiuscola(testa[c]) == "N") f.colonne[c] = ha(ColonnaElenco::y) ? ColonnaElenco::numero : ColonnaElenco::y;
    if (FormaUsabile(f)) return true;
    f.colonne.fill(ColonnaElenco::niente);
    return false;
}

// Whole numbers that grow by one from row to row, most of the time.
bool contaInSu(const Tavola& t, std::size_t da) {
    std::size_t passi = 0;
    double prima = 0;
    for (std::size_t i = da; i < t.righe.size(); ++i) {
        double v = 0;
        if (!NumeroElenco(t.righe[i][0], t.modo.virgola, v) || v != std::floor(v)) return false;
        if (i > da) passi += v == prima + 1;
        prima = v;
    }
    return t.righe.size() - da >= 2 && 10 * passi >= 8 * (t.righe.size() - da - 1);
}

// A first column of whole numbers, each another one, before three of numbers that are not all whole.
bool soloInteri(const Tavola& t, std::size_t da) {
    for (std::size_t i = da; i < t.righe.size(); ++i) {
        double v = 0;
        if (NumeroElenco(t.righe[i][0], t.modo.virgola, v) && v != std::floor(v)) return false;
    }
    return true;
}

void dalleRighe(const Tavola& t, std::size_t da, FormaElenco& f) {
    const std::size_t n = std::min(t.quante, maxColonneElenco);
    const std::size_t coordinate = t.numeriche() - (t.numerica(0) ? 1 : 0);   // behind the first column
    const bool numero =
        !t.numerica(0) || (coordinate >= 2 && contaInSu(t, da)) || (coordinate >= 3 && soloInteri(t, da));
    std::size_t c = 0;
    if (numero) f.colonne[c++] = ColonnaElenco::numero;
    ColonnaElenco prossima = ColonnaElenco::x;
    bool codice = false;
    for (; c < n; ++c) {
        if (t.numerica(c) && prossima <= ColonnaElenco::z) {
            f.colonne[c] = prossima;
            prossima = static_cast<ColonnaElenco>(static_cast<std::uint8_t>(prossima) + 1);
        } else if (!t.numerica(c) && !codice) {
            f.colonne[c] = ColonnaElenco::codice;
            codice = true;
        }
    }
}

}   // namespace

bool FormaUsabile(const FormaElenco& f) {
    const auto volte = [&](ColonnaElenco k) { return std::count(f.colonne.begin(), f.colonne.end(), k); };
    if (volte(ColonnaElenco::x) != 1 || volte(ColonnaElenco::y) != 1) return false;
    for (const ColonnaElenco k : {ColonnaElenco::numero, ColonnaElenco::z, ColonnaElenco::codice})
        if (volte(k) > 1) return false;
    return !(f.virgolaDecimale && f.separa == SeparaElenco::virgola);
}

bool CommentoElenco(std::string_view riga) {
    const auto da = riga.find_first_not_of(bianchi);
    return da == std::string_view::npos || riga[da] == '#' || riga[da] == '!';
}

void CampiElenco(std::string_view riga, SeparaElenco separa, std::vector<std::string_view>& campi) {
    campi.clear();
    if (separa == SeparaElenco::bianchi) {
        for (auto da = riga.find_first_not_of(bianchi); da != std::string_view::npos;) {
            const auto a = std::min(riga.find_first_of(bianchi, da), riga.size());
            campi.push_back(riga.substr(da, a - da));
            da = riga.find_first_not_of(bianchi, a);
        }
        return;
    }
    const char segno = segnoDi(separa);
    std::size_t da = 0;
    bool fraVirgolette = false;
    for (std::size_t i = 0; i <= riga.size(); ++i) {
        if (i < riga.size() && riga[i] == '"') fraVirgolette = !fraVirgolette;
        if (i < riga.size() && (riga[i] != segno || fraVirgolette)) continue;
        campi.push_back(rifila(riga.substr(da, i - da)));
        da = i + 1;
    }
}

bool NumeroElenco(std::string_view campo, bool virgolaDecimale, double& valore) {
    if (campo.empty() || campo.size() > lungoNumero) return false;
    std::array<char, lungoNumero> testo;
    const auto fine = std::transform(campo.begin(), campo.end(), testo.begin(), [&](char c) {
        if (c == ',') return virgolaDecimale ? '.' : 'x';
        return c == '.' && virgolaDecimale ? 'x' : c;
    });
    const char* da = testo.data();
    const char* const a = da + (fine - testo.begin());
    if (*da == '+') ++da;
    double v = 0;
    const auto [qui, guasto] = std::from_chars(da, a, v);
    if (guasto != std::errc{} || qui != a || !std::isfinite(v)) return false;
    valore = v;
    return true;
}

std::optional<FormaElenco> IndovinaElenco(std::span<const std::string> righe) {
    std::optional<Tavola> scelta;
    for (const Modo& m : modi) {
        Tavola t = tavolaDi(m, righe);
        if (t.righe.empty() || t.numeriche() < 2) continue;
        if (!scelta || migliore(t, *scelta)) scelta = std::move(t);
    }
    if (!scelta) return std::nullopt;
    FormaElenco f;
    f.separa = scelta->modo.separa;
    f.virgolaDecimale = scelta->modo.virgola;
    f.quante = static_cast<std::uint8_t>(std::min<std::size_t>(scelta->quante, 255));
    f.conTesta = testaDi(*scelta);
    if (!f.conTesta || !dallaTesta(scelta->righe.front(), f)) dalleRighe(*scelta, f.conTesta ? 1 : 0, f);
    if (!FormaUsabile(f)) return std::nullopt;
    return f;
}

}   // namespace tessaro
