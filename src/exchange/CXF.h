// The reader of cadastral maps in CXF: one value a line, in a fixed order behind a keyword line, onto fixed sheets.
#pragma once

#include <cstdint>
#include <vector>

#include "exchange/Codifica.h"
#include "exchange/Operazione.h"
#include "model/Elemento.h"
#include "text/PascalString.h"

namespace tessaro {

class TLeggiEntitaCXF {
public:
    void Leggi();   // the open file, from its present position to its end or to the line "EOF"; ends with the report

private:
    struct Coppia2 {
        double x = 0, y = 0;   // sheet units
    };

    void ReadlnDisco(PStr255& s);   // the next line in Mac Roman, without tabs, one leading blank and trailing blanks
    void Simbolo();
    void Fiduciale();
    void Poligono();
    void Linea();
    void CXFTesto();

    bool eParola(const char* parola) const;   // the line begins so
    bool continua();                          // neither failed nor full, and the person lets it go on
    double reale();                           // the next line as a number; 0 once uscita is set
    std::int16_t intero();                    // the same, whole
    Coppia2 punto();                          // two lines
    void dimensione();
    std::int16_t angolo();
    // A head and its vertices; `contatore` is left as the loop over the vertices leaves it.
    void anello(std::int32_t vertici, std::int16_t penna, std::int16_t colore, std::int16_t pattern,
                std::int32_t& contatore);
    void isole(const std::vector<std::int16_t>& vertici, std::int32_t contatore);
    // One element: its point, elevation, a segment's other end.
    void metti(Tipoelem tipo, const Coppia2& p, double z, const Coppia2& q, std::int16_t penna, std::int16_t colore,
               std::int16_t pattern, const PStr255& testo);
    void scritta(const PStr255& testo, const Coppia2& dove, std::int16_t ang, std::int16_t colore);

    elemento prova{};   // scratch: only its type is used
    PStr255 linea = "";
    Codifica codifica = Codifica::macRoman;
    LetturaLunga lunga{TestoScambio::avanzaMappa};
    Resoconto resoconto;
    std::int64_t contate = 0;    // lines
    bool pieno = false;          // an element found no room
    std::uint8_t charprec = 0;   // last byte read
};

void EntitaCXF();   // reads and puts the current sheet back
void LeggiCXF();    // the open file; the caller closes it

}   // namespace tessaro
