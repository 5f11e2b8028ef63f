// Rectification: the picture is thrown forward through the live transformation, whole or cut to a polyline.
#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

#include "dialogs/Errori.h"
#include "dialogs/Parametri.h"
#include "display/Zoom.h"
#include "model/Annulla.h"
#include "model/Selezione.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "platform/Memory.h"
#include "platform/Resources.h"
#include "raster/Lavoro.h"
#include "raster/NuovaImmagine.h"
#include "raster/Percorri.h"
#include "raster/raster.h"
#include "raster/RettificaMesh.h"
#include "registration/attaccoDinamico.h"
#include "registration/MappaFoglio.h"

namespace tessaro {

constinit double risoluzione = 150;
constinit std::int16_t tipoPitc = 1, tipoTaglio = 1, tipoTrasformazione = 2, numeroColori = 3, bitColore = 32;
constinit std::uint8_t morbida = 0, conLenteRettifica = 0;

namespace {

void allarga(double x, double y, double& x1, double& y1, double& x2, double& y2) {
    x1 = std::min(x1, x);
    y1 = std::min(y1, y);
    x2 = std::max(x2, x);
    y2 = std::max(y2, y);
}

constexpr double vuoto = 1e99;

void copiaVertice(std::int32_t i, const elemento& e) {
    Xtaglio[static_cast<std::size_t>(i)] = e.poli.x;
    Ytaglio[static_cast<std::size_t>(i)] = e.poli.y;
}

std::int32_t ultimoVertice(std::int32_t testa) {
    return std::clamp<std::int32_t>(Elem(testa).poli.numVertici, 0, std::min(maxTaglio - 1, indElem - testa));
}

// Many points bend the sides: the result holds them all, not the corners alone.
void latiPiegati() {
    constexpr int parti = 64;
    for (int i = 0; i <= parti; ++i) {
        const double f = static_cast<double>(i) / parti, px = x1Pict + f * (x2Pict - x1Pict),
                     py = y1Pict + f * (y2Pict - y1Pict);
        for (Coppia c : {Coppia{px, y1Pict}, Coppia{px, y2Pict}, Coppia{x1Pict, py}, Coppia{x2Pict, py}}) {
            attaccoAttivo.Traf4Pt(c.x, c.y);
            allarga(c.x, c.y, x1Pict2, y1Pict2, x2Pict2, y2Pict2);
        }
    }
}

// The whole picture through the transformation; a polyline only takes a part of the result.
void boxDestinazione(std::int32_t poligono) {
    x1Pict = x1PosPict = x1PictBase;
    y1Pict = y1PosPict = y1PictBase;
    x2Pict = x2PosPict = x2PictBase;
    y2Pict = y2PosPict = y2PictBase;
    struct Angolo {
        double sx, sy, &x, &y;
    };
    const Angolo angoli[] = {{x1Pict, y1Pict, x1Trasf, y1Trasf},
                             {x1Pict, y2Pict, x2Trasf, y2Trasf},
                             {x2Pict, y2Pict, x3Trasf, y3Trasf},
                             {x2Pict, y1Pict, x4Trasf, y4Trasf}};
    x1Pict2 = y1Pict2 = vuoto;
    x2Pict2 = y2Pict2 = -vuoto;
    for (const Angolo& a : angoli) {
        a.x = a.sx;
        a.y = a.sy;
        attaccoAttivo.Traf4Pt(a.x, a.y);
        allarga(a.x, a.y, x1Pict2, y1Pict2, x2Pict2, y2Pict2);
    }
    if (TipoMappa() == mappaPerMolti) latiPiegati();
    // Kept: a cut at the destination leaves the ratios those of the whole picture.
    const double ratioX = (x2Pict2 - x1Pict2) / (x2Pict - x1Pict), ratioY = (y2Pict2 - y1Pict2) / (y2Pict - y1Pict);
    if (poligono != 0) {
        x1PosPict = x1Pict2;
        y1PosPict = y1Pict2;
        x2PosPict = x2Pict2;
        y2PosPict = y2Pict2;
        double px1 = vuoto, py1 = vuoto, px2 = -vuoto, py2 = -vuoto;
        ultimoTaglio = ultimoVertice(poligono);
        for (std::int32_t i = 0; i <= ultimoTaglio; ++i) {
            copiaVertice(i, Elem(poligono + i));
            allarga(Elem(poligono + i).poli.x, Elem(poligono + i).poli.y, px1, py1, px2, py2);
        }
        x1Pict2 = std::max(x1Pict2, px1);
        y1Pict2 = std::max(y1Pict2, py1);
        x2Pict2 = std::min(x2Pict2, px2);
        y2Pict2 = std::min(y2Pict2, py2);
    }
    CalcolaMisure(ratioX, ratioY);
}

void boxSorgente(std::int32_t poligono) {
    x1Pict = y1Pict = x1Pict2 = y1Pict2 = vuoto;
    x2Pict = y2Pict = x2Pict2 = y2Pict2 = -vuoto;
    ultimoTaglio = ultimoVertice(poligono);
    for (std::int32_t i = 0; i <= ultimoTaglio; ++i) {
        copiaVertice(i, Elem(poligono + i));
        double x = Elem(poligono + i).poli.x, y = Elem(poligono + i).poli.y;
        allarga(x, y, x1Pict, y1Pict, x2Pict, y2Pict);
        attaccoAttivo.Traf4Pt(x, y);
        allarga(x, y, x1Pict2, y1Pict2, x2Pict2, y2Pict2);
    }
    x1PosPict = x1Pict - x1PictBase;
    y1PosPict = y1Pict - y1PictBase;
    x2PosPict = x2Pict - x1PictBase;
    y2PosPict = y2Pict - y1PictBase;
    CalcolaMisure((x2Pict2 - x1Pict2) / (x2Pict - x1Pict), (y2Pict2 - y1Pict2) / (y2Pict - y1Pict));
}

}   // namespace

void CalcolaVertici(const elemento& pict, std::int32_t poligono) {
    BaseDi(pict);
    if (poligono == 0 || tipoTaglio == 2) {
        boxDestinazione(poligono);
    } else {
        boxSorgente(poligono);
    }
}

bool PictureToPixMap(PicHandle pict, bool taglio) {
    if (morbida) return RettificaMorbida(pict, taglio);
    const bool alSorgente = taglio && tipoTaglio == 1;
    MisuraRaster(alSorgente);
    LavoroRaster lavoro(deformProspettica != 0);
    const auto sorgente = SorgentePossibile() && !EmptyRect(rectGW2)
                              ? std::make_unique<Sorgente>(PictBytes(pict), mapSizeX, mapSizeY, bitColore)
                              : nullptr;
    Tela risultato;
    if (!sorgente || !sorgente->leggibile()
        || !NuovaTela(risultato, larghBitMap, altBitMap, sorgente->formato(), true)) {
        AvvisoMemoria(MemoriaChiesta());
        return false;
    }
    numQudrilateri = 1;
    MascheraTaglio maschera;
    Percorso p{*sorgente,           risultato, PianoDelLavoro(risultato), MappaturaAttiva(), pictRect,
               TaglioWalk::nessuno, &maschera};
    if (alSorgente) p.taglio = TaglioWalk::sorgente;
    if (taglio && tipoTaglio == 2) p.taglio = TaglioWalk::destinazione;
    EsitoPercorso esito = p.taglio == TaglioWalk::destinazione && !maschera.prepara(p.piano) ? EsitoPercorso::memoria
                                                                                             : EsitoPercorso::fatto;
    if (esito == EsitoPercorso::fatto) esito = Percorri(p, [&lavoro](double f) { return lavoro.passo(f); });
    if (esito == EsitoPercorso::memoria) AvvisoMemoria(MemoriaChiesta());
    if (esito != EsitoPercorso::fatto) return false;
    const std::int32_t unita = PixelPerUnita(larghBitMap, altBitMap);
    return AggiungiImmagine(lavoro, ExtendedStdBits(risultato, sorgente->formato(), FrameDi(risultato), tipoPitc),
                            x1Pict2, y1Pict2, (x2Pict2 - x1Pict2) * Completamento(larghBitMap, unita),
                            (y2Pict2 - y1Pict2) * Completamento(altBitMap, unita));
}

Scelti PictScelta() {
    Scelti s;
    if (!Puntosel.multipla) {
        if (UnSoloElemento() && Elem(Puntosel.indice).tipo == tPict) s.pict = Puntosel.indice;
        return s;
    }
    // Kept: from record 2 on; its type is none of the two.
    for (std::int32_t n = 2; n <= indElem; ++n) {
        if (!Elem(n).selezionato) continue;
        if (Elem(n).tipo == tPict) s.pict = n;
        if (Elem(n).tipo == tPoligono) s.poligono = n;
    }
    return s;
}

namespace {

void modoDelLavoro() {
    deformProspettica = tipoTrasformazione == 2;
    coeffRisoluzione = risoluzione / 72;
}

}   // namespace

bool RettificaPict(const elemento& pict, std::int32_t poligono) {
    const ConMappa mappa(nullptr);   // the preview of many points has no part in it
    modoDelLavoro();
    ErroreAlert(attaccoAttivo.PreparaAttacco());   // what was prepared last may be of other points
    bool fatta = false;
    if (attaccoAttivo.Preparato()) {
        CalcolaVertici(pict, poligono);
        fatta = PictureToPixMap(pict.pict.maniglia, poligono != 0);
    } else {
        constexpr std::int16_t avvisoNonPronta = 9140;
        deformProspettica = 1;
        StopAlert(avvisoNonPronta);
    }
    deformProspettica = 1;
    return fatta;
}

// The picture's points go by a net as fine as a hundredth of a result's pixel asks. The last row and column of a dense source
// may lie a little beyond its frame.
bool RettificaPictMolti(const elemento& pict, std::int32_t poligono, MappaFoglio& molti) {
    const ConMappa mappa(&molti);
    modoDelLavoro();
    BaseDi(pict);
    const double pixel = DecPunto / coeffRisoluzione;
    {
        Termometro termometro(LavoroLungo::mappa);
        constexpr double nonSiSa = std::numeric_limits<double>::quiet_NaN();   // how fine a net will do
        constexpr double orlo = 0.002;
        const double bordo = 4 * pixel + orlo * std::max(x2PictBase - x1PictBase, y2PictBase - y1PictBase);
        molti.PerPixel(x1PictBase - bordo, y1PictBase - bordo, x2PictBase + bordo, y2PictBase + bordo, 0.01 * pixel,
                       [&termometro] { return termometro.passo(nonSiSa); });
        if (termometro.fermato()) return false;
    }
    CalcolaVertici(pict, poligono);
    const bool fatta = PictureToPixMap(pict.pict.maniglia, poligono != 0);
    deformProspettica = 1;
    return fatta;
}

namespace {

void trasforma(std::int16_t item, MappaFoglio* molti) {
    constexpr std::int16_t listaTesti = 129, stringaPunti = 63, stringaMesh = 64;
    const Scelti scelti = Puntosel.attiva ? PictScelta() : Scelti{};
    if (scelti.pict == 0) {
        SysBeep(200);
        return;
    }
    ParamText(GetIndString(listaTesti, item == 2 ? stringaMesh : stringaPunti), "", "", "");
    if (!ScegliRisoluzione(risoluzione, scelti.poligono != 0)) return;
    const elemento pict = Elem(scelti.pict);
    if (molti != nullptr) {
        RettificaPictMolti(pict, scelti.poligono, *molti);
    } else if (item != 2) {
        RettificaPict(pict, scelti.poligono);
    } else {
        const ConMappa mappa(nullptr);
        modoDelLavoro();
        if (VerificaMesh()) {
            CalcolaVerticiMesh(pict);
            PictureToPixMapMesh(pict.pict.maniglia);
        }
    }
    deformProspettica = 1;
    InvalFinestra();
}

}   // namespace

void TrasformaPictSel(std::int16_t item) { trasforma(item, nullptr); }
void TrasformaPictMolti(MappaFoglio& molti) { trasforma(1, &molti); }

namespace {
const VoceStato righe[] = {
    voce<risoluzione>("risoluzione"),
    voce<tipoPitc>("tipoPitc"),
    voce<tipoTaglio>("tipoTaglio"),
    voce<tipoTrasformazione>("tipoTrasformazione"),
    voce<numeroColori>("numeroColori"),
    voce<morbida>("morbida"),
    voce<conLenteRettifica>("conLenteRettifica"),
    voce<bitColore>("bitColore"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
