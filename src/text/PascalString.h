// Length-prefixed byte strings of fixed capacity: byte 0 is the length, bytes 1 to length the Mac Roman characters,
// what lies behind is undefined. The layout is also that of element records and files. Over-long input is cut.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace tessaro {

// Base of the family: it holds no data, the derived string's bytes start where it starts.
class PString {
protected:
    PString() = default;
    ~PString() = default;
    PString(const PString&) = default;
    PString& operator=(const PString&) = default;

public:
    unsigned char* Lengthp();                                   // the length byte
    unsigned char Lengthp() const;                              // the length
    unsigned char& operator[](int i) { return Lengthp()[i]; }   // unchecked; 0 is the length byte
    unsigned char operator[](int i) const { return bytes()[i]; }
    operator unsigned char*() { return Lengthp(); }             // NOLINT: the form of the toolbox
    operator const unsigned char*() const { return bytes(); }   // NOLINT
    explicit operator std::int32_t() const;                     // the four bytes behind the length byte, native order
    // First place of the pattern at or after the 1-based start; 0 when it does not occur. A NUL ends the search.
    unsigned char Pos(const char* s, unsigned char start) const;
    unsigned char Pos(char c, unsigned char start) const;
    unsigned char Pos(const PString& s, unsigned char start) const;
    // Inserts before index pos of a string whose capacity is maxLen.
    void InsertHelper(const PString& src, std::int16_t pos, std::int16_t maxLen);
    void InsertHelper(const char* src, std::int16_t pos, std::int16_t maxLen);

    const unsigned char* bytes() const;   // the length byte, then the characters
    // The characters as a view, for the toolbox; valid while the string is.
    std::string_view view() const;
    std::string str() const { return std::string(view()); }
};

class PStr15;
class PStr31;
class PStr7;

class PStr255 : public PString {
    std::array<unsigned char, 256> b;

public:
    PStr255() = default;      // undefined contents, as all default constructors here
    PStr255(const char* s);   // NOLINT: null gives the empty string
    PStr255(char c);          // NOLINT: NUL gives the empty string
    PStr255(const PStr255& s);
    PStr255(const PStr15& s);               // NOLINT
    PStr255(const PStr7& s);                // NOLINT
    PStr255(const unsigned char* pascal);   // NOLINT: length byte first
    explicit PStr255(std::string_view s);   // cut at 255; for text from the toolbox
    PStr255& operator=(const char* s);
    PStr255& operator=(const PStr255& s);
    PStr255& operator=(const PStr15& s);
    PStr255& operator=(const PStr31& s);
    PStr255& operator=(const PStr7& s);
    PStr255& operator=(const unsigned char* pascal);
    PStr255& operator=(char c);
    // `count` characters from the 1-based start; what is not there is left out.
    PStr255 Copy(std::int16_t start, std::int16_t count) const;
    PStr255& operator+=(const PString& s);
    PStr255& operator+=(const char* s);
    PStr255& operator+=(char c);   // Kept: at 255 the length wraps to 0 and c lands on the length byte
};

class PStr63 : public PString {
    std::array<unsigned char, 64> b;

public:
    PStr63() = default;
    PStr63(const char* s);   // NOLINT
    PStr63(char c);          // NOLINT
    PStr63& operator=(const char* s);
    PStr63& operator=(const PStr255& s);   // Kept: a longer source leaves its own length in byte 0
    // `count` characters from the 1-based start; what is not there is left out.
    PStr63 Copy(std::int16_t start, std::int16_t count) const;
    PStr63& operator+=(const PString& s);
    PStr63& operator+=(const char* s);
    PStr63& operator+=(char c);
};

class PStr32 : public PString {
    std::array<unsigned char, 33> b;

public:
    PStr32() = default;
    PStr32(const char* s);   // NOLINT
    PStr32(char c);          // NOLINT
    // `count` characters from the 1-based start; what is not there is left out.
    PStr32 Copy(std::int16_t start, std::int16_t count) const;
};

class PStr31 : public PString {
    std::array<unsigned char, 32> b;

public:
    PStr31() = default;
    PStr31(const char* s);   // NOLINT
    PStr31(char c);          // NOLINT
    PStr31& operator=(const char* s);
    // `count` characters from the 1-based start; what is not there is left out.
    PStr31 Copy(std::int16_t start, std::int16_t count) const;
    PStr31& operator+=(const PString& s);
    PStr31& operator+=(const char* s);
    PStr31& operator+=(char c);
};

class PStr15 : public PString {
    std::array<unsigned char, 16> b;

public:
    PStr15() = default;
    PStr15(const char* s);   // NOLINT
    PStr15(char c);          // NOLINT
    PStr15& operator=(const char* s);
    PStr15& operator=(const PStr255& s);   // Kept: as PStr63's; Str255To15 is the safe road
    PStr15(const PStr15& s) = default;
    PStr15& operator=(const PStr15& s) = default;
    // `count` characters from the 1-based start; what is not there is left out.
    PStr15 Copy(std::int16_t start, std::int16_t count) const;
    PStr15& operator+=(const PString& s);
    PStr15& operator+=(const char* s);
    PStr15& operator+=(char c);
};

class PStr7 : public PString {
    std::array<unsigned char, 8> b;

public:
    PStr7() = default;
    PStr7(const char* s);   // NOLINT: Kept: clips at 31; pass no more than 7 characters
    PStr7(char c);          // NOLINT
    PStr7& operator=(const char* s);
    // `count` characters from the 1-based start; what is not there is left out.
    PStr7 Copy(std::int16_t start, std::int16_t count) const;
    PStr7& operator+=(const PString& s);
    PStr7& operator+=(const char* s);
    PStr7& operator+=(char c);
};

static_assert(sizeof(PStr255) == 256 && sizeof(PStr63) == 64 && sizeof(PStr32) == 33 && sizeof(PStr15) == 16
              && sizeof(PStr7) == 8);

// Joined text, cut at 255.
PStr255 operator+(const PString& a, const char* b);
PStr255 operator+(const char* a, const PString& b);
PStr255 operator+(const PString& a, const PString& b);

// Mac Roman collating order, case ignored, diacriticals significant; below, at or above 0.
int RelString(const PString& a, const PString& b);

bool operator==(const PString& a, const PString& b);
bool operator==(const char* a, const PString& b);
bool operator==(const PString& a, const char* b);
bool operator!=(const PString& a, const PString& b);
bool operator!=(const char* a, const PString& b);
bool operator!=(const PString& a, const char* b);
bool operator<(const PString& a, const PString& b);
bool operator<(const char* a, const PString& b);
bool operator<(const PString& a, const char* b);
bool operator>(const PString& a, const PString& b);
bool operator>(const char* a, const PString& b);
bool operator>(const PString& a, const char* b);
bool operator<=(const PString& a, const PString& b);
bool operator<=(const char* a, const PString& b);
bool operator<=(const PString& a, const char* b);
bool operator>=(const PString& a, const PString& b);
bool operator>=(const char* a, const PString& b);
bool operator>=(const PString& a, const char* b);

PStr15 Str255To15(const PStr255& s);   // cut to 15
// A NUL-terminated copy in one of three rotating buffers; the fourth call overwrites the first.
char* GetCStringRef(const PString& s);

}   // namespace tessaro
