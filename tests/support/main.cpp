#include <gtest/gtest.h>

#include <cstdio>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    if (testing::GTEST_FLAG(list_tests))
        return result;
    if (testing::UnitTest::GetInstance()->test_to_run_count() == 0) {
        std::fputs("no test ran\n", stderr);
        return 1;
    }
    return result;
}
