#include "app/window_library.h"

#include "platform/program_folder.h"
#include "platform/shared_library.h"

#include <cstdio>
#include <tuple>

namespace orbisgrid {

const WindowLibrary* loadWindowLibrary() {
    const SharedLibrary library(executableFolder() + QStringLiteral("/orbisgrid-window.so"));
    using Entry = const WindowLibrary* (*)();
    const auto entry = reinterpret_cast<Entry>(library.function("orbisgridWindowLibrary"));
    if (entry != nullptr)
        return entry();
    const QString line =
        QStringLiteral("orbisgrid: no window: ") + SharedLibrary::whatIsWrong() + u'\n';
    std::ignore = std::fputs(line.toLocal8Bit().constData(), stderr);
    return nullptr;
}

} // namespace orbisgrid
