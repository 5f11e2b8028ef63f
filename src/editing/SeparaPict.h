// Taking a stored picture apart into elements of the drawing.
#pragma once

namespace tessaro {

// The one selected picture's segments, rectangles, polygons and texts become elements at their places, and are selected;
// the picture stays. Without one picture selected, or when it holds nothing of these, nothing happens.
void SeparaPict();

}   // namespace tessaro
