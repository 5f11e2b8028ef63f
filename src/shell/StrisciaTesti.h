// What the status strip says: the tool's next step and how things stand.
#pragma once

namespace tessaro {

void AggiornaStriscia();   // at each round of the loop: texts from the state, shown where they differ

}   // namespace tessaro
