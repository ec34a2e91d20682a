// A program of the tests: says what the functions answer in a process of its own.

#include "platform/environment.h"
#include "platform/home_folder.h"
#include "platform/per_user_store.h"
#include "platform/program_folder.h"
#include "tests/support/one_start.h"

#include <cstdio>
#include <string_view>

int main(int argc, char** argv) {
    const std::string_view question = argc > 1 ? argv[1] : "";
    if (question == "program-folder")
        std::puts(orbisgrid::programFolder().c_str());
    else if (question == "store-path")
        std::puts(orbisgrid::PerUserStore::defaultFilePath().c_str());
    else if (question == "home") {
        orbisgrid::provideHome();
        std::puts(orbisgrid::environmentVariable("HOME").c_str());
    } else if (question == "start") {
        orbisgrid::PerUserStore store;
        if (!orbisgrid::RegistryStuff(store, orbisgrid::fromUtf8(orbisgrid::programFolder()),
                                      u"3.1.1"))
            return 3;
        std::printf("%d\n", orbisgrid::test::oneStart(store));
    } else
        return 2;
    return 0;
}
