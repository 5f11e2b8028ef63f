// Files, markers, registration, copies and pictures of the table of control points.
#include "shell/PuntiAzioni.h"

#include <algorithm>
#include <string>

#include "bitmap/PictInPixel.h"
#include "dialogs/Errori.h"
#include "dialogs/Parametri.h"
#include "digitising/AttaccoAggiungi.h"
#include "digitising/FilePunti.h"
#include "digitising/PuntiApplica.h"
#include "digitising/PuntiTesti.h"
#include "exchange/ApriScrittura.h"
#include "model/Archivio.h"
#include "model/Lucidi.h"
#include "model/Selezione.h"
#include "model/Stato.h"
#include "platform/Resources.h"
#include "raster/raster.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

enum : std::int16_t { invitoApri = 50, invitoSalva, invitoLista, nessunaRiga, abbinati, senzaMarker, scartate };
constexpr std::int16_t avvisoPunti = 9300, avvisoLettura = 9301, avvisoLetto = 9303;

void avvisa(const std::string& testo) { StopAlertParam(avvisoPunti, testo); }

// What of a file that was read did not serve.
void racconta(const std::string& testo) {
    ParamText(testo, "", "", "");
    NoteAlert(avvisoLetto);
}

PixelDelFoglio pixelDelFoglio() {
    const std::int32_t quale = PictDeiPunti();
    if (quale == 0) return {};
    const auto& p = Elem(quale).pict;
    const PictInPixel pixel(PictBytes(p.maniglia));
    if (pixel.width() < 1 || pixel.height() < 1) return {};
    return {p.x, p.y, p.larghezza / pixel.width(), p.altezza / pixel.height()};
}

bool leggi(std::int16_t invito, TabellaPunti& t) {
    constexpr std::int16_t tipi = 330;
    constexpr std::int64_t massimo = 16 << 20;
    FSSpec file;
    if (!NavGetFile(StringaPunti(invito), tipi, file)) return false;
    std::int16_t ref = 0;
    OSErr e = FSpOpenDF(file, fsRdPerm, ref);
    std::int64_t lunga = 0;
    std::string testo;
    if (e == noErr) {
        (void)GetEOF(ref, lunga);
        auto conto = static_cast<std::int32_t>(std::min(lunga, massimo));
        testo.resize(static_cast<std::size_t>(conto));
        e = FSRead(ref, conto, testo.data());
        testo.resize(static_cast<std::size_t>(std::max(conto, 0)));
        FSClose(ref);
    }
    if (e != noErr && e != eofErr) {
        MostraGuasto({e, {}, file.nome, -1});
        return false;
    }
    EsitoFilePunti letto = LeggiFilePunti(testo, pixelDelFoglio());
    for (RigaPunto& r : letto.tabella.righe) r.nome = Utf8ToMac(r.nome);
    if (letto.tabella.righe.empty()) {
        avvisa(StringaPunti(nessunaRiga));
        return false;
    }
    if (letto.scartate > 0)
        racconta(StringaPunti(scartate, std::to_string(letto.scartate), std::to_string(letto.primaScartata)));
    t = std::move(letto.tabella);
    return true;
}

// What was made by the mapping lies on the true sheet: a read-out that still bends would bend it twice.
void chiediLettura() {
    constexpr std::int16_t imposta = 1;
    if (MappaInVigore() != nullptr && CautionAlert(avvisoLettura) == imposta) SoloSimilitudine();
}

}   // namespace

std::int32_t PictDeiPunti() {
    if (UnSoloElemento() && Elem(Puntosel.indice).tipo == tPict) return Puntosel.indice;
    std::int32_t quale = 0, quante = 0;
    for (std::int32_t n = 3; n <= indElem; ++n) {
        if (Elem(n).tipo != tPict) continue;
        quale = n;
        ++quante;
    }
    return quante == 1 ? quale : 0;
}

void ApriFilePunti() {
    TabellaPunti letta;
    if (!leggi(invitoApri, letta)) return;
    TabellaPunti t = LaTabella();
    for (RigaPunto& r : letta.righe)
        if (t.righe.size() < massimoPuntiTabella) t.righe.push_back(std::move(r));
    PoniTabella(t);
}

void SalvaFilePunti() {
    FSSpec file;
    if (!ApriTesto(StringaPunti(invitoSalva), ".points", file)) return;
    const bool csv = file.percorso.size() > 4 && file.percorso.ends_with(".csv");
    TabellaPunti t = LaTabella();
    for (RigaPunto& r : t.righe) r.nome = MacToUtf8(r.nome);
    const std::string testo =
        csv ? ScriviCsvPunti(t, StatoTabella()) : ScriviPointsQgis(t, StatoTabella(), pixelDelFoglio());
    scriviBlocco(testo.data(), static_cast<std::int32_t>(testo.size()));
    ChiudiScrittura();
}

void AbbinaListaPunti() {
    TabellaPunti elenco;
    if (!leggi(invitoLista, elenco)) return;
    TabellaPunti t = LaTabella();
    const std::size_t quanti = AbbinaPerNome(t, elenco);
    if (quanti < t.righe.size())
        racconta(StringaPunti(abbinati, std::to_string(quanti), std::to_string(t.righe.size() - quanti)));
    PoniTabella(t);
}

void PuntiDaMarker() {
    enum : std::int16_t { dialogo = 9301, ok = 1, annulla = 2, campo = 4 };
    std::int16_t lucido = VisioneGraf.lucidoCorrente, item = 0;
    {
        const PortaCorrente porta;
        const DialogoAperto aperto(dialogo);
        SetDialogItemText(theDialog, campo, std::to_string(lucido));
        SelectDialogItemText(theDialog, campo, 0, 100);
        do ModalDialog(MyMovableFilter, item);
        while (item != annulla && !(item == ok && LeggiCampoIntero(campo, 0, 99, lucido)));
    }
    if (item != ok) return;
    TabellaPunti t = LaTabella();
    if (PuntiDaiMarker(t, lucido) == 0) return avvisa(StringaPunti(senzaMarker, std::to_string(lucido)));
    PoniTabella(t);
}

void ImpostaDaPunti(bool tutta) {
    if (const std::string guasto = ApplicaPunti(tutta); !guasto.empty()) avvisa(guasto);
}

void CopieDaPunti() {
    const auto mappa = MappaDellaTabella();
    if (!mappa) return avvisa(TestoEsito(LaTabella(), StatoTabella()));
    const std::int32_t prima = indElem;
    AggiungiPerMolti(*mappa);
    if (indElem > prima) chiediLettura();
}

void RaddrizzaDaPunti() {
    const auto mappa = MappaDellaTabella();
    if (!mappa) return avvisa(TestoEsito(LaTabella(), StatoTabella()));
    const std::int32_t prima = indElem;
    TrasformaPictMolti(*mappa);
    if (indElem > prima) chiediLettura();
}

}   // namespace tessaro
