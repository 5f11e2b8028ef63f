// Finding out that a picture is one raster, and reading single rows of it.
#include "platform/pict/RighePict.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "platform/pict/Pict.h"

namespace tessaro {

namespace {

// Opcodes that draw nothing by themselves and change nothing about a raster that is copied over the frame.
bool senzaSegno(const Voce& v, const Rect& frame) {
    if (v.op == opClip) {
        Lettore l(v.dati);
        const bool solaScatola = l.u16() == 10;
        const Rect r = l.rettangolo();
        return solaScatola && SectRect(r, frame) == frame;
    }
    if (v.op == opOrigin) return false;
    if (v.op < opLine) return true;
    if (v.op >= 0x24 && v.op <= 0x27) return true;
    if (v.op >= 0x2C && v.op <= 0x2F) return true;
    if (v.op >= 0x92 && v.op <= 0x97) return true;
    return v.op >= 0xA0 && v.op != opCompresso && v.op != opNonCompresso;
}

bool cambiaColori(std::uint16_t op) {
    return op == opFgColor || op == opBkColor || op == opRGBFgCol || op == opRGBBkCol;
}

// The last piece of a raster may fill its last unit in part.
bool stessaScala(double qui, double scala, std::int32_t unita) {
    return std::abs(qui - scala) <= 1e-9 || (scala > 1 && qui < scala && (scala - qui) * unita < scala);
}

std::int32_t vicino(double v) { return static_cast<std::int32_t>(std::lround(v)); }

}   // namespace

bool PictFrame(std::string_view bytes, Rect& frame, double& dpiX, double& dpiY) {
    if (bytes.size() < 10) return false;
    const VociPict voci(bytes);
    frame = voci.frame;
    dpiX = voci.dpiX;
    dpiY = voci.dpiY;
    return !EmptyRect(frame);
}

bool PictPunti(std::string_view bytes, double& larghi, double& alti) {
    const VociPict voci(bytes);
    if (bytes.size() < 10 || EmptyRect(voci.frame)) return false;
    larghi = double(voci.frame.right) - voci.frame.left;
    alti = double(voci.frame.bottom) - voci.frame.top;
    const double fini[2] = {72 * (double(voci.sorgente.right) - voci.sorgente.left) / voci.dpiX,
                            72 * (double(voci.sorgente.bottom) - voci.sorgente.top) / voci.dpiY};
    if (voci.esteso && std::abs(fini[0] - larghi) <= 1 && std::abs(fini[1] - alti) <= 1) {
        larghi = fini[0];
        alti = fini[1];
    }
    return true;
}

bool SolaCompressa(std::string_view bytes, ImmagineCompressa& c) {
    VociPict voci(bytes);
    Voce v;
    bool trovata = false;
    while (voci.prossima(v)) {
        if (!v.intera) return false;
        const bool alSuoPosto = trovata && (OpcodeBits(v.op) || (v.op >= opLongText && v.op <= opDHDVText));
        if (v.op != opCompresso) {
            if (!alSuoPosto && !senzaSegno(v, voci.sorgente)) return false;
            continue;
        }
        if (trovata || !LeggiCompressa(v.dati, c)) return false;
        trovata = true;
    }
    if (!trovata || !c.diritta || ModoTrasparente(c.mode)) return false;
    const Rect d = c.destinazione();
    const Rect& s = voci.sorgente;
    const bool riempie = std::abs(d.left - s.left) <= 1 && std::abs(d.top - s.top) <= 1
                         && std::abs(d.right - s.right) <= 1 && std::abs(d.bottom - s.bottom) <= 1;
    return riempie && c.src == Rect{0, 0, c.height, c.width};
}

bool PictSoloRaster(std::string_view bytes, PictRaster& out) {
    out = PictRaster{};
    ImmagineCompressa c;
    if (SolaCompressa(bytes, c)) {
        constexpr std::uint32_t jpeg = 0x6A706567;
        out.jpeg = c.codice == jpeg;
        out.data = c.dati;
        return true;
    }
    return RighePict().apri(bytes);
}

bool RighePict::apri(std::string_view bytes) {
    pezzi.clear();
    conBuchi = false;
    sx = sy = 0;
    VociPict voci(bytes);
    const Rect frame = voci.sorgente;
    if (!voci.valido() || EmptyRect(frame)) return false;
    bool colorato = false;
    Voce v;
    while (voci.prossima(v)) {
        if (!v.intera) return false;
        if (cambiaColori(v.op)) colorato = true;
        if (OpcodeBits(v.op)) {
            if (!aggiungi(v.op, v.dati, frame)) return false;
            if (colorato && !pezzi.back().testa.pixmap) return false;   // a bit map in colours of the moment
        } else if (!senzaSegno(v, frame)) {
            return false;
        }
    }
    if (pezzi.empty()) return false;
    stringi();
    return copreTutto();
}

// A last unit that is filled in part ends the raster where its pixels end.
void RighePict::stringi() {
    std::int32_t destra = 0, fondo = 0;
    for (const Pezzo& p : pezzi) {
        destra = std::max(destra, p.x + p.testa.src.right - p.testa.src.left);
        fondo = std::max(fondo, p.y + p.testa.src.bottom - p.testa.src.top);
    }
    if (largo - destra < sx) largo = destra;
    if (alto - fondo < sy) alto = fondo;
}

bool RighePict::aggiungi(std::uint16_t op, std::string_view dati, const Rect& frame) {
    constexpr std::size_t tanti = 4096;
    Lettore l(dati);
    Pezzo p;
    BitsTesta& t = p.testa;
    if (!LeggiBitsTesta(l, op, t) || !t.maschera.empty()) return false;
    if (EmptyRect(t.src) || EmptyRect(t.dst) || SectRect(t.src, t.bounds) != t.src || SectRect(t.dst, frame) != t.dst)
        return false;
    const double qui[2] = {(double(t.src.right) - t.src.left) / (double(t.dst.right) - t.dst.left),
                           (double(t.src.bottom) - t.src.top) / (double(t.dst.bottom) - t.dst.top)};
    if (pezzi.empty()) {
        sx = qui[0];
        sy = qui[1];
        largo = vicino((double(frame.right) - frame.left) * sx);
        alto = vicino((double(frame.bottom) - frame.top) * sy);
        conBuchi = ModoTrasparente(t.mode);
    } else if (!stessaScala(qui[0], sx, t.dst.right - t.dst.left) || !stessaScala(qui[1], sy, t.dst.bottom - t.dst.top)
               || conBuchi != ModoTrasparente(t.mode)) {
        return false;
    }
    p.x = vicino((double(t.dst.left) - frame.left) * sx);
    p.y = vicino((double(t.dst.top) - frame.top) * sy);
    if (p.x + t.src.right - t.src.left > largo || p.y + t.src.bottom - t.src.top > alto) return false;
    p.dati = dati.substr(l.posto());
    if (pezzi.size() >= tanti || !indicizza(p, l)) return false;
    pezzi.push_back(std::move(p));
    return true;
}

bool RighePict::indicizza(Pezzo& p, Lettore l) {
    const std::size_t inizio = l.posto();
    if (l.resto() > 0xFFFFFFFFU) return false;
    std::string_view riga;
    for (std::int32_t y = 0; y < p.testa.altezza(); ++y) {
        p.posti.push_back(static_cast<std::uint32_t>(l.posto() - inizio));
        if (!ProssimaRiga(l, p.testa, riga) || l.guasto()) return false;
    }
    return true;
}

bool RighePict::copreTutto() const {
    std::int64_t coperti = 0;
    for (const Pezzo& p : pezzi) {
        const Rect& s = p.testa.src;
        coperti += std::int64_t(s.right - s.left) * (s.bottom - s.top);
    }
    return !pezzi.empty() && coperti == std::int64_t(largo) * alto;
}

void RighePict::riga(std::int32_t y, std::int32_t x0, std::int32_t x1, std::uint32_t* out) {
    for (Pezzo& p : pezzi) {
        const BitsTesta& t = p.testa;
        const std::int32_t sua = y - p.y + t.src.top - t.bounds.top;
        const std::int32_t da = std::max(x0, p.x);
        const std::int32_t a = std::min(x1, p.x + t.src.right - t.src.left);
        if (y < p.y || y >= p.y + t.src.bottom - t.src.top || a <= da) continue;
        if (p.rigaNelBanco != sua) {
            p.banco.resize(static_cast<std::size_t>(t.larghezza()));
            Lettore l(p.dati.substr(p.posti[static_cast<std::size_t>(sua)]));
            std::string_view riga;
            if (!ProssimaRiga(l, t, riga)) return;
            DecodificaRighe(t).riga(riga, p.banco.data());
            ApplicaModo(t.mode, 0xFFFFFFFFU, p.banco.data(), p.banco.size());
            p.rigaNelBanco = sua;
        }
        const std::uint32_t* da0 = p.banco.data() + (t.src.left - t.bounds.left) + (da - p.x);
        std::copy(da0, da0 + (a - da), out + (da - x0));
    }
}

std::int64_t RighePict::memoria() const {
    std::int64_t n = 0;
    for (const Pezzo& p : pezzi)
        n += static_cast<std::int64_t>(p.posti.size() * 4 + p.banco.size() * 4 + sizeof(Pezzo));
    return n;
}

}   // namespace tessaro
