#include "platform/shared_library.h"
#include "tests/support/child.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

/// The program's own answer, which it shows to libraries.
extern "C" [[gnu::visibility("default")]] const char* orbisgridWhoAnswers();

extern "C" const char* orbisgridWhoAnswers() {
    return "program";
}

namespace orbisgrid {

namespace {

using test::inChild;
using Names = SharedLibrary::Names;

/// Who answers a library that is loaded so. In a child: a library stays as it was loaded first.
bool isAnsweredBy(const std::string& who, Names names, const char* putFirst = nullptr) {
    return inChild([&] {
               if (putFirst != nullptr)
                   ::setenv("LD_PRELOAD", putFirst, 1);
               const SharedLibrary library(ORBISGRID_ASKING_LIBRARY, names);
               const auto ask =
                   reinterpret_cast<const char* (*)()>(library.function("orbisgridAsk"));
               return ask != nullptr && ask() == who ? 1 : 0;
           }) == 1;
}

TEST(SharedLibrary, HasItsFunctions) {
    const SharedLibrary library("libm.so.6");
    const auto cosine = reinterpret_cast<double (*)(double)>(library.function("cos"));
    ASSERT_NE(cosine, nullptr);
    EXPECT_EQ(cosine(0), 1);
    EXPECT_EQ(library.function("nothing_of_this_name"), nullptr);
    EXPECT_TRUE(SharedLibrary::whatIsWrong().find("nothing_of_this_name") != std::string::npos);
}

TEST(SharedLibrary, SaysWhyThereIsNone) {
    const SharedLibrary library("/nowhere/Ж.so");
    EXPECT_EQ(library.function("cos"), nullptr);
    EXPECT_TRUE(SharedLibrary::whatIsWrong().starts_with("/nowhere/"));
    EXPECT_EQ(SharedLibrary::whatIsWrong(), "") << "each reason is told once";
}

TEST(SharedLibrary, LooksInTheProgramFirst) {
    EXPECT_TRUE(isAnsweredBy("program", Names::programFirst));
}

TEST(SharedLibrary, LooksInItselfFirstWhereItIsToldTo) {
#ifdef __SANITIZE_ADDRESS__
    // The sanitizer's malloc comes before the C library's.
    EXPECT_TRUE(isAnsweredBy("program", Names::libraryFirst));
#else
    EXPECT_TRUE(isAnsweredBy("library", Names::libraryFirst));
#endif
}

TEST(SharedLibrary, DoesNotGoPastWhatIsPutBeforeTheProgramsLibraries) {
    EXPECT_TRUE(isAnsweredBy("program", Names::libraryFirst, "libnothing.so"));
}

} // namespace

} // namespace orbisgrid
