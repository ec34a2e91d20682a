#include "panels/system_info.h"
#include "tests/support/accessible_tree.h"
#include "tests/support/dialog_watchdog.h"
#include "tests/support/font_size.h"
#include "tests/support/sealed_box.h"
#include "ui/about_window.h"
#include "ui/addresses.h"
#include "ui/desktop_tool_registry.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <memory>

using namespace orbisgrid;

namespace {

const QString title = QStringLiteral("Orbisgrid");
const QString unavailable = QStringLiteral("System Information Is Unavailable At This Time");

} // namespace

class AboutWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void init() {
        m_box = std::make_unique<test::SealedBox>();
        m_watchdog = std::make_unique<test::DialogWatchdog>();
        open(1);
    }

    void cleanup() {
        QVERIFY(m_watchdog->allCame());
        m_about.reset();
        m_watchdog.reset();
        m_box.reset();
    }

    void captionsAreTheDesignedOnes_data() {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("text");
        const auto row = [](const char* control, const char* text) {
            QTest::newRow(control) << QString::fromLatin1(control) << QString::fromUtf8(text);
        };
        row("lblTitle", "Orbisgrid");
        row("lblVersion", "Version 3.1.1");
        row("lblDescription",
            "This program calculates the distance, azimuth, longitude and latitude between two "
            "Maidenhead locators. It also allows you to convert between all types of locator "
            "systems!");
        row("Label6", "You have used this program 1 times.");
        row("Label5", "Keep HAM-Software FREE!!!");
        row("Label1", "For more HAM-software or updates please visit:");
        row("Label2", "http://www.orbisgrid.example/");
        row("Label4", "Mail author...");
        row("cmdOK", "OK");
        row("cmdSysInfo", "&System Info...");
        row("Command1", "Check for Updates");
    }

    void captionsAreTheDesignedOnes() {
        QFETCH(const QString, control);
        QFETCH(const QString, text);
        QCOMPARE(child<QWidget>(control)->property("text").toString(), text);
    }

    void windowIsNamed() {
        QCOMPARE(m_about->objectName(), QStringLiteral("frmAbout"));
        QCOMPARE(m_about->windowTitle(), QStringLiteral("About Orbisgrid"));
    }

    void useCountIsPlainDecimal_data() {
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("text");
        QTest::newRow("none") << 0 << QStringLiteral("You have used this program 0 times.");
        QTest::newRow("twelve") << 12 << QStringLiteral("You have used this program 12 times.");
        QTest::newRow("no separator in thousands")
            << 1234567 << QStringLiteral("You have used this program 1234567 times.");
        QTest::newRow("below 0") << -3 << QStringLiteral("You have used this program -3 times.");
    }

    void useCountIsPlainDecimal() {
        QFETCH(const int, count);
        QFETCH(const QString, text);
        open(count);
        QCOMPARE(child<QLabel>(QStringLiteral("Label6"))->text(), text);
    }

    void disclaimerHasItsThreeLines() {
        const QStringList lines =
            child<QLabel>(QStringLiteral("lblDisclaimer"))->text().split(QStringLiteral("\r\n"));
        QCOMPARE(lines.size(), 3);
        QVERIFY(lines[0].contains(QStringLiteral("MIT License")));
        QCOMPARE(lines[0].count(u'.'), 1); // one sentence
        QVERIFY(lines[0].endsWith(u'.'));
        QCOMPARE(lines[1], QStringLiteral("Please consider a small donation. Thank you!"));
        QVERIFY(lines[2].startsWith(QStringLiteral("73'' ")));
        QVERIFY(lines[2].size() > 5);
    }

    void decorationIsThere_data() {
        QTest::addColumn<QString>("control");
        for (const char* const control : {"Image1", "Image3", "Line1"})
            QTest::newRow(control) << QString::fromLatin1(control);
    }

    void decorationIsThere() {
        QFETCH(const QString, control);
        const auto* picture = child<QWidget>(control);
        QVERIFY(picture->isVisible());
        QCOMPARE(picture->focusPolicy(), Qt::NoFocus);
        QVERIFY2(!isBlank(*picture->parentWidget(), picture->geometry().adjusted(0, -1, 0, 1)),
                 "nothing is drawn");
    }

    void donationPictureHasItsTipAndAName() {
        const auto* picture = child<QAbstractButton>(QStringLiteral("Image2"));
        QCOMPARE(picture->toolTip(),
                 QStringLiteral("Make a donation to support this and future project. Keep free "
                                "HAM-soft alive please!"));
        QVERIFY(!picture->accessibleName().isEmpty());
    }

    void linksOpenTheirAddresses_data() {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QByteArray>("address");
        QTest::newRow("home page")
            << QStringLiteral("Label2") << QByteArray("http://www.orbisgrid.example/");
        QTest::newRow("mail") << QStringLiteral("Label4")
                              << QByteArray("mailto:zz9qx@orbisgrid.example"
                                            "?subject=Orbisgrid v311");
        QTest::newRow("updates") << QStringLiteral("Command1")
                                 << QByteArray("http://www.orbisgrid.example"
                                               "/hamradio/orbisgrid.htm");
        QTest::newRow("donation")
            << QStringLiteral("Image2")
            << QByteArray("https://www.donations.example/cgi-bin/webscr?cmd=_xclick"
                          "&business=zz9qx%40orbisgrid.example&item_name=ZZ9QX-Orbisgrid"
                          "&no_shipping=0&cn=Comments%3a&tax=0&currency_code=EUR&lc=US"
                          "&bn=PP%2dDonationsBF&charset=UTF%2d8");
    }

    void linksOpenTheirAddresses() {
        QFETCH(const QString, control);
        QFETCH(const QByteArray, address);
        QTest::mouseClick(child<QAbstractButton>(control), Qt::LeftButton);
        QCOMPARE(m_box->takeOpenedAddress().value_or("none"), address);
        QVERIFY(m_box->nothingStarted());
    }

    void linksAreFollowedByKeys_data() {
        QTest::addColumn<QString>("control");
        QTest::addColumn<int>("key");
        for (const char* const control : {"Label2", "Label4", "Image2"}) {
            for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
                QTest::newRow(
                    qPrintable(QStringLiteral("%1, key %2").arg(QLatin1String(control)).arg(key)))
                    << QString::fromLatin1(control) << int(key);
        }
    }

    void linksAreFollowedByKeys() {
        QFETCH(const QString, control);
        QFETCH(const int, key);
        auto* link = child<QAbstractButton>(control);
        QVERIFY(reachedWithTab(*link));
        QTest::keyClick(link, static_cast<Qt::Key>(key));
        QVERIFY(m_box->takeOpenedAddress());
        QVERIFY2(m_about->isVisible(), "the key pressed OK as well");
        QVERIFY(m_box->nothingStarted());
    }

    void tabWalksInReadingOrder() {
        const QStringList order{QStringLiteral("cmdOK"),      QStringLiteral("Label2"),
                                QStringLiteral("Label4"),     QStringLiteral("Image2"),
                                QStringLiteral("cmdSysInfo"), QStringLiteral("Command1"),
                                QStringLiteral("cmdOK")};
        for (const QString& control : order) {
            QCOMPARE(m_about->focusWidget()->objectName(), control);
            QTest::keyClick(m_about->focusWidget(), Qt::Key_Tab);
        }
    }

    void everyControlWithTheFocusHasAName() {
        open(1);
        QCOMPARE(test::controlsThatSayNothing(*m_about), QStringList());
    }

    void noTextIsCut_data() { test::addFontSizes(); }

    void noTextIsCut() {
        QFETCH(const int, points);
        const test::FontSize size(points);
        open(1);
        for (const auto* label : m_about->findChildren<QLabel*>()) {
            const int needed = label->wordWrap() ? label->heightForWidth(label->width())
                                                 : label->sizeHint().height();
            // The layout may round a pixel away, which is no line.
            QVERIFY2(label->height() >= needed - 1, qPrintable(label->objectName()));
        }
        QVERIFY(m_about->height() <= m_about->screen()->availableSize().height());
        const auto* ok = child<QPushButton>(QStringLiteral("cmdOK"));
        QVERIFY(m_about->rect().contains(ok->geometry()));
        for (const auto* link : m_about->findChildren<QAbstractButton*>())
            QVERIFY2(link->height() >= link->sizeHint().height(), qPrintable(link->objectName()));
    }

    void linksLookLikeLinks_data() {
        QTest::addColumn<QString>("control");
        for (const char* const control : {"Label2", "Label4", "Image2"})
            QTest::newRow(control) << QString::fromLatin1(control);
    }

    void linksLookLikeLinks() {
        QFETCH(const QString, control);
        auto* link = child<QAbstractButton>(control);
        QCOMPARE(link->cursor().shape(), Qt::PointingHandCursor);
        const QImage without = link->grab().toImage();
        QVERIFY(reachedWithTab(*link));
        QVERIFY2(link->grab().toImage() != without, "the focus is not visible");
    }

    void textLinksHaveTheLinkColour() {
        QPalette palette = m_about->palette();
        palette.setColor(QPalette::Link, QColor(1, 100, 3));
        m_about->setPalette(palette);
        for (const char* const control : {"Label2", "Label4"}) {
            const QImage image = child<QWidget>(QString::fromLatin1(control))->grab().toImage();
            QVERIFY2(holds(image, QColor(1, 100, 3)), control);
        }
    }

    void withNeitherEntryTheToolIsUnavailable() {
        m_watchdog->expectMessageBox(unavailable, title, QMessageBox::NoIcon);
        clickSysInfo();
        QVERIFY(m_box->nothingStarted());
    }

    void theDesktopsToolIsStarted() {
        m_box->installProgram(QStringLiteral("hardinfo"));
        m_box->installProgram(QStringLiteral("kinfocenter"));
        m_box->setVariable("XDG_CURRENT_DESKTOP", "KDE");
        clickSysInfo();
        QVERIFY(m_box->takeStart(QStringLiteral("kinfocenter")));
        QVERIFY(m_box->nothingStarted());
    }

    void aToolThatDoesNotStartIsUnavailable() {
        const QString tool = m_box->installProgram(QStringLiteral("hardinfo"));
        QFile file(tool);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("#!/no/such/interpreter\n");
        file.close();
        m_watchdog->expectMessageBox(unavailable, title, QMessageBox::NoIcon);
        clickSysInfo();
    }

    void aPathThatDoesNotFitTheBufferIsNone() {
        m_box->installProgram(QStringLiteral("hardinfo"));
        DesktopToolRegistry registry;
        std::array<char16_t, 8> small{};
        QVERIFY(!registry.query(1, u"PATH", small));
    }

    void theMachineHasNoOtherEntry() {
        DesktopToolRegistry registry;
        const Text toolKey = u"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
        QVERIFY(registry.open(ToolRegistry::localMachine, toolKey, ToolRegistry::allAccess));
        QVERIFY(!registry.open(0x80000001, toolKey, ToolRegistry::allAccess));
        QVERIFY(!registry.open(ToolRegistry::localMachine,
                               u"SOFTWARE\\Microsoft\\Shared Tools Location",
                               ToolRegistry::allAccess));
        std::array<char16_t, 1024> buffer{};
        m_box->installProgram(QStringLiteral("hardinfo"));
        QVERIFY(registry.query(1, u"PATH", buffer));
        QVERIFY(!registry.query(1, u"VERSION", buffer));
    }

    void okCloses() {
        QTest::mouseClick(child<QPushButton>(QStringLiteral("cmdOK")), Qt::LeftButton);
        QVERIFY(QTest::qWaitFor([&] { return !m_about->isVisible(); }));
    }

    void enterPressesOk() {
        QTest::keyClick(m_about.get(), Qt::Key_Return);
        QVERIFY(QTest::qWaitFor([&] { return !m_about->isVisible(); }));
    }

    void escapeCloses() {
        QTest::keyClick(m_about.get(), Qt::Key_Escape);
        QVERIFY(QTest::qWaitFor([&] { return !m_about->isVisible(); }));
    }

private:
    void open(int useCounter) {
        m_about = std::make_unique<frmAbout>(useCounter, m_registry);
        m_about->show();
        QVERIFY(QTest::qWaitForWindowActive(m_about.get()));
    }

    void clickSysInfo() {
        QTest::mouseClick(child<QPushButton>(QStringLiteral("cmdSysInfo")), Qt::LeftButton);
    }

    template <typename Widget>
    Widget* child(const QString& name) const {
        auto* widget = m_about->findChild<Widget*>(name);
        if (widget == nullptr)
            qFatal("no control %s", qPrintable(name));
        return widget;
    }

    bool reachedWithTab(const QWidget& wanted) {
        for (int i = 0; i < 10 && !wanted.hasFocus(); ++i)
            QTest::keyClick(m_about->focusWidget(), Qt::Key_Tab);
        return wanted.hasFocus();
    }

    static bool isBlank(QWidget& window, const QRect& part) {
        const QImage image = window.grab(part).toImage();
        const QRgb first = image.pixel(0, 0);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixel(x, y) != first)
                    return false;
            }
        }
        return true;
    }

    static bool holds(const QImage& image, const QColor& colour) {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == colour)
                    return true;
            }
        }
        return false;
    }

    std::unique_ptr<test::SealedBox> m_box;
    std::unique_ptr<test::DialogWatchdog> m_watchdog;
    DesktopToolRegistry m_registry;
    std::unique_ptr<frmAbout> m_about;
};

QTEST_MAIN(AboutWindowTest)
#include "about_window_test.moc"
