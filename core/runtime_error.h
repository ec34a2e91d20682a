#pragma once

#include <stdexcept>

namespace orbisgrid {

/// A failing step of a procedure that is defined to raise one. The code says which kind; callers
/// either skip the failing step, abandon what they were filling, or show their own fixed message.
class RuntimeError : public std::runtime_error {
public:
    enum Code {
        invalidProcedureCall = 5, ///< a text part or a character code that cannot be
        overflow = 6,             ///< a number outside its type
        divisionByZero = 11
    };

    explicit RuntimeError(Code code);

    /// Throws one: out of line, for checks inside functions that are made for speed.
    [[noreturn]] static void raise(Code code);

    Code code() const { return m_code; }

private:
    Code m_code;
};

} // namespace orbisgrid
