// The registration's globals, the meshes and the constraints: plain records with their rows in the reset table.
#include "model/Registrazione.h"

#include "model/Mesh.h"
#include "model/TabellaStato.h"
#include "model/Vincoli.h"

namespace tessaro {

constinit TransfRec TransfCoord{}, TransfInvert{}, TransfAttacco{}, TransfAgg{};
constinit double XA1 = 0, YA1 = 0, XA2 = 0, YA2 = 0, xAttacco5 = 0, yAttacco5 = 0;
constinit std::uint8_t OKAttacco5 = 0;
constinit Att4Pt att4Pt{};
constinit Mesh meshOrigine{}, meshDestinazione{}, undoMeshOrigine{}, undoMeshDestinazione{};
constinit StatoCursore statoCursore{};
constinit Aggancio agganciato{};
constinit Griglia griglia{};

namespace {

std::string campo(const char* nome, double v, bool primo = false) {
    return std::string(primo ? "{\"" : ",\"") + nome + "\":" + NumeroJson(v);
}

template <const TransfRec& t>
std::string transfJson() {
    return campo("deltaX", t.deltaX, true) + campo("deltaY", t.deltaY) + campo("deltaZ", t.deltaZ)
           + campo("rot11", t.rot11) + campo("rot12", t.rot12) + campo("rot21", t.rot21) + campo("rot22", t.rot22)
           + campo("ingr", t.ingr) + campo("x1", t.x1) + campo("y1", t.y1) + campo("z1", t.z1) + campo("x2", t.x2)
           + campo("y2", t.y2) + campo("z2", t.z2) + "}";
}

template <Mesh& m>
void azzeraMesh() {
    m = Mesh{};
}

template <const Mesh& m>
std::string meshJson() {
    return campo("nx", m.nx, true) + campo("ny", m.ny) + "}";
}

std::string cursoreJson() {
    const auto& s = statoCursore;
    return campo("bloccaX", s.bloccaX, true) + campo("bloccaY", s.bloccaY) + campo("pendenza", s.pendenza)
           + campo("pendenza2", s.pendenza2) + campo("kPendenza", s.kPendenza) + campo("verticale", s.verticale)
           + campo("perpendicolare", s.perpendicolare) + campo("parallelo", s.parallelo)
           + campo("attaccoPunto", s.attaccoPunto) + campo("attaccoZ", s.attaccoZ) + "}";
}

std::string grigliaJson() {
    return campo("passoX", griglia.passoX, true) + campo("passoY", griglia.passoY) + campo("attiva", griglia.attiva)
           + campo("grezzoX", griglia.grezzoX) + campo("grezzoY", griglia.grezzoY) + "}";
}

std::string aggancioJson() {
    return "{\"kind\":" + std::to_string(agganciato.tipo) + ",\"x\":" + NumeroJson(agganciato.punto.x)
           + ",\"y\":" + NumeroJson(agganciato.punto.y) + "}";
}

const VoceStato righe[] = {
    {"TransfCoord", [] { TransfCoord = {}; }, transfJson<TransfCoord>},
    {"TransfInvert", [] { TransfInvert = {}; }, transfJson<TransfInvert>},
    {"TransfAttacco", [] { TransfAttacco = {}; }, transfJson<TransfAttacco>},
    {"TransfAgg", [] { TransfAgg = {}; }, transfJson<TransfAgg>},
    voce<XA1>("XA1"),
    voce<YA1>("YA1"),
    voce<XA2>("XA2"),
    voce<YA2>("YA2"),
    voce<xAttacco5>("xAttacco5"),
    voce<yAttacco5>("yAttacco5"),
    voce<OKAttacco5>("OKAttacco5"),
    voce<att4Pt>("att4Pt"),
    {"meshOrigine", azzeraMesh<meshOrigine>, meshJson<meshOrigine>},
    {"meshDestinazione", azzeraMesh<meshDestinazione>, meshJson<meshDestinazione>},
    {"undoMeshOrigine", azzeraMesh<undoMeshOrigine>, meshJson<undoMeshOrigine>},
    {"undoMeshDestinazione", azzeraMesh<undoMeshDestinazione>, meshJson<undoMeshDestinazione>},
    {"agganciato", [] { agganciato = {}; }, aggancioJson},
    {"statoCursore", [] { statoCursore = {}; }, cursoreJson},
    {"griglia", [] { griglia = {}; }, grigliaJson},
};
const TabellaStato tabella(righe);

}   // namespace

}   // namespace tessaro
