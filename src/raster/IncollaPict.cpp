// Pasting: the clipboard's picture in the best form it has, or the pictures of a copied list of files.
#include <algorithm>
#include <string>

#include "display/Zoom.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Figura.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Files.h"
#include "platform/Resources.h"
#include "platform/Scrap.h"
#include "platform/Windows.h"
#include "raster/Immagini.h"

namespace tessaro {

namespace {

constexpr std::int16_t avvisoMemoria = 128;
constexpr std::int16_t listaMotivi = 9102, nomeAppunti = 6;

// The forms that keep most of a picture come first.
constexpr std::string_view forme[] = {"image/x-pict", "image/pict", "image/png",
                                      "image/tiff",   "image/jpeg", "image/bmp"};

bool incollaForma() {
    std::string bytes;
    const auto presa =
        std::any_of(std::begin(forme), std::end(forme), [&](std::string_view mime) { return GetScrap(mime, bytes); });
    if (!presa && !GetScrapImage(bytes)) return false;
    ImportaBytes(bytes, GetIndString(listaMotivi, nomeAppunti));
    return true;
}

}   // namespace

void IncollaPict() {
    CominciaAggiunta();
    PoniAnnulla(aNiente);
    if (indElem >= maxElementi) return SysBeep(30);
    SetCursor(ClockCursor);
    // A copied list of files goes with a picture of its icons in some desktops: the files are what was meant.
    const auto file = GetScrapFiles();
    bool qualcosa = !file.empty();
    for (const std::string& percorso : file) ImportaImmagine(FSMakeFSSpec(percorso));
    if (file.empty()) qualcosa = incollaForma();
    SetCursor(arrowCursor);
    if (!qualcosa) StopAlert(avvisoMemoria);
    if (inizioAggiunta < indElem) PoniAnnulla(aAggiunta);
    InvalFinestra();
}

}   // namespace tessaro
