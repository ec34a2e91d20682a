#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace orbisgrid {

/// What Qt said of its platform plugins while a QApplication was made, and what to do: one line's
/// words for a person. Empty where it is just that no display answers. `said`: Qt's messages of the
/// categories "qt.qpa.…", in their order.
std::string whatIsWrongWithQt(const std::vector<std::string>& said);

/// To be alive while a QApplication is made. Where a display is named but does not answer, or Qt
/// has no plugin for it, Qt writes half a page and aborts; here `onFailure` is called instead, and
/// the process ends with status 1. To ask the display before would keep every start waiting.
///
/// What needs no one's attention is not written either: what Qt says of displays and plugins where
/// one of them will do, and that there is no XDG_RUNTIME_DIR.
class ApplicationStart {
public:
    /// `whatIsWrong` as of `whatIsWrongWithQt`.
    using OnFailure = std::function<void(const std::string& whatIsWrong)>;

    explicit ApplicationStart(OnFailure onFailure);
    ~ApplicationStart();
    ApplicationStart(const ApplicationStart&) = delete;
    ApplicationStart& operator=(const ApplicationStart&) = delete;
    ApplicationStart(ApplicationStart&&) = delete;
    ApplicationStart& operator=(ApplicationStart&&) = delete;

    /// To be called by Qt's message handler alone.
    void note(std::string said) { m_said.push_back(std::move(said)); }

    [[noreturn]] void fail() const;

private:
    OnFailure m_onFailure;
    std::vector<std::string> m_said;
};

} // namespace orbisgrid
