// The crosses of a scan's grid into the table of control points, and into the meshes.
#include <algorithm>
#include <cmath>
#include <memory>

#include "bitmap/PictInPixel.h"
#include "dialogs/Parametri.h"
#include "digitising/PuntiTesti.h"
#include "display/Zoom.h"
#include "model/Archivio.h"
#include "model/Mesh.h"
#include "model/Stato.h"
#include "platform/Dialogs.h"
#include "raster/Croci.h"
#include "registration/Coordinate.h"
#include "registration/TabellaPunti.h"
#include "shell/PuntiAzioni.h"

namespace tessaro {

namespace {

enum : std::int16_t { senzaDue = 58, senzaImmagine, nessuna, trovate, senzaRettangolo };
constexpr std::int16_t avvisoPunti = 9300, avvisoTrovate = 9302;

struct Chiesto {                                                  // kept between uses
    double passoX = 100, passoY = 100, braccio = 3, raggio = 4;   // real units; millimetres of the sheet
    bool mesh = false;                                            // the meshes are filled too
};
Chiesto chiesto;

bool chiedi() {
    enum : std::int16_t {
        dialogo = 9302,
        ok = 1,
        annulla = 2,
        passoX = 4,
        passoY = 6,
        braccio = 8,
        raggio = 10,
        mesh = 14
    };
    std::int16_t item = 0;
    const PortaCorrente porta;
    const DialogoAperto aperto(dialogo);
    ScriviCampoReale(passoX, chiesto.passoX, 3);
    ScriviCampoReale(passoY, chiesto.passoY, 3);
    ScriviCampoReale(braccio, chiesto.braccio, 2);
    ScriviCampoReale(raggio, chiesto.raggio, 2);
    SetDialogItemValue(theDialog, mesh, chiesto.mesh);
    SelectDialogItemText(theDialog, passoX, 0, 100);
    Chiesto c;
    c.mesh = chiesto.mesh;
    const auto letto = [&c] {
        return LeggiCampoReale(passoX, 1e-6, 1e9, c.passoX) && LeggiCampoReale(passoY, 1e-6, 1e9, c.passoY)
               && LeggiCampoReale(braccio, 0.2, 100, c.braccio) && LeggiCampoReale(raggio, 0.1, 100, c.raggio);
    };
    do {
        ModalDialog(MyMovableFilter, item);
        if (item == mesh) SetDialogItemValue(theDialog, mesh, c.mesh = !c.mesh);
    } while (item != annulla && !(item == ok && letto()));
    if (item == ok) chiesto = c;
    return item == ok;
}

constexpr double parteLettura = 0.3;   // of the work, by guess: the search is the rest

bool grigia(const elemento& e, ImmagineGrigia& im) {
    constexpr std::int64_t massimo = 400'000'000;   // pixels
    PictInPixel pixel(PictBytes(e.pict.maniglia));
    im.larghezza = pixel.width();
    im.altezza = pixel.height();
    if (im.larghezza < 3 || im.altezza < 3 || std::int64_t{im.larghezza} * im.altezza > massimo) return false;
    constexpr std::int32_t striscia = 256;
    std::vector<std::uint32_t> righe(static_cast<std::size_t>(im.larghezza) * striscia);
    im.valori.resize(static_cast<std::size_t>(im.larghezza) * static_cast<std::size_t>(im.altezza));
    for (std::int32_t y = 0; y < im.altezza; y += striscia) {
        const std::int32_t n = std::min(striscia, im.altezza - y);
        if (!ProgressStep(parteLettura * y / im.altezza) || !pixel.righe(y, n, righe.data())) return false;
        const std::size_t quanti = static_cast<std::size_t>(n) * static_cast<std::size_t>(im.larghezza);
        float* a = im.valori.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(im.larghezza);
        for (std::size_t i = 0; i < quanti; ++i) {
            const std::uint32_t p = righe[i];
            a[i] = 0.299F * static_cast<float>(p >> 16 & 0xFF) + 0.587F * static_cast<float>(p >> 8 & 0xFF)
                   + 0.114F * static_cast<float>(p & 0xFF);
        }
    }
    return true;
}

// Between the sheet and the middles of the picture's pixels.
struct PosaPixel {
    double x, y, perX, perY;   // of the picture's corner; sheet units a pixel
    [[nodiscard]] Coppia pixel(const Coppia& f) const { return {(f.x - x) / perX - 0.5, (f.y - y) / perY - 0.5}; }
    [[nodiscard]] Coppia foglio(const Coppia& p) const { return {x + (p.x + 0.5) * perX, y + (p.y + 0.5) * perY}; }
};

// The row of that corner of the grid, or a new one.
RigaPunto& rigaDi(TabellaPunti& t, const Coppia& reale) {
    for (RigaPunto& r : t.righe)
        if (r.conReale && std::fabs(r.reale.x - reale.x) < chiesto.passoX * 0.01
            && std::fabs(r.reale.y - reale.y) < chiesto.passoY * 0.01)
            return r;
    RigaPunto& r = t.righe.emplace_back();
    r.reale = reale;
    r.conReale = true;
    return r;
}

// Columns and rows of the crosses that were taken.
struct Campo {
    std::int32_t i1 = 1, i2 = 0, j1 = 1, j2 = 0;
    explicit Campo(const std::vector<Croce>& croci) {
        bool primo = true;
        for (const Croce& c : croci) {
            if (!c.presa) continue;
            i1 = primo ? c.i : std::min(i1, c.i);
            i2 = primo ? c.i : std::max(i2, c.i);
            j1 = primo ? c.j : std::min(j1, c.j);
            j2 = primo ? c.j : std::max(j2, c.j);
            primo = false;
        }
    }
};

// Both meshes over the rectangle of the crosses: the source where they are in the picture (or, of those that were not found,
// where they are predicted), the destination where the true sheet has them. Mesh rows run along X, columns along Y, as
// those made by numbers do. False when a corner of the rectangle lies off the picture or a side has over 100 nodes.
bool riempiMesh(const std::vector<Croce>& croci, const PosaPixel& posa, const TabellaPunti& t) {
    const Campo campo(croci);
    const std::int32_t righe = campo.i2 - campo.i1 + 1, colonne = campo.j2 - campo.j1 + 1;
    constexpr std::int32_t massimo = 100;
    SoluzionePunti simile;
    const bool reali = Elem(2).att.coordReali != 0;
    if (righe < 2 || colonne < 2 || righe > massimo || colonne > massimo) return false;
    if (!reali && !RisolviPunti(PuntiDellaTabella(t, true), Metodo::helmert, simile)) return false;
    const auto da = std::make_unique<Mesh>(), a = std::make_unique<Mesh>();
    std::int32_t quanti = 0;
    for (const Croce& c : croci) {
        const std::int32_t r = c.i - campo.i1, k = c.j - campo.j1;
        if (r < 0 || k < 0 || r >= righe || k >= colonne) continue;
        const Coppia qui = posa.foglio(c.presa ? c.dove : c.prevista);
        Coppia la;
        if (reali) {
            Tracoord(TransfInvert, c.reale.x, c.reale.y, la.x, la.y);
        } else if (!simile.mappa.Inversa(c.reale, la)) {
            return false;
        }
        da->x[r][k] = qui.x;
        da->y[r][k] = qui.y;
        a->x[r][k] = la.x;
        a->y[r][k] = la.y;
        ++quanti;
    }
    if (quanti != righe * colonne) return false;
    da->nx = a->nx = static_cast<std::int16_t>(colonne);
    da->ny = a->ny = static_cast<std::int16_t>(righe);
    undoMeshOrigine = meshOrigine;
    undoMeshDestinazione = meshDestinazione;
    meshOrigine = *da;
    meshDestinazione = *a;
    InvalFinestra();
    return true;
}

std::string riempi(TabellaPunti& t, const std::vector<Croce>& croci, const PosaPixel& posa) {
    std::size_t quante = 0;
    double minima = 1;
    for (const Croce& c : croci) {
        if (!c.presa || t.righe.size() >= massimoPuntiTabella) continue;
        RigaPunto& r = rigaDi(t, c.reale);
        r.foglio = posa.foglio(c.dove);
        r.conFoglio = true;
        const std::string fiducia = std::to_string(std::lround(c.fiducia * 100)) + "%";
        if (r.nome.empty() || r.nome.ends_with('%'))
            r.nome = std::to_string(c.i) + "/" + std::to_string(c.j) + " " + fiducia;
        minima = std::min(minima, c.fiducia);
        ++quante;
    }
    return StringaPunti(trovate, std::to_string(quante), std::to_string(croci.size()),
                        std::to_string(std::lround(minima * 100)));
}

}   // namespace

void TrovaCrociTabella() {
    const std::int32_t n = PictDeiPunti();
    if (n == 0) {
        StopAlertParam(avvisoPunti, StringaPunti(senzaImmagine));
        return;
    }
    TabellaPunti t = LaTabella();
    const std::vector<PuntoNoto> note = PuntiDellaTabella(t, true);
    if (note.size() < 2) {
        StopAlertParam(avvisoPunti, StringaPunti(senzaDue));
        return;
    }
    if (!chiedi()) return;
    ImmagineGrigia im;
    const auto& p = Elem(n).pict;
    std::vector<Croce> croci;
    PosaPixel posa{};
    auto termometro = std::make_unique<Termometro>(LavoroLungo::croci);
    if (grigia(Elem(n), im)) {
        posa = {p.x, p.y, p.larghezza / im.larghezza, p.altezza / im.altezza};
        constexpr double mm = 10;   // sheet units
        RichiestaCroci r;
        r.pixelA = posa.pixel(note[0].foglio);
        r.pixelB = posa.pixel(note[1].foglio);
        r.realeA = note[0].reale;
        r.realeB = note[1].reale;
        r.passoX = chiesto.passoX;
        r.passoY = chiesto.passoY;
        r.braccio = chiesto.braccio * mm / posa.perX;
        r.raggio = chiesto.raggio * mm / posa.perX;
        croci = TrovaCroci(
            im, r, [&termometro](double f) { return termometro->passo(parteLettura + (1 - parteLettura) * f); });
    }
    if (termometro->fermato()) return;
    termometro.reset();
    if (croci.empty()) {
        StopAlertParam(avvisoPunti, StringaPunti(nessuna));
        return;
    }
    std::string detto = riempi(t, croci, posa);
    PoniTabella(t);
    if (chiesto.mesh && !riempiMesh(croci, posa, t)) detto += StringaPunti(senzaRettangolo);
    ParamText(detto, "", "", "");
    NoteAlert(avvisoTrovate);
}

}   // namespace tessaro
