// The drawing as a script in the MiniCad command language: one command a line, lines end in CR, in a flat and a spatial
// form. Real coordinates with the unit's text behind each.
#pragma once

#include <array>
#include <cstdint>

#include "exchange/Resoconto.h"
#include "model/Elemento.h"
#include "text/PascalString.h"

namespace tessaro {

enum tipo_D : std::int32_t { due_D = 0, tre_D = 1 };

extern PStr255 stUniM;                                 // the unit's text; ScriviGlobalCharacteristics
extern const std::array<std::int16_t, 38> Retini_MC;   // pen pattern of the script for pattern number 1, 2, ...

void FaiMiniCad(tipo_D d);                    // the whole export, from the question where to, to its report
void ApriMiniCad(tipo_D d);                   // asks where to write and opens it as RefNum; cancelling sets uscita
void ScriviGlobalCharacteristics();           // units and scale
Scritti ScriviObjectCreationCode(tipo_D d);   // the elements; gives what was written and left out

// --- single commands
void MCPenSize(std::int16_t n);
void MCPenPat(std::int16_t n);    // a number outside the table takes its first entry
void MCPenFore(std::int16_t c);   // colour number; outside the table black
void MCTextFont(std::int16_t n);
void MCTextSize(std::int16_t n);
void MCTextFace(std::uint8_t face);
void MCTextOrigin(const double& x, const double& y);
void MCDrawString(const PStr255& s);
void MCPolyTo(const double& x, const double& y, const double& z, tipo_D d);
void MCFinePoly(const double& x, const double& y, const double& z, tipo_D d);

// Writes the elements, pen commands only where the pen changes, connected segments as one line.
class TScriviObjectMiniCad {
public:
    virtual ~TScriviObjectMiniCad() = default;
    void Scrivi(tipo_D d);

    Scritti conti;

protected:
    virtual void MCFaiT(std::int32_t i);
    virtual void ScriviLineaMiniCad(const elemento& e, tipo_D d);
    virtual void MCFaiPoly(std::int32_t& i, tipo_D d);   // i moves onto the last vertex
    virtual bool ScriviMarkerMiniCad(const elemento& e, tipo_D d);
    virtual void AsteriscoMiniCad(tipo_D d);
    virtual void TriangoloMiniCad(tipo_D d);

private:
    bool elementoVisibile(std::int32_t& i, tipo_D d);
    void colore(std::int16_t c);
    void penna(std::int16_t c, std::int16_t pattern, std::int16_t size);
    void chiudiLinea();
    // A line through offsets from the current point, in multiples of RappPunti.
    template <std::size_t N>
    void figura(const double (&punti)[N][2], tipo_D d);
    void quadrato(const char* comando, tipo_D d);   // the box of half-side 2, by its corners
    void quadratoMiniCad(tipo_D d);
    void croceMiniCad(tipo_D d);
    void cerchiettoMiniCad(tipo_D d);

    std::int16_t patternPrec = -1, sizePrec = -1, colorePrec = -1;   // what the pen holds; -1 before its first use
    puntot corrente;                                                 // real
    puntot fineLinea;                                                // where the running line ends
    bool lineaAperta = false;                                        // the last record was a segment
};

}   // namespace tessaro
