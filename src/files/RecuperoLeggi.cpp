// The recovery file back into a drawing. Pieces come whole or not at all; what they say is still held against what there
// is before it is believed.
#include <algorithm>
#include <cstring>
#include <new>
#include <unordered_map>

#include "files/RecuperoFormato.h"
#include "files/RecuperoPezzi.h"
#include "files/Risanamento.h"
#include "model/Colori.h"
#include "model/Estensioni.h"
#include "model/Lucidi.h"
#include "model/Mesh.h"
#include "model/Unita.h"
#include "model/VociDocumento.h"

namespace tessaro {

namespace {

constexpr std::size_t massimoRecord = 1500000;   // as the store itself

// A payload, read from front to back.
class Corpo {
    const std::vector<unsigned char>& b;
    std::size_t i = 0;
    bool intero = true;

public:
    explicit Corpo(const std::vector<unsigned char>& byte) : b(byte) {}
    [[nodiscard]] std::size_t resto() const { return b.size() - i; }
    [[nodiscard]] bool bene() const { return intero; }
    bool prendi(void* dove, std::size_t byte) {
        if (!intero || byte > resto()) return intero = false;
        if (byte > 0) std::memcpy(dove, b.data() + i, byte);
        i += byte;
        return true;
    }
    template <class T>
    T uno() {
        T v{};
        prendi(&v, sizeof v);
        return v;
    }
    std::string testo(std::size_t byte) {
        if (!intero || byte > resto()) {
            intero = false;
            return {};
        }
        i += byte;
        return {reinterpret_cast<const char*>(b.data()) + i - byte, byte};
    }
    // As many of a kind as it says, or none.
    template <class T>
    std::vector<T> molti(std::size_t quanti) {
        if (!intero || quanti > resto() / sizeof(T)) {
            intero = false;
            return {};
        }
        std::vector<T> v(quanti);
        prendi(v.data(), quanti * sizeof(T));
        return v;
    }
};

bool leggiPezzo(StateFile f, std::uint32_t& genere, std::vector<unsigned char>& corpo) {
    TestaPezzo t;
    if (StateRead(f, &t, sizeof t) != sizeof t || t.propria != ImprontaTesta(t)) return false;
    if (t.byte > static_cast<std::uint64_t>(StateLeft(f))) return false;
    corpo.resize(static_cast<std::size_t>(t.byte));
    genere = t.genere;
    return StateRead(f, corpo.data(), corpo.size()) == corpo.size()
           && ImprontaByte(corpo.data(), corpo.size(), genere) == t.impronta;
}

bool leggiTesta(Corpo c, DisegnoRecuperato& d) {
    if (c.uno<std::uint32_t>() != versioneRecupero || c.uno<std::uint32_t>() != sizeof(elemento)) return false;
    d.secondi = c.uno<std::int64_t>();
    d.nome = c.testo(c.uno<std::uint32_t>());
    const auto righe = c.uno<std::uint32_t>();
    for (std::uint32_t i = 0; i < righe && c.bene(); ++i) {
        DisegnoRecuperato::Riga r;
        r.nome = c.testo(c.uno<std::uint32_t>());
        const auto byte = c.uno<std::uint32_t>();
        constexpr std::uint32_t troppi = 1 << 20;   // no row is longer
        if (byte > troppi) return false;
        r.byte.assign(byte, '\0');
        d.righe.push_back(std::move(r));
    }
    return c.bene();
}

bool leggiBase(Corpo c, DisegnoRecuperato& d) {
    d.diverso = c.uno<std::uint32_t>() != 0;
    const auto quanti = c.uno<std::uint32_t>();
    for (DisegnoRecuperato::Riga& r : d.righe) r.byte = c.testo(r.byte.size());
    if (quanti < 2 || quanti > massimoRecord) return false;
    d.record = c.molti<elemento>(quanti);
    return c.bene();
}

bool credibili(const std::vector<TrattoDiverso>& tratti, std::size_t record) {
    std::int64_t prima = 0, scarto = 0;
    for (const TrattoDiverso& t : tratti) {
        if (t.prima < prima || t.quantiPrima < 0 || t.quantiDopo < 0 || t.dopo != t.prima + scarto) return false;
        prima = std::int64_t{t.prima} + t.quantiPrima;
        scarto += t.quantiDopo - t.quantiPrima;
        if (prima > static_cast<std::int64_t>(record)) return false;
    }
    const std::int64_t dopo = static_cast<std::int64_t>(record) + scarto;
    return dopo >= 2 && dopo <= static_cast<std::int64_t>(massimoRecord);
}

void sostituisci(std::vector<elemento>& record, const std::vector<TrattoDiverso>& tratti,
                 const std::vector<elemento>& nuovi) {
    const bool alPosto =
        std::all_of(tratti.begin(), tratti.end(), [](const TrattoDiverso& t) { return t.quantiPrima == t.quantiDopo; });
    auto nuovo = nuovi.begin();
    if (alPosto) {
        for (const TrattoDiverso& t : tratti) {
            std::copy(nuovo, nuovo + t.quantiDopo, record.begin() + t.dopo);
            nuovo += t.quantiDopo;
        }
        return;
    }
    std::vector<elemento> coda;
    auto letto = record.begin() + tratti.front().prima;
    for (const TrattoDiverso& t : tratti) {
        coda.insert(coda.end(), letto, record.begin() + t.prima);
        coda.insert(coda.end(), nuovo, nuovo + t.quantiDopo);
        nuovo += t.quantiDopo;
        letto = record.begin() + t.prima + t.quantiPrima;
    }
    coda.insert(coda.end(), letto, record.end());
    record.resize(static_cast<std::size_t>(tratti.front().prima));
    record.insert(record.end(), coda.begin(), coda.end());
}

// All of a step or nothing of it.
bool leggiPasso(Corpo c, DisegnoRecuperato& d) {
    const auto secondi = c.uno<std::int64_t>();
    const auto quantiTratti = c.uno<std::uint32_t>(), quanteRighe = c.uno<std::uint32_t>();
    const auto tratti = c.molti<TrattoDiverso>(quantiTratti);
    const auto righe = c.molti<RigaDiversa>(quanteRighe);
    if (!c.bene() || !credibili(tratti, d.record.size())) return false;
    std::size_t nuovi = 0;
    for (const TrattoDiverso& t : tratti) nuovi += static_cast<std::size_t>(t.quantiDopo);
    const auto record = c.molti<elemento>(nuovi);
    std::vector<std::string> byte;
    for (const RigaDiversa& r : righe) {
        if (r.voce >= d.righe.size() || std::uint64_t{r.da} + r.quanti > d.righe[r.voce].byte.size()) return false;
        byte.push_back(c.testo(r.quanti));
    }
    if (!c.bene()) return false;
    if (!tratti.empty()) sostituisci(d.record, tratti, record);
    for (std::size_t i = 0; i < righe.size(); ++i)
        d.righe[righe[i].voce].byte.replace(righe[i].da, righe[i].quanti, byte[i]);
    d.secondi = secondi;
    d.diverso = true;
    return true;
}

void riga(const DisegnoRecuperato& d, const VoceDocumento& v) {
    if (v.genere > VoceDocumento::derivata) return;
    for (const DisegnoRecuperato::Riga& r : d.righe)
        if (r.nome == v.nome && r.byte.size() == v.byte) std::memcpy(v.dove, r.byte.data(), v.byte);
}

void entroLeTavole() {
    constexpr std::int16_t lato = 100, ultimoLucido = 99, ultimaUnita = 6;
    coloriPresenti = std::clamp<std::int16_t>(coloriPresenti, 0, maxColori);
    for (Colore& c : arrColori) c.nome[0] = std::min(c.nome[0], maxNomeColore);
    VisioneGraf.lucidoCorrente = std::clamp<std::int16_t>(VisioneGraf.lucidoCorrente, 0, ultimoLucido);
    UnitaMCorrente = std::clamp<std::int16_t>(UnitaMCorrente, 0, ultimaUnita);
    for (Mesh* m : {&meshOrigine, &meshDestinazione}) {
        m->nx = std::clamp<std::int16_t>(m->nx, 0, lato);
        m->ny = std::clamp<std::int16_t>(m->ny, 0, lato);
    }
}

}   // namespace

bool LeggiRecupero(StateFile f, DisegnoRecuperato& d) {
    std::uint32_t genere = 0;
    std::vector<unsigned char> corpo;
    bool base = false;
    if (!leggiPezzo(f, genere, corpo) || genere != pezzoTesta || !leggiTesta(Corpo(corpo), d)) return false;
    while (leggiPezzo(f, genere, corpo)) {
        Corpo c(corpo);
        if (genere == pezzoImmagine) {
            const auto numero = c.uno<PicHandle>();
            d.immagini.push_back({numero, c.testo(c.resto())});
        } else if (genere == pezzoEstensione) {
            const auto numero = c.uno<std::uint32_t>();
            d.estensioni.insert_or_assign(numero, c.testo(c.resto()));
        } else if (genere == pezzoBase && !base) {
            base = leggiBase(c, d);
            if (!base) break;
        } else if (genere != pezzoPasso || !base || !leggiPasso(c, d)) {
            break;
        }
    }
    return base;
}

void AccogliRecupero(const DisegnoRecuperato& d) {
    const auto quanti = std::min<std::size_t>(d.record.size(), static_cast<std::size_t>(maxElementi));
    std::copy_n(d.record.begin(), quanti, ArrElementi);
    indElem = static_cast<std::int32_t>(quanti);
    Elem(1).tipo = tAttacco1;
    Elem(2).tipo = tAttacco2;
    for (const VociDocumento* t = VociDocumento::prima; t; t = t->prossima)
        for (const VoceDocumento& v : t->righe) riga(d, v);
    entroLeTavole();
    RinumeraEstensioni(
        [](std::uint32_t numero, const void* di) -> const std::string* {
            const auto& byte = static_cast<const DisegnoRecuperato*>(di)->estensioni;
            const auto i = byte.find(numero);
            return i == byte.end() ? nullptr : &i->second;
        },
        &d);
    std::unordered_map<PicHandle, const std::string*> byte;
    for (const DisegnoRecuperato::Immagine& i : d.immagini) byte.insert_or_assign(i.numero, &i.byte);
    Risanamento r(3);
    for (std::int32_t n = 3; n <= indElem; ++n) {
        elemento& e = Elem(n);
        e.selezionato = 0;
        if (e.tipo == tPict) {
            const auto i = byte.find(e.pict.maniglia);
            e.pict.maniglia = i == byte.end() ? 0 : NewPict(*i->second);
        }
        r.passa(n, e);
    }
    r.fine();
}

}   // namespace tessaro
