#include "platform/termination.h"
#include "tests/support/child.h"

#include <gtest/gtest.h>

#include <poll.h>

#include <csignal>
#include <functional>
#include <thread>

namespace orbisgrid {

namespace {

using test::inChild;

bool isReadable(const TerminationSignals& termination, int milliseconds = 0) {
    pollfd waiting{termination.descriptor(), POLLIN, 0};
    return ::poll(&waiting, 1, milliseconds) == 1;
}

/// Waits as an event loop does, after `raise` was called; 7 when the request came, and 5 when it
/// did not come.
int waitWith(const std::function<void()>& raise) {
    const TerminationSignals termination;
    raise();
    return isReadable(termination, 200) ? 7 : 5;
}

class TerminationSignalTest : public testing::TestWithParam<int> {};

TEST_P(TerminationSignalTest, CanBeWaitedFor) {
    EXPECT_EQ(inChild([] { return waitWith([] { ::raise(GetParam()); }); }), 7);
}

TEST_P(TerminationSignalTest, CanBeWaitedForFromAnotherThreadToo) {
    EXPECT_EQ(
        inChild([] { return waitWith([] { std::thread([] { ::raise(GetParam()); }).join(); }); }),
        7);
}

TEST_P(TerminationSignalTest, StaysIgnoredWhereTheCallerIgnoresIt) {
    EXPECT_EQ(inChild([] {
                  ::signal(GetParam(), SIG_IGN);
                  return waitWith([] { ::raise(GetParam()); });
              }),
              5);
}

TEST_P(TerminationSignalTest, HasItsFormerMeaningAfterwards) {
    EXPECT_EQ(inChild([] {
                  waitWith([] { ::raise(SIGTERM); });
                  ::raise(GetParam());
                  return 0;
              }),
              1000 + GetParam());
}

INSTANTIATE_TEST_SUITE_P(Signals, TerminationSignalTest, testing::Values(SIGTERM, SIGINT, SIGHUP));

TEST(Termination, ManySignalsAtOnceAreTakenAtOnce) {
    EXPECT_EQ(inChild([] {
                  const TerminationSignals termination;
                  for (int i = 0; i < 100000; ++i) // more than the pipe holds
                      ::raise(SIGTERM);
                  if (!isReadable(termination))
                      return 1;
                  termination.take();
                  if (isReadable(termination))
                      return 2;
                  ::raise(SIGTERM);
                  return isReadable(termination) ? 0 : 3;
              }),
              0);
}

} // namespace

} // namespace orbisgrid
