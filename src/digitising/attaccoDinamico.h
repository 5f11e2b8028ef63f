// The live transformation: destination points, mode and preview switch, with its block in the native file. The solvers
// behind four and five points are not here; until they stand the preview is off and asks for nothing.
#pragma once

#include <array>
#include <cstdint>

#include "dialogs/Parametri.h"
#include "model/Registrazione.h"

namespace tessaro {

class ActiveAttach : public TParametri {
public:
    ActiveAttach();
    void SetXYAtt(std::int16_t i, const double& x, const double& y);     // slot from 0
    void SetAttacco(std::int16_t n, const double& x, const double& y);   // point from 1, selection first
    void GetAttacco(std::int16_t n, double& x, double& y) const;         // point from 1
    void SetDelta(const double& x, const double& y, const double& z);
    void SetRot(const double& a, const double& b, const double& c, const double& d);   // Kept: d lands on rot21 too
    void SetIngr(const double& v);
    void SetCoord(const double& x1, const double& y1, const double& z1, const double& x2, const double& y2,
                  const double& z2);
    void SetModificato(std::uint8_t on) { modificato = on; }
    [[nodiscard]] std::uint8_t GetModificato() const { return modificato; }
    [[nodiscard]] std::int32_t GetTipo() const { return tipo; }
    void PreparaAttacco();                // from the points of the moment; fewer than two given: stops early
    void Traf4Pt(double& x, double& y);   // maps a sheet point, in place; modes 1 and 2 leave it until they stand
    void VerificaAttacchi();
    void TrasformaPuntiDestinazione();
    void Disegna();                    // the marks, colour 409
    void DisAttacco(std::int16_t n);   // one mark, 1 to 5
    void WriteAttacco();               // 627 bytes to RefNum
    void ReadAttacco();
    void Azzera();   // the state of a new process

    double rotazione = 0;                                       // radians, two-point mode
    std::int32_t tipo = 1;                                      // 0 two points, 1 four, 2 five
    TransfRec transf;                                           // similarity of mode 0; ingr 1
    std::array<double, 5> xAtt{1000, 1000, 2000, 2000, 1500};   // destination points, sheet units
    std::array<double, 5> yAtt{2000, 1000, 1000, 2000, 1500};
    std::uint8_t opzione = 1;       // dialog check box 13
    std::uint8_t modificato = 0;    // preview on
    Att4Pt lavoro;                  // solver's record
    std::array<double, 9> coef{};   // a to h of the homography, one spare
    std::int16_t radioTipo = 28;    // tipo + 27
};
extern ActiveAttach attaccoAttivo;

// Is there a live transformation to show? The switch alone does not make one: what draws or picks asks here, never
// GetModificato. False until the solvers stand.
bool AnteprimaAttiva();

}   // namespace tessaro
