#include "ui/contrast_style.h"

#include "ui/edge.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QStyleOption>

namespace orbisgrid {

namespace {

/// What has the focus, and the button that Enter means, stand out as in the style itself.
bool standsOut(const QStyleOption& option) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    return option.state.testFlag(QStyle::State_HasFocus) ||
           (button != nullptr && button->features.testFlag(QStyleOptionButton::DefaultButton));
}

void drawEdgeOf(const QStyleOption& option, QPainter& painter) {
    const auto role = standsOut(option) ? QPalette::Highlight : QPalette::WindowText;
    drawEdge(painter, option.rect, option.palette.color(role));
}

bool hasEdge(QStyle::PrimitiveElement element) {
    switch (element) {
    case QStyle::PE_Frame:
    case QStyle::PE_FrameLineEdit:
    case QStyle::PE_PanelButtonCommand:
    case QStyle::PE_PanelButtonTool:
    case QStyle::PE_IndicatorCheckBox:
        return true;
    default:
        return false;
    }
}

} // namespace

bool ContrastStyle::isNeeded(const QPalette& palette) {
    constexpr int darkest = 24; // of 255; the style's edges have 10 / 14 of the window's value
    return palette.color(QPalette::Window).value() < darkest;
}

void ContrastStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (hasEdge(element))
        drawEdgeOf(*option, *painter);
}

void ContrastStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                       QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox)
        drawEdgeOf(*option, *painter);
}

void useContrastStyleWhereNeeded() {
    if (ContrastStyle::isNeeded(QApplication::palette()))
        QApplication::setStyle(new ContrastStyle);
}

} // namespace orbisgrid
