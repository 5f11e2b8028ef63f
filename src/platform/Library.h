// Shared libraries of someone else that are looked for while the program runs: what needs one says so when there is none.
#pragma once

#include <initializer_list>

namespace tessaro {

// The first of these files that the system's loader finds ("libproj.so.25"); null when it finds none. It stays loaded
// until the process ends, and a second call with the same names gives the same one.
void* OpenLibrary(std::initializer_list<const char*> names);
// Where a function or object of it lies; null when it has none of that name.
void* LibrarySymbol(void* library, const char* name);

}   // namespace tessaro
