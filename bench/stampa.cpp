// A page of 100,000 segments to a PDF file, against writing the same path operators, packed as a PDF packs them; and what
// memory the print of a great scan takes.
#include <array>
#include <charconv>
#include <random>

#include <QByteArray>

#include "display/Stampa.h"
#include "Misure.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "platform/Automation.h"
#include "platform/pict/Pict.h"

namespace {

using namespace misure;

constexpr int quanti = 100'000, volte = 5;
constexpr std::int32_t latoScansione = 10'000;   // 100 megapixels

struct Tratto {
    double x1, y1, x2, y2;   // points
};

// As a survey has them: short lines all over an A1 sheet, in a few colours and widths.
std::vector<Tratto> disegna() {
    std::mt19937 caso(20260101);
    std::uniform_real_distribution<double> x(0, 8400), y(0, 5900), d(-60, 60);
    std::vector<Tratto> v;
    constexpr double punto = 72 / DecPollice;
    for (int i = 0; i < quanti; ++i) {
        const double a = x(caso), b = y(caso), c = a + d(caso), e = b + d(caso);
        const std::int16_t spessoreSuo = static_cast<std::int16_t>(1 + i / 10'000 % 3);
        Memorizza(tSegmento, a, b, 0, c, e, 0, spessoreSuo, static_cast<std::int16_t>(1 + i / 20'000), 1, "");
        v.push_back({a * punto, b * punto, c * punto, e * punto});
    }
    return v;
}

void scriviOperatori(const std::vector<Tratto>& tratti, const std::string& file) {
    std::string s;
    s.reserve(tratti.size() * 40);
    const auto numero = [&s](double v) {
        std::array<char, 32> cifre;
        s.append(cifre.data(),
                 std::to_chars(cifre.data(), cifre.data() + cifre.size(), v, std::chars_format::fixed, 2).ptr);
        s += ' ';
    };
    for (const Tratto& t : tratti) {
        numero(t.x1);
        numero(t.y1);
        s += "m ";
        numero(t.x2);
        numero(t.y2);
        s += "l S\n";
    }
    const QByteArray piccolo = qCompress(reinterpret_cast<const uchar*>(s.data()), static_cast<qsizetype>(s.size()));
    std::ofstream(file, std::ios::binary).write(piccolo.constData(), piccolo.size());
}

void stampa(const std::string& file) {
    PMPageFormat f;
    f.larghezza = 900;
    f.altezza = 650;
    PMPrintSettings s;
    s.luogo = file;
    PMFlattenPageFormat(f, hPageFormat);
    PMFlattenPrintSettings(s, hPrintSettings);
    if (DoPrint() != 0) fallito("the printing");
}

long residenti(const char* voce) {   // MB
    std::ifstream stato("/proc/self/status");
    std::string parola;
    long v = 0;
    while (stato >> parola)
        if (parola == voce && stato >> v) return v / 1024;
    return 0;
}

// Grey levels with some grain, so that nothing can make it small.
void aggiungiScansione() {
    std::vector<std::uint32_t> pixel(static_cast<std::size_t>(latoScansione) * latoScansione);
    std::mt19937 caso(7);
    for (std::uint32_t& p : pixel) {
        const std::uint32_t g = 100 + caso() % 64;
        p = 0xFF000000U | g << 16 | (g + 7) << 8 | g;
    }
    Memorizza(tPict, 100, 100, 0, 5000, 5000, 0, 0, 1, 1, "");
    Elem(indElem).pict.maniglia = NewPict(PictDaPixel(pixel.data(), latoScansione, latoScansione));
}

}   // namespace

int main(int argc, char** argv) {
    Avvio avvio;
    avvio.script = true;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    StartToolbox(argc, argv, avvio);
    AzzeraStato();
    noWindow = 0;
    XFDecimi = 8410;
    YFDecimi = 5940;
    if (!AllocaElementi(quanti + 10)) fallito("the store");
    AzzeraArchivio();
    const std::vector<Tratto> tratti = disegna();
    const FileBreve pdf("tessaro-bench.pdf"), grezzo("tessaro-bench.ops");
    std::vector<double> nostro, altri;
    for (int i = 0; i < volte; ++i) {
        nostro.push_back(millisecondi([&] { stampa(pdf.percorso); }));
        altri.push_back(millisecondi([&] { scriviOperatori(tratti, grezzo.percorso); }));
    }
    riga("100,000 to PDF", nostro, "path operators", altri, 3);
    indElem = 2;
    aggiungiScansione();
    const long prima = residenti("VmRSS:");
    // The peak so far was the making of the scan.
    std::ofstream("/proc/self/clear_refs") << "5";
    const double ms = millisecondi([&] { stampa(pdf.percorso); });
    std::printf("100 megapixels: %.1f s, %ld MB before, %ld MB at most, file %ju MB   limit 1024 MB\n", ms / 1000,
                prima, residenti("VmHWM:"), std::filesystem::file_size(pdf.percorso) >> 20);
    StopToolbox();
    return 0;
}
