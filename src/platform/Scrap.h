// The clipboard: what is handed to other programs, in as many forms as they may ask for, and what they hand to us.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tessaro {

// One form of what is handed over. Its bytes are made when somebody asks for them, perhaps never, perhaps long after the
// drawing was closed: `fai` owns all that it needs.
struct Sapore {
    std::string mime;
    std::function<std::string()> fai;
};
using Sapori = std::vector<Sapore>;   // the best form first

// Replaces what the clipboard holds. False without a window system, or without forms.
bool PutScrap(const Sapori& forme);
// The bytes that the clipboard has in that form; false when it has none.
bool GetScrap(std::string_view mime, std::string& bytes);
// The clipboard's image in whatever form it has one, as the bytes of a PNG file; false when it has none.
bool GetScrapImage(std::string& png);
std::vector<std::string> GetScrapFiles();   // local paths, UTF-8, of a copied list of files

}   // namespace tessaro
