#include "ui/map_colors.h"

#include "ui/contrast.h"

#include <QPalette>

namespace orbisgrid {

namespace {

struct Ground {
    std::uint32_t ink; ///< of letters and of lines that are read with them
    std::uint32_t sea;
};

/// Print's widths with other colours.
RoleStyles on(const Ground& ground) {
    const auto [ink, sea] = ground;
    RoleStyles styles = printStyles();
    for (const Role role : everyRole()) {
        if (isTextRole(role)) {
            styles[role].fill = ink;
            styles[role].stroke = sea;
        }
    }
    for (const Role role : {Role::tick, Role::rim, Role::cross})
        styles[role].stroke = ink;
    styles[Role::sea].fill = sea;
    styles[Role::home].fill = ink;
    return styles;
}

/// Print's with a sea that is not as bright as paper.
RoleStyles lightStyles() {
    RoleStyles styles = printStyles();
    styles[Role::sea].fill = 0xFFEDF4FA;
    return styles;
}

RoleStyles darkStyles() {
    constexpr std::uint32_t path = 0xFFFF7A66;
    RoleStyles styles = on({.ink = 0xFFECECEC, .sea = 0xFF1B2126});
    styles[Role::land].fill = 0xFF54523F;
    styles[Role::land].stroke = 0xFFA19A80;
    styles[Role::border].stroke = 0xFF8A846E;
    styles[Role::night].fill = 0x60000000;
    styles[Role::grid].stroke = 0xFF6F8499;
    styles[Role::ring].stroke = 0xFFA0AAD0;
    styles[Role::shortPath].stroke = path;
    styles[Role::longPath].stroke = path;
    styles[Role::target].fill = path;
    styles[Role::gridLabel].fill = 0xFFA9BACB;
    styles[Role::ringLabel].fill = 0xFFC0C8E8;
    return styles;
}

RoleStyles blackStyles(const QPalette& palette) {
    const std::uint32_t ink = palette.color(QPalette::WindowText).rgba();
    constexpr std::uint32_t land = 0xFF2C2C2C;
    const QColor sea = palette.color(QPalette::Window);
    const std::uint32_t path = withContrast(palette.color(QPalette::Highlight),
                                            {QColor::fromRgba(land), sea}, contrastOfEdges)
                                   .rgba();
    RoleStyles styles = on({.ink = ink, .sea = sea.rgba()});
    styles[Role::land].fill = land;
    styles[Role::night].fill = 0x90000000;
    for (const Role role : {Role::land, Role::border, Role::grid, Role::ring})
        styles[role].stroke = ink;
    for (const Role role : {Role::shortPath, Role::longPath})
        styles[role].stroke = path;
    styles[Role::target].fill = path;
    return styles;
}

} // namespace

RoleStyles screenStyles(const QPalette& palette) {
    constexpr int black = 24, dark = 128; // of 255
    const QColor window = palette.color(QPalette::Window);
    if (window.value() < black)
        return blackStyles(palette);
    return window.lightness() < dark ? darkStyles() : lightStyles();
}

} // namespace orbisgrid
