#include "tests/scripts/script_box.h"

#include <gtest/gtest.h>

namespace orbisgrid {

namespace {

using test::ShellResult;

class BuildScriptTest : public testing::Test {
protected:
    BuildScriptTest() { m_box.standIn("cmake", "echo \"cmake $*\""); }

    static std::string build(const std::string& arguments) {
        return "set -euo pipefail; " + test::ScriptBox::source("build.sh") + "build " + arguments;
    }

    test::ScriptBox m_box;
};

TEST_F(BuildScriptTest, ALogHasALineForEachStage) {
    const ShellResult result = m_box.run(build("release --target orbisgrid"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "orbisgrid: configuring the preset release\n"
                             "orbisgrid: building with the preset release\n"
                             "cmake --build --preset release --target orbisgrid -- --quiet\n");
}

TEST_F(BuildScriptTest, ATerminalHasTheProgressOfNinja) {
    const ShellResult result = m_box.runOnTerminal(build("release"));
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.output.ends_with("cmake --build --preset release\r\n")) << result.output;
}

TEST_F(BuildScriptTest, WhatCannotBeConfiguredIsNotBuilt) {
    m_box.standIn("cmake", "echo \"cmake $*\" >&2; exit 1");
    const ShellResult result = m_box.run(build("release || echo failed"));
    EXPECT_EQ(result.output,
              "orbisgrid: configuring the preset release\ncmake --preset release\nfailed\n");
}

TEST_F(BuildScriptTest, WhatCannotBeBuiltHasFailed) {
    m_box.standIn("cmake", "[ \"$1\" != --build ]");
    EXPECT_EQ(m_box.run(build("release")).status, 1);
}

} // namespace

} // namespace orbisgrid
