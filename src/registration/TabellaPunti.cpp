// The table's bytes, and its solution.
#include "registration/TabellaPunti.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <optional>

#include "model/Archivio.h"
#include "model/Estensioni.h"
#include "registration/Sbagli.h"

namespace tessaro {

bool RigaPunto::operator==(const RigaPunto& r) const {
    const auto bit = [](const Coppia& c) {
        return std::pair(std::bit_cast<std::uint64_t>(c.x), std::bit_cast<std::uint64_t>(c.y));
    };
    return nome == r.nome && bit(foglio) == bit(r.foglio) && bit(reale) == bit(r.reale) && conFoglio == r.conFoglio
           && conReale == r.conReale && inUso == r.inUso;
}

// --- bytes

namespace {

constexpr char versione = 1;
enum : std::uint8_t { bitRobusta = 1, bitFrecce = 2, bitVigore = 4 };
enum : std::uint8_t { bitFoglio = 1, bitReale = 2, bitUso = 4 };

void scrivi(std::string& s, std::uint64_t v, int byte) {
    for (int i = 0; i < byte; ++i) s += static_cast<char>(v >> (8 * i) & 0xFF);
}
void scrivi(std::string& s, double v) { scrivi(s, std::bit_cast<std::uint64_t>(v), 8); }

struct Lettore {
    std::string_view resto;
    bool bene = true;

    std::uint64_t intero(std::size_t byte) {
        if (resto.size() < byte) {
            bene = false;
            return 0;
        }
        std::uint64_t v = 0;
        for (std::size_t i = 0; i < byte; ++i) v |= std::uint64_t{static_cast<std::uint8_t>(resto[i])} << (8 * i);
        resto.remove_prefix(byte);
        return v;
    }
    double reale() { return std::bit_cast<double>(intero(8)); }
    Coppia coppia() {
        const double x = reale(), y = reale();
        return {x, y};
    }
    std::string testo(std::size_t byte) {
        if (resto.size() < byte) {
            bene = false;
            return {};
        }
        std::string s(resto.substr(0, byte));
        resto.remove_prefix(byte);
        return s;
    }
};

bool finita(const Coppia& c) { return std::isfinite(c.x) && std::isfinite(c.y); }

}   // namespace

std::string BytesTabella(const TabellaPunti& t) {
    std::string s(1, versione);
    scrivi(s, static_cast<std::uint64_t>(t.metodo), 1);
    scrivi(s, std::uint64_t((t.robusta ? bitRobusta : 0) | (t.frecce ? bitFrecce : 0) | (t.inVigore ? bitVigore : 0)),
           1);
    scrivi(s, t.esagerazione);
    for (const double v : t.firma) scrivi(s, v);
    scrivi(s, t.righe.size(), 4);
    for (const RigaPunto& r : t.righe) {
        scrivi(s, std::uint64_t((r.conFoglio ? bitFoglio : 0) | (r.conReale ? bitReale : 0) | (r.inUso ? bitUso : 0)),
               1);
        for (const double v : {r.foglio.x, r.foglio.y, r.reale.x, r.reale.y}) scrivi(s, v);
        const std::size_t lungo = std::min(r.nome.size(), massimoNomePunto);
        scrivi(s, lungo, 1);
        s.append(r.nome, 0, lungo);
    }
    return s;
}

TabellaPunti TabellaDaBytes(std::string_view bytes) {
    TabellaPunti t;
    Lettore l{bytes};
    if (l.intero(1) != static_cast<std::uint64_t>(versione)) return t;
    const std::uint64_t metodo = l.intero(1), bit = l.intero(1);
    t.metodo = metodo < numMetodi ? static_cast<Metodo>(metodo) : Metodo::helmert;
    t.robusta = (bit & bitRobusta) != 0;
    t.frecce = (bit & bitFrecce) != 0;
    t.inVigore = (bit & bitVigore) != 0;
    t.esagerazione = l.reale();
    if (!(t.esagerazione >= 0) || !(t.esagerazione <= 1e9)) t.esagerazione = 0;
    for (double& v : t.firma) v = l.reale();
    const auto righe = static_cast<std::size_t>(l.intero(4));
    for (std::size_t i = 0; i < std::min(righe, massimoPuntiTabella) && l.bene; ++i) {
        RigaPunto r;
        const std::uint64_t b = l.intero(1);
        r.foglio = l.coppia();
        r.reale = l.coppia();
        r.nome = l.testo(static_cast<std::size_t>(l.intero(1)));
        if (r.nome.size() > massimoNomePunto) r.nome.resize(massimoNomePunto);
        r.conFoglio = (b & bitFoglio) != 0 && finita(r.foglio);
        r.conReale = (b & bitReale) != 0 && finita(r.reale);
        r.inUso = (b & bitUso) != 0;
        if (!r.conFoglio) r.foglio = {};
        if (!r.conReale) r.reale = {};
        if (l.bene) t.righe.push_back(std::move(r));
    }
    return t;
}

// --- the drawing's own

namespace {

struct Tenuta {
    std::uint32_t numero = 0;
    TabellaPunti tabella;
    std::optional<StatoPunti> stato;
};
Tenuta tenuta;

void rinfresca() {
    const std::uint32_t numero = NumeroEstensione(estPunti);
    if (numero == tenuta.numero) return;
    tenuta = {};
    tenuta.numero = numero;
    if (numero != 0) tenuta.tabella = TabellaDaBytes(Estensione(estPunti));
}

StatoPunti risolvi(const TabellaPunti& t) {
    StatoPunti s;
    const std::vector<PuntoNoto> punti = PuntiDellaTabella(t, false, &s.righe);
    s.pesi.resize(punti.size());
    std::vector<PuntoNoto> usati;
    std::vector<std::size_t> quali;
    for (std::size_t i = 0; i < punti.size(); ++i) {
        s.pesi[i] = t.righe[s.righe[i]].inUso ? 1 : 0;
        if (s.pesi[i] == 0) continue;
        usati.push_back(punti[i]);
        quali.push_back(i);
    }
    SoluzionePunti robusta;
    std::vector<double> pesi;
    if (t.robusta && StimaRobusta(usati, t.metodo, robusta, pesi, s.scalaRobusta))
        for (std::size_t i = 0; i < quali.size(); ++i) s.pesi[quali[i]] = pesi[i];
    s.esito = RisolviPunti(punti, t.metodo, s.soluzione, s.pesi);
    for (std::size_t& i : s.esito.punti) i = s.righe[i];
    return s;
}

}   // namespace

const TabellaPunti& LaTabella() {
    rinfresca();
    return tenuta.tabella;
}

bool PoniTabella(const TabellaPunti& t) {
    if (t == LaTabella()) return true;
    return PoniEstensione(estPunti, t == TabellaPunti{} ? std::string() : BytesTabella(t));
}

std::vector<PuntoNoto> PuntiDellaTabella(const TabellaPunti& t, bool soloInUso, std::vector<std::size_t>* righe) {
    std::vector<PuntoNoto> punti;
    if (righe) righe->clear();
    for (std::size_t i = 0; i < t.righe.size(); ++i) {
        const RigaPunto& r = t.righe[i];
        if (!r.intera() || (soloInUso && !r.inUso)) continue;
        punti.push_back({r.foglio, r.reale});
        if (righe) righe->push_back(i);
    }
    return punti;
}

const StatoPunti& StatoTabella() {
    rinfresca();
    if (!tenuta.stato) tenuta.stato = risolvi(tenuta.tabella);
    return *tenuta.stato;
}

std::array<double, 8> FirmaAttuale() {
    const auto &p = Elem(1).att, &q = Elem(2).att;
    return {p.x1, p.y1, p.x2, p.y2, q.x1, q.y1, q.x2, q.y2};
}

const MappaPunti* MappaInVigore() {
    if (NumeroEstensione(estPunti) == 0) return nullptr;
    const TabellaPunti& t = LaTabella();
    // A similarity is what points 1 and 2 say already.
    if (!t.inVigore || t.metodo == Metodo::helmert || !Elem(2).att.coordReali || t.firma != FirmaAttuale())
        return nullptr;
    const MappaPunti& m = StatoTabella().soluzione.mappa;
    return m ? &m : nullptr;
}

}   // namespace tessaro
