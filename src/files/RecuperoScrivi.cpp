// Pieces of the recovery file, put together and written at once.
#include <algorithm>
#include <cstring>

#include "files/RecuperoFormato.h"
#include "files/RecuperoPezzi.h"
#include "model/Estensioni.h"
#include "model/VociDocumento.h"

namespace tessaro {

namespace {

void aggiungi(std::vector<unsigned char>& t, const void* dati, std::size_t byte) {
    const auto* p = static_cast<const unsigned char*>(dati);
    t.insert(t.end(), p, p + byte);
}
template <class T>
void aggiungi(std::vector<unsigned char>& t, const T& v) {
    aggiungi(t, &v, sizeof v);
}
void aggiungiTesto(std::vector<unsigned char>& t, std::string_view s) {
    aggiungi(t, static_cast<std::uint32_t>(s.size()));
    aggiungi(t, s.data(), s.size());
}

// A piece in the buffer: its head is filled in at the end, when the payload stands behind it.
class Pezzo {
    std::vector<unsigned char>& t;
    std::size_t inizio;
    std::uint32_t genere;

public:
    Pezzo(std::vector<unsigned char>& tampone, std::uint32_t g) : t(tampone), inizio(tampone.size()), genere(g) {
        t.resize(inizio + sizeof(TestaPezzo));
    }
    ~Pezzo() {
        const std::size_t corpo = inizio + sizeof(TestaPezzo);
        const TestaPezzo testa = FaiTesta(genere, t.data() + corpo, t.size() - corpo);
        std::memcpy(t.data() + inizio, &testa, sizeof testa);
    }
    Pezzo(const Pezzo&) = delete;
    Pezzo& operator=(const Pezzo&) = delete;
};

void immaginiNuove(ScritturaRecupero& s, std::span<const elemento> record) {
    for (const elemento& e : record) {
        if (e.tipo != tPict || e.pict.maniglia == 0) continue;
        const PicHandle h = e.pict.maniglia;
        const auto dove = std::lower_bound(s.immagini.begin(), s.immagini.end(), h);
        if (dove != s.immagini.end() && *dove == h) continue;
        s.immagini.insert(dove, h);
        const Pezzo p(s.tampone, pezzoImmagine);
        aggiungi(s.tampone, h);
        const std::string& byte = PictBytes(h);
        aggiungi(s.tampone, byte.data(), byte.size());
    }
}

void estensioniNuove(ScritturaRecupero& s) {
    for (const VoceEstensione& v : VociEstensione()) {
        const std::string* dati = DatiEstensione(v.numero);
        if (dati == nullptr || std::find(s.estensioni.begin(), s.estensioni.end(), v.numero) != s.estensioni.end())
            continue;
        s.estensioni.push_back(v.numero);
        const Pezzo p(s.tampone, pezzoEstensione);
        aggiungi(s.tampone, v.numero);
        aggiungi(s.tampone, dati->data(), dati->size());
    }
}

bool manda(ScritturaRecupero& s) {
    const bool bene = StateAppend(s.file, s.tampone.data(), s.tampone.size());
    if (bene) s.scritti += static_cast<std::int64_t>(s.tampone.size());
    s.tampone.clear();
    constexpr std::size_t abbastanza = 1 << 20;
    if (s.tampone.capacity() > abbastanza) s.tampone.shrink_to_fit();
    return bene;
}

void testa(ScritturaRecupero& s, const std::string& nome, std::int64_t secondi) {
    const Pezzo p(s.tampone, pezzoTesta);
    aggiungi(s.tampone, versioneRecupero);
    aggiungi(s.tampone, static_cast<std::uint32_t>(sizeof(elemento)));
    aggiungi(s.tampone, secondi);
    aggiungiTesto(s.tampone, nome);
    aggiungi(s.tampone, static_cast<std::uint32_t>(VociGiornale().size()));
    for (const VoceDocumento& v : VociGiornale()) {
        aggiungiTesto(s.tampone, v.nome);
        aggiungi(s.tampone, v.genere <= VoceDocumento::derivata ? v.byte : 0);
    }
}

void base(ScritturaRecupero& s, bool diverso) {
    const Pezzo p(s.tampone, pezzoBase);
    aggiungi(s.tampone, std::uint32_t{diverso});
    aggiungi(s.tampone, static_cast<std::uint32_t>(indElem));
    for (const VoceDocumento& v : VociGiornale())
        if (v.genere <= VoceDocumento::derivata) aggiungi(s.tampone, v.dove, v.byte);
    aggiungi(s.tampone, ArrElementi, static_cast<std::size_t>(indElem) * sizeof(elemento));
}

}   // namespace

bool ScriviInizio(ScritturaRecupero& s, const std::string& nome, std::int64_t secondi, bool diverso) {
    s.tampone.clear();
    s.tampone.reserve(static_cast<std::size_t>(indElem) * sizeof(elemento) + (1 << 20));
    testa(s, nome, secondi);
    immaginiNuove(s, {ArrElementi, static_cast<std::size_t>(indElem)});
    estensioniNuove(s);
    base(s, diverso);
    return manda(s);
}

bool ScriviPasso(ScritturaRecupero& s, const Transizione& t, std::int64_t secondi) {
    const auto nuovi = [](const TrattoDiverso& d) {
        return std::span<const elemento>(ArrElementi + d.dopo, static_cast<std::size_t>(d.quantiDopo));
    };
    for (const TrattoDiverso& d : t.tratti) immaginiNuove(s, nuovi(d));
    estensioniNuove(s);
    {
        const Pezzo p(s.tampone, pezzoPasso);
        aggiungi(s.tampone, secondi);
        aggiungi(s.tampone, static_cast<std::uint32_t>(t.tratti.size()));
        aggiungi(s.tampone, static_cast<std::uint32_t>(t.righe.size()));
        aggiungi(s.tampone, t.tratti.data(), t.tratti.size_bytes());
        aggiungi(s.tampone, t.righe.data(), t.righe.size_bytes());
        for (const TrattoDiverso& d : t.tratti) aggiungi(s.tampone, nuovi(d).data(), nuovi(d).size_bytes());
        for (const RigaDiversa& r : t.righe)
            aggiungi(s.tampone, static_cast<const unsigned char*>(VociGiornale()[r.voce].dove) + r.da, r.quanti);
    }
    return manda(s);
}

}   // namespace tessaro
