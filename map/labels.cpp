#include "map/labels.h"

#include <algorithm>
#include <cmath>

namespace orbisgrid {

namespace {

// In em, above and below the base line: an accent on a capital, and a descender.
constexpr double ascent = 0.95;
constexpr double descent = 0.25;

/// In em: not less than in bold DejaVu Sans, which is one of the widest.
double widthOf(char16_t character) {
    if (character == u' ' || character == u'.' || character == u',' || character == u':')
        return 0.4;
    if (character == u'm' || character == u'w' || character == u'M' || character == u'W')
        return 1.11;
    if (character >= u'A' && character <= u'Z')
        return 0.86;
    const bool isNarrow = character == u'-' || character == u'°' ||
                          (character >= u'0' && character <= u'9') ||
                          (character >= u'a' && character <= u'z');
    return isNarrow ? 0.72 : 1.05;
}

double widthOf(const Text& text) {
    double width = 0;
    for (const char16_t character : text)
        width += widthOf(character);
    return width;
}

bool isInPicture(const LabelBox& box) {
    return box.left >= 0 && box.top >= 0 && box.right <= Picture::side &&
           box.bottom <= Picture::side;
}

bool areApart(const LabelBox& one, const LabelBox& other, double away) {
    return one.right + away <= other.left || other.right + away <= one.left ||
           one.bottom + away <= other.top || other.bottom + away <= one.top;
}

} // namespace

LabelBox boxOf(const Picture::Label& label) {
    const double width = widthOf(label.text) * label.size;
    double left = label.place.x;
    if (label.anchor == Picture::Anchor::middle)
        left -= width / 2;
    else if (label.anchor == Picture::Anchor::end)
        left -= width;
    return {left, label.place.y - ascent * label.size, left + width,
            label.place.y + descent * label.size};
}

void LabelPlacer::keepFree(const Picture::Dot& dot) {
    m_taken.push_back({dot.place.x - dot.radius, dot.place.y - dot.radius, dot.place.x + dot.radius,
                       dot.place.y + dot.radius});
}

std::optional<Picture::Label> LabelPlacer::place(const std::vector<Picture::Label>& candidates,
                                                 double away) {
    for (const Picture::Label& label : candidates) {
        const LabelBox box = boxOf(label);
        const bool isFree = isInPicture(box) &&
                            std::all_of(m_taken.begin(), m_taken.end(), [&](const LabelBox& taken) {
                                return areApart(box, taken, away);
                            });
        if (isFree) {
            m_taken.push_back(box);
            return label;
        }
    }
    return std::nullopt;
}

Picture::Label centredLabel(Role role, Picture::Point middle, double size, Text text) {
    const double baseLine = middle.y + (ascent - descent) / 2 * size;
    return {role, {middle.x, baseLine}, Picture::Anchor::middle, size, std::move(text)};
}

std::vector<Picture::Label> labelsBeside(const Picture::Dot& dot, Role role, double size,
                                         const Text& text) {
    const double away = dot.radius + 0.3 * size;
    const double slant = away * 0.7;
    const auto [x, y] = dot.place;
    const double centred = y + (ascent - descent) / 2 * size;
    const double above = -descent * size, below = ascent * size;
    const auto label = [&](Picture::Point place, Picture::Anchor anchor) {
        return Picture::Label{role, place, anchor, size, text};
    };
    using enum Picture::Anchor;
    return {label({x + away, centred}, start),
            label({x - away, centred}, end),
            label({x, y - away + above}, middle),
            label({x, y + away + below}, middle),
            label({x + slant, y - slant + above}, start),
            label({x - slant, y - slant + above}, end),
            label({x + slant, y + slant + below}, start),
            label({x - slant, y + slant + below}, end)};
}

} // namespace orbisgrid
