#pragma once

#include "core/text.h"

#include <cstddef>

namespace orbisgrid {

/// A text box as a value. Whatever is written to it, by a person or by the program, is cut to its
/// maximum length: a later step reads the cut text back.
class TextBox {
public:
    explicit TextBox(std::size_t maximumLength)
        : m_maximumLength(maximumLength) {}

    const Text& text() const { return m_text; }

    std::size_t maximumLength() const { return m_maximumLength; }

    void set(TextView text) { m_text = text.substr(0, m_maximumLength); }

private:
    std::size_t m_maximumLength;
    Text m_text;
};

} // namespace orbisgrid
