#include "platform/system_information.h"

#include "platform/environment.h"
#include "platform/programs.h"

#include <strings.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace orbisgrid {

namespace {

/// A desktop and the programs that show the machine there, the most telling one first. They are
/// started without arguments, so a settings program stands behind one that is about the machine.
struct DesktopTools {
    const char* desktop; ///< as in XDG_CURRENT_DESKTOP
    std::array<const char*, 3> programs;
};

constexpr std::array<DesktopTools, 8> toolsByDesktop{{
    {"KDE", {"kinfocenter", "plasma-systemmonitor", "ksysguard"}},
    {"MATE", {"mate-system-monitor", nullptr, nullptr}},
    {"X-Cinnamon", {"hardinfo2", "hardinfo", "gnome-system-monitor"}},
    {"XFCE", {"hardinfo2", "hardinfo", "xfce4-taskmanager"}},
    {"LXQt", {"hardinfo2", "hardinfo", "qps"}},
    {"LXDE", {"hardinfo2", "hardinfo", "lxtask"}},
    {"GNOME", {"gnome-system-monitor", "gnome-control-center", nullptr}},
    {"Budgie", {"gnome-system-monitor", "budgie-control-center", nullptr}},
}};

/// What serves on every desktop, in the order of what it tells about the machine.
constexpr std::array<const char*, 9> toolsAnywhere{"hardinfo2",
                                                   "hardinfo",
                                                   "kinfocenter",
                                                   "mate-system-monitor",
                                                   "gnome-system-monitor",
                                                   "plasma-systemmonitor",
                                                   "xfce4-taskmanager",
                                                   "lxtask",
                                                   "qps"};

template <typename Programs>
std::string firstInstalled(const Programs& programs) {
    for (const char* const program : programs) {
        if (program == nullptr)
            break;
        std::string path = findProgram(program);
        if (!path.empty())
            return path;
    }
    return {};
}

std::string toolOfDesktop(const std::string& desktop) {
    for (const DesktopTools& tools : toolsByDesktop) {
        if (::strcasecmp(desktop.c_str(), tools.desktop) == 0)
            return firstInstalled(tools.programs);
    }
    return {};
}

} // namespace

std::string findSystemInformationTool() {
    const std::string desktops = environmentVariable("XDG_CURRENT_DESKTOP");
    std::string_view rest = desktops;
    while (!rest.empty()) {
        const std::string desktop(rest.substr(0, rest.find(':')));
        rest.remove_prefix(std::min(rest.size(), desktop.size() + 1));
        std::string path = toolOfDesktop(desktop);
        if (!path.empty())
            return path;
    }
    return firstInstalled(toolsAnywhere);
}

} // namespace orbisgrid
