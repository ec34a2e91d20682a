#include "platform/shared_library.h"

#include <dlfcn.h>

namespace orbisgrid {

SharedLibrary::SharedLibrary(const std::string& path)
    : m_handle(::dlopen(path.c_str(), RTLD_LAZY | RTLD_LOCAL)) {}

SharedLibrary::Function SharedLibrary::function(const char* name) const {
    return m_handle == nullptr ? nullptr : reinterpret_cast<Function>(::dlsym(m_handle, name));
}

std::string SharedLibrary::whatIsWrong() {
    const char* text = ::dlerror();
    return text == nullptr ? std::string() : std::string(text);
}

} // namespace orbisgrid
