/// The one name that orbisgrid-window.so has for the executable.
#include "app/window/application_start.h"
#include "app/window/window_run.h"
#include "app/window_library.h"
#include "ui/version.h"
#include "ui/window_messages.h"

#include <QApplication>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

void showMessagesAlone(const std::vector<orbisgrid::Message>& messages, int& argc, char** argv,
                       orbisgrid::WindowLibrary::Otherwise otherwise) {
    std::optional<orbisgrid::ApplicationStart> start(
        std::in_place, [&](const std::string&) { otherwise(messages); });
    const QApplication application(argc, argv);
    start.reset();
    for (const orbisgrid::Message& message : messages)
        orbisgrid::showMessageBox(nullptr, message);
}

} // namespace

extern "C" Q_DECL_EXPORT const orbisgrid::WindowLibrary* orbisgridWindowLibrary() {
    static constexpr orbisgrid::WindowLibrary library{orbisgrid::versionText, orbisgrid::runWindow,
                                                      showMessagesAlone};
    return &library;
}
