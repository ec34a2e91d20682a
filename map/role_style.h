#pragma once

#include "map/picture.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace orbisgrid {

/// How the shapes of a role are painted. Colours are 0xAARRGGBB; a transparent one paints nothing.
struct RoleStyle {
    std::uint32_t fill{};   ///< of areas, dots and texts
    std::uint32_t stroke{}; ///< of lines and circles; of texts, the light seam around their letters
    double width{};         ///< of the stroke, picture units; of texts ems
    double dash{}, gap{};   ///< picture units; 0 for a whole line
    bool isBold = false;
};

/// One style for each role.
class RoleStyles {
public:
    [[nodiscard]] const RoleStyle& of(Role role) const { return m_styles[index(role)]; }

    RoleStyle& operator[](Role role) { return m_styles[index(role)]; }

private:
    static std::size_t index(Role role) { return static_cast<std::size_t>(role); }

    std::array<RoleStyle, roleCount> m_styles{};
};

/// Every role in the order of its declaration.
[[nodiscard]] std::array<Role, roleCount> everyRole();

/// Whether shapes of a role are texts.
[[nodiscard]] bool isTextRole(Role role);

/// The look on paper: quiet, and still to be told apart in black and white.
[[nodiscard]] RoleStyles printStyles();

} // namespace orbisgrid
