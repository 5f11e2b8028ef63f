// First the records are shared out: each thread looks at a part of them and notes, band by band, which can be seen there.
// Then each band is drawn, by whichever thread is free, from those lists in the records' order, clipped to its rows. So the
// store is read once however many threads there are. Pictures and hatches, which lean on memory of their own, are drawn
// whole between two rounds of bands, at their place in the order.
#include "display/Strisce.h"

#include <atomic>
#include <memory>
#include <new>
#include <optional>
#include <vector>

#include "bitmap/PerRighe.h"
#include "display/Scansione.h"
#include "model/TabellaStato.h"
#include "platform/paint/RasterPort.h"

namespace tessaro {

constinit std::int32_t sogliaStrisce = 20000;

namespace {

constexpr std::int32_t campioni = 4096;   // records looked at for where the work lies
constexpr std::int32_t righeMinime = 8;   // of a band, pixels
constexpr std::size_t tantiInteri = 64;   // records drawn whole above which bands no longer pay

using Elenco = std::vector<std::int32_t>;

// What one thread found in its part of the records. Kept between repaints, so that no record asks for memory.
struct Parte {
    std::vector<Elenco> strisce;
    Elenco interi;
};
std::vector<Parte> parti;

class Strisce {
    RasterPort& porta;
    Rect area = AreaDisegnabile();
    std::int32_t fili = Fili();
    std::int32_t quante = 0;
    Filtro filtro;
    std::atomic<bool> memoria = true;

    // Where a band's drawing has got to in its lists.
    struct Segno {
        std::size_t parte = 0, posto = 0;
    };
    struct Striscia {
        std::unique_ptr<RasterPort> porta;
        Segno segno;
    };
    std::vector<Striscia> strisce;

    std::vector<std::int32_t> confini;   // rows of the area where a band begins; one more at the end
    std::vector<std::int32_t> diRiga;    // the band of each row

    // The row of the area that holds y, held to those that there are.
    [[nodiscard]] std::size_t riga(double y) const {
        const double v = scalavid * y - OrigY - area.top;
        const auto ultima = static_cast<double>(diRiga.size() - 1);
        return v > 0 ? static_cast<std::size_t>(std::min(v, ultima)) : 0;
    }
    [[nodiscard]] std::int32_t strisciaDi(double y) const { return diRiga[riga(y)]; }

    // Bands of about the same work, by where some of the records lie: a band a thread, since each more goes through
    // memory once more.
    void dividi() {
        const std::int32_t alta = area.bottom - area.top;
        diRiga.assign(static_cast<std::size_t>(alta), 0);
        std::vector<std::int64_t> peso(diRiga.size(), 1);
        const std::int64_t unRecord = alta;
        std::int64_t totale = alta;
        for (std::int32_t i = 3; i <= indElem; i += std::max(1, indElem / campioni)) {
            double alto = 0, basso = 0;
            if (!filtro.righe(i, alto, basso)) continue;
            peso[riga((alto + basso) / 2)] += unRecord;
            totale += unRecord;
        }
        confini.assign(1, 0);
        std::int64_t finora = 0;
        for (std::int32_t r = 0; r < alta; ++r) {
            const auto s = static_cast<std::int32_t>(confini.size()) - 1;
            diRiga[static_cast<std::size_t>(r)] = s;
            finora += peso[static_cast<std::size_t>(r)];
            const bool piena = finora * quante >= totale * (s + 1) && r + 1 - confini.back() >= righeMinime;
            if (piena && s + 1 < quante && alta - r - 1 >= righeMinime) confini.push_back(r + 1);
        }
        quante = static_cast<std::int32_t>(confini.size());
        confini.push_back(alta);
    }
    [[nodiscard]] std::int32_t inizio(std::int32_t s) const { return area.top + confini[static_cast<std::size_t>(s)]; }

    static bool intero(std::int32_t i) {
        const elemento& e = Elem(i);
        return e.tipo == tPict || (e.tipo == tPoligono && e.poli.tratteggio && VisioneGraf.mostraTratteggi);
    }

    void nota(Parte& p, std::int32_t i) const {
        double alto = 0, basso = 0;
        if (!filtro.righe(i, alto, basso)) return;
        if (intero(i)) return p.interi.push_back(i);
        const double pixel = 2 / scalavid;   // rounding, and the pen's hang
        const std::int32_t ultima = strisciaDi(basso + pixel);
        for (std::int32_t s = strisciaDi(alto - pixel); s <= ultima; ++s)
            p.strisce[static_cast<std::size_t>(s)].push_back(i);
    }

    void spartisci() {
        if (parti.size() < static_cast<std::size_t>(fili)) parti.resize(static_cast<std::size_t>(fili));
        for (Parte& p : parti) {
            p.strisce.resize(static_cast<std::size_t>(quante));
            for (Elenco& e : p.strisce) e.clear();
            p.interi.clear();
        }
        perRighe(indElem - 2, [this](std::int32_t da, std::int32_t a, std::int32_t filo) {
            try {
                for (std::int32_t i = da; i < a; ++i) nota(parti[static_cast<std::size_t>(filo)], i + 3);
            } catch (const std::bad_alloc&) { memoria = false; }
        });
    }

    // A band's records lie scattered over the store: the memory of those to come is asked for ahead.
    static constexpr std::size_t anticipo = 12;
    static void chiama(std::int32_t n) {
        const char* const p = reinterpret_cast<const char*>(&Elem(n));
        __builtin_prefetch(p);
        __builtin_prefetch(p + 64);
    }

    // The records of band s below `fino` that are not drawn yet. The mark moves in a copy: bands lie side by side in memory,
    // and two threads that wrote into one cache line would wait for each other at every record.
    void disegna(std::int32_t s, std::int32_t fino) {
        Striscia& striscia = strisce[static_cast<std::size_t>(s)];
        Segno q = striscia.segno;
        SetPort(striscia.porta.get());
        const AreaIntera tutta(area);
        std::optional<Scansione> scansione;
        while (q.parte < static_cast<std::size_t>(fili)) {
            const Elenco& e = parti[q.parte].strisce[static_cast<std::size_t>(s)];
            for (; q.posto < e.size() && e[q.posto] < fino; ++q.posto) {
                constexpr std::size_t traDomande = 0x3FFF;   // a power of two less one
                if ((q.posto & traDomande) == traDomande
                    && DisegnoInterrotto(static_cast<double>(e[q.posto]) / indElem))
                    break;
                if (!scansione) scansione.emplace();
                if (q.posto + anticipo < e.size()) chiama(e[q.posto + anticipo]);
                scansione->elementoNumero(e[q.posto]);
            }
            if (q.posto < e.size()) break;   // the next round goes on here
            ++q.parte;
            q.posto = 0;
        }
        striscia.segno = q;
        SetPort(nullptr);
    }

    void giro(std::int32_t fino) {
        std::atomic<std::int32_t> prossima = 0;
        perRighe(fili, [&](std::int32_t, std::int32_t, std::int32_t) {
            for (std::int32_t s = prossima++; s < quante && !DisegnoInterrotto(); s = prossima++) disegna(s, fino);
        });
        SetPort(&porta);
    }

public:
    explicit Strisce(RasterPort& p) : porta(p) { quante = std::min(fili, (area.bottom - area.top) / righeMinime); }

    bool esegui() {
        if (fili < 2 || quante < 2) return false;
        dividi();
        if (quante < 2) return false;
        spartisci();
        Elenco interi;
        for (const Parte& p : parti) interi.insert(interi.end(), p.interi.begin(), p.interi.end());
        if (!memoria || interi.size() > tantiInteri) return false;
        strisce.resize(static_cast<std::size_t>(quante));
        for (std::int32_t s = 0; s < quante; ++s)
            strisce[static_cast<std::size_t>(s)].porta =
                std::make_unique<RasterPort>(porta, Rect{inizio(s), area.left, inizio(s + 1), area.right});
        Scansione intera;
        for (const std::int32_t i : interi) {
            if (DisegnoInterrotto(static_cast<double>(i) / indElem)) break;
            giro(i);
            intera.elementoNumero(i);
        }
        giro(indElem + 1);
        porta.touch(OffsetRect(area, -porta.origin.h, -porta.origin.v));
        return true;
    }
};

}   // namespace

bool ScandisciAStrisce() {
    auto* const porta = dynamic_cast<RasterPort*>(GetPort());
    if (porta == nullptr || DisegnaPict || indElem < sogliaStrisce || AnteprimaAttiva()) return false;
    try {
        return Strisce(*porta).esegui();
    } catch (const std::bad_alloc&) { return false; }
}

namespace {
const VoceStato righe[] = {voce<sogliaStrisce>("sogliaStrisce")};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
