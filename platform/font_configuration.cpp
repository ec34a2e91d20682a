#include "platform/font_configuration.h"

#include "platform/shared_library.h"

#include <QByteArray>

#include <pthread.h>
#include <sched.h>

#include <clocale>
#include <system_error>
#include <tuple>

namespace orbisgrid {

namespace {

/// A QApplication removes this variable. As the last one it leaves all others where they are, so
/// that the thread misses none while it looks for one.
void makeRemovalHarmless() {
    constexpr const char* removedByQt = "DESKTOP_STARTUP_ID";
    if (!qEnvironmentVariableIsSet(removedByQt))
        return;
    const QByteArray value = qgetenv(removedByQt);
    qunsetenv(removedByQt);
    qputenv(removedByQt, value);
}

/// The kernel starts a thread on the processor of its maker, where it waits for its turn; one that
/// is idle takes it over at its next tick only, up to 4 ms later, when the reading could be over.
void moveToAnotherProcessor(std::thread& thread) {
    cpu_set_t others;
    const int here = ::sched_getcpu();
    if (here < 0 || ::sched_getaffinity(0, sizeof others, &others) != 0)
        return;
    CPU_CLR(static_cast<std::size_t>(here), &others);
    if (CPU_COUNT(&others) > 0)
        ::pthread_setaffinity_np(thread.native_handle(), sizeof others, &others);
}

} // namespace

FontConfiguration::~FontConfiguration() {
    wait();
}

void FontConfiguration::startReading() {
    // Looked up here and not on the thread: libraries are loaded one at a time, and the thread
    // would wait for those that are loaded beside it.
    const SharedLibrary library(QStringLiteral("libfontconfig.so.1"));
    const auto initialize = reinterpret_cast<int (*)()>(library.function("FcInit"));
    if (initialize == nullptr)
        return;
    makeRemovalHarmless();
    // The decimal point must not change while numbers are read.
    std::ignore = std::setlocale(LC_ALL, "");
    try {
        m_reader = std::thread(initialize);
    } catch (const std::system_error&) {
        return; // no thread to be had: Qt reads it when it needs it
    }
    moveToAnotherProcessor(m_reader);
}

void FontConfiguration::wait() {
    if (m_reader.joinable())
        m_reader.join();
}

} // namespace orbisgrid
