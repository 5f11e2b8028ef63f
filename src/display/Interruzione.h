// A repaint that gives way: while a large drawing is painted after a zoom, a further step of the wheel ends the painting, and
// what stood on the screen before it comes back.
#pragma once

namespace tessaro {

// While one lives, the scans of the records ask whether they may go on. Made by the thread that has the event queue.
class DisegnoInterrompibile {
public:
    DisegnoInterrompibile();
    ~DisegnoInterrompibile();
    DisegnoInterrompibile(const DisegnoInterrompibile&) = delete;
    DisegnoInterrompibile& operator=(const DisegnoInterrompibile&) = delete;
};
// Is the painting under way to end? Asked now and then by whoever scans; the thread that has the event queue looks there.
// False without a DisegnoInterrompibile.
bool DisegnoInterrotto();

}   // namespace tessaro
