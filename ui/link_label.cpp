#include "ui/link_label.h"

#include "ui/contrast.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

namespace orbisgrid {

namespace {

/// Room for the focus frame around the text, in pixels. At the sides just enough not to touch it,
/// so that links line up with the labels above them.
constexpr int marginAcross = 1;
constexpr int marginDown = 2;

QFont underlined(QFont font) {
    font.setUnderline(true);
    return font;
}

} // namespace

LinkLabel::LinkLabel(const QString& text, QWidget* parent)
    : QAbstractButton(parent) {
    setText(text);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize LinkLabel::sizeHint() const {
    const QFontMetrics metrics(underlined(font()));
    return {metrics.horizontalAdvance(text()) + 2 * marginAcross,
            metrics.height() + 2 * marginDown};
}

void LinkLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setFont(underlined(font()));
    painter.setPen(withContrast(palette().color(isDown() ? QPalette::LinkVisited : QPalette::Link),
                                {palette().color(QPalette::Window)}, contrastOfTexts));
    painter.drawText(rect().adjusted(marginAcross, marginDown, -marginAcross, -marginDown),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text());
    painter.end();
    paintFocusFrame(*this);
}

void LinkLabel::keyPressEvent(QKeyEvent* event) {
    if (!clickedByEnter(*this, *event))
        QAbstractButton::keyPressEvent(event);
}

void paintFocusFrame(QWidget& widget) {
    if (!widget.hasFocus())
        return;
    QPainter painter(&widget);
    QStyleOptionFocusRect option;
    option.initFrom(&widget);
    option.backgroundColor = widget.palette().color(QPalette::Window);
    widget.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, &widget);
}

bool clickedByEnter(QAbstractButton& link, QKeyEvent& event) {
    if (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter)
        return false;
    event.accept();
    if (!event.isAutoRepeat())
        link.click();
    return true;
}

} // namespace orbisgrid
