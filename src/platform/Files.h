// Files: the classic calls over the file system of today, buffered. One error number tells what went wrong.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Types.h"

namespace tessaro {

enum : OSErr {
    noErr = 0,
    dskFulErr = -34,
    nsvErr = -35,
    ioErr = -36,
    bdNamErr = -37,
    fnOpnErr = -38,
    eofErr = -39,
    posErr = -40,
    tmfoErr = -42,
    fnfErr = -43,
    wPrErr = -44,
    fLckdErr = -45,
    vLckdErr = -46,
    fBsyErr = -47,
    dupFNErr = -48,
    opWrErr = -49,
    paramErr = -50,
    permErr = -54,
};

// Four-character codes as 32-bit values, first character highest.
using OSType = std::uint32_t;
constexpr OSType tipoDi(const char (&s)[5]) {
    return (OSType(std::uint8_t(s[0])) << 24) | (OSType(std::uint8_t(s[1])) << 16) | (OSType(std::uint8_t(s[2])) << 8)
           | OSType(std::uint8_t(s[3]));
}

// Where a file is: its true path (UTF-8 bytes) and its name for showing (Mac Roman).
struct FSSpec {
    std::string percorso;
    std::string nome;
};
struct FInfo {
    OSType fdType = 0;
    OSType fdCreator = 0;
};

enum : std::int8_t { fsCurPerm = 0, fsRdPerm = 1, fsWrPerm = 2, fsRdWrPerm = 3 };

FSSpec FSMakeFSSpec(std::string_view path);   // name derived from the path's last part
FSSpec FSMakeFSSpecIn(std::string_view folder, std::string_view name);
OSErr FSpGetFInfo(const FSSpec& spec, FInfo& info);   // type from the suffix; 0 when unknown
OSErr FSpCreate(const FSSpec& spec, OSType creator, OSType type);
OSErr FSpDelete(const FSSpec& spec);
OSErr FSpOpenDF(const FSSpec& spec, std::int8_t permission, std::int16_t& refNum);
// Opens a new, empty file beside spec's place; FSClose moves it over spec when no write failed, FSAbandon drops it.
// Mode and links of a file that is replaced are kept. Where the folder refuses a neighbour, writes in place.
OSErr FSpOpenReplacing(const FSSpec& spec, OSType creator, OSType type, std::int16_t& refNum);
OSErr FSRead(std::int16_t refNum, std::int32_t& count, void* data);   // eofErr when fewer came; count tells how many
OSErr FSWrite(std::int16_t refNum, std::int32_t& count, const void* data);
OSErr FSClose(std::int16_t refNum);   // also the error of a delayed write or of the move
void FSAbandon(std::int16_t refNum);
OSErr GetFPos(std::int16_t refNum, std::int64_t& pos);
OSErr SetFPos(std::int16_t refNum, std::int64_t pos);
OSErr GetEOF(std::int16_t refNum, std::int64_t& size);
// Room left in the read buffer as a block, for readers that walk bytes themselves: points `data` at up to `size` bytes at
// the present position without moving it. size 0 at the end.
OSErr FSPeek(std::int16_t refNum, const char*& data, std::int64_t& size);

// File requests. `prompt` Mac Roman; `types` a resource of the accepted kinds (300 drawings, 301 pictures). False: cancelled.
bool NavGetFile(std::string_view prompt, std::int16_t types, FSSpec& out);
// `types` of a save: the first of a run of resources, each a kind that can be chosen; 0 offers none. A name without a
// suffix takes the chosen kind's.
bool NavPutFile(std::string_view prompt, std::string_view defaultName, FSSpec& out, std::int16_t types = 0);

// The folder of the settings files; made and seeded with the installed defaults when it is new.
std::string SettingsFolder();

}   // namespace tessaro
