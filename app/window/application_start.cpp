#include "app/window/application_start.h"

#include <QString>
#include <QtGlobal>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <tuple>
#include <utility>

namespace orbisgrid {

namespace {

// Qt calls a message handler with the message and nothing else, so what it is to tell must stand
// where it can find it.
ApplicationStart* startOfTheHandler = nullptr;

/// Wayland's plugin says it without a category of its own that it cannot connect.
bool isOfThePlatform(const QMessageLogContext& context, const QString& text) {
    return text.contains(u"wl_display") ||
           (context.category != nullptr &&
            std::string_view(context.category).starts_with("qt.qpa."));
}

void onMessageOfQt(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type == QtFatalMsg)
        startOfTheHandler->fail();
    // Qt takes a folder in /tmp then, and the program keeps nothing there.
    const bool isOfNoInterest = text.startsWith(u"QStandardPaths: XDG_RUNTIME_DIR not set");
    if (isOfThePlatform(context, text))
        startOfTheHandler->note(text.toStdString());
    else if (!isOfNoInterest)
        std::ignore = std::fputs(
            (qFormatLogMessage(type, context, text) + u'\n').toLocal8Bit().constData(), stderr);
}

/// The name between the first two quotation marks.
std::string quotedName(std::string_view text) {
    const std::size_t first = std::min(text.size(), text.find('"') + 1);
    return std::string(text.substr(first, text.find('"', first) - first));
}

std::string remedyFor(const std::string& plugin) {
    if (plugin.starts_with("wayland"))
        return "install the package qt6-wayland";
    if (plugin == "xcb")
        return "install the package qt6-qpa-plugins";
    return "QT_QPA_PLATFORM asks for it; unset it, or name xcb (package qt6-qpa-plugins) or "
           "wayland "
           "(package qt6-wayland)";
}

std::string joined(const std::vector<std::string>& texts) {
    std::string line;
    for (const std::string& text : texts)
        line.append(line.empty() ? "" : " ").append(text);
    std::replace(line.begin(), line.end(), '\n', ' ');
    return line;
}

} // namespace

std::string whatIsWrongWithQt(const std::vector<std::string>& said) {
    const auto missing = std::find_if(said.begin(), said.end(), [](const std::string& text) {
        return text.starts_with("Could not find the Qt platform plugin");
    });
    if (missing != said.end())
        return *missing + "; " + remedyFor(quotedName(*missing));
    // A plugin that is there complains of its display first, whatever else Qt supposes then.
    const bool isTheDisplay = std::any_of(said.begin(), said.end(), [](const std::string& text) {
        return text.find("display") != std::string::npos;
    });
    return isTheDisplay ? std::string() : joined(said);
}

ApplicationStart::ApplicationStart(OnFailure onFailure)
    : m_onFailure(std::move(onFailure)) {
    startOfTheHandler = this;
    qInstallMessageHandler(onMessageOfQt);
}

ApplicationStart::~ApplicationStart() {
    qInstallMessageHandler(nullptr);
    startOfTheHandler = nullptr;
}

void ApplicationStart::fail() const {
    m_onFailure(whatIsWrongWithQt(m_said));
    std::ignore = std::fflush(nullptr);
    std::_Exit(1);
}

} // namespace orbisgrid
