#include "app/window_run.h"

#include "platform/clipboard_keeper.h"
#include "platform/clipboard_route.h"
#include "platform/clipboard_selection.h"
#include "platform/termination.h"
#include "ui/app_icon.h"
#include "ui/desktop_tool_registry.h"
#include "ui/locator_converter.h"
#include "ui/module1.h"
#include "ui/window_messages.h"

#include <QApplication>
#include <QClipboard>
#include <QSessionManager>
#include <QTimer>

#include <chrono>

namespace orbisgrid {

namespace {

/// To paint the icon takes two milliseconds: the window does not wait for them. A desktop shows the
/// installed icon until then, and the same one afterwards.
void setIconOnceDrawn(const QObject& window) {
    constexpr std::chrono::milliseconds later{50};
    QTimer::singleShot(later, &window, [] { QApplication::setWindowIcon(appIcon()); });
}

/// A text that was copied here would be lost with this process: a keeper takes it over.
void handClipboardOver() {
    const QClipboard& clipboard = *QApplication::clipboard();
    const bool isOurs = clipboard.ownsClipboard() && clipboardHasOwner();
    if (isOurs && clipboardRoute() == ClipboardRoute::x11Keeper && !clipboard.text().isEmpty())
        startClipboardKeeper(QCoreApplication::applicationFilePath(), clipboard.text());
}

} // namespace

int runWindow(SettingsStore& store, const QString& programFolder, int& argc, char** argv) {
    // The title of the boxes is given to each of them: an application display name would be
    // appended to every title.
    QApplication::setApplicationName(applicationTitle());
    QApplication::setDesktopFileName(QStringLiteral("orbisgrid"));
    QApplication application(argc, argv);
    DesktopToolRegistry registry;
    LocatorConverter window({store, programFolder, [] { return IsOnline(); }, registry});
    window.Form_Load();
    window.show();
    setIconOnceDrawn(window);

    const Termination termination([&window] { window.close(); });
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &window,
                     [&window](QSessionManager&) { window.SaveINI(); });
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &window, handClipboardOver);
    return QApplication::exec();
}

} // namespace orbisgrid
