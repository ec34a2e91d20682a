#include "tests/support/accessible_tree.h"
#include "tests/support/font_size.h"
#include "tests/ui/main_window_fixture.h"
#include "ui/desktop_tool_registry.h"
#include "ui/qt_text.h"

#include <QAccessible>
#include <QCheckBox>
#include <QClipboard>
#include <QDialog>
#include <QGuiApplication>
#include <QScreen>
#include <QWheelEvent>

using namespace orbisgrid;

class LocatorConverterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void init() { m_main = std::make_unique<test::MainWindow>(); }

    void cleanup() {
        QVERIFY(m_main->watchdog().allCame());
        QVERIFY(m_main->box().nothingStarted());
        m_main.reset();
    }

    // Start ---------------------------------------------------------------------------------

    void aFreshWindowIsEmpty() {
        m_main->open();
        QCOMPARE(m_main->window().windowTitle(), QStringLiteral("Orbisgrid"));
        QCOMPARE(m_main->window().objectName(), QStringLiteral("LocatorConverter"));
        QCOMPARE(m_main->text("txtHome"), QString());
        QCOMPARE(m_main->text("txtLocator"), QString());
        QCOMPARE(m_main->text("chkOnTop"), QStringLiteral("Stay on top"));
        QCOMPARE(m_main->button("cmdRefresh").toolTip(),
                 QStringLiteral("New entry refresh: Clear all fields"));
        QVERIFY(m_main->button("cmdShowMapURL").isVisible());
    }

    void theFileFillsTheWindow() {
        test::IniText ini;
        ini.titleNote = ";  Zürich";
        ini.defaultHome = "JO20AW";
        ini.defaultTarget = "fn42";
        ini.stayOnTop = " 1 ";
        ini.homeLines = test::listLines("JO20AW,   ,FN42AA");
        ini.targetLines = test::listLines("KN51AA");
        m_main->open(ini);
        QCOMPARE(m_main->window().windowTitle(), QStringLiteral("Orbisgrid -   Zürich"));
        QCOMPARE(m_main->text("txtHome"), QStringLiteral("JO20AW"));
        QCOMPARE(m_main->text("txtTarget"), QStringLiteral("fn42"));
        QCOMPARE(m_main->list("cmbHome").count(), 3);
        QCOMPARE(m_main->list("cmbHome").itemText(1), QStringLiteral("   "));
        QCOMPARE(m_main->list("cmbTarget").count(), 1);
        QCOMPARE(m_main->list("cmbTarget").currentIndex(), -1);
        QVERIFY(m_main->child<QCheckBox>(QStringLiteral("chkOnTop")).isChecked());
        QVERIFY(m_main->window().windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
    }

    void theCaptionShowsTheNoteAsItStands_data() {
        QTest::addColumn<QString>("note");
        for (const char* note : {"[*] QTH", "QTH [*]", "[*][*] QTH", "a[*]b[*][*]c[*]", "[**] [*"})
            QTest::newRow(note) << QString::fromLatin1(note);
    }

    /// Qt has a meaning of its own for "[*]" in a title.
    void theCaptionShowsTheNoteAsItStands() {
        QFETCH(const QString, note);
        test::IniText ini;
        ini.titleNote = ";" + note.toStdString();
        m_main->open(ini);
        QCOMPARE(m_main->window().windowHandle()->title(), QStringLiteral("Orbisgrid - ") + note);
        QAccessibleInterface* shown = QAccessible::queryAccessibleInterface(&m_main->window());
        QCOMPARE(shown->text(QAccessible::Name), QStringLiteral("Orbisgrid - ") + note);
    }

    void theFocusIsInHomeAtTheStart_data() {
        QTest::addColumn<QString>("stayOnTop");
        QTest::newRow("as usual") << QStringLiteral(" 0 ");
        QTest::newRow("on top") << QStringLiteral(" 1 ");
    }

    void theFocusIsInHomeAtTheStart() {
        test::IniText ini;
        QFETCH(const QString, stayOnTop);
        ini.stayOnTop = stayOnTop.toStdString();
        m_main->open(ini);
        QCOMPARE(m_main->focus(), QStringLiteral("txtHome"));
    }

    void onlyOneSetsStayOnTop() {
        test::IniText ini;
        ini.stayOnTop = "-1 ";
        m_main->open(ini);
        QVERIFY(!m_main->child<QCheckBox>(QStringLiteral("chkOnTop")).isChecked());
    }

    void position_data() {
        QTest::addColumn<QString>("remember");
        QTest::addColumn<QString>("left");
        QTest::addColumn<QString>("top");
        QTest::addColumn<int>("x"); // -1: not looked at
        QTest::addColumn<int>("y");
        QTest::newRow("both") << QStringLiteral(" 1 ") << QStringLiteral(" 1500 ")
                              << QStringLiteral(" 750 ") << 100 << 50;
        QTest::newRow("a left of 0 is not applied")
            << QStringLiteral(" 1 ") << QStringLiteral(" 0 ") << QStringLiteral(" 750 ") << -1
            << 50;
        QTest::newRow("a negative top is not applied")
            << QStringLiteral(" 1 ") << QStringLiteral(" 1500 ") << QStringLiteral("-480 ") << 100
            << -1;
    }

    void position() {
        QFETCH(const int, x);
        QFETCH(const int, y);
        m_main->open(iniWithPosition());
        if (x >= 0)
            QCOMPARE(m_main->window().pos().x(), x);
        else
            QVERIFY(m_main->window().pos().x() > 0);
        if (y >= 0)
            QCOMPARE(m_main->window().pos().y(), y);
        else
            QVERIFY(m_main->window().pos().y() > 0);
    }

    void aWindowOfAScreenThatIsGoneOpensOnOneThatIsThere() {
        test::IniText ini;
        ini.remember = " 1 ";
        ini.left = " 90000 ";
        ini.top = " 90000 ";
        m_main->open(ini);
        const QRect screen = m_main->window().screen()->availableGeometry();
        QVERIFY(screen.contains(m_main->window().geometry()));
        QVERIFY2(m_main->window().x() > 0 && m_main->window().y() > 0, "at its nearest place");
        QCOMPARE(m_main->iniLines().at(17), QStringLiteral(" 90000 "));
        m_main->close();
        QVERIFY(m_main->iniLines().at(17) != QStringLiteral(" 90000 "));
    }

    void aPositionIsLeftAloneUnlessRemembered() {
        test::IniText ini;
        ini.left = " 1500 ";
        ini.top = " 750 ";
        m_main->open(ini);
        QVERIFY(m_main->window().pos() != QPoint(100, 50));
    }

    void theCounterShowsTheNumberRead() {
        m_main->open();
        QCOMPARE(counter(), QStringLiteral("2"));
        m_main->watchdog().expectDialog(QStringLiteral("frmAbout"), [](QDialog& about) {
            QCOMPARE(about.findChild<QLabel*>(QStringLiteral("Label6"))->text(),
                     QStringLiteral("You have used this program 1 times."));
        });
        m_main->click("cmdAbout");
    }

    void homePageOpensEveryThirtyRuns_data() {
        QTest::addColumn<QString>("count");
        QTest::addColumn<QString>("noCheck");
        QTest::addColumn<bool>("online");
        QTest::addColumn<bool>("opens");
        QTest::newRow("nineteen") << QStringLiteral("19") << QStringLiteral(" 0 ") << true << false;
        QTest::newRow("twenty") << QStringLiteral("20") << QStringLiteral(" 0 ") << true << true;
        QTest::newRow("twenty-one")
            << QStringLiteral("21") << QStringLiteral(" 0 ") << true << false;
        QTest::newRow("fifty") << QStringLiteral("50") << QStringLiteral(" 0 ") << true << true;
        QTest::newRow("twenty, offline")
            << QStringLiteral("20") << QStringLiteral(" 0 ") << false << false;
        QTest::newRow("twenty, suppressed")
            << QStringLiteral("20") << QStringLiteral(" 1 ") << true << false;
    }

    void homePageOpensEveryThirtyRuns() {
        QFETCH(const QString, count);
        QFETCH(const QString, noCheck);
        QFETCH(const bool, online);
        QFETCH(const bool, opens);
        setCounter(count);
        m_main->setOnline(online);
        test::IniText ini;
        ini.noCheck = noCheck.toStdString();
        m_main->open(ini);
        QCOMPARE(counter(), QString::number(count.toInt() + 1));
        if (opens)
            QCOMPARE(m_main->box().takeOpenedAddress(),
                     QByteArray("http://www.orbisgrid.example/"));
        QVERIFY(m_main->box().nothingStarted());
    }

    void theStartThatOpensTheHomePageIsCountedBefore() {
        setCounter(QStringLiteral("20"));
        m_main->box().writeProgramFile(QStringLiteral("Orbisgrid.ini"),
                                       QByteArray::fromStdString(test::IniText().bytes()));
        PerUserStore store(settingsPath().toStdString());
        DesktopToolRegistry registry;
        LocatorConverter window({store,
                                 m_main->box().programFolder().toStdString(),
                                 [] { return true; },
                                 registry,
                                 {}});
        window.Form_Load();
        QCOMPARE(m_main->box().takeOpenedAddress(), QByteArray("http://www.orbisgrid.example/"));
        QCOMPARE(counter(), QStringLiteral("21"));
    }

    void mapButtonHidesOffline_data() {
        QTest::addColumn<bool>("online");
        QTest::addColumn<QString>("noCheck");
        QTest::addColumn<bool>("visible");
        QTest::newRow("online") << true << QStringLiteral(" 0 ") << true;
        QTest::newRow("offline") << false << QStringLiteral(" 0 ") << false;
        QTest::newRow("offline, not checked") << false << QStringLiteral(" 1 ") << true;
    }

    void mapButtonHidesOffline() {
        QFETCH(const bool, online);
        QFETCH(const QString, noCheck);
        QFETCH(const bool, visible);
        m_main->setOnline(online);
        test::IniText ini;
        ini.noCheck = noCheck.toStdString();
        m_main->open(ini);
        QCOMPARE(m_main->button("cmdShowMapURL").isVisible(), visible);
    }

    // End -----------------------------------------------------------------------------------

    void closingWritesTheFile() {
        test::IniText ini;
        ini.titleNote = ";  my station";
        ini.noCheck = " 7 ";
        m_main->open(ini);
        m_main->type("txtHome", QStringLiteral("JO20AW"));
        m_main->type("txtTarget", QStringLiteral("FN42AA"));
        m_main->click("cmdCalculateDistDir");
        m_main->click("chkOnTop");
        m_main->window().move(100, 50);
        m_main->close();
        const QStringList wanted{QStringLiteral(";Orbisgrid, by ZZ9QX (c)2002-2015 version 3.1.1"),
                                 QStringLiteral(";  my station"),
                                 QStringLiteral("[Default home]"),
                                 QString(),
                                 QStringLiteral("[Default Target]"),
                                 QString(),
                                 QStringLiteral("[StayonTop]"),
                                 QStringLiteral(" 1 "),
                                 QStringLiteral("[Home data]"),
                                 QStringLiteral("JO20AW"),
                                 QStringLiteral("[**end**]"),
                                 QStringLiteral("[Target data]"),
                                 QStringLiteral("FN42AA"),
                                 QStringLiteral("[**end**]"),
                                 QStringLiteral("[NoCheckWebUpdates]"),
                                 QStringLiteral(" 7 "),
                                 QStringLiteral("[RememberPosition]"),
                                 QStringLiteral(" 0 "),
                                 QStringLiteral("[Left]"),
                                 QStringLiteral(" 1500 "),
                                 QStringLiteral("[Top]"),
                                 QStringLiteral(" 750 "),
                                 QString()};
        QCOMPARE(m_main->iniLines(), wanted);
    }

    void exitWritesTheFile() {
        m_main->open();
        m_main->click("chkOnTop");
        m_main->click("cmdExit");
        QVERIFY(!m_main->window().isVisible());
        QCOMPARE(m_main->iniLines().at(7), QStringLiteral(" 1 "));
    }

    void aFolderThatCannotBeWrittenIsPassedOver() {
        m_main->open();
        QVERIFY(QFile::remove(m_main->iniPath()));
        QVERIFY(QDir().mkdir(m_main->iniPath())); // nobody can write a file there, not even root
        m_main->close();
        QVERIFY(
            QFileInfo(m_main->box().programFolder() + QStringLiteral("/Orbisgrid.ini")).isDir());
    }

    void defaultsComeBackInUpperCase() {
        m_main->open();
        m_main->edit("txtHome").setText(QStringLiteral("jo20"));
        m_main->click("cmdDefault_0");
        m_main->close();
        const QByteArray saved =
            m_main->box().programFile(QStringLiteral("Orbisgrid.ini")).value_or(QByteArray());
        m_main->open(saved);
        QCOMPARE(m_main->text("txtHome"), QStringLiteral("JO20"));
    }

    // Options and buttons -------------------------------------------------------------------

    void stayOnTopNeitherHidesNorRemakesTheWindow() {
        m_main->open();
        const WId before = m_main->window().winId();
        m_main->edit("txtHome").setFocus();
        m_main->click("chkOnTop");
        QVERIFY(m_main->window().isVisible());
        QCOMPARE(m_main->window().winId(), before);
        QVERIFY(m_main->window().windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
        QCOMPARE(m_main->focus(), QStringLiteral("picFocus"));
        m_main->click("chkOnTop");
        QVERIFY(!m_main->window().windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
    }

    void refreshClearsOnePartAndKeepsTheOther() {
        m_main->open();
        m_main->type("txtHome", QStringLiteral("JO20AW"));
        m_main->type("txtTarget", QStringLiteral("FF46AD"));
        m_main->click("cmdCalculateDistDir");
        const QString compressed = m_main->text("lblCompressed");
        m_main->click("cmdRefresh");
        for (const char* empty : {"txtHome", "txtTarget", "txtLocator", "txtUIView"})
            QCOMPARE(m_main->text(empty), QString());
        for (const char* zero : {"txtDecLat", "txtDecLong"})
            QCOMPARE(m_main->text(zero), QStringLiteral("0"));
        for (const char* zeros :
             {"txtlatdms_0", "txtlatdms_1", "txtlatdms_2", "txtlondms_1", "txtlondms_2"})
            QCOMPARE(m_main->text(zeros), QStringLiteral("00"));
        QCOMPARE(m_main->text("txtlondms_0"), QStringLiteral("000"));
        QCOMPARE(m_main->list("cmbDmsNS").currentText(), QStringLiteral("N"));
        QCOMPARE(m_main->list("cmbDmsWE").currentText(), QStringLiteral("E"));
        QCOMPARE(m_main->text("lblDistKm"), QStringLiteral("0 Km"));
        QCOMPARE(m_main->text("lblDistMile"), QStringLiteral("0 Miles"));
        QCOMPARE(m_main->text("lblAzimuth"), QStringLiteral("0 Degrees"));
        QCOMPARE(m_main->text("lblTargetLat"), QStringLiteral("0°"));
        QCOMPARE(m_main->text("lblTargetLong"), QStringLiteral("0°"));
        QCOMPARE(m_main->text("lblHomeLat"), QStringLiteral("50.9375N°"));
        QCOMPARE(m_main->text("lblCompressed"), compressed);
        QCOMPARE(m_main->text("lblHomeLong"), QStringLiteral("4.041667E°"));
        QCOMPARE(m_main->list("cmbHome").count(), 1);
        QCOMPARE(m_main->list("cmbTarget").count(), 1);
    }

    void helpAndAboutOpenModal() {
        m_main->open();
        const auto expectModal = [this](const char* name) {
            m_main->watchdog().expectDialog(QString::fromLatin1(name), [this](QDialog& dialog) {
                QVERIFY(dialog.isModal());
                QCOMPARE(dialog.parentWidget(), &m_main->window());
            });
        };
        expectModal("Help");
        m_main->click("cmdHelp");
        expectModal("frmAbout");
        m_main->click("cmdAbout");
    }

    // Keyboard ------------------------------------------------------------------------------

    void shortcuts_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("focus");
        QTest::newRow("Alt+H") << int(Qt::Key_H) << QStringLiteral("txtHome");
        QTest::newRow("Alt+T") << int(Qt::Key_T) << QStringLiteral("txtTarget");
        QTest::newRow("Alt+L") << int(Qt::Key_L) << QStringLiteral("txtLocator");
        QTest::newRow("Alt+D") << int(Qt::Key_D) << QStringLiteral("txtDecLat");
        QTest::newRow("Alt+M") << int(Qt::Key_M) << QStringLiteral("txtlatdms_0");
        QTest::newRow("Alt+U") << int(Qt::Key_U) << QStringLiteral("txtUIView");
    }

    void shortcuts() {
        QFETCH(const int, key);
        QFETCH(const QString, focus);
        m_main->open();
        m_main->button("cmdExit").setFocus();
        QTest::keyClick(&m_main->window(), static_cast<Qt::Key>(key), Qt::AltModifier);
        QCOMPARE(m_main->focus(), focus);
    }

    void keysPressTheirButtons() {
        m_main->open();
        m_main->edit("txtHome").setText(QStringLiteral("JO20AW"));
        m_main->edit("txtTarget").setText(QStringLiteral("FN42AA"));
        QTest::keyClick(&m_main->window(), Qt::Key_C, Qt::AltModifier);
        QCOMPARE(m_main->text("lblDistKm"), QStringLiteral("5637 Km"));
        QTest::keyClick(&m_main->window(), Qt::Key_S, Qt::AltModifier);
        QVERIFY(m_main->child<QCheckBox>(QStringLiteral("chkOnTop")).isChecked());
        QTest::keyClick(&m_main->window(), Qt::Key_F5);
        QCOMPARE(m_main->text("lblDistKm"), QStringLiteral("0 Km"));
        m_main->watchdog().expectDialog(QStringLiteral("Help"), [](QDialog&) {});
        QTest::keyClick(&m_main->window(), Qt::Key_F1);
    }

    void enterLeavesTheCheckBoxAlone() {
        m_main->open();
        m_main->pressEnter("chkOnTop");
        QVERIFY(!m_main->child<QCheckBox>(QStringLiteral("chkOnTop")).isChecked());
    }

    void controlQExits() {
        m_main->open();
        QTest::keyClick(&m_main->window(), Qt::Key_Q, Qt::ControlModifier);
        QVERIFY(!m_main->window().isVisible());
    }

    void tabRingRunsInReadingOrder() {
        m_main->open();
        m_main->edit("txtHome").setFocus();
        QStringList ring;
        do {
            ring.append(m_main->focus());
            QTest::keyClick(m_main->window().focusWidget(), Qt::Key_Tab);
        } while (m_main->focus() != ring.first() && ring.size() < 100);
        const QStringList wanted =
            QStringLiteral(
                "txtHome txtTarget cmdCalculateDistDir cmbHome cmdClear1Item_0 cmdClear_0 "
                "cmdDefault_0 "
                "cmbTarget cmdClear1Item_1 cmdClear_1 cmdDefault_1 lblDistKm lblDistMile "
                "lblAzimuth "
                "lblHomeLat lblHomeLong lblTargetLat lblTargetLong Command1 "
                "cmdShowPathMap cmdShowMapURL "
                "txtLocator cmdOKLocator Command10 Command9 "
                "txtDecLat txtDecLong cmdOKDecimal Command11 "
                "txtlatdms_0 txtlatdms_1 txtlatdms_2 cmbDmsNS "
                "txtlondms_0 txtlondms_1 txtlondms_2 cmbDmsWE cmdOkDMS Command13 "
                "txtUIView lblCompressed cmdOkUIView Command15 "
                "chkOnTop cmdRefresh cmdHelp cmdAbout cmdExit")
                .split(u' ');
        QCOMPARE(ring, wanted);
    }

    void resultsAreSelectedWhenTabLeadsThere() {
        m_main->open();
        m_main->button("cmdDefault_1").setFocus();
        QTest::keyClick(m_main->window().focusWidget(), Qt::Key_Tab);
        auto& distance = m_main->child<QLabel>(QStringLiteral("lblDistKm"));
        QVERIFY(distance.hasFocus());
        QCOMPARE(distance.selectedText(), QStringLiteral("0 Km"));
        QTest::keySequence(&distance, QKeySequence::Copy);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("0 Km"));
        QTest::keyClick(&distance, Qt::Key_Tab);
        QCOMPARE(distance.selectedText(), QString());
    }

    void screenReadersFindTheTextOfAResultAndItsMeaning() {
        m_main->open();
        auto& distance = m_main->child<QLabel>(QStringLiteral("lblDistKm"));
        auto* interface = QAccessible::queryAccessibleInterface(&distance);
        QCOMPARE(interface->text(QAccessible::Name), QStringLiteral("0 Km"));
        m_main->edit("txtHome").setText(QStringLiteral("JO20AW"));
        m_main->edit("txtTarget").setText(QStringLiteral("FN42AA"));
        m_main->click("cmdCalculateDistDir");
        QCOMPARE(interface->text(QAccessible::Name), QStringLiteral("5637 Km"));
        QCOMPARE(interface->text(QAccessible::Description),
                 QStringLiteral("Distance in kilometres"));
    }

    void theWheelDoesNotChangeAListItPassesOver() {
        test::IniText ini;
        ini.homeLines = test::listLines("JO20AW,FN42AA");
        m_main->open(ini);
        m_main->type("txtHome", QStringLiteral("KN51"));
        QComboBox& list = m_main->list("cmbHome");
        QWheelEvent wheel(list.rect().center(), list.mapToGlobal(list.rect().center()), {},
                          {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&list, &wheel);
        QCOMPARE(list.currentIndex(), -1);
        QCOMPARE(m_main->text("txtHome"), QStringLiteral("KN51"));
    }

    void everyControlWithTheFocusHasAName() {
        m_main->open();
        QCOMPARE(test::controlsThatSayNothing(m_main->window()), QStringList());
        m_main->edit("txtHome").setAccessibleName({});
        m_main->button("Command9").setAccessibleName({});
        m_main->button("Command9").setText({});
        QVERIFY2(!test::controlsThatSayNothing(m_main->window()).isEmpty(), "it would be found");
    }

    void noTextIsCut_data() { test::addFontSizes(); }

    void noTextIsCut() {
        QFETCH(const int, points);
        const test::FontSize size(points);
        m_main->open();
        m_main->edit("txtHome").setText(QStringLiteral("JO20AW"));
        m_main->edit("txtTarget").setText(QStringLiteral("FN42AA"));
        m_main->click("cmdCalculateDistDir");
        QVERIFY2(QTest::qWaitFor([this] { return cutTexts().isEmpty(); }),
                 qPrintable(cutTexts().join(u'\n')));
        QVERIFY(m_main->window().height() <= m_main->window().screen()->availableSize().height());
    }

private:
    /// What has less room than it wants.
    QStringList cutTexts() {
        QStringList cut;
        for (const auto* widget : m_main->window().findChildren<QWidget*>()) {
            const bool showsText = qobject_cast<const QLabel*>(widget) != nullptr ||
                                   qobject_cast<const QAbstractButton*>(widget) != nullptr;
            const bool isWhole = widget->width() >= widget->sizeHint().width() &&
                                 widget->height() >= widget->sizeHint().height() - 1;
            if (showsText && widget->isVisible() && !isWhole)
                cut.append(widget->objectName() + u' ' + widget->property("text").toString());
        }
        return cut;
    }

    test::IniText iniWithPosition() const {
        test::IniText ini;
        ini.remember = fetched("remember").toStdString();
        ini.left = fetched("left").toStdString();
        ini.top = fetched("top").toStdString();
        return ini;
    }

    static QString fetched(const char* column) {
        return *static_cast<QString*>(QTest::qData(column, qMetaTypeId<QString>()));
    }

    QString settingsPath() { return m_main->box().configFolder() + QStringLiteral("/ZZ9QX.ini"); }

    // Not with QSettings: it keeps what it read of a file by size and time, and the program is
    // quick enough to write within one tick of the clock.

    QString counter() {
        const PerUserStore store(settingsPath().toStdString());
        return toQString(store.read(u"UseCounter", u"none").value_or(u"unreadable"));
    }

    void setCounter(const QString& count) {
        PerUserStore store(settingsPath().toStdString());
        QVERIFY(store.write({{u"UseCounter", count.toStdU16String()}}));
    }

    std::unique_ptr<test::MainWindow> m_main;
};

QTEST_MAIN(LocatorConverterTest)
#include "locator_converter_test.moc"
