// The lens table's dialog on a working copy, and its settings file at start.
#include <algorithm>
#include <cmath>

#include "dialogs/Parametri.h"
#include "model/Mesh.h"
#include "platform/Resources.h"
#include "raster/Lenti.h"
#include "raster/ParamLenses.h"
#include "text/Conversione.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr std::int16_t dialogo = 155, listaTesti = 129, stringaNuova = 20;
constexpr std::int16_t primoCampo = 8, primoCursore = 12, valori = 4;   // left, right, top, bottom
constexpr std::int16_t campoNome = 16, daMesh = 17, elencoLenti = 19, cancella = 20, aggiungi = 21, prendi = 25;
constexpr std::int16_t nomeLungo = -5;

class TParametriCamera : public TParametri {
public:
    TParametriCamera() { Poni(1, 2, 3, 18, dialogo); }
    virtual void scrivipar() { ScriviParamLenses(tavola); }
    virtual void leggipar();
    void Display() override;
    virtual void inggene();
    void Dialogo() override;
    virtual void AggPopItem();
    virtual void AggiungiLente();
    virtual void CancellaLente();
    void Scelta(std::uint8_t avvio);

private:
    TavolaLenti tavola;
    std::int16_t lente = 1;      // selected, from 1
    std::int16_t mostrata = 1;   // the one whose values the fields hold

    LenteOttica& corrente() { return tavola.lenti[static_cast<std::size_t>(lente - 1)]; }
    void entroTavola() { lente = std::clamp<std::int16_t>(lente, 1, std::max<std::int16_t>(tavola.presenti, 1)); }
    void applica();
    void cambiaLente();
    void valoriDallaMesh();
    void cursoreMosso(std::int16_t n);
    void campoScritto(std::int16_t n);
    void colpito();
    void scriviValore(std::int16_t n, double v);
};

double& valore(Bombature& b, std::int16_t n) {
    double* const v[] = {&b.sinistra, &b.destra, &b.alto, &b.basso};
    return *v[n];
}

void TParametriCamera::leggipar() {
    uscita = 0;
    tavola = LentiPredefinite();
    if (!LeggiParamLenses(tavola)) uscita = 0;
}

void TParametriCamera::applica() {
    deformazioneOttica = tavola.lenti;
    lentiPresenti = tavola.presenti;
    indiceLenteAttuale = lente;
    RifaiMenuLenti();
}

void TParametriCamera::scriviValore(std::int16_t n, double v) {
    ScriviCampoReale(static_cast<std::int16_t>(primoCampo + n), v, 2);
    if (std::fabs(v) <= maxBombatura)
        SetDialogItemValue(theDialog, static_cast<std::int16_t>(primoCursore + n),
                           static_cast<std::int32_t>(std::lround(v * 10)));
}

// The pop-up shows the names of the working copy: its menu takes them for the dialog's length.
void TParametriCamera::AggPopItem() {
    MostraMenuLenti(tavola);
    SetDialogItemMenu(theDialog, elencoLenti, menuLenti);
    SetDialogItemValue(theDialog, elencoLenti, lente);
}

void TParametriCamera::Display() {
    AggPopItem();
    mostrata = lente;
    SetDialogItemText(theDialog, campoNome, NomeLente(corrente()));
    for (std::int16_t n = 0; n < valori; ++n) scriviValore(n, valore(corrente().valori, n));
}

// The fields go into the working copy, under the lens that they were shown for.
void TParametriCamera::inggene() {
    const std::string nome = GetDialogItemText(theDialog, campoNome);
    esito = 1;
    if (nome.size() > maxNomeLente) {
        esito = nomeLungo;
        inx = maxNomeLente;
        SysBeep(30);
        SelectDialogItemText(theDialog, campoNome, inx, 255);
        return;
    }
    LenteOttica letta = tavola.lenti[static_cast<std::size_t>(mostrata - 1)];
    for (std::int16_t n = 0; n < valori; ++n)
        if (!LeggiCampo(static_cast<std::int16_t>(primoCampo + n), -maxBombatura, maxBombatura,
                        valore(letta.valori, n)))
            return;
    PoniNomeLente(letta, nome);
    tavola.lenti[static_cast<std::size_t>(mostrata - 1)] = letta;
}

void TParametriCamera::cambiaLente() {
    const auto scelta = static_cast<std::int16_t>(GetDialogItemValue(theDialog, elencoLenti));
    inggene();
    if (esito > 0 && scelta >= 1 && scelta <= tavola.presenti) lente = scelta;
    if (esito > 0)
        Display();
    else
        SetDialogItemValue(theDialog, elencoLenti, lente);
}

void TParametriCamera::AggiungiLente() {
    lente = ++tavola.presenti;
    LenteOttica& l = corrente() = LenteOttica{};
    PoniNomeLente(l, GetIndString(listaTesti, stringaNuova));
    Display();
}

// One lens is always there: the last one that goes leaves one of zeros.
void TParametriCamera::CancellaLente() {
    if (tavola.presenti <= 1) {
        tavola = LentiPredefinite();
        lente = 1;
    } else {
        const auto primo = tavola.lenti.begin() + lente;
        std::copy(primo, tavola.lenti.begin() + tavola.presenti, primo - 1);
        --tavola.presenti;
        lente = std::min(lente, tavola.presenti);
    }
    Display();
}

// What the mesh of no span gives is shown as it is, and refused when the fields are read.
void TParametriCamera::valoriDallaMesh() {
    if (meshOrigine.nx < 2 || meshOrigine.ny < 2) {
        SysBeep(30);
        return;
    }
    Bombature b = DallaMesh(meshOrigine);
    for (std::int16_t n = 0; n < valori; ++n) scriviValore(n, valore(b, n));
}

void TParametriCamera::cursoreMosso(std::int16_t n) {
    const std::int32_t v = GetDialogItemValue(theDialog, static_cast<std::int16_t>(primoCursore + n));
    ScriviCampoReale(static_cast<std::int16_t>(primoCampo + n), v / 10.0, 2);
}

// A value that reads well moves its slider; one that does not yet says nothing.
void TParametriCamera::campoScritto(std::int16_t n) {
    const PStr255 s(std::string_view(GetDialogItemText(theDialog, static_cast<std::int16_t>(primoCampo + n))));
    const std::uint8_t prima = uscita;
    std::int16_t posto = 0;
    double v = 0;
    const bool buono = STRtoFP(-maxBombatura, maxBombatura, s, v, posto, 0) > 0 && std::fabs(v) <= maxBombatura;
    uscita = prima;
    if (!buono) return;
    SetDialogItemValue(theDialog, static_cast<std::int16_t>(primoCursore + n),
                       static_cast<std::int32_t>(std::lround(v * 10)));
}

void TParametriCamera::colpito() {
    if (itemCorrente >= primoCampo && itemCorrente < primoCampo + valori)
        campoScritto(static_cast<std::int16_t>(itemCorrente - primoCampo));
    if (itemCorrente >= primoCursore && itemCorrente < primoCursore + valori)
        cursoreMosso(static_cast<std::int16_t>(itemCorrente - primoCursore));
    switch (itemCorrente) {
    case daMesh: valoriDallaMesh(); break;
    case elencoLenti: cambiaLente(); break;
    case cancella: CancellaLente(); break;
    case aggiungi:
        if (tavola.presenti >= maxLenti) {
            SysBeep(30);
            break;
        }
        inggene();
        if (esito > 0) AggiungiLente();
        break;
    case prendi:
        inggene();
        if (esito > 0) Display();
        break;
    default: break;
    }
    if (itemCorrente == okItem || itemCorrente == salvaItem) inggene();
    if (itemCorrente == ripristinaItem) {
        leggipar();
        entroTavola();
        esito = 1;
        Display();
    }
    OscuraAnnulla();
}

void TParametriCamera::Dialogo() {
    const DialogoAperto aperto(dialogoId);
    Display();
    SelectDialogItemText(theDialog, primoCampo, 0, 100);
    bool chiude = false;
    do {
        ModalDialog(MyMovableFilter, itemCorrente);
        if (quitPending()) break;
        colpito();
        chiude = itemCorrente == okItem || itemCorrente == salvaItem || itemCorrente == annullaItem;
    } while (!(chiude && esito > 0));
}

void TParametriCamera::Scelta(std::uint8_t avvio) {
    if (avvio) {
        leggipar();
        entroTavola();
        applica();
        return;
    }
    tavola = {deformazioneOttica, lentiPresenti};
    lente = indiceLenteAttuale;
    entroTavola();
    Dialogo();
    if (esito <= 0 || quitPending() || itemCorrente == annullaItem) {
        RifaiMenuLenti();
        return;
    }
    applica();
    if (itemCorrente == salvaItem) scrivipar();
}

}   // namespace

void SceltaCorrezioneOttica(std::uint8_t avvio) { TParametriCamera().Scelta(avvio); }

}   // namespace tessaro
