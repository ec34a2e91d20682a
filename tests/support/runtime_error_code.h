#pragma once

#include "core/runtime_error.h"

namespace orbisgrid::test {

/// The code of the RuntimeError that `step` raises; 0 if it raises none.
template <typename Step>
int raisedCode(Step step) {
    try {
        step();
    } catch (const RuntimeError& error) {
        return error.code();
    }
    return 0;
}

} // namespace orbisgrid::test
