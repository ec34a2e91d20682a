#include "core/runtime_error.h"

#include <gtest/gtest.h>

namespace orbisgrid {

namespace {

TEST(RuntimeError, SaysWhichKind) {
    EXPECT_STREQ(RuntimeError(RuntimeError::invalidProcedureCall).what(),
                 "invalid procedure call or argument");
    EXPECT_STREQ(RuntimeError(RuntimeError::overflow).what(), "overflow");
    EXPECT_STREQ(RuntimeError(RuntimeError::divisionByZero).what(), "division by zero");
    EXPECT_STREQ(RuntimeError(static_cast<RuntimeError::Code>(0)).what(), "run-time error");
}

TEST(RuntimeError, KeepsItsCode) {
    EXPECT_EQ(RuntimeError(RuntimeError::overflow).code(), 6);
}

} // namespace

} // namespace orbisgrid
