// Bytes on their way into a file, and the progress of long work, as the writers and readers of the kit see them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/Files.h"

namespace tessaro {

// Gathers bytes; what is gathered goes to the open file `refNum` when there is one, else it stays in `byte`, where a
// writer that must go back to earlier places may do so.
struct OdWrFileBuf {
    explicit OdWrFileBuf(std::int16_t file = 0) : refNum(file) { byte.reserve(capienza + margine); }

    std::vector<char> byte;    // not yet in the file
    std::int16_t refNum = 0;   // 0: everything stays in memory
    OSErr errore = noErr;      // the first write that failed; later ones do nothing

    // Through the buffer; what the disk refused is seen in `errore`.
    void putBytes(const void* dati, std::size_t quanti) {
        const char* const p = static_cast<const char*>(dati);
        byte.insert(byte.end(), p, p + quanti);
        if (refNum != 0 && byte.size() >= capienza) flush();
    }
    void put(std::string_view s) { putBytes(s.data(), s.size()); }
    void flush();   // into the file

private:
    static constexpr std::size_t capienza = 1024 * 1024, margine = 4096;
};

// Told by the kit how far it is. Answers false to stop.
class OdDbHostAppProgressMeter {
public:
    virtual ~OdDbHostAppProgressMeter() = default;
    virtual void setLimit(std::int32_t max) = 0;
    virtual bool meterProgress() = 0;   // one step further
};

}   // namespace tessaro
