#include "platform/font_configuration.h"

#include "platform/shared_library.h"

#include <sched.h>

#include <clocale>
#include <cstdlib>
#include <string>
#include <tuple>

namespace orbisgrid {

namespace {

/// A QApplication removes this variable. As the last one it leaves all others where they are, so
/// that the thread misses none while it looks for one.
void makeRemovalHarmless() {
    constexpr const char* removedByQt = "DESKTOP_STARTUP_ID";
    const char* set = std::getenv(removedByQt); // NOLINT(concurrency-mt-unsafe): one thread yet
    if (set == nullptr)
        return;
    const std::string value = set;
    ::unsetenv(removedByQt);                 // NOLINT(concurrency-mt-unsafe)
    ::setenv(removedByQt, value.c_str(), 1); // NOLINT(concurrency-mt-unsafe)
}

/// Runs fontconfig's FcInit.
void* read(void* initialize) {
    reinterpret_cast<int (*)()>(initialize)();
    return nullptr;
}

/// The processors of this process but the one that it runs on; nothing where there is no other.
/// The kernel starts a thread on the processor of its maker, where it waits for its turn; one that
/// is idle takes it over at its next tick only, up to 4 ms later, when the reading could be over.
std::optional<cpu_set_t> otherProcessors() {
    cpu_set_t others{};
    const int here = ::sched_getcpu();
    if (here < 0 || ::sched_getaffinity(0, sizeof others, &others) != 0)
        return std::nullopt;
    CPU_CLR(static_cast<std::size_t>(here), &others);
    return CPU_COUNT(&others) > 0 ? std::optional(others) : std::nullopt;
}

} // namespace

FontConfiguration::~FontConfiguration() {
    wait();
}

void FontConfiguration::startReading() {
    // Looked up here and not on the thread: libraries are loaded one at a time, and the thread
    // would wait for those that are loaded beside it.
    const SharedLibrary library("libfontconfig.so.1");
    const auto initialize = reinterpret_cast<int (*)()>(library.function("FcInit"));
    if (initialize == nullptr)
        return;
    makeRemovalHarmless();
    // The decimal point must not change while numbers are read.
    std::ignore = std::setlocale(LC_ALL, "");
    // No std::thread: its processor could be chosen only once it runs, and by then it may be over.
    pthread_attr_t attributes;
    if (::pthread_attr_init(&attributes) != 0)
        return;
    if (const std::optional<cpu_set_t> others = otherProcessors())
        ::pthread_attr_setaffinity_np(&attributes, sizeof *others, &*others);
    pthread_t reader{};
    // Where no thread can be had, Qt reads it when it needs it.
    if (::pthread_create(&reader, &attributes, read, reinterpret_cast<void*>(initialize)) == 0)
        m_reader = reader;
    ::pthread_attr_destroy(&attributes);
}

void FontConfiguration::wait() {
    if (m_reader)
        ::pthread_join(*m_reader, nullptr);
    m_reader.reset();
}

} // namespace orbisgrid
