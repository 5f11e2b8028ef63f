// The table of lenses: by how much each one bows the four edges of a frame, and which one is in use.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "raster/Indietro.h"

namespace tessaro {

inline constexpr std::int16_t maxLenti = 50, maxNomeLente = 20;
inline constexpr double maxBombatura = 50;   // per cent, either way
inline constexpr std::int16_t menuLenti = 9172;

struct LenteOttica {
    Bombature valori;                      // per cent of the half frame, -50 to 50
    std::array<double, 2> riservati{};     // stored, used by nothing
    std::array<std::uint8_t, 22> nome{};   // length first, at most maxNomeLente
};
struct TavolaLenti {
    std::array<LenteOttica, maxLenti> lenti{};
    std::int16_t presenti = 1;
};
extern std::array<LenteOttica, maxLenti> deformazioneOttica;
extern std::int16_t lentiPresenti, indiceLenteAttuale;   // 1 to maxLenti; 1 and 1

std::string NomeLente(const LenteOttica& l);                     // Mac Roman
void PoniNomeLente(LenteOttica& l, std::string_view macRoman);   // cut to maxNomeLente
TavolaLenti LentiPredefinite();                                  // one lens of zeros; the names of all are set
void RifaiMenuLenti();                                           // the pop-up's texts from the table in force
void MostraMenuLenti(const TavolaLenti& t);                      // and from one that is being edited
// The four values that a mesh shows, digitised over what should be a straight grid. Not finite for a mesh without span.
struct Mesh;
Bombature DallaMesh(const Mesh& m);

// Dialog 155; `avvio`: loads the settings file and applies it, without a dialog.
void SceltaCorrezioneOttica(std::uint8_t avvio);
// The command, menu 5 item 17: a new picture with the lens in use undone.
void CorreggiPictSel();

}   // namespace tessaro
