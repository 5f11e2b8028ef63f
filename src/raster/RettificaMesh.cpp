// Rectification by meshes: each cell of the source mesh is thrown into its cell of the destination mesh.
#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

#include "dialogs/Errori.h"
#include "model/Mesh.h"
#include "model/Selezione.h"
#include "platform/Memory.h"
#include "raster/Lavoro.h"
#include "raster/NuovaImmagine.h"
#include "raster/Percorri.h"
#include "raster/raster.h"
#include "raster/RettificaMesh.h"
#include "registration/attaccoDinamico.h"
#include "registration/gauss.h"
#include "registration/PuntiControllo.h"

namespace tessaro {

constinit double x1MeshOr = 0, y1MeshOr = 0, x2MeshOr = 0, y2MeshOr = 0;
constinit double x1MeshDes = 0, y1MeshDes = 0, x2MeshDes = 0, y2MeshDes = 0;

namespace {

constexpr int latoMesh = 100;

int colonne(const Mesh& m) { return std::clamp<int>(m.nx, 0, latoMesh); }
int righe(const Mesh& m) { return std::clamp<int>(m.ny, 0, latoMesh); }

void boxMesh(const Mesh& m, double& x1, double& y1, double& x2, double& y2) {
    x1 = y1 = 1e99;
    x2 = y2 = -1e99;
    for (int r = 0; r < righe(m); ++r)
        for (int c = 0; c < colonne(m); ++c) {
            x1 = std::min(x1, m.x[r][c]);
            y1 = std::min(y1, m.y[r][c]);
            x2 = std::max(x2, m.x[r][c]);
            y2 = std::max(y2, m.y[r][c]);
        }
}

}   // namespace

bool VerificaMesh() {
    struct Prova {
        bool guasta;
        std::int16_t errore;
    };
    const bool pict = Puntosel.indice >= 3 && Puntosel.indice <= indElem && Elem(Puntosel.indice).tipo == tPict
                      && Puntosel.oggetto < oMeshOrigine;
    const Prova prove[] = {
        {Puntosel.multipla != 0, 34},
        {!pict, 35},
        {meshOrigine.nx == 0 || meshOrigine.ny == 0, 36},
        {meshDestinazione.nx == 0 || meshDestinazione.ny == 0, 37},
        {meshOrigine.nx != meshDestinazione.nx || meshOrigine.ny != meshDestinazione.ny, 38},
    };
    for (const Prova& p : prove) {
        if (!p.guasta) continue;
        ErroreAlert(p.errore);
        return false;
    }
    return true;
}

void CalcolaVerticiMesh(const elemento& pict) {
    BaseDi(pict);
    boxMesh(meshOrigine, x1MeshOr, y1MeshOr, x2MeshOr, y2MeshOr);
    boxMesh(meshDestinazione, x1MeshDes, y1MeshDes, x2MeshDes, y2MeshDes);
    x1Pict = x1MeshOr;
    y1Pict = y1MeshOr;
    x2Pict = x2MeshOr;
    y2Pict = y2MeshOr;
    x1PosPict = x1Pict - x1PictBase;
    y1PosPict = y1Pict - y1PictBase;
    x2PosPict = x2Pict - x1PictBase;
    y2PosPict = y2Pict - y1PictBase;
    x1Pict2 = x1MeshDes;
    y1Pict2 = y1MeshDes;
    x2Pict2 = x2MeshDes;
    y2Pict2 = y2MeshDes;
    const double ratioX = (x2MeshDes - x1MeshDes) / (x2MeshOr - x1MeshOr);
    // Kept: the divisor takes the X of the corner. The density of the source hangs on it, and so does every pixel.
    const double ratioY = (y2MeshDes - y1MeshDes) / (y2MeshOr - x1MeshOr);
    CalcolaMisure(ratioX, ratioY);
}

// --- control and destination points while the cells take their places

namespace {

constexpr std::int16_t angoli = 4;
std::array<Coppia, angoli> xyat;   // control points 1 to 4
ActiveAttach prima;                // destination points, and what was prepared from them

}   // namespace

void SaveAttachPoints() {
    for (std::int16_t n = 1; n <= angoli; ++n) xyat[static_cast<std::size_t>(n - 1)] = LeggiAttacco(n);
    prima = attaccoAttivo;
}

void RestoreAttachPoints() {
    for (std::int16_t n = 1; n <= angoli; ++n) {
        const Coppia& p = xyat[static_cast<std::size_t>(n - 1)];
        AssegnaAttacco(n, p.x, p.y);
    }
    attaccoAttivo = prima;
}

// --- the walk

namespace {

using Cella = std::array<Coppia, angoli>;

Cella cella(const Mesh& m, int r, int c) {
    return {{{m.x[r][c], m.y[r][c]},
             {m.x[r][c + 1], m.y[r][c + 1]},
             {m.x[r + 1][c + 1], m.y[r + 1][c + 1]},
             {m.x[r + 1][c], m.y[r + 1][c]}}};
}

void preparaCella(const Cella& src, const Cella& dst) {
    // Kept: the last index is one behind the closed ring, so what stands there counts as a vertex too; it is left alone.
    constexpr std::int32_t ultimo = 5;
    for (std::size_t i = 0; i < angoli; ++i) {
        const auto n = static_cast<std::int16_t>(i + 1);
        AssegnaAttacco(n, src[i].x, src[i].y);
        attaccoAttivo.SetXYAtt(static_cast<std::int16_t>(n - 1), dst[i].x, dst[i].y);
        Xtaglio[i] = src[i].x;
        Ytaglio[i] = src[i].y;
    }
    Xtaglio[angoli] = src[0].x;
    Ytaglio[angoli] = src[0].y;
    ultimoTaglio = ultimo;
    const SenzaTraccia muto;
    ErroreAlert(attaccoAttivo.PreparaAttacco());
}

}   // namespace

void PreparaCella(int r, int c) { preparaCella(cella(meshOrigine, r, c), cella(meshDestinazione, r, c)); }

namespace {

// The part of the source where a pixel of the polygon can be: its box, with a margin for the rounding of crossings.
Rect parteDelPoligono(const Piano& p) {
    constexpr double margine = 3;
    double x1 = 1e99, y1 = 1e99, x2 = -1e99, y2 = -1e99;
    for (std::size_t i = 0; i <= static_cast<std::size_t>(ultimoTaglio); ++i) {
        if (!std::isfinite(Xtaglio[i]) || !std::isfinite(Ytaglio[i])) return pictRect;
        x1 = std::min(x1, Xtaglio[i]);
        y1 = std::min(y1, Ytaglio[i]);
        x2 = std::max(x2, Xtaglio[i]);
        y2 = std::max(y2, Ytaglio[i]);
    }
    const double singola = 1e-6 * std::max(std::fabs(x1), std::fabs(x2));
    const auto in = [](double v, double limite) { return static_cast<std::int32_t>(std::clamp(v, 0.0, limite)); };
    const auto colonna = [&](double x, double di) { return in((x - p.x1PictBase) / p.stepS + di, rectGW.right); };
    const auto riga = [&](double y, double di) { return in((y - p.y1PictBase) / p.stepS + di, rectGW.bottom); };
    return SectRect(pictRect, Rect{riga(y1, -margine), colonna(x1 - singola, -margine), riga(y2, margine),
                                   colonna(x2 + singola, margine)});
}

}   // namespace

EsitoPercorso TrasformaBitMapMesh(Sorgente& sorgente, Tela& risultato, LavoroRaster& lavoro) {
    SaveAttachPoints();
    tipoTaglio = 1;
    const int nx = colonne(meshOrigine), ny = righe(meshOrigine);
    numQudrilateri = static_cast<std::int16_t>(std::max(0, (nx - 1) * (ny - 1)));
    EsitoPercorso esito = EsitoPercorso::fatto;
    for (int r = 0; r < ny - 1 && esito == EsitoPercorso::fatto; ++r)
        for (int c = 0; c < nx - 1 && esito == EsitoPercorso::fatto; ++c) {
            PreparaCella(r, c);
            const Piano piano = PianoDelLavoro(risultato);
            const int parte = (nx - 1) * r + c;
            esito = Percorri(
                {sorgente, risultato, piano, MappaturaAttiva(), parteDelPoligono(piano), TaglioWalk::sorgente, nullptr},
                [&](double f) { return lavoro.passo((parte + f) / numQudrilateri); });
        }
    RestoreAttachPoints();
    return esito;
}

bool PictureToPixMapMesh(PicHandle pict) {
    if (morbida && meshOrigine.nx > 1 && meshOrigine.ny > 1) return MeshMorbida(pict);
    // A mesh without cells has a box without area: its blank picture has a pixel at least.
    if (colonne(meshOrigine) < 2 || righe(meshOrigine) < 2) {
        larghBitMap = std::max(larghBitMap, 1);
        altBitMap = std::max(altBitMap, 1);
    }
    MisuraRaster(true);
    LavoroRaster lavoro(deformProspettica != 0);
    const bool celle = colonne(meshOrigine) > 1 && righe(meshOrigine) > 1;
    const bool possibile = !EmptyRect(rectGW2) && (!celle || SorgentePossibile());
    // Every cell asks for its rows again: the picture is unpacked once where there is room.
    const std::int64_t spazio = std::min<std::int64_t>(FreeMemory() / 2, 600LL << 20);
    const auto sorgente = possibile ? std::make_unique<Sorgente>(PictBytes(pict), std::max(mapSizeX, 1U),
                                                                 std::max(mapSizeY, 1U), bitColore, spazio)
                                    : nullptr;
    Tela risultato;
    if (!sorgente || !sorgente->leggibile()
        || !NuovaTela(risultato, larghBitMap, altBitMap, sorgente->formato(), true)) {
        AvvisoMemoria(MemoriaChiesta());
        return false;
    }
    const EsitoPercorso esito = TrasformaBitMapMesh(*sorgente, risultato, lavoro);
    if (esito == EsitoPercorso::memoria) AvvisoMemoria(MemoriaChiesta());
    if (esito != EsitoPercorso::fatto) return false;
    destRect = rectGW2;
    return AggiungiImmagine(lavoro, ImmagineDaTela(risultato, sorgente->formato(), FrameDi(risultato), tipoPitc),
                            x1Pict2, y1Pict2, x2MeshDes - x1MeshDes, y2MeshDes - y1MeshDes);
}

}   // namespace tessaro
