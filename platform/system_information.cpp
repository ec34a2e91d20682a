#include "platform/system_information.h"

#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

#include <array>

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
QString firstInstalled(const Programs& programs) {
    for (const char* const program : programs) {
        if (program == nullptr)
            break;
        QString path = QStandardPaths::findExecutable(QString::fromLatin1(program));
        if (!path.isEmpty())
            return path;
    }
    return {};
}

QString toolOfDesktop(const QString& desktop) {
    for (const DesktopTools& tools : toolsByDesktop) {
        if (desktop.compare(QLatin1String(tools.desktop), Qt::CaseInsensitive) == 0)
            return firstInstalled(tools.programs);
    }
    return {};
}

} // namespace

QString findSystemInformationTool() {
    const QString desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP");
    for (const QString& desktop : desktops.split(u':', Qt::SkipEmptyParts)) {
        QString path = toolOfDesktop(desktop);
        if (!path.isEmpty())
            return path;
    }
    return firstInstalled(toolsAnywhere);
}

bool startProgram(const QString& path) {
    return QProcess::startDetached(path, {});
}

} // namespace orbisgrid
