// Rotation of a picture element, in place or as a new one.
#pragma once

#include <cstdint>

#include "model/Archivio.h"

namespace tessaro {

struct tPictRot {
    PicHandle pictIn = 0;
    PicHandle pictOut = 0;               // 0: no result
    double angolo = 0;                   // radians, clockwise on the sheet; 0: no rotation
    std::int16_t risoluzione = 150;      // points per inch, 10 to 2000
    std::int16_t colori = 4;             // 1, 2, 3, 4: 1, 8, 16, 32 bits a pixel
    std::int16_t tipoPict = 1;           // transfer: 1 copy, 2 or, 3 transparent
    std::uint8_t sostituisci = 0;        // the result takes the picture's place
    double larghezza = 0, altezza = 0;   // centimetres; the rotation makes them those of the result
};
extern tPictRot pictRot;

// The job: pictOut gets the turned picture, or stays 0 with alert 128 or when it was stopped.
void RuotaImmagine(tPictRot* p);
void ModificaRuotaImmagine();   // menu 5 item 15, with dialog 9000

}   // namespace tessaro
