// Counting names of pictures.
#include "model/GiornaleImmagini.h"

namespace tessaro {

void ImmaginiTrattenute::cambia(std::span<const elemento> record, std::int32_t ombra, std::int32_t passi) {
    for (const elemento& e : record) {
        if (e.tipo != tPict || e.pict.maniglia == 0) continue;
        const PicHandle h = e.pict.maniglia;
        Nomi& n = nomi[h];
        const bool solo = n.ombra == 0 && n.passi > 0;
        n.ombra += ombra;
        n.passi += passi;
        const auto byte = static_cast<std::int64_t>(PictBytes(h).size());
        pesoSoloPassi += byte * ((n.ombra == 0 && n.passi > 0) - solo);
        if (n.ombra > 0 || n.passi > 0) continue;
        nomi.erase(h);
        if (passi < 0) KillPicture(h);
    }
}

}   // namespace tessaro
