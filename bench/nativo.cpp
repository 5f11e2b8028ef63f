// How long a drawing of a million elements takes to save and to load, against what no format can undercut: one write of
// as many bytes, and one read of them into fresh memory with the fields turned in place. Prints the ratios at the end.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <string>
#include <unistd.h>
#include <vector>

#include "files/Nativo.h"
#include "files/Richieste.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/TabellaStato.h"
#include "text/FileDati.h"

namespace {

using namespace tessaro;

constexpr std::int32_t quanti = 1'500'000;
constexpr int volte = 9;

std::string cartella() {
    const char* dove = std::getenv("TMPDIR");
    return dove ? dove : std::filesystem::temp_directory_path().string();
}

// A survey sheet: mostly polylines, some markers, segments, circles and texts.
void riempi() {
    AzzeraArchivio();
    for (std::int32_t i = 0; indElem < quanti; ++i) {
        const double x = i % 4000, y = (i * 7) % 2900;
        switch (i % 8) {
        case 0: Memorizza(tSegmento, x, y, 0, x + 5, y + 5, 0, 1, 1, 1, ""); break;
        case 1: Memorizza(tMarker, x, y, 0, 1, 0, 0, 1, 1, 1, ""); break;
        case 2: Memorizza(tCerchio, x, y, 4, 0, 0, 0, 1, 1, 1, ""); break;
        case 3: Memorizza(tTesto, x, y, 0, 0, 0, 0, 1, 1, 100, "12.34"); break;
        default:
            Memorizza(tPoligono, x, y, 0, 0, 0, 0, 1, 1, 1, "");
            for (int v = 1; v < 12; ++v) Memorizza(tVertice, x + v, y + v, 0, 0, 0, 0, 1, 1, 1, "");
        }
    }
}

double millisecondi(const std::function<void()>& lavoro) {
    using Orologio = std::chrono::steady_clock;
    const auto inizio = Orologio::now();
    lavoro();
    return std::chrono::duration<double, std::milli>(Orologio::now() - inizio).count();
}

void fallito(const char* che) {
    std::fprintf(stderr, "%s failed\n", che);
    std::exit(1);
}

void scriviInUnColpo(const std::string& file, const std::vector<char>& byte) {
    const int fd = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (fd < 0 || ::write(fd, byte.data(), byte.size()) != static_cast<ssize_t>(byte.size()) || ::fsync(fd) != 0)
        fallito("the plain write");
    ::close(fd);
}

void leggiInUnColpo(const std::string& file) {
    const auto n = static_cast<std::size_t>(std::filesystem::file_size(file));
    auto* byte = static_cast<char*>(std::malloc(n));
    const int fd = ::open(file.c_str(), O_RDONLY);
    if (fd < 0 || !byte || ::read(fd, byte, n) != static_cast<ssize_t>(n)) fallito("the plain read");
    ::close(fd);
    auto* record = reinterpret_cast<elemento*>(byte + 19);
    for (std::int32_t i = 0; i < quanti; ++i) TrasformaElemBtoN(record[i]);
    std::free(byte);
}

void salva(const std::string& file) {
    theItem = rSalva;
    uscita = 0;
    if (FSpOpenReplacing(FSMakeFSSpec(file), creatoreTSC3, tipoTS3D, RefNum) != noErr) fallito("the save");
    Scrividati();
    if (FSClose(RefNum) != noErr) fallito("the save");
}

void carica(const std::string& file) {
    std::free(ArrElementi);   // both loads pay for fresh memory
    ArrElementi = nullptr;
    if (!AllocaElementi(quanti + 10)) fallito("the store");
    AzzeraArchivio();
    theItem = rApri;
    uscita = 0;
    if (FSpOpenDF(FSMakeFSSpec(file), fsRdPerm, RefNum) != noErr) fallito("the load");
    leggidati();
    FSClose(RefNum);
    if (indElem < quanti) fallito("the load");
}

void riga(const char* che, std::vector<double> nostro, std::vector<double> base) {
    std::sort(nostro.begin(), nostro.end());
    std::sort(base.begin(), base.end());
    std::printf("%-6s  %8.1f ms  floor %8.1f ms  ratio of medians %.2f, of minima %.2f\n", che, nostro[volte / 2],
                base[volte / 2], nostro[volte / 2] / base[volte / 2], nostro[0] / base[0]);
}

}   // namespace

int main() {
    AzzeraStato();
    noWindow = 0;
    if (!AllocaElementi(quanti + 10)) fallito("the store");
    riempi();
    const std::string nostro = cartella() + "/tessaro-bench.ts3d", grezzo = cartella() + "/tessaro-bench.raw";
    salva(nostro);
    const std::vector<char> byte(static_cast<std::size_t>(std::filesystem::file_size(nostro)), 'x');
    // In turns, so that both meet the same disk.
    std::vector<double> s, sBase, c, cBase;
    for (int i = 0; i < volte; ++i) {
        s.push_back(millisecondi([&] { salva(nostro); }));
        sBase.push_back(millisecondi([&] { scriviInUnColpo(grezzo, byte); }));
        cBase.push_back(millisecondi([&] { leggiInUnColpo(nostro); }));
        c.push_back(millisecondi([&] { carica(nostro); }));
    }
    std::printf("%d elements, %.0f MB\n", quanti, static_cast<double>(byte.size()) / 1e6);
    riga("save", s, sBase);
    riga("load", c, cBase);
    std::filesystem::remove(nostro);
    std::filesystem::remove(grezzo);
    return 0;
}
