// The multi-rate kind's part of a FIR state (fir_state.hpp: State::rate).
//
// Single- and multi-rate states of one member share one record, told apart by the identifier
// (kind::fir_*.single / .multi): the reversed taps, the delay buffer and tapsLen mean the same
// in both, and this part holds what only the multi-rate kind uses (its factors and phases, the
// phase table and the interleaved polyphase taps as Builder blocks, its kernel kind). A
// single-rate state leaves it zero, and Free releases every block of either kind (obj::release).
// The entry points that the contract lets serve both kinds (block filtering, GetTaps,
// GetDlyLine, SetDlyLine, Free) open the state through fir_entry.hpp's open_state, which today
// accepts the single-rate identifier alone; the multi-rate kind adds its identifier there and
// dispatches on State::head.id. The single-sample forms serve the single-rate kind only.
#pragma once

namespace veks::fir {

template <class Tap, class Dat>
struct MultiRate {};

} // namespace veks::fir
