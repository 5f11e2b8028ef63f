// The store of picture data: byte strings named by number.
#include <unordered_map>
#include <utility>

#include "model/Archivio.h"
#include "model/TabellaStato.h"

namespace tessaro {

void (*pictDimenticata)(PicHandle) = nullptr;

namespace {

struct Deposito {
    std::unordered_map<PicHandle, std::string> dati;
    PicHandle ultimo = 0;
    std::int64_t byte = 0;
};
Deposito& deposito() {
    static Deposito d;
    return d;
}

void svuota() {
    Deposito& d = deposito();
    while (!d.dati.empty()) KillPicture(d.dati.begin()->first);
    d.ultimo = 0;
}

const VoceStato righe[] = {
    {"pictMemoria", svuota, [] { return NumeroJson(static_cast<double>(PictMemory())); }},
};
const TabellaStato tabella(righe);

}   // namespace

PicHandle NewPict(std::string bytes) {
    Deposito& d = deposito();
    // Numbers run on so that a stale one never names a newer picture; after two thousand million they would come round.
    do { d.ultimo = d.ultimo == INT32_MAX ? 1 : d.ultimo + 1; } while (d.dati.contains(d.ultimo));
    d.byte += static_cast<std::int64_t>(bytes.size());
    d.dati.emplace(d.ultimo, std::move(bytes));
    return d.ultimo;
}

const std::string& PictBytes(PicHandle h) {
    static const std::string vuota;
    const auto i = deposito().dati.find(h);
    return i == deposito().dati.end() ? vuota : i->second;
}

void KillPicture(PicHandle h) {
    Deposito& d = deposito();
    const auto i = d.dati.find(h);
    if (i == d.dati.end()) return;
    d.byte -= static_cast<std::int64_t>(i->second.size());
    d.dati.erase(i);
    if (pictDimenticata) pictDimenticata(h);
}

std::int64_t PictMemory() { return deposito().byte; }

}   // namespace tessaro
