// What `archivia` is asked for, by the number in `theItem`: items of the File menu as they are, items of the submenus
// Export, Open into this drawing and Import with the submenu's number added.
#pragma once

#include <cstdint>

namespace tessaro {

enum NumeroRichiesta : std::int16_t {
    rApri = 2,
    rSalva = 4,
    rSalvaCome = 5,
    rNessunFile = 20,   // title, menus and a redraw alone
    rApriDato = 31,     // myFSS is set: the desktop, or a drop
    rUnisciDato = 32,
    rUnisciDatoCmd = 33,
    rUnisciDatoOpz = 34,
    rEsporta = 41,
    rPict = 42,      // the whole drawing as a picture
    rPictSel = 43,   // the selected picture
    rUnisciPunti = 51,
    rUnisciQuattro = 52,
    rUnisciReali = 53,
    rImmagine = 61,
    rDxf = 62,
    rXYZ = 63,
    rCXF = 64,
};

}   // namespace tessaro
