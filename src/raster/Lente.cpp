// Optical correction: a new picture with the bowing of the lens in use taken out, each of its pixels asked back.
#include <algorithm>
#include <memory>

#include "dialogs/Errori.h"
#include "dialogs/Parametri.h"
#include "display/Zoom.h"
#include "editing/Cancella.h"
#include "editing/Scelta.h"
#include "model/Selezione.h"
#include "model/Unita.h"
#include "raster/Correzione.h"
#include "raster/Gruppo.h"
#include "raster/Lavoro.h"
#include "raster/Lenti.h"
#include "raster/NuovaImmagine.h"
#include "raster/raster.h"
#include "raster/Sorgente.h"

namespace tessaro {

namespace {

constexpr std::int16_t dialogo = 156, campoRisoluzione = 4, menuColori = 7, elencoLenti = 11, lenti = 12,
                       cancellaItem = 17;

class TRisoluzioneOttica : public TParametri {
public:
    TRisoluzioneOttica() { Poni(1, 2, 0, 0, dialogo); }
    bool Chiedi(double& res, std::uint8_t& cancella);

private:
    void Display() override;
    void ItemColpito() override;
    void IngGene(std::uint8_t) override { LeggiCampo(campoRisoluzione, minRisoluzione, maxRisoluzione, letta); }
    void mostraLenti();

    double letta = 0;
    std::uint8_t togliVecchia = 0, fineMorbido = morbida;
    std::int16_t colori = numeroColori, lente = indiceLenteAttuale;
    Gruppo trasferimento{8, 3, tipoPitc};
};

void TRisoluzioneOttica::mostraLenti() {
    RifaiMenuLenti();
    lente = std::min(lente, lentiPresenti);
    SetDialogItemMenu(theDialog, elencoLenti, menuLenti);
    SetDialogItemValue(theDialog, elencoLenti, lente);
}

void TRisoluzioneOttica::Display() {
    SetDialogItemMenu(theDialog, menuColori, menuBit);
    ScriviCampoReale(campoRisoluzione, letta, 0);
    SetDialogItemValue(theDialog, menuColori, colori);
    SetDialogItemValue(theDialog, cancellaItem, togliVecchia);
    SetDialogItemValue(theDialog, spuntaMorbida, fineMorbido);
    trasferimento.mostra();
    mostraLenti();
}

void TRisoluzioneOttica::ItemColpito() {
    if (trasferimento.ha(itemCorrente)) trasferimento.scegli(itemCorrente);
    switch (itemCorrente) {
    case menuColori: PopUp(menuColori, menuBit, 0, 1, colori); break;
    case elencoLenti: PopUp(elencoLenti, menuLenti, 0, 1, lente); break;
    case lenti:
        indiceLenteAttuale = lente;
        SceltaCorrezioneOttica(0);
        lente = indiceLenteAttuale;
        mostraLenti();
        break;
    case spuntaMorbida:
        CambiaCheck(spuntaMorbida);
        fineMorbido = fineMorbido == 0;
        break;
    case cancellaItem:
        CambiaCheck(cancellaItem);
        togliVecchia = togliVecchia == 0;
        break;
    default: break;
    }
}

bool TRisoluzioneOttica::Chiedi(double& res, std::uint8_t& cancella) {
    const std::int16_t prima = indiceLenteAttuale;
    letta = res;
    togliVecchia = cancella;
    const DialogoAperto aperto(dialogo);
    Giro(campoRisoluzione);
    if (!Accettato() || quitPending()) {
        indiceLenteAttuale = std::min(prima, lentiPresenti);
        return false;
    }
    res = letta;
    tipoPitc = trasferimento.valore;
    numeroColori = colori;
    bitColore = BitDi(colori);
    indiceLenteAttuale = lente;
    cancella = togliVecchia;
    morbida = fineMorbido;
    return true;
}

}   // namespace

bool ScegliRisoluzioneOttica(double& res, std::uint8_t& cancella) { return TRisoluzioneOttica().Chiedi(res, cancella); }

void CalcolaVerticiCorrezione(const elemento& pict) {
    BaseDi(pict);
    x1Pict = x1PictBase;
    y1Pict = y1PictBase;
    x2Pict = x2PictBase;
    y2Pict = y2PictBase;
    larghBitMap = Troncato32(coeffRisoluzione * (x2Pict - x1Pict) / DecPunto);
    altBitMap = Troncato32(coeffRisoluzione * (y2Pict - y1Pict) / DecPunto);
    coeffRisoluzioneSrc = coeffRisoluzione;   // asked back, the source needs no density
    risoluzioneSrc = static_cast<std::int16_t>(Troncato32(risoluzione));
}

bool PictureToPixMapCorrezione(PicHandle pict) {
    if (morbida) return CorrezioneMorbida(pict);
    MisuraRaster(false);
    LavoroRaster lavoro;
    const auto sorgente = SorgentePossibile() && !EmptyRect(rectGW2)
                              ? std::make_unique<Sorgente>(PictBytes(pict), mapSizeX, mapSizeY, bitColore)
                              : nullptr;
    Tela src, dst;
    if (!sorgente || !sorgente->leggibile() || !sorgente->intera(src)
        || !NuovaTela(dst, larghBitMap, altBitMap, sorgente->formato(), true)) {
        AvvisoMemoria(2 * MemoriaTela(std::max(larghBitMap, 0), std::max(altBitMap, 0), bitColore / 8));
        return false;
    }
    const Bombature& lente = deformazioneOttica[static_cast<std::size_t>(indiceLenteAttuale - 1)].valori;
    if (!PercorriIndietro(src, dst, RichiestaLente(lente, src), [&lavoro](double f) { return lavoro.passo(f); }))
        return false;
    src.dati.reset();
    std::string bytes;
    if (!EmptyRect(destRect)) bytes = ImmagineDaTela(dst, sorgente->formato(), destRect, tipoPitc);
    return AggiungiImmagine(lavoro, std::move(bytes), x1Pict, y1Pict, destRect.right * DecPunto,
                            destRect.bottom * DecPunto);
}

void CorreggiPictSel() {
    static constinit std::uint8_t cancella = 0;
    const Scelti scelti = Puntosel.attiva ? PictScelta() : Scelti{};
    if (scelti.pict == 0) {
        SysBeep(200);
        return;
    }
    if (!ScegliRisoluzioneOttica(risoluzione, cancella)) return;
    coeffRisoluzione = risoluzione / 72;
    const elemento pict = Elem(scelti.pict);
    CalcolaVerticiCorrezione(pict);
    const std::int32_t prima = indElem;
    const bool fatta = PictureToPixMapCorrezione(pict.pict.maniglia);
    // Only where the new picture stands in its place, and nothing but the old one.
    if (fatta && cancella && indElem > prima) {
        TogliSelezione();
        Elem(scelti.pict).selezionato = 1;
        Puntosel.attiva = 1;
        Puntosel.multipla = 0;
        Puntosel.numSel = 1;
        Puntosel.oggetto = oPict;
        Puntosel.indice = scelti.pict;
        RifaiRettSel();
        CancellaSelezione();
    }
    InvalFinestra();
}

}   // namespace tessaro
