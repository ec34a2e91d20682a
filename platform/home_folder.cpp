#include "platform/home_folder.h"

#include "platform/environment.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace orbisgrid {

void provideHome() {
    if (!environmentVariable("HOME").empty())
        return;
    const passwd* user = ::getpwuid(::getuid()); // NOLINT(concurrency-mt-unsafe): one thread yet
    if (user != nullptr && user->pw_dir != nullptr && *user->pw_dir != '\0')
        ::setenv("HOME", user->pw_dir, 1); // NOLINT(concurrency-mt-unsafe): as above
}

} // namespace orbisgrid
