// The reference system that the drawing's real coordinates are in, and a second one in which they can be read out. They
// stand in the drawing's entry 'crs ': a byte with the version, 1, then three texts in UTF-8, each behind its length as
// four bytes, lowest first: the drawing's system, the second one, the one that lists of points are in. A text is a code
// ("EPSG:3003"), a name or a description that PROJ takes; empty is none. Bytes behind are passed over.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "maps/Proj.h"
#include "model/Elemento.h"

namespace tessaro {

struct SistemiDisegno {
    std::string disegno, secondo, elenchi;
};
// Those of the drawing; empty texts when it names none or the entry cannot be read. Valid until the entry changes.
const SistemiDisegno& SistemiDelDisegno();
bool PoniSistemi(const SistemiDisegno& s);   // nothing named takes the entry out; false when there is no room for it
inline const std::string& SistemaDelDisegno() { return SistemiDelDisegno().disegno; }

// What PROJ knows of a text: a code (a bare number is EPSG's), a name or a description.
struct SistemaTrovato {
    std::string codice;        // "EPSG:3003"; empty for a system without one
    std::string nome;          // UTF-8
    bool geografico = false;   // longitude and latitude, degrees
    bool usabile = false;      // it has plane coordinates or longitude and latitude
};
// False when PROJ is not there or knows nothing of that name.
bool TrovaSistema(std::string_view testo, SistemaTrovato& s);
// Systems in whose names the words stand, at most `massimi`.
std::vector<SistemaTrovato> CercaSistemi(std::string_view parole, std::size_t massimi);
// The same system, but for the order of its axes. False when either is unknown.
bool StessoSistema(const std::string& a, const std::string& b);
std::string WktDi(const std::string& testo);   // its whole description, WKT; empty when PROJ does not know it
std::string FusoUTM(double longitudine, double latitudine);   // "EPSG:32632"

// The way from one system to another, easting or longitude first in both; longitude and latitude in degrees.
class FraSistemi {
public:
    // False with the reason (Mac Roman): PROJ is not installed, it does not know one, or there is no way.
    bool prepara(const std::string& da, const std::string& a, std::string& motivo);
    [[nodiscard]] bool pronto() const { return operazione != nullptr; }
    // In place; false when one of them cannot be carried over, which then is not finite.
    bool avanti(puntot* punti, std::size_t quanti);
    bool avanti(double& x, double& y);
    bool indietro(puntot* punti, std::size_t quanti);   // the way back, likewise
    // What PROJ tells of the operation that the last point went by, in metres; negative when it does not know.
    [[nodiscard]] double accuratezza() const;

private:
    bool porta(puntot* punti, std::size_t quanti, int verso);

    OggettoProj operazione;
};

// The name for the strip: "EPSG:3003 Monte Mario / Italy zone 1"; empty when the drawing names none. Mac Roman.
std::string TestoSistema();
// A real position in the second system: `45°03'12.3456" N  7°41'05.1234" E`, or its plane coordinates behind the system's
// code; empty when there is no second system or the position lies off it. Mac Roman.
std::string LetturaSecondoSistema(double X, double Y);
// The same for the place that the read-out shows, as the strip asks for it at each round.
std::string SecondaLetturaAlCursore();

}   // namespace tessaro
