// Which pictures the journal names: how often in its shadow of the drawing, how often in its steps. One that a command
// gives up stays in the store until neither does.
#pragma once

#include <cstdint>
#include <span>
#include <unordered_map>

#include "model/Archivio.h"

namespace tessaro {

class ImmaginiTrattenute {
    struct Nomi {
        std::int32_t ombra = 0, passi = 0;
    };
    std::unordered_map<PicHandle, Nomi> nomi;
    std::int64_t pesoSoloPassi = 0;

    void cambia(std::span<const elemento> record, std::int32_t ombra, std::int32_t passi);

public:
    void entra(std::span<const elemento> record) { cambia(record, 1, 0); }     // into the shadow
    void esce(std::span<const elemento> record) { cambia(record, -1, 1); }     // from the shadow into a step
    void lascia(std::span<const elemento> record) { cambia(record, 0, -1); }   // the step goes
    // A step has been taken back or done again.
    void scambia(std::span<const elemento> dentroPasso, std::span<const elemento> fuori) {
        cambia(fuori, 1, -1);
        cambia(dentroPasso, -1, 1);
    }
    [[nodiscard]] bool nominata(PicHandle h) const { return nomi.contains(h); }
    [[nodiscard]] std::int64_t soloPassi() const { return pesoSoloPassi; }   // bytes of those that only steps name
};

}   // namespace tessaro
