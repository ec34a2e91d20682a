#pragma once

#include <QComboBox>
#include <QFrame>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

#include <memory>

namespace orbisgrid::test {

/// A control with an edge, as the windows have them: "box", "list", "button", "tool button" or
/// "frame".
inline std::unique_ptr<QWidget> madeControl(const QString& kind) {
    if (kind == QStringLiteral("box"))
        return std::make_unique<QLineEdit>();
    if (kind == QStringLiteral("list"))
        return std::make_unique<QComboBox>();
    if (kind == QStringLiteral("button"))
        return std::make_unique<QPushButton>();
    if (kind == QStringLiteral("tool button"))
        return std::make_unique<QToolButton>();
    auto frame = std::make_unique<QFrame>();
    frame->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Plain));
    return frame;
}

} // namespace orbisgrid::test
