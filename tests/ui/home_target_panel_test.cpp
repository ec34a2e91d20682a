#include "tests/ui/opened_panel.h"
#include "ui/home_target_panel.h"
#include "ui/qt_text.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QToolTip>

#include <algorithm>
#include <string_view>

using namespace orbisgrid;

namespace {

const QString lengthRule =
    QStringLiteral("\nA locator must exist out of at least 4 characters and no more then six. "
                   "Examples: JO20, JO20AW");

QString clipboardText() {
    return QGuiApplication::clipboard()->text();
}

} // namespace

class HomeTargetPanelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void init() { m_panel = std::make_unique<test::OpenedPanel<HomeTargetPanel>>(); }

    void cleanup() {
        QVERIFY(m_panel->watchdog().allCame());
        m_panel.reset();
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
        row("cmdShowPathMap", "", "Show the path on a map");
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
        m_panel->open();
        const auto& widget = m_panel->child<QWidget>(control);
        QCOMPARE(widget.property("text").toString(), text);
        QCOMPARE(widget.toolTip(), tip);
    }

    void staticLabelsAreThere() {
        m_panel->open();
        const QStringList texts = m_panel->labelTexts();
        for (const char* caption : {"Home: ", "Target: ", "Home>", "Target>", "Home>  Latitude:",
                                    "Target> Latitude:", "Longitude:", "Distance:", "Azimuth:"})
            QVERIFY2(texts.contains(QString::fromLatin1(caption)), caption);
    }

    void calculateFillsLabelsListsAndConverter() {
        m_panel->open();
        const QSignalSpy changed(&m_panel->panel(), &HomeTargetPanel::converterChanged);
        m_panel->type("txtHome", QStringLiteral("JO20AW"));
        m_panel->type("txtTarget", QStringLiteral("FN42AA"));
        m_panel->click("cmdCalculateDistDir");
        QCOMPARE(m_panel->text("lblDistKm"), QStringLiteral("5637 Km"));
        QCOMPARE(m_panel->text("lblDistMile"), QStringLiteral("3520 Miles"));
        QCOMPARE(m_panel->text("lblAzimuth"), QStringLiteral("291 degrees"));
        QCOMPARE(m_panel->text("lblHomeLat"), QStringLiteral("50.9375N°"));
        QCOMPARE(m_panel->text("lblHomeLong"), QStringLiteral("4.041667E°"));
        QCOMPARE(m_panel->text("lblTargetLat"), QStringLiteral("42.02083N°"));
        QCOMPARE(m_panel->text("lblTargetLong"), QStringLiteral("-71.95834W°"));
        QCOMPARE(m_panel->items("cmbHome"), QStringList{QStringLiteral("JO20AW")});
        QCOMPARE(m_panel->items("cmbTarget"), QStringList{QStringLiteral("FN42AA")});
        QCOMPARE(m_panel->list("cmbHome").currentIndex(), -1);
        const Converter& converter = m_panel->form().converter;
        QCOMPARE(toQString(converter.txtLocator.text()), QStringLiteral("FN42AA"));
        QCOMPARE(toQString(converter.txtUIView.text()), QStringLiteral("=4201.15N/07157.30W"));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(m_panel->focus(), QStringLiteral("picFocus"));
    }

    void calculateCompletesTheBoxesAndRemembersOnce() {
        m_panel->open();
        m_panel->type("txtHome", QStringLiteral("jo20"));
        m_panel->type("txtTarget", QStringLiteral("fn42"));
        m_panel->click("cmdCalculateDistDir");
        m_panel->click("cmdCalculateDistDir");
        QCOMPARE(m_panel->text("txtHome"), QStringLiteral("JO20LL"));
        QCOMPARE(m_panel->text("txtTarget"), QStringLiteral("FN42LL"));
        QCOMPARE(m_panel->items("cmbHome"), QStringList{QStringLiteral("JO20LL")});
        QCOMPARE(m_panel->items("cmbTarget"), QStringList{QStringLiteral("FN42LL")});
    }

    void refusalsNameTheirBoxAndLeadToItsList() {
        m_panel->open();
        m_panel->type("txtHome", QStringLiteral("JO2"));
        m_panel->type("txtTarget", QStringLiteral("FN4"));
        m_panel->watchdog().expectMessageBox(QStringLiteral("Invallid Home Locator!") + lengthRule,
                                             QStringLiteral("Invalid Home Locator"),
                                             QMessageBox::Warning);
        m_panel->click("cmdCalculateDistDir");
        QCOMPARE(m_panel->focus(), QStringLiteral("cmbHome"));
        m_panel->type("txtHome", QStringLiteral("JO20"));
        m_panel->watchdog().expectMessageBox(
            QStringLiteral("Invallid Target Locator!") + lengthRule,
            QStringLiteral("Invalid Target Locator"), QMessageBox::Warning);
        m_panel->click("cmdCalculateDistDir");
        QCOMPARE(m_panel->focus(), QStringLiteral("cmbTarget"));
        m_panel->type("txtTarget", QStringLiteral("FN4A"));
        m_panel->watchdog().expectMessageBox(QStringLiteral("Invalid locator!"),
                                             QStringLiteral("Invalid locator format"),
                                             QMessageBox::Warning);
        m_panel->click("cmdCalculateDistDir");
        QCOMPARE(m_panel->focus(), QStringLiteral("cmdCalculateDistDir"));
        QCOMPARE(m_panel->text("lblDistKm"), QStringLiteral("0 Km"));
        QCOMPARE(m_panel->list("cmbHome").count(), 0);
    }

    void boxesTakeSixCharacters() {
        m_panel->open();
        m_panel->type("txtHome", QStringLiteral("JO20AWXX"));
        QCOMPARE(m_panel->text("txtHome"), QStringLiteral("JO20AW"));
        QCOMPARE(m_panel->edit("txtTarget").maxLength(), 6);
    }

    void lettersAreUpperCasedOnRelease() {
        m_panel->open();
        QLineEdit& home = m_panel->edit("txtHome");
        m_panel->type("txtHome", QStringLiteral("jo20aw"));
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
        m_panel->open();
        QLineEdit& home = m_panel->edit("txtHome");
        home.setText(QStringLiteral("JO20AW"));
        home.setSelection(1, 3);
        QTest::keyRelease(&home, Qt::Key_A);
        QCOMPARE(home.selectedText(), QStringLiteral("O20"));
    }

    void arrowsLeadFromBoxToBox() {
        m_panel->open();
        m_panel->type("txtHome", QStringLiteral("JO20AW"));
        m_panel->type("txtTarget", QStringLiteral("FN42AA"));
        QTest::keyClick(&m_panel->edit("txtTarget"), Qt::Key_Up);
        QCOMPARE(m_panel->focus(), QStringLiteral("txtHome"));
        QCOMPARE(m_panel->edit("txtHome").selectedText(), QStringLiteral("JO20AW"));
        QTest::keyClick(&m_panel->edit("txtHome"), Qt::Key_Down);
        QCOMPARE(m_panel->focus(), QStringLiteral("txtTarget"));
        QCOMPARE(m_panel->edit("txtTarget").selectedText(), QStringLiteral("FN42AA"));
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
            m_panel = std::make_unique<test::OpenedPanel<HomeTargetPanel>>();
            m_panel->open();
            m_panel->edit("txtHome").setText(home);
            m_panel->edit("txtTarget").setText(target);
            m_panel->pressEnter("txtHome", key);
            QCOMPARE(m_panel->focus(), focus);
            QCOMPARE(m_panel->text("lblDistKm") == QStringLiteral("5637 Km"), calculates);
            QCOMPARE(m_panel->text("txtHome"), calculates ? home.toUpper() : home);
        }
    }

    void enterInTarget() {
        m_panel->open();
        m_panel->edit("txtHome").setText(QStringLiteral("JO20AW"));
        m_panel->edit("txtTarget").setText(QStringLiteral("FN4"));
        m_panel->pressEnter("txtTarget");
        QCOMPARE(m_panel->text("lblDistKm"), QStringLiteral("0 Km"));
        m_panel->edit("txtTarget").setText(QStringLiteral("fn42aa"));
        m_panel->pressEnter("txtTarget");
        QCOMPARE(m_panel->text("lblDistKm"), QStringLiteral("5637 Km"));
        QCOMPARE(m_panel->text("txtTarget"), QStringLiteral("FN42AA"));
        QCOMPARE(m_panel->focus(), QStringLiteral("txtTarget"));
    }

    void rightButtonSelectsFromTheCaret() {
        m_panel->open();
        QLineEdit& home = m_panel->edit("txtHome");
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
        m_panel->open();
        QGuiApplication::clipboard()->setText(QStringLiteral("  jo20aw\r\n"));
        m_panel->edit("txtHome").setFocus();
        QTest::keySequence(&m_panel->edit("txtHome"), QKeySequence::Paste);
        QCOMPARE(m_panel->text("txtHome").toUpper(), QStringLiteral("JO20AW"));
    }

    void choosingAnItemFillsTheBoxAndCalculatesNothing() {
        m_panel->form().homeTarget.cmbHome.items = {u"JO20AW", u"FN42AA"};
        m_panel->open();
        QComboBox& list = m_panel->list("cmbHome");
        QCOMPARE(list.currentIndex(), -1);
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_Down);
        QCOMPARE(m_panel->text("txtHome"), QStringLiteral("JO20AW"));
        QCOMPARE(m_panel->focus(), QStringLiteral("txtHome"));
        QCOMPARE(m_panel->edit("txtHome").selectedText(), QStringLiteral("JO20AW"));
        QCOMPARE(m_panel->text("lblDistKm"), QStringLiteral("0 Km"));
    }

    void clearingAListAsksFirst() {
        HomeTarget& homeTarget = m_panel->form().homeTarget;
        homeTarget.cmbHome.items = {u"JO20AW", u"FN42AA"};
        homeTarget.cmbTarget.items = {u"JN00AA"};
        homeTarget.txtHome.set(u"JO20");
        m_panel->open();
        const auto question = QStringLiteral("Do you want to clear the contents of the Home list?");
        m_panel->watchdog().expectMessageBox(question, QStringLiteral("Clear Home"),
                                             QMessageBox::Question, QMessageBox::No);
        m_panel->click("cmdClear_0");
        QCOMPARE(m_panel->list("cmbHome").count(), 2);
        QCOMPARE(m_panel->text("txtHome"), QStringLiteral("JO20"));
        m_panel->watchdog().expectMessageBox(question, QStringLiteral("Clear Home"),
                                             QMessageBox::Question, QMessageBox::Yes);
        m_panel->click("cmdClear_0");
        QCOMPARE(m_panel->list("cmbHome").count(), 0);
        QCOMPARE(m_panel->text("txtHome"), QString());
        QCOMPARE(m_panel->list("cmbTarget").count(), 1);
        m_panel->watchdog().expectMessageBox(
            QStringLiteral("Do you want to clear the contents of the Target list?"),
            QStringLiteral("Clear Target"), QMessageBox::Question, QMessageBox::Yes);
        m_panel->edit("txtTarget").setText(QStringLiteral("JN00"));
        m_panel->click("cmdClear_1");
        QCOMPARE(m_panel->list("cmbTarget").count(), 0);
        QCOMPARE(m_panel->text("txtTarget"), QString());
    }

    void removingAnItemDoesNotAsk() {
        m_panel->form().homeTarget.cmbTarget.items = {u"JO20AW", u"FN42AA"};
        m_panel->open();
        m_panel->click("cmdClear1Item_1");
        QCOMPARE(m_panel->list("cmbTarget").count(), 2);
        QComboBox& list = m_panel->list("cmbTarget");
        list.setCurrentIndex(1);
        Q_EMIT list.activated(1);
        m_panel->click("cmdClear1Item_1");
        QCOMPARE(m_panel->items("cmbTarget"), QStringList{QStringLiteral("JO20AW")});
        QCOMPARE(list.currentIndex(), -1);
        QCOMPARE(m_panel->text("txtTarget"), QString());
    }

    void aDefaultIsToBeWritten() {
        m_panel->open();
        const QSignalSpy changed(&m_panel->panel(), &HomeTargetPanel::defaultsChanged);
        m_panel->type("txtHome", QStringLiteral("JO20AW"));
        m_panel->click("cmdDefault_0");
        m_panel->type("txtTarget", QStringLiteral("FN42"));
        m_panel->click("cmdDefault_1");
        const HomeTarget& homeTarget = m_panel->form().homeTarget;
        QCOMPARE(toQString(homeTarget.DefaultHome), QStringLiteral("JO20AW"));
        QCOMPARE(toQString(homeTarget.DefaultTarget), QStringLiteral("FN42"));
        QCOMPARE(changed.count(), 2);
    }

    /// A document for each result would be a hundredth of what the window takes at its start.
    void aResultHasNoDocumentBeforeItIsSelected() {
        m_panel->open();
        const auto documents = [this] {
            const auto objects = m_panel->panel().findChildren<QObject*>();
            return std::count_if(objects.begin(), objects.end(), [](const QObject* object) {
                return std::string_view(object->metaObject()->className()) == "QWidgetTextControl";
            });
        };
        QCOMPARE(documents(), 0);
        m_panel->panel().findChild<QLabel*>(QStringLiteral("lblDistKm"))->setFocus();
        QCOMPARE(documents(), 1);
    }

    void reportGoesToTheClipboard() {
        m_panel->open();
        m_panel->type("txtHome", QStringLiteral("JO20AW"));
        m_panel->type("txtTarget", QStringLiteral("FN42AA"));
        m_panel->click("cmdCalculateDistDir");
        m_panel->edit("txtHome").setFocus();
        m_panel->click("Command1");
        QVERIFY(clipboardText().startsWith(QStringLiteral(
            "Home locator  :JO20AW\r\nTarget Locator:FN42AA\r\nDistance:5637 Km\r\n")));
        QVERIFY(clipboardText().endsWith(QStringLiteral("Target> Longitude:-71.95834W°")));
        QCOMPARE(m_panel->focus(), QStringLiteral("picFocus"));
    }

private:
    std::unique_ptr<test::OpenedPanel<HomeTargetPanel>> m_panel;
};

QTEST_MAIN(HomeTargetPanelTest)
#include "home_target_panel_test.moc"
