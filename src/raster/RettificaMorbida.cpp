// The jobs with smooth results: the boxes of the told ones, each pixel asked back once.
#include <algorithm>
#include <cmath>
#include <memory>

#include "dialogs/Errori.h"
#include "model/Documento.h"
#include "model/Mesh.h"
#include "model/Penna.h"
#include "model/Stato.h"
#include "model/Strumento.h"
#include "model/Unita.h"
#include "raster/Correzione.h"
#include "raster/Lavoro.h"
#include "raster/Lenti.h"
#include "raster/Morbida.h"
#include "raster/NuovaImmagine.h"
#include "raster/raster.h"
#include "raster/RettificaMesh.h"
#include "raster/RotazioneMorbida.h"
#include "raster/Sorgente.h"

namespace tessaro {

namespace {

struct Morbido {
    Campioni campioni;
    std::unique_ptr<Formato> forma;
    Tela risultato;
};

// The picture's own pixels and the erased result. False behind its alert.
bool prepara(PicHandle pict, std::int64_t w, std::int64_t h, std::int16_t bit, Morbido& m) {
    const std::string& bytes = PictBytes(pict);
    const auto lato = [](std::uint32_t v) { return static_cast<std::int32_t>(std::clamp(v, 1U, 1U << 15)); };
    m.forma = FormatoPer(bit, bit == 8 ? ApriFonte(bytes).get() : nullptr);
    if (w > 0 && h > 0 && m.campioni.carica(bytes, lato(mapSizeX), lato(mapSizeY))
        && NuovaTela(m.risultato, w, h, *m.forma, true))
        return true;
    AvvisoMemoria(MemoriaTela(std::max<std::int64_t>(w, 0), std::max<std::int64_t>(h, 0), 4));
    return false;
}

struct PerUnita {
    double x, y;   // source pixels a sheet unit
};
PerUnita pixelDi(const Campioni& c) {
    return {c.livello(0).w / (x2PictBase - x1PictBase), c.livello(0).h / (y2PictBase - y1PictBase)};
}

void misuraCampo(CampoInverso& campo, const Campioni& c) {
    campo.larghezza = c.livello(0).w;
    campo.altezza = c.livello(0).h;
}

bool copiePer(Morbido& m, const CampoInverso& campo, const Rect& area) {
    const double r = Riduzione(campo, area);
    return r <= 2 || m.campioni.copie(static_cast<int>(std::log2(r)));
}

bool senzaRitorno() {
    AvvisoMemoria();
    return false;
}

Bombature lenteInUso() { return deformazioneOttica[static_cast<std::size_t>(indiceLenteAttuale - 1)].valori; }

}   // namespace

bool RettificaMorbida(PicHandle pict, bool taglio) {
    const bool alSorgente = taglio && tipoTaglio == 1, allaFine = taglio && tipoTaglio == 2;
    MisuraRaster(alSorgente);
    LavoroRaster lavoro(deformProspettica != 0);
    Morbido m;
    if (!prepara(pict, larghBitMap, altBitMap, bitColore, m)) return false;
    const Piano piano = PianoDelLavoro(m.risultato);
    const PerUnita pixel = pixelDi(m.campioni);
    CampoInverso campo;
    misuraCampo(campo, m.campioni);
    if (!CampoDellaMappa(MappaturaAttiva(), piano, pixel.x, pixel.y, campo)) return senzaRitorno();
    campo.conLente = conLenteRettifica != 0;
    campo.lente = lenteInUso();
    Ricampionamento q{m.campioni, campo, m.risultato, *m.forma, rectGW2};
    if (allaFine) q.taglio = &piano;
    Piano suoi;
    MascheraTaglio maschera;
    if (alSorgente) {
        suoi.x1Pict2 = x1PictBase;
        suoi.y1Pict2 = y1PictBase;
        suoi.stepD = pixel.x;
        suoi.larghezza = m.campioni.livello(0).w;
        suoi.altezza = static_cast<std::int32_t>(std::ceil((y2PictBase - y1PictBase) * pixel.x)) + 1;
        suoi.passo = static_cast<std::uint32_t>(suoi.larghezza);
        q.mascheraSorgente = &maschera;
        q.pianoSorgente = &suoi;
        q.foglioX = 1 / pixel.x;
        q.foglioY = 1 / pixel.y;
        if (!maschera.prepara(suoi)) return senzaRitorno();
    }
    if (!copiePer(m, campo, q.area)) return senzaRitorno();
    if (!Ricampiona(q, [&lavoro](double f) { return lavoro.passo(f); })) return false;
    const std::int32_t unita = PixelPerUnita(larghBitMap, altBitMap);
    return AggiungiImmagine(lavoro, ExtendedStdBits(m.risultato, *m.forma, FrameDi(m.risultato), tipoPitc), x1Pict2,
                            y1Pict2, (x2Pict2 - x1Pict2) * Completamento(larghBitMap, unita),
                            (y2Pict2 - y1Pict2) * Completamento(altBitMap, unita));
}

// Each cell is a rectification of its own, cut to its place in the destination mesh.
bool MeshMorbida(PicHandle pict) {
    MisuraRaster(true);
    LavoroRaster lavoro(deformProspettica != 0);
    Morbido m;
    if (!prepara(pict, larghBitMap, altBitMap, bitColore, m)) return false;
    const Piano piano = PianoDelLavoro(m.risultato);
    const PerUnita pixel = pixelDi(m.campioni);
    const int nx = std::min<int>(meshOrigine.nx, 100), ny = std::min<int>(meshOrigine.ny, 100);
    const double celle = (nx - 1) * (ny - 1);
    bool bene = true;
    SaveAttachPoints();
    for (int r = 0; r < ny - 1 && bene; ++r)
        for (int c = 0; c < nx - 1 && bene; ++c) {
            PreparaCella(r, c);
            const std::array<std::array<int, 2>, 4> angoli{{{r, c}, {r, c + 1}, {r + 1, c + 1}, {r + 1, c}}};
            double x1 = 1e99, y1 = 1e99, x2 = -1e99, y2 = -1e99;
            for (std::size_t i = 0; i < angoli.size(); ++i) {
                const double x = meshDestinazione.x[angoli[i][0]][angoli[i][1]],
                             y = meshDestinazione.y[angoli[i][0]][angoli[i][1]];
                Xtaglio[i] = x;
                Ytaglio[i] = y;
                x1 = std::min(x1, x);
                y1 = std::min(y1, y);
                x2 = std::max(x2, x);
                y2 = std::max(y2, y);
            }
            ultimoTaglio = static_cast<std::int32_t>(angoli.size()) - 1;
            CampoInverso campo;
            misuraCampo(campo, m.campioni);
            const auto in = [&piano](double v, double da) { return Troncato32((v - da) * piano.stepD); };
            const Rect area = SectRect(rectGW2, Rect{in(y1, piano.y1Pict2) - 1, in(x1, piano.x1Pict2) - 1,
                                                     in(y2, piano.y1Pict2) + 2, in(x2, piano.x1Pict2) + 2});
            if (EmptyRect(area) || !CampoDellaMappa(MappaturaAttiva(), piano, pixel.x, pixel.y, campo)) continue;
            bene = copiePer(m, campo, area);
            Ricampionamento q{m.campioni, campo, m.risultato, *m.forma, area};
            q.taglio = &piano;
            const double fatte = (nx - 1) * r + c;
            bene = bene && Ricampiona(q, [&](double f) { return lavoro.passo((fatte + f) / celle); });
        }
    RestoreAttachPoints();
    if (!bene) return lavoro.fermato() ? false : senzaRitorno();
    return AggiungiImmagine(lavoro, ImmagineDaTela(m.risultato, *m.forma, FrameDi(m.risultato), tipoPitc), x1Pict2,
                            y1Pict2, x2Pict2 - x1Pict2, y2Pict2 - y1Pict2);
}

bool CorrezioneMorbida(PicHandle pict) {
    MisuraRaster(false);
    LavoroRaster lavoro;
    Morbido m;
    if (!prepara(pict, larghBitMap, altBitMap, bitColore, m)) return false;
    CampoInverso campo;
    misuraCampo(campo, m.campioni);
    campo.m[0] = campo.larghezza / larghBitMap;
    campo.m[4] = campo.altezza / altBitMap;
    campo.conLente = true;
    campo.lente = lenteInUso();
    if (!copiePer(m, campo, rectGW2)) return senzaRitorno();
    if (!Ricampiona({m.campioni, campo, m.risultato, *m.forma, rectGW2},
                    [&lavoro](double f) { return lavoro.passo(f); }))
        return false;
    std::string bytes;
    if (!EmptyRect(destRect)) bytes = ImmagineDaTela(m.risultato, *m.forma, destRect, tipoPitc);
    return AggiungiImmagine(lavoro, std::move(bytes), x1Pict, y1Pict, destRect.right * DecPunto,
                            destRect.bottom * DecPunto);
}

std::string RotazioneMorbida(const tPictRot& p, std::int16_t bit, const CorniceGiro& q, std::int64_t w, std::int64_t h,
                             LavoroRaster& lavoro) {
    Morbido m;
    mapSizeX = static_cast<std::uint32_t>(w);
    mapSizeY = static_cast<std::uint32_t>(h);
    if (!prepara(p.pictIn, q.larghezza, q.altezza, bit, m)) return {};
    CampoInverso campo;
    misuraCampo(campo, m.campioni);
    const double c = std::cos(p.angolo), s = std::sin(p.angolo);
    const double kx = campo.larghezza / static_cast<double>(w), ky = campo.altezza / static_cast<double>(h);
    campo.m = {c * kx, s * kx, (c * q.ox + s * q.oy) * kx, -s * ky, c * ky, (c * q.oy - s * q.ox) * ky, 0, 0, 1};
    const Rect area{0, 0, m.risultato.altezza, m.risultato.larghezza};
    if (!copiePer(m, campo, area) || !Ricampiona({m.campioni, campo, m.risultato, *m.forma, area}, [&lavoro](double f) {
            return lavoro.passo(f);
        }))
        return {};
    return ImmagineDaTela(m.risultato, *m.forma, FrameDi(m.risultato), p.tipoPict);
}

}   // namespace tessaro
