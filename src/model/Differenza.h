// What turned one run of records into another: the stretches that differ, in order, with what lies between them the same
// on both sides. Blind to the flag of selection.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "model/Elemento.h"

namespace tessaro {

// `quantiPrima` records from index `prima` of the old run gave way to `quantiDopo` from index `dopo` of the new one.
// Indices from 0. Stretches ascend on both sides; one has at least a record on one side.
struct TrattoDiverso {
    std::int32_t prima, quantiPrima;
    std::int32_t dopo, quantiDopo;
};

// Not always the shortest, but never longer than one stretch from the first difference to the last: records changed in
// their places, taken out, put in, and moved in the drawing order each cost what they are. Time about n log n for what
// lies between the first and the last difference.
std::vector<TrattoDiverso> TrattiDiversi(std::span<const elemento> prima, std::span<const elemento> dopo);

}   // namespace tessaro
