// A journal for tests that run no event loop: begun by the scope, a step ends where the test says.
#pragma once

#include "editing/AnnullaComando.h"
#include "model/Annulla.h"
#include "model/Giornale.h"

namespace prova {

struct ConGiornale {
    ConGiornale() { tessaro::GiornaleNuovo(); }
    ~ConGiornale() { tessaro::GiornaleFine(); }
    ConGiornale(const ConGiornale&) = delete;
    ConGiornale& operator=(const ConGiornale&) = delete;
};

// What the event loop does behind a command.
inline bool finePasso() {
    tessaro::NomePasso nome;
    nome.tipo = tessaro::TipoArmato();
    const bool fatto = tessaro::ChiudiPasso(nome);
    tessaro::AggiornaVociAnnulla();
    return fatto;
}

inline void annulla() {
    tessaro::AnnullaUltima();
    tessaro::AggiornaVociAnnulla();
}
inline void ripeti() {
    tessaro::RipetiUltima();
    tessaro::AggiornaVociAnnulla();
}

}   // namespace prova
