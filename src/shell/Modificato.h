// Does the drawing differ from its file? Told by a digest of all that a save would keep but the view: what a command did
// and another took back is no difference. One pass over the records; selecting is none.
#pragma once

namespace tessaro {

void SegnaSalvato();                   // what is open is what the file holds, or an empty drawing
void SegnaDiverso();                   // it differs until it is saved, whatever comes: not read whole, or recovered
[[nodiscard]] bool DisegnoDiverso();   // false without a drawing
void MostraDiverso();                  // the window's title tells it

}   // namespace tessaro
