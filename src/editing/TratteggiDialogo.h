// The hatch of polylines, asked of the person.
#pragma once

namespace tessaro {

void PoniTratteggi();   // dialog 9130: the hatch of the selected polylines, or of new ones

}   // namespace tessaro
