#include "platform/font_configuration.h"

#include "platform/shared_library.h"

#include <QByteArray>

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

} // namespace

FontConfiguration::~FontConfiguration() {
    wait();
}

void FontConfiguration::startReading() {
    // Loaded here and not on the thread: libraries are loaded one at a time, and the thread would
    // wait for those that are loaded beside it.
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
}

void FontConfiguration::wait() {
    if (m_reader.joinable())
        m_reader.join();
}

} // namespace orbisgrid
