// The answers that a script has queued for what the program will ask, and the hooks by which the toolbox asks.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Automation.h"
#include "script/Parole.h"

namespace tessaro {

// `answer KIND ...`: words behind `answer`; riga is the script's line, for what is left over.
void AccodaRisposta(const std::vector<Parola>& parole, std::int32_t riga);

// The line of the oldest answer that nothing took; 0 when all were taken.
std::int32_t RigaRispostaRimasta();

void EseguiPasso(DialogPtr d, const PassoDialogo& p);   // one step on an open dialog; throws ErroreCopione

// The hooks; each throws ErroreCopione when no answer fits.
std::int16_t RispondiAvviso(std::int16_t id, std::string_view testo);
void ApriDialogo(std::int16_t id, std::string_view titolo);
bool DialogoAtteso(std::int16_t id);   // the next answer is to it
void PassoDelDialogo(DialogPtr d);
void ChiudiDialogo(std::int16_t id);
bool RispondiFile(std::string& path);
std::int16_t RispondiPopup();
bool RispondiColore(std::uint16_t& r, std::uint16_t& g, std::uint16_t& b);
bool RispondiStampa(std::string& path, std::int32_t& first, std::int32_t& last);
bool RispondiCarta(double& width, double& height);

void Stampa(const std::string& riga);   // a line on standard output, at once

}   // namespace tessaro
