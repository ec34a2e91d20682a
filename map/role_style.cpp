#include "map/role_style.h"

namespace orbisgrid {

std::array<Role, roleCount> everyRole() {
    std::array<Role, roleCount> roles{};
    int next = 0;
    for (Role& role : roles)
        role = static_cast<Role>(next++);
    return roles;
}

bool isTextRole(Role role) {
    switch (role) {
    case Role::gridLabel:
    case Role::ringLabel:
    case Role::bearingLabel:
    case Role::cardinal:
    case Role::targetLabel:
    case Role::homeLabel:
    case Role::note:
        return true;
    default:
        return false;
    }
}

RoleStyles printStyles() {
    constexpr std::uint32_t ink = 0xFF222222, path = 0xFFB00020, distance = 0xFF444466;
    RoleStyles styles;
    styles[Role::sea] = {.fill = 0xFFFFFFFF};
    styles[Role::land] = {.fill = 0xFFD9D4C5, .stroke = 0xFF77705C, .width = 0.6};
    styles[Role::border] = {.stroke = 0xFFA39C88, .width = 0.6};
    styles[Role::night] = {.fill = 0x29222233};
    styles[Role::grid] = {.stroke = 0xFF8FA3B8, .width = 0.4};
    styles[Role::ring] = {.stroke = distance, .width = 0.7, .dash = 1, .gap = 3};
    styles[Role::tick] = {.stroke = ink, .width = 1.2};
    styles[Role::rim] = {.stroke = ink, .width = 1.2};
    styles[Role::shortPath] = {.stroke = path, .width = 2.4};
    styles[Role::longPath] = {.stroke = path, .width = 1.6, .dash = 9, .gap = 6};
    styles[Role::cross] = {.stroke = 0xFF000000, .width = 1.6};
    styles[Role::target] = {.fill = path};
    styles[Role::home] = {.fill = 0xFF000000};
    for (const Role role : everyRole()) {
        if (isTextRole(role))
            styles[role] = {.fill = ink, .stroke = 0xFFFFFFFF, .width = 0.15};
    }
    styles[Role::gridLabel].fill = 0xFF4C647C;
    styles[Role::ringLabel].fill = distance;
    for (const Role role : {Role::cardinal, Role::homeLabel, Role::targetLabel})
        styles[role].isBold = true;
    return styles;
}

} // namespace orbisgrid
