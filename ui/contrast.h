#pragma once

#include <QColor>

#include <functional>
#include <initializer_list>

namespace orbisgrid {

/// How much two opaque colours differ in brightness, as the Web Content Accessibility Guidelines
/// count it: from 1 (not at all) to 21 (black and white).
double contrast(const QColor& one, const QColor& other);

/// What is asked of frames, boxes and symbols, and what of texts.
constexpr double contrastOfEdges = 3;
constexpr double contrastOfTexts = 4.5;

/// A colour as something else makes it, for instance a style that draws with a darker one.
using DrawnAs = std::function<QColor(const QColor&)>;

/// `color` where `drawnAs` of it has a contrast of at least `least` to each of `backgrounds`; else
/// as little lighter or darker as that takes. Where nothing does: black or white, whichever is seen
/// better on the first background. A transparent colour is taken as it looks on that one.
QColor withContrast(
    const QColor& color, std::initializer_list<QColor> backgrounds, double least,
    const DrawnAs& drawnAs = [](const QColor& itself) { return itself; });

} // namespace orbisgrid
