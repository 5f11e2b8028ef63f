// The texts of the status strip, as last put on the screen.
#include "display/Striscia.h"

#include <array>

#include "model/TabellaStato.h"
#include "platform/Windows.h"

namespace tessaro {

namespace {

constexpr std::size_t altriMassimi = 8;
std::array<std::string, numCampiStriscia> testi;
std::array<TestoStriscia, altriMassimi> altri{};
std::array<std::string, altriMassimi> detti;   // what they said last
std::size_t quantiAltri = 0;

// How the fields lie on the screen from left to right: the others' texts stand in the middle.
constexpr CampoStriscia primiCampi[] = {csAttesa, csAggancio, csLucido, csRegistrazione};
constexpr CampoStriscia ultimiCampi[] = {csUnita, csScala};

std::string json() {
    static constexpr const char* nomi[numCampiStriscia] = {"prompt", "snap", "layer", "registered", "unit", "scale"};
    std::string s = "{";
    for (std::size_t i = 0; i < numCampiStriscia; ++i)
        s += (i ? ",\"" : "\"") + std::string(nomi[i]) + "\":" + TestoJson(testi[i]);
    return s + "}";
}

std::string jsonAltri() {
    std::string s = "[";
    for (std::size_t i = 0; i < quantiAltri; ++i) s += (i ? "," : "") + TestoJson(detti[i]);
    return s + "]";
}

}   // namespace

void PoniStriscia(CampoStriscia campo, const std::string& macRoman) { testi[campo] = macRoman; }

void AggiungiAllaStriscia(TestoStriscia testo) {
    if (quantiAltri < altri.size()) altri[quantiAltri++] = testo;
}

void MostraStriscia() {
    std::int16_t posto = 0;
    for (const CampoStriscia c : primiCampi) SetStripText(posto++, testi[c]);
    for (std::size_t i = 0; i < quantiAltri; ++i) {
        detti[i] = altri[i]();
        SetStripText(posto++, detti[i]);
    }
    for (const CampoStriscia c : ultimiCampi) SetStripText(posto++, testi[c]);
}

namespace {
const VoceStato righe[] = {{"striscia", [] { testi = {}; }, json}, {"strisciaAltri", [] { detti = {}; }, jsonAltri}};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
