// The menu of the right button, or of Control with a click, in the drawing.
#pragma once

namespace tessaro {

// Opens it at EventPoint with what fits the place: an element under the pointer is selected first. What was chosen is done.
void MenuContesto();

}   // namespace tessaro
