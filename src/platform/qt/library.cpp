// Shared libraries by the system's loader. They keep their own symbols to themselves.
#include "platform/Library.h"

#include <cstdlib>
#include <cstring>
#include <dlfcn.h>

namespace tessaro {

void* OpenLibrary(std::initializer_list<const char*> names) {
    for (const char* const name : names)
        if (void* const library = dlopen(name, RTLD_LAZY | RTLD_LOCAL)) return library;
    return nullptr;
}

void* LibrarySymbol(void* library, const char* name) { return library == nullptr ? nullptr : dlsym(library, name); }

bool LoadFunctions(const char* variable, std::initializer_list<const char*> names,
                   std::span<const LibraryFunction> functions, void* table) {
    const char* const own = std::getenv(variable);
    void* const library = own != nullptr ? OpenLibrary({own}) : OpenLibrary(names);
    for (const LibraryFunction& f : functions) {
        void* const address = LibrarySymbol(library, f.name);
        if (address == nullptr) return false;
        std::memcpy(static_cast<char*>(table) + f.offset, &address, sizeof address);
    }
    return true;
}

}   // namespace tessaro
