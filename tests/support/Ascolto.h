// Listens to the alerts and beeps of what runs in its scope, and answers the alerts.
#pragma once

#include <string>
#include <vector>

#include "platform/Automation.h"

namespace prova {

class Ascolto {
    static inline Ascolto* attivo = nullptr;
    tessaro::Copione ganci{};

    static std::int16_t avviso(std::int16_t id, std::string_view testo, std::int16_t predefinito) {
        attivo->avvisi.push_back(id);
        attivo->testi.emplace_back(testo);
        return attivo->risposta ? attivo->risposta : predefinito;
    }
    static void suono(std::int32_t) { ++attivo->suoni; }

public:
    std::int16_t risposta = 0;   // the button pressed in every alert; 0 the default
    std::vector<std::int16_t> avvisi;
    std::vector<std::string> testi;
    int suoni = 0;

    Ascolto() {
        attivo = this;
        ganci.avviso = avviso;
        ganci.beep = suono;
        tessaro::SetCopione(&ganci);
    }
    ~Ascolto() {
        tessaro::SetCopione(nullptr);
        attivo = nullptr;
    }
    Ascolto(const Ascolto&) = delete;
    Ascolto& operator=(const Ascolto&) = delete;
};

}   // namespace prova
