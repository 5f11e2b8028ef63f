// One-click elements.
#pragma once
namespace tessaro {
void FaiMarker();      // at the cursor or the typed point
void ScegliMarker();   // dialog 2005
}   // namespace tessaro
