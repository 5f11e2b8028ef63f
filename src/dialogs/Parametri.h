// The protocol of the settings dialogs: display, validate, save, revert; and the small helpers that all dialogs share.
#pragma once

#include <array>
#include <cstdint>

#include "platform/Dialogs.h"
#include "text/PascalString.h"

namespace tessaro {

// Real coordinates and lengths that a dialog takes lie within plus and minus this, in the user's unit: national grids in
// millimetres have ten digits.
inline constexpr double limiteReale = 1e9;

extern DialogPtr theDialog;              // the modal dialog now open; not valid outside one
extern std::array<PStr255, 32> Stdato;   // field texts, by field number from 1
extern std::int16_t Noitem;              // item hit, for plain dialogs
extern std::int16_t inx;                 // position of the bad character
extern std::int16_t err_;                // validity in plain dialogs: above 0 is good

// Keys Return and Enter press item 1; windows behind are repainted.
bool MyMovableFilter(DialogPtr d, EventRecord& e, std::int16_t& item);

// A modal dialog as a scope: it is theDialog until the block ends, however it ends.
class DialogoAperto {
    DialogPtr prima = theDialog;

public:
    explicit DialogoAperto(std::int16_t id) { theDialog = GetNewDialog(id); }
    ~DialogoAperto() {
        DisposeDialog(theDialog);
        theDialog = prima;
    }
    DialogoAperto(const DialogoAperto&) = delete;
    DialogoAperto& operator=(const DialogoAperto&) = delete;
};

class TParametri {
public:
    virtual ~TParametri() = default;
    // The numbers of the items that end the dialog (0: it has none) and of the dialog itself.
    virtual void Poni(std::int16_t ok, std::int16_t annulla, std::int16_t salva, std::int16_t ripristina,
                      std::int16_t dialogo);
    virtual void LeggiPar() {}
    virtual void ScriviPar() {}
    virtual void Display() {}
    virtual void IngGene(std::uint8_t ripristino) { (void)ripristino; }
    virtual void
    RadioBoxItem(std::int16_t& gruppo);   // off at the item in gruppo, on at itemCorrente, which gruppo becomes
    virtual void CambiaCheck(std::int16_t item);   // flips the check box itemCorrente
    virtual void Dialogo() {}
    [[nodiscard]] bool Accettato() const { return itemCorrente == okItem && esito > 0; }

protected:
    std::int16_t okItem = 1, annullaItem = 2, salvaItem = 0, ripristinaItem = 0, dialogoId = 0;
    std::int16_t itemCorrente = 0;   // last item hit
    std::int16_t esito = 1;          // above 0 good, else a value was refused

    // Field n (item 2n + 2) by STRtoFP or STRtoINT between bounds that are enforced; a fault selects the field (whole,
    // or the bad character for the codes 0 and -3), says why, and sets esito to the code. False on a fault.
    bool LeggiCampo(std::int16_t item, const double& min, const double& max, double& value);
    bool LeggiCampo(std::int16_t item, std::int16_t min, std::int16_t max, std::int16_t& value);
    virtual void Riprendi() {}      // what Display shows, as it was before the dialog
    virtual void ItemColpito() {}   // what a hit of itemCorrente changes at once, before the rest is done about it
    // The loop of a dialog with OK, Cancel and, where there is one, Revert, in the block of its DialogoAperto. A value that IngGene refuses keeps it open; a quit ends it.
    void Giro(std::int16_t primoCampo, ModalFilter filtro = MyMovableFilter);
    // Dims Cancel while a value is refused: until the field holds a good one again, or the dialog is reverted.
    void OscuraAnnulla();

private:
    // The field that LeggiCampo refused last, and the bounds it has.
    struct Rifiutato {
        std::int16_t item = 0;   // 0: none
        bool intero = false;
        double min = 0, max = 0;
    } rifiutato;
    [[nodiscard]] bool rimediato() const;
};

// The same for plain dialogs: reads `item` of theDialog into value; sets err_ and inx. What is refused is said and
// selected.
bool LeggiCampoReale(std::int16_t item, const double& min, const double& max, double& value);
bool LeggiCampoIntero(std::int16_t item, std::int16_t min, std::int16_t max, std::int16_t& value);
void ScriviCampoReale(std::int16_t item, const double& value, std::int16_t decimals);
// Which part of a refused field is selected: all of it in general, one character at inx for 0 and -3.
void SelezionaErrore(std::int16_t item, std::int16_t code, std::int16_t pos);
void RadioBoxItem(std::int16_t& item);   // moves the radio mark of theDialog from item to Noitem, stores Noitem

// Repaints theWindow for the filters; set by the shell's update code.
extern void (*ridipingiFinestra)();

// The pop-up at a dialog item was used: `valore` becomes what it now shows. The toolkit opens it and draws it, with the
// texts of its menu (SetDialogItemMenu), so only the item matters here; no choice keeps `valore`.
void PopUp(std::int16_t item, std::int16_t menu, std::int16_t distanza, std::uint8_t dialogoPopup,
           std::int16_t& valore);

// What a bar says that is no dialog's or file's own: list 9640.
enum class LavoroLungo : std::int16_t { salva = 1, scriviImmagine, disegna, croci, mappa, leggiImmagine };

// The thermometer of long jobs.
class Termometro {
public:
    explicit Termometro(const PStr255& titolo);
    explicit Termometro(LavoroLungo quale, ProgressKind genere = ProgressKind::work);
    ~Termometro();
    Termometro(const Termometro&) = delete;
    Termometro& operator=(const Termometro&) = delete;
    bool passo(double frazione);   // false when the person asked to stop
    [[nodiscard]] bool fermato() const;
};

}   // namespace tessaro
