// Which layers of the drawing the layers of a file become.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tessaro {

// A name that the drawing has takes its layer; another the layer that the file wants for it, when that is free, else the
// lowest layer that holds nothing and has no name, which is called so from then on. When there is none any more, the
// current one.
class LucidiPerNome {
public:
    LucidiPerNome();
    std::int16_t lucido(const std::string& macRoman, std::int16_t voluto = -1);            // -1: the file wants none
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
