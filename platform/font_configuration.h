#pragma once

#include <pthread.h>

#include <optional>

namespace orbisgrid {

/// Reads the system's font configuration on a thread of its own: that takes 4 ms, a sixth of the
/// start of a window, and can be done while the display is connected to. Qt then finds it read.
/// Without fontconfig, or where no thread can be had, nothing happens and Qt reads it when it needs
/// it.
class FontConfiguration {
public:
    FontConfiguration() = default;
    ~FontConfiguration();
    FontConfiguration(const FontConfiguration&) = delete;
    FontConfiguration& operator=(const FontConfiguration&) = delete;
    FontConfiguration(FontConfiguration&&) = delete;
    FontConfiguration& operator=(FontConfiguration&&) = delete;

    /// To be called once, while no other thread runs. Takes over the user's locale, as a
    /// QApplication does. From then until `wait` has returned nobody may set a variable of the
    /// environment or change the locale. To make a QApplication is allowed on X11, not under
    /// Wayland: desktops' themes set variables while it is made.
    void startReading();

    /// Returns once it is read; at once where that has not been started.
    void wait();

private:
    std::optional<pthread_t> m_reader;
};

} // namespace orbisgrid
