// The length-prefixed strings: construction, joining, searching, inserting. Every copy between classes is held to what
// the shorter of the two can hold, so a length byte from a damaged record reads no foreign memory.
#include "text/PascalString.h"

#include <algorithm>
#include <cstring>

namespace tessaro {

// The base is empty and the derived class's bytes stand at its address. Out of line on purpose: seen from outside,
// these are just pointers, and no compiler concludes from the size of the base how far they may be followed.
[[gnu::noinline]] unsigned char* PString::Lengthp() { return reinterpret_cast<unsigned char*>(this); }
[[gnu::noinline]] const unsigned char* PString::bytes() const { return reinterpret_cast<const unsigned char*>(this); }

unsigned char PString::Lengthp() const { return *bytes(); }

std::string_view PString::view() const {
    const unsigned char* p = bytes();
    return {reinterpret_cast<const char*>(p + 1), *p};
}

PString::operator std::int32_t() const {
    std::int32_t codice = 0;
    std::memcpy(&codice, bytes() + 1, sizeof codice);
    return codice;
}

namespace {

using Byte = unsigned char;

std::size_t limitata(const char* s, std::size_t limite) { return s == nullptr ? 0 : strnlen(s, limite); }

void daC(Byte* dest, const char* s, std::size_t limite) {
    const std::size_t n = limitata(s, limite);
    dest[0] = static_cast<Byte>(n);
    if (n > 0) std::memcpy(dest + 1, s, n);
}

void daChar(Byte* dest, char c) {
    dest[0] = c == '\0' ? 0 : 1;
    dest[1] = static_cast<Byte>(c);
}

// Length and characters, at most `capacita` of them.
void daPascal(Byte* dest, const Byte* src, std::size_t capacita) {
    const std::size_t n = std::min<std::size_t>(src[0], capacita);
    std::memmove(dest + 1, src + 1, n);
    dest[0] = static_cast<Byte>(n);
}

// Kept: the length byte that arrives is the source's own, though only `capacita` characters came with it.
void daPiuLunga(Byte* dest, const Byte* src, std::size_t capacita) {
    std::memmove(dest, src, std::min<std::size_t>(src[0], capacita) + 1);
}

// dest becomes count characters of src from the 1-based start; src holds at most `capacita`.
void sottostringa(Byte* dest, const Byte* src, std::size_t capacita, int start, int count) {
    const int n = std::min(count, std::min<int>(src[0], static_cast<int>(capacita)) - start + 1);
    dest[0] = 0;
    if (n < 1 || start < 1) return;
    std::memcpy(dest + 1, src + start, static_cast<std::size_t>(n));
    dest[0] = static_cast<Byte>(n);
}

void inserisci(Byte* s, const char* src, int lunghezza, int pos, int maxLen) {
    const int len = s[0];
    if (pos > len + 1 && len < maxLen) pos = len + 1;
    pos = std::max(pos, 1);
    const int n = pos + lunghezza <= maxLen ? lunghezza : maxLen - pos + 1;
    if (n <= 0) return;   // nothing to insert, or the string is full
    // The source may be the string itself, whose tail moves away first.
    std::array<char, 256> copia;
    std::memcpy(copia.data(), src, static_cast<std::size_t>(n));
    const int e = pos + n - 1;
    const int t = len - pos + e + 2 <= maxLen ? len - pos + 1 : maxLen - e;
    if (t > 0) std::memmove(s + e + 1, s + pos, static_cast<std::size_t>(t));
    std::memcpy(s + pos, copia.data(), static_cast<std::size_t>(n));
    s[0] = static_cast<Byte>(t + e);
}

void aggiungiChar(Byte* s, char c, int capacita) {
    if (s[0] >= capacita) return;
    s[++s[0]] = static_cast<Byte>(c);
}

// First place of `cosa` from the 1-based start up to the next NUL.
Byte posizione(std::string_view dove, std::string_view cosa, int start) {
    const std::size_t da = start > 0 ? static_cast<std::size_t>(start) - 1 : 0;
    if (da > dove.size()) return 0;
    const std::string_view resto = dove.substr(da);
    const std::size_t trovata = resto.substr(0, resto.find('\0')).find(cosa);
    return trovata == std::string_view::npos ? Byte{0} : static_cast<Byte>(da + trovata + 1);
}

PStr255 unite(std::string_view a, std::string_view b) {
    PStr255 r;
    Byte* p = r.Lengthp();
    const std::size_t na = std::min<std::size_t>(a.size(), 255);
    const std::size_t nb = std::min<std::size_t>(b.size(), 255 - na);
    std::memcpy(p + 1, a.data(), na);
    if (nb > 0) std::memcpy(p + 1 + na, b.data(), nb);
    p[0] = static_cast<Byte>(na + nb);
    return r;
}

std::string_view vista(const char* s) { return {s == nullptr ? "" : s, limitata(s, 255)}; }

}   // namespace

unsigned char PString::Pos(const char* s, unsigned char start) const { return posizione(view(), vista(s), start); }
unsigned char PString::Pos(char c, unsigned char start) const {
    return posizione(view(), std::string_view(&c, c == '\0' ? 0 : 1), start);
}
unsigned char PString::Pos(const PString& s, unsigned char start) const {
    const std::string_view cosa = s.view();
    return posizione(view(), cosa.substr(0, cosa.find('\0')), start);
}

void PString::InsertHelper(const PString& src, std::int16_t pos, std::int16_t maxLen) {
    const std::string_view v = src.view();
    inserisci(Lengthp(), v.data(), static_cast<int>(v.size()), pos, maxLen);
}
void PString::InsertHelper(const char* src, std::int16_t pos, std::int16_t maxLen) {
    const std::string_view v = vista(src);
    inserisci(Lengthp(), v.data(), static_cast<int>(v.size()), pos, maxLen);
}

PStr255::PStr255(const char* s) { daC(b.data(), s, 255); }
PStr255::PStr255(char c) { daChar(b.data(), c); }
PStr255::PStr255(const PStr255& s) : PString() { daPascal(b.data(), s.b.data(), 255); }
PStr255::PStr255(const PStr15& s) { daPascal(b.data(), s.bytes(), 15); }
PStr255::PStr255(const PStr7& s) { daPascal(b.data(), s.bytes(), 7); }
PStr255::PStr255(const unsigned char* pascal) { daPascal(b.data(), pascal, 255); }
PStr255::PStr255(std::string_view s) {
    const std::size_t n = std::min<std::size_t>(s.size(), 255);
    if (n > 0) std::memcpy(b.data() + 1, s.data(), n);
    b[0] = static_cast<Byte>(n);
}
PStr255& PStr255::operator=(const char* s) {
    daC(b.data(), s, 255);
    return *this;
}
PStr255& PStr255::operator=(const PStr255& s) {
    daPascal(b.data(), s.b.data(), 255);
    return *this;
}
PStr255& PStr255::operator=(const PStr15& s) {
    daPascal(b.data(), s.bytes(), 15);
    return *this;
}
PStr255& PStr255::operator=(const PStr31& s) {
    daPascal(b.data(), s.bytes(), 31);
    return *this;
}
PStr255& PStr255::operator=(const PStr7& s) {
    daPascal(b.data(), s.bytes(), 7);
    return *this;
}
PStr255& PStr255::operator=(const unsigned char* pascal) {
    daPascal(b.data(), pascal, 255);
    return *this;
}
PStr255& PStr255::operator=(char c) {
    daChar(b.data(), c);
    return *this;
}
PStr255& PStr255::operator+=(char c) {
    b[0] = static_cast<Byte>(b[0] + 1);
    b[b[0]] = static_cast<Byte>(c);
    return *this;
}

PStr63& PStr63::operator=(const PStr255& s) {
    daPiuLunga(b.data(), s.bytes(), 63);
    return *this;
}
PStr15& PStr15::operator=(const PStr255& s) {
    daPiuLunga(b.data(), s.bytes(), 15);
    return *this;
}

// Kept: the length is clipped at 31, not at 7. Only the 7 characters that there is room for are stored.
PStr7::PStr7(const char* s) {
    const std::size_t n = limitata(s, 31);
    if (n > 0) std::memcpy(b.data() + 1, s, std::min<std::size_t>(n, 7));
    b[0] = static_cast<Byte>(n);
}

PStr63::PStr63(const char* s) { daC(b.data(), s, 63); }
PStr32::PStr32(const char* s) { daC(b.data(), s, 32); }
PStr31::PStr31(const char* s) { daC(b.data(), s, 31); }
PStr15::PStr15(const char* s) { daC(b.data(), s, 15); }

PStr63::PStr63(char c) { daChar(b.data(), c); }
PStr32::PStr32(char c) { daChar(b.data(), c); }
PStr31::PStr31(char c) { daChar(b.data(), c); }
PStr15::PStr15(char c) { daChar(b.data(), c); }
PStr7::PStr7(char c) { daChar(b.data(), c); }

PStr63& PStr63::operator=(const char* s) {
    daC(b.data(), s, 63);
    return *this;
}
PStr31& PStr31::operator=(const char* s) {
    daC(b.data(), s, 31);
    return *this;
}
PStr15& PStr15::operator=(const char* s) {
    daC(b.data(), s, 15);
    return *this;
}
PStr7& PStr7::operator=(const char* s) {
    daC(b.data(), s, 7);
    return *this;
}

PStr255 PStr255::Copy(std::int16_t start, std::int16_t count) const {
    PStr255 r;
    sottostringa(r.b.data(), b.data(), 255, start, count);
    return r;
}
PStr63 PStr63::Copy(std::int16_t start, std::int16_t count) const {
    PStr63 r;
    sottostringa(r.b.data(), b.data(), 63, start, count);
    return r;
}
PStr32 PStr32::Copy(std::int16_t start, std::int16_t count) const {
    PStr32 r;
    sottostringa(r.b.data(), b.data(), 32, start, count);
    return r;
}
PStr31 PStr31::Copy(std::int16_t start, std::int16_t count) const {
    PStr31 r;
    sottostringa(r.b.data(), b.data(), 31, start, count);
    return r;
}
PStr15 PStr15::Copy(std::int16_t start, std::int16_t count) const {
    PStr15 r;
    sottostringa(r.b.data(), b.data(), 15, start, count);
    return r;
}
PStr7 PStr7::Copy(std::int16_t start, std::int16_t count) const {
    PStr7 r;
    sottostringa(r.b.data(), b.data(), 7, start, count);
    return r;
}

namespace {

// Appending is inserting behind the last character.
template <class S>
S& accoda(S& s, std::string_view v, int capacita) {
    Byte* p = s.Lengthp();
    inserisci(p, v.data(), static_cast<int>(v.size()), p[0] + 1, capacita);
    return s;
}

}   // namespace

PStr255& PStr255::operator+=(const PString& s) { return accoda(*this, s.view(), 255); }
PStr255& PStr255::operator+=(const char* s) { return accoda(*this, vista(s), 255); }
PStr63& PStr63::operator+=(const PString& s) { return accoda(*this, s.view(), 63); }
PStr63& PStr63::operator+=(const char* s) { return accoda(*this, vista(s), 63); }
PStr31& PStr31::operator+=(const PString& s) { return accoda(*this, s.view(), 31); }
PStr31& PStr31::operator+=(const char* s) { return accoda(*this, vista(s), 31); }
PStr15& PStr15::operator+=(const PString& s) { return accoda(*this, s.view(), 15); }
PStr15& PStr15::operator+=(const char* s) { return accoda(*this, vista(s), 15); }
PStr7& PStr7::operator+=(const PString& s) { return accoda(*this, s.view(), 7); }
PStr7& PStr7::operator+=(const char* s) { return accoda(*this, vista(s), 7); }

PStr63& PStr63::operator+=(char c) {
    aggiungiChar(b.data(), c, 63);
    return *this;
}
PStr31& PStr31::operator+=(char c) {
    aggiungiChar(b.data(), c, 31);
    return *this;
}
PStr15& PStr15::operator+=(char c) {
    aggiungiChar(b.data(), c, 15);
    return *this;
}
PStr7& PStr7::operator+=(char c) {
    aggiungiChar(b.data(), c, 7);
    return *this;
}

PStr255 operator+(const PString& a, const char* b) { return unite(a.view(), vista(b)); }
PStr255 operator+(const char* a, const PString& b) { return unite(vista(a), b.view()); }
PStr255 operator+(const PString& a, const PString& b) { return unite(a.view(), b.view()); }

PStr15 Str255To15(const PStr255& s) {
    PStr15 r;
    daPascal(r.Lengthp(), s.bytes(), 15);
    return r;
}

char* GetCStringRef(const PString& s) {
    static std::array<std::array<char, 256>, 3> aPermTempString;
    static std::int16_t currentPString = 0;
    currentPString = static_cast<std::int16_t>((currentPString + 1) % 3);
    auto& dove = aPermTempString[static_cast<std::size_t>(currentPString)];
    const std::string_view v = s.view();
    std::memcpy(dove.data(), v.data(), v.size());
    dove[v.size()] = '\0';
    return dove.data();
}

}   // namespace tessaro
