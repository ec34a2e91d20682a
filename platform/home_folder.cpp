#include "platform/home_folder.h"

#include <QByteArray>

#include <pwd.h>
#include <unistd.h>

namespace orbisgrid {

void provideHome() {
    if (!qEnvironmentVariableIsEmpty("HOME"))
        return;
    const passwd* user = ::getpwuid(::getuid()); // NOLINT(concurrency-mt-unsafe): one thread yet
    if (user != nullptr && user->pw_dir != nullptr && *user->pw_dir != '\0')
        qputenv("HOME", QByteArray(user->pw_dir));
}

} // namespace orbisgrid
