// What is held over the drawing, what is dropped on it, and who reads it.
#include "shell/Trascinamento.h"

#include <string>
#include <string_view>

#include "dwg/DbDumper.h"
#include "maps/Mappe.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Strumento.h"
#include "model/Vista.h"
#include "platform/Drags.h"
#include "platform/Files.h"
#include "platform/Memory.h"
#include "raster/InserisciPict.h"
#include "shell/Archivia.h"
#include "shell/Arrivo.h"
#include "shell/Modi.h"

namespace tessaro {

namespace {

constexpr OSType testo = tipoDi("TEXT"), disegno = tipoDi("TS3D");
constexpr std::size_t lungoSuffisso = 5;   // of a drawing's name, point included

bool eDisegno(const FSSpec& file, OSType tipo) {
    if (tipo == disegno) return true;
    const auto punto = file.nome.rfind('.');
    if (punto == std::string::npos) return false;
    const std::string fine = Minuscole(file.nome.substr(punto));
    return fine == ".ts3d" || fine == ".tc3d";
}

FInfo infoDi(const FSSpec& file) {
    FInfo info;
    return FSpGetFInfo(file, info) == noErr ? info : FInfo{};   // what is wrong with it is told when it is opened
}

bool contiene(std::string_view nome, std::string_view che) { return nome.find(che) != std::string_view::npos; }

bool testoLeggibile(std::string_view nome) {
    for (const std::string_view s : {".DXF", ".dxf", ".XYZ", ".xyz"})
        if (contiene(nome, s)) return true;
    return false;
}

// A drawing of other programs, by its suffix. With Option a DXF goes to the program's own reader.
bool eCad(const FSSpec& file) {
    constexpr std::size_t lungo = 4;
    if (file.nome.size() < lungo) return false;
    const std::string fine = Minuscole(file.nome.substr(file.nome.size() - lungo));
    return fine == ".dxf" || fine == ".dwg";
}

// --- while it is held over the window

bool fileAccettato(const FSSpec& file) {
    if (FileImmagine(file.percorso)) return true;
    // Kept: a name of four characters is refused, whatever it holds.
    if (file.nome.size() < lungoSuffisso) return false;
    return eDisegno(file, infoDi(file).fdType) || testoLeggibile(file.nome) || eCad(file);
}

}   // namespace

bool IsMyTypeAvailable(const VociTrascinate& voci) {
    if (voci.empty()) return true;
    const VoceTrascinata& prima = voci.front();
    if (prima.interna || prima.pict || prima.testo) return true;
    return !prima.percorso.empty() && fileAccettato(FSMakeFSSpec(prima.percorso));
}

bool MyTrackingHandler(FaseDrag messaggio, const VociTrascinate& voci) {
    if (messaggio == FaseDrag::esce || noWindow) {
        HideDragHilite();
        return false;
    }
    const bool accettato = IsMyTypeAvailable(voci);
    if (messaggio == FaseDrag::entra && accettato) ShowDragHilite(myViewRect);
    return accettato;
}

void InstallDragHandlers() { InstallTrackingHandler(MyTrackingHandler); }
void RemoveDragHandlers() {
    HideDragHilite();
    InstallTrackingHandler(nullptr);
}

// --- the drop

namespace {

void leggiImmagine(const FSSpec& file) {
    if (Modalita != mSelezione) CheckMouse(false);
    LeggiDropPict(file);
}

void riceviFile(const FSSpec& file, std::uint16_t tasti) {
    const OSType tipo = infoDi(file).fdType;
    if (eDisegno(file, tipo)) {
        LeggiDropTS3D(file, tasti);
    } else if (eCad(file) && (tasti & optionKey) == 0) {
        const Arrivo arrivo;
        ImportaDWGFile(file);
    } else if (NomeDiMappa(file.percorso)) {
        const Arrivo arrivo;
        LeggiMappa(file);
    } else if (tipo == testo) {
        LeggiDropText(file);
    } else {
        leggiImmagine(file);
    }
}

void riceviPict(const std::string& dati) {
    constexpr std::int32_t bloccoMinimo = 100000;   // bytes
    if (CompactMem() <= bloccoMinimo) return;
    if (Modalita != mSelezione) CheckMouse(false);
    MyInsertPICT(dati);
}

}   // namespace

void MyReceiveHandler(const EventRecord& e) {
    HideDragHilite();
    if (noWindow) return;
    for (const VoceTrascinata& v : GetDragItems(e)) {
        if (v.interna) continue;   // a drag from this window is no drop
        if (v.pict)
            riceviPict(v.dati);
        else if (!v.testo && !v.percorso.empty())   // text is taken and thrown away
            riceviFile(FSMakeFSSpec(v.percorso), e.modifiers);
    }
}

}   // namespace tessaro
