// The table of control points of a drawing: kept in its tagged entry 'ctrl', and so in its file and its journal. What is
// solved from it is worked out when asked for and kept while the entry is the same.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "registration/MoltiPunti.h"

namespace tessaro {

inline constexpr std::size_t massimoPuntiTabella = 5000;
inline constexpr std::size_t massimoNomePunto = 63;   // bytes, Mac Roman

struct RigaPunto {
    std::string nome;                           // Mac Roman
    Coppia foglio, reale;                       // sheet units; the user's unit
    bool conFoglio = false, conReale = false;   // those coordinates have been given
    bool inUso = true;
    bool operator==(const RigaPunto& r) const;
    [[nodiscard]] bool intera() const { return conFoglio && conReale; }
};

struct TabellaPunti {
    std::vector<RigaPunto> righe;   // a row's number is its place, from 1
    Metodo metodo = Metodo::helmert;
    bool robusta = false;      // weights by the robust estimation; not of a thin plate
    bool frecce = true;        // residuals are shown in the drawing
    double esagerazione = 0;   // sheet length of an arrow by its residual's; 0: chosen so that the longest is 15 mm
    bool inVigore = false;     // the read-out follows the mapping, as long as records 1 and 2 are those of `firma`
    std::array<double, 8> firma{};   // sheet and real coordinates of control points 1 and 2 when that was set
    bool operator==(const TabellaPunti& t) const = default;
};

// --- the entry's bytes: version 1, little-endian. Any bytes may come: a row that cannot be read ends the table, coordinates
// that are not finite count as not given.
std::string BytesTabella(const TabellaPunti& t);
TabellaPunti TabellaDaBytes(std::string_view bytes);

const TabellaPunti& LaTabella();           // of the drawing; empty when it has none. Valid until it changes
bool PoniTabella(const TabellaPunti& t);   // part of the step; an empty one with nothing chosen takes the entry out

// The solution of the table as it stands.
struct StatoPunti {
    EsitoPunti esito;                 // its points are rows, from 0
    SoluzionePunti soluzione;         // its points stand in the order of `righe`
    std::vector<std::size_t> righe;   // rows with both coordinates, from 0
    std::vector<double> pesi;         // of those: 0 for a row that is not in use
    double scalaRobusta = 0;          // standard error by the median; 0 without robust estimation
};
const StatoPunti& StatoTabella();
std::vector<PuntoNoto> PuntiDellaTabella(const TabellaPunti& t, bool soloInUso,
                                         std::vector<std::size_t>* righe = nullptr);

// The mapping that the read-out follows, or null: the similarity of points 1 and 2 is all there is then.
const MappaPunti* MappaInVigore();
std::array<double, 8> FirmaAttuale();   // records 1 and 2 as they are

}   // namespace tessaro
