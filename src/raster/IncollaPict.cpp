// Pasting: the clipboard's picture in the best form it has, or the pictures of a copied list of files.
#include <algorithm>
#include <cmath>
#include <string>

#include "display/Zoom.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Figura.h"
#include "model/Vista.h"
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

// Where the next picture goes: at the cursor, which only follows the pointer while something is drawn. Out of sight, or
// just on another picture's corner, nobody would see it: it goes to the middle of the view, or a little further down.
class PostoPerIncollare {
    double x = xcurs, y = ycurs;

public:
    PostoPerIncollare() {
        const double h = XVidD(xcurs), v = YVidD(ycurs);
        const Rect& r = myViewRect;
        if (!EmptyRect(r) && !(h >= r.left && h < r.right && v >= r.top && v < r.bottom)) {
            puntot mezzo{};
            VidToReal(Point{(myViewRect.top + myViewRect.bottom) / 2, (myViewRect.left + myViewRect.right) / 2}, mezzo);
            xcurs = mezzo.x;
            ycurs = mezzo.y;
        }
        constexpr double passo = 24;   // pixels
        for (int i = 0; i < maxElementi && occupato(); ++i) {
            xcurs += passo / scalavid;
            ycurs += passo / scalavid;
        }
    }
    ~PostoPerIncollare() {
        xcurs = x;
        ycurs = y;
    }
    PostoPerIncollare(const PostoPerIncollare&) = delete;
    PostoPerIncollare& operator=(const PostoPerIncollare&) = delete;

private:
    [[nodiscard]] static bool occupato() {
        const double vicino = 2 / scalavid;
        for (std::int32_t i = 3; i <= indElem; ++i) {
            const elemento& e = Elem(i);
            if (e.tipo == tPict && std::fabs(e.pict.x - xcurs) < vicino && std::fabs(e.pict.y - ycurs) < vicino)
                return true;
        }
        return false;
    }
};

}   // namespace

void IncollaPict() {
    CominciaAggiunta();
    PoniAnnulla(aNiente);
    if (indElem >= maxElementi) return SysBeep(30);
    SetCursor(ClockCursor);
    // A copied list of files goes with a picture of its icons in some desktops: the files are what was meant.
    const auto file = GetScrapFiles();
    bool qualcosa = !file.empty();
    for (const std::string& percorso : file) {
        const PostoPerIncollare posto;
        ImportaImmagine(FSMakeFSSpec(percorso));
    }
    if (file.empty()) {
        const PostoPerIncollare posto;
        qualcosa = incollaForma();
    }
    SetCursor(arrowCursor);
    if (!qualcosa) StopAlert(avvisoMemoria);
    if (inizioAggiunta < indElem) PoniAnnulla(aAggiunta);
    InvalFinestra();
}

}   // namespace tessaro
