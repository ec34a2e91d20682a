#include "ui/fractional_scale_style.h"

#include "ui/contrast_style.h"

#include <QApplication>
#include <QPalette>
#include <QStyleOption>

#include <cmath>

namespace orbisgrid {

namespace {

/// With the last row left out.
template <typename Option>
Option withoutLastRow(const Option& option) {
    Option shorter(option);
    shorter.rect.adjust(0, 0, 0, -1);
    return shorter;
}

} // namespace

bool FractionalScaleStyle::isNeeded(qreal scale) {
    return scale != std::floor(scale);
}

void FractionalScaleStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                         QPainter* painter, const QWidget* widget) const {
    if (element != PE_PanelButtonCommand && element != PE_FrameLineEdit)
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
        const QStyleOptionButton shorter = withoutLastRow(*button);
        return QProxyStyle::drawPrimitive(element, &shorter, painter, widget);
    }
    if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option)) {
        const QStyleOptionFrame shorter = withoutLastRow(*frame);
        return QProxyStyle::drawPrimitive(element, &shorter, painter, widget);
    }
    const QStyleOption shorter = withoutLastRow(*option); // of a tool button: no kind of its own
    QProxyStyle::drawPrimitive(element, &shorter, painter, widget);
}

void useFractionalScaleStyleWhereNeeded() {
    if (FractionalScaleStyle::isNeeded(qApp->devicePixelRatio()) &&
        !ContrastStyle::isNeeded(QApplication::palette()))
        QApplication::setStyle(new FractionalScaleStyle);
}

} // namespace orbisgrid
