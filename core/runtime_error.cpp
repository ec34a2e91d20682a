#include "core/runtime_error.h"

namespace orbisgrid {

namespace {

const char* describe(RuntimeError::Code code) {
    switch (code) {
    case RuntimeError::invalidProcedureCall:
        return "invalid procedure call or argument";
    case RuntimeError::overflow:
        return "overflow";
    case RuntimeError::divisionByZero:
        return "division by zero";
    }
    return "run-time error";
}

} // namespace

RuntimeError::RuntimeError(Code code)
    : std::runtime_error(describe(code))
    , m_code(code) {}

void RuntimeError::raise(Code code) {
    throw RuntimeError(code);
}

} // namespace orbisgrid
