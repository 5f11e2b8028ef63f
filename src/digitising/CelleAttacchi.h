// The table of control points 1 to 5: its rows as text, and what is typed into a cell. A cell goes the way of the dialog that
// asks for the same: a place on the sheet, and the real place of points 3 to 5, that of a typed control point; the real
// coordinates of points 1 and 2 that of the registration; a destination that of the live transformation.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tessaro {

enum ColonnaAttacchi : std::int16_t {
    caNumero = 1,
    caUso,
    caFoglioX,   // sheet units
    caFoglioY,
    caRealeX,   // the user's unit, as from here on
    caRealeY,
    caDestinazioneX,
    caDestinazioneY,
    caResiduo,
};

// What was typed and is not in force yet.
struct AttesaAttacchi {
    struct Posto {
        std::array<std::optional<double>, 2> foglio, reale;   // one coordinate of a point that has no place yet
    };
    std::array<Posto, 5> posti;
    std::array<bool, 4> reali{};   // X1, Y1, X2, Y2 of the registration were given: it goes on with the last
};
AttesaAttacchi
AttesaDelMomento();   // nothing typed yet; real coordinates count as given where they are others than a new drawing's

std::string TestataAttacchi();                                     // cells parted by tabs, Mac Roman, like the rows
std::vector<std::string> RigheAttacchi(const AttesaAttacchi& a);   // points 1 to 5

// Takes what was typed for point n (1 to 5). False when it is refused: an alert has said why, and nothing has changed. A
// number, within 1e9 either way for real coordinates of points 1 and 2 and for destinations; a place on the sheet;
// coordinates that make a registration with those that are there. The registration goes on with the last of the four real
// coordinates when points 1 and 2 have their places. A figure in progress goes on.
bool ScriviCellaAttacco(AttesaAttacchi& a, std::int16_t n, std::int16_t colonna, const std::string& testo);
// Real coordinates by points 1 and 2 on or off. False, with an alert, when those points make no registration.
bool AccendiReali(bool accese);

}   // namespace tessaro
