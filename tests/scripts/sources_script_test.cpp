#include "tests/scripts/script_box.h"

#include <gtest/gtest.h>

namespace orbisgrid {

namespace {

TEST(SourcesScript, FindsThemWithoutGit) {
    const test::ScriptBox box;
    for (const char* program : {"find", "sort"})
        box.offer(program);
    for (const char* file :
         {"core/a.cpp", "tests/core/a test.cpp", "ui/b.h", "README.md", "build/c.cpp",
          "build-test/x/c.cpp", ".cache/d.cpp", "building/e.cpp.in"})
        box.write(file, "");
    EXPECT_EQ(box.run(test::ScriptBox::source("sources.sh") + "sources").output,
              "core/a.cpp\ntests/core/a test.cpp\nui/b.h\n");
}

/// Each one by itself: what a script of the shell has wrong in its grammar shows when it is
/// reached.
TEST(SourcesScript, EveryScriptIsReadByBash) {
    const test::ShellResult result = test::shell(
        "cd '" ORBISGRID_SOURCES "' && bash -c '. scripts/sources.sh; scripts | "
        "while read -r file; do bash -n \"$file\" || exit 1; echo \"$file\"; done' 2>&1");
    EXPECT_EQ(result.status, 0) << result.output;
    for (const char* file : {"run\n", "test\n", ".ci/run\n", "scripts/on_debian.sh\n"})
        EXPECT_NE(result.output.find(file), std::string::npos) << file;
}

} // namespace

} // namespace orbisgrid
