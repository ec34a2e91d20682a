#include "fuzz/oracle.h"
#include "platform/per_user_store.h"
#include "tests/support/window_actions.h"
#include "ui/desktop_tool_registry.h"
#include "ui/locator_converter.h"
#include "ui/qt_text.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>

#include <memory>

namespace orbisgrid::fuzz {

namespace {

/// Reads each message box and answers it: with yes where that is asked.
class Reader : public QObject {
public:
    QStringList texts;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* box = qobject_cast<QMessageBox*>(watched);
        if (box != nullptr && event->type() == QEvent::Show) {
            texts.append(box->text());
            QTimer::singleShot(0, box, [box] {
                QAbstractButton* yes = box->button(QMessageBox::Yes);
                (yes != nullptr ? yes : box->buttons().constFirst())->click();
            });
        }
        return false;
    }
};

/// Before the QApplication is made: no screen, no bus, and no program that could be started.
void leaveTheDesktop() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    qputenv("PATH", "/nothing");
}

/// The real window, offscreen, and what one does with it.
class Desktop {
public:
    /// In a folder that has an INI file.
    explicit Desktop(const QString& folder)
        : m_store(folder.toStdString() + "/store.ini")
        , m_window({m_store, folder.toStdString(), [] { return false; }, m_registry, {}}) {
        QCoreApplication::instance()->installEventFilter(&m_reader);
        m_window.Form_Load();
        m_window.show();
    }

    void emptyLists() {
        click("cmdClear_0");
        click("cmdClear_1");
    }

    QStringList act(const test::PanelAction& action) {
        m_reader.texts.clear();
        test::act(m_window, action);
        return m_reader.texts;
    }

    QString text(const char* name) const {
        return child<QWidget>(QString::fromLatin1(name))->property("text").toString();
    }

    int count(const char* name) const {
        return child<QComboBox>(QString::fromLatin1(name))->count();
    }

    QString chosen(const char* name) const {
        return child<QComboBox>(QString::fromLatin1(name))->currentText();
    }

private:
    template <typename Widget>
    Widget* child(const QString& name) const {
        auto* found = m_window.findChild<Widget*>(name);
        require(found != nullptr, "a control that is not there");
        return found;
    }

    void click(const char* name) { child<QAbstractButton>(QString::fromLatin1(name))->click(); }

    PerUserStore m_store;
    DesktopToolRegistry m_registry;
    Reader m_reader;
    LocatorConverter m_window;
};

/// One for all inputs: to make a window takes longer than to use it. It is never taken down, as at
/// the end of the process what it stands on has gone before it.
Desktop& desktop() {
    static int count = 1;
    static char name[] = "window";
    static char* arguments[] = {name, nullptr};
    static const QTemporaryDir folder;
    static Desktop* desktop = nullptr;
    if (desktop == nullptr) {
        leaveTheDesktop();
        QFile ini(folder.filePath(QStringLiteral("Orbisgrid.ini")));
        require(ini.open(QIODevice::WriteOnly), "the file that the window needs");
        static const auto* const application = new QApplication(count, arguments);
        Q_UNUSED(application)
        desktop = new Desktop(folder.path());
    }
    return *desktop;
}

/// Every box and label shows what the values hold.
void requireShown(const LocatorConverterForm& form, const Desktop& desktop) {
    const Converter& converter = form.converter;
    const HomeTarget& homeTarget = form.homeTarget;
    const auto shows = [&](const char* name, TextView text) {
        require(desktop.text(name) == toQString(text), name);
    };
    shows("txtLocator", converter.txtLocator.text());
    shows("txtDecLat", converter.txtDecLat.text());
    shows("txtDecLong", converter.txtDecLong.text());
    shows("lblDecNS", converter.lblDecNS());
    shows("lblDecEW", converter.lblDecEW());
    const char* const lat[] = {"txtlatdms_0", "txtlatdms_1", "txtlatdms_2"};
    const char* const lon[] = {"txtlondms_0", "txtlondms_1", "txtlondms_2"};
    for (std::size_t i = 0; i < 3; ++i) {
        shows(lat[i], converter.txtlatdms.at(i).text());
        shows(lon[i], converter.txtlondms.at(i).text());
    }
    require(desktop.chosen("cmbDmsNS") == toQString(converter.cmbDmsNS.text()), "cmbDmsNS");
    require(desktop.chosen("cmbDmsWE") == toQString(converter.cmbDmsWE.text()), "cmbDmsWE");
    shows("txtUIView", converter.txtUIView.text());
    shows("lblCompressed", converter.lblCompressed);
    shows("txtHome", homeTarget.txtHome.text());
    shows("txtTarget", homeTarget.txtTarget.text());
    shows("lblDistKm", homeTarget.lblDistKm);
    shows("lblDistMile", homeTarget.lblDistMile);
    shows("lblAzimuth", homeTarget.lblAzimuth);
    shows("lblHomeLat", homeTarget.lblHomeLat);
    shows("lblHomeLong", homeTarget.lblHomeLong);
    shows("lblTargetLat", homeTarget.lblTargetLat);
    shows("lblTargetLong", homeTarget.lblTargetLong);
    require(desktop.count("cmbHome") == static_cast<int>(homeTarget.cmbHome.items.size()),
            "cmbHome");
    require(desktop.count("cmbTarget") == static_cast<int>(homeTarget.cmbTarget.items.size()),
            "cmbTarget");
}

/// A calculation writes every label, and the refresh of either side leaves some of them alone: so
/// both begin with the same one, whatever the input before was.
void beginAlike(LocatorConverterForm& form, Desktop& desktop) {
    for (const test::PanelAction& action : test::actionsOf(u"C JO20AW;FN42AA | R")) {
        test::RecordedMessages messages;
        test::act(form, action, messages);
        desktop.act(action);
    }
    form.homeTarget.clear(Side::Home);
    form.homeTarget.clear(Side::Target);
    desktop.emptyLists();
    requireShown(form, desktop);
}

/// A box of text holds one line; the window keeps its ends out, the values never get any.
bool isOneLine(const Text& text) {
    return text.find_first_of(u"\r\n\u2028\u2029") == Text::npos;
}

} // namespace

} // namespace orbisgrid::fuzz

/// What fontconfig has loaded stays until the end, as the application does. Shown to the sanitizer,
/// which is a library.
extern "C" Q_DECL_EXPORT const char* __lsan_default_suppressions() {
    return "leak:libfontconfig";
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orbisgrid;
    fuzz::Desktop& desktop = fuzz::desktop();
    LocatorConverterForm form;
    fuzz::beginAlike(form, desktop);
    for (const Text& line : fuzz::linesOf(data, size)) {
        if (line.empty() || !fuzz::isOneLine(line))
            continue;
        if (line.front() == u'P')
            continue; // pasting goes by the clipboard, which is the converter's own test
        const test::PanelAction action = test::actionOf(line);
        test::RecordedMessages messages;
        test::act(form, action, messages);
        const QStringList texts = desktop.act(action);
        fuzz::require(texts.size() == static_cast<qsizetype>(messages.shown.size()), "boxes");
        for (qsizetype i = 0; i < texts.size(); ++i) {
            const QString wanted =
                toQString(messages.shown.at(static_cast<std::size_t>(i)).text).remove(u'\r');
            fuzz::require(texts.at(i) == wanted, "the text of a box");
        }
        fuzz::requireShown(form, desktop);
    }
    return 0;
}
