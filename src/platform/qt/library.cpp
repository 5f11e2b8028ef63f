// Shared libraries by the system's loader. They keep their own symbols to themselves.
#include "platform/Library.h"

#include <dlfcn.h>

namespace tessaro {

void* OpenLibrary(std::initializer_list<const char*> names) {
    for (const char* const name : names)
        if (void* const library = dlopen(name, RTLD_LAZY | RTLD_LOCAL)) return library;
    return nullptr;
}

void* LibrarySymbol(void* library, const char* name) { return library == nullptr ? nullptr : dlsym(library, name); }

}   // namespace tessaro
