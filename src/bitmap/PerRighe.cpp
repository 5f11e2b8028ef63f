// Bands of rows on threads.
#include "bitmap/PerRighe.h"

#include <algorithm>
#include <system_error>
#include <thread>
#include <vector>

#include "model/TabellaStato.h"

namespace tessaro {

constinit std::int32_t filiRaster = 0;

std::int32_t Fili() {
    constexpr std::int32_t massimo = 16;
    const auto quanti = filiRaster > 0 ? filiRaster : static_cast<std::int32_t>(std::thread::hardware_concurrency());
    return std::clamp(quanti, 1, massimo);
}

void perRighe(std::int32_t n, const std::function<void(std::int32_t, std::int32_t, std::int32_t)>& fn) {
    if (n <= 0) return;
    const std::int32_t fili = std::min(Fili(), n);
    const auto inizio = [n, fili](std::int32_t k) { return static_cast<std::int32_t>(std::int64_t(n) * k / fili); };
    std::vector<std::thread> altri;
    std::int32_t k = 1;
    try {
        for (; k < fili; ++k) altri.emplace_back([&fn, &inizio, k] { fn(inizio(k), inizio(k + 1), k); });
    } catch (const std::system_error&) {   // no thread to be had: the rest is done here
    }
    fn(0, inizio(1), 0);
    for (; k < fili; ++k) fn(inizio(k), inizio(k + 1), k);
    for (std::thread& t : altri) t.join();
}

namespace {
const VoceStato righe[] = {voce<filiRaster>("filiRaster")};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
