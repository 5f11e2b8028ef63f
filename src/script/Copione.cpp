// The run of a script: its lines, where it stands, the hooks that the toolbox calls, and how it ends.
#include "script/Copione.h"

#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>

#include "model/Documento.h"
#include "script/Esecuzione.h"
#include "script/Messaggi.h"
#include "script/Risposte.h"

namespace tessaro {

namespace {

struct Corsa {
    std::string file;
    std::vector<std::string> righe;
    std::size_t prossima = 0;   // index of the next line
    std::int32_t numero = 0;    // of the line under way, from 1
    bool finita = false;
};
Corsa corsa;

// FILE:LINE: what went wrong, and the process ends.
[[noreturn]] void interrompi(int stato, const std::string& testo) {
    std::fflush(stdout);
    std::fprintf(stderr, "%s:%d: %s\n", corsa.file.c_str(), corsa.numero, testo.c_str());
    AutoExit(stato);
}

// Hooks run inside the toolkit's handlers, through which no exception may pass.
template <class F>
auto protetto(F f) -> decltype(f()) {
    try {
        return f();
    } catch (const ErroreCopione& e) { interrompi(e.stato, e.testo); } catch (const std::exception& e) {
        interrompi(1, e.what());
    }
}

void concludi() {
    corsa.numero = static_cast<std::int32_t>(corsa.righe.size());
    if (AutoDepth() > 0) sbaglia(Avviso::fineAnnidata);
    if (const std::int32_t riga = RigaRispostaRimasta(); riga > 0) {
        corsa.numero = riga;
        sbaglia(Avviso::rispostaRimasta);
    }
    corsa.finita = true;
    fine = 1;   // without the save question
}

bool avanza() {
    // The main loop asks once; whoever asks again waits inside the program.
    if (corsa.finita) sbaglia(Avviso::fineAnnidata);
    if (EseguiSospeso()) return true;
    while (corsa.prossima < corsa.righe.size()) {
        const std::string& riga = corsa.righe[corsa.prossima++];
        corsa.numero = static_cast<std::int32_t>(corsa.prossima);
        if (EseguiRiga(riga, corsa.numero)) return true;
    }
    concludi();
    return false;
}

constexpr Copione ganci{
    .passo = [] { return protetto(avanza); },
    .avviso = [](std::int16_t id, std::string_view testo,
                 std::int16_t) { return protetto([&] { return RispondiAvviso(id, testo); }); },
    .dialogoAperto = [](std::int16_t id, std::string_view titolo) { protetto([&] { ApriDialogo(id, titolo); }); },
    .passoDialogo =
        [](DialogPtr d) {
            protetto([d] { PassoDelDialogo(d); });
            return true;
        },
    .dialogoChiuso = [](std::int16_t id) { protetto([id] { ChiudiDialogo(id); }); },
    .file = [](bool, std::string& path) { return protetto([&] { return RispondiFile(path); }); },
    .popup = [] { return protetto(RispondiPopup); },
    .colore = [](std::uint16_t& r, std::uint16_t& g,
                 std::uint16_t& b) { return protetto([&] { return RispondiColore(r, g, b); }); },
    .stampa = [](std::string& path, std::int32_t& first,
                 std::int32_t& last) { return protetto([&] { return RispondiStampa(path, first, last); }); },
    .carta = [](double& width, double& height) { return protetto([&] { return RispondiCarta(width, height); }); },
    .beep = [](std::int32_t duration) { Stampa("beep " + std::to_string(duration)); },
    .dialogoAtteso = DialogoAtteso,
};

void spezzaRighe(const std::string& tutto) {
    std::size_t i = 0;
    while (i < tutto.size()) {
        const auto fineRiga = std::min(tutto.find('\n', i), tutto.size());
        corsa.righe.push_back(tutto.substr(i, fineRiga - i));
        i = fineRiga + 1;
    }
}

}   // namespace

bool PreparaCopione(const std::string& path, std::string& guasto) {
    if (path.empty()) return true;
    corsa.file = path;
    std::string tutto;
    if (path == "-") {
        tutto.assign(std::istreambuf_iterator<char>(std::cin), {});
    } else {
        std::ifstream f(path, std::ios::binary);
        if (f) tutto.assign(std::istreambuf_iterator<char>(f), {});
        if (!f || f.bad()) {
            guasto = TestoAvviso(Avviso::copioneIlleggibile, path);
            return false;
        }
    }
    spezzaRighe(tutto);
    SetCopione(&ganci);
    return true;
}

int EsitoCopione() {
    if (corsa.file.empty() || corsa.finita) return 0;
    // The program was asked to quit: nothing may be left behind that.
    protetto([] {
        while (corsa.prossima < corsa.righe.size()) {
            const std::string& riga = corsa.righe[corsa.prossima++];
            corsa.numero = static_cast<std::int32_t>(corsa.prossima);
            if (!Spezza(riga).empty()) sbaglia(Avviso::fineAnticipata);
        }
        concludi();
    });
    return 0;
}

}   // namespace tessaro
