#include "platform/termination.h"
#include "tests/support/child.h"

#include <QCoreApplication>
#include <QThread>
#include <QTimer>

#include <gtest/gtest.h>

#include <csignal>

namespace orbisgrid {

namespace {

using test::inChild;

/// Runs an event loop in which `raise` is called; 7 when the request came, on the loop's thread,
/// and 5 when it did not come.
int loopWith(const std::function<void()>& raise) {
    int count = 0;
    QCoreApplication application(count, nullptr);
    const Termination termination(
        [&] { QCoreApplication::exit(QThread::currentThread() == application.thread() ? 7 : 6); });
    QTimer::singleShot(0, &application, raise);
    QTimer::singleShot(500, &application, [] { QCoreApplication::exit(5); });
    return QCoreApplication::exec();
}

class TerminationSignalTest : public testing::TestWithParam<int> {};

TEST_P(TerminationSignalTest, ReachesTheEventLoop) {
    EXPECT_EQ(inChild([] { return loopWith([] { ::raise(GetParam()); }); }), 7);
}

TEST_P(TerminationSignalTest, ReachesItFromAnotherThreadToo) {
    EXPECT_EQ(inChild([] {
                  return loopWith([] {
                      QThread* thread = QThread::create([] { ::raise(GetParam()); });
                      thread->start();
                      thread->wait();
                      delete thread;
                  });
              }),
              7);
}

TEST_P(TerminationSignalTest, StaysIgnoredWhereTheCallerIgnoresIt) {
    EXPECT_EQ(inChild([] {
                  ::signal(GetParam(), SIG_IGN);
                  return loopWith([] { ::raise(GetParam()); });
              }),
              5);
}

TEST_P(TerminationSignalTest, HasItsFormerMeaningAfterwards) {
    EXPECT_EQ(inChild([] {
                  loopWith([] { ::raise(SIGTERM); });
                  ::raise(GetParam());
                  return 0;
              }),
              1000 + GetParam());
}

INSTANTIATE_TEST_SUITE_P(Signals, TerminationSignalTest, testing::Values(SIGTERM, SIGINT, SIGHUP));

TEST(Termination, ManySignalsAtOnceAreOneRequest) {
    EXPECT_EQ(inChild([] {
                  int count = 0;
                  QCoreApplication application(count, nullptr);
                  int requests = 0;
                  const Termination termination([&] { ++requests; });
                  for (int i = 0; i < 100000; ++i) // more than the pipe holds
                      ::raise(SIGTERM);
                  QTimer::singleShot(50, &application, [&] { QCoreApplication::exit(requests); });
                  return QCoreApplication::exec();
              }),
              1);
}

} // namespace

} // namespace orbisgrid
