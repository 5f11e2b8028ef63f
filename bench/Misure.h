// What the benches of file formats share: a clock, files that vanish, the floors of reading and writing, and the table.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

#include "platform/Files.h"
#include "text/FileDati.h"

namespace misure {

using namespace tessaro;

[[noreturn]] inline void fallito(const char* che) {
    std::fprintf(stderr, "%s failed\n", che);
    std::exit(1);
}

// In TMPDIR or the system's folder for such files; removed at the end.
struct FileBreve {
    std::string percorso;
    explicit FileBreve(const char* nome) {
        const char* dove = std::getenv("TMPDIR");
        percorso = (dove ? dove : std::filesystem::temp_directory_path().string()) + "/" + nome;
    }
    ~FileBreve() { std::filesystem::remove(percorso); }
    FileBreve(const FileBreve&) = delete;
    FileBreve& operator=(const FileBreve&) = delete;
    void riempi(std::string_view byte) const { std::ofstream(percorso, std::ios::binary) << byte; }
};

inline double millisecondi(const std::function<void()>& lavoro) {
    using Orologio = std::chrono::steady_clock;
    const auto inizio = Orologio::now();
    lavoro();
    return std::chrono::duration<double, std::milli>(Orologio::now() - inizio).count();
}

// The floor of reading: every byte is looked at once, and line ends are found. No file, no memory written.
inline std::uint64_t passeggia(std::string_view byte) {
    std::uint64_t righe = 0, somma = 0;
    for (const char c : byte) {
        if (c == '\n' || c == '\r')
            ++righe;
        else
            somma += static_cast<std::uint8_t>(c);
    }
    return somma * 31 + righe;
}

// The floor of writing: the same bytes in one call, on the disk for good as a saved file is.
inline void scriviInUnColpo(const std::string& file, std::string_view byte) {
    const int fd = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (fd < 0 || ::write(fd, byte.data(), byte.size()) != static_cast<ssize_t>(byte.size()) || ::fsync(fd) != 0)
        fallito("the plain write");
    ::close(fd);
}

inline void apri(const std::string& file) {
    if (FSpOpenDF(FSMakeFSSpec(file), fsRdPerm, RefNum) != noErr) fallito("the opening");
}

// Opens a new file, lets `scrittura` fill it and puts it in place.
template <class Scrittura>
void scriviFile(const std::string& file, Scrittura scrittura) {
    uscita = 0;
    if (FSpOpenReplacing(FSMakeFSSpec(file), tipoDi("ttxt"), tipoDi("TEXT"), RefNum) != noErr) fallito("the opening");
    scrittura();
    if (uscita != 0 || FSClose(RefNum) != noErr) fallito("the writing");
}

inline std::string contenuto(const std::string& file) {
    std::string s(static_cast<std::size_t>(std::filesystem::file_size(file)), ' ');
    std::ifstream(file, std::ios::binary).read(s.data(), static_cast<std::streamsize>(s.size()));
    return s;
}

// One comparison: `limite` is the ratio that is still good.
inline void riga(const char* che, const std::vector<double>& nostro, const char* base, const std::vector<double>& altri,
                 double limite) {
    const double a = *std::min_element(nostro.begin(), nostro.end()), b = *std::min_element(altri.begin(), altri.end());
    std::printf("%-22s %8.1f ms   %-16s %8.1f ms   ratio %6.2f   limit %5.1f\n", che, a, base, b, a / b, limite);
}

}   // namespace misure
