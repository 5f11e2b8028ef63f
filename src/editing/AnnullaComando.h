// The undo command.
#pragma once
namespace tessaro {
void AnnullaUltima();   // Edit item 1
}   // namespace tessaro
