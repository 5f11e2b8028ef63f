// The registration report in words: rows and lines as a window shows them, and the whole as a text. Mac Roman but for
// the text, which is UTF-8.
#pragma once

#include <string>
#include <vector>

#include "digitising/RapportoAttacchi.h"

namespace tessaro {

// Rows have their cells parted by tabs.
struct TestiRapporto {
    std::string testataPunti;           // point, sheet, real, destination on the sheet and real
    std::vector<std::string> punti;     // points 1 to 5
    std::string testataResidui;         // point, mapped on the sheet and real, residuals
    std::vector<std::string> residui;   // points 1 to 5; none in the two-point mode
    std::string modo, scala, rotazione;
    std::string massimo, medio;   // the first also tells why there is none
    std::string testataAvvisi;
    std::vector<std::string> avvisi;   // one row that says so when there is nothing to warn of
};
// Decimals of real coordinates, by real units per sheet unit: a hundredth of a sheet unit shows, three at least.
std::int16_t DecimaliReali(double rapporto);
std::string TestoAvviso(const AvvisoPunti& a);   // one fault as a sentence
TestiRapporto TestiDi(const RapportoAttacchi& r);

// Columns in line, for a screen of fixed letters; `disegno` is the drawing's name, Mac Roman.
std::string TestoRapporto(const TestiRapporto& t, std::string_view disegno);

std::string InvitoRapporto();   // of the request for the text's file

}   // namespace tessaro
