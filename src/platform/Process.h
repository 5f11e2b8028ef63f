// Programs of someone else, run beside this one under limits: their output goes to a file, and they are stopped when they
// take too long, too much memory, or when the person wants it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace tessaro {

struct ChiamataProcesso {
    std::string programma;                // looked for on the path; UTF-8
    std::vector<std::string> argomenti;   // UTF-8
    std::string uscita;                   // path of the file that takes its standard output
    int secondi = 60;
    std::int64_t megabyte = 1024;     // of memory that is in use, not of addresses
    std::function<bool()> continua;   // asked ten times a second; false stops it
};

enum class EsitoProcesso : std::uint8_t { finito, manca, caduto, lento, grande, fermato };
struct FineProcesso {
    EsitoProcesso esito = EsitoProcesso::finito;
    int stato = 0;       // of a program that finished
    std::string detto;   // the last line that it wrote on standard error, UTF-8
};
FineProcesso EseguiProcesso(const ChiamataProcesso& chiamata);

// A file that the program brings along, by its path below the folder of such files: beside the executable where it was
// built, in the installed data else. Empty when it is in neither.
std::string FileDelProgramma(const std::string& nome);

// The program itself, to be run once more; empty when it cannot be told.
std::string ProgrammaProprio();
// This process ends by itself after that time, however busy it is; 0 takes that back.
void EndAfter(int seconds);

// A new empty file of the system's folder for temporary ones, gone with this object.
class FileTemporaneo {
public:
    FileTemporaneo();
    ~FileTemporaneo();
    FileTemporaneo(const FileTemporaneo&) = delete;
    FileTemporaneo& operator=(const FileTemporaneo&) = delete;
    [[nodiscard]] const std::string& percorso() const { return dove; }   // empty when none could be made

private:
    std::string dove;
};

}   // namespace tessaro
