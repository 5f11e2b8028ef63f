// Lines of a DXF file on their way out, gathered in one large buffer.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessaro {

// Writes to `RefNum`; each line ends in CR. The first write that fails sets `uscita`, and from then on nothing is written.
class BufferDXF {
public:
    BufferDXF() { righe.reserve(capienza + margine); }
    ~BufferDXF() { svuota(); }
    BufferDXF(const BufferDXF&) = delete;
    BufferDXF& operator=(const BufferDXF&) = delete;

    void riga(std::string_view s);
    void riga(const double& v, std::int16_t decimali = 13);
    void righe2(std::string_view codice, std::string_view valore) {
        riga(codice);
        riga(valore);
    }
    void reale(std::string_view codice, const double& v, std::int16_t decimali = 13) {
        riga(codice);
        riga(v, decimali);
    }
    void intero(std::string_view codice, std::int32_t n, std::int16_t larghezza = 0);
    // Groups 10, 20 and 30, or 11, 21 and 31.
    void punto(char indice, const double& x, const double& y, const double& z);
    void svuota();

private:
    static constexpr std::size_t capienza = 1024 * 1024, margine = 1024;
    std::string righe;
};

}   // namespace tessaro
