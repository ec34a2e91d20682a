#pragma once

#include <QColor>
#include <QHash>
#include <QPalette>
#include <QProxyStyle>

namespace orbisgrid {

/// Qt's own style draws the edges of boxes, buttons and frames a shade darker than the window,
/// which is hardly seen on a light window and not at all on a dark one. This makes it draw them,
/// and the ring around what has the focus, with a contrast of at least 3 to 1 to what is beside
/// them, and the faint text of a list without a selection with 4.5 to 1. On a black window edges
/// have the colour of the text. The square of a check box grows with its text.
class ContrastStyle : public QProxyStyle {
    Q_OBJECT

public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;

    using QProxyStyle::polish;

    /// Of the desktop's palette: selected text is read on the colour of what is selected.
    void polish(QPalette& palette) override;

private:
    const QPalette& paletteFor(const QPalette& palette) const;

    /// By the keys of the palettes they were made for. Kept: the style that draws remembers what it
    /// drew by the palette, too.
    mutable QHash<qint64, QPalette> m_palettes;
};

/// The colour that edges have with a palette.
QColor edgeColor(const QPalette& palette);

/// Takes that style in the place of Qt's own; where a desktop has a style of its own, that one
/// stays. Once, after the QApplication is made.
void useContrastStyleWhereNeeded();

} // namespace orbisgrid
