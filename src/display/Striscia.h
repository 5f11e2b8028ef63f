// The status strip below the drawing's window: what the tool in use expects next, and how things stand. Its texts are made
// at each round of the loop by who knows them; here they are kept, and handed to the screen when they change.
#pragma once

#include <cstdint>
#include <string>

namespace tessaro {

enum CampoStriscia : std::uint8_t {
    csAttesa,          // what the tool expects next, or what a reading is at
    csAggancio,        // what the cursor snaps to, and the constraints in force
    csLucido,          // the current layer
    csRegistrazione,   // by what the sheet is registered
    csUnita,           // the user's unit
    csScala,           // 1:n
    numCampiStriscia,
};
void PoniStriscia(CampoStriscia campo, const std::string& macRoman);   // empty: nothing stands there
// Texts of other parts, between the registration and the unit, in the order of their registration: asked for at each round, so
// they must be quick. Mac Roman; empty when there is nothing to say. Eight at most, further ones are not taken.
using TestoStriscia = std::string (*)();
void AggiungiAllaStriscia(TestoStriscia testo);
void MostraStriscia();   // asks the added texts, and puts on the screen what differs from what stands there

}   // namespace tessaro
