// The table of entries and the bytes behind their numbers.
#include "model/Estensioni.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <utility>

#include "model/TabellaStato.h"
#include "model/VociDocumento.h"

namespace tessaro {

constinit AscoltoEstensioni* AscoltoEstensioni::primo = nullptr;

AscoltoEstensioni::AscoltoEstensioni(void (*f)()) : cambiate(f), prossimo(primo) { primo = this; }

namespace {

using Tavola = std::array<VoceEstensione, static_cast<std::size_t>(maxEstensioni)>;
constinit Tavola estensioni{};

struct Byte {
    std::map<std::uint32_t, std::string> dati;
    std::uint32_t ultimo = 0;      // number given last; never given twice in a session
    std::uint32_t assestato = 0;   // numbers up to here may stand in a step
    Tavola detta{};                // the table that listeners were told last
};
Byte& byte() {
    static Byte b;
    return b;
}

VoceEstensione* cerca(std::uint32_t marca) {
    const auto i = std::find_if(estensioni.begin(), estensioni.end(),
                                [marca](const VoceEstensione& v) { return v.numero != 0 && v.marca == marca; });
    return i == estensioni.end() ? nullptr : &*i;
}

std::size_t inUso() { return VociEstensione().size(); }

void ordina() {
    std::sort(estensioni.begin(), estensioni.end(), [](const VoceEstensione& a, const VoceEstensione& b) {
        return std::pair{a.numero == 0, a.marca} < std::pair{b.numero == 0, b.marca};
    });
}

// The same bytes keep their number, so that what is put back as it was is no change.
std::uint32_t numeroDi(std::string dati) {
    Byte& b = byte();
    for (const auto& [numero, altri] : b.dati)
        if (altri == dati) return numero;
    b.dati.emplace(++b.ultimo, std::move(dati));
    return b.ultimo;
}

// Bytes that came and went between two steps are nobody's.
void lascia(std::uint32_t numero) {
    Byte& b = byte();
    if (numero <= b.assestato) return;
    const auto stesso = [numero](const VoceEstensione& v) { return v.numero == numero; };
    if (std::none_of(estensioni.begin(), estensioni.end(), stesso)) b.dati.erase(numero);
}

}   // namespace

std::string_view Estensione(std::uint32_t marca) {
    const VoceEstensione* v = cerca(marca);
    const std::string* dati = v ? DatiEstensione(v->numero) : nullptr;
    return dati ? std::string_view(*dati) : std::string_view();
}

bool PoniEstensione(std::uint32_t marca, std::string dati) {
    VoceEstensione* v = cerca(marca);
    if (dati.empty()) {
        if (v == nullptr) return true;
        const std::uint32_t prima = std::exchange(*v, {}).numero;
        ordina();
        lascia(prima);
        return true;
    }
    if (static_cast<std::int64_t>(dati.size()) > maxByteEstensione) return false;
    if (v == nullptr) {
        if (inUso() == estensioni.size()) return false;
        v = &estensioni[inUso()];
        v->marca = marca;
    }
    const std::uint32_t prima = std::exchange(v->numero, numeroDi(std::move(dati)));
    ordina();
    lascia(prima);
    return true;
}

std::uint32_t NumeroEstensione(std::uint32_t marca) {
    const VoceEstensione* v = cerca(marca);
    return v ? v->numero : 0;
}

std::span<const VoceEstensione> VociEstensione() {
    const auto fine =
        std::find_if(estensioni.begin(), estensioni.end(), [](const VoceEstensione& v) { return v.numero == 0; });
    return {estensioni.begin(), fine};
}

const std::string* DatiEstensione(std::uint32_t numero) {
    const auto i = byte().dati.find(numero);
    return i == byte().dati.end() ? nullptr : &i->second;
}

void AzzeraEstensioni() {
    estensioni = {};
    byte().dati.clear();
}

void RinumeraEstensioni(const std::string* (*dati)(std::uint32_t, const void*), const void* di) {
    const Tavola altrui = std::exchange(estensioni, {});
    for (const VoceEstensione& v : altrui)
        if (const std::string* d = v.numero ? dati(v.numero, di) : nullptr) PoniEstensione(v.marca, *d);
}

void AssestaEstensioni() { byte().assestato = byte().ultimo; }

void AvvisaEstensioni() {
    Byte& b = byte();
    if (std::memcmp(&b.detta, &estensioni, sizeof estensioni) == 0) return;
    b.detta = estensioni;
    for (const AscoltoEstensioni* a = AscoltoEstensioni::primo; a; a = a->prossimo) a->cambiate();
}

namespace {
const VoceStato righe[] = {
    {"estensioni", AzzeraEstensioni, [] { return std::to_string(inUso()); }},
};
const TabellaStato tabella(righe);
const VoceDocumento delGiornale[] = {VoceDi("estensioni", VoceDocumento::documento, estensioni)};
const VociDocumento tabellaGiornale(delGiornale);
}   // namespace

}   // namespace tessaro
