#pragma once

#include <QAccessible>
#include <QLabel>
#include <QWidget>

namespace orbisgrid::test {

/// Walks the accessibility tree from a window down. Result: the controls that take the focus and
/// have no name for a screen reader, or a tool tip but no description. A label without a text has
/// nothing to say.
inline QStringList controlsThatSayNothing(QAccessibleInterface* interface) {
    QStringList found;
    const auto* widget = qobject_cast<const QWidget*>(interface->object());
    if (widget != nullptr && !widget->isVisible())
        return found;
    const auto* label = qobject_cast<const QLabel*>(widget);
    const bool isEmpty = label != nullptr && label->text().isEmpty();
    if (widget != nullptr && widget->focusPolicy() != Qt::NoFocus && !isEmpty) {
        if (interface->text(QAccessible::Name).isEmpty())
            found.append(widget->objectName() + QStringLiteral(" has no name"));
        if (!widget->toolTip().isEmpty() && interface->text(QAccessible::Description).isEmpty())
            found.append(widget->objectName() + QStringLiteral(" has no description"));
    }
    for (int i = 0; i < interface->childCount(); ++i)
        found += controlsThatSayNothing(interface->child(i));
    return found;
}

inline QStringList controlsThatSayNothing(QWidget& window) {
    return controlsThatSayNothing(QAccessible::queryAccessibleInterface(&window));
}

} // namespace orbisgrid::test
