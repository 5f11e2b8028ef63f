// Attributes from elements to fields, and the fields that are known again.
#include "maps/Campi.h"

#include <algorithm>
#include <cmath>
#include <variant>

#include "model/Archivio.h"
#include "model/Colori.h"
#include "model/NomiLucidi.h"
#include "model/Unita.h"
#include "platform/Resources.h"
#include "registration/Coordinate.h"
#include "text/Conversione.h"

namespace tessaro {

const std::array<DescriviCampo, nCampi> descriviCampi = {{
    {"kind", gdal::campoTesto, 10},
    {"layer", gdal::campoIntero, 0},
    {"layer_name", gdal::campoTesto, 80},
    {"tag", gdal::campoTesto, 40},
    {"text", gdal::campoTesto, 120},
    {"colour", gdal::campoTesto, 7},
    {"elevation", gdal::campoReale, 0},
    {"width", gdal::campoIntero, 0},
    {"pattern", gdal::campoIntero, 0},
    {"fill", gdal::campoIntero, 0},
    {"category", gdal::campoIntero, 0},
    {"set_no", gdal::campoIntero, 0},
    {"marker", gdal::campoIntero, 0},
    {"radius", gdal::campoReale, 0},
    {"angle", gdal::campoReale, 0},
    {"height", gdal::campoReale, 0},
    {"size", gdal::campoIntero, 0},
}};

namespace {

constexpr double pi = 3.14159265358979323846;

std::string testoDi(const std::uint8_t* lunga, std::size_t spazio) {
    return MacToUtf8({reinterpret_cast<const char*>(lunga) + 1, std::min<std::size_t>(lunga[0], spazio - 1)});
}

std::string esadecimale(std::int16_t colore) {
    static constexpr char cifre[] = "0123456789ABCDEF";
    const bool noto = colore >= 1 && colore <= maxColori;
    const RGBColor c = noto ? arrColori[static_cast<std::size_t>(colore - 1)].rgb : RGBColor{};
    std::string s = "#";
    for (const std::uint16_t v : {c.red, c.green, c.blue}) {
        const unsigned ottoBit = v / 257U;
        s += cifre[ottoBit >> 4];
        s += cifre[ottoBit & 15];
    }
    return s;
}

// Where a text runs in real coordinates: its angle on the sheet, through the registration.
double angoloReale(const elemento::Testo& t) {
    const double a = (90 - AngToSessad(static_cast<double>(t.angolo), gradCorrente)) * pi / 180;
    double X0 = 0, Y0 = 0, X1 = 0, Y1 = 0;
    DigiToReal(t.x, t.y, X0, Y0);
    DigiToReal(t.x + 1000 * std::cos(a), t.y - 1000 * std::sin(a), X1, Y1);
    return std::atan2(Y1 - Y0, X1 - X0) * 180 / pi;
}

// What a figure's pen has: the same for every kind of figure.
template <class E>
void penna(Attributi& a, const E& e) {
    a.colore = esadecimale(e.colore);
    if (e.spessore < 1) return;
    a.spessore = e.spessore;
    a.pattern = e.pattern;
}

template <class E>
void tonda(Attributi& a, const E& e, std::string_view genere) {
    a.genere = genere;
    a.raggio = e.raggio * rappvid;
    a.area = e.patternArea;
    penna(a, e);
}

}   // namespace

Attributi AttributiDi(std::int32_t n) {
    constexpr double maiuscole = 0.8;   // of a text's size
    const elemento& e = Elem(n);
    Attributi a;
    a.lucido = e.lucido;
    a.nomeLucido = MacToUtf8(NomeLucido(e.lucido));
    if (e.tipo != tTesto) {
        a.aref = testoDi(e.testa.aref.data(), e.testa.aref.size());
        a.categoria = e.testa.categoria;
        a.insieme = e.testa.insieme;
    }
    switch (e.tipo) {
    case tSegmento:
        a.genere = genereSegmento;
        a.quota = e.segm.z1;
        penna(a, e.segm);
        break;
    case tMarker:
        a.genere = genereMarker;
        a.quota = e.mark.z;
        if (e.mark.forma > 0) a.forma = e.mark.forma;
        penna(a, e.mark);
        break;
    case tPoligono:
        a.genere = generePolilinea;
        a.quota = e.poli.z;
        a.area = e.poli.patternArea;
        penna(a, e.poli);
        break;
    case tCerchio: tonda(a, e.cerc, genereCerchio); break;
    case tArco: tonda(a, e.arco, genereArco); break;
    case tTesto:
        a.genere = genereTesto;
        a.testo = testoDi(e.test.testo.data(), e.test.testo.size());
        a.colore = esadecimale(e.test.colore);
        a.angolo = angoloReale(e.test);
        if (e.test.dimensione > 0) a.corpo = e.test.dimensione;
        a.altezza = e.test.altezza * rappvid * DecPunto * maiuscole;
        break;
    default: break;
    }
    return a;
}

bool CreaCampi(const Gdal& g, gdal::Oggetto layer) {
    return std::all_of(descriviCampi.begin(), descriviCampi.end(), [&](const DescriviCampo& d) {
        const gdal::Oggetto campo = g.OGR_Fld_Create(d.nome, d.tipo);
        if (d.lungo > 0) g.OGR_Fld_SetWidth(campo, d.lungo);
        const bool fatto = g.OGR_L_CreateField(layer, campo, 1) == 0;
        g.OGR_Fld_Destroy(campo);
        return fatto;
    });
}

namespace {

// Where each field's value stands, by Campo.
using Posto = std::variant<std::string Attributi::*, int Attributi::*, double Attributi::*>;
constexpr std::array<Posto, nCampi> posti = {
    &Attributi::genere,    &Attributi::lucido,  &Attributi::nomeLucido, &Attributi::aref,    &Attributi::testo,
    &Attributi::colore,    &Attributi::quota,   &Attributi::spessore,   &Attributi::pattern, &Attributi::area,
    &Attributi::categoria, &Attributi::insieme, &Attributi::forma,      &Attributi::raggio,  &Attributi::angolo,
    &Attributi::altezza,   &Attributi::corpo};

struct Scrive {
    const Gdal& g;
    gdal::Oggetto feature;
    const Attributi& a;
    int campo;
    void operator()(std::string Attributi::*p) const {
        if (!(a.*p).empty()) g.OGR_F_SetFieldString(feature, campo, (a.*p).c_str());
    }
    void operator()(int Attributi::*p) const {
        if (a.*p != Attributi::nullo) g.OGR_F_SetFieldInteger(feature, campo, a.*p);
    }
    void operator()(double Attributi::*p) const {
        if (a.*p != Attributi::nessuno) g.OGR_F_SetFieldDouble(feature, campo, a.*p);
    }
};

}   // namespace

void ScriviCampi(const Gdal& g, gdal::Oggetto feature, const Attributi& a) {
    for (std::size_t i = 0; i < nCampi; ++i) std::visit(Scrive{g, feature, a, static_cast<int>(i)}, posti[i]);
}

namespace {

std::string minuscolo(std::string_view s) {
    std::string m(s);
    for (char& c : m)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return m;
}

struct AltroNome {
    std::string_view nome;
    Campo campo;
};
constexpr AltroNome altriNomi[] = {
    {"layername", Campo::nomeLucido},
    {"livello", Campo::nomeLucido},
    {"color", Campo::colore},
    {"colore", Campo::colore},
    {"elev", Campo::quota},
    {"quota", Campo::quota},
    {"z", Campo::quota},
};

Campo campoDi(std::string_view nome) {
    const std::string m = minuscolo(nome);
    for (std::size_t i = 0; i < nCampi; ++i)
        if (descriviCampi[i].nome == m) return static_cast<Campo>(i);
    for (const AltroNome& a : altriNomi)
        if (a.nome == m) return a.campo;
    return Campo::nCampi;
}

}   // namespace

CampiLetti::CampiLetti(const Gdal& gdal, gdal::Oggetto layer) : g(gdal) {
    constexpr int massimi = 10000;   // fields of a layer that are looked at
    posto.fill(-1);
    const gdal::Oggetto definizione = g.OGR_L_GetLayerDefn(layer);
    const int n = std::min(g.OGR_FD_GetFieldCount(definizione), massimi);
    for (int i = 0; i < n; ++i) {
        const char* const nome = g.OGR_Fld_GetNameRef(g.OGR_FD_GetFieldDefn(definizione, i));
        if (nome == nullptr) continue;
        const Campo c = campoDi(nome);
        if (c != Campo::nCampi && posto[static_cast<std::size_t>(c)] < 0)
            posto[static_cast<std::size_t>(c)] = i;
        else
            perduti.push_back({std::string(nome).substr(0, 40), i, 0});
    }
}

bool CampiLetti::ha(gdal::Oggetto feature, Campo c) const {
    const int i = posto[static_cast<std::size_t>(c)];
    return i >= 0 && g.OGR_F_IsFieldSetAndNotNull(feature, i) != 0;
}

std::string CampiLetti::testo(gdal::Oggetto feature, Campo c) const {
    constexpr std::size_t lungo = 255;
    if (!ha(feature, c)) return {};
    const char* const s = g.OGR_F_GetFieldAsString(feature, posto[static_cast<std::size_t>(c)]);
    return s == nullptr ? std::string() : std::string(std::string_view(s).substr(0, lungo));
}

double CampiLetti::numero(gdal::Oggetto feature, Campo c, double senza) const {
    if (!ha(feature, c)) return senza;
    const double v = g.OGR_F_GetFieldAsDouble(feature, posto[static_cast<std::size_t>(c)]);
    return std::isfinite(v) ? v : senza;
}

int CampiLetti::intero(gdal::Oggetto feature, Campo c, int senza, int min, int max) const {
    const double v = numero(feature, c, senza);
    return v >= min && v <= max ? static_cast<int>(v) : senza;
}

void CampiLetti::conta(gdal::Oggetto feature) {
    for (Altro& a : perduti)
        if (g.OGR_F_IsFieldSetAndNotNull(feature, a.dove) != 0) ++a.valori;
}

}   // namespace tessaro
