// The drawings that were opened or saved last: a submenu of File, kept for each person, shown on the start page too.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Files.h"

namespace tessaro {

inline constexpr std::size_t maxRecenti = 10;

// The paths that a list's file tells, newest first. Its bytes may be any: what is no absolute path of one line is passed
// over, and so is what stands there twice.
std::vector<std::string> RecentiDa(std::string_view byte);

void LeggiRecenti();                       // at the start, and before each change: another program may have added to it
void RicordaRecente(const FSSpec& file);   // to the front of the list, and of its file
// Item of menu 9480, 1 the newest. A drawing that is gone is told and taken off the list, and the open one stays.
void ApriRecente(std::int16_t item);
void SvuotaRecenti();

// The sample drawing that comes with the program, without a title: a save asks where to.
void ApriEsempio();
bool EsempioInstallato();

}   // namespace tessaro
