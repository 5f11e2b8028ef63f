// Typed and read text as numbers: the scan of reals and that of integers, with where the fault lies. Faults are counted
// as offsets: the character from `pos` to `pos` + 1 is the one that did not fit.
#include "text/Traduttori.h"

#include <charconv>
#include <cmath>
#include <string>

#include "text/Conversione.h"
#include "text/Decimale.h"
#include "text/FileDati.h"

namespace tessaro {

constinit std::uint8_t cifreEstese = 1;

namespace {

constexpr std::int16_t buono = 1;
constexpr std::int16_t interoMalformato = 0;
constexpr std::int16_t troppoGrande = -1;
constexpr std::int16_t troppoPiccolo = -2;
constexpr std::int16_t realeMalformato = -3;

// Parsed once: a drawing's import reads numbers by the million.
struct Insiemi {
    TCharSet cifre = "'0'..'9'";
    TCharSet esponenti = "'E','e'";
    TCharSet segniReali = "'+','-','.'";
    TCharSet segniInteri = "'+','-'";
};
const Insiemi& insiemi() {
    static const Insiemi i;
    return i;
}

constexpr int valoreCifra(char c) { return c - '0'; }
constexpr bool decimale(char c) { return c == '.' || c == ','; }   // a comma is a point: Italian input

// The text with one blank behind it, so that the last digit is not its end. A full text loses its last character.
PStr255 conBianco(const PStr255& s) {
    PStr255 r = s.Copy(1, 254);
    return r += ' ';
}

// A fault that is not shown still stops file work when there was no number to read.
void riferisci(std::int16_t errore, std::uint8_t flag) {
    if (flag != 0) {
        Sbaglio(errore, uscita);
        return;
    }
    if (errore == interoMalformato || errore == realeMalformato) uscita = 1;
}

}   // namespace

void TSTRtoFP::Poni(const double& minimo, const double& massimo, const PStr255& t) {
    min = minimo;
    max = massimo;
    testo = t;
}

void TSTRtoFP::traduci(std::uint8_t flag) {
    testo = conBianco(testo);
    lunghezza = testo[0];
    uscita = 0;
    errore = buono;
    cifre = insiemi().cifre;
    esponenti = insiemi().esponenti;
    segni = insiemi().segniReali;
    vistoEsponente = vistoSegno = negativo = esponenteNegativo = vistoPunto = false;
    decimali = esponente = scartate = 0;
    valore = 0;
    posizione = 1;
    posErrore = 0;
    mantissa = "";
    SEARCH();
    if (uscita == 0)
        while (posizione <= lunghezza && avanza()) ++posizione;
    terminate();
    riferisci(errore, flag);
}

std::int16_t TSTRtoFP::Prendi(double& value, std::int16_t& pos) const {
    value = valore;
    pos = posErrore;
    return errore;
}

void TSTRtoFP::SEARCH() {
    for (; posizione <= lunghezza; ++posizione) {
        car = static_cast<char>(testo[posizione]);
        if (cifre.IN(car)) return;
        const bool prima = segni.IN(car) || decimale(car);
        if (prima && posizione < lunghezza && cifre.IN(testo[posizione + 1])) return;
        if (car != ' ') break;
    }
    malformato();
    uscita = 1;
}

bool TSTRtoFP::malformato() {
    errore = realeMalformato;
    posErrore = static_cast<std::int16_t>(posizione - 1);
    return false;
}

bool TSTRtoFP::avanza() {
    car = static_cast<char>(testo[posizione]);
    if (cifre.IN(car)) return avanzaCifra();
    if (decimale(car)) return avanzaPunto();
    if (segni.IN(car)) return avanzaSegno();
    if (esponenti.IN(car)) return avanzaEsponente();
    return car == ' ' ? false : malformato();
}

bool TSTRtoFP::avanzaCifra() {
    vistoSegno = true;   // none may follow
    if (vistoEsponente) {
        if (esponente < 1000) esponente = esponente * 10 + valoreCifra(car);
        return true;
    }
    if (valore < 1e8)
        valore = valore * 10 + valoreCifra(car);
    else
        ++scartate;
    if (vistoPunto) ++decimali;
    mantissa += car;
    return true;
}

bool TSTRtoFP::avanzaPunto() {
    if (vistoPunto || vistoEsponente) return malformato();
    vistoPunto = true;
    return true;
}

bool TSTRtoFP::avanzaSegno() {
    if (vistoSegno) return malformato();
    vistoSegno = true;
    if (car == '-') (vistoEsponente ? esponenteNegativo : negativo) = true;
    return true;
}

bool TSTRtoFP::avanzaEsponente() {
    if (vistoEsponente) return malformato();
    vistoEsponente = true;
    vistoSegno = false;
    return true;
}

void TSTRtoFP::terminate() {
    if (valore == 0) return;
    if (esponenteNegativo) esponente = -esponente;
    const int potenza = scartate + esponente - decimali;
    // Kept: power and natural logarithm are added, so the bound is not a clean power of ten.
    const double grandezza = potenza + std::log(valore);
    if (potenza < -37 || grandezza < -37) {
        valore = 0;
        errore = troppoPiccolo;
        return;
    }
    if (grandezza > 38) {
        valore = 1e38;
        errore = troppoGrande;
        return;
    }
    // Read in one go from its digits, so that no power of ten in between costs the last one of them.
    std::array<char, 300> numero;
    char* p = numero.data();
    char* const fine = numero.data() + numero.size();
    if (cifreEstese != 0) {
        const std::string_view tutte = mantissa.view();
        p = std::copy(tutte.begin(), tutte.end(), p);
    } else {
        p = std::to_chars(p, fine, static_cast<std::int64_t>(valore)).ptr;
    }
    *p++ = 'e';
    p = std::to_chars(p, fine, cifreEstese != 0 ? esponente - decimali : potenza).ptr;
    std::size_t lette = 0;
    valore = DoubleDaTesto({numero.data(), static_cast<std::size_t>(p - numero.data())}, lette);
    if (negativo) valore = -valore;
    // Kept: limits bind only above the error word of success, that is never; who needs a bound tests it himself.
    if (errore <= buono) return;
    if (valore > max) errore = troppoGrande;
    if (valore < min) errore = troppoPiccolo;
}

void TSTRtoINT::Poni(std::int16_t minimo, std::int16_t massimo, const PStr255& t) {
    min = minimo;
    max = massimo;
    testo = t;
}

void TSTRtoINT::traduci(std::uint8_t flag) {
    testo = conBianco(testo);
    lunghezza = testo[0];
    uscita = 0;
    errore = buono;
    cifre = insiemi().cifre;
    segni = insiemi().segniInteri;
    vistoSegno = negativo = false;
    valore = 0;
    posizione = 1;
    posErrore = 0;
    SEARCH();
    if (uscita == 0)
        while (posizione <= lunghezza && avanza()) ++posizione;
    terminate();
    riferisci(errore, flag);
}

std::int16_t TSTRtoINT::Prendi(std::int16_t& value, std::int16_t& pos) const {
    value = valore;
    pos = posErrore;
    return errore;
}

void TSTRtoINT::SEARCH() {
    for (; posizione <= lunghezza; ++posizione) {
        car = static_cast<char>(testo[posizione]);
        if (cifre.IN(car)) return;
        if (segni.IN(car) && posizione < lunghezza && cifre.IN(testo[posizione + 1])) return;
        if (car != ' ') break;
    }
    ++posizione;   // Kept: a number that does not begin is marked one character further than one that breaks off
    malformato();
    uscita = 1;
}

bool TSTRtoINT::malformato() {
    errore = interoMalformato;
    posErrore = static_cast<std::int16_t>(posizione - 1);
    return false;
}

bool TSTRtoINT::avanza() {
    car = static_cast<char>(testo[posizione]);
    if (cifre.IN(car)) return avanzaCifra();
    if (!segni.IN(car)) return car == ' ' ? false : malformato();
    if (vistoSegno) return malformato();
    vistoSegno = true;
    negativo = car == '-';
    return true;
}

bool TSTRtoINT::avanzaCifra() {
    vistoSegno = true;   // none may follow
    // Kept: so 32760 to 32767 already count as too large.
    if (valore > 3275) {
        valore = 32767;
        errore = troppoGrande;
        return false;
    }
    valore = static_cast<std::int16_t>(valore * 10 + valoreCifra(car));
    return true;
}

void TSTRtoINT::terminate() {
    if (negativo) valore = static_cast<std::int16_t>(-valore);
    if (errore <= 0) return;
    if (valore > max) {
        valore = max;
        errore = troppoGrande;
    } else if (valore < min) {
        valore = min;
        errore = troppoPiccolo;
    }
}

std::int16_t STRtoFP(const double& min, const double& max, const PStr255& text, double& value, std::int16_t& pos,
                     std::uint8_t flag) {
    TSTRtoFP t;
    t.Poni(min, max, text);
    t.traduci(flag);
    return t.Prendi(value, pos);
}

std::int16_t STRtoINT(std::int16_t min, std::int16_t max, const PStr255& text, std::int16_t& value, std::int16_t& pos,
                      std::uint8_t flag) {
    TSTRtoINT t;
    t.Poni(min, max, text);
    t.traduci(flag);
    return t.Prendi(value, pos);
}

}   // namespace tessaro
