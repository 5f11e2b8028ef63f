// The scanners behind STRtoFP and STRtoINT: Poni gives limits and text, traduci reads, Prendi gives the result.
// A subclass may change how a number is looked for and how it is closed.
#pragma once

#include <cstdint>

#include "text/PascalString.h"
#include "text/UCharSet.h"

namespace tessaro {

// Error words: 1 good, 0 bad integer, -1 too large, -2 too small, -3 bad real number.
class TSTRtoFP {
public:
    virtual ~TSTRtoFP() = default;
    // The limits, in the unit of the value, and the text.
    void Poni(const double& minimo, const double& massimo, const PStr255& testo);
    void traduci(std::uint8_t flag);                               // flag 1: a fault is also shown
    std::int16_t Prendi(double& value, std::int16_t& pos) const;   // the error word; value and place of the fault

protected:
    virtual void SEARCH();      // the first character of the number
    virtual void terminate();   // scales, applies the sign, tests the range

    std::int16_t errore = 1;
    int lunghezza = 0, posizione = 1;                // of the text with its closing blank; 1-based
    int decimali = 0, esponente = 0, scartate = 0;   // digits behind the point; power of ten; digits left out
    double min = 0, max = 0;
    bool vistoEsponente = false, vistoSegno = false, negativo = false, esponenteNegativo = false, vistoPunto = false;
    char car = ' ';
    PStr255 testo = "";
    PStr255 mantissa = "";   // all its digits, when they are kept
    double valore = 0;       // the first nine
    std::int16_t posErrore = 0;
    TCharSet cifre, esponenti, segni;

private:
    bool avanza();   // takes one character; false at the end of the number
    bool avanzaCifra();
    bool avanzaSegno();
    bool avanzaPunto();
    bool avanzaEsponente();
    bool malformato();
};

class TSTRtoINT {
public:
    virtual ~TSTRtoINT() = default;
    // The limits and the text, as TSTRtoFP's.
    void Poni(std::int16_t minimo, std::int16_t massimo, const PStr255& testo);
    void traduci(std::uint8_t flag);
    std::int16_t Prendi(std::int16_t& value, std::int16_t& pos) const;   // the error word; value and place of the fault

protected:
    virtual void SEARCH();
    virtual void terminate();   // applies the sign and holds the value to the limits

    std::int16_t errore = 1;
    int lunghezza = 0, posizione = 1;
    std::int16_t min = 0, max = 0;
    bool vistoSegno = false, negativo = false;
    char car = ' ';
    PStr255 testo = "";
    std::int16_t valore = 0;
    std::int16_t posErrore = 0;
    TCharSet cifre, segni;

private:
    bool avanza();
    bool avanzaCifra();
    bool malformato();
};

}   // namespace tessaro
