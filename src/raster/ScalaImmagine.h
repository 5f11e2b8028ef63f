// The scale of the selected picture on the sheet, by two typed factors. Its stored bytes stay as they are.
#pragma once

namespace tessaro {

// Dialog 154. Error 34 with several selected, 35 for one that is no picture, a beep without a selection.
void ScalaImmagine();

}   // namespace tessaro
