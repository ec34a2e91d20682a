/// The one name that orbisgrid-window.so has for the executable.
#include "app/window/window_run.h"
#include "app/window_library.h"
#include "ui/version.h"
#include "ui/window_messages.h"

#include <QApplication>

namespace {

void showMessageAlone(const orbisgrid::Message& message, int& argc, char** argv) {
    const QApplication application(argc, argv);
    orbisgrid::showMessageBox(nullptr, message);
}

} // namespace

extern "C" Q_DECL_EXPORT const orbisgrid::WindowLibrary* orbisgridWindowLibrary() {
    static constexpr orbisgrid::WindowLibrary library{orbisgrid::versionText, orbisgrid::runWindow,
                                                      showMessageAlone};
    return &library;
}
