// Rows and cells of the table of control points 1 to 5.
#include "digitising/CelleAttacchi.h"

#include <algorithm>

#include "dialogs/Errori.h"
#include "dialogs/Parametri.h"
#include "digitising/Attacchi.h"
#include "digitising/AttaccoDialogo.h"
#include "digitising/PuntiDigitati.h"
#include "digitising/RapportoTesti.h"
#include "digitising/RegistrazioneValida.h"
#include "display/AttacchiMarche.h"
#include "model/Archivio.h"
#include "platform/Resources.h"
#include "registration/attaccoDinamico.h"
#include "registration/Coordinate.h"
#include "registration/PuntiControllo.h"
#include "text/Conversione.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

enum : std::int16_t {   // strings of the list
    testata = 1,
    perFoglio,
    perTrasformazione,
    perEntrambi,
};
constexpr std::int16_t lista = 9600;
constexpr std::int16_t quantiAttacchi = 5;

std::string numero(double v, std::int16_t decimali) {
    PStr255 s;
    RToStr(v, decimali, s);
    return s.str();
}

Coppia inReali(const Coppia& p) {
    Coppia r;
    DigiToReal(p.x, p.y, r.x, r.y);
    return r;
}

Coppia destinazione(std::int16_t n) {
    Coppia c;
    attaccoAttivo.GetAttacco(n, c.x, c.y);
    return inReali(c);
}

// Real coordinates of the registration, X1, Y1, X2, Y2.
std::array<double, 4> reali(const elemento& secondo) {
    return {secondo.att.x1, secondo.att.y1, secondo.att.x2, secondo.att.y2};
}

void poniReali(elemento& secondo, const std::array<double, 4>& v) {
    secondo.att.x1 = v[0];
    secondo.att.y1 = v[1];
    secondo.att.x2 = v[2];
    secondo.att.y2 = v[3];
}

bool tutti(const std::array<bool, 4>& b) {
    return std::all_of(b.begin(), b.end(), [](bool d) { return d; });
}

// --- rows

// The live transformation has the points that its mode takes, and this is one of them.
bool presoDallaTrasformazione(std::int16_t n) {
    static constexpr std::array<std::int16_t, 3> presi{2, 4, 5};   // by mode
    const std::int16_t quanti = presi[static_cast<std::size_t>(std::clamp(attaccoAttivo.GetTipo(), 0, 2))];
    for (std::int16_t i = 1; i <= quanti; ++i)
        if (!AttaccoDato(i)) return false;
    return n <= quanti;
}

std::string uso(std::int16_t n) {
    const bool foglio = n <= 2 && Elem(2).att.coordReali, trasformazione = presoDallaTrasformazione(n);
    if (!AttaccoDato(n) || !(foglio || trasformazione)) return {};
    return GetIndString(lista, foglio && trasformazione ? perEntrambi : foglio ? perFoglio : perTrasformazione);
}

using Celle = std::array<std::string, 2>;

Celle celle(const Coppia& c, std::int16_t decimali) { return {numero(c.x, decimali), numero(c.y, decimali)}; }

Celle celleInAttesa(const std::array<std::optional<double>, 2>& v, std::int16_t decimali) {
    return {v[0] ? numero(*v[0], decimali) : std::string(), v[1] ? numero(*v[1], decimali) : std::string()};
}

Celle celleReali(const AttesaAttacchi& a, std::int16_t n, std::int16_t decimali) {
    const auto i = static_cast<std::size_t>(n - 1);
    if (n > 2)
        return AttaccoDato(n) ? celle(inReali(LeggiAttacco(n)), decimali) : celleInAttesa(a.posti[i].reale, decimali);
    const std::array<double, 4> v = reali(Elem(2));
    Celle c;
    for (std::size_t k = 0; k < c.size(); ++k)
        if (a.reali[2 * i + k] || Elem(2).att.coordReali) c[k] = numero(v[2 * i + k], decimali);
    return c;
}

std::string residuo(const PuntoRapporto& p, std::int16_t decimali) {
    return p.dato && p.mappato ? numero(p.residuoReale, static_cast<std::int16_t>(decimali + 1)) : std::string();
}

}   // namespace

AttesaAttacchi AttesaDelMomento() {
    AttesaAttacchi a;
    const std::array<double, 4> v = reali(Elem(2));
    a.reali[0] = a.reali[1] = v[0] != 0 || v[1] != 0;
    // At rest a new drawing's record 2 holds 1, 1 for point 2.
    a.reali[2] = a.reali[3] = (v[2] != 0 || v[3] != 0) && (v[2] != 1.0 || v[3] != 1.0);
    return a;
}

std::string TestataAttacchi() {
    std::string s = GetIndString(lista, testata);
    std::replace(s.begin(), s.end(), '|', '\t');
    return s;
}

std::vector<std::string> RigheAttacchi(const AttesaAttacchi& a) {
    constexpr std::int16_t decimaliFoglio = 3;
    const RapportoAttacchi r = CalcolaRapportoAttacchi(DatiDelMomento());
    const std::int16_t decimali = DecimaliReali(r.rapporto);
    std::vector<std::string> righe;
    for (std::int16_t n = 1; n <= quantiAttacchi; ++n) {
        const auto i = static_cast<std::size_t>(n - 1);
        const Celle foglio =
            AttaccoDato(n) ? celle(LeggiAttacco(n), decimaliFoglio) : celleInAttesa(a.posti[i].foglio, decimaliFoglio);
        const Celle reale = celleReali(a, n, decimali);
        const Celle verso = DestinazioneData(n) ? celle(destinazione(n), decimali) : Celle{};
        std::string riga = std::to_string(n) + '\t' + uso(n);
        for (const Celle& c : {foglio, reale, verso})
            for (const std::string& s : c) riga += '\t' + s;
        righe.push_back(riga + '\t' + residuo(r.punti[i], decimali));
    }
    return righe;
}

// --- what is typed

namespace {

bool letto(const std::string& testo, double limite, double& v) {
    constexpr std::int16_t troppoGrande = -1, troppoPiccolo = -2;
    std::int16_t posto = 0;
    const std::uint8_t prima = uscita;
    std::int16_t codice = STRtoFP(-limite, limite, PStr255(std::string_view(testo)), v, posto, 0);
    if (codice >= 1 && !(v <= limite)) codice = troppoGrande;
    if (codice >= 1 && !(v >= -limite)) codice = troppoPiccolo;
    if (codice < 1) SbaglioCampo(codice, -limite, limite);
    uscita = prima;
    return codice >= 1;
}

// A place in one of the two spaces, of which one coordinate was typed: the other is the point's, or it is waited for.
bool scriviPosto(AttesaAttacchi& a, std::int16_t n, bool reale, std::size_t asse, double v) {
    AttesaAttacchi::Posto& posto = a.posti[static_cast<std::size_t>(n - 1)];
    std::array<std::optional<double>, 2> p = reale ? posto.reale : posto.foglio;
    if (AttaccoDato(n)) {
        const Coppia c = reale ? inReali(LeggiAttacco(n)) : LeggiAttacco(n);
        p = {c.x, c.y};
    }
    p[asse] = v;
    if (!p[0] || !p[1]) {
        posto = {};   // of one space at a time
        (reale ? posto.reale : posto.foglio) = p;
        return true;
    }
    Coppia foglio{*p[0], *p[1]};
    if (reale) RealToDigi(*p[0], *p[1], foglio.x, foglio.y);
    if (!AttaccoDigitato(n, foglio.x, foglio.y)) return false;
    posto = {};
    return true;
}

bool scriviReale(AttesaAttacchi& a, std::size_t quale, double v) {
    elemento copia = Elem(2);
    std::array<double, 4> valori = reali(copia);
    valori[quale] = v;
    poniReali(copia, valori);
    AttesaAttacchi dopo = a;
    dopo.reali[quale] = true;
    if (AttaccoDato(1) && AttaccoDato(2) && tutti(dopo.reali)) copia.att.coordReali = 1;
    if (const std::string guasto = GuastoRegistrazione(Elem(1), copia); !guasto.empty()) {
        RifiutaRegistrazione(guasto);
        return false;
    }
    a = dopo;
    PoniReali(copia);
    return true;
}

bool scriviDestinazione(std::int16_t n, std::size_t asse, double v) {
    Coppia c = destinazione(n);
    (asse == 0 ? c.x : c.y) = v;
    PoniDestinazione(n, c.x, c.y);
    return true;
}

}   // namespace

bool ScriviCellaAttacco(AttesaAttacchi& a, std::int16_t n, std::int16_t colonna, const std::string& testo) {
    constexpr double senzaLimite = 1e30;   // of typed points: the sheet is their bound
    if (n < 1 || n > quantiAttacchi || colonna < caFoglioX || colonna > caDestinazioneY) return false;
    const bool foglio = colonna <= caFoglioY, verso = colonna >= caDestinazioneX;
    const auto asse = static_cast<std::size_t>((colonna - caFoglioX) % 2);
    const bool registra = !foglio && !verso && n <= 2;
    double v = 0;
    if (!letto(testo, verso || registra ? limiteReale : senzaLimite, v)) return false;
    if (verso) return scriviDestinazione(n, asse, v);
    if (registra) return scriviReale(a, 2 * static_cast<std::size_t>(n - 1) + asse, v);
    return scriviPosto(a, n, !foglio, asse, v);
}

bool AccendiReali(bool accese) {
    elemento copia = Elem(2);
    copia.att.coordReali = accese;
    if (const std::string guasto = GuastoRegistrazione(Elem(1), copia); !guasto.empty()) {
        RifiutaRegistrazione(guasto);
        return false;
    }
    PoniReali(copia);
    return true;
}

}   // namespace tessaro
