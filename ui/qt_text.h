#pragma once

#include "core/text.h"

#include <QString>

namespace orbisgrid {

/// A text of the panels for a widget, and back. Both are UTF-16; nothing is changed.
inline QString toQString(TextView text) {
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

inline Text toText(const QString& text) {
    return text.toStdU16String();
}

} // namespace orbisgrid
