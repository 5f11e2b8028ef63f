// Selected elements to bytes and back, by the order of the drawing's file.
#include "files/ElementiInBytes.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <span>
#include <vector>

#include "files/Nativo.h"
#include "files/Risanamento.h"
#include "model/Archivio.h"
#include "model/CampiElemento.h"
#include "model/Colori.h"
#include "model/NomiLucidi.h"
#include "model/PuntiElemento.h"
#include "model/Selezione.h"

namespace tessaro {

namespace {

constexpr std::string_view segno = "TS3E";
constexpr char versione = 1;
constexpr std::size_t byteNome = 22, byteColore = 30;
constexpr std::int16_t senzaColore = 0;

// --- numbers with their high byte first

void metti(std::string& s, std::uint32_t v, int byte) {
    while (byte-- > 0) s += static_cast<char>(v >> 8 * byte & 0xFF);
}

class Lettore {
    std::string_view resto;

public:
    bool bene = true;

    explicit Lettore(std::string_view s) : resto(s) {}
    std::string_view byte(std::size_t n) {
        bene = bene && n <= resto.size();
        if (!bene) return {};
        const std::string_view s = resto.substr(0, n);
        resto.remove_prefix(n);
        return s;
    }
    std::uint32_t numero(std::size_t n) {
        std::uint32_t v = 0;
        for (const char c : byte(n)) v = v << 8 | static_cast<std::uint8_t>(c);
        return v;
    }
    [[nodiscard]] std::size_t restano() const { return resto.size(); }
};

// --- writing

std::vector<std::int32_t> recordScelti() {
    std::vector<std::int32_t> scelti;
    const bool uno = UnSoloElemento();
    if (!Puntosel.attiva || (!uno && !Puntosel.multipla)) return scelti;
    const std::int32_t da = uno ? Puntosel.indice : 3, a = uno ? UltimoRecord(da) : indElem;
    for (std::int32_t n = da; n <= a;) {
        const std::int32_t ultimo = UltimoRecord(n);
        if (uno || Elem(n).selezionato)
            for (std::int32_t i = n; i <= ultimo; ++i) scelti.push_back(i);
        n = ultimo + 1;
    }
    return scelti;
}

void scriviColori(std::string& s) {
    const auto n = static_cast<std::size_t>(std::clamp<std::int16_t>(coloriPresenti, 0, maxColori));
    metti(s, static_cast<std::uint32_t>(n), 2);
    for (const Colore& c : std::span(arrColori).first(n)) {
        s.append(c.nome.begin(), c.nome.end());
        for (const std::uint16_t v : {c.rgb.red, c.rgb.green, c.rgb.blue}) metti(s, v, 2);
        metti(s, static_cast<std::uint16_t>(c.penna), 2);
    }
}

void scriviRecord(std::string& s, std::int32_t n) {
    constexpr std::size_t massimo = 0x7FFFFFFF;
    elemento disco = Elem(n);
    disco.selezionato = 0;
    const bool immagine = disco.tipo == tPict;
    const std::string& dati = immagine ? PictBytes(disco.pict.maniglia) : std::string();
    TrasformaElemNtoB(disco);
    s.append(reinterpret_cast<const char*>(&disco), sizeof disco);
    if (!immagine) return;
    const std::size_t lungo = std::min(dati.size(), massimo);
    metti(s, static_cast<std::uint32_t>(lungo), 4);
    s.append(dati, 0, lungo);
}

void scriviNomi(std::string& s) {
    std::string nomi;
    std::uint32_t quanti = 0;
    for (std::int16_t l = 0; l < quantiLucidi; ++l) {
        const std::string nome = NomeLucido(l);
        if (nome.empty()) continue;
        ++quanti;
        metti(nomi, static_cast<std::uint32_t>(l), 2);
        metti(nomi, static_cast<std::uint32_t>(nome.size()), 1);
        nomi += nome;
    }
    metti(s, quanti, 2);
    s += nomi;
}

// --- reading

// This drawing's number for each of the other's colours: the one of the same value, else a new one, else black.
std::int16_t coloreQui(const Colore& c) {
    const auto presenti = std::span(arrColori).first(static_cast<std::size_t>(coloriPresenti));
    const auto uguale = std::find_if(presenti.begin(), presenti.end(), [&](const Colore& qui) {
        return qui.rgb.red == c.rgb.red && qui.rgb.green == c.rgb.green && qui.rgb.blue == c.rgb.blue;
    });
    if (uguale != presenti.end()) return static_cast<std::int16_t>(uguale - presenti.begin() + 1);
    if (coloriPresenti >= maxColori) return 1;
    arrColori[static_cast<std::size_t>(coloriPresenti)] = c;
    return ++coloriPresenti;
}

bool leggiColori(Lettore& r, std::vector<Colore>& colori) {
    const std::uint32_t n = r.numero(2);
    if (!r.bene || n > static_cast<std::uint32_t>(maxColori) || r.restano() < n * byteColore) return false;
    colori.resize(n);
    for (Colore& c : colori) {
        std::memcpy(c.nome.data(), r.byte(byteNome).data(), byteNome);
        c.nome[0] = std::min(c.nome[0], maxNomeColore);
        for (std::uint16_t* v : {&c.rgb.red, &c.rgb.green, &c.rgb.blue}) *v = static_cast<std::uint16_t>(r.numero(2));
        c.penna = static_cast<std::int16_t>(r.numero(2));
    }
    return true;
}

bool eElemento(const elemento& e) { return e.tipo == tVertice || OggettoDi(e.tipo) >= 0; }

// The records from number `n` on, which becomes the first free one. False when the bytes are not what they say.
bool leggiRecord(Lettore& r, std::uint32_t quanti, std::int32_t& n) {
    Risanamento risanamento(n);
    bool figura = false;   // a polyline's head has come in: vertices have something to belong to
    for (; quanti > 0; --quanti) {
        const std::string_view byte = r.byte(sizeof(elemento));
        if (!r.bene) return false;
        elemento e;
        std::memcpy(static_cast<void*>(&e), byte.data(), sizeof e);
        TrasformaElemBtoN(e);
        const bool immagine = e.tipo == tPict;
        const std::string_view dati = immagine ? r.byte(r.numero(4)) : std::string_view{};
        if (!r.bene) return false;
        const bool orfano = e.tipo == tVertice && !figura;
        const bool entra = !orfano && eElemento(e) && risanamento.accetta(e);
        if (e.tipo != tVertice) figura = entra && e.tipo == tPoligono;
        if (!entra) continue;
        e.selezionato = 0;
        if (immagine) e.pict.maniglia = NewPict(std::string(dati));
        Elem(n) = e;
        risanamento.passa(n, Elem(n));
        ++n;
    }
    risanamento.fine();
    return true;
}

void traduciColori(std::int32_t da, const std::vector<Colore>& colori) {
    std::vector<std::int16_t> qui(colori.size(), senzaColore);
    bool nuovi = false;
    for (std::int32_t n = da; n <= indElem; ++n) {
        f16* campo = ColoreDi(Elem(n));
        if (campo == nullptr) continue;
        const std::int16_t suo = *campo;
        if (suo < 1 || static_cast<std::size_t>(suo) > colori.size()) continue;
        std::int16_t& mio = qui[static_cast<std::size_t>(suo - 1)];
        const std::int16_t prima = coloriPresenti;
        if (mio == senzaColore) mio = coloreQui(colori[static_cast<std::size_t>(suo - 1)]);
        nuovi = nuovi || coloriPresenti != prima;
        *campo = mio;
    }
    if (nuovi) RifaiMenuColori();
}

// Names are news for layers without one that something came onto.
void leggiNomi(Lettore& r, std::int32_t da) {
    for (std::uint32_t quanti = r.numero(2); quanti > 0 && r.bene; --quanti) {
        const auto l = static_cast<std::int16_t>(r.numero(2));
        const std::string nome(r.byte(r.numero(1)));
        if (!r.bene || !NomeLucido(l).empty() || LucidoDiNome(nome) >= 0) continue;
        bool usato = false;
        for (std::int32_t n = da; n <= indElem && !usato; ++n) usato = Elem(n).lucido == l;
        if (usato) PoniNomeLucido(l, nome);
    }
}

}   // namespace

std::string ElementiInBytes() {
    const std::vector<std::int32_t> scelti = recordScelti();
    if (scelti.empty()) return {};
    std::string s(segno);
    s += versione;
    scriviColori(s);
    metti(s, static_cast<std::uint32_t>(scelti.size()), 4);
    for (const std::int32_t n : scelti) scriviRecord(s, n);
    scriviNomi(s);
    return s;
}

EsitoElementi ElementiDaBytes(std::string_view bytes) {
    Lettore r(bytes);
    std::vector<Colore> colori;
    if (r.byte(segno.size()) != segno || r.byte(1) != std::string_view(&versione, 1) || !leggiColori(r, colori))
        return EsitoElementi::illeggibili;
    const std::uint32_t quanti = r.numero(4);
    if (!r.bene || quanti > r.restano() / sizeof(elemento)) return EsitoElementi::illeggibili;
    if (quanti > static_cast<std::uint32_t>(std::max(maxElementi - indElem, 0))) return EsitoElementi::senzaPosto;
    const std::int32_t primo = indElem + 1;
    std::int32_t libero = primo;
    if (!leggiRecord(r, quanti, libero) || libero == primo) {
        for (std::int32_t n = primo; n < libero; ++n)
            if (Elem(n).tipo == tPict) KillPicture(Elem(n).pict.maniglia);
        return EsitoElementi::illeggibili;
    }
    indElem = libero - 1;
    traduciColori(primo, colori);
    leggiNomi(r, primo);
    return EsitoElementi::entrati;
}

}   // namespace tessaro
