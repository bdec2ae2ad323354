// The multi-rate kind's part of a FIR state (fir_state.hpp: State::rate).
//
// Single- and multi-rate states of one member share one record, told apart by the identifier
// (kind::fir_*.single / .multi): the reversed taps and tapsLen mean the same in both (so GetTaps
// serves both), and this part holds what only the multi-rate kind uses: its factors and phases,
// the length of its delay line and the polyphase tables of fir_mr.hpp (Builder blocks of the
// record). A single-rate state leaves it zero, and Free releases every block of either kind
// (obj::release). The delay buffer of a multi-rate state holds its dlyLen input samples newest
// first, the layout the callers exchange, so the direct forms run on the caller's line as it is.
// The entry points that serve both kinds (block filtering, GetTaps, GetDlyLine, SetDlyLine,
// Free) open the state with both identifiers and dispatch on State::head.id; the single-sample
// forms serve the single-rate kind only. The multi-rate algorithms are in fir_mr_run.hpp.
#pragma once

#include <cstdint>

namespace veks::fir {

// The tables of the polyphase engine (fir_mr.hpp), or none (first == nullptr): the filter then
// runs the per-output loop, which gives the same values (fir_mr_run.hpp: when each is used).
struct MrPlan {
    int32_t chunk;   // iterations per chunk, a multiple of kern::kMrLaneBlock
    int32_t span;    // stream values a window reaches beyond the chunk's iterations
    int32_t stride;  // values per stream: chunk + span
    int32_t planes;  // 1 for real data, 2 for complex data
    int32_t* first;  // up + 1 entry bounds
    int32_t* off;    // stream offset of each entry
    double* g;       // tap of each entry (complex: two values)
    double* streams; // down * stride * planes values (a state's own; direct forms take scratch)
};

template <class Tap, class Dat>
struct MultiRate {
    int32_t up, upPhase, down, downPhase;
    int32_t dlyLen; // (tapsLen + up - 1) / up input samples
    int32_t kind;   // 1 interpolator (down = 1), 2 decimator (up = 1), 3 rational
    MrPlan plan;
};

} // namespace veks::fir
