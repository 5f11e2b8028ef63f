// Text of drawing files between their code pages and UTF-8, which is what the database holds.
#pragma once

#include <string>
#include <string_view>

namespace tessaro {

// UTF-8 as bytes of the code page 1252; what it lacks as \U+XXXX. Line ends and other controls become blanks, and a
// caret its escaped form: a text never breaks out of its line.
std::string TestoAnsiDxf(std::string_view utf8);
// The same in UTF-8.
std::string TestoUtf8Dxf(std::string_view utf8);

// The characters of a UTF-8 string, one a call: takes them off the front of s. What is no UTF-8 gives U+FFFD a byte.
char32_t PrendiUtf8(std::string_view& s);
void AggiungiUtf8(std::string& s, char32_t c);

// A text of a drawing for the program: \U+XXXX and the signs %%c (as the letter that looks like it), %%d, %%p and %%nnn
// replaced, %%o and %%u left out; Mac Roman, and "?" for what it lacks.
std::string TestoDelDisegno(std::string_view utf8);

}   // namespace tessaro
