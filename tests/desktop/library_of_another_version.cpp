// A library of windows that does not belong to the executable.

#include "app/window_library.h"

extern "C" [[gnu::visibility("default")]] const orbisgrid::WindowLibrary* orbisgridWindowLibrary() {
    static constexpr orbisgrid::WindowLibrary library{u"0.0.0", nullptr, nullptr};
    return &library;
}
