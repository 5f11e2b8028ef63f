// Drags: what another program holds over the window or lets fall on it, and the selection dragged out.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Events.h"
#include "platform/Scrap.h"
#include "platform/Types.h"

namespace tessaro {

// One item of a drag, with the flavours that it has.
struct VoceTrascinata {
    bool interna = false;   // 'TS3D', for its sender only: it began in this window
    bool pict = false;      // 'PICT': a stored picture; its bytes, without a file's header, come with the drop
    bool testo = false;     // 'TEXT'
    std::string percorso;   // "hfs ": a file, UTF-8; empty when there is none
    std::string dati;
};
using VociTrascinate = std::vector<VoceTrascinata>;

enum class FaseDrag : std::uint8_t { entra, dentro, esce };

// What judges a drag over the drawing's window, called by the toolkit while it moves: true when a drop would be taken.
// Null: none is.
using TrackingHandler = bool (*)(FaseDrag, const VociTrascinate&);
void InstallTrackingHandler(TrackingHandler handler);

// The highlight of a window that would take a drop: a line inside r, over what is drawn.
void ShowDragHilite(const Rect& r);
void HideDragHilite();

// Drags these forms out of the window until the button is released; a file manager gets a PNG file, when there is that form.
// True when another program took them. False at once without a window system and under a script.
bool TrackDrag(const Sapori& forme);

// The file has the suffix of a picture that the toolkit's readers, or our own, can read.
bool FileImmagine(std::string_view percorso);

// The items of a drop event, in their order. Under a script the dropped paths.
VociTrascinate GetDragItems(const EventRecord& drop);

}   // namespace tessaro
