// A painting that gives way. While a large drawing is painted after a zoom, a further step of the wheel ends it; and long
// work that paints has its bar moved, and ends where the person stops it.
#pragma once

#include <limits>

namespace tessaro {

// While one lives, the scans of the records ask whether a step of the wheel waits. Made by the thread that has the event queue.
class DisegnoInterrompibile {
public:
    DisegnoInterrompibile();
    ~DisegnoInterrompibile();
    DisegnoInterrompibile(const DisegnoInterrompibile&) = delete;
    DisegnoInterrompibile& operator=(const DisegnoInterrompibile&) = delete;
};

// While one lives, the scans step the progress that is open (platform/Dialogs.h), from `da` to `a` of the whole work, and
// end where that was stopped. One at a time; made by the thread that opened it.
class DisegnoSeguito {
public:
    explicit DisegnoSeguito(double da = 0, double a = 1);
    ~DisegnoSeguito();
    DisegnoSeguito(const DisegnoSeguito&) = delete;
    DisegnoSeguito& operator=(const DisegnoSeguito&) = delete;
};

// Is the painting under way to end? Asked now and then by whoever scans, with the part of it that is done where that is
// known, 0 to 1; the thread that has the event queue looks there. False without one of the two.
bool DisegnoInterrotto(double parte = std::numeric_limits<double>::quiet_NaN());
bool RotellaAspetta();   // it was a step of the wheel that ended it

}   // namespace tessaro
