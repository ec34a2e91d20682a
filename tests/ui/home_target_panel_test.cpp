#include "tests/ui/main_window_fixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QToolTip>

using namespace orbisgrid;

namespace {

const QString lengthRule =
    QStringLiteral("\nA locator must exist out of at least 4 characters and no more then six. "
                   "Examples: JO20, JO20AW");

QString clipboardText() {
    return QGuiApplication::clipboard()->text();
}

QStringList itemsOf(const QComboBox& list) {
    QStringList items;
    for (int i = 0; i < list.count(); ++i)
        items.append(list.itemText(i));
    return items;
}

} // namespace

class HomeTargetPanelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void init() { m_main = std::make_unique<test::MainWindow>(); }

    void cleanup() {
        QVERIFY(m_main->watchdog().allCame());
        m_main.reset();
    }

    void captionsAndTips_data() {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("tip");
        const auto row = [](const char* control, const char* text, const char* tip) {
            QTest::newRow(control) << QString::fromLatin1(control) << QString::fromUtf8(text)
                                   << QString::fromUtf8(tip);
        };
        row("txtHome", "", "");
        row("txtTarget", "", "");
        row("cmbHome", "", "Home locator");
        row("cmbTarget", "", "Target locator");
        row("cmdCalculateDistDir", "Calculate", "Calculate distance, azimuth...");
        row("cmdClear_0", "", "Erase the entire list");
        row("cmdClear_1", "", "Erase the entire list");
        row("cmdClear1Item_0", "", "remove selected locator from list");
        row("cmdClear1Item_1", "", "remove selected locator from list");
        row("cmdDefault_0", "Default", "Make home locator default at startup");
        row("cmdDefault_1", "Default", "Make target locator default at startup");
        row("Command1", "", "copy to clipboard");
        row("cmdShowMapURL", "", "Show location on Google Maps");
        row("lblDistKm", "0 Km", "");
        row("lblDistMile", "0 Miles", "");
        row("lblAzimuth", "0 Degrees", "");
        row("lblHomeLat", "", "");
        row("lblHomeLong", "", "");
        row("lblTargetLat", "", "");
        row("lblTargetLong", "", "");
    }

    void captionsAndTips() {
        QFETCH(const QString, control);
        QFETCH(const QString, text);
        QFETCH(const QString, tip);
        m_main->open();
        const auto& widget = m_main->child<QWidget>(control);
        QCOMPARE(widget.property("text").toString(), text);
        QCOMPARE(widget.toolTip(), tip);
    }

    void staticLabelsAreThere() {
        m_main->open();
        QStringList texts;
        for (const QLabel* label : m_main->window().findChildren<QLabel*>())
            texts.append(label->text());
        for (const char* caption : {"Home: ", "Target: ", "Home>", "Target>", "Home>  Latitude:",
                                    "Target> Latitude:", "Longitude:", "Distance:", "Azimuth:"})
            QVERIFY2(texts.contains(QString::fromLatin1(caption)), caption);
    }

    void calculateFillsLabelsListsAndConverter() {
        m_main->open();
        m_main->type("txtHome", QStringLiteral("JO20AW"));
        m_main->type("txtTarget", QStringLiteral("FN42AA"));
        m_main->click("cmdCalculateDistDir");
        QCOMPARE(m_main->text("lblDistKm"), QStringLiteral("5637 Km"));
        QCOMPARE(m_main->text("lblDistMile"), QStringLiteral("3520 Miles"));
        QCOMPARE(m_main->text("lblAzimuth"), QStringLiteral("291 degrees"));
        QCOMPARE(m_main->text("lblHomeLat"), QStringLiteral("50.9375N°"));
        QCOMPARE(m_main->text("lblHomeLong"), QStringLiteral("4.041667E°"));
        QCOMPARE(m_main->text("lblTargetLat"), QStringLiteral("42.02083N°"));
        QCOMPARE(m_main->text("lblTargetLong"), QStringLiteral("-71.95834W°"));
        QCOMPARE(itemsOf(m_main->list("cmbHome")), QStringList{QStringLiteral("JO20AW")});
        QCOMPARE(itemsOf(m_main->list("cmbTarget")), QStringList{QStringLiteral("FN42AA")});
        QCOMPARE(m_main->list("cmbHome").currentIndex(), -1);
        QCOMPARE(m_main->text("txtLocator"), QStringLiteral("FN42AA"));
        QCOMPARE(m_main->edit("txtLocator").selectedText(), QStringLiteral("FN42AA"));
        QCOMPARE(m_main->text("txtUIView"), QStringLiteral("=4201.15N/07157.30W"));
        QCOMPARE(m_main->focus(), QStringLiteral("picFocus"));
    }

    void calculateCompletesTheBoxesAndRemembersOnce() {
        m_main->open();
        m_main->type("txtHome", QStringLiteral("jo20"));
        m_main->type("txtTarget", QStringLiteral("fn42"));
        m_main->click("cmdCalculateDistDir");
        m_main->click("cmdCalculateDistDir");
        QCOMPARE(m_main->text("txtHome"), QStringLiteral("JO20LL"));
        QCOMPARE(m_main->text("txtTarget"), QStringLiteral("FN42LL"));
        QCOMPARE(itemsOf(m_main->list("cmbHome")), QStringList{QStringLiteral("JO20LL")});
        QCOMPARE(itemsOf(m_main->list("cmbTarget")), QStringList{QStringLiteral("FN42LL")});
    }

    void refusalsNameTheirBoxAndLeadToItsList() {
        m_main->open();
        m_main->type("txtHome", QStringLiteral("JO2"));
        m_main->type("txtTarget", QStringLiteral("FN4"));
        m_main->watchdog().expectMessageBox(QStringLiteral("Invallid Home Locator!") + lengthRule,
                                            QStringLiteral("Invalid Home Locator"),
                                            QMessageBox::Warning);
        m_main->click("cmdCalculateDistDir");
        QCOMPARE(m_main->focus(), QStringLiteral("cmbHome"));
        m_main->type("txtHome", QStringLiteral("JO20"));
        m_main->watchdog().expectMessageBox(QStringLiteral("Invallid Target Locator!") + lengthRule,
                                            QStringLiteral("Invalid Target Locator"),
                                            QMessageBox::Warning);
        m_main->click("cmdCalculateDistDir");
        QCOMPARE(m_main->focus(), QStringLiteral("cmbTarget"));
        m_main->type("txtTarget", QStringLiteral("FN4A"));
        m_main->watchdog().expectMessageBox(QStringLiteral("Invalid locator!"),
                                            QStringLiteral("Invalid locator format"),
                                            QMessageBox::Warning);
        m_main->click("cmdCalculateDistDir");
        QCOMPARE(m_main->focus(), QStringLiteral("cmdCalculateDistDir"));
        QCOMPARE(m_main->text("lblDistKm"), QStringLiteral("0 Km"));
        QCOMPARE(m_main->list("cmbHome").count(), 0);
    }

    void boxesTakeSixCharacters() {
        m_main->open();
        m_main->type("txtHome", QStringLiteral("JO20AWXX"));
        QCOMPARE(m_main->text("txtHome"), QStringLiteral("JO20AW"));
        QCOMPARE(m_main->edit("txtTarget").maxLength(), 6);
    }

    void lettersAreUpperCasedOnRelease() {
        m_main->open();
        QLineEdit& home = m_main->edit("txtHome");
        m_main->type("txtHome", QStringLiteral("jo20aw"));
        QCOMPARE(home.text(), QStringLiteral("JO20AW"));
        home.setText(QStringLiteral("jo20"));
        home.setCursorPosition(2);
        QTest::keyRelease(&home, Qt::Key_5);
        QCOMPARE(home.text(), QStringLiteral("jo20"));
        QTest::keyRelease(&home, Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(home.text(), QStringLiteral("JO20"));
        QCOMPARE(home.cursorPosition(), 2);
    }

    void aReleaseThatChangesNothingKeepsTheSelection() {
        m_main->open();
        QLineEdit& home = m_main->edit("txtHome");
        home.setText(QStringLiteral("JO20AW"));
        home.setSelection(1, 3);
        QTest::keyRelease(&home, Qt::Key_A);
        QCOMPARE(home.selectedText(), QStringLiteral("O20"));
    }

    void arrowsLeadFromBoxToBox() {
        m_main->open();
        m_main->type("txtHome", QStringLiteral("JO20AW"));
        m_main->type("txtTarget", QStringLiteral("FN42AA"));
        QTest::keyClick(&m_main->edit("txtTarget"), Qt::Key_Up);
        QCOMPARE(m_main->focus(), QStringLiteral("txtHome"));
        QCOMPARE(m_main->edit("txtHome").selectedText(), QStringLiteral("JO20AW"));
        QTest::keyClick(&m_main->edit("txtHome"), Qt::Key_Down);
        QCOMPARE(m_main->focus(), QStringLiteral("txtTarget"));
        QCOMPARE(m_main->edit("txtTarget").selectedText(), QStringLiteral("FN42AA"));
    }

    void enterInHome_data() {
        QTest::addColumn<QString>("home");
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("focus");
        QTest::addColumn<bool>("calculates");
        QTest::newRow("an empty target comes next")
            << QStringLiteral("JO20AW") << QString() << QStringLiteral("txtTarget") << false;
        QTest::newRow("a target of two characters comes next")
            << QStringLiteral("JO20AW") << QStringLiteral("FN") << QStringLiteral("txtTarget")
            << false;
        QTest::newRow("both filled: calculates")
            << QStringLiteral("jo20aw") << QStringLiteral("FN42AA") << QStringLiteral("txtHome")
            << true;
        QTest::newRow("a home of three characters does nothing")
            << QStringLiteral("JO2") << QStringLiteral("FN42AA") << QStringLiteral("txtHome")
            << false;
    }

    void enterInHome() {
        QFETCH(const QString, home);
        QFETCH(const QString, target);
        QFETCH(const QString, focus);
        QFETCH(const bool, calculates);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
            m_main = std::make_unique<test::MainWindow>();
            m_main->open();
            m_main->edit("txtHome").setText(home);
            m_main->edit("txtTarget").setText(target);
            m_main->pressEnter("txtHome", key);
            QCOMPARE(m_main->focus(), focus);
            QCOMPARE(m_main->text("lblDistKm") == QStringLiteral("5637 Km"), calculates);
            QCOMPARE(m_main->text("txtHome"), calculates ? home.toUpper() : home);
        }
    }

    void enterInTarget() {
        m_main->open();
        m_main->edit("txtHome").setText(QStringLiteral("JO20AW"));
        m_main->edit("txtTarget").setText(QStringLiteral("FN4"));
        m_main->pressEnter("txtTarget");
        QCOMPARE(m_main->text("lblDistKm"), QStringLiteral("0 Km"));
        m_main->edit("txtTarget").setText(QStringLiteral("fn42aa"));
        m_main->pressEnter("txtTarget");
        QCOMPARE(m_main->text("lblDistKm"), QStringLiteral("5637 Km"));
        QCOMPARE(m_main->text("txtTarget"), QStringLiteral("FN42AA"));
        QCOMPARE(m_main->focus(), QStringLiteral("txtTarget"));
    }

    void enterOnTheButtonCalculates() {
        m_main->open();
        m_main->edit("txtHome").setText(QStringLiteral("JO20AW"));
        m_main->edit("txtTarget").setText(QStringLiteral("FN42AA"));
        m_main->pressEnter("cmdCalculateDistDir");
        QCOMPARE(m_main->text("lblDistKm"), QStringLiteral("5637 Km"));
    }

    void rightButtonSelectsFromTheCaret() {
        m_main->open();
        QLineEdit& home = m_main->edit("txtHome");
        home.setText(QStringLiteral("JO20AW"));
        home.setCursorPosition(2);
        QTest::mousePress(&home, Qt::RightButton);
        QCOMPARE(home.selectedText(), QStringLiteral("20AW"));
        QTest::mousePress(&home, Qt::RightButton);
        QCOMPARE(home.selectedText(), QStringLiteral("20AW"));
        home.selectAll();
        QTest::mousePress(&home, Qt::RightButton);
        QCOMPARE(home.selectedText(), QStringLiteral("JO20AW"));
    }

    void aPasteLosesWhatStandsAround() {
        m_main->open();
        QGuiApplication::clipboard()->setText(QStringLiteral("  jo20aw\r\n"));
        m_main->edit("txtHome").setFocus();
        QTest::keySequence(&m_main->edit("txtHome"), QKeySequence::Paste);
        QCOMPARE(m_main->text("txtHome").toUpper(), QStringLiteral("JO20AW"));
    }

    void choosingAnItemFillsTheBoxAndCalculatesNothing() {
        test::IniText ini;
        ini.homeLines = test::listLines("JO20AW,FN42AA");
        m_main->open(ini);
        QComboBox& list = m_main->list("cmbHome");
        QCOMPARE(list.currentIndex(), -1);
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_Down);
        QCOMPARE(m_main->text("txtHome"), QStringLiteral("JO20AW"));
        QCOMPARE(m_main->focus(), QStringLiteral("txtHome"));
        QCOMPARE(m_main->edit("txtHome").selectedText(), QStringLiteral("JO20AW"));
        QCOMPARE(m_main->text("lblDistKm"), QStringLiteral("0 Km"));
    }

    void clearingAListAsksFirst() {
        test::IniText ini;
        ini.homeLines = test::listLines("JO20AW,FN42AA");
        ini.targetLines = test::listLines("JN00AA");
        ini.defaultHome = "JO20";
        m_main->open(ini);
        const auto question = QStringLiteral("Do you want to clear the contents of the Home list?");
        m_main->watchdog().expectMessageBox(question, QStringLiteral("Clear Home"),
                                            QMessageBox::Question, QMessageBox::No);
        m_main->click("cmdClear_0");
        QCOMPARE(m_main->list("cmbHome").count(), 2);
        QCOMPARE(m_main->text("txtHome"), QStringLiteral("JO20"));
        m_main->watchdog().expectMessageBox(question, QStringLiteral("Clear Home"),
                                            QMessageBox::Question, QMessageBox::Yes);
        m_main->click("cmdClear_0");
        QCOMPARE(m_main->list("cmbHome").count(), 0);
        QCOMPARE(m_main->text("txtHome"), QString());
        QCOMPARE(m_main->list("cmbTarget").count(), 1);
        m_main->watchdog().expectMessageBox(
            QStringLiteral("Do you want to clear the contents of the Target list?"),
            QStringLiteral("Clear Target"), QMessageBox::Question, QMessageBox::Yes);
        m_main->edit("txtTarget").setText(QStringLiteral("JN00"));
        m_main->click("cmdClear_1");
        QCOMPARE(m_main->list("cmbTarget").count(), 0);
        QCOMPARE(m_main->text("txtTarget"), QString());
    }

    void removingAnItemDoesNotAsk() {
        test::IniText ini;
        ini.targetLines = test::listLines("JO20AW,FN42AA");
        m_main->open(ini);
        m_main->click("cmdClear1Item_1");
        QCOMPARE(m_main->list("cmbTarget").count(), 2);
        QComboBox& list = m_main->list("cmbTarget");
        list.setCurrentIndex(1);
        Q_EMIT list.activated(1);
        m_main->click("cmdClear1Item_1");
        QCOMPARE(itemsOf(list), QStringList{QStringLiteral("JO20AW")});
        QCOMPARE(list.currentIndex(), -1);
        QCOMPARE(m_main->text("txtTarget"), QString());
    }

    void defaultIsWrittenAtOnce() {
        m_main->open();
        m_main->type("txtHome", QStringLiteral("JO20AW"));
        m_main->click("cmdDefault_0");
        m_main->type("txtTarget", QStringLiteral("FN42"));
        m_main->click("cmdDefault_1");
        QCOMPARE(m_main->iniLines().at(3), QStringLiteral("JO20AW"));
        QCOMPARE(m_main->iniLines().at(5), QStringLiteral("FN42"));
    }

    void reportGoesToTheClipboard() {
        m_main->open();
        m_main->type("txtHome", QStringLiteral("JO20AW"));
        m_main->type("txtTarget", QStringLiteral("FN42AA"));
        m_main->click("cmdCalculateDistDir");
        m_main->edit("txtHome").setFocus();
        m_main->click("Command1");
        QVERIFY(clipboardText().startsWith(QStringLiteral(
            "Home locator  :JO20AW\r\nTarget Locator:FN42AA\r\nDistance:5637 Km\r\n")));
        QVERIFY(clipboardText().endsWith(QStringLiteral("Target> Longitude:-71.95834W°")));
        QCOMPARE(m_main->focus(), QStringLiteral("picFocus"));
    }

    void mapOpensAtTheConverter_data() {
        QTest::addColumn<QString>("latitude");
        QTest::addColumn<QString>("longitude");
        QTest::addColumn<QByteArray>("address");
        QTest::newRow("as typed") << QStringLiteral("50.9375") << QStringLiteral("-4.5")
                                  << QByteArray("http://www.google.com/maps?q=50.9375,-4.5");
        QTest::newRow("fractions written out")
            << QStringLiteral(".5") << QStringLiteral("0.00001")
            << QByteArray("http://www.google.com/maps?q=0.5,0.00001");
        QTest::newRow("blanks are encoded")
            << QStringLiteral(" 50.9") << QStringLiteral("4&x=1")
            << QByteArray("http://www.google.com/maps?q=%2050.9,4%26x%3D1");
    }

    void mapOpensAtTheConverter() {
        QFETCH(const QString, latitude);
        QFETCH(const QString, longitude);
        QFETCH(const QByteArray, address);
        m_main->open();
        m_main->edit("txtDecLat").setText(latitude);
        m_main->edit("txtDecLong").setText(longitude);
        m_main->click("cmdShowMapURL");
        QCOMPARE(m_main->box().takeOpenedAddress(), address);
    }

private:
    std::unique_ptr<test::MainWindow> m_main;
};

QTEST_MAIN(HomeTargetPanelTest)
#include "home_target_panel_test.moc"
