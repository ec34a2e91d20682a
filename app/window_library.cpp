#include "app/window_library.h"

#include "platform/program_folder.h"
#include "platform/shared_library.h"
#include "ui/version.h"

#include <cstdio>
#include <tuple>

namespace orbisgrid {

namespace {

void refuse(const QString& why) {
    const QByteArray line = (QStringLiteral("orbisgrid: no window: ") + why).toLocal8Bit();
    std::ignore = std::fprintf(stderr, "%s\n", line.constData());
}

} // namespace

const WindowLibrary* loadWindowLibrary() {
    const QString path = executableFolder() + QStringLiteral("/orbisgrid-window.so");
    const SharedLibrary library(path);
    using Entry = const WindowLibrary* (*)();
    const auto entry = reinterpret_cast<Entry>(library.function("orbisgridWindowLibrary"));
    if (entry == nullptr) {
        refuse(SharedLibrary::whatIsWrong());
        return nullptr;
    }
    const WindowLibrary* windows = entry();
    if (windows->version != versionText) {
        refuse(path + QStringLiteral(": not of this program's version"));
        return nullptr;
    }
    return windows;
}

} // namespace orbisgrid
