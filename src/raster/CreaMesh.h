// Making a mesh: a regular grid by its counts, spacing and first node, in real coordinates.
#pragma once

#include <cstdint>

namespace tessaro {

enum class TTipoMesh : std::int32_t { origine = 0, destinazione = 1 };

// Dialog 153. True when the new mesh is selected and is to be moved to its place at once, by its first node.
bool CreaMesh(TTipoMesh tipo);

}   // namespace tessaro
