#include "ui/fractional_scale_style.h"

#include "ui/changed_option.h"

#include <QApplication>

#include <cmath>

namespace orbisgrid {

bool FractionalScaleStyle::isNeeded(qreal scale) {
    return scale != std::floor(scale);
}

void FractionalScaleStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                         QPainter* painter, const QWidget* widget) const {
    if (element != PE_PanelButtonCommand && element != PE_FrameLineEdit)
        return ContrastStyle::drawPrimitive(element, option, painter, widget);
    drawChanged(
        *option, [](QStyleOption& changed) { changed.rect.adjust(0, 0, 0, -1); },
        [&](const QStyleOption& changed) {
            ContrastStyle::drawPrimitive(element, &changed, painter, widget);
        });
}

void useFractionalScaleStyleWhereNeeded() {
    const bool isQtsOwn = qobject_cast<ContrastStyle*>(QApplication::style()) != nullptr;
    if (isQtsOwn && FractionalScaleStyle::isNeeded(qApp->devicePixelRatio()))
        QApplication::setStyle(new FractionalScaleStyle);
}

} // namespace orbisgrid
