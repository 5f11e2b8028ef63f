// Group codes of DXF entities, as three-character lines.
#pragma once

#include "exchange/RigheDxf.h"

namespace tessaro {

inline constexpr std::uint32_t g0 = CodiceGruppo("  0"), g1 = CodiceGruppo("  1"), g2 = CodiceGruppo("  2"),
                               g3 = CodiceGruppo("  3"), g5 = CodiceGruppo("  5"), g6 = CodiceGruppo("  6"),
                               g8 = CodiceGruppo("  8"), g10 = CodiceGruppo(" 10"), g11 = CodiceGruppo(" 11"),
                               g20 = CodiceGruppo(" 20"), g21 = CodiceGruppo(" 21"), g30 = CodiceGruppo(" 30"),
                               g31 = CodiceGruppo(" 31"), g38 = CodiceGruppo(" 38"), g40 = CodiceGruppo(" 40"),
                               g41 = CodiceGruppo(" 41"), g42 = CodiceGruppo(" 42"), g43 = CodiceGruppo(" 43"),
                               g50 = CodiceGruppo(" 50"), g51 = CodiceGruppo(" 51"), g62 = CodiceGruppo(" 62"),
                               g70 = CodiceGruppo(" 70"), g71 = CodiceGruppo(" 71");

}   // namespace tessaro
