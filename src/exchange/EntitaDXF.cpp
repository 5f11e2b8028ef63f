// The loop over entities, the groups that they share, and those that become one record.
#include "exchange/EntitaDXF.h"

#include <algorithm>
#include <cmath>

#include "exchange/DXF.h"
#include "exchange/GruppiDXF.h"
#include "exchange/Operazione.h"
#include "model/Archivio.h"
#include "model/Carattere.h"
#include "model/Colori.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Lucidi.h"
#include "model/Penna.h"
#include "model/Unita.h"
#include "platform/Events.h"
#include "registration/Coordinate.h"
#include "text/Conversione.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

const PStr255 senzaTesto("");

}   // namespace

const TLeggiEntitaDXF::Operazione TLeggiEntitaDXF::operazioni[] = {
    {"LINE", &TLeggiEntitaDXF::Linea},      {"POLYLINE", &TLeggiEntitaDXF::Poligono},
    {"TEXT", &TLeggiEntitaDXF::DXFTesto},   {"POINT", &TLeggiEntitaDXF::Punto},
    {"CIRCLE", &TLeggiEntitaDXF::Cerchio},  {"ARC", &TLeggiEntitaDXF::Arco},
    {"INSERT", &TLeggiEntitaDXF::Insert},   {"MTEXT", &TLeggiEntitaDXF::DXFTesto},
    {"ATTRIB", &TLeggiEntitaDXF::DXFTesto}, {"ATTDEF", &TLeggiEntitaDXF::DXFTesto},
    {"TRACE", &TLeggiEntitaDXF::Traccia},   {"SOLID", &TLeggiEntitaDXF::Solido},
    {"3Dline", &TLeggiEntitaDXF::Linea},
};

void TLeggiEntitaDXF::azzeraScratch() {
    scratch = elemento{};
    scratch.tipo = tSegmento;
    scratch.segm.z1 = zcurs;
    scratch.segm.z2 = zcurs;
    scratch.segm.spessore = spessore;
    scratch.segm.colore = colorCorrente;
    scratch.segm.pattern = NumPat;
}

void TLeggiEntitaDXF::Leggi() {
    RigheDxf& righe = lettura.righe;
    fine = false;
    azzeraScratch();
    if (!inBlocco && CodiceGruppo(righe.riga()) != g0) righe.cerca("  0");
    const auto contaLayer = [this] {
        if (!inBlocco && layerVisti.size() > 1)
            lettura.resoconto.cambiati.aggiungi(cLayerRiuniti, static_cast<std::int64_t>(layerVisti.size()));
    };
    while (!fine && !righe.finite()) {
        if (nomeLetto) {
            nomeLetto = false;
            const std::string nome = sospeso;
            entita(nome);
        } else {
            entita(righe.riga());
        }
    }
    contaLayer();
    if (!inBlocco) RimuoviBlocchiDXF();
}

void TLeggiEntitaDXF::entita(std::string_view nome) {
    for (const Operazione& o : operazioni) {
        if (!StessaParola(nome, o.nome)) continue;
        MostraOperazione(o.nome.data());
        fineEntita = false;
        (this->*o.leggi)();
        return;
    }
    if (StessaParola(nome, inBlocco ? "ENDBLK" : "ENDSEC")) {
        fine = true;
        return;
    }
    // The closing of a polyline or of attributes is no entity of its own.
    if (!StessaParola(nome, "SEQEND") && !StessaParola(nome, "EOF")) lettura.resoconto.tralascia(nome);
    saltaEntita();
    if (EndFile) SysBeep(30);
}

void TLeggiEntitaDXF::saltaEntita() {
    while (prossimo()) saltaValore();
}

bool TLeggiEntitaDXF::prossimo() {
    if (lettura.righe.finite()) return false;
    gruppo = lettura.righe.codice();
    fineEntita = gruppo == g0;
    return !fineEntita;
}

bool TLeggiEntitaDXF::reale(double& dove) {
    if (lettura.righe.reale(dove)) return true;
    const std::string_view s = lettura.righe.riga();
    if (s.empty() && lettura.righe.finite()) return false;
    return RealeDaRiga(s, dove);
}

bool TLeggiEntitaDXF::reale(f64& dove) {
    double v = 0;
    if (!reale(v)) return false;
    dove = v;
    return true;
}

// 0 and 256, by block and by layer, are as no colour at all.
bool TLeggiEntitaDXF::colore(f16& dove) {
    constexpr std::int16_t daBlocco = 0, massimo = 255, daLayer = 256, interoMalformato = 0;
    const std::string_view s = lettura.righe.riga();
    if (s.empty() && lettura.righe.finite()) return false;
    std::int16_t v = 0;
    switch (InteroDaRiga(s, daBlocco, daLayer, v)) {
    case Intero::malformato: Sbaglio(interoMalformato, uscita); return false;
    case Intero::fuoriLimiti: lettura.resoconto.coloreFuori(); return false;
    case Intero::buono: break;
    }
    if (v == daBlocco || v > massimo) return false;
    dove = NumToColor(v);
    return true;
}

std::int16_t TLeggiEntitaDXF::layer() {
    const std::string_view riga = lettura.righe.riga();
    if (layerNoto && riga == rigaLayer) return ultimoLayer;
    rigaLayer = riga;
    ultimoLayer = layerDi(rigaLayer);
    layerNoto = true;
    return ultimoLayer;
}

// A name of other characters than ASCII may come to mean another one in the course of a file: it is asked for anew.
std::int16_t TLeggiEntitaDXF::layerDi(const std::string& nome) {
    constexpr std::size_t nomiTenuti = 1000;   // a hostile file may hold a million names
    const auto noto = layerVisti.find(nome);
    if (noto != layerVisti.end()) return noto->second;
    const std::string mac = lettura.alfabeto.nome(nome);
    const std::int16_t l = CercaLayer(Str255To15(PStr255(std::string_view(mac))));
    const bool ascii =
        std::all_of(nome.begin(), nome.end(), [](char c) { return static_cast<std::uint8_t>(c) < 0x80; });
    if (ascii && layerVisti.size() < nomiTenuti) layerVisti.emplace(nome, l);
    return l;
}

bool TLeggiEntitaDXF::attributi(f16& dovePattern, f16& doveColore) {
    switch (gruppo) {
    case g6: dovePattern = RigaToPat(lettura.righe.riga()); return true;
    case g62: colore(doveColore); return true;
    case g8:
        if (const std::int16_t l = layer(); l > 0) {
            // Kept: entry number l, which is the layer before the one that the entity names.
            const layerdxfT& riga = Layerdxf[static_cast<std::size_t>(l - 1)];
            doveColore = NumToColor(riga.colore);
            dovePattern = riga.pattern;
        }
        return true;
    default: return false;
    }
}

void TLeggiEntitaDXF::posizione(double& x, double& y) const {
    if (inBlocco) return;
    RealToDigi(x, y, x, y);
}

double TLeggiEntitaDXF::raggio(double r) const { return inBlocco ? r : r / rappvid; }

// What another kind of entity left in the place of a colour or pattern may be anything.
void TLeggiEntitaDXF::ammessi(std::int16_t& col, std::int16_t& pat) {
    constexpr std::int16_t massimoPattern = 39;
    if (col < 1 || col > maxColori) col = colorCorrente;
    if (pat < 1 || pat > massimoPattern) pat = NumPat;
}

void TLeggiEntitaDXF::memorizza(Tipoelem tipo, const Valori& v, std::int16_t col, std::int16_t pat) {
    if (indElem >= maxElementi) lettura.resoconto.senzaPosto();
    ammessi(col, pat);
    Memorizza(tipo, v.a, v.b, v.c, v.d, v.e, 0, spessore, col, pat, senzaTesto);
}

void TLeggiEntitaDXF::Linea() {
    auto& s = scratch.segm;
    while (prossimo()) {
        switch (gruppo) {
        case g10: reale(s.x1); break;
        case g20: reale(s.y1); break;
        case g30: reale(s.z1); break;
        case g11: reale(s.x2); break;
        case g21: reale(s.y2); break;
        case g31: reale(s.z2); break;
        default:
            if (!attributi(s.pattern, s.colore)) saltaValore();
        }
    }
    if (!fineEntita) return;
    double x1 = s.x1, y1 = s.y1, x2 = s.x2, y2 = s.y2;
    posizione(x1, y1);
    posizione(x2, y2);
    if (indElem >= maxElementi) lettura.resoconto.senzaPosto();
    std::int16_t col = s.colore, pat = s.pattern;
    ammessi(col, pat);
    Memorizza(tSegmento, x1, y1, s.z1, x2, y2, s.z2, spessore, col, pat, senzaTesto);
}

void TLeggiEntitaDXF::Punto() {
    auto& m = scratch.mark;
    std::int16_t lucido = VisioneGraf.lucidoCorrente;
    while (prossimo()) {
        switch (gruppo) {
        case g10: reale(m.x); break;
        case g20: reale(m.y); break;
        case g30:
        case g38: reale(m.z); break;
        case g6: m.pattern = RigaToPat(lettura.righe.riga()); break;
        case g62: colore(m.colore); break;
        case g8: lucido = LucidoDelLayerDXF(layer()); break;
        default: saltaValore();
        }
    }
    if (!fineEntita) return;
    double x = m.x, y = m.y;
    posizione(x, y);
    const std::int16_t corrente = VisioneGraf.lucidoCorrente;
    VisioneGraf.lucidoCorrente = lucido;
    memorizza(tMarker, {x, y, m.z, static_cast<double>(markerCorrente), 0}, m.colore, m.pattern);
    VisioneGraf.lucidoCorrente = corrente;
}

void TLeggiEntitaDXF::Cerchio() {
    auto& c = scratch.cerc;
    while (prossimo()) {
        switch (gruppo) {
        case g10: reale(c.cx); break;
        case g20: reale(c.cy); break;
        case g40: reale(c.raggio); break;
        default:
            if (!attributi(c.pattern, c.colore)) saltaValore();
        }
    }
    if (!fineEntita) return;
    double x = c.cx, y = c.cy;
    posizione(x, y);
    memorizza(tCerchio, {x, y, raggio(c.raggio), 0, 0}, c.colore, c.pattern);
}

namespace {

// Degrees from 0 up to a turn; what is no number is 0.
double inGiro(double gradi) {
    if (gradi >= 0 && gradi < 360) return gradi;
    if (gradi < 0 && gradi >= -360) return gradi + 360 == 360 ? 0 : gradi + 360;
    gradi = std::fmod(gradi, 360);
    if (!std::isfinite(gradi)) return 0;
    return gradi < 0 ? gradi + 360 : gradi;
}

}   // namespace

void TLeggiEntitaDXF::Arco() {
    auto& a = scratch.arco;
    while (prossimo()) {
        switch (gruppo) {
        case g10: reale(a.cx); break;
        case g20: reale(a.cy); break;
        case g40: reale(a.raggio); break;
        case g50: reale(a.angoloInizio); break;
        case g51: reale(a.ampiezza); break;
        default:
            if (!attributi(a.pattern, a.colore)) saltaValore();
        }
    }
    if (!fineEntita) return;
    double x = a.cx, y = a.cy;
    posizione(x, y);
    // From group 50 anticlockwise to group 51; here arcs run clockwise from straight up. Equal angles are a full turn.
    const double ampiezza = inGiro(a.ampiezza - a.angoloInizio);
    memorizza(tArco, {x, y, raggio(a.raggio), inGiro(90 - a.ampiezza), ampiezza == 0 ? 360 : ampiezza}, a.colore,
              a.pattern);
}

void TLeggiEntitaDXF::Traccia() {
    lettura.resoconto.tralascia("TRACE");
    saltaEntita();
}

void TLeggiEntitaDXF::Solido() {
    lettura.resoconto.tralascia("SOLID");
    saltaEntita();
}

namespace {

constexpr std::size_t testoMassimo = 40;

// Size in points of letters of a height in real units.
std::int16_t corpo(double altezza) {
    return std::clamp(arrotonda16(1.2 * (altezza / rappvid / DecPunto)), std::int16_t{5}, std::int16_t{127});
}

}   // namespace

// Group 1 of a text: its words, cut to what a record holds.
void TLeggiEntitaDXF::parole(elemento::Testo& t, bool& codici, bool& tagliato) {
    const std::string_view riga = lettura.righe.riga();
    if (riga.find("%%") != std::string_view::npos || riga.find('\\') != std::string_view::npos) codici = true;
    const std::string intero = lettura.alfabeto.testo(riga), s = intero.substr(0, testoMassimo);
    tagliato = intero.size() > testoMassimo;
    t.testo[0] = static_cast<std::uint8_t>(s.size());
    std::copy(s.begin(), s.end(), t.testo.begin() + 1);
}

void TLeggiEntitaDXF::DXFTesto() {
    auto& t = scratch.test;
    double v = 0;
    bool codici = false, tagliato = false;
    t.testo[0] = 0;
    t.dimensione = 12;
    t.angolo = 100;
    while (prossimo()) {
        switch (gruppo) {
        case g10: reale(t.x); break;
        case g20: reale(t.y); break;
        case g40:
            if (reale(v)) t.dimensione = gFontSize = corpo(v);
            break;
        case g50:
            if (reale(v)) t.angolo = arrotonda16(SessadToAng(90 - v, gradCorrente));
            break;
        case g1: parole(t, codici, tagliato); break;
        case g62: colore(t.colore); break;
        case g8:
            if (const std::int16_t l = layer(); l > 0)
                t.colore = NumToColor(Layerdxf[static_cast<std::size_t>(l - 1)].colore);
            else
                t.colore = 1;
            break;
        default: saltaValore();
        }
    }
    if (!fineEntita || t.testo[0] == 0) return;
    if (codici) lettura.resoconto.cambiati.aggiungi(cCodiciTesto);
    if (tagliato) lettura.resoconto.cambiati.aggiungi(cTestiTagliati);
    double x = t.x, y = t.y;
    posizione(x, y);
    if (!std::isfinite(x) || !std::isfinite(y)) x = y = 0;
    if (indElem >= maxElementi) lettura.resoconto.senzaPosto();
    // Kept: the colour too is that of the last line, not what group 62 or the layer said.
    std::int16_t col = scratch.segm.colore, pat = NumPat;
    ammessi(col, pat);
    const std::string_view scritta(reinterpret_cast<const char*>(t.testo.data()) + 1, t.testo[0]);
    Memorizza(tTesto, x, y, 0, 0, 0, 0, 0, col, t.angolo, PStr255(scritta));
}

}   // namespace tessaro
