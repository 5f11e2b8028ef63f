// The status strip's texts, lists 9400 (the next step) and 9401 (how things stand, and readers at work).
#include "shell/StrisciaTesti.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

#include "display/palette.h"
#include "display/Striscia.h"
#include "editing/BloccoImmagini.h"
#include "exchange/Operazione.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Elemento.h"
#include "model/Figura.h"
#include "model/Lucidi.h"
#include "model/NomiLucidi.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/Unita.h"
#include "model/Vincoli.h"
#include "platform/Resources.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

constexpr std::int16_t listaAttese = 9400, listaStato = 9401;

enum : std::int16_t {   // strings of listaAttese
    aScegli = 1,
    aUnoScelto,
    aMoltiScelti,   // ^0 how many
    aSegmento,
    aSegmentoFine,
    aPolilinea,
    aPolilineaSegue,
    aTesto,
    aMarker,
    aPercorso,
    aPercorsoSegue,
    aCerchio,             // by centre and radius, and its second step
    aCerchioPunti = 14,   // by points, and two more steps
    aArco = 17,           // by centre, and two more steps
    aArcoPunti = 20,
    aSposta = 23,
    aSpostaFine,
    aFoglio,
    aOrigine,        // ^0 the point, ^1 its key
    aDestinazione,   // ^0 the point
    aPolilineaDaMisurare,
    aScegliBloccate,
    aScegliStrumento,
    aPolilineaChiude,
};

enum : std::int16_t {   // strings of listaStato
    sLucido = 1,        // ^0 its number
    sNonRegistrato,
    sRegistrato,
    sScala,        // ^0 its denominator
    sPrimaUnita,   // by UnitaMCorrente; the last ^0 millimetres
    sAttacco = 12,
    sGriglia,
    sOrizzontale,
    sVerticale,
    sParallelo,
    sPerpendicolare,
    sPrimoAggancio = 20,   // by TipoAggancio
    sPrimaLettura = 30,    // by paroleLettura
    sLettura = 40,
};

std::string stringa(std::int16_t lista, std::int16_t n, std::string_view p0 = {}, std::string_view p1 = {}) {
    std::string s = GetIndString(lista, n);
    const std::string_view parametri[] = {p0, p1};
    for (std::size_t i = 0; i < std::size(parametri); ++i) {
        const std::string segno = "^" + std::to_string(i);
        if (const auto dove = s.find(segno); dove != std::string::npos) s.replace(dove, segno.size(), parametri[i]);
    }
    return s;
}

std::string attesa(std::int16_t n, std::string_view p0 = {}, std::string_view p1 = {}) {
    return stringa(listaAttese, n, p0, p1);
}

std::string stato(std::int16_t n, std::string_view p0 = {}) { return stringa(listaStato, n, p0); }

// A number as short as it is.
std::string numero(double v) {
    PStr255 s;
    RToStr(v, static_cast<std::int16_t>(v == std::floor(v) ? 0 : 2), s);
    return s.str();
}

// --- the next step

std::string attesaSelezione() {
    if (CalcWindow) return attesa(aPolilineaDaMisurare);
    if (!Puntosel.attiva) return attesa(immaginiBloccate ? aScegliBloccate : aScegli);
    return Puntosel.multipla ? attesa(aMoltiScelti, std::to_string(Puntosel.numSel)) : attesa(aUnoScelto);
}

std::string attesaDigitando() {
    const bool cominciata = Azione != sFermo, terzo = Azione == sTerzoPunto;
    const auto passo = static_cast<std::int16_t>(terzo ? 2 : cominciata ? 1 : 0);
    switch (operazCorrente) {
    case opSegmento: return attesa(cominciata ? aSegmentoFine : aSegmento);
    case opPolilinea: return attesa(PuoChiudere() ? aPolilineaChiude : cominciata ? aPolilineaSegue : aPolilinea);
    case opTesto: return attesa(aTesto);
    case opMarker: return attesa(aMarker);
    case opCalcolatrice: return attesa(cominciata ? aPercorsoSegue : aPercorso);
    case opCerchio: return attesa(static_cast<std::int16_t>((CurvePerPunti ? aCerchioPunti : aCerchio) + passo));
    case opArco: return attesa(static_cast<std::int16_t>((CurvePerPunti ? aArcoPunti : aArco) + passo));
    default: return attesa(aScegliStrumento);   // a control point was in hand: no click does anything
    }
}

std::string attesaAttacco() {
    static constexpr std::string_view tasti[] = {"J", "K", "U", "I", "Y"};
    const std::int32_t n = operazCorrente - opOrigine1;
    if (n < 0 || n > 9) return {};
    const std::string punto = std::to_string(n % 5 + 1);
    return n < 5 ? attesa(aOrigine, punto, tasti[n]) : attesa(aDestinazione, punto);
}

// What a reader is at, in words: its keyword is that of the file.
std::string lettura(std::string_view parola) {
    static constexpr std::string_view parole[] = {"LAYER",     "LTYPE", "STYLE", "BLOCK", "XYZ",
                                                  "FIDUCIALE", "BORDO", "LINEA", "TESTO", "SIMBOLO"};
    if (parola.find('%') != std::string_view::npos) return std::string(parola);   // a raster job counts
    for (std::size_t i = 0; i < std::size(parole); ++i)
        if (parole[i] == parola) return stato(static_cast<std::int16_t>(sPrimaLettura + static_cast<std::int16_t>(i)));
    return stato(sLettura);
}

std::string attesaDelMomento() {
    if (noWindow) return {};
    if (!StrOperCorr.view().empty()) return lettura(StrOperCorr.view());
    switch (Modalita) {
    case mSelezione: return attesaSelezione();
    case mDigitazione: return attesaDigitando();
    case mSpostamento: return attesa(Sposta2ndClick ? aSpostaFine : aSposta);
    case mFoglio: return attesa(aFoglio);
    case mAttacco: return attesaAttacco();
    default: return {};
    }
}

// --- how things stand

std::string vincoli() {
    const struct {
        bool acceso;
        std::int16_t testo;
    } vincoli[] = {
        {statoCursore.attaccoPunto != 0, sAttacco}, {griglia.attiva != 0, sGriglia},
        {statoCursore.bloccaY != 0, sOrizzontale},  {statoCursore.bloccaX != 0, sVerticale},
        {statoCursore.parallelo != 0, sParallelo},  {statoCursore.perpendicolare != 0, sPerpendicolare},
    };
    std::string s;
    if (agganciato.tipo != agNessuno)
        return stato(static_cast<std::int16_t>(sPrimoAggancio + int{agganciato.tipo} - int{agEstremo}));
    for (const auto& v : vincoli)
        if (v.acceso) s += (s.empty() ? "" : ", ") + stato(v.testo);
    return s;
}

std::string unita() {
    const std::int16_t n = std::clamp<std::int16_t>(UnitaMCorrente, 0, 6);
    constexpr std::int16_t libera = 6;
    // A drawing may tell no unit and still have that of a metre.
    static constexpr double decimi[] = {10, 100, 10000, 1e7};
    if (n == libera)
        for (std::int16_t i = 0; i < 4; ++i)
            if (decimiUnita == decimi[i]) return stato(static_cast<std::int16_t>(sPrimaUnita + i));
    return stato(static_cast<std::int16_t>(sPrimaUnita + n), numero(decimiUnita / 10));
}

std::string lucido() {
    const std::string numero = stato(sLucido, std::to_string(VisioneGraf.lucidoCorrente));
    const std::string nome = NomeLucido(VisioneGraf.lucidoCorrente);
    return nome.empty() ? numero : numero + ": " + nome;
}

}   // namespace

void AggiornaStriscia() {
    const bool aperto = !noWindow;
    const auto se = [aperto](const std::string& s) { return aperto ? s : std::string(); };
    PoniStriscia(csAttesa, attesaDelMomento());
    PoniStriscia(csAggancio, se(vincoli()));
    PoniStriscia(csLucido, se(lucido()));
    PoniStriscia(csRegistrazione, se(stato(Elem(2).att.coordReali ? sRegistrato : sNonRegistrato)));
    PoniStriscia(csUnita, se(unita()));
    PoniStriscia(csScala, se(stato(sScala, numero(Scaladis))));
    MostraStriscia();
}

namespace {
[[maybe_unused]] const bool agganciata = [] {
    operazioneMostrata = AggiornaStriscia;
    return true;
}();
}   // namespace

}   // namespace tessaro
