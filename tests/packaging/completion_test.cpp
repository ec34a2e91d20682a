#include "tests/support/child.h"

#include <gtest/gtest.h>

#include <string>

namespace orbisgrid {

namespace {

/// What bash is offered for the last of these words, one a line, in a folder that has a file.
std::string offered(const std::string& words) {
    return test::shell("cd / && bash -c '. " ORBISGRID_SOURCES
                       "/packaging/orbisgrid.bash-completion;"
                       " compopt() { :; }; COMP_WORDS=(orbisgrid " +
                       words +
                       "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _orbisgrid;"
                       " printf \"%s\\n\" \"${COMPREPLY[@]}\"'")
        .output;
}

TEST(Completion, ADashBecomesTheOption) {
    EXPECT_EQ(offered("-"), "-C\n");
}

TEST(Completion, ShowsTheShapeOfLocators) {
    EXPECT_NE(offered("\"\"").find("JO20AW FN42AA"), std::string::npos);
    EXPECT_NE(offered("JO20AW \"\"").find("FN42AA"), std::string::npos);
    EXPECT_NE(offered("-C \"\"").find("4 to 10 characters"), std::string::npos);
}

TEST(Completion, OffersNothingElse) {
    for (const char* words : {"e", "JO", "JO20AW e", "JO20AW FN42AA \"\"", "-CJO20AW \"\"", "--"})
        EXPECT_EQ(offered(words), "\n") << words;
}

TEST(Completion, IsBoundWithoutFileNames) {
    EXPECT_EQ(test::shell("bash -c '. " ORBISGRID_SOURCES
                          "/packaging/orbisgrid.bash-completion; complete -p orbisgrid'")
                  .output,
              "complete -F _orbisgrid orbisgrid\n");
}

} // namespace

} // namespace orbisgrid
