// A folder beside the place of a file that is written by someone else's library: what it wrote is moved over the old files
// only when all of it is good.
#pragma once

#include <string>
#include <vector>

namespace tessaro {

class CartellaProvvisoria {
public:
    explicit CartellaProvvisoria(const std::string& accanto);   // the path of the file to come
    ~CartellaProvvisoria();                                     // with all that is still in it
    CartellaProvvisoria(const CartellaProvvisoria&) = delete;
    CartellaProvvisoria& operator=(const CartellaProvvisoria&) = delete;

    [[nodiscard]] bool buona() const { return !dove.empty(); }
    [[nodiscard]] std::string percorso(const std::string& nome) const;   // of a file in it, UTF-8
    [[nodiscard]] std::vector<std::string> nomi() const;                 // of the files in it
    [[nodiscard]] std::vector<std::string> giaPresenti() const;          // those of them that stand beside it already
    // All files to their places; false when one could not be moved.
    [[nodiscard]] bool sposta() const;

private:
    std::string dove, casa;
};

}   // namespace tessaro
