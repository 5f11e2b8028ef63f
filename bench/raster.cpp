// The raster engine at 20 megapixels, on one thread: the forward walk against the plain loop over every source pixel and
// against OpenCV's warps, the walks that ask back, and the meshes against a single quadrilateral. Times are those of the
// processor; the last rows show two threads by the clock. Without OpenCV its rows are left out and said to be.
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
#include <random>
#include <vector>

#ifdef CON_OPENCV
#include <opencv2/imgproc.hpp>
#endif

#include "bitmap/PerRighe.h"
#include "digitising/Attacchi.h"
#include "Misure.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Mesh.h"
#include "model/Penna.h"
#include "model/Stato.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "platform/pict/Pict.h"
#include "raster/Indietro.h"
#include "raster/Lavoro.h"
#include "raster/Morbida.h"
#include "raster/Percorri.h"
#include "raster/raster.h"
#include "raster/RettificaMesh.h"
#include "registration/attaccoDinamico.h"
#include "registration/gauss.h"
#include "registration/PuntiControllo.h"

using namespace tessaro;

namespace {

constexpr std::int32_t larghezza = 5200, altezza = 3900;   // 20.3 megapixels
constexpr double pixelTotali = double(larghezza) * altezza;

double secondi(clockid_t orologio) {
    timespec t{};
    clock_gettime(orologio, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

// The best of some runs, seconds.
double migliore(int volte, const std::function<void()>& lavoro, clockid_t orologio = CLOCK_PROCESS_CPUTIME_ID) {
    double meglio = 1e9;
    for (int i = 0; i < volte; ++i) {
        const double inizio = secondi(orologio);
        lavoro();
        meglio = std::min(meglio, secondi(orologio) - inizio);
    }
    return meglio;
}

void riga(const char* che, double s, double n, const char* limite) {
    std::printf("%-44s %9.1f ms %8.2f ns/pixel   %s\n", che, s * 1e3, s * 1e9 / n, limite);
}
void rapporto(const char* che, double a, double b, const char* limite) {
    std::printf("%-44s %24.2f times   %s\n", che, a / b, limite);
}

std::int32_t scena() {
    AzzeraStato();
    if (!AllocaElementi(100)) misure::fallito("the store");
    AzzeraArchivio();
    std::vector<std::uint32_t> p(static_cast<std::size_t>(pixelTotali));
    for (std::int32_t y = 0; y < altezza; ++y)   // long runs, so that the packed picture stays small
        for (std::int32_t x = 0; x < larghezza; ++x)
            p[static_cast<std::size_t>(y) * larghezza + static_cast<std::size_t>(x)] =
                0xFF000000U | static_cast<std::uint32_t>((x / 37 * 0x10305) ^ (y / 29 * 0x50109)) % 0xFFFFFF;
    // One pixel a sheet unit and a bit: the result comes out as large as the source.
    Memorizza(tPict, 0, 0, 0, larghezza, altezza, 0, 1, 1, 1, PStr255(""));
    Elem(indElem).pict.maniglia = NewPict(PictDaPixel(p.data(), larghezza, altezza));
    return indElem;
}

const std::array<Coppia, 4> sorgenti{{{0, altezza}, {0, 0}, {larghezza, 0}, {larghezza, altezza}}};
const std::array<Coppia, 4> destinazioni{{{60, 3890}, {10, 40}, {5150, 5}, {5195, 3800}}};

void registra() {
    attaccoAttivo.tipo = 1;
    for (std::size_t i = 0; i < 4; ++i) {
        AssegnaAttacco(static_cast<std::int16_t>(i + 1), sorgenti[i].x, sorgenti[i].y);
        attaccoAttivo.SetXYAtt(static_cast<std::int16_t>(i), destinazioni[i].x, destinazioni[i].y);
    }
    const SenzaTraccia muto;
    attaccoAttivo.PreparaAttacco();
}

void plana(const Tela& src, Tela& dst, const Piano& q) {
    for (std::int32_t v = pictRect.top; v < pictRect.bottom; ++v)
        for (std::int32_t h = pictRect.left; h < pictRect.right; ++h) {
            double x = q.x1PictBase + h * q.stepS, y = q.y1PictBase + v * q.stepS;
            attaccoAttivo.Traf4Pt(x, y);
            const double dh = std::trunc((x - q.x1Pict2) * q.stepD), dv = std::trunc((y - q.y1Pict2) * q.stepD);
            if (!(dh >= 0 && dh < dst.larghezza && dv >= 0 && dv < dst.altezza)) continue;
            std::memcpy(dst.riga(static_cast<std::int32_t>(dv)) + static_cast<std::size_t>(dh) * 4,
                        src.riga(v) + static_cast<std::size_t>(h) * 4, 4);
        }
}

bool uguali(const Tela& a, const Tela& b) {
    for (std::int32_t y = 0; y < a.altezza; ++y)
        if (std::memcmp(a.riga(y), b.riga(y), static_cast<std::size_t>(a.larghezza) * 4) != 0) return false;
    return true;
}

#ifdef CON_OPENCV
cv::Mat matrice(const Tela& t) {
    return {t.altezza, t.larghezza, CV_8UC4, t.dati.get(), static_cast<std::size_t>(t.rowBytes)};
}

cv::Mat prospettiva(double scala) {
    std::vector<cv::Point2f> a, b;
    for (std::size_t i = 0; i < 4; ++i) {
        a.emplace_back(float(sorgenti[i].x * scala), float(sorgenti[i].y * scala));
        b.emplace_back(float((destinazioni[i].x - x1Pict2) * scala), float((destinazioni[i].y - y1Pict2) * scala));
    }
    return cv::getPerspectiveTransform(a, b);
}
#endif

}   // namespace

int main() {
    filiRaster = 1;
    const std::int32_t n = scena();
    registra();
    coeffRisoluzione = DecPunto;   // a result pixel a sheet unit
    CalcolaVertici(Elem(n), 0);
    MisuraRaster(false);
    const std::string& pict = PictBytes(Elem(n).pict.maniglia);
    Sorgente densa(pict, mapSizeX, mapSizeY, 32, 1LL << 30);
    Tela avuta, attesa, propria;
    if (!NuovaTela(avuta, larghBitMap, altBitMap, densa.formato(), true)
        || !NuovaTela(attesa, larghBitMap, altBitMap, densa.formato(), true))
        misure::fallito("the buffers");
    const double densi = double(mapSizeX) * mapSizeY;
    const auto sempre = [](double) { return true; };
    const Percorso cammino{densa,  avuta, PianoDelLavoro(avuta), MappaturaAttiva(), pictRect, TaglioWalk::nessuno,
                           nullptr};
    std::printf("source %d x %d, drawn %u x %u, result %d x %d\n\n", larghezza, altezza, mapSizeX, mapSizeY,
                larghBitMap, altBitMap);

    const double avanti = migliore(3, [&] { (void)Percorri(cammino, sempre); });
    riga("forward walk, drawing included", avanti, densi, "at most 2.5");
    {
        Tela tutta;
        if (!densa.intera(tutta)) misure::fallito("the dense source");
        const double piano = migliore(1, [&] { plana(tutta, attesa, cammino.piano); });
        riga("plain loop, drawing not included", piano, densi, "");
        rapporto("plain loop over forward walk", piano, avanti, "at least 3");
        std::printf("%-44s %30s\n", "the same pixels", uguali(avuta, attesa) ? "yes" : "NO");
    }

    Sorgente unoAUno(pict, larghezza, altezza, 32, 1LL << 30);
    if (!unoAUno.intera(propria)) misure::fallito("the source");
    Tela dst;
    if (!NuovaTela(dst, larghezza, altezza, unoAUno.formato(), true)) misure::fallito("the result");
    const double lente = migliore(3, [&] {
        (void)PercorriIndietro(propria, dst, RichiestaLente({-4, -4, 3, 3}, propria), sempre);
    });
    riga("lens", lente, pixelTotali, "at most 5");
    const double c = std::cos(0.3), s = std::sin(0.3);
    const Giro giro{c, s, static_cast<std::int32_t>(-s * altezza), 0};
    Tela girata;
    const auto gw = static_cast<std::int32_t>(c * larghezza + s * altezza),
               gh = static_cast<std::int32_t>(s * larghezza + c * altezza);
    if (!NuovaTela(girata, gw, gh, unoAUno.formato(), true)) misure::fallito("the turned frame");
    const double rotazione =
        migliore(3, [&] { (void)PercorriIndietro(propria, girata, RichiestaGiro(giro, propria), sempre); });
    riga("rotation by 17 degrees", rotazione, double(gw) * gh, "at most 1.6");

    Campioni campioni;
    if (!campioni.carica(pict, larghezza, altezza)) misure::fallito("the picture's pixels");
    CampoInverso campo;
    campo.larghezza = larghezza;
    campo.altezza = altezza;
    if (!CampoDellaMappa(cammino.mappa, cammino.piano, 1, 1, campo)) misure::fallito("the way back");
    const Ricampionamento liscio{campioni, campo, avuta, densa.formato(), rectGW2};
    const double morbido = migliore(2, [&] { (void)Ricampiona(liscio, sempre); });
    riga("smooth", morbido, pixelTotali, "");

    const auto griglia = [&](Mesh& m, int lato, const std::array<Coppia, 4>& q) {
        m.nx = m.ny = static_cast<std::int16_t>(lato);
        for (int r = 0; r < lato; ++r)
            for (int k = 0; k < lato; ++k) {
                const double u = double(r) / (lato - 1), w = double(k) / (lato - 1);
                m.x[r][k] = (1 - u) * ((1 - w) * q[0].x + w * q[1].x) + u * ((1 - w) * q[3].x + w * q[2].x);
                m.y[r][k] = (1 - u) * ((1 - w) * q[0].y + w * q[1].y) + u * ((1 - w) * q[3].y + w * q[2].y);
            }
    };
    double perMesh[2] = {0, 0};
    for (int k = 0; k < 2; ++k) {
        const int lato = k == 0 ? 2 : 21;
        griglia(meshOrigine, lato, sorgenti);
        griglia(meshDestinazione, lato, destinazioni);
        CalcolaVerticiMesh(Elem(n));
        MisuraRaster(true);
        Sorgente perCelle(pict, mapSizeX, mapSizeY, 32, 1LL << 30);
        Tela risultato;
        if (!NuovaTela(risultato, larghBitMap, altBitMap, perCelle.formato(), true)) misure::fallito("the result");
        LavoroRaster lavoro;
        perMesh[k] = migliore(2, [&] { (void)TrasformaBitMapMesh(perCelle, risultato, lavoro); });
    }
    riga("single quadrilateral by mesh", perMesh[0], densi, "");
    riga("mesh of 20 by 20 cells", perMesh[1], densi, "");
    rapporto("cells over single quadrilateral", perMesh[1], perMesh[0], "at most 3");

#ifdef CON_OPENCV
    cv::setNumThreads(1);
    registra();
    CalcolaVertici(Elem(n), 0);
    MisuraRaster(false);
    const cv::Mat da = matrice(propria);
    cv::Mat a;
    const cv::Mat m = prospettiva(1);
    const cv::Size misura(larghBitMap, altBitMap);
    const double vicino = migliore(3, [&] { cv::warpPerspective(da, a, m, misura, cv::INTER_NEAREST); });
    riga("OpenCV's nearest warp", vicino, pixelTotali, "");
    const double turno[] = {c, -s, s * altezza, s, c, 0};
    const cv::Mat affine(2, 3, CV_64F, const_cast<double*>(turno));
    const double cvGiro = migliore(3, [&] { cv::warpAffine(da, a, affine, cv::Size(gw, gh), cv::INTER_NEAREST); });
    riga("OpenCV's nearest rotation", cvGiro, double(gw) * gh, "");
    rapporto("rotation over OpenCV's", rotazione, cvGiro, "at most 1");
    const double cubico = migliore(2, [&] { cv::warpPerspective(da, a, m, misura, cv::INTER_CUBIC); });
    riga("OpenCV's cubic warp", cubico, pixelTotali, "");
    rapporto("smooth over OpenCV's cubic", morbido, cubico, "at most 1.5");
    filiRaster = 2;
    cv::setNumThreads(2);
    const double due = migliore(
        3, [&] { (void)Percorri(cammino, sempre); }, CLOCK_MONOTONIC);
    const double cvDue = migliore(
        3, [&] { cv::warpPerspective(da, a, m, misura, cv::INTER_NEAREST); }, CLOCK_MONOTONIC);
    filiRaster = 1;
    std::printf("\nby the clock\n");
    riga("forward walk on two threads", due, densi, "");
    riga("OpenCV's nearest warp on two threads", cvDue, pixelTotali, "");
    rapporto("forward walk on two threads over OpenCV's on one", due, vicino, "at most 1");
#else
    std::puts("OpenCV is not installed (libopencv-dev): its rows are left out");
#endif
    return 0;
}
