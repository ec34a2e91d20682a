#pragma once

#include <QStyleOption>

namespace orbisgrid {

/// Draws with a copy of a style's option that `change` was done to. The copy is of the option's own
/// kind: buttons, boxes and frames hold more than the base of all options.
template <typename Change, typename Draw>
void drawChanged(const QStyleOption& option, const Change& change, const Draw& draw) {
    const auto drawCopy = [&](auto copy) {
        change(copy);
        draw(copy);
    };
    if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option))
        drawCopy(*button);
    else if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(&option))
        drawCopy(*frame);
    else
        drawCopy(option); // of a tool button: no kind of its own
}

} // namespace orbisgrid
