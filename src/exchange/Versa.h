// The place of an export to VersaCAD: nothing of the format is written but the block of information, and no command
// reaches it.
#pragma once

#include <array>
#include <cstdint>

namespace tessaro {

extern std::array<std::uint8_t, 128> InfoVer;   // the block of information, zero; nothing fills it

class TScriviVersa {
public:
    virtual ~TScriviVersa() = default;
    virtual void BaseVerCad() {}
    virtual void Scrivi() {}
    virtual void ScriviSegs();   // InfoVer into the open file

    std::int32_t conto = 0;   // bytes written by ScriviSegs
};

}   // namespace tessaro
