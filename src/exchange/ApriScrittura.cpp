// The request for an export's file.
#include "exchange/ApriScrittura.h"

#include <string>

#include "dialogs/Errori.h"
#include "model/Documento.h"
#include "platform/Resources.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr OSType tipoTEXT = tipoDi("TEXT"), creatoreTtxt = tipoDi("ttxt");
constexpr std::int16_t listaNomi = 129, nomeSenzaTitolo = 1;

std::string nomeOfferto(std::string_view suffisso) {
    const bool senzaTitolo = NomeD.view() == GetIndString(listaNomi, nomeSenzaTitolo);
    return (senzaTitolo ? std::string() : NomeD.str()) + std::string(suffisso);
}

}   // namespace

namespace {

bool apri(std::string_view invito, std::string_view suffisso, FSSpec& file) {
    uscita = 0;
    if (!NavPutFile(invito, nomeOfferto(suffisso), file)) {
        uscita = 1;
        return false;
    }
    fileInLavoro = Utf8ToMac(file.percorso);
    IOERR2(FSpOpenReplacing(file, creatoreTtxt, tipoTEXT, RefNum));
    if (uscita) fileInLavoro.clear();
    return !uscita;
}

}   // namespace

bool ApriScrittura(std::int16_t invito, std::string_view prima, std::string_view suffisso, FSSpec& file) {
    return apri(std::string(prima) + GetIndString(listaNomi, invito), suffisso, file);
}

bool ApriTesto(std::string_view invito, std::string_view suffisso) {
    FSSpec file;
    return apri(invito, suffisso, file);
}

bool ApriTesto(std::string_view invito, std::string_view suffisso, FSSpec& file) {
    return apri(invito, suffisso, file);
}

void ChiudiScrittura() {
    if (uscita)
        FSAbandon(RefNum);
    else
        IOERR2(FSClose(RefNum));
    fileInLavoro.clear();
}

}   // namespace tessaro
