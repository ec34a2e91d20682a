#include "platform/opener.h"
#include "platform/system_information.h"
#include "tests/support/sealed_box.h"

#include <QTest>

#include <memory>

using namespace orbisgrid;

/// What reaches the desktop's opener, and which program shows the machine.
class PlatformToolsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void init() { m_box = std::make_unique<test::SealedBox>(); }

    void cleanup() { m_box.reset(); }

    void anAddressKeepsEveryByte_data() {
        QTest::addColumn<QString>("address");
        QTest::newRow("escapes in lower case") << QStringLiteral("http://a.example/?b=%3a%2d");
        QTest::newRow("a blank") << QStringLiteral("mailto:a@b.example?subject=two words");
        QTest::newRow("quotes and dollars") << QStringLiteral("http://a.example/'\"$HOME`");
        QTest::newRow("letters beyond ASCII") << QStringLiteral("http://a.example/°ü€");
        QTest::newRow("a line end") << QStringLiteral("http://a.example/\r\n");
    }

    void anAddressKeepsEveryByte() {
        QFETCH(const QString, address);
        openAddress(address.toStdString());
        const auto opened = m_box->takeOpenedAddress();
        QVERIFY(opened);
        QCOMPARE(*opened, address.toUtf8());
        QVERIFY(m_box->nothingStarted());
    }

    void aMissingOpenerIsIgnored() {
        m_box->setVariable("PATH", m_box->configFolder().toUtf8());
        openAddress("http://a.example/");
        QVERIFY(m_box->nothingStarted());
    }

    void theToolOfTheDesktopComesFirst_data() {
        QTest::addColumn<QString>("desktop");
        QTest::addColumn<QString>("installed");
        QTest::addColumn<QString>("tool");
        const auto row = [](const char* name, const char* desktop, const char* installed,
                            const char* tool) {
            QTest::newRow(name) << QString::fromLatin1(desktop) << QString::fromLatin1(installed)
                                << QString::fromLatin1(tool);
        };
        row("KDE", "KDE", "hardinfo kinfocenter gnome-system-monitor", "kinfocenter");
        row("KDE in other letters", "kde", "hardinfo kinfocenter", "kinfocenter");
        row("GNOME", "GNOME", "kinfocenter gnome-system-monitor", "gnome-system-monitor");
        row("GNOME under a distribution's name", "ubuntu:GNOME", "hardinfo gnome-system-monitor",
            "gnome-system-monitor");
        row("GNOME without its monitor", "GNOME", "hardinfo gnome-control-center",
            "gnome-control-center");
        row("MATE", "MATE", "hardinfo mate-system-monitor", "mate-system-monitor");
        row("Xfce", "XFCE", "xfce4-taskmanager kinfocenter", "xfce4-taskmanager");
        row("Xfce with a tool that tells more", "XFCE", "xfce4-taskmanager hardinfo", "hardinfo");
        row("Cinnamon", "X-Cinnamon", "gnome-system-monitor kinfocenter", "gnome-system-monitor");
        row("LXQt", "LXQt", "qps kinfocenter", "qps");
        row("the first of two desktops", "MATE:KDE", "kinfocenter mate-system-monitor",
            "mate-system-monitor");
        row("a desktop without its tool", "KDE", "qps mate-system-monitor", "mate-system-monitor");
        row("an unknown desktop", "sway", "lxtask hardinfo", "hardinfo");
        row("no desktop", "", "lxtask", "lxtask");
        row("nothing installed", "KDE", "", "");
    }

    void theToolOfTheDesktopComesFirst() {
        QFETCH(const QString, desktop);
        QFETCH(const QString, installed);
        QFETCH(const QString, tool);
        QString expected;
        m_box->setVariable("XDG_CURRENT_DESKTOP", desktop.toUtf8());
        for (const QString& program : installed.split(u' ', Qt::SkipEmptyParts)) {
            const QString path = m_box->installProgram(program);
            if (program == tool)
                expected = path;
        }
        QCOMPARE(QString::fromStdString(findSystemInformationTool()), expected);
    }

private:
    std::unique_ptr<test::SealedBox> m_box;
};

QTEST_GUILESS_MAIN(PlatformToolsTest)
#include "platform_tools_test.moc"
