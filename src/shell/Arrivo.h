// What an import brings: it lies in the sheet, and the view shows it.
#pragma once

#include <cstdint>

namespace tessaro {

// Lives while something is read into the drawing. At its end, when records came in:
//   - a picture that came alone into an empty, unregistered drawing is moved into the sheet; when it is larger, the sheet may
//     grow (alert 9400);
//   - other things that came into such a drawing and lie off the sheet may get an origin and a scale that bring them into it
//     (alert 9401): control points 1 and 2 are set at the sheet's corners;
//   - the view shows what came in, and stays as it is when that is to be seen in it: all of it in a drawing that was empty,
//     some of it beside other things.
class Arrivo {
public:
    Arrivo();
    ~Arrivo();
    Arrivo(const Arrivo&) = delete;
    Arrivo& operator=(const Arrivo&) = delete;

private:
    std::int32_t prima;   // the last record before
};

// The smallest round number, 1, 1.5, 2, 2.5, 4, 5 or 7.5 times a power of ten, that is not below v; v above 0 and finite.
double ScalaRotonda(double v);

}   // namespace tessaro
