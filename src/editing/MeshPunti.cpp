// Picking and editing of meshes.
#include "editing/MeshPunti.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "editing/Modifica.h"
#include "editing/Scelta.h"
#include "editing/Vertici.h"
#include "model/Annulla.h"
#include "model/Mesh.h"
#include "model/Selezione.h"
#include "model/Vista.h"

namespace tessaro {

namespace {

constexpr std::int32_t latoMesh = 100;

std::int32_t colonne(const Mesh& m) { return std::clamp<std::int32_t>(m.nx, 0, latoMesh); }
std::int32_t righe(const Mesh& m) { return std::clamp<std::int32_t>(m.ny, 0, latoMesh); }
bool visibile(const Mesh& m) { return m.nx > 1 && m.ny > 1; }

// Along every row, then along every column.
bool colpita(const Mesh& m, const puntot& p) {
    for (std::int32_t r = 0; r < righe(m); ++r)
        for (std::int32_t c = 1; c < colonne(m); ++c)
            if (Sellinea(p, m.x[r][c - 1], m.y[r][c - 1], m.x[r][c], m.y[r][c])) return true;
    for (std::int32_t c = 0; c < colonne(m); ++c)
        for (std::int32_t r = 1; r < righe(m); ++r)
            if (Sellinea(p, m.x[r - 1][c], m.y[r - 1][c], m.x[r][c], m.y[r][c])) return true;
    return false;
}

struct Reti {
    Mesh &mesh, &copia;
    std::int32_t annulla;
};
Reti retiScelte() {
    if (Puntosel.oggetto == oMeshOrigine) return {meshOrigine, undoMeshOrigine, aMeshOrigine};
    return {meshDestinazione, undoMeshDestinazione, aMeshDestinazione};
}

}   // namespace

bool SelezionaMesh(const EventRecord&, const puntot& point) {
    const bool origine = visibile(meshOrigine) && colpita(meshOrigine, point);
    if (!origine && !(visibile(meshDestinazione) && colpita(meshDestinazione, point))) return false;
    TogliSelezione();   // Option keeps what was selected: a mesh is selected alone
    Puntosel.attiva = 1;
    Puntosel.multipla = 0;
    Puntosel.oggetto = origine ? oMeshOrigine : oMeshDestinazione;
    return true;
}

void AggRettSelMesh() {
    const Mesh& m = retiScelte().mesh;
    AzzeraRettSel();
    for (std::int32_t r = 0; r < righe(m); ++r)
        for (std::int32_t c = 0; c < colonne(m); ++c) AggRettSel(m.x[r][c], m.y[r][c]);
}

bool MuoviNodoMesh(const EventRecord& event, const puntot& point) {
    if (Puntosel.oggetto != oMeshOrigine && Puntosel.oggetto != oMeshDestinazione) return false;
    const Reti reti = retiScelte();
    Mesh& m = reti.mesh;
    for (std::int32_t r = 0; r < righe(m); ++r)
        for (std::int32_t c = 0; c < colonne(m); ++c) {
            if (!(std::fabs(point.x - m.x[r][c]) < diffCerca && std::fabs(point.y - m.y[r][c]) < diffCerca)) continue;
            if (event.when - Tempo < GetDblTime()) {
                double z = 0;   // asked for like any point's, and dropped
                reti.copia = m;
                ModificaCoord(m.x[r][c], m.y[r][c], z);
                PoniAnnulla(reti.annulla);
            } else {
                SpostaPuntoMesh(r, c);
            }
            AggRettSelMesh();
            return true;
        }
    return false;
}

void SpostaPuntoMesh(std::int32_t riga, std::int32_t colonna) {
    const Reti reti = retiScelte();
    Mesh& m = reti.mesh;
    reti.copia = m;
    PoniAnnulla(reti.annulla);   // already now: it takes nothing back when the node stays
    std::array<puntot, 4> vicini;
    std::size_t n = 0;
    const auto vicino = [&](std::int32_t r, std::int32_t c) {
        if (r >= 0 && r < righe(m) && c >= 0 && c < colonne(m)) vicini[n++] = puntot{m.x[r][c], m.y[r][c], 0};
    };
    vicino(riga, colonna - 1);
    vicino(riga, colonna + 1);
    vicino(riga - 1, colonna);
    vicino(riga + 1, colonna);
    TrascinaPunto({vicini.data(), n}, m.x[riga][colonna], m.y[riga][colonna]);
}

}   // namespace tessaro
