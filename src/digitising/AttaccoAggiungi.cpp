// Transformed copies of the selection, added behind the drawing: what is really drawn of the live transformation.
#include "digitising/AttaccoAggiungi.h"

#include <algorithm>
#include <cmath>

#include "dialogs/Errori.h"
#include "dialogs/Parametri.h"
#include "digitising/RegistrazioneValida.h"
#include "display/Ridisegno.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Figura.h"
#include "model/PuntiElemento.h"
#include "model/Selezione.h"
#include "model/Unita.h"
#include "platform/Resources.h"
#include "registration/attaccoDinamico.h"
#include "registration/MappaFoglio.h"
#include "text/Conversione.h"

namespace tessaro {

// --- which layer

namespace {

bool qualcosaSelezionato() {
    if (!Puntosel.attiva) return false;
    return Puntosel.multipla || (Puntosel.oggetto < oMeshOrigine && Puntosel.indice >= 3 && Puntosel.indice <= indElem);
}

// What is copied, in words.
PStr255 nomeSelezione() {
    constexpr std::int16_t lista = 129, piuElementi = 32;
    struct Nome {
        std::uint8_t tipo;
        std::int16_t stringa;
    };
    constexpr Nome nomi[] = {{tSegmento, 29}, {tMarker, 31},  {tPoligono, 30},
                             {tTesto, 33},    {tCerchio, 46}, {tArco, 47}};
    std::int16_t stringa = Puntosel.multipla ? piuElementi : std::int16_t{0};
    for (const Nome& n : nomi)
        if (!Puntosel.multipla && Elem(Puntosel.indice).tipo == n.tipo) stringa = n.stringa;
    return stringa ? PStr255(std::string_view(GetIndString(lista, stringa))) : PStr255("");
}

}   // namespace

namespace {

class TLucidoCopie : public TParametri {
    static constexpr std::int16_t dialogo = 138, ok = 1, annulla = 2, campo = 4, mostra = 5;

public:
    static constexpr std::int16_t nessuno = -1;

    void Display() override {
        const PStr255 s = Puntosel.multipla ? PStr255("") : NumToString(Elem(Puntosel.indice).lucido);
        SetDialogItemText(theDialog, campo, s.view());
    }
    std::int16_t chiedi() {
        constexpr std::int16_t massimo = 99;
        const DialogoAperto aperto(dialogo);
        Display();
        SelectDialogItemText(theDialog, campo, 0, 100);
        std::int16_t layer = nessuno;
        esito = 1;
        do {
            ModalDialog(MyMovableFilter, itemCorrente);
            if (itemCorrente == mostra) {
                esito = 1;
                Display();
            }
        } while (itemCorrente != annulla
                 && !(itemCorrente == ok && LeggiCampo(campo, std::int16_t{0}, massimo, layer)));
        return itemCorrente == ok ? layer : nessuno;
    }
};

}   // namespace

std::int16_t PoniLucidoCopie() {
    if (!qualcosaSelezionato()) {
        SysBeep(30);
        return TLucidoCopie::nessuno;
    }
    ParamText(nomeSelezione().view(), "", "", "");
    const std::int16_t layer = TLucidoCopie().chiedi();
    return qualcosaSelezionato() ? layer : TLucidoCopie::nessuno;
}

// --- the copies

namespace {

// Record n and the vertices behind it that are its own, of the first `ultimo` records.
std::int32_t recordDi(std::int32_t n, std::int32_t ultimo) {
    if (Elem(n).tipo != tPoligono) return 1;
    return 1 + std::clamp<std::int32_t>(Elem(n).poli.numVertici, 0, ultimo - n);
}

// Behind the drawing, all of it or nothing. Kept: the vertices of a polyline keep the layer they had.
void copia(std::int32_t n, std::int32_t ultimo, std::int16_t layer) {
    const std::int32_t quanti = recordDi(n, ultimo);
    if (quanti > maxElementi - indElem) return;
    const std::int32_t primo = indElem + 1;
    CopiaRecord(primo, n, quanti);
    indElem += quanti;
    elemento& testa = Elem(primo);
    testa.lucido = layer;
    for (std::int32_t i = primo; i <= indElem; ++i) {
        Elem(i).selezionato = 0;
        attaccoAttivo.TrasformaCopia(Elem(i));
    }
    if (testa.tipo == tPict) testa.pict.maniglia = NewPict(PictBytes(testa.pict.maniglia));   // one owner a number
}

}   // namespace

void AggiungiElemento(std::int16_t layer) { copia(Puntosel.indice, indElem, layer); }

void AggiungiMultipla(std::int16_t layer) {
    if (std::int64_t{Puntosel.numSel} + indElem >= maxElementi) return;
    const std::int32_t ultimo = indElem;
    for (std::int32_t n = 3; n <= ultimo; ++n)
        if (Elem(n).selezionato && Elem(n).tipo != tVertice) copia(n, ultimo, layer);   // a vertex goes with its head
}

namespace {

void rifiuta(const std::string& guasto) {
    constexpr std::int16_t avviso = 9150;
    StopAlertParam(avviso, guasto);
}

// Did every copied point land somewhere?
bool copieFinite() {
    bool finite = true;
    const auto guarda = [&finite](f64& x, f64& y) { finite = finite && std::isfinite(x) && std::isfinite(y); };
    for (std::int32_t n = inizioAggiunta + 1; n <= indElem; ++n) {
        PerPunti(Elem(n), guarda);
        if (Elem(n).tipo == tCerchio) finite = finite && std::isfinite(Elem(n).cerc.raggio);
        if (Elem(n).tipo == tArco) finite = finite && std::isfinite(Elem(n).arco.raggio);
    }
    return finite;
}

void togliCopie() {
    for (std::int32_t n = inizioAggiunta + 1; n <= indElem; ++n)
        if (Elem(n).tipo == tPict) KillPicture(Elem(n).pict.maniglia);
    indElem = inizioAggiunta;
}

}   // namespace

namespace {

void aggiungi(const MappaFoglio* molti) {
    const std::int16_t layer = PoniLucidoCopie();
    if (layer < 0) return;
    const ConMappa mappa(molti);   // the preview's has no part in a told command
    if (molti == nullptr) {
        if (const std::string guasto = GuastoTrasformazione(); !guasto.empty()) return rifiuta(guasto);
        ErroreAlert(attaccoAttivo.PreparaAttacco());   // afresh: points may have moved since
    }
    CominciaAggiunta();
    if (Puntosel.multipla) {
        AggiungiMultipla(layer);
    } else {
        AggiungiElemento(layer);
    }
    if (!copieFinite()) {
        togliCopie();
        constexpr std::int16_t lista = 9150, senzaPosto = 1;
        return rifiuta(GetIndString(lista, senzaPosto));
    }
    if (indElem <= inizioAggiunta) return;
    PoniAnnulla(aAggiunta);
    InvalWind();
}

}   // namespace

void Aggiungi() { aggiungi(nullptr); }
void AggiungiPerMolti(const MappaFoglio& molti) { aggiungi(&molti); }

}   // namespace tessaro
