// The door of the tests: the toolbox off screen, every named global at its start value before each test, alerts
// answered by their default button, and an order that is shuffled with a printed seed.
#include <gtest/gtest.h>

#include "model/TabellaStato.h"
#include "platform/Automation.h"
#include "support/Avvisi.h"
#include "text/FileDati.h"

namespace prova {

std::vector<Avviso> avvisi;
std::map<std::int16_t, std::int16_t> bottoni;
int suoni = 0;
std::function<bool(tessaro::DialogPtr)> passoDialogo;

namespace {

std::int16_t rispondi(std::int16_t id, std::string_view testo, std::int16_t predefinito) {
    avvisi.push_back({id, std::string(testo)});
    const auto b = bottoni.find(id);
    return b == bottoni.end() ? predefinito : b->second;
}

constexpr tessaro::Copione ganci{
    .passo = [] { return false; },
    .avviso = rispondi,
    .dialogoAperto = [](std::int16_t, std::string_view) {},
    .passoDialogo = [](tessaro::DialogPtr d) { return passoDialogo && passoDialogo(d); },
    .dialogoChiuso = [](std::int16_t) {},
    .file = [](bool, std::string&) { return false; },
    .popup = []() -> std::int16_t { return 0; },
    .colore = [](std::uint16_t&, std::uint16_t&, std::uint16_t&) { return false; },
    .beep = [](std::int32_t) { ++suoni; },
};

}   // namespace

void ganciDellaSuite() { tessaro::SetCopione(&ganci); }

namespace {

class DaCapo : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override {
        ganciDellaSuite();
        avvisi.clear();
        suoni = 0;
        bottoni.clear();
        passoDialogo = nullptr;
        tessaro::AzzeraStato();
        tessaro::uscita = 0;
    }
};

}   // namespace
}   // namespace prova

int main(int argc, char** argv) {
    GTEST_FLAG_SET(shuffle, true);
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
    prova::ganciDellaSuite();
    tessaro::Avvio avvio;
    avvio.script = true;
    tessaro::StartToolbox(argc, argv, avvio);
    testing::UnitTest::GetInstance()->listeners().Append(new prova::DaCapo);
    const int esito = RUN_ALL_TESTS();
    tessaro::StopToolbox();
    return esito;
}
