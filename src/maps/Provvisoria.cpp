// Making, emptying and removing the folder.
#include "maps/Provvisoria.h"

#include <algorithm>
#include <filesystem>

#include "platform/StateFiles.h"

namespace fs = std::filesystem;

namespace tessaro {

CartellaProvvisoria::CartellaProvvisoria(const std::string& accanto) {
    std::error_code e;
    casa = fs::absolute(fs::path(accanto), e).parent_path().string();
    constexpr int prove = 100;
    for (int i = 0; i < prove && dove.empty(); ++i) {
        const fs::path p =
            fs::path(casa) / (".tessaro-map-" + std::to_string(ProcessNumber()) + "-" + std::to_string(i));
        if (fs::create_directory(p, e)) dove = p.string();
    }
}

CartellaProvvisoria::~CartellaProvvisoria() {
    std::error_code e;
    if (buona()) fs::remove_all(dove, e);
}

std::string CartellaProvvisoria::percorso(const std::string& nome) const { return (fs::path(dove) / nome).string(); }

std::vector<std::string> CartellaProvvisoria::nomi() const {
    std::vector<std::string> n;
    std::error_code e;
    for (const fs::directory_entry& f : fs::directory_iterator(dove, e)) n.push_back(f.path().filename().string());
    std::sort(n.begin(), n.end());
    return n;
}

std::vector<std::string> CartellaProvvisoria::giaPresenti() const {
    std::vector<std::string> n = nomi();
    std::error_code e;
    std::erase_if(n, [&](const std::string& nome) { return !fs::exists(fs::path(casa) / nome, e); });
    return n;
}

bool CartellaProvvisoria::sposta() const {
    const std::vector<std::string> n = nomi();
    return std::all_of(n.begin(), n.end(), [this](const std::string& nome) {
        std::error_code e;
        fs::rename(fs::path(dove) / nome, fs::path(casa) / nome, e);
        return !e;
    });
}

}   // namespace tessaro
