// One question at a time: the loop of its dialog, and the words that say what it is about.
#include "editing/Domanda.h"

#include <algorithm>
#include <array>

#include "dialogs/Parametri.h"
#include "model/Selezione.h"
#include "model/Unita.h"
#include "platform/Resources.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

constexpr std::int16_t ok = 1, annulla = 2, ripristina = 5;
constexpr std::int16_t listaTesti = 129, stringaSelezionati = 22, stringaNuovi = 23;
constexpr std::int16_t listaMia = 9130, stringaImmagine = 1, primaStringaAngoli = 2;

struct NomeOggetto {
    std::int16_t lista, stringa;
};
constexpr std::array<NomeOggetto, 7> nomi{{
    {listaTesti, 31},              // oMarker
    {listaTesti, 29},              // oSegmento
    {listaTesti, 33},              // oTesto
    {listaTesti, 30},              // oPoligono
    {listaMia, stringaImmagine},   // oPict
    {listaTesti, 46},              // oCerchio
    {listaTesti, 47},              // oArco
}};

}   // namespace

bool Domanda(std::int16_t dialogo, std::string_view iniziale, const std::function<bool()>& accetta) {
    const DialogoAperto aperto(dialogo);
    const auto mostra = [&] {
        SetDialogItemText(theDialog, campoDomanda, iniziale);
        SelectDialogItemText(theDialog, campoDomanda, 0, 255);
        err_ = 1;
    };
    mostra();
    bool accettato = false;
    do {
        ModalDialog(MyMovableFilter, Noitem);
        if (Noitem == ripristina) mostra();
        if (Noitem == ok) accettato = !quitPending() && accetta();
    } while (!accettato && Noitem != annulla && !quitPending());
    return accettato;
}

bool DomandaIntero(std::int16_t dialogo, bool vuoto, std::int16_t min, std::int16_t max, std::int16_t& valore) {
    const auto accetta = [&] { return LeggiCampoIntero(campoDomanda, min, max, valore); };
    return Domanda(dialogo, vuoto ? std::string() : NumToString(valore).str(), accetta);
}

std::string Invito(bool selezionato, std::string_view nome) {
    std::string s = GetIndString(listaTesti, selezionato ? stringaSelezionati : stringaNuovi) + std::string(nome);
    if (nome.empty()) s.erase(std::min(s.find_last_not_of(": ") + 1, s.size()));   // nothing stands behind the colon
    return s;
}

std::string NomeSelezione(std::int16_t piu) {
    if (Puntosel.multipla) return GetIndString(listaTesti, piu);
    const auto i = static_cast<std::size_t>(Puntosel.oggetto);
    return i < nomi.size() ? GetIndString(nomi[i].lista, nomi[i].stringa) : std::string();
}

std::string NomeAngoli() {
    return GetIndString(listaMia, static_cast<std::int16_t>(primaStringaAngoli + std::clamp(gradCorrente, 0, 2)));
}

}   // namespace tessaro
