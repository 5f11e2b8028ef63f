// A drawing printed to a PDF file and measured by another program, poppler.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

#include "display/Stampa.h"

namespace prova {

inline std::string diConsole(const std::string& comando) {
    std::string s;
    std::FILE* f = popen((comando + " 2>/dev/null").c_str(), "r");
    if (f == nullptr) return s;
    std::array<char, 65536> pezzo;
    while (const std::size_t n = std::fread(pezzo.data(), 1, pezzo.size(), f)) s.append(pezzo.data(), n);
    pclose(f);
    return s;
}

inline bool cePoppler() { return std::system("pdftoppm -v >/dev/null 2>&1") == 0; }
#define SENZA_POPPLER_SALTA                                                                                            \
    if (!prova::cePoppler()) GTEST_SKIP() << "poppler-utils is not installed"

// A part of a page, 0 black to 255 white. Places are millimetres from the page's top left.
struct Resa {
    int larga = 0, alta = 0;
    double perMm = 1, daX = 0, daY = 0;
    std::string pixel;
    [[nodiscard]] int in(int x, int y) const {
        return static_cast<unsigned char>(
            pixel[static_cast<std::size_t>(y) * static_cast<std::size_t>(larga) + static_cast<std::size_t>(x)]);
    }
    struct Estremi {
        double x1 = 1e9, y1 = 1e9, x2 = -1e9, y2 = -1e9;
    };
    // Where the ink reaches, edges taken where half a pixel is covered.
    [[nodiscard]] Estremi inchiostro() const {
        Estremi e;
        for (int y = 0; y < alta; ++y)
            for (int x = 0; x < larga; ++x) {
                if (in(x, y) > 127) continue;
                e.x1 = std::min(e.x1, daX + x / perMm);
                e.x2 = std::max(e.x2, daX + (x + 1) / perMm);
                e.y1 = std::min(e.y1, daY + y / perMm);
                e.y2 = std::max(e.y2, daY + (y + 1) / perMm);
            }
        return e;
    }
};

class Pdf {
public:
    std::string percorso;

    Pdf() {
        static int quanti = 0;
        percorso = (std::filesystem::temp_directory_path()
                    / ("tessaro-carta-" + std::to_string(getpid()) + "-" + std::to_string(++quanti) + ".pdf"))
                       .string();
    }
    ~Pdf() { std::filesystem::remove(percorso); }
    Pdf(const Pdf&) = delete;
    Pdf& operator=(const Pdf&) = delete;

    // Prints what is open onto paper of this size, mm.
    tessaro::OSStatus stampa(double larga, double alta, int prima = 1, int ultima = tessaro::paginaFinale) const {
        using namespace tessaro;
        PMPageFormat f;
        f.larghezza = larga;
        f.altezza = alta;
        PMPrintSettings s;
        s.luogo = percorso;
        s.prima = prima;
        s.ultima = ultima;
        PMFlattenPageFormat(f, hPageFormat);
        PMFlattenPrintSettings(s, hPrintSettings);
        return DoPrint();
    }
    [[nodiscard]] std::string info(const std::string& voce) const {
        const std::string tutto = diConsole("pdfinfo " + percorso);
        const std::size_t dove = tutto.find(voce + ":");
        if (dove == std::string::npos) return {};
        const std::size_t da = tutto.find_first_not_of(' ', dove + voce.size() + 1);
        return tutto.substr(da, tutto.find('\n', da) - da);
    }
    [[nodiscard]] int pagine() const { return std::atoi(info("Pages").c_str()); }

    [[nodiscard]] Resa resa(int pagina, double dpi, double x = 0, double y = 0, double w = 0, double h = 0) const {
        Resa r;
        r.perMm = dpi / 25.4;
        const auto px = [&](double mm) { return std::to_string(static_cast<int>(mm * r.perMm)); };
        r.daX = static_cast<int>(x * r.perMm) / r.perMm;
        r.daY = static_cast<int>(y * r.perMm) / r.perMm;
        std::string c = "pdftoppm -gray -r " + std::to_string(dpi) + " -f " + std::to_string(pagina) + " -l "
                        + std::to_string(pagina);
        if (w > 0) c += " -x " + px(x) + " -y " + px(y) + " -W " + px(w) + " -H " + px(h);
        const std::string pgm = diConsole(c + " " + percorso);
        int testa = 0;
        if (std::sscanf(pgm.c_str(), "P5 %d %d 255%n", &r.larga, &r.alta, &testa) < 2 || testa == 0) {
            ADD_FAILURE() << "no page " << pagina << " in " << percorso;
            r.larga = r.alta = 0;
            return r;
        }
        r.pixel = pgm.substr(static_cast<std::size_t>(testa) + 1);
        return r;
    }
};

}   // namespace prova
