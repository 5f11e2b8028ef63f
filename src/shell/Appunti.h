// Cut, copy and paste of elements, in this program or from another one of its kind.
#pragma once

namespace tessaro {

// The selected elements with all that they are, and beside them the picture of them for other programs; without a selection
// the picture of the drawing. False, after an alert, when there is nothing to copy.
bool CopiaElementi();

// The clipboard's elements, where they were or with their middle at the pointer, else at the middle of the view; they are
// the selection from then on. Without elements on the clipboard its picture (IncollaPict). Ends the figure in progress.
void IncollaElementi(bool alloStessoPosto);

}   // namespace tessaro
