// The texts of the language in force, by key, and the reading of resource files. For the files of platform/qt only.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessaro {

// "en" or "it"; another name means "en". Without a call the first text asked for decides by the options and the desktop.
void ScegliLingua(std::string_view lingua);
// UTF-8; empty when neither the language nor English has the key. The reference is good until the language changes.
const std::string& testo(std::string_view chiave);

// ^0 to ^3 replaced by what ParamText was given.
std::string conParametri(std::string_view utf8);
extern std::array<std::string, 4> parametriTesto;   // UTF-8, empty at start; ParamText

// One line of a resource file: words, of which `nome=valore` ones are options and the others stand in order.
struct RigaRisorsa {
    std::vector<std::string> parole;
    std::vector<std::pair<std::string, std::string>> opzioni;
    [[nodiscard]] bool ha(std::string_view parola) const;                  // a bare word anywhere behind the first
    [[nodiscard]] std::string_view opzione(std::string_view nome) const;   // empty when it is not there
    [[nodiscard]] int numero(std::string_view nome, int altrimenti) const;
};
// The lines of a file below resources/, comments (from `#` behind a blank) and blank lines left out.
std::vector<RigaRisorsa> RigheRisorsa(std::string_view path);
// Paths below resources/ of the files in one of its folders, sorted.
std::vector<std::string> FileRisorse(std::string_view cartella);
int numeroDi(std::string_view parola, int altrimenti);

}   // namespace tessaro
