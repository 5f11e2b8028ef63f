// Bytes of a binary DXF file: what each code's value is made of.
#include "dwg/kit/dxfleggi/GruppiBinari.h"

#include <bit>

#include "exchange/Operazione.h"
#include "platform/Files.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

// Values by their codes, as the DXF reference tells them; the first row that holds the code counts.
enum class Forma : std::uint8_t { testo, reale, i8, i16, i32, i64, mucchio };
struct Riga {
    int da, a;
    Forma forma;
};
constexpr Riga forme[] = {
    {0, 9, Forma::testo},         {10, 59, Forma::reale},     {60, 79, Forma::i16},       {90, 99, Forma::i32},
    {100, 109, Forma::testo},     {110, 149, Forma::reale},   {160, 169, Forma::i64},     {170, 179, Forma::i16},
    {210, 239, Forma::reale},     {270, 289, Forma::i16},     {290, 299, Forma::i8},      {300, 309, Forma::testo},
    {310, 319, Forma::mucchio},   {320, 369, Forma::testo},   {370, 389, Forma::i16},     {390, 399, Forma::testo},
    {400, 409, Forma::i16},       {410, 419, Forma::testo},   {420, 429, Forma::i32},     {430, 439, Forma::testo},
    {440, 459, Forma::i32},       {460, 469, Forma::reale},   {470, 489, Forma::testo},   {999, 999, Forma::testo},
    {1004, 1004, Forma::mucchio}, {1000, 1009, Forma::testo}, {1010, 1059, Forma::reale}, {1060, 1070, Forma::i16},
    {1071, 1071, Forma::i32},
};

constexpr std::size_t testoMassimo = 1 << 20;   // bytes; a longer one is none

}   // namespace

GruppiBinari::GruppiBinari() {
    GetEOF(RefNum, dimensione);
    std::uint8_t b = 0;
    for (std::size_t i = 0; i < firmaBinaria.size(); ++i) byte(b);
}

bool GruppiBinari::byte(std::uint8_t& b) {
    if (qui == fine) {
        const double parte = dimensione > 0 ? static_cast<double>(contati) / static_cast<double>(dimensione) : 0;
        if (contati > 0 && !AvanzaLettura(parte)) fermato = true;
        if (fermato || uscita != 0 || !altroBlocco()) return false;
    }
    b = static_cast<std::uint8_t>(*qui++);
    ++contati;
    return true;
}

bool GruppiBinari::numero(int byteSuoi, std::uint64_t& v) {
    v = 0;
    for (int i = 0; i < byteSuoi; ++i) {
        std::uint8_t b = 0;
        if (!byte(b)) return false;
        v |= std::uint64_t{b} << (8 * i);
    }
    return true;
}

bool GruppiBinari::fineTesto() {
    testo.clear();
    for (std::uint8_t b = 0; byte(b) && testo.size() < testoMassimo;) {
        if (b == 0) return true;
        testo += static_cast<char>(b);
    }
    return false;
}

bool GruppiBinari::valore(int c) {
    const Riga* riga = nullptr;
    for (const Riga& r : forme)
        if (c >= r.da && c <= r.a) {
            riga = &r;
            break;
        }
    if (riga == nullptr) return false;
    std::uint64_t v = 0;
    const auto interoDi = [&](int byteSuoi, auto segno) {
        tipo = Tipo::intero;
        if (!numero(byteSuoi, v)) return false;
        intero = static_cast<decltype(segno)>(v);
        return true;
    };
    switch (riga->forma) {
    case Forma::testo: tipo = Tipo::testo; return fineTesto();
    case Forma::reale:
        tipo = Tipo::reale;
        if (!numero(8, v)) return false;
        reale = std::bit_cast<double>(v);
        return true;
    case Forma::i8: return interoDi(1, std::int8_t{});
    case Forma::i16: return interoDi(2, std::int16_t{});
    case Forma::i32: return interoDi(4, std::int32_t{});
    case Forma::i64: return interoDi(8, std::int64_t{});
    case Forma::mucchio: {
        tipo = Tipo::niente;
        std::uint8_t n = 0, b = 0;
        if (!byte(n)) return false;
        for (int i = 0; i < n; ++i)
            if (!byte(b)) return false;
        return true;
    }
    }
    return false;
}

// Codes are one byte in R12 and before, 255 leading a wide one; from R13 on two. The first group of a file is a 0 with a
// name: two zero bytes are a wide one.
bool GruppiBinari::prossimo(int& c) {
    constexpr std::uint8_t segnoLargo = 255;
    std::uint8_t b = 0;
    std::uint64_t v = 0;
    if (!byte(b)) return false;
    guasto = true;   // a group that ends with the file
    if (primo) {
        primo = false;
        if (qui == fine && !altroBlocco()) return false;
        codiciLarghi = *qui == 0;
    }
    if (codiciLarghi) {
        std::uint8_t alto = 0;
        if (!byte(alto)) return false;
        v = b | std::uint64_t{alto} << 8;
    } else if (b == segnoLargo) {
        if (!numero(2, v)) return false;
    } else {
        v = b;
    }
    c = static_cast<int>(v);
    if (!valore(c)) return false;
    guasto = false;
    return true;
}

}   // namespace tessaro
