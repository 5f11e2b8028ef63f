// The table of control points in the drawing: a mark and a number for each point, and its residual as an arrow.
#pragma once

namespace tessaro {

extern bool puntiInVista;   // the window of the table is open: its points are shown; false

// Green crosses, grey for points that are not in use, with the row's number; while arrows are shown, a blue one from each
// point of the solution to where the mapping puts its real coordinates on the sheet, lengthened. With the pen of the drawing.
void DisPuntiTabella();
// The factor that arrows are lengthened by: the table's, or the one that makes the longest 15 mm of paper (1, 2 or 5 times a
// power of ten); 1 when there is none.
double EsagerazioneFrecce();

}   // namespace tessaro
