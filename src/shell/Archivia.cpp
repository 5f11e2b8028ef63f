// Which file a command of the file menu is about, and what is done with it. `theItem` tells the command.
#include "shell/Archivia.h"
#include "digitising/RegistrazioneValida.h"
#include "shell/Modificato.h"

#include <algorithm>
#include <string>

#include "dialogs/Errori.h"
#include "digitising/RiferimentoImmagine.h"
#include "display/Ridisegno.h"
#include "editing/Scelta.h"
#include "exchange/CXF.h"
#include "exchange/DXF.h"
#include "exchange/XYZ.h"
#include "files/FileMondo.h"
#include "files/Nativo.h"
#include "files/Richieste.h"
#include "files/TestiFile.h"
#include "maps/Mappe.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Figura.h"
#include "model/Giornale.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "model/Voci.h"
#include "platform/Events.h"
#include "platform/Menus.h"
#include "platform/Resources.h"
#include "raster/CreaPict.h"
#include "raster/Immagini.h"
#include "registration/Coordinate.h"
#include "shell/Recenti.h"
#include "shell/Recupero.h"
#include "text/FileDati.h"

namespace tessaro {

constinit std::uint8_t OKArchivioFss = 0;
constinit bool ultimoSalvataggioRiuscito = true;

namespace {

constexpr std::int16_t listaNomi = 129, nomeSenzaTitolo = 1;
constexpr std::int16_t tipiDisegni = 300, tipiImmagini = 301, tipiScritti = 310;

enum class Scelta : std::uint8_t { nessuna, leggi, dato, salva, salvaCome, dxf, xyz };
enum class Opera : std::uint8_t { niente, leggi, scrivi, immagine, scriviPict, testo };

struct Richiesta {
    std::int16_t numero;
    Scelta scelta;
    Opera opera;
    std::int16_t invito;           // string of list 129
    std::int16_t tipi;             // kinds offered
    const char* suffisso;          // added to the name that a save offers
    bool delDocumento;             // the file becomes the document's own
    void (*lettore)() = nullptr;   // of a text file, already open
};
constexpr Richiesta richieste[] = {
    {rApri, Scelta::leggi, Opera::leggi, 8, tipiDisegni, "", true},
    {rSalva, Scelta::salva, Opera::scrivi, 9, 0, "", true},
    {rSalvaCome, Scelta::salvaCome, Opera::scrivi, 7, 0, "", true},
    {rNessunFile, Scelta::nessuna, Opera::niente, 0, 0, "", false},
    {rApriDato, Scelta::dato, Opera::leggi, 0, 0, "", true},
    {rUnisciDato, Scelta::dato, Opera::leggi, 0, 0, "", false},
    {rUnisciDatoCmd, Scelta::dato, Opera::leggi, 0, 0, "", false},
    {rUnisciDatoOpz, Scelta::dato, Opera::leggi, 0, 0, "", false},
    {rEsporta, Scelta::salvaCome, Opera::scrivi, 51, 0, ".ts5", false},
    {rPict, Scelta::salvaCome, Opera::scriviPict, 11, tipiScritti, ".pict", false},
    {rPictSel, Scelta::salvaCome, Opera::scriviPict, 11, tipiScritti, ".pict", false},
    {rUnisciPunti, Scelta::leggi, Opera::leggi, 8, tipiDisegni, "", false},
    {rUnisciQuattro, Scelta::leggi, Opera::leggi, 8, tipiDisegni, "", false},
    {rUnisciReali, Scelta::leggi, Opera::leggi, 8, tipiDisegni, "", false},
    {rImmagine, Scelta::leggi, Opera::immagine, 42, tipiImmagini, "", false},
    {rDxf, Scelta::dxf, Opera::testo, 0, 0, "", false, LeggiDXF},
    {rXYZ, Scelta::xyz, Opera::testo, 0, 0, "", false, LeggiXYZ},
    {rCXF, Scelta::dxf, Opera::testo, 0, 0, "", false, LeggiCXF},
};

const Richiesta* richiestaDi(std::int16_t numero) {
    const auto* r = std::find_if(std::begin(richieste), std::end(richieste),
                                 [&](const Richiesta& x) { return x.numero == numero; });
    return r == std::end(richieste) ? nullptr : r;
}

bool senzaTitolo() { return NomeD.view() == GetIndString(listaNomi, nomeSenzaTitolo); }

// Where file work stands, for its messages, as long as it goes on.
class FileInLavoro {
public:
    explicit FileInLavoro(const FSSpec& file) { fileInLavoro = Utf8ToMac(file.percorso); }
    ~FileInLavoro() { fileInLavoro.clear(); }
    FileInLavoro(const FileInLavoro&) = delete;
    FileInLavoro& operator=(const FileInLavoro&) = delete;
};

// A file that came from outside: is it a drawing? Kept: the suffix may stand anywhere in the name.
bool eDisegno(const FSSpec& file) {
    const FileInLavoro lavoro(file);
    FInfo info;
    IOERR2(FSpGetFInfo(file, info));
    if (uscita) return false;
    if (info.fdType == tipoTS3D || info.fdType == tipoTSTD) return true;
    if (Minuscole(file.nome).find(".ts3d") != std::string::npos) return true;
    MostraGuasto({noErr, TestoDi(TestoFile::tipoIgnoto), {}, -1});
    return false;
}

// Kept: the export's suffix comes behind the name with the suffix that it has.
std::string nomeOfferto(const Richiesta& r) {
    const std::string suffisso = r.suffisso;
    if (suffisso.empty()) return NomeD.str();
    return senzaTitolo() ? suffisso : NomeD.str() + suffisso;
}

bool scegliFile(const Richiesta& r, FSSpec& file) {
    const std::string invito = GetIndString(listaNomi, r.invito);
    switch (r.scelta) {
    case Scelta::leggi: return NavGetFile(invito, r.tipi, file);
    case Scelta::salvaCome: return NavPutFile(invito, nomeOfferto(r), file, r.tipi);
    case Scelta::salva: file = myFSS; return true;
    case Scelta::dato: file = myFSS; return eDisegno(file);
    case Scelta::dxf: return ApriDXF(file);
    case Scelta::xyz: return ApriXYZ(file);
    case Scelta::nessuna: return false;
    }
    return false;
}

void leggi(const FSSpec& file) {
    if (noWindow) {
        SetUpWindow();
        inizioAggiunta = indElem;
    }
    const FileInLavoro lavoro(file);
    IOERR2(FSpOpenDF(file, fsRdPerm, RefNum));
    if (uscita) return;
    leggidati();
    FSClose(RefNum);
    if (theItem == rUnisciQuattro) return;   // Kept: this merge leaves similarity and selection as they are
    if (const std::string guasto = GuastoRegistrazione(Elem(1), Elem(2)); !guasto.empty()) {
        Elem(2).att.coordReali = 0;
        CalcolaRapporti();
        MostraGuasto({noErr, TestoDi(TestoFile::registrazione, guasto), {}, -1});
    }
    if (Elem(2).att.coordReali) CalcTransfC();
    NessunaSelezione();
}

// A save that fails, at whatever moment, leaves the file that was there.
void scrivi(const FSSpec& file) {
    const FileInLavoro lavoro(file);
    IOERR2(FSpOpenReplacing(file, creatoreTSC3, fType, RefNum));
    if (uscita) return;
    NessunaSelezione();
    Scrividati();
    if (uscita)
        FSAbandon(RefNum);
    else
        IOERR2(FSClose(RefNum));
    ultimoSalvataggioRiuscito = !uscita;
}

void importaImmagine(const FSSpec& file) {
    if (indElem >= maxElementi) {
        SysBeep(30);
        return;
    }
    const FileInLavoro lavoro(file);
    if (!ImportaImmagine(file)) return;
    // A world file beside it says more than the picture's own tags: who put it there wanted it.
    Mondo m;
    std::string sistema;
    const std::string nome = Minuscole(file.nome);
    const bool tiff = nome.ends_with(".tif") || nome.ends_with(".tiff");
    if (tiff && TrovaMondo(file.percorso).empty() && MondoDelRaster(file, m, sistema))
        OffriMondo(file.nome, m, indElem);
    else
        OffriMondo(file, indElem);
}

// A picture of the drawing, in the form that the name's suffix tells; the file that was there stays when none comes of it.
void scriviImmagine(const FSSpec& file) {
    constexpr OSType tipoPict = tipoDi("PICT"), creatorePict = tipoDi("ttxt");
    const FileInLavoro lavoro(file);
    fType = tipoPict;
    IOERR2(FSpOpenReplacing(file, creatorePict, fType, RefNum));
    if (uscita) return;
    if (SuffissoImmagine(file) ? PutImageFile(RefNum, file) : PutPictFile(RefNum))
        IOERR2(FSClose(RefNum));
    else
        FSAbandon(RefNum);
}

// What was read before a fault, or before the person stopped it, stays.
void importaTesto(const Richiesta& r, const FSSpec& file) {
    const FileInLavoro lavoro(file);
    IOERR2(FSpOpenDF(file, fsRdPerm, RefNum));
    if (uscita) return;
    r.lettore();
    if (RefNum != 0) FSClose(RefNum);   // a list that was stopped is closed already
    NessunaSelezione();
}

void esegui(const Richiesta& r, const FSSpec& file) {
    SetCursor(ClockCursor);
    const bool scrive = r.opera == Opera::scrivi;
    if (scrive) {
        PoniAnnulla(aNiente);
    } else {
        CominciaAggiunta();
    }
    switch (r.opera) {
    case Opera::leggi: leggi(file); break;
    case Opera::scrivi: scrivi(file); break;
    case Opera::immagine: importaImmagine(file); break;
    case Opera::scriviPict: scriviImmagine(file); break;
    case Opera::testo: importaTesto(r, file); break;
    case Opera::niente: break;
    }
    if (!scrive && inizioAggiunta < indElem) PoniAnnulla(aAggiunta);
    if (!r.delDocumento) return;
    if (r.opera == Opera::leggi) GiornaleNuovo();   // even of one that was not read whole
    if (!uscita) RicominciaRecupero();
    if (uscita) return;
    if (!scrive && !lettoIntero) {   // a save must not put what is left over the file that has more
        SegnaDiverso();
        return;
    }
    myFSS = file;
    OKArchivioFss = 1;
    NomeD = PStr255(std::string_view(file.nome));
    NomeLavoro = NomeD;
    SegnaSalvato();
    RicordaRecente(file);
}

void concludi() {
    SetCursor(arrowCursor);
    if (noWindow) return;
    SetWTitle(theWindow, NomeLavoro.view());
    for (const std::int16_t voce : {voci::archivio::chiudi, voci::archivio::salva, voci::archivio::salvaCome})
        EnableMenuItem(menuArchivio, voce);
    InvalFinestra();
}

// A drop that brings nothing says why.
void rifiutato(TestoFile perche, const FSSpec& file) {
    const FileInLavoro lavoro(file);
    MostraGuasto({noErr, TestoDi(perche), {}, -1});
}

// What a dropped file brings is an addition to the drawing, whatever was asked for last.
void lasciato(const Richiesta& r, const FSSpec& file) {
    uscita = 0;
    LF = 10;
    esegui(r, file);
    concludi();
}

}   // namespace

std::string Minuscole(std::string_view s) {
    std::string m(s);
    for (char& c : m)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return m;
}

void archivia() {
    uscita = 0;
    LF = 10;
    fType = tipoTS3D;
    if (theItem == rSalva && senzaTitolo()) theItem = rSalvaCome;
    const Richiesta* r = richiestaDi(theItem);
    if (!r) {
        SysBeep(30);
        return;
    }
    if (r->opera == Opera::scriviPict && noWindow) return;
    if (r->opera == Opera::scrivi) {
        ultimoSalvataggioRiuscito = false;
        if (noWindow) return;
    }
    if (theItem == rSalvaCome) OKArchivioFss = 0;
    FSSpec file;
    if (scegliFile(*r, file)) esegui(*r, file);
    concludi();
}

void LeggiDropTS3D(const FSSpec& spec, std::uint16_t tasti) {
    theItem = (tasti & optionKey) ? rUnisciDatoOpz : (tasti & cmdKey) ? rUnisciDatoCmd : rUnisciDato;
    const FSSpec documento = myFSS;
    myFSS = spec;
    archivia();
    // What is merged into a drawing does not become the file that a save replaces.
    if (const Richiesta* r = richiestaDi(theItem); !r || !r->delDocumento) myFSS = documento;
}

void LeggiDropText(const FSSpec& spec) {
    const std::string nome = Minuscole(spec.nome);
    const auto nomina = [&nome](const char* suffisso) { return nome.find(suffisso) != std::string::npos; };
    // Kept: the suffix may stand anywhere in the name.
    struct PerNome {
        const char* suffisso;
        std::int16_t numero;
    };
    std::int16_t numero = 0;
    for (const PerNome& p : {PerNome{".dxf", rDxf}, {".xyz", rXYZ}, {".cxf", rCXF}})
        if (numero == 0 && nomina(p.suffisso)) numero = p.numero;
    if (const Richiesta* r = richiestaDi(numero)) {
        lasciato(*r, spec);
    } else {
        rifiutato(TestoFile::tipoIgnoto, spec);
    }
}

void LeggiDropPict(const FSSpec& spec) {
    if (indElem < maxElementi) {
        lasciato(*richiestaDi(rImmagine), spec);
    } else {
        rifiutato(TestoFile::pieno, spec);
    }
    InvalFinestra();
}

namespace {
const VoceStato righe[] = {
    voce<OKArchivioFss>("OKArchivioFss"),
    {"fType", [] { fType = tipoTS3D; }, nullptr},
    {"ultimoSalvataggioRiuscito", [] { ultimoSalvataggioRiuscito = true; }, nullptr},
    {"fileInLavoro", [] { fileInLavoro.clear(); }, nullptr},
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
