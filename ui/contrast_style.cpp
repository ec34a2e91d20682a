#include "ui/contrast_style.h"

#include "ui/changed_option.h"
#include "ui/contrast.h"

#include <QApplication>
#include <QStyleOption>

#include <algorithm>
#include <array>

namespace orbisgrid {

namespace {

constexpr std::array<QPalette::ColorGroup, 3> groups{QPalette::Active, QPalette::Inactive,
                                                     QPalette::Disabled};

/// More than what is asked for: the style draws some edges a tenth lighter than others, and buttons
/// from light to dark.
constexpr double withRoom = 1.2;

/// Where the style itself draws an edge. It draws lists and tool buttons as such buttons.
bool hasEdge(QStyle::PrimitiveElement element) {
    switch (element) {
    case QStyle::PE_Frame:
    case QStyle::PE_FrameMenu:
    case QStyle::PE_FrameLineEdit:
    case QStyle::PE_PanelButtonCommand:
    case QStyle::PE_IndicatorCheckBox:
        return true;
    default:
        return false;
    }
}

/// The style's edge in a window of that colour.
QColor edgeOn(const QColor& window) {
    constexpr int asTheStyleDoes = 140;
    return window.darker(asTheStyleDoes);
}

/// The style's ring around what has the focus, with that colour for what is selected.
QColor ringOf(const QColor& highlight) {
    constexpr int asTheStyleDoes = 125;
    constexpr int brightest = 160;
    QColor ring = highlight.darker(asTheStyleDoes);
    if (ring.value() > brightest)
        ring.setHsl(ring.hue(), ring.saturation(), brightest);
    return ring;
}

/// The colour of a window whose edges would be seen in the palette's.
QColor windowForEdges(const QPalette& palette, QPalette::ColorGroup group) {
    constexpr int darkest = 24; // of 255
    const QColor window = palette.color(group, QPalette::Window);
    if (window.value() < darkest)
        return palette.color(group, QPalette::WindowText);
    return withContrast(
        window,
        {window, palette.color(group, QPalette::Base), palette.color(group, QPalette::Button)},
        contrastOfEdges * withRoom, edgeOn);
}

QColor highlightForRing(const QPalette& palette, QPalette::ColorGroup group) {
    return withContrast(
        palette.color(group, QPalette::Highlight),
        {palette.color(group, QPalette::Window), palette.color(group, QPalette::Base)},
        contrastOfEdges * withRoom, ringOf);
}

QPalette withSeenEdges(QPalette palette) {
    for (const QPalette::ColorGroup group : groups) {
        const QColor window = windowForEdges(palette, group);
        palette.setColor(group, QPalette::Highlight, highlightForRing(palette, group));
        palette.setColor(group, QPalette::Window, window);
    }
    return palette;
}

} // namespace

const QPalette& ContrastStyle::paletteFor(const QPalette& palette) const {
    constexpr int most = 16; // windows have one or two
    const auto known = m_palettes.constFind(palette.cacheKey());
    if (known != m_palettes.constEnd())
        return *known;
    if (m_palettes.size() >= most)
        m_palettes.clear();
    return *m_palettes.insert(palette.cacheKey(), withSeenEdges(palette));
}

int ContrastStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                               const QWidget* widget) const {
    const int usual = QProxyStyle::pixelMetric(metric, option, widget);
    const bool isSquare = metric == PM_IndicatorWidth || metric == PM_IndicatorHeight;
    return isSquare && option != nullptr ? std::max(usual, option->fontMetrics.ascent()) : usual;
}

void ContrastStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
    if (!hasEdge(element))
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    drawChanged(
        *option,
        [this](QStyleOption& changed) {
            const QPalette::ColorGroup group = changed.palette.currentColorGroup();
            changed.palette = paletteFor(changed.palette);
            changed.palette.setCurrentColorGroup(group);
        },
        [&](const QStyleOption& changed) {
            QProxyStyle::drawPrimitive(element, &changed, painter, widget);
        });
}

void ContrastStyle::drawControl(ControlElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
    const auto* list = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (element != CE_ComboBoxLabel || list == nullptr)
        return QProxyStyle::drawControl(element, option, painter, widget);
    QStyleOptionComboBox label(*list);
    constexpr int lightest = 145; // as the style draws a dark button
    const QColor button = label.palette.color(QPalette::Button);
    const QColor seen =
        withContrast(label.palette.color(QPalette::ButtonText), {button, button.lighter(lightest)},
                     contrastOfTexts * withRoom);
    label.palette.setColor(QPalette::ButtonText, seen);
    QProxyStyle::drawControl(element, &label, painter, widget);
}

void ContrastStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    for (const QPalette::ColorGroup group : groups)
        palette.setColor(group, QPalette::Highlight,
                         withContrast(palette.color(group, QPalette::Highlight),
                                      {palette.color(group, QPalette::HighlightedText)},
                                      contrastOfTexts));
}

QColor edgeColor(const QPalette& palette) {
    return edgeOn(windowForEdges(palette, palette.currentColorGroup()));
}

void useContrastStyleWhereNeeded() {
    if (QApplication::style()->name() == QStringLiteral("fusion"))
        QApplication::setStyle(new ContrastStyle);
}

} // namespace orbisgrid
