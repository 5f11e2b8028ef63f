// Dialog 9431: the first lines of a point list, and how they are read.
#include "exchange/ImportaElenco.h"

#include <algorithm>
#include <string>
#include <vector>

#include "dialogs/Errori.h"
#include "dialogs/Parametri.h"
#include "exchange/Codifica.h"
#include "exchange/FormatoXYZ.h"
#include "exchange/RigheElenco.h"
#include "exchange/XYZ.h"
#include "files/Impostazioni.h"
#include "model/Cursore.h"
#include "model/TabellaStato.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Menus.h"
#include "platform/Quickdraw.h"
#include "platform/Windows.h"
#include "text/FileDati.h"

namespace tessaro {

ScelteElenco ultimoElenco;

namespace {

constexpr std::int16_t dialogo = 9431, avvisoColonne = 9432;
enum : std::int16_t {   // items
    vOk = 1,
    vAnnulla = 2,
    vTavola = 3,
    vStesura = 4,
    vSeparatore = 5,
    vDecimale = 6,
    vTesta = 7,
    vPrimaColonna = 11,
    vUltimaColonna = 18,
};
enum : std::int16_t { menuStesure = 9431, menuSeparatori = 9432, menuDecimali = 9433, menuSignificati = 9434 };
constexpr std::size_t righeGuardate = 200, righeMostrate = 8;
constexpr char segnoScelte = 'E';
constexpr std::uint8_t versioneScelte = 1;

// The first lines, and the file back where it was.
std::vector<std::string> primeRighe() {
    std::int64_t inizio = 0;
    GetFPos(RefNum, inizio);
    const Codifica codifica = RiconosciCodifica();
    std::vector<std::string> righe;
    {
        RigheElenco elenco;
        std::string convertita;
        std::int32_t n = 0;
        while (righe.size() < righeGuardate && !EndFile && !uscita) {
            const std::string_view r = InMacRoman(elenco.riga(n), codifica, convertita);
            if (!EndFile || !r.empty()) righe.emplace_back(r);
        }
    }
    EndFile = 0;
    SetFPos(RefNum, inizio);
    return righe;
}

bool soloUnValore(const std::vector<std::string>& righe) {
    double v = 0;
    return !righe.empty() && std::all_of(righe.begin(), righe.end(), [&](const std::string& r) {
        return CommentoElenco(r) || NumeroElenco(r, r.find(',') != std::string::npos, v);
    });
}

// What the lines tell; of the same shape as the last list, with its columns.
ScelteElenco proposte(const std::vector<std::string>& righe) {
    ScelteElenco s;
    const std::optional<FormaElenco> forma = IndovinaElenco(righe);
    if (!forma) {
        s.stesura = soloUnValore(righe) ? StesuraElenco::valorePerRiga : ultimoElenco.stesura;
        return s;
    }
    s.forma = *forma;
    const FormaElenco& u = ultimoElenco.forma;
    const bool simile = ultimoElenco.stesura == StesuraElenco::tavola && u.separa == forma->separa
                        && u.virgolaDecimale == forma->virgolaDecimale && u.conTesta == forma->conTesta
                        && u.quante == forma->quante && FormaUsabile(u);
    if (simile) s.forma.colonne = u.colonne;
    return s;
}

class DialogoElenco : public TParametri {
public:
    DialogoElenco(const std::vector<std::string>& r, ScelteElenco& s) : righe(r), scelte(s) {}
    bool accettato = false;

    void Display() override {
        SetDialogItemValue(theDialog, vStesura, static_cast<std::int32_t>(scelte.stesura) + 1);
        SetDialogItemValue(theDialog, vSeparatore, static_cast<std::int32_t>(scelte.forma.separa) + 1);
        SetDialogItemValue(theDialog, vDecimale, scelte.forma.virgolaDecimale ? 2 : 1);
        SetDialogItemValue(theDialog, vTesta, scelte.forma.conTesta);
        for (std::int16_t v = vPrimaColonna; v <= vUltimaColonna; ++v)
            SetDialogItemValue(theDialog, v, static_cast<std::int32_t>(colonna(v)) + 1);
        const bool tavola = scelte.stesura == StesuraElenco::tavola;
        for (const std::int16_t v : {vSeparatore, vDecimale, vTesta}) HiliteDialogItem(theDialog, v, tavola ? 0 : 255);
        const std::size_t quante = mostraTavola();
        for (std::int16_t v = vPrimaColonna; v <= vUltimaColonna; ++v)
            HiliteDialogItem(theDialog, v, tavola && std::size_t(v - vPrimaColonna) < quante ? 0 : 255);
    }

    void Dialogo() override {
        const DialogoAperto aperto(dialogoId);
        SetDialogItemMenu(theDialog, vStesura, menuStesure);
        SetDialogItemMenu(theDialog, vSeparatore, menuSeparatori);
        SetDialogItemMenu(theDialog, vDecimale, menuDecimali);
        for (std::int16_t v = vPrimaColonna; v <= vUltimaColonna; ++v) SetDialogItemMenu(theDialog, v, menuSignificati);
        Display();
        do {
            ModalDialog(MyMovableFilter, itemCorrente);
            if (!quitPending()) colpito();
        } while (!accettato && itemCorrente != annullaItem && !quitPending());
    }

private:
    const std::vector<std::string>& righe;
    ScelteElenco& scelte;

    ColonnaElenco& colonna(std::int16_t voce) {
        return scelte.forma.colonne[static_cast<std::size_t>(voce - vPrimaColonna)];
    }

    // The lines as they would be read, under what their columns are; how many columns there are.
    std::size_t mostraTavola() {
        std::string testata;
        std::vector<std::string> mostrate;
        std::vector<std::string_view> campi;
        std::size_t quante = 0;
        const bool tavola = scelte.stesura == StesuraElenco::tavola;
        for (const std::string& r : righe) {
            if (tavola && CommentoElenco(r)) continue;
            if (tavola)
                CampiElenco(r, scelte.forma.separa, campi);
            else
                campi.assign(1, r);
            quante = std::max(quante, std::min(campi.size(), maxColonneElenco));
            if (mostrate.size() == righeMostrate) continue;
            std::string riga;
            for (std::size_t c = 0; c < std::min(campi.size(), maxColonneElenco); ++c)
                riga.append(c == 0 ? "" : "\t").append(campi[c]);
            std::replace(riga.begin(), riga.end(), '\0', ' ');
            mostrate.push_back(std::move(riga));
        }
        for (std::size_t c = 0; tavola && c < maxColonneElenco; ++c) {
            const auto significato = static_cast<std::int16_t>(scelte.forma.colonne[c]);
            testata += c == 0 ? "" : "\t";
            if (c < quante && significato > 0)
                testata += GetMenuItemText(menuSignificati, static_cast<std::int16_t>(significato + 1));
        }
        SetDialogItemText(theDialog, vTavola, testata.empty() ? std::string(maxColonneElenco - 1, '\t') : testata);
        SetDialogItemRows(theDialog, vTavola, static_cast<std::int16_t>(mostrate.size()));
        for (std::size_t i = 0; i < mostrate.size(); ++i)
            SetDialogItemRow(theDialog, vTavola, static_cast<std::int16_t>(i + 1), mostrate[i], {});
        return quante;
    }

    // Another separator or sign: the columns are guessed again where the lines make such a table.
    void altraForma() {
        const std::optional<FormaElenco> forma = IndovinaElenco(righe);
        if (forma && forma->separa == scelte.forma.separa && forma->virgolaDecimale == scelte.forma.virgolaDecimale)
            scelte.forma = *forma;
    }

    void colpito() {
        const std::int32_t valore = GetDialogItemValue(theDialog, itemCorrente);
        if (itemCorrente == vStesura) {
            scelte.stesura = static_cast<StesuraElenco>(valore - 1);
        } else if (itemCorrente == vSeparatore) {
            scelte.forma.separa = static_cast<SeparaElenco>(valore - 1);
            altraForma();
        } else if (itemCorrente == vDecimale) {
            scelte.forma.virgolaDecimale = valore == 2;
            altraForma();
        } else if (itemCorrente == vTesta) {
            scelte.forma.conTesta = !scelte.forma.conTesta;
        } else if (itemCorrente >= vPrimaColonna && itemCorrente <= vUltimaColonna) {
            colonna(itemCorrente) = static_cast<ColonnaElenco>(valore - 1);
        } else if (itemCorrente == okItem) {
            accettato = scelte.stesura != StesuraElenco::tavola || FormaUsabile(scelte.forma);
            if (!accettato) StopAlert(avvisoColonne);
            return;
        } else {
            return;
        }
        Display();
    }
};

bool chiedi(const std::vector<std::string>& righe, ScelteElenco& s) {
    SetCursor(arrowCursor);
    DialogoElenco d(righe, s);
    d.Poni(vOk, vAnnulla, 0, 0, dialogo);
    d.Dialogo();
    SetCursor(ClockCursor);
    return d.accettato;
}

void ricorda(const ScelteElenco& s) {
    const std::int16_t lista = RefNum;   // the settings file is the one in use meanwhile
    const std::string inLavoro = fileInLavoro;
    const std::int16_t tipo = TipoForm;
    const auto colonne = DatoP;
    TFormatoXYZ formato;
    formato.leggipar();   // the saved layout stays what it is
    TipoForm = TipoFormNum;
    DatoP = DatoPNum;
    ultimoElenco = s;
    formato.scrivipar();
    TipoForm = tipo;
    DatoP = colonne;
    RefNum = lista;
    fileInLavoro = inLavoro;
    uscita = 0;
}

}   // namespace

void ScriviScelteElenco() {
    const FormaElenco& f = ultimoElenco.forma;
    if (f == FormaElenco{}) return;   // no table was read yet
    scrivib(static_cast<std::uint8_t>(segnoScelte));
    for (const std::uint8_t b :
         {versioneScelte, static_cast<std::uint8_t>(ultimoElenco.stesura), static_cast<std::uint8_t>(f.separa),
          std::uint8_t{f.virgolaDecimale}, std::uint8_t{f.conTesta}, f.quante})
        scrivib(b);
    for (const ColonnaElenco c : f.colonne) scrivib(static_cast<std::uint8_t>(c));
}

void LeggiScelteElenco() {
    constexpr std::int64_t lungo = 7 + std::int64_t{maxColonneElenco};
    std::int64_t pos = 0, fine = 0;
    GetFPos(RefNum, pos);
    GetEOF(RefNum, fine);
    if (fine - pos < lungo || leggib() != segnoScelte || leggib() != versioneScelte) return;
    ScelteElenco s;
    const std::uint8_t stesura = leggib(), separa = leggib();
    s.forma.virgolaDecimale = leggib() == 1;
    s.forma.conTesta = leggib() == 1;
    s.forma.quante = leggib();
    bool buone = stesura <= static_cast<std::uint8_t>(StesuraElenco::puntoPerRiga)
                 && separa <= static_cast<std::uint8_t>(SeparaElenco::bianchi);
    for (ColonnaElenco& c : s.forma.colonne) {
        const std::uint8_t b = leggib();
        buone = buone && b <= static_cast<std::uint8_t>(ColonnaElenco::codice);
        c = static_cast<ColonnaElenco>(b);
    }
    if (!buone || uscita) return;
    s.stesura = static_cast<StesuraElenco>(stesura);
    s.forma.separa = static_cast<SeparaElenco>(separa);
    ultimoElenco = s;
}

void ImportaElenco() {
    if (!DialogAnswered(dialogo)) return LeggiXYZ();
    uscita = 0;
    EndFile = 0;
    const std::vector<std::string> righe = primeRighe();
    if (uscita) return;
    ScelteElenco scelte = proposte(righe);
    if (!chiedi(righe, scelte)) return;
    ricorda(scelte);
    if (scelte.stesura == StesuraElenco::tavola) return LeggiElenco(scelte.forma);
    const std::int16_t prima = TipoForm;
    TipoForm = scelte.stesura == StesuraElenco::valorePerRiga ? rigaPerValore : rigaPerPunto;
    LeggiXYZ();
    TipoForm = prima;
}

namespace {
const VoceStato righe[] = {{"ultimoElenco", [] { ultimoElenco = {}; }, nullptr}};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
