// Failures as alerts. The texts are resources; here is only which code takes which.
#include "dialogs/Errori.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>

#include "platform/Dialogs.h"
#include "platform/Memory.h"
#include "platform/Resources.h"
#include "platform/Windows.h"
#include "text/Conversione.h"
#include "text/FileStd.h"

namespace tessaro {

std::string fileInLavoro;

namespace {

constexpr std::int16_t avvisoFile = 1013;
constexpr std::int16_t listaFile = 130;

struct RigaErrore {
    std::int16_t codice;
    std::int16_t avviso;
    std::int16_t stringa;   // of list 130; 0: the alert says it all
};
constexpr RigaErrore erroriFile[] = {
    {opWrErr, avvisoFile, 7},  {vLckdErr, avvisoFile, 6}, {fLckdErr, avvisoFile, 5},
    {wPrErr, avvisoFile, 4},   {fnfErr, 1006, 0},         {eofErr, avvisoFile, 2},
    {fnOpnErr, avvisoFile, 3}, {nsvErr, 1007, 0},         {dskFulErr, avvisoFile, 1},
};

RigaErrore rigaDi(std::int16_t codice) {
    for (const RigaErrore& r : erroriFile)
        if (r.codice == codice) return r;
    return {codice, avvisoFile, 0};
}

// What the file error says in words, or its number where it has none.
std::string parole(const RigaErrore& r) {
    if (r.stringa != 0) return GetIndString(listaFile, r.stringa);
    return r.avviso == avvisoFile ? NumToString(r.codice).str() : std::string();
}

// The codes of the parsers; a bad number of another kind takes the last row.
struct RigaSbaglio {
    std::int16_t codice;
    std::int16_t avviso;
};
constexpr RigaSbaglio sbagli[] = {{0, 1012}, {-3, 1008}, {-1, 1009}, {-2, 1010}};
constexpr std::int16_t altroSbaglio = 1005;

std::int16_t avvisoDi(std::int16_t codice) {
    for (const RigaSbaglio& r : sbagli)
        if (r.codice == codice) return r.avviso;
    return altroSbaglio;
}

// In the form of the language: 2,000,000 or 2.000.000.
std::string nellaFrase(const std::string& cifre) {
    constexpr std::int16_t listaSegni = 9432, migliaia = 1, decimali = 2;
    constexpr std::size_t gruppo = 3;
    const std::size_t da = cifre.starts_with('-') ? 1 : 0, punto = std::min(cifre.find('.'), cifre.size());
    if (cifre.find_first_not_of("-.0123456789") != std::string::npos) return cifre;
    std::string s = cifre.substr(0, da);
    for (std::size_t i = da; i < punto; ++i) {
        if (i > da && (punto - i) % gruppo == 0) s += GetIndString(listaSegni, migliaia);
        s += cifre[i];
    }
    if (punto < cifre.size()) s += GetIndString(listaSegni, decimali) + cifre.substr(punto + 1);
    return s;
}

// A bound as a person writes it: 2,000,000 or 0.02.
std::string cifre(const double& limite) {
    std::array<char, 32> s{};
    const auto forma = std::fabs(limite) < 1e15 ? std::chars_format::fixed : std::chars_format::general;
    const auto r = std::to_chars(s.data(), s.data() + s.size(), limite, forma);
    return nellaFrase({s.data(), r.ptr});
}

// A stream tells only that it failed; errno tells how.
std::int16_t erroreDi(std::FILE* f) {
    if (f == nullptr || std::ferror(f) == 0) return noErr;
    switch (errno) {
    case ENOSPC: return dskFulErr;
    case EROFS: return wPrErr;
    case EACCES: return permErr;
    default: return ioErr;
    }
}

}   // namespace

void ErroreAlert(std::int16_t code) {
    ParamText(GetIndString(9999, code), "", "", "");
    StopAlert(999);
}

void ErroreAlert(std::span<const std::int16_t> codes) {
    for (const std::int16_t code : codes) ErroreAlert(code);
}

void Messaggio(std::int16_t code) {
    const RigaErrore r = rigaDi(code);
    ParamText(parole(r), fileInLavoro, "", "");
    StopAlert(r.avviso);
}

void MostraGuasto(const Guasto& g) {
    const std::string che = g.what.empty() && g.code != 0 ? parole(rigaDi(g.code)) : g.what;
    ParamText(che, g.where.empty() ? fileInLavoro : g.where, g.offset < 0 ? "" : std::to_string(g.offset), "");
    StopAlert(9101);
}

void IOERR3() { ioerrtext(out); }

void ioerrtext(std::FILE* f) {
    const std::int16_t e = erroreDi(f);
    if (e >= 0 || e == -524) return;
    std::fclose(f);
    if (f == out) out = nullptr;
    if (f == inst) inst = nullptr;
    Messaggio(e);
    uscita = 1;
}

void SbaglioCampo(std::int16_t code, const double& min, const double& max) {
    if (code >= 1) return;
    constexpr std::int16_t troppoGrande = -1, troppoPiccolo = -2;
    const std::string limite = code == troppoGrande ? cifre(max) : code == troppoPiccolo ? cifre(min) : std::string();
    StopAlertParam(avvisoDi(code), limite);
    uscita = 1;
}

void AvvisoMemoria(std::int64_t byte) {
    if (ProgressStopped()) return;   // what is missing was not wanted any more
    constexpr std::int16_t avvisoMemoria = 128, listaMemoria = 9171;
    constexpr std::int64_t mega = 1 << 20;
    const std::int64_t libera = FreeMemory();
    std::string quanto;
    if (byte > libera / 2)
        quanto = GetIndString(listaMemoria, 1) + std::to_string((byte + mega - 1) / mega)
                 + GetIndString(listaMemoria, 2) + std::to_string(libera / mega) + GetIndString(listaMemoria, 3);
    StopAlertParam(avvisoMemoria, quanto);
}

namespace {
[[maybe_unused]] const bool agganciati = [] {
    mostraErroreFile = Messaggio;
    mostraSbaglio = [](std::int16_t code) { StopAlertParam(avvisoDi(code), ""); };
    return true;
}();
}   // namespace

}   // namespace tessaro
