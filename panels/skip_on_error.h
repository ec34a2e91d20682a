#pragma once

#include "core/runtime_error.h"

namespace orbisgrid {

/// Runs one step of a procedure that goes on when a step fails: a RuntimeError abandons the step,
/// what it had written by then stays, and nothing is reported. Only for procedures that are defined
/// to work that way.
template <typename Step>
void skipOnError(Step step) {
    try {
        step();
    } catch (const RuntimeError&) { // NOLINT(bugprone-empty-catch): that is what skipping means
    }
}

} // namespace orbisgrid
