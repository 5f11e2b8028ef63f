// Reading and writing of the blocks behind the elements.
#include "files/Blocchi.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

#include "display/Zoom.h"
#include "files/TestiFile.h"
#include "model/Archivio.h"
#include "model/Colori.h"
#include "model/Documento.h"
#include "model/Lucidi.h"
#include "model/Mesh.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "platform/Files.h"
#include "registration/attaccoDinamico.h"
#include "text/Conversione.h"
#include "text/EndianConvert.h"
#include "text/FileDati.h"

namespace tessaro {

constinit double DataUltima = 0;

namespace {

constexpr std::int64_t byteVisione = 108, byteColore = 30, byteUnita = 45, byteAttacco = 627, byteNodo = 16;
constexpr std::int16_t ultimoLucido = 99, ultimaUnita = 6, latoMesh = 100, maxNome = 20;

struct ColoreDisco {
    std::array<std::uint8_t, 22> nome;
    RGBColor rgb;
    std::int16_t penna;
};
static_assert(sizeof(ColoreDisco) == byteColore);

// --- writing

void scriviVisione() {
    VisioneGrafT v = VisioneGraf;
    if (v.lucidoCorrente > ultimoLucido) v.lucidoCorrente = 0;
    v.lucidoCorrente = EndiansShort_NtoB(v.lucidoCorrente);
    scriviBlocco(&v, sizeof v);
}

void scriviColori() {
    const std::int16_t n = std::clamp<std::int16_t>(coloriPresenti, 0, maxColori);
    scrivii(n);
    std::vector<ColoreDisco> disco;
    for (const Colore& c : std::span(arrColori).first(static_cast<std::size_t>(n)))
        disco.push_back({c.nome, EndiansRGB_NtoB(c.rgb), EndiansShort_NtoB(c.penna)});
    scriviBlocco(disco.data(), static_cast<std::int32_t>(disco.size() * sizeof(ColoreDisco)));
}

void scriviUnita() {
    scrivib(static_cast<std::uint8_t>(UnitaMCorrente));
    scrivir(decimiUnita);
    scrivir(Scaladis);
    scrivir(DataUltima);
    scrivir(Xfoglio);
    scrivii(XFDecimi);
    scrivir(yfoglio);
    scrivii(YFDecimi);
}

void scriviMesh(const Mesh& m) {
    const std::int16_t nx = std::clamp<std::int16_t>(m.nx, 0, latoMesh),
                       ny = std::clamp<std::int16_t>(m.ny, 0, latoMesh);
    scrivii(nx);
    scrivii(ny);
    std::vector<double> nodi;
    for (int riga = 0; riga < ny; ++riga)
        for (int colonna = 0; colonna < nx; ++colonna) {
            nodi.push_back(EndiansDouble_NtoB(m.x[riga][colonna]));
            nodi.push_back(EndiansDouble_NtoB(m.y[riga][colonna]));
        }
    scriviBlocco(nodi.data(), static_cast<std::int32_t>(nodi.size() * sizeof(double)));
}

// --- reading

// The file from its present position: what is left is asked before anything is taken.
struct Resto {
    Guasto& g;

    bool manca(TestoFile t) {
        std::int64_t pos = 0;
        GetFPos(RefNum, pos);
        g = {eofErr, TestoDi(t), {}, pos};
        return false;
    }
    bool ci(std::int64_t byte) {
        std::int64_t pos = 0, fine = 0;
        GetFPos(RefNum, pos);
        GetEOF(RefNum, fine);
        return !uscita && (fine - pos >= byte || manca(TestoFile::senzaSeguito));
    }
};

bool leggiVisione(std::int16_t versione, Resto& resto) {
    if (!resto.ci(byteVisione)) return false;
    leggiBlocco(&VisioneGraf, byteVisione);
    VisioneGraf.lucidoCorrente = EndiansShort_BtoN(VisioneGraf.lucidoCorrente);
    if (VisioneGraf.lucidoCorrente > ultimoLucido || VisioneGraf.lucidoCorrente < 0) VisioneGraf.lucidoCorrente = 0;
    if (versione < 7) VisioneGraf.bloccaAltri = 0;
    return true;
}

bool leggiColori(Resto& resto) {
    if (!resto.ci(2)) return false;
    const std::int16_t n = leggii();
    if (n < 0 || n > maxColori) return resto.manca(TestoFile::colori);
    if (!resto.ci(n * byteColore)) return false;
    std::vector<ColoreDisco> disco(static_cast<std::size_t>(n));
    leggiBlocco(disco.data(), static_cast<std::int32_t>(disco.size() * sizeof(ColoreDisco)));
    coloriPresenti = n;
    for (std::size_t i = 0; i < disco.size(); ++i) {
        arrColori[i] = {disco[i].nome, EndiansRGB_BtoN(disco[i].rgb), EndiansShort_BtoN(disco[i].penna)};
        arrColori[i].nome[0] = std::min<std::uint8_t>(arrColori[i].nome[0], maxNome);
    }
    RifaiMenuColori();
    return true;
}

// A measure that is not finite and above 0 would make every coordinate one too: what is in force stays.
void misura(double& dove, Resto& resto) {
    const double v = leggir();
    if (std::isfinite(v) && v > 0) {
        dove = v;
    } else {
        resto.g.what = TestoDi(TestoFile::unita);
    }
}

bool leggiUnita(Resto& resto) {
    if (!resto.ci(byteUnita)) return false;
    UnitaMCorrente = std::min<std::int16_t>(leggib(), ultimaUnita);
    misura(decimiUnita, resto);
    misura(Scaladis, resto);
    DataUltima = leggir();
    misura(Xfoglio, resto);
    XFDecimi = leggii();
    misura(yfoglio, resto);
    YFDecimi = leggii();
    if (!resto.g.what.empty()) {   // the sheet that stands
        XFDecimi = arrotonda16(100 * Xfoglio);
        YFDecimi = arrotonda16(100 * yfoglio);
    }
    CalcolaRapporti();
    rappvid = Scaladis / decimiUnita;
    RappPunti = static_cast<float>(rappvid * 254 / 72);
    htav1 = scalaX * htav;
    btav1 = scalaY * btav;
    AggiornaBarre();
    return true;
}

bool leggiAttacco(std::int16_t versione, Resto& resto) {
    if (versione <= 10) {
        attaccoAttivo.SetModificato(0);
        return true;
    }
    if (!resto.ci(byteAttacco)) return false;
    attaccoAttivo.ReadAttacco();
    return true;
}

bool leggiMesh(Mesh& m, Resto& resto) {
    if (!resto.ci(4)) return false;
    const std::int16_t nx = leggii(), ny = leggii();
    if (nx < 0 || nx > latoMesh || ny < 0 || ny > latoMesh) return resto.manca(TestoFile::mesh);
    if (!resto.ci(nx * ny * byteNodo)) return false;
    std::vector<double> nodi(static_cast<std::size_t>(nx * ny * 2));
    leggiBlocco(nodi.data(), static_cast<std::int32_t>(nodi.size() * sizeof(double)));
    m.nx = nx;
    m.ny = ny;
    auto nodo = nodi.cbegin();
    for (int riga = 0; riga < ny; ++riga)
        for (int colonna = 0; colonna < nx; ++colonna) {
            m.x[riga][colonna] = EndiansDouble_BtoN(*nodo++);
            m.y[riga][colonna] = EndiansDouble_BtoN(*nodo++);
        }
    return true;
}

}   // namespace

void ScriviBlocchi() {
    scriviVisione();
    scriviColori();
    scriviUnita();
    attaccoAttivo.WriteAttacco();
    scriviMesh(meshOrigine);
    scriviMesh(meshDestinazione);
}

bool LeggiBlocchi(std::int16_t versione, Guasto& g) {
    Resto resto{g};
    if (versione > 2 && !leggiVisione(versione, resto)) return false;
    if (versione > 4 && !leggiColori(resto)) return false;
    if (versione > 8 && !leggiUnita(resto)) return false;
    if (!leggiAttacco(versione, resto)) return false;
    return versione <= 11 || (leggiMesh(meshOrigine, resto) && leggiMesh(meshDestinazione, resto));
}

namespace {
const VoceStato righe[] = {
    voce<DataUltima>("DataUltima"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
