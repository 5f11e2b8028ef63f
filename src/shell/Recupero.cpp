// The recovery copy lies among the settings, with the drawing's name in a file beside it.
#include "shell/Recupero.h"

#include <string>

#include "files/Nativo.h"
#include "files/Richieste.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Resources.h"
#include "shell/Archivia.h"
#include "shell/Modificato.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr std::int16_t avvisoRecupero = 9103, rispondeApri = 1;
constexpr std::int16_t listaNomi = 129, nomeSenzaTitolo = 1;

FSSpec copia() { return FSMakeFSSpecIn(SettingsFolder(), "recupero.ts3d"); }
FSSpec nomeCopia() { return FSMakeFSSpecIn(SettingsFolder(), "recupero.name"); }

bool apri(const FSSpec& file) { return FSpOpenReplacing(file, creatoreTSC3, tipoTS3D, RefNum) == noErr; }

void chiudi() {
    if (uscita)
        FSAbandon(RefNum);
    else
        FSClose(RefNum);
}

std::string leggiNome() {
    std::int16_t ref = 0;
    if (FSpOpenDF(nomeCopia(), fsRdPerm, ref) != noErr) return GetIndString(listaNomi, nomeSenzaTitolo);
    std::string nome(255, '\0');
    auto n = static_cast<std::int32_t>(nome.size());
    FSRead(ref, n, nome.data());
    FSClose(ref);
    nome.resize(static_cast<std::size_t>(n));
    return nome;
}

void scarta() {
    FSpDelete(copia());
    FSpDelete(nomeCopia());
}

}   // namespace

void ScriviRecupero() {
    if (noWindow || indElem <= 2) return;
    // The signal may come while another file is in use.
    const std::int16_t inUso = RefNum;
    const std::uint8_t uscitaPrima = uscita;
    uscita = 0;
    if (apri(copia())) {
        ScriviDisegno(versioneNativa);
        chiudi();
    }
    if (apri(nomeCopia())) {
        writeDisco(NomeD);
        chiudi();
    }
    RefNum = inUso;
    uscita = uscitaPrima;
}

void OffriRecupero() {
    FInfo info;
    if (FSpGetFInfo(copia(), info) != noErr) return;
    ParamText(leggiNome(), "", "", "");
    if (CautionAlert(avvisoRecupero) != rispondeApri) {
        scarta();
        return;
    }
    if (!TuttoChiuso()) return;
    myFSS = copia();
    theItem = rApriDato;
    archivia();
    if (uscita) return;   // what cannot be read stays where it is
    // The next save asks where to: the copy is no place for a document.
    NomeD = PStr255(std::string_view(GetIndString(listaNomi, nomeSenzaTitolo)));
    NomeLavoro = NomeD;
    myFSS = FSSpec{};
    if (!noWindow) SetWTitle(theWindow, NomeLavoro.view());
    SegnaDiverso();
    scarta();
}

}   // namespace tessaro
