// The dialog of a new mesh, and its nodes.
#include "raster/CreaMesh.h"

#include <memory>

#include "dialogs/Parametri.h"
#include "display/Zoom.h"
#include "editing/MeshPunti.h"
#include "editing/Scelta.h"
#include "model/Annulla.h"
#include "model/Cursore.h"
#include "model/Mesh.h"
#include "model/Selezione.h"
#include "model/TabellaStato.h"
#include "model/Vincoli.h"
#include "platform/Resources.h"
#include "raster/Gruppo.h"
#include "registration/Coordinate.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

constexpr std::int16_t dialogo = 153, listaTesti = 129, stringaOrigine = 61, stringaDestinazione = 62;
constexpr std::int16_t campoRighe = 4, campoColonne = 6, campoPassoX = 8, campoPassoY = 10, campoX = 12, campoY = 14;
constexpr std::int16_t radioQui = 16, massimoNodi = 100;
constexpr double minPasso = 0.0001, maxNumero = 1e99;

double passoX = 10, passoY = 10;   // real units, as they were typed last

class TCreaMesh : public TParametri {
public:
    bool CMesh(TTipoMesh tipo);

private:
    void Display() override;
    virtual void inggene();
    void IngGene(std::uint8_t) override { inggene(); }
    void ItemColpito() override;
    virtual void AzzeraButton();
    void faiNodi();
    [[nodiscard]] bool sposta() const { return posto.valore == 2; }

    std::unique_ptr<Mesh> mesh;
    TTipoMesh tipoMesh = TTipoMesh::origine;
    std::int16_t nx = 0, ny = 0;
    double origineX = 0, origineY = 0, lungoX = passoX, lungoY = passoY;
    Gruppo posto{radioQui, 2, 1};
    bool formaData = false;   // rows and columns are those of the source mesh
};

// The first node has fields only where it is typed.
void TCreaMesh::AzzeraButton() {
    for (const std::int16_t item : {campoX, campoY}) HiliteDialogItem(theDialog, item, sposta() ? 255 : 0);
}

void TCreaMesh::Display() {
    const auto intero = [](std::int16_t item, std::int16_t n) {
        SetDialogItemText(theDialog, item, NumToString(n > 0 ? n : 2).view());
    };
    intero(campoRighe, ny);
    intero(campoColonne, nx);
    for (const std::int16_t item : {campoRighe, campoColonne}) HiliteDialogItem(theDialog, item, formaData ? 255 : 0);
    ScriviCampoReale(campoPassoX, lungoX, 4);
    ScriviCampoReale(campoPassoY, lungoY, 4);
    ScriviCampoReale(campoX, origineX, 3);
    ScriviCampoReale(campoY, origineY, 3);
    posto.mostra();
    AzzeraButton();
}

void TCreaMesh::ItemColpito() {
    if (!posto.ha(itemCorrente)) return;
    posto.scegli(itemCorrente);
    AzzeraButton();
}

void TCreaMesh::inggene() {
    if (!formaData
        && (!LeggiCampo(campoRighe, std::int16_t{1}, massimoNodi, ny)
            || !LeggiCampo(campoColonne, std::int16_t{1}, massimoNodi, nx)))
        return;
    if (!LeggiCampo(campoPassoX, minPasso, maxNumero, lungoX) || !LeggiCampo(campoPassoY, minPasso, maxNumero, lungoY))
        return;
    if (sposta()) return;
    if (LeggiCampo(campoX, -maxNumero, maxNumero, origineX)) LeggiCampo(campoY, -maxNumero, maxNumero, origineY);
}

// Kept: the row's number goes into X and the column's into Y; a lens read off a mesh counts on it.
void TCreaMesh::faiNodi() {
    mesh->nx = nx;
    mesh->ny = ny;
    for (std::int16_t r = 0; r < ny; ++r)
        for (std::int16_t c = 0; c < nx; ++c)
            RealToDigi(lungoX * r + origineX, lungoY * c + origineY, mesh->x[r][c], mesh->y[r][c]);
}

bool TCreaMesh::CMesh(TTipoMesh tipo) {
    tipoMesh = tipo;
    const bool origine = tipo == TTipoMesh::origine;
    Mesh& questa = origine ? meshOrigine : meshDestinazione;
    mesh = std::make_unique<Mesh>(questa);
    DigiToReal(xcurs, ycurs, origineX, origineY);
    formaData = !origine && meshOrigine.nx > 0 && meshOrigine.ny > 0;
    nx = formaData ? meshOrigine.nx : mesh->nx;
    ny = formaData ? meshOrigine.ny : mesh->ny;
    Poni(1, 2, 0, 0, dialogo);
    ParamText(GetIndString(listaTesti, origine ? stringaOrigine : stringaDestinazione), "", "", "");
    {
        const DialogoAperto aperto(dialogo);
        Giro(formaData ? campoPassoX : campoRighe);
    }
    if (!Accettato() || quitPending()) return false;
    passoX = lungoX;
    passoY = lungoY;
    faiNodi();
    TogliSelezione();   // the summary is about to name the mesh: nothing else may stay flagged
    (origine ? undoMeshOrigine : undoMeshDestinazione) = questa;
    questa = *mesh;
    Puntosel.oggetto = origine ? oMeshOrigine : oMeshDestinazione;
    PoniAnnulla(origine ? aMeshOrigine : aMeshDestinazione);
    if (!sposta()) {
        InvalFinestra();
        return false;
    }
    Puntosel.attiva = 1;
    Puntosel.multipla = 0;
    AggRettSelMesh();
    return true;
}

}   // namespace

bool CreaMesh(TTipoMesh tipo) { return TCreaMesh().CMesh(tipo); }

namespace {
const VoceStato righe[] = {voce<passoX>("passoMeshX"), voce<passoY>("passoMeshY")};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
