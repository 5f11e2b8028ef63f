// The values of groups in all forms.
#include "dwg/kit/dxfleggi/GruppiInArrivo.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "dwg/kit/dxfleggi/GruppiBinari.h"
#include "platform/Files.h"
#include "text/Decimale.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr double nessuno = std::numeric_limits<double>::quiet_NaN();
constexpr std::string_view bom = "\xEF\xBB\xBF";

std::string_view senzaBianchi(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
    return s;
}

double realeDa(std::string_view s) {
    s = senzaBianchi(s);
    double v = 0;
    if (RealePiano(s, v)) return v;
    if (!s.empty() && s.front() == '+') s.remove_prefix(1);
    std::size_t presi = 0;
    v = DoubleDaTesto(s, presi);
    return presi > 0 ? v : nessuno;
}

std::int64_t interoDa(std::string_view s) {
    s = senzaBianchi(s);
    if (!s.empty() && s.front() == '+') s.remove_prefix(1);
    std::int64_t v = 0;
    return std::from_chars(s.data(), s.data() + s.size(), v).ec == std::errc{} ? v : 0;
}

// What the file begins with: whether it is binary; the mark of UTF-8 is passed.
bool eBinario() {
    const char* p = nullptr;
    std::int64_t n = 0;
    if (FSPeek(RefNum, p, n) != noErr || n <= 0) return false;
    const std::string_view s(p, static_cast<std::size_t>(n));
    std::int64_t qui = 0;
    if (s.starts_with(bom) && GetFPos(RefNum, qui) == noErr)
        SetFPos(RefNum, qui + static_cast<std::int64_t>(bom.size()));
    return s.starts_with(firmaBinaria);
}

}   // namespace

GruppiInArrivo::GruppiInArrivo() : binari(eBinario() ? std::make_unique<GruppiBinari>() : nullptr) {}
GruppiInArrivo::~GruppiInArrivo() = default;

bool GruppiInArrivo::fermato() const { return binari ? binari->fermato : righe.fermata(); }
std::int64_t GruppiInArrivo::dove() const { return binari ? binari->contati : righe.lette(); }

// Blank lines before the first group are passed; anywhere else a code must be a number.
bool GruppiInArrivo::codiceAscii() {
    for (;;) {
        if (righe.finite()) return false;
        const std::string_view riga = senzaBianchi(righe.riga());
        const bool inizio = righe.lette() < 100 && codice == 0;
        if (riga.empty()) {
            if (righe.finite()) return false;
            if (!inizio) break;
            rigapari = 1;   // the next line is a code again
            continue;
        }
        int v = 0;
        const auto r = std::from_chars(riga.data(), riga.data() + riga.size(), v);
        if (r.ec != std::errc{} || r.ptr != riga.data() + riga.size()) break;
        codice = v;
        return true;
    }
    guasto = true;
    return false;
}

bool GruppiInArrivo::prossimo() {
    if (!binari) return codiceAscii();
    const bool c = binari->prossimo(codice);
    guasto = guasto || (!c && binari->guasto && !binari->fermato);
    return c;
}

double GruppiInArrivo::reale() {
    if (binari) {
        switch (binari->tipo) {
        case GruppiBinari::Tipo::reale: return binari->reale;
        case GruppiBinari::Tipo::intero: return static_cast<double>(binari->intero);
        default: return nessuno;
        }
    }
    double v = 0;
    return righe.reale(v) ? v : realeDa(righe.riga());
}

std::int64_t GruppiInArrivo::intero() {
    if (!binari) return interoDa(righe.riga());
    if (binari->tipo == GruppiBinari::Tipo::intero) return binari->intero;
    return binari->tipo == GruppiBinari::Tipo::testo ? interoDa(binari->testo) : 0;
}

std::string_view GruppiInArrivo::testo() {
    if (!binari) return righe.riga();
    return binari->tipo == GruppiBinari::Tipo::testo ? std::string_view(binari->testo) : std::string_view{};
}

void GruppiInArrivo::salta() {
    if (!binari) righe.riga();
}

}   // namespace tessaro
