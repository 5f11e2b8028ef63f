// The live transformation of the drawing: from the control points to its own destination points, by two points, four or
// five. While its preview is on, what is drawn shows also where it would land. Its dialogs and the copies that it adds
// stand in digitising/, its marks in display/.
#pragma once

#include <array>
#include <cstdint>

#include "model/Elemento.h"
#include "model/Registrazione.h"
#include "registration/Solutori.h"

namespace tessaro {

class ActiveAttach {
public:
    ActiveAttach();
    void SetXYAtt(std::int16_t i, const double& x, const double& y);    // slot from 0
    void GetAttacco(std::int16_t n, double& x, double& y) const;        // point from 1
    void SetDelta(const double& x, const double& y, const double& z);   // translation of the similarity, sheet units
    void SetRot(const double& a, const double& b, const double& c, const double& d);   // Kept: d lands on rot21 too
    void SetIngr(const double& v);                                                     // its enlargement, 1 for none
    // Its two source points, sheet units.
    void SetCoord(const double& x1, const double& y1, const double& z1, const double& x2, const double& y2,
                  const double& z2);
    void SetModificato(std::uint8_t on) { modificato = on; }
    [[nodiscard]] std::uint8_t GetModificato() const { return modificato; }
    [[nodiscard]] std::int32_t GetTipo() const { return tipo; }
    [[nodiscard]] bool Preparato() const { return preparato; }
    // From the points of the moment; fewer than two given: stops early. Who called it shows what the solver reports.
    ErroriIncontrati PreparaAttacco();
    ErroriIncontrati PreparaAttaccoInverso();   // source and destination exchanged
    void CalcolaCoefficienti();   // the homography of `lavoro`; points that define none leave the coefficients
    ErroriIncontrati PrepAtt4pt();
    ErroriIncontrati PrepAtt5pt();
    ErroriIncontrati PrepAtt4ptInverso();
    // Map a sheet point in place. The mode is the global object's; the inverse has no homography and no plain scale.
    void Traf4Pt(double& x, double& y);
    void Traf4PtInverso(double& x, double& y);
    void TrasformaCopia(elemento& e);   // one record's points; others than figures stay
    void WriteAttacco();                // 627 bytes to RefNum
    void ReadAttacco();
    void Azzera();   // the state of a new process

    double rotazione = 0;                                       // radians, two-point mode
    std::int32_t tipo = 1;                                      // 0 two points, 1 four, 2 five
    TransfRec transf;                                           // similarity of mode 0; ingr 1
    std::array<double, 5> xAtt{1000, 1000, 2000, 2000, 1500};   // destination points, sheet units
    std::array<double, 5> yAtt{2000, 1000, 1000, 2000, 1500};
    std::uint8_t opzione = 1;      // dialog check box 13
    std::uint8_t modificato = 0;   // preview on
    Att4Pt lavoro;                 // solver's record
    Coefficienti coef{};           // of the homography
    std::int16_t radioTipo = 28;   // tipo + 27

private:
    friend struct VociAttacco;   // the rows that the journal keeps of it
    void similitudine(const Coppia& s1, const Coppia& s2, const Coppia& d1, const Coppia& d2);
    void trasformaTesto(elemento& e);
    void mappaPerFuga(bool curva, double& x, double& y);

    MappaFuga fuga;           // of `lavoro`, made anew with it
    bool preparato = false;   // the last preparation had the points it takes
};
extern ActiveAttach attaccoAttivo;

// Is there a live transformation to show? The switch alone does not make one: what draws or picks asks here, never
// GetModificato. Without prepared points there is none.
bool AnteprimaAttiva();

}   // namespace tessaro
