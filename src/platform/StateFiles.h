// Files that a program which dies leaves for its next start: appended to, and locked as long as their program lives.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessaro {

// The per-user folder for what outlives a run and is no setting; made when it is new. With a settings folder of one's own
// (a script's, --settings) it lies in that.
std::string StateFolder();
std::vector<std::string> StateFiles(std::string_view suffix);   // full paths in it, the newest first

std::int32_t ProcessNumber();   // of this process among those that run

using StateFile = std::int32_t;   // 0 is none

// A new, empty file, locked from the moment it has its name. 0 when the folder refuses.
StateFile StateCreate(std::string_view path);
// One that lies there: 0 when it cannot be opened, or when the program that made it lives.
StateFile StateTakeOver(std::string_view path);
// All of it or nothing: what a full disk cut off is taken back. False then, and the file is as it was.
[[nodiscard]] bool StateAppend(StateFile f, const void* data, std::size_t bytes);
void StateFlush(StateFile f);   // down to the disk
// The next bytes from the beginning on; fewer than asked only at the end.
std::size_t StateRead(StateFile f, void* data, std::size_t bytes);
std::int64_t StateLeft(StateFile f);   // bytes that StateRead has not given yet
void StateClose(StateFile f, bool remove);

}   // namespace tessaro
