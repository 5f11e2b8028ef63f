// What kind of file was dropped, and who reads it.
#include "shell/Trascinamento.h"

#include <string>
#include <string_view>

#include "dwg/DbDumper.h"
#include "model/Annulla.h"
#include "model/Attributi.h"
#include "platform/Files.h"
#include "shell/Archivia.h"
#include "shell/Modi.h"

namespace tessaro {

namespace {

constexpr OSType testo = tipoDi("TEXT"), disegno = tipoDi("TS3D");

bool eDisegno(const FSSpec& file, OSType tipo) {
    if (tipo == disegno) return true;
    constexpr std::size_t lungo = 5;   // of a suffix, point included
    if (file.nome.size() < lungo) return false;
    const std::string fine = file.nome.substr(file.nome.size() - lungo);
    return fine == ".tc3d" || fine == ".TS3D";
}

// A drawing of other programs, by its suffix. With Option a DXF goes to the program's own reader.
bool eCad(const FSSpec& file) {
    constexpr std::size_t lungo = 4;
    if (file.nome.size() < lungo) return false;
    const std::string fine = file.nome.substr(file.nome.size() - lungo);
    return fine == ".dxf" || fine == ".DXF" || fine == ".dwg" || fine == ".DWG";
}

void leggiImmagine(const FSSpec& file) {
    if (Modalita != 0) CheckMouse(false);
    LeggiDropPict(file);
}

void ricevi(const FSSpec& file, std::uint16_t tasti) {
    FInfo info;
    if (FSpGetFInfo(file, info) != noErr) info = {};   // what is wrong with it is told when it is opened
    if (eDisegno(file, info.fdType)) {
        LeggiDropTS3D(file, tasti);
    } else if (eCad(file) && (tasti & optionKey) == 0) {
        ImportaDWGFile(file);
    } else if (info.fdType == testo) {
        LeggiDropText(file);
    } else {
        leggiImmagine(file);
    }
}

}   // namespace

void MyReceiveHandler(const EventRecord& e) {
    if (noWindow) return;
    for (const std::string& percorso : e.percorsi) ricevi(FSMakeFSSpec(percorso), e.modifiers);
}

}   // namespace tessaro
