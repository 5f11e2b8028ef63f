// Lists of points that are in another reference system than the drawing.
#pragma once

namespace tessaro {

void PuntiPerSistema();   // from now on the reader of point lists asks PROJ (exchange/XYZ.h); at start

}   // namespace tessaro
