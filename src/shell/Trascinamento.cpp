// What kind of file was dropped, and who reads it.
#include "shell/Trascinamento.h"

#include <string>
#include <string_view>

#include "dwg/DbDumper.h"
#include "model/Annulla.h"
#include "model/Documento.h"
#include "model/Strumento.h"
#include "platform/Files.h"
#include "shell/Archivia.h"
#include "shell/Modi.h"

namespace tessaro {

namespace {

constexpr OSType testo = tipoDi("TEXT"), disegno = tipoDi("TS3D");

bool eDisegno(const FSSpec& file, OSType tipo) {
    if (tipo == disegno) return true;
    const auto punto = file.nome.rfind('.');
    if (punto == std::string::npos) return false;
    const std::string fine = Minuscole(file.nome.substr(punto));
    return fine == ".ts3d" || fine == ".tc3d";
}

// A drawing of other programs, by its suffix. With Option a DXF goes to the program's own reader.
bool eCad(const FSSpec& file) {
    constexpr std::size_t lungo = 4;
    if (file.nome.size() < lungo) return false;
    const std::string fine = file.nome.substr(file.nome.size() - lungo);
    return fine == ".dxf" || fine == ".DXF" || fine == ".dwg" || fine == ".DWG";
}

void leggiImmagine(const FSSpec& file) {
    if (Modalita != mSelezione) CheckMouse(false);
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
