// Compares a raster port with what a slow reference says, pixel by pixel, and shows the difference as text.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/paint/RasterPort.h"

namespace tessaro::prova {

constexpr std::uint32_t nero = 0xFF000000U;
constexpr std::uint32_t bianco = 0xFFFFFFFFU;

inline std::vector<std::uint32_t> pixelsOf(const RasterPort& port) {
    return {port.pixels(), port.pixels() + port.rowPixels() * port.deviceHeight()};
}

// expected(x, y) gives the pixel. In the picture of a failure '.' and '#' agree (white, else), '+' should not be
// there and '-' is missing.
inline testing::AssertionResult agrees(const RasterPort& port,
                                       const std::function<std::uint32_t(std::int32_t, std::int32_t)>& expected) {
    std::string picture;
    int wrong = 0;
    for (std::int32_t y = 0; y < port.deviceHeight(); ++y) {
        for (std::int32_t x = 0; x < port.deviceWidth(); ++x) {
            const std::uint32_t found = port.pixel(x, y), want = expected(x, y);
            if (found == want) {
                picture += want == bianco ? '.' : '#';
                continue;
            }
            ++wrong;
            picture += want == bianco ? '+' : '-';
        }
        picture += '\n';
    }
    if (wrong == 0) return testing::AssertionSuccess();
    return testing::AssertionFailure() << wrong << " pixels differ\n" << (picture.size() < 20000 ? picture : "");
}

// The port is the current one for the life of this.
struct Corrente {
    explicit Corrente(RasterPort& port) { SetPort(&port); }
    ~Corrente() { SetPort(nullptr); }
    Corrente(const Corrente&) = delete;
    Corrente& operator=(const Corrente&) = delete;
};

}   // namespace tessaro::prova
