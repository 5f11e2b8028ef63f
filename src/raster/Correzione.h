// A picture with the lens in use undone, as a new picture of the same place and size.
#pragma once

#include <cstdint>

#include "model/Archivio.h"
#include "model/Elemento.h"

namespace tessaro {

// Dialog 156: resolution, points per inch, and whether the source is deleted. False: cancelled, nothing changed.
bool ScegliRisoluzioneOttica(double& res, std::uint8_t& cancella);
void CalcolaVerticiCorrezione(const elemento& pict);   // boxes and sizes
bool PictureToPixMapCorrezione(PicHandle pict);        // the job; false: nothing was added
bool CorrezioneMorbida(PicHandle pict);                // the same smooth

}   // namespace tessaro
