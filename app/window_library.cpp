#include "app/window_library.h"

#include "platform/program_folder.h"
#include "platform/shared_library.h"
#include "ui/version.h"

#include <cstdio>
#include <tuple>

namespace orbisgrid {

namespace {

void refuse(const std::string& why) {
    std::ignore = std::fprintf(stderr, "orbisgrid: no window: %s\n", why.c_str());
}

} // namespace

const WindowLibrary* loadWindowLibrary() {
    const std::string path = executableFolder() + "/orbisgrid-window.so";
    const SharedLibrary library(path, SharedLibrary::Names::libraryFirst);
    using Entry = const WindowLibrary* (*)();
    const auto entry = reinterpret_cast<Entry>(library.function("orbisgridWindowLibrary"));
    if (entry == nullptr) {
        refuse(SharedLibrary::whatIsWrong());
        return nullptr;
    }
    const WindowLibrary* windows = entry();
    if (windows->version != versionText) {
        refuse(path + ": not of this program's version");
        return nullptr;
    }
    return windows;
}

} // namespace orbisgrid
