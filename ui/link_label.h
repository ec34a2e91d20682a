#pragma once

#include <QAbstractButton>

namespace orbisgrid {

/// A text that acts as a link: the palette's link colour, underlined, a pointing hand, reached with
/// Tab and followed with Enter or Space. A button underneath, so that screen readers can press it.
class LinkLabel : public QAbstractButton {
    Q_OBJECT

public:
    explicit LinkLabel(const QString& text, QWidget* parent = nullptr);

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

/// Paints the style's focus frame around the whole of a widget that has the focus.
void paintFocusFrame(QWidget& widget);

/// Clicks a link on Return and Enter, as a browser does. Result: whether the key was one of them.
bool clickedByEnter(QAbstractButton& link, QKeyEvent& event);

} // namespace orbisgrid
