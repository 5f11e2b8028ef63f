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

constexpr std::int32_t striscePerFilo = 4;   // so that a thread with empty bands takes over from the others
constexpr std::int32_t righeMinime = 8;      // of a band, pixels
constexpr std::size_t tantiInteri = 64;      // records drawn whole above which bands no longer pay

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

    [[nodiscard]] std::int32_t inizio(std::int32_t s) const {
        return area.top + static_cast<std::int32_t>(std::int64_t{area.bottom - area.top} * s / quante);
    }
    // The band of a row, held to those that there are.
    [[nodiscard]] std::int32_t strisciaDi(double y) const {
        const double v = scalavid * y - OrigY - area.top;
        const double s = std::floor(v * quante / (area.bottom - area.top));
        return static_cast<std::int32_t>(std::clamp<double>(s, 0, quante - 1));
    }
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

    // The records of band s below `fino` that are not drawn yet.
    void disegna(std::int32_t s, std::int32_t fino) {
        Striscia& striscia = strisce[static_cast<std::size_t>(s)];
        SetPort(striscia.porta.get());
        const AreaIntera tutta(area);
        std::optional<Scansione> scansione;
        for (Segno& q = striscia.segno; q.parte < static_cast<std::size_t>(fili); ++q.parte, q.posto = 0) {
            const Elenco& e = parti[q.parte].strisce[static_cast<std::size_t>(s)];
            for (; q.posto < e.size(); ++q.posto) {
                if (e[q.posto] >= fino) return SetPort(nullptr);
                if (!scansione) scansione.emplace();
                scansione->elementoNumero(e[q.posto]);
            }
        }
        SetPort(nullptr);
    }

    void giro(std::int32_t fino) {
        std::atomic<std::int32_t> prossima = 0;
        perRighe(fili, [&](std::int32_t, std::int32_t, std::int32_t) {
            for (std::int32_t s = prossima++; s < quante; s = prossima++) disegna(s, fino);
        });
        SetPort(&porta);
    }

public:
    explicit Strisce(RasterPort& p) : porta(p) {
        quante = std::min(fili * striscePerFilo, (area.bottom - area.top) / righeMinime);
    }

    bool esegui() {
        if (fili < 2 || quante < 2) return false;
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
    if (porta == nullptr || DisegnaPict || indElem < sogliaStrisce || AnteprimaAttiva())
        return false;
    try {
        return Strisce(*porta).esegui();
    } catch (const std::bad_alloc&) { return false; }
}

namespace {
const VoceStato righe[] = {voce<sogliaStrisce>("sogliaStrisce")};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
