// The journal behind Undo and Redo: a shadow of the drawing, and what each command changed of it as a step. No command
// knows of it: when the event loop is reached, what differs from the shadow is one step.
//
// A step holds the records of the side that is not in the drawing now, stretch by stretch, and the changed bytes of the
// document's rows (model/VociDocumento.h); going back and forward exchanges the two. The flag of selection is no part of it.
// Pictures are kept by number: one that a command gives up lives on while the shadow or a step names it.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/Archivio.h"
#include "model/Differenza.h"

namespace tessaro {

extern std::int32_t memoriaGiornale;   // bound of what the steps hold, megabytes, 256; from its settings file

void GiornaleNuovo();    // a drawing has been opened: what it is now is where an empty journal begins
void GiornaleFine();     // it is closed: steps go, and the pictures that only they held
bool GiornaleAperto();   // false without a drawing: no step is made then

// What the menu shows of a step.
struct NomePasso {
    std::int32_t tipo = 0;   // TipoAnnulla, 0 when the command armed none
    bool punto = false;      // a point of a figure that is in progress
    bool segue = false;      // a held key goes on with what it did: one step when it moved the same records again
    std::string comando;     // Mac Roman, the menu item's text; empty when it was no menu item
};

// The event loop has been reached. True when the drawing differed from the shadow and a step was made. The steps of one
// figure are taken back together once it is finished; one that was given up without storing anything leaves none.
// What a command stores behind the door that ends the figure is a step of its own.
bool ChiudiPasso(const NomePasso& nome);

const NomePasso* DaAnnullare();   // null when there is none
const NomePasso* DaRipetere();    // null when there is none

// What going back or forward did, for what has to be made afresh.
struct EsitoPasso {
    bool fatto = false;
    bool alPosto = true;       // no record came, went or took another's number or kind
    bool righe = false;        // rows of the document changed
    std::int32_t indice = 0;   // where the record now is that Puntosel.indice named; 0 when it is gone
};
EsitoPasso AnnullaPasso();
EsitoPasso RipetiPasso();

std::int64_t PesoGiornale();    // bytes that the steps hold, pictures that only they name included
std::int32_t PassiGiornale();   // steps that can be taken back, the points of a figure one by one

// The change that the drawing has just gone through, at a step's end and on the way back and forward: what a copy of the
// drawing elsewhere has to do to follow. The new records and bytes are read from the drawing itself.
struct RigaDiversa {
    std::uint32_t voce;         // index into VociGiornale
    std::uint32_t da, quanti;   // the bytes of it that changed
};
struct Transizione {
    std::span<const TrattoDiverso> tratti;
    std::span<const RigaDiversa> righe;
};
extern void (*dopoTransizione)(const Transizione& t);   // one listener; null for none

struct VoceDocumento;
std::span<const VoceDocumento> VociGiornale();   // every row in the journal's order, while it is open

}   // namespace tessaro
