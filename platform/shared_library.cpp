#include "platform/shared_library.h"

#include <QFile>

#include <dlfcn.h>

namespace orbisgrid {

SharedLibrary::SharedLibrary(const QString& path)
    : m_handle(::dlopen(QFile::encodeName(path).constData(), RTLD_LAZY | RTLD_LOCAL)) {}

SharedLibrary::Function SharedLibrary::function(const char* name) const {
    return m_handle == nullptr ? nullptr : reinterpret_cast<Function>(::dlsym(m_handle, name));
}

QString SharedLibrary::whatIsWrong() {
    const char* text = ::dlerror();
    return text == nullptr ? QString() : QString::fromLocal8Bit(text);
}

} // namespace orbisgrid
