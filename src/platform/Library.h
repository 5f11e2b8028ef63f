// Shared libraries of someone else that are looked for while the program runs: what needs one says so when there is none.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <span>

namespace tessaro {

// The first of these files that the system's loader finds ("libproj.so.25"); null when it finds none. It stays loaded
// until the process ends, and a second call with the same names gives the same one.
void* OpenLibrary(std::initializer_list<const char*> names);
// Where a function or object of it lies; null when it has none of that name.
void* LibrarySymbol(void* library, const char* name);

// A table of functions, filled by name. `offset` is where the pointer stands in the table.
struct LibraryFunction {
    const char* name;
    std::size_t offset;
};
// The library is the first of `names` that is found, or the file that the environment's `variable` names. False, and the
// table half filled, when there is none or it lacks one of the functions.
bool LoadFunctions(const char* variable, std::initializer_list<const char*> names,
                   std::span<const LibraryFunction> functions, void* table);

}   // namespace tessaro
