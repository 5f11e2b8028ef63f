// The recovery copy: written when a termination signal comes, offered at the next start.
#pragma once
namespace tessaro {
void ScriviRecupero();
void OffriRecupero();   // alert 9103: 1 opens it, 2 discards it
}   // namespace tessaro
