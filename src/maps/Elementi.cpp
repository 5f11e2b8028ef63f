// What each geometry becomes, and what it looks like.
#include "maps/Elementi.h"

#include <algorithm>
#include <cmath>

#include "maps/Curve.h"
#include "model/Archivio.h"
#include "model/Carattere.h"
#include "model/Colori.h"
#include "model/Lucidi.h"
#include "model/Penna.h"
#include "model/Unita.h"
#include "platform/Resources.h"
#include "registration/Coordinate.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

constexpr double pi = 3.14159265358979323846;
const PStr255 senzaTesto("");

int cifra(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

void poniAref(Aref& aref, const std::string& testo) {
    const std::size_t lungo = std::min(testo.size(), aref.size() - 1);
    aref.fill(0);
    aref[0] = static_cast<std::uint8_t>(lungo);
    std::copy_n(testo.begin(), lungo, aref.begin() + 1);
}

// A number in the file's own digits: a name otherwise.
bool numeroDiLucido(const std::string& s, std::int16_t& lucido) {
    if (s.empty() || s.size() > 2 || !std::all_of(s.begin(), s.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return false;
    lucido = static_cast<std::int16_t>(std::stoi(s));
    return true;
}

}   // namespace

std::int16_t ElementiDaMappa::coloreDi(const std::string& esadecimale) {
    if (esadecimale.size() != 7 || esadecimale[0] != '#') return colorCorrente;
    std::array<int, 3> parti{};
    for (std::size_t i = 0; i < 3; ++i) {
        const int alta = cifra(esadecimale[1 + 2 * i]), bassa = cifra(esadecimale[2 + 2 * i]);
        if (alta < 0 || bassa < 0) return colorCorrente;
        parti[i] = alta * 16 + bassa;
    }
    const auto lontano = [&parti](const RGBColor& c) {
        const int r = c.red / 257 - parti[0], v = c.green / 257 - parti[1], b = c.blue / 257 - parti[2];
        return r * r + v * v + b * b;
    };
    std::int16_t migliore = 1;
    for (std::int16_t i = 2; i <= coloriPresenti; ++i)
        if (lontano(arrColori[static_cast<std::size_t>(i - 1)].rgb)
            < lontano(arrColori[static_cast<std::size_t>(migliore - 1)].rgb))
            migliore = i;
    if (lontano(arrColori[static_cast<std::size_t>(migliore - 1)].rgb) == 0) return migliore;
    if (coloriPresenti >= maxColori) {
        ++coloriOltre;
        return migliore;
    }
    Colore& nuovo = arrColori[static_cast<std::size_t>(coloriPresenti++)];
    const auto sedici = [](int v) { return static_cast<std::uint16_t>(v * 257); };
    nuovo.rgb = {sedici(parti[0]), sedici(parti[1]), sedici(parti[2])};
    PoniNomeColore(nuovo, esadecimale);
    return coloriPresenti;
}

void ElementiDaMappa::leggiAspetto(gdal::Oggetto f, const CampiLetti& campi, const std::string& strato) {
    const auto corto = [&](Campo c, int senza, int min, int max) {
        return static_cast<std::int16_t>(campi.intero(f, c, senza, min, max));
    };
    a = {};
    a.genere = campi.testo(f, Campo::genere);
    a.aref = Utf8ToMac(campi.testo(f, Campo::aref));
    a.testo = Utf8ToMac(campi.testo(f, Campo::testo));
    const std::string nome = Utf8ToMac(campi.testo(f, Campo::nomeLucido)), numero = campi.testo(f, Campo::lucido);
    if (!nome.empty())
        a.lucido = lucidi.lucido(nome);
    else if (numeroDiLucido(numero, a.lucido))
        lucidi.occupa(a.lucido);
    else
        a.lucido = lucidi.lucido(numero.empty() ? strato : Utf8ToMac(numero));
    a.colore = coloreDi(campi.testo(f, Campo::colore));
    a.spessore = corto(Campo::spessore, spessore, 1, 9);
    a.pattern = corto(Campo::pattern, NumPat, 1, 38);
    a.area = corto(Campo::area, 0, 0, 38);
    a.categoria = corto(Campo::categoria, CategoriaCorrente, 1, 255);
    a.insieme = corto(Campo::insieme, InsiemeCorrente, 1, 255);
    a.forma = corto(Campo::forma, markerCorrente, 1, 6);
    a.conQuota = campi.ha(f, Campo::quota);
    a.quota = campi.numero(f, Campo::quota, 0);
    a.angolo = campi.numero(f, Campo::angolo, 0);
    a.altezza = campi.numero(f, Campo::altezza, 0);
    a.corpo = campi.intero(f, Campo::corpo, 0, 1, 127);
}

void ElementiDaMappa::aggiungi(gdal::Oggetto feature, const CampiLetti& campi, const std::string& strato) {
    const gdal::Oggetto forma = g.OGR_F_GetGeometryRef(feature);
    if (forma == nullptr) return resoconto.tralascia("EMPTY");
    leggiAspetto(feature, campi, strato);
    VisioneGraf.lucidoCorrente = a.lucido;
    geometria(forma, 0);
}

void ElementiDaMappa::geometria(gdal::Oggetto forma, int profondita) {
    constexpr int fondo = 20;   // collections in collections
    constexpr unsigned int primaCurva = 8, ultimaCurva = 12;
    if (forma == nullptr || pieno) return;
    const unsigned int tipo = (g.OGR_G_GetGeometryType(forma) & 0x7FFFFFFFU) % 1000;
    if (tipo >= primaCurva && tipo <= ultimaCurva) {
        const gdal::Oggetto dritta = g.OGR_G_GetLinearGeometry(forma, 0, nullptr);
        if (dritta == nullptr) return resoconto.tralascia("CURVE");
        geometria(dritta, profondita + 1);
        return g.OGR_G_DestroyGeometry(dritta);
    }
    std::vector<puntot> p;
    if (tipo == gdal::punto || tipo == gdal::linea) {
        if (!punti(forma, p)) return resoconto.tralascia(tipo == gdal::punto ? "POINT" : "LINE");
        return tipo == gdal::punto ? punto(p.front()) : linea(p, false);
    }
    const int parti = g.OGR_G_GetGeometryCount(forma);
    if (parti == 0 || profondita > fondo) return resoconto.tralascia(parti == 0 ? "EMPTY" : "COLLECTION");
    const bool anelli = tipo == gdal::poligono || tipo == gdal::triangolo;
    for (int i = 0; i < parti && !pieno; ++i) {
        const gdal::Oggetto parte = g.OGR_G_GetGeometryRef(forma, i);
        if (!anelli) {
            geometria(parte, profondita + 1);
        } else if (parte != nullptr && punti(parte, p)) {
            linea(p, true);
            if (i > 0) resoconto.cambiati.aggiungi(cIsole);
        } else {
            resoconto.tralascia("RING");
        }
    }
}

// On the sheet; false when it has none, or one that lies nowhere.
bool ElementiDaMappa::punti(gdal::Oggetto forma, std::vector<puntot>& p) {
    constexpr double limite = 1e12;   // sheet units: beyond, no drawing lies
    const int n = g.OGR_G_GetPointCount(forma);
    // A figure of more corners than the drawing has records would not come in anyway.
    if (n < 1 || n > maxElementi + 1) return false;
    const bool conZ =
        (g.OGR_G_GetGeometryType(forma) & gdal::conZ) != 0 || g.OGR_G_GetGeometryType(forma) / 1000 % 2 == 1;
    p.clear();
    p.reserve(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) {
        const double z = conZ ? g.OGR_G_GetZ(forma, i) : a.quota;
        p.push_back({g.OGR_G_GetX(forma, i), g.OGR_G_GetY(forma, i), std::isfinite(z) ? z : 0});
    }
    if (via->pronto() && !via->avanti(p.data(), p.size())) return false;
    for (puntot& q : p) {
        const double X = q.x, Y = q.y;
        RealToDigi(X, Y, q.x, q.y);
        if (!(std::fabs(q.x) < limite) || !(std::fabs(q.y) < limite)) return false;
    }
    return true;
}

bool ElementiDaMappa::posto() {
    if (indElem < maxElementi) return true;
    pieno = true;
    resoconto.pieno();
    return false;
}

void ElementiDaMappa::rifinisci(std::int32_t n) {
    elemento& e = Elem(n);
    if (e.tipo == tTesto) return;
    e.testa.categoria = a.categoria;
    e.testa.insieme = a.insieme;
    poniAref(e.testa.aref, a.aref);
}

void ElementiDaMappa::punto(const puntot& p) {
    constexpr std::size_t lungo = 40;
    if (!posto()) return;
    const bool scritta = !a.testo.empty() && (a.genere.empty() || a.genere == genereTesto);
    if (!scritta) {
        Memorizza(tMarker, p.x, p.y, p.z, a.forma, 0, 0, a.spessore, a.colore, a.pattern, senzaTesto);
        return rifinisci(indElem);
    }
    if (a.testo.size() > lungo) resoconto.cambiati.aggiungi(cTestiTagliati);
    const double punti = a.corpo > 0 ? a.corpo : std::trunc(1.25 * (a.altezza / rappvid) / DecPunto + 0.5);
    gFontSize = static_cast<std::int16_t>(punti >= 1 && std::isfinite(punti) ? std::clamp(punti, 5.0, 127.0) : 9);
    // Where the text runs on the sheet: its real direction through the registration.
    double X = 0, Y = 0, x = 0, y = 0;
    const double r = a.angolo * pi / 180, lontano = 1000 * rappvid;
    DigiToReal(p.x, p.y, X, Y);
    RealToDigi(X + lontano * std::cos(r), Y + lontano * std::sin(r), x, y);
    double suFoglio = std::atan2(p.y - y, x - p.x);
    if (!std::isfinite(suFoglio)) suFoglio = 0;
    const std::int16_t angolo = arrotonda16(SessadToAng(90, gradCorrente) - RadToAng(suFoglio, gradCorrente));
    Memorizza(tTesto, p.x, p.y, 0, 0, 0, 0, 1, a.colore, angolo, PStr255(std::string_view(a.testo).substr(0, lungo)));
}

// Circles and arcs that were written as corners are known by their name and by their corners both.
bool ElementiDaMappa::curva(const std::vector<puntot>& p) {
    Cerchio c;
    if ((a.genere != genereCerchio && a.genere != genereArco) || !CerchioPer(p, c)) return false;
    if (a.genere == genereCerchio) {
        Memorizza(tCerchio, c.x, c.y, c.r, 0, 0, a.area, a.spessore, a.colore, a.pattern, senzaTesto);
    } else {
        double inizio = 0, ampiezza = 0;
        ArcoPer(p, c, inizio, ampiezza);
        Memorizza(tArco, c.x, c.y, c.r, inizio, ampiezza, a.area, a.spessore, a.colore, a.pattern, senzaTesto);
    }
    rifinisci(indElem);
    return true;
}

void ElementiDaMappa::linea(const std::vector<puntot>& p, bool chiusa) {
    if (!posto() || curva(p)) return;
    if (p.size() != 2 || chiusa || a.genere == generePolilinea) return polilinea(p);
    Memorizza(tSegmento, p[0].x, p[0].y, p[0].z, p[1].x, p[1].y, p[1].z, a.spessore, a.colore, a.pattern, senzaTesto);
    rifinisci(indElem);
}

// A head counts its vertices in 16 bits: a longer figure goes on in a new one, from where the old one ends.
void ElementiDaMappa::polilinea(const std::vector<puntot>& p) {
    constexpr std::int32_t massimi = 32767;
    std::int32_t vertici = 0;
    const auto testa = [&](const puntot& q) {
        if (!posto()) return false;
        Memorizza(tPoligono, q.x, q.y, q.z, 0, 0, a.area, a.spessore, a.colore, a.pattern, senzaTesto);
        rifinisci(indElem);
        vertici = 0;
        return true;
    };
    for (std::size_t i = 0; i < p.size(); ++i) {
        if (i == 0 || vertici == massimi) {
            if (!testa(p[i == 0 ? 0 : i - 1])) return;
            if (i == 0) continue;
        }
        if (!posto()) return;
        Memorizza(tVertice, p[i].x, p[i].y, p[i].z, 0, 0, 0, a.spessore, a.colore, a.pattern, senzaTesto);
        ++vertici;
    }
}

}   // namespace tessaro
