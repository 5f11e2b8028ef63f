// What killed saves of a document left beside it.
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

bool prima(const timespec& a, const timespec& b) {
    return a.tv_sec != b.tv_sec ? a.tv_sec < b.tv_sec : a.tv_nsec < b.tv_nsec;
}

}   // namespace

std::string RadiceVicino(const std::string& nome) {
    constexpr std::size_t massimo = 200;   // a long name leaves no room for the ending, which alone tells two apart
    return "." + nome.substr(0, massimo) + ".";
}

void TogliViciniVecchi(const std::string& percorso) {
    namespace fs = std::filesystem;
    struct stat documento {};
    if (::stat(percorso.c_str(), &documento) != 0) return;
    const fs::path p(percorso);
    const std::string radice = RadiceVicino(p.filename().string());
    constexpr std::size_t coda = 6;   // characters that tell neighbours apart
    std::error_code guasto;
    for (const auto& f : fs::directory_iterator(p.has_parent_path() ? p.parent_path() : fs::path("."), guasto)) {
        const std::string nome = f.path().filename().string();
        struct stat s {};
        if (nome.size() != radice.size() + coda || nome.compare(0, radice.size(), radice) != 0) continue;
        if (::lstat(f.path().c_str(), &s) != 0 || !S_ISREG(s.st_mode) || !prima(s.st_mtim, documento.st_mtim)) continue;
        ::unlink(f.path().c_str());
    }
}

}   // namespace tessaro
