// Processor identification, kept apart from the exported service so the classification can be
// tested with any family and feature word.
#pragma once

#include <cstdint>

namespace veks::cpu {

// The processor class for a family field (bits 8..11 of leaf 1) and leaf 1's feature word.
int classify(uint32_t family, uint32_t features) noexcept;

} // namespace veks::cpu
