// The rectification meshes: up to 100 by 100 nodes in sheet units. They are not elements.
#pragma once
#include <cstdint>
namespace tessaro {
struct Mesh {
    std::int16_t nx = 0;       // nodes along a row; a mesh is shown from 2 by 2
    std::int16_t ny = 0;       // rows
    double x[100][100] = {};   // by row, then column
    double y[100][100] = {};
};
extern Mesh meshOrigine, meshDestinazione, undoMeshOrigine, undoMeshDestinazione;
}   // namespace tessaro
