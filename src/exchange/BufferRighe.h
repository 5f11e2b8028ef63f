// Lines of a text file on their way out, gathered in one large buffer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace tessaro {

// Writes to `RefNum`; each line ends in CR, or in CR LF. The first write that fails sets `uscita`, and from then on nothing is written.
class BufferRighe {
public:
    explicit BufferRighe(bool conLf = false) : byte(capienza), dopo(byte.data()), lf(conLf) {}
    ~BufferRighe() { svuota(); }
    BufferRighe(const BufferRighe&) = delete;
    BufferRighe& operator=(const BufferRighe&) = delete;

    // Into the line in hand.
    void aggiungi(std::string_view s) {
        prepara(s.size());
        std::memcpy(dopo, s.data(), s.size());
        dopo += s.size();
    }
    // Its end.
    void fineRiga() {
        prepara(2);
        *dopo++ = '\r';
        if (lf) *dopo++ = '\n';
    }
    // A whole line.
    void riga(std::string_view s) {
        aggiungi(s);
        fineRiga();
    }
    // What FormatReal gives.
    void numero(const double& v, std::int16_t larghezza, std::int16_t decimali);
    void svuota();

private:
    // Room for one more piece; all are shorter than a string of 255 characters.
    void prepara(std::size_t quanti) {
        if (static_cast<std::size_t>(byte.data() + byte.size() - dopo) < quanti) svuota();
    }

    static constexpr std::size_t capienza = 1024 * 1024;
    std::vector<char> byte;
    char* dopo;   // the next free place
    bool lf;
};

}   // namespace tessaro
