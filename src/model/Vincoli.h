// State of the cursor constraints and the grid.
#pragma once
#include <cstdint>

#include "model/Elemento.h"
#include "model/PreferenzeVista.h"

namespace tessaro {

struct StatoCursore {
    std::uint8_t bloccaX = 0;          // vertical: X does not move; menu 112 item 6
    std::uint8_t bloccaY = 0;          // horizontal: Y does not move; item 5
    double pendenza = 0;               // slope m of the last side stored
    double pendenza2 = 0;              // m squared
    double kPendenza = 1;              // 1 / (1 + m squared)
    std::uint8_t verticale = 0;        // the last side is vertical; m is not valid
    std::uint8_t perpendicolare = 0;   // item 4
    std::uint8_t parallelo = 0;        // item 3
    std::uint8_t attaccoPunto = 0;     // attach to points; item 1
    std::uint8_t attaccoZ = 0;         // attach takes Z too; item 2
};
extern StatoCursore statoCursore;

struct Griglia {
    double passoX = 100, passoY = 100;   // sheet units, never 0
    std::uint8_t attiva = 0;
    double grezzoX = 0, grezzoY = 0;   // last position before snapping, sheet units
};
extern Griglia griglia;

// What a click would take now, while the cursor attaches to points; it is marked over the drawing.
struct Aggancio {
    TipoAggancio tipo = agNessuno;
    puntot punto{};   // sheet units
};
extern Aggancio agganciato;
}   // namespace tessaro
