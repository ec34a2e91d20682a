#include "app/window/window_run.h"

#include "app/window/application_start.h"
#include "platform/clipboard_keeper.h"
#include "platform/clipboard_route.h"
#include "platform/clipboard_selection.h"
#include "platform/display.h"
#include "platform/font_configuration.h"
#include "platform/program_folder.h"
#include "platform/termination.h"
#include "ui/app_icon.h"
#include "ui/contrast_style.h"
#include "ui/desktop_tool_registry.h"
#include "ui/fractional_scale_style.h"
#include "ui/locator_converter.h"
#include "ui/module1.h"
#include "ui/window_messages.h"

#include <QApplication>
#include <QClipboard>
#include <QSessionManager>
#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <memory>
#include <optional>
#include <utility>

namespace orbisgrid {

namespace {

int refuseWithoutDisplay() {
    static_cast<void>(std::fputs(
        "orbisgrid: there is no display for the window; start it in a desktop session (or "
        "set DISPLAY), or give it a job: orbisgrid JO20AW FN42AA, orbisgrid -CJO20AW\n",
        stderr));
    return 1;
}

void refuse(const std::string& whatIsWrong) {
    if (whatIsWrong.empty())
        refuseWithoutDisplay();
    else
        static_cast<void>(std::fprintf(stderr, "orbisgrid: no window: %s\n", whatIsWrong.c_str()));
}

/// To paint the icon takes two milliseconds: the window does not wait for them. A desktop shows the
/// installed icon until then, and the same one afterwards.
void setIconOnceDrawn(const QObject& window) {
    constexpr std::chrono::milliseconds later{50};
    QTimer::singleShot(later, &window, [] { QApplication::setWindowIcon(appIcon()); });
}

Moment momentNow() {
    const auto since1970 = std::chrono::system_clock::now().time_since_epoch();
    return Moment{std::chrono::duration_cast<std::chrono::seconds>(since1970).count()};
}

/// Qt tells the session manager to start "orbisgrid -session <id>" at the next login: without the
/// launcher that chose the program folder, and at a moment when nobody asked for the program.
void neverRestart(QSessionManager& session) {
    session.setRestartHint(QSessionManager::RestartNever);
}

/// Closes the window, which saves its lists, when the process is asked to end. Result: what sees to
/// it; nothing where the signals could not be had and end the process at once.
std::unique_ptr<QSocketNotifier> closeOn(const TerminationSignals& termination, QWidget& window) {
    if (termination.descriptor() < 0)
        return nullptr;
    auto notifier =
        std::make_unique<QSocketNotifier>(termination.descriptor(), QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, &window, [&termination, &window] {
        termination.take();
        window.close();
    });
    return notifier;
}

/// A text that was copied here would be lost with this process: a keeper takes it over.
void handClipboardOver() {
    const QClipboard& clipboard = *QApplication::clipboard();
    // On X11 Qt says so even after another program has cleared the clipboard.
    const bool isOurs = clipboard.ownsClipboard() &&
                        (QApplication::platformName() != u"xcb" || clipboardHasOwner());
    if (isOurs && clipboardRoute() != ClipboardRoute::none && !clipboard.text().isEmpty())
        startClipboardKeeper(QCoreApplication::applicationFilePath().toStdString(),
                             clipboard.text().toStdString());
}

} // namespace

int runWindow(SettingsStore& store, const std::string& programFolder, int& argc, char** argv) {
    if (!hasDisplay(displayEnvironment()))
        return refuseWithoutDisplay();
    // The title of the boxes is given to each of them: an application display name would be
    // appended to every title.
    QApplication::setApplicationName(applicationTitle());
    QApplication::setDesktopFileName(QStringLiteral("orbisgrid"));
    // At 1.25 or 1.5 the style's lines lie between pixels, and the last row of a button is lost.
    // Rounded, the fonts make up for the difference, and everything else follows them.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::RoundPreferFloor);
    // Not while the window's libraries are loaded: each page that the loader writes would be taken
    // from the thread's processor first, which costs more than that time gains.
    FontConfiguration fonts;
    if (!mayUseWayland(displayEnvironment()))
        fonts.startReading();
    std::optional<ApplicationStart> start(std::in_place, refuse);
    QApplication application(argc, argv);
    start.reset();
    // At once: a session manager's first request may come in while the window is made.
    for (const auto request :
         {&QGuiApplication::saveStateRequest, &QGuiApplication::commitDataRequest})
        QObject::connect(&application, request, &application, neverRestart);
    fonts.wait();
    useContrastStyleWhereNeeded();
    useFractionalScaleStyleWhereNeeded();
    DesktopToolRegistry registry;
    LocatorConverter window(
        {store,
         programFolder,
         [] { return IsOnline(); },
         registry,
         {executableFolder() + "/orbisgrid-map.dat", [] { return momentNow(); }}});
    window.Form_Load();
    window.show();
    window.countUse();
    setIconOnceDrawn(window);

    const TerminationSignals termination;
    const auto notifier = closeOn(termination, window);
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &window,
                     [&window](QSessionManager&) { window.SaveINI(); });
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &window, handClipboardOver);
    return QApplication::exec();
}

} // namespace orbisgrid
