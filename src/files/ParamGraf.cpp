// The graphics parameters' dialog and file, and what follows from them.
#include "files/ParamGraf.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>

#include "dialogs/Errori.h"
#include "dialogs/Parametri.h"
#include "display/Ridisegno.h"
#include "display/Zoom.h"
#include "files/Blocchi.h"
#include "files/Impostazioni.h"
#include "files/TestiFile.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Stato.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "platform/Files.h"
#include "text/EndianConvert.h"
#include "text/FileDati.h"

namespace tessaro {

constinit double LargTav = 42;
constinit double AltTav = 30;

constinit std::int16_t ItemUnit = 18;

namespace {

constexpr std::int16_t ParamGrafDia = 2013;
constexpr const char* nomeFile = "PGraf56";
constexpr std::int16_t campoScala = 4, campoLargo = 6, campoAlto = 8;
constexpr std::int16_t primoAngolo = 10, primaUnita = 12, unitaLibera = 18;

// decimiUnita by unit. Kept: inch and foot are the survey ones.
constexpr std::array<double, 6> decimiDi{10, 100, 10000, 10000000, 254.00508, 3048.06096};

// The file's fields in order, each with its length. Reading stops at the first that the file does not hold whole.
struct FilePGraf {
    std::array<std::uint8_t, 72> byte{};
    std::size_t presenti = 0, pos = 0;

    template <class T>
    bool prendi(T& v) {
        if (pos + sizeof v > presenti) return false;
        std::memcpy(&v, byte.data() + pos, sizeof v);
        pos += sizeof v;
        return true;
    }
    bool intero(std::int16_t& v) {
        if (!prendi(v)) return false;
        v = EndiansShort_BtoN(v);
        return true;
    }
    bool reale(double& v) {
        if (!prendi(v)) return false;
        v = EndiansDouble_BtoN(v);
        return true;
    }
    // The unit's byte and the three behind it.
    bool unita(std::int16_t& v) {
        std::array<std::uint8_t, 4> quattro{};
        if (!prendi(quattro)) return false;
        v = quattro[0];
        return true;
    }
};

FilePGraf contenuto() {
    FilePGraf l;
    if (!ApriImpostazioni(nomeFile, false)) return l;
    auto n = static_cast<std::int32_t>(l.byte.size());
    FSRead(RefNum, n, l.byte.data());   // fewer bytes than wanted are what the defaults are for
    l.presenti = static_cast<std::size_t>(n);
    FSClose(RefNum);
    return l;
}

// What Revert reads from the file, as it was when the dialog opened: Cancel puts it back.
struct Prima {
    std::int16_t unita = UnitaMCorrente, sceltaUnita = ItemUnit, angolo = tipoAngolo, largaFoglio = XFDecimi,
                 altaFoglio = YFDecimi, largaTav = btav, altaTav = htav;
    double decimi = decimiUnita, scala = Scaladis, data = DataUltima, largo = Xfoglio, alto = yfoglio,
           tavLarga = LargTav, tavAlta = AltTav;
    void rimetti() const {
        UnitaMCorrente = unita;
        ItemUnit = sceltaUnita;
        tipoAngolo = angolo;
        XFDecimi = largaFoglio;
        YFDecimi = altaFoglio;
        btav = largaTav;
        htav = altaTav;
        decimiUnita = decimi;
        Scaladis = scala;
        DataUltima = data;
        Xfoglio = largo;
        yfoglio = alto;
        LargTav = tavLarga;
        AltTav = tavAlta;
    }
};

void predefiniti() {
    ItemUnit = unitaLibera;
    UnitaMCorrente = unitaLibera - primaUnita;
    LargTav = btav / 100.0;
    AltTav = htav / 100.0;
    XFDecimi = arrotonda16(100 * Xfoglio);
    YFDecimi = arrotonda16(100 * yfoglio);
    tipoAngolo = 1;
}

// A unit, scale or size that is not finite and above 0 keeps what was before. Which they were is told, and that the file
// ends early.
void risana(const Prima& prima, bool finisce) {
    struct Campo {
        double& valore;
        double senza;
        int numero;   // of the field in the file
    };
    std::string quali;
    for (const Campo& c : {Campo{decimiUnita, prima.decimi, 3},
                           {Scaladis, prima.scala, 4},
                           {Xfoglio, prima.largo, 6},
                           {yfoglio, prima.alto, 8},
                           {LargTav, prima.tavLarga, 10},
                           {AltTav, prima.tavAlta, 12}}) {
        if (std::isfinite(c.valore) && c.valore > 0) continue;
        c.valore = c.senza;
        quali += (quali.empty() ? "" : ", ") + std::to_string(c.numero);
    }
    if (quali.empty() && !finisce) return;
    const std::string che = quali.empty() ? TestoDi(TestoFile::campi, "-") : TestoDi(TestoFile::campi, quali);
    MostraGuasto({noErr, che, nomeFile, -1});
}

}   // namespace

void TParamGraf::leggipar() {
    uscita = 0;
    const Prima prima;   // the start settings', or what is in force
    FilePGraf l = contenuto();
    const bool intero = l.intero(ItemUnit) && l.unita(UnitaMCorrente) && l.reale(decimiUnita) && l.reale(Scaladis)
                        && l.reale(DataUltima) && l.reale(Xfoglio) && l.intero(XFDecimi) && l.reale(yfoglio)
                        && l.intero(YFDecimi) && l.reale(LargTav) && l.intero(btav) && l.reale(AltTav) && l.intero(htav)
                        && l.intero(tipoAngolo);
    if (!intero) predefiniti();
    risana(prima, l.presenti > 0 && !intero);
    // Radio items that are not there would be asked for otherwise.
    if (ItemUnit < primaUnita || ItemUnit > unitaLibera) ItemUnit = unitaLibera;
    UnitaMCorrente = std::clamp<std::int16_t>(UnitaMCorrente, 0, unitaLibera - primaUnita);
    tipoAngolo = tipoAngolo != 0;
    itemAngolo = static_cast<std::int16_t>(tipoAngolo + primoAngolo);
}

void TParamGraf::scrivipar() {
    if (!ApriImpostazioni(nomeFile, true)) return;
    scrivii(ItemUnit);
    scrivib(static_cast<std::uint8_t>(UnitaMCorrente));
    for (int i = 0; i < 3; ++i) scrivib(0);
    scrivir(decimiUnita);
    scrivir(Scaladis);
    scrivir(DataUltima);
    scrivir(Xfoglio);
    scrivii(XFDecimi);
    scrivir(yfoglio);
    scrivii(YFDecimi);
    scrivir(LargTav);
    scrivii(btav);
    scrivir(AltTav);
    scrivii(htav);
    scrivii(tipoAngolo);
    ChiudiImpostazioni();
}

void TParamGraf::Display() {
    ScriviCampoReale(campoScala, Scaladis, 2);
    ScriviCampoReale(campoLargo, Xfoglio, 2);
    ScriviCampoReale(campoAlto, yfoglio, 2);
    SetDialogItemValue(theDialog, itemAngolo, 1);
    SetDialogItemValue(theDialog, ItemUnit, 1);
}

void TParamGraf::AzzeraButton() {
    SetDialogItemValue(theDialog, itemAngolo, 0);
    SetDialogItemValue(theDialog, ItemUnit, 0);
}

void TParamGraf::inggene(std::uint8_t ripristino) {
    if (!ripristino) {
        double scala = 0, largo = 0, alto = 0;
        if (!LeggiCampo(campoScala, 0.1, 1e6, scala) || !LeggiCampo(campoLargo, 10.0, 200.0, largo)
            || !LeggiCampo(campoAlto, 10.0, 200.0, alto))
            return;
        Scaladis = scala;
        Xfoglio = largo;
        yfoglio = alto;
    }
    PoniAnnulla(aNiente);
    tipoAngolo = static_cast<std::int16_t>(itemAngolo - primoAngolo);
    UnitaMCorrente = static_cast<std::int16_t>(ItemUnit - primaUnita);
    const auto unita = static_cast<std::size_t>(UnitaMCorrente);
    decimiUnita = unita < decimiDi.size() ? decimiDi[unita] : decTessCont;
}

void TParamGraf::ripristina() {
    AzzeraButton();
    leggipar();
    inggene(1);
    Display();
    esito = 1;
}

// What the item that was hit does.
void TParamGraf::colpito() {
    if (itemCorrente == campoScala || itemCorrente == campoLargo || itemCorrente == campoAlto) {
        cambiato = 1;
    } else if (itemCorrente >= primoAngolo && itemCorrente < primaUnita) {
        RadioBoxItem(itemAngolo);
    } else if (itemCorrente >= primaUnita && itemCorrente <= unitaLibera) {
        RadioBoxItem(ItemUnit);
    } else if (itemCorrente == okItem || itemCorrente == salvaItem) {
        inggene(0);
    } else if (itemCorrente == ripristinaItem) {
        ripristina();
    }
    OscuraAnnulla();
}

void TParamGraf::Dialogo() {
    ItemUnit = static_cast<std::int16_t>(UnitaMCorrente + primaUnita);   // a drawing brings its own unit
    const Prima prima;
    const DialogoAperto aperto(dialogoId);
    itemAngolo = static_cast<std::int16_t>(tipoAngolo + primoAngolo);
    Display();
    SelectDialogItemText(theDialog, campoScala, 0, 100);
    const auto chiude = [this] {
        return (itemCorrente == okItem || itemCorrente == annullaItem || itemCorrente == salvaItem) && esito > 0;
    };
    do {
        ModalDialog(MyMovableFilter, itemCorrente);
        colpito();
    } while (!chiude() && !(itemCorrente == annullaItem && quitPending()));
    if (itemCorrente == annullaItem) prima.rimetti();
}

void TParamGraf::Param() {
    cambiato = 0;
    esito = 1;
    itemCorrente = 0;
    if (inizio) {
        leggipar();
    } else {
        Dialogo();
        if (itemCorrente == salvaItem) scrivipar();
    }
    btav = arrotonda16(100 * LargTav);
    htav = arrotonda16(100 * AltTav);
    XFDecimi = arrotonda16(100 * Xfoglio);
    YFDecimi = arrotonda16(100 * yfoglio);
    CalcolaRapporti();
    // Kept: the corrections are crossed here, and only here and behind a drawing's units.
    htav1 = scalaX * htav;
    btav1 = scalaY * btav;
    if (cambiato) InvalFinestra();
    AggiornaBarre();
    if (VScroll) ShowControl(VScroll);
    if (HScroll) ShowControl(HScroll);
}

void PoniUnitaDisegno(std::int16_t unita) {
    const auto n = static_cast<std::size_t>(unita);
    if (n >= decimiDi.size()) return;
    UnitaMCorrente = unita;
    ItemUnit = static_cast<std::int16_t>(unita + primaUnita);
    decimiUnita = decimiDi[n];
    CalcolaRapporti();
}

bool ParamGraf() {
    const PortaCorrente porta;
    TParamGraf p;
    p.Poni(1, 2, 20, 19, ParamGrafDia);
    p.Param();
    return !p.annullato();
}

namespace {
const VoceStato righe[] = {voce<LargTav>("LargTav"), voce<AltTav>("AltTav"), voce<ItemUnit>("ItemUnit")};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
