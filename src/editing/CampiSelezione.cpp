// The fields of the selection: a row a field, with who has it, how it is read and how it is set.
#include "editing/CampiSelezione.h"

#include <algorithm>
#include <cmath>

#include "dialogs/Parametri.h"
#include "display/Ridisegno.h"
#include "display/Testi.h"
#include "editing/Aref.h"
#include "editing/AttributiSel.h"
#include "editing/CampiGeometria.h"
#include "editing/LucidiClassi.h"
#include "editing/Selezionati.h"
#include "editing/TestoSelezione.h"
#include "model/Annulla.h"
#include "model/Figura.h"
#include "model/PuntiElemento.h"
#include "model/Scritta.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

constexpr std::size_t maxTesto = 40, maxAref = 13;

struct Riga {
    Campo campo;
    LimitiCampo limiti;
    f16* (*posto)(elemento&);   // of a whole number that the record holds; null for the others
};

f16* lucidoDi(elemento& e) { return &e.lucido; }
f16* formaDi(elemento& e) { return e.tipo == tMarker ? &e.mark.forma : nullptr; }
f16* corpoDi(elemento& e) { return e.tipo == tTesto ? &e.test.dimensione : nullptr; }
f16* angoloTestoDi(elemento& e) { return e.tipo == tTesto ? &e.test.angolo : nullptr; }
f16* categoriaDi(elemento& e) { return e.tipo == tTesto ? nullptr : &e.testa.categoria; }
f16* insiemeDi(elemento& e) { return e.tipo == tTesto ? nullptr : &e.testa.insieme; }

constexpr LimitiCampo senza{0, 0, false}, coordinata{-limiteReale, limiteReale, false};
// What is measured is above 0: the smallest length is a thousandth of the unit, as it is shown.
constexpr LimitiCampo misura{0.001, limiteReale, false}, angolo{-400, 400, false};
constexpr Riga righe[] = {
    {Campo::lucido, {0, 99, true}, lucidoDi},
    {Campo::colore, {1, 300, true}, ColoreDi},
    {Campo::spessore, {1, 9, true}, SpessoreDi},
    {Campo::retino, {1, 38, true}, PatternDi},
    {Campo::retinoArea, {0, 38, true}, PatternAreaDi},
    {Campo::forma, {1, 5, true}, formaDi},
    {Campo::testo, senza, nullptr},
    {Campo::corpo, {1, 100, true}, corpoDi},
    {Campo::angoloTesto, {-400, 400, true}, angoloTestoDi},
    {Campo::aref, senza, nullptr},
    {Campo::categoria, {1, 255, true}, categoriaDi},
    {Campo::insieme, {1, 255, true}, insiemeDi},
    {Campo::x, coordinata, nullptr},
    {Campo::y, coordinata, nullptr},
    {Campo::z, coordinata, nullptr},
    {Campo::x2, coordinata, nullptr},
    {Campo::y2, coordinata, nullptr},
    {Campo::z2, coordinata, nullptr},
    {Campo::lunghezza, misura, nullptr},
    {Campo::azimut, angolo, nullptr},
    {Campo::area, senza, nullptr},
    {Campo::raggio, misura, nullptr},
    {Campo::inizio, angolo, nullptr},
    {Campo::ampiezza, angolo, nullptr},
    {Campo::larghezza, misura, nullptr},
    {Campo::altezza, misura, nullptr},
};
static_assert(std::size(righe) == numCampi);

const Riga& rigaDi(Campo c) { return righe[static_cast<std::size_t>(c)]; }

std::string_view tagDi(const elemento& e) {
    return {reinterpret_cast<const char*>(e.testa.aref.data()) + 1, std::min<std::size_t>(e.testa.aref[0], maxAref)};
}

bool ha(const Riga& r, elemento& e, bool sola) {
    if (r.posto) return r.posto(e) != nullptr;
    if (r.campo == Campo::testo) return e.tipo == tTesto;
    if (r.campo == Campo::aref) return e.tipo != tTesto && e.tipo != tPict;
    return HaGeometria(r.campo, e.tipo, sola);
}

double numeroDi(const Riga& r, std::int32_t n, std::int32_t vertice) {
    if (!r.posto) return LeggiGeometria(r.campo, n, vertice);
    const double v = *r.posto(Elem(n));
    return r.campo == Campo::angoloTesto ? std::round(AngToAttuale(v)) : v;
}

// What is shown to the last digit is the same value.
bool uguali(const Riga& r, double a, double b) { return r.posto ? a == b : std::fabs(a - b) < 0.0005; }

void aggiungi(const Riga& r, ValoreCampo& v, std::int32_t n, std::int32_t vertice, bool primo) {
    elemento& e = Elem(n);
    const bool sommabile = r.campo == Campo::lunghezza || r.campo == Campo::area;
    if (!CampoDiTesto(r.campo)) {
        const double d = numeroDi(r, n, vertice);
        v.fisso = v.fisso || (!r.posto && !GeometriaScrivibile(r.campo, e.tipo)) || (sommabile && !primo);
        if (primo) {
            v.numero = d;
        } else if (sommabile) {
            v.numero += d;
        } else if (!uguali(r, v.numero, d)) {
            v.presenza = Presenza::diversi;
        }
        if (sommabile && !primo) v.presenza = Presenza::somma;
    } else {
        const std::string s(r.campo == Campo::testo ? ScrittaDi(e) : tagDi(e));
        if (primo)
            v.testo = s;
        else if (v.testo != s)
            v.presenza = Presenza::diversi;
    }
}

// Every selected thing by its first record.
template <class Fai>
void perCose(Fai fai) {
    PerSelezionati([&fai](std::int32_t n) {
        if (OggettoDi(Elem(n).tipo) >= 0) fai(n);
        return true;
    });
}

Aref arefDi(std::string_view s) {
    Aref a{};
    a[0] = static_cast<std::uint8_t>(s.size());
    std::copy(s.begin(), s.end(), a.begin() + 1);
    return a;
}

void concludi() {
    RifaiRettSel();
    PoniAnnulla(Puntosel.multipla ? aNiente : aElemento);
    InvalFinestra();
}

}   // namespace

bool CampoDiTesto(Campo c) { return c == Campo::testo || c == Campo::aref; }
LimitiCampo LimitiDi(Campo c) { return rigaDi(c).limiti; }

CampiSelezione LeggiCampi(std::int32_t vertice) {
    CampiSelezione s;
    std::array<bool, numCampi> via{};
    const bool sola = UnSoloElemento();
    perCose([&](std::int32_t n) {
        elemento& e = Elem(n);
        const bool primo = s.elementi++ == 0;
        ++s.quanti[static_cast<std::size_t>(OggettoDi(e.tipo))];
        if (sola && e.tipo == tPoligono) s.vertici = UltimoRecord(n) - n + 1;
        for (const Riga& r : righe) {
            const auto i = static_cast<std::size_t>(r.campo);
            if (via[i]) continue;
            if (!ha(r, e, sola)) {
                via[i] = true;
                s.campi[i] = ValoreCampo{};
                continue;
            }
            if (primo) s.campi[i].presenza = Presenza::uguale;
            if (s.campi[i].presenza != Presenza::diversi) aggiungi(r, s.campi[i], n, vertice, primo);
        }
    });
    return s;
}

bool PoniCampo(Campo c, double numero, std::int32_t vertice) {
    const Riga& r = rigaDi(c);
    if (!std::isfinite(numero) || CampoDiTesto(c)) return false;
    if (!r.posto) FineFigura();   // its next side would begin where the thing was
    if (!Puntosel.attiva) return false;
    if (c == Campo::lucido) {
        CambiaLucido(arrotonda16(numero));
        return true;
    }
    const bool sola = UnSoloElemento();
    bool preso = false, rifiutato = false;
    perCose([&](std::int32_t n) {
        elemento& e = Elem(n);
        if (!ha(r, e, sola)) return;
        if (!r.posto) {
            if (!GeometriaScrivibile(c, e.tipo)) return;
            (PoniGeometria(c, n, vertice, numero) ? preso : rifiutato) = true;
            return;
        }
        preso = true;
        *r.posto(e) = arrotonda16(c == Campo::angoloTesto ? AttualeToAng(numero) : numero);
        if (e.tipo == tTesto) MisuraTesto(e);
    });
    if (preso) concludi();
    return preso && !rifiutato;
}

bool PoniCampo(Campo c, std::string_view macRoman) {
    if (!CampoDiTesto(c) || macRoman.size() > (c == Campo::testo ? maxTesto : maxAref)) return false;
    bool preso = false;
    perCose([&](std::int32_t n) {
        elemento& e = Elem(n);
        if (!ha(rigaDi(c), e, false)) return;
        preso = true;
        if (c == Campo::aref) {
            e.testa.aref = arefDi(macRoman);
            return;
        }
        PoniScritta(e, PStr255(macRoman));
        MisuraTesto(e);
    });
    if (preso) concludi();
    return preso;
}

}   // namespace tessaro
