// The entry of the layers: read once when it changes, written whole.
#include "model/NomiLucidi.h"

#include <algorithm>
#include <numeric>

#include "model/Archivio.h"
#include "model/Estensioni.h"
#include "model/TabellaStato.h"
#include "text/PascalString.h"

namespace tessaro {

constinit std::array<std::uint8_t, quantiLucidi> lucidiBloccati{};

namespace {

constexpr std::size_t quanti = quantiLucidi, byteBlocchi = 13;
constexpr std::uint8_t versione = 1;

struct Lucidi {
    std::array<std::string, quanti> nome;
    std::array<std::uint8_t, quanti> bloccato{};
    std::array<std::uint8_t, quanti> ordine{};
    std::uint32_t numero = 0;   // of the entry that it was read from

    Lucidi() { std::iota(ordine.begin(), ordine.end(), std::uint8_t{0}); }
};
Lucidi& tenuti() {
    static Lucidi l;
    return l;
}

std::string pulito(std::string_view s) {
    std::string r;
    for (const char c : s)
        if (static_cast<std::uint8_t>(c) >= 0x20 && c != 0x7F) r += c;
    r.erase(0, std::min(r.find_first_not_of(' '), r.size()));
    if (r.size() > maxNomeLucido) r.resize(maxNomeLucido);
    r.erase(r.find_last_not_of(' ') + 1);
    return r;
}

// Takes from the front of what is left; `bene` falls when there is not enough.
struct Lettore {
    std::string_view resto;
    bool bene = true;

    std::string_view byte(std::size_t n) {
        bene = bene && n <= resto.size();
        if (!bene) return {};
        const std::string_view s = resto.substr(0, n);
        resto.remove_prefix(n);
        return s;
    }
    std::uint8_t uno() {
        const std::string_view s = byte(1);
        return s.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(s[0]);
    }
};

bool unaVolta(const std::array<std::uint8_t, quanti>& ordine) {
    std::array<bool, quanti> visto{};
    for (const std::uint8_t l : ordine) {
        if (l >= quanti || visto[l]) return false;
        visto[l] = true;
    }
    return true;
}

Lucidi leggi(std::string_view dati) {
    Lucidi l;
    Lettore r{dati};
    if (r.uno() != versione) return {};
    for (std::uint8_t k = r.uno(); k > 0 && r.bene; --k) {
        const std::uint8_t numero = r.uno();
        const std::string nome = pulito(r.byte(r.uno()));
        if (numero >= quanti) return {};
        l.nome[numero] = nome;
    }
    const std::string_view blocchi = r.byte(byteBlocchi);
    if (!r.bene) return {};
    for (std::size_t i = 0; i < quanti; ++i)
        l.bloccato[i] = static_cast<std::uint8_t>(static_cast<std::uint8_t>(blocchi[i / 8]) >> i % 8 & 1);
    if (r.resto.size() != quanti) return l;
    std::array<std::uint8_t, quanti> ordine{};
    std::copy(r.resto.begin(), r.resto.end(), ordine.begin());
    if (unaVolta(ordine)) l.ordine = ordine;
    return l;
}

std::string scrivi(const Lucidi& l) {
    std::string s(1, static_cast<char>(versione));
    s += static_cast<char>(std::count_if(l.nome.begin(), l.nome.end(), [](const auto& n) { return !n.empty(); }));
    for (std::size_t i = 0; i < quanti; ++i)
        if (!l.nome[i].empty()) {
            s += static_cast<char>(i);
            s += static_cast<char>(l.nome[i].size());
            s += l.nome[i];
        }
    std::array<std::uint8_t, byteBlocchi> blocchi{};
    for (std::size_t i = 0; i < quanti; ++i)
        blocchi[i / 8] = static_cast<std::uint8_t>(blocchi[i / 8] | l.bloccato[i] << i % 8);
    s.append(blocchi.begin(), blocchi.end());
    const Lucidi nuovi;
    if (l.ordine != nuovi.ordine) s.append(l.ordine.begin(), l.ordine.end());
    const bool diversi = s[1] != 0 || l.bloccato != nuovi.bloccato || l.ordine != nuovi.ordine;
    return diversi ? s : std::string();
}

// The layers as the drawing has them now.
const Lucidi& lucidi() {
    Lucidi& l = tenuti();
    if (const std::uint32_t n = NumeroEstensione(estLucidi); n != l.numero) {
        l = leggi(Estensione(estLucidi));
        l.numero = n;
        lucidiBloccati = l.bloccato;
    }
    return l;
}

void poni(const Lucidi& l) {
    if (!PoniEstensione(estLucidi, scrivi(l))) return;
    tenuti() = l;
    tenuti().numero = NumeroEstensione(estLucidi);
    lucidiBloccati = l.bloccato;
}

bool valido(std::int16_t l) { return l >= 0 && l < quantiLucidi; }

std::array<bool, quanti> occupati() {
    std::array<bool, quanti> usato{};
    for (std::int32_t n = 3; n <= indElem; ++n)
        if (const std::int16_t l = Elem(n).lucido; valido(l)) usato[static_cast<std::size_t>(l)] = true;
    return usato;
}

}   // namespace

std::string NomeLucido(std::int16_t l) {
    return valido(l) ? lucidi().nome[static_cast<std::size_t>(l)] : std::string();
}

void PoniNomeLucido(std::int16_t l, std::string_view macRoman) {
    if (!valido(l)) return;
    const std::string nome = pulito(macRoman);
    if (NomeLucido(l) == nome) return;
    Lucidi nuovi = lucidi();
    nuovi.nome[static_cast<std::size_t>(l)] = nome;
    poni(nuovi);
}

std::int16_t LucidoDiNome(std::string_view macRoman) {
    const std::string cercato = pulito(macRoman);
    if (cercato.empty()) return -1;
    const auto& nomi = lucidi().nome;
    const auto n = std::find_if(nomi.begin(), nomi.end(), [&](const std::string& s) {
        return !s.empty() && RelString(PStr255(std::string_view(s)), PStr255(std::string_view(cercato))) == 0;
    });
    return n == nomi.end() ? std::int16_t{-1} : static_cast<std::int16_t>(n - nomi.begin());
}

std::int16_t AccogliLucido(std::string_view macRoman, std::int16_t voluto) {
    const std::string nome = pulito(macRoman);
    if (nome.empty() || !valido(voluto)) return voluto;
    std::int16_t l = LucidoDiNome(nome);
    if (l >= 0) return l;
    l = voluto;
    if (!NomeLucido(l).empty()) {
        const std::array<bool, quanti> usato = occupati();
        for (std::int16_t i = 0; i < quantiLucidi && usato[static_cast<std::size_t>(l)]; ++i)
            if (NomeLucido(i).empty() && !usato[static_cast<std::size_t>(i)]) l = i;
    }
    if (NomeLucido(l).empty()) PoniNomeLucido(l, nome);
    return l;
}

void BloccaLucido(std::int16_t l, bool bloccato) {
    if (!valido(l) || lucidi().bloccato[static_cast<std::size_t>(l)] == std::uint8_t{bloccato}) return;
    Lucidi nuovi = lucidi();
    nuovi.bloccato[static_cast<std::size_t>(l)] = bloccato;
    poni(nuovi);
}

std::array<std::int16_t, quantiLucidi> OrdineLucidi() {
    std::array<std::int16_t, quantiLucidi> ordine{};
    std::copy(lucidi().ordine.begin(), lucidi().ordine.end(), ordine.begin());
    return ordine;
}

void PoniOrdineLucidi(const std::array<std::int16_t, quantiLucidi>& ordine) {
    Lucidi nuovi = lucidi();
    for (std::size_t i = 0; i < quanti; ++i) {
        if (!valido(ordine[i])) return;
        nuovi.ordine[i] = static_cast<std::uint8_t>(ordine[i]);
    }
    if (unaVolta(nuovi.ordine) && nuovi.ordine != lucidi().ordine) poni(nuovi);
}

namespace {

const AscoltoEstensioni ascolto([] { lucidi(); });

const VoceStato righe[] = {
    {"lucidiBloccati",
     [] {
         lucidiBloccati.fill(0);
         tenuti() = Lucidi{};
     },
     nullptr},
};
const TabellaStato tabella(righe);

}   // namespace

}   // namespace tessaro
