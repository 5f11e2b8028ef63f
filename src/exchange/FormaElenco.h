// How a point list stands in its file when it is a table: what parts its columns, what a decimal comma is, which column
// holds what; and what of that the lines themselves tell.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tessaro {

enum class SeparaElenco : std::uint8_t { tab, puntoEVirgola, virgola, bianchi };
enum class ColonnaElenco : std::uint8_t { niente, numero, x, y, z, codice };

inline constexpr std::size_t maxColonneElenco = 8;

struct FormaElenco {
    SeparaElenco separa = SeparaElenco::tab;
    bool virgolaDecimale = false;   // else the point
    bool conTesta = false;          // the first line that is no comment names the columns
    std::uint8_t quante = 0;   // columns of a row, as they were found; those beyond maxColonneElenco are not looked at
    std::array<ColonnaElenco, maxColonneElenco> colonne{};
    friend bool operator==(const FormaElenco&, const FormaElenco&) = default;
};

// Can points be made of it? X and Y once each, the others at most once; not two commas of two meanings.
bool FormaUsabile(const FormaElenco& f);
// Blank, or begins with '#' or '!': no row.
bool CommentoElenco(std::string_view riga);
// The fields of a row, without blanks and quotes at their ends; views into it. Blanks that part fields count as one.
void CampiElenco(std::string_view riga, SeparaElenco separa, std::vector<std::string_view>& campi);
// A finite decimal number and nothing else.
bool NumeroElenco(std::string_view campo, bool virgolaDecimale, double& valore);

// From the first lines of a file: the separator and decimal sign by which most rows have the same number of columns, at
// least two of them numbers; columns by the words of a head, else number (when the first column counts up, or is no
// number), X, Y, Z, code. Nothing when no way makes a table.
std::optional<FormaElenco> IndovinaElenco(std::span<const std::string> righe);

}   // namespace tessaro
