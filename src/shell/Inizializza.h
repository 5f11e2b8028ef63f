// The process's skeleton.
#pragma once

#include <string_view>

namespace tessaro {

void Initialize();    // every global at its start, settings read, menus made, an empty drawing open
void CheckEvents();   // one event and one idle step
// The settings load in silence, the drawing of the start closes, then events until the end. `documento` (UTF-8, may be
// empty) is opened first; a recovery copy is offered before it.
void CicloPrincipale(std::string_view documento, bool offriRecupero);
void ApriPercorso(const char* pathUtf8);   // as the desktop's "odoc" does

}   // namespace tessaro
