// Bits on their way into a DWG file, and the codes in which the format packs its values. Bits fill a byte from its
// highest down; whole numbers and reals are little-endian. The codes are those of the format's public description.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "dwg/kit/OdDbBase.h"
#include "dwg/kit/OdGe.h"

namespace tessaro {

class BitDwg {
public:
    void B(bool v) { bit(v ? 1 : 0, 1); }
    void BB(unsigned v) { bit(v, 2); }          // 0 to 3
    void RC(unsigned v) { bit(v & 0xFF, 8); }   // a byte
    void RS(unsigned v);                        // two bytes
    void RL(std::uint32_t v);                   // four bytes
    void RD(double v);                          // eight bytes
    void BS(std::int32_t v);                    // 16 bits, 0 and 256 in two bits, a byte in ten
    void BL(std::int32_t v);                    // 32 bits, 0 in two bits, a byte in ten
    void BD(double v);                          // a double, 0 and 1 in two bits
    void DD(double v, double atteso);           // a double, two bits when it is the expected one
    void BD3(const OdGePoint3d& p);             // three BD
    void BD3(const OdGeVector3d& v) { BD3(OdGePoint3d{v.x, v.y, v.z}); }
    void RD2(double x, double y);            // two RD
    void H(unsigned codice, OdDbHandle h);   // a reference: its kind (0 itself, 2 to 5), length and number
    void OT(unsigned tipo);                  // an object's type from format 2010 on
    void byte(std::string_view s);           // whole bytes
    void bitDi(const BitDwg& altro);         // all the bits of another
    void allinea();                          // zero bits up to a whole byte

    [[nodiscard]] std::size_t quantiBit() const { return posto; }
    [[nodiscard]] const std::vector<std::uint8_t>& dati() const { return buffer; }
    void poniRL(std::size_t dove, std::uint32_t v);   // over 32 bits written before, at bit `dove`

private:
    std::vector<std::uint8_t> buffer;
    std::size_t posto = 0;   // bits written
    void bit(unsigned v, int quanti);
};

// Numbers of seven bits a byte, the lowest first; the highest bit says that more follow. MC: the sign is bit 6 of the
// last byte; UMC: none; MS: 15 bits a word.
void aggiungiMC(std::string& s, std::int64_t v);
void aggiungiUMC(std::string& s, std::uint64_t v);
void aggiungiMS(std::string& s, std::uint32_t v);
void aggiungiRS(std::string& s, unsigned v);
void aggiungiRL(std::string& s, std::uint32_t v);

// The 16-bit cyclic redundancy check of the format: polynomial 0xA001 (reversed 0x8005).
std::uint16_t CrcDwg(std::string_view s, std::uint16_t seme);
inline constexpr std::uint16_t semeCrc = 0xC0C1;

}   // namespace tessaro
