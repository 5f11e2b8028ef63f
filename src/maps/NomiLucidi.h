// The names of the drawing's hundred layers, as the maps of other programs have them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessaro {

std::string NomeDelLucido(std::int16_t lucido);   // Mac Roman; empty for one without a name

// Layers for the names of a file: a name that the drawing has takes its layer, another the lowest layer that holds
// nothing and has no name; when there is none any more, the current one.
class LucidiPerNome {
public:
    LucidiPerNome();
    std::int16_t lucido(const std::string& macRoman);
    void occupa(std::int16_t lucido) { presi[static_cast<std::size_t>(lucido)] = true; }   // 0 to 99
    [[nodiscard]] std::int64_t riuniti() const { return senzaPosto; }   // names that found no layer of their own

private:
    std::vector<bool> presi;
    struct Nome {
        std::string nome;
        std::int16_t lucido;
    };
    std::vector<Nome> noti;
    std::int64_t senzaPosto = 0;
};

}   // namespace tessaro
