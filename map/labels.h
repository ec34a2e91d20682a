#pragma once

#include "map/picture.h"

#include <optional>
#include <vector>

namespace orbisgrid {

/// What a text covers.
struct LabelBox {
    double left{}, top{}, right{}, bottom{};
};

/// The room for a label, whatever font of its size it is drawn with: generous, by the wide letters
/// of common fonts without serifs.
[[nodiscard]] LabelBox boxOf(const Picture::Label& label);

/// Puts texts into a picture so that none covers another one or leaves the picture. Who comes first
/// has the room.
class LabelPlacer {
public:
    /// Keeps texts away from a dot.
    void keepFree(const Picture::Dot& dot);

    /// Takes the first of the labels that has room, and as much around it as `away` says, in
    /// picture units; nothing where none has.
    [[nodiscard]] std::optional<Picture::Label> place(const std::vector<Picture::Label>& candidates,
                                                      double away = 0);

private:
    std::vector<LabelBox> m_taken;
};

/// A label whose box has its middle at `middle`.
[[nodiscard]] Picture::Label centredLabel(Role role, Picture::Point middle, double size, Text text);

/// The places beside a dot, the best one first: right, left, above, below, and the corners.
[[nodiscard]] std::vector<Picture::Label> labelsBeside(const Picture::Dot& dot, Role role,
                                                       double size, const Text& text);

} // namespace orbisgrid
