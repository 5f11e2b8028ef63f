// The journal's side of the records: its shadow of them, what differs from it, and putting stretches of records in place of
// others.
#pragma once

#include <cstdint>
#include <vector>

#include "model/Differenza.h"
#include "model/Elemento.h"
#include "model/Giornale.h"

namespace tessaro {

// A digest for each page of the drawing's records, blind to the flag of selection.
std::vector<std::uint64_t> ImpronteDelDisegno();

// The records as they were at the last step's end, and the digests of their pages.
struct OmbraRecord {
    std::vector<elemento> record;
    std::vector<std::uint64_t> impronte;

    void Copia();   // of the drawing as it is
    // What has become of the records since; `pagine` are the digests of now.
    [[nodiscard]] std::vector<TrattoDiverso> Confronta(const std::vector<std::uint64_t>& pagine) const;
    // Takes over what the drawing has in the new places of the stretches, with the digests of now where they are known.
    void Segui(const std::vector<TrattoDiverso>& tratti);
    void Segui(const std::vector<TrattoDiverso>& tratti, std::vector<std::uint64_t> pagine);
};

std::vector<TrattoDiverso> Rovescio(const std::vector<TrattoDiverso>& tratti);   // the way back

// The stretches of the drawing give way to `nuovi`, stretch by stretch; what they held comes back. indElem follows.
std::vector<elemento> Sostituisci(const std::vector<TrattoDiverso>& tratti, const std::vector<elemento>& nuovi,
                                  EsitoPasso& esito);

}   // namespace tessaro
