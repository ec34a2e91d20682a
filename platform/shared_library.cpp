#include "platform/shared_library.h"

#include "platform/environment.h"

#include <dlfcn.h>

namespace orbisgrid {

namespace {

/// What was put into the program before its libraries: by the variable that the loader reads, or in
/// a way that only the malloc shows (a tool that has removed the variable, a sanitizer, the
/// system's own list).
bool isSomethingPutFirst() {
    void* cLibrary = ::dlopen("libc.so.6", RTLD_LAZY | RTLD_NOLOAD);
    return !environmentVariable("LD_PRELOAD").empty() || cLibrary == nullptr ||
           ::dlsym(RTLD_DEFAULT, "malloc") != ::dlsym(cLibrary, "malloc");
}

int modeFor(SharedLibrary::Names names) {
    constexpr int usual = RTLD_LAZY | RTLD_LOCAL;
    return names == SharedLibrary::Names::libraryFirst && !isSomethingPutFirst()
               ? usual | RTLD_DEEPBIND
               : usual;
}

} // namespace

SharedLibrary::SharedLibrary(const std::string& path, Names names)
    : m_handle(::dlopen(path.c_str(), modeFor(names))) {}

SharedLibrary::Function SharedLibrary::function(const char* name) const {
    return m_handle == nullptr ? nullptr : reinterpret_cast<Function>(::dlsym(m_handle, name));
}

std::string SharedLibrary::whatIsWrong() {
    const char* text = ::dlerror();
    return text == nullptr ? std::string() : std::string(text);
}

} // namespace orbisgrid
