#include "tests/support/table.h"
#include "tests/support/window_actions.h"
#include "tests/ui/opened_panel.h"
#include "ui/converter_panels.h"
#include "ui/qt_text.h"

#include <QClipboard>
#include <QSignalSpy>

using namespace orbisgrid;

namespace {

QString clipboardText() {
    return QGuiApplication::clipboard()->text();
}

void setClipboard(const char* text) {
    QGuiApplication::clipboard()->setText(QString::fromUtf8(text));
}

} // namespace

class ConverterPanelsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void init() { m_panel = std::make_unique<test::OpenedPanel<ConverterPanels>>(); }

    void cleanup() {
        QVERIFY(m_panel->watchdog().allCame());
        m_panel.reset();
    }

    void captionsAndTips_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("tip");
        const auto row = [](const char* control, const char* text, const char* tip) {
            QTest::newRow(control) << QString::fromUtf8(text) << QString::fromUtf8(tip);
        };
        row("Label1", "Maidenhead:", "");
        row("txtLocator", "", "Maidenhead locator, Example: JO20AW");
        row("cmdOKLocator", "", "Convert from the locator");
        row("Command10", "", "copy to clipboard");
        row("Command9", "", "copy all to clipboard");
        row("Label17", "Latitude:", "");
        row("Label16", "Longitude:", "");
        row("txtDecLat", "", "Latitude decimal (South = negative)");
        row("txtDecLong", "", "Longitude decimal (West = negative)");
        row("lblDecNS", "N", "");
        row("lblDecEW", "E", "");
        row("cmdOKDecimal", "", "Convert from decimal degrees");
        row("Command11", "", "copy to clipboard");
        row("Label27", "Latitude:", "");
        row("Label28", "Longitude:", "");
        row("txtlatdms_0", "", "degrees (0...90)");
        row("txtlatdms_1", "", "minutes (0...60)");
        row("txtlatdms_2", "", "seconds (0...60)");
        row("txtlondms_0", "", "degrees (0...180)");
        row("txtlondms_1", "", "minutes (0...60)");
        row("txtlondms_2", "", "seconds (0...60)");
        row("cmbDmsNS", "", "Compass direction: North/South");
        row("cmbDmsWE", "", "Compass direction: East/West");
        row("Label29_0", "°", "");
        row("Label29_1", "°", "");
        row("Label30_0", "'", "");
        row("Label30_1", "'", "");
        row("Label3", "\"", "");
        row("Label4", "\"", "");
        row("cmdOkDMS", "", "Convert from degrees/minutes/seconds");
        row("Command13", "", "copy to clipboard");
        row("Label2", "APRS-string:", "");
        row("txtUIView", "", "UI-View uncompressed format (example: =5056.17N/00402.67E)");
        row("cmdOkUIView", "", "Convert from the UI-View text");
        row("Label11", "Compressed:", "");
        row("lblCompressed", "", "");
        row("Command15", "", "copy to clipboard");
        row("Command2", "Command2", "");
    }

    void captionsAndTips() {
        QFETCH(const QString, text);
        QFETCH(const QString, tip);
        m_panel->open();
        const auto& control = m_panel->child<QWidget>(QString::fromLatin1(QTest::currentDataTag()));
        QCOMPARE(control.property("text").toString(), text);
        QCOMPARE(control.toolTip(), tip);
    }

    void framesAndHemispheres() {
        m_panel->open();
        const QStringList texts = m_panel->labelTexts();
        for (const char* caption :
             {"Maidenhead IARU Locator", "Decimal", "Degrees/minutes/seconds", "UI-View format"})
            QVERIFY2(texts.contains(QString::fromLatin1(caption)), caption);
        QCOMPARE(m_panel->list("cmbDmsNS").itemText(0), QStringLiteral("N"));
        QCOMPARE(m_panel->list("cmbDmsNS").itemText(1), QStringLiteral("S"));
        QCOMPARE(m_panel->list("cmbDmsWE").itemText(0), QStringLiteral("E"));
        QCOMPARE(m_panel->list("cmbDmsWE").itemText(1), QStringLiteral("W"));
        QCOMPARE(m_panel->list("cmbDmsNS").currentIndex(), 0);
        QCOMPARE(m_panel->list("cmbDmsWE").currentIndex(), 0);
        QVERIFY(!m_panel->button("Command2").isVisible());
    }

    void chains_data() {
        QTest::addColumn<std::shared_ptr<test::Row>>("row");
        for (const test::Row& row : test::readTable("converter_chains.tsv"))
            QTest::newRow(row.name.c_str()) << std::make_shared<test::Row>(row);
    }

    /// The rows of the panels' own test, this time typed into the boxes and started with the
    /// buttons.
    void chains() {
        QFETCH(const std::shared_ptr<test::Row>, row);
        m_panel->open();
        announceMessage(*row);
        for (const test::PanelAction& action : test::actionsOf(row->text("actions")))
            test::act(m_panel->window(), action);
        const auto field = [&](const char* column) { return toQString(row->text(column)); };
        QCOMPARE(m_panel->text("txtLocator"), field("txtLocator"));
        QCOMPARE(m_panel->text("txtDecLat"), field("txtDecLat"));
        QCOMPARE(m_panel->text("txtDecLong"), field("txtDecLong"));
        QCOMPARE(shownDms("txtlatdms", "cmbDmsNS"), field("lat dms"));
        QCOMPARE(shownDms("txtlondms", "cmbDmsWE"), field("lon dms"));
        QCOMPARE(m_panel->text("txtUIView"), field("txtUIView"));
        QCOMPARE(m_panel->text("lblCompressed"), field("lblCompressed"));
    }

    void messages() {
        m_panel->open();
        const QString title = QStringLiteral("Orbisgrid");
        auto& watchdog = m_panel->watchdog();
        watchdog.expectMessageBox(
            QStringLiteral("A Maidenhead locator needs at least 4 characters. Examples: JO20, "
                           "FN10, JO20AW..."),
            QStringLiteral("Input error"), QMessageBox::Warning);
        m_panel->type("txtLocator", QStringLiteral("JO2"));
        m_panel->click("cmdOKLocator");
        QCOMPARE(m_panel->focus(), QStringLiteral("txtLocator"));
        watchdog.expectMessageBox(QStringLiteral("Invalid entry"), title, QMessageBox::NoIcon);
        m_panel->click("cmdOKDecimal");
        QCOMPARE(m_panel->focus(), QStringLiteral("picFocus"));
        watchdog.expectMessageBox(
            QStringLiteral("Could not calculate/convert locator. Please check the input fields "
                           "for correct values. "),
            title, QMessageBox::NoIcon);
        m_panel->click("cmdOkDMS");
        watchdog.expectMessageBox(
            QStringLiteral("Could not calculate/convert locator. Please check the input fields "
                           "for correct values."),
            title, QMessageBox::NoIcon);
        m_panel->type("txtlatdms_0", QStringLiteral("50"));
        m_panel->click("cmdOkDMS");
        watchdog.expectMessageBox(QStringLiteral("Locator has an invalid format."),
                                  QStringLiteral("Invalid Locator"), QMessageBox::Information);
        m_panel->type("txtLocator", QStringLiteral("JOJO"));
        m_panel->click("cmdOKLocator");
    }

    void aRefusalOfDegreesLeavesTheFocus() {
        m_panel->open();
        const QString text =
            QStringLiteral("Could not calculate/convert locator. Please check the input fields "
                           "for correct values.");
        const QString title = QStringLiteral("Orbisgrid");
        m_panel->watchdog().expectMessageBox(text + u' ', title, QMessageBox::NoIcon);
        m_panel->pressEnter("txtlondms_2");
        QCOMPARE(m_panel->focus(), QStringLiteral("txtlondms_2"));
        m_panel->edit("txtlatdms_0").setText(QStringLiteral("50"));
        m_panel->watchdog().expectMessageBox(text, title, QMessageBox::NoIcon);
        m_panel->pressEnter("txtlondms_2");
        QCOMPARE(m_panel->focus(), QStringLiteral("txtlondms_2"));
    }

    void aLocatorIsSelectedAfterItsConversion() {
        m_panel->open();
        m_panel->type("txtLocator", QStringLiteral("jo20aw"));
        m_panel->pressEnter("txtLocator", Qt::Key_Enter);
        QCOMPARE(m_panel->edit("txtLocator").selectedText(), QStringLiteral("JO20AW"));
        QCOMPARE(m_panel->focus(), QStringLiteral("picFocus"));
    }

    void enterChain_data() {
        QTest::addColumn<QString>("next");
        const auto row = [](const char* control, const char* next) {
            QTest::newRow(control) << QString::fromLatin1(next);
        };
        row("txtDecLat", "cmbDmsNS");
        row("txtDecLong", "cmbDmsWE");
        row("txtlatdms_0", "txtlatdms_0");
        row("txtlatdms_1", "txtlatdms_1");
        row("txtlatdms_2", "txtlondms_0");
        row("cmbDmsNS", "txtlondms_0");
        row("txtlondms_0", "txtlondms_0");
        row("txtlondms_1", "txtlondms_1");
        row("txtlondms_2", "picFocus");
        row("cmbDmsWE", "picFocus");
        row("txtUIView", "picFocus");
    }

    void enterChain() {
        QFETCH(const QString, next);
        m_panel->open();
        m_panel->edit("txtlatdms_0").setText(QStringLiteral("50"));
        m_panel->edit("txtlondms_0").setText(QStringLiteral("4"));
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
            m_panel->pressEnter(QTest::currentDataTag(), key);
            QCOMPARE(m_panel->focus(), next);
        }
    }

    void copies_data() {
        QTest::addColumn<QString>("text");
        const auto row = [](const char* button, const char* text) {
            QTest::newRow(button) << QString::fromUtf8(text);
        };
        row("Command10", "Maidenhead Locator:JO20AW\r\n");
        row("Command11", "Latitude: 50.937\r\nLongitude: 4.04166\r\n");
        row("Command13", "World Latitude:50°56'13 N\r\nWorld Longitude:4°2'30 E\r\n");
        row("Command15", "UI-View string:=5056.13N/00402.30E\r\nCompressed:=/4drbOOx2-  B");
        row("Command9", "Maidenhead Locator:JO20AW\r\nDecimal Latitude: 50.937\r\n"
                        "Decimal Longitude: 4.04166\r\nWorld Latitude:50°56'13N\r\n"
                        "World Longitude:4°2'30E\r\nUI-View string:=5056.13N/00402.30E\r\n"
                        "APRS Compressed:=/4drbOOx2-  B");
    }

    void copies() {
        QFETCH(const QString, text);
        m_panel->open();
        m_panel->type("txtLocator", QStringLiteral("jo20aw"));
        m_panel->click("cmdOKLocator");
        m_panel->edit("txtDecLat").setFocus();
        m_panel->click(QTest::currentDataTag());
        QCOMPARE(clipboardText(), text);
        QCOMPARE(m_panel->focus(), QStringLiteral("picFocus"));
    }

    void lettersAreUpperCasedAsTheyAreTyped() {
        m_panel->open();
        m_panel->type("txtLocator", QStringLiteral("jo20aw"));
        QCOMPARE(m_panel->text("txtLocator"), QStringLiteral("JO20AW"));
    }

    void leavingTheLocatorBoxUpperCasesAndDeselects() {
        m_panel->open();
        QLineEdit& box = m_panel->edit("txtLocator");
        box.setFocus();
        box.setText(QStringLiteral("jo20"));
        box.selectAll();
        m_panel->edit("txtDecLat").setFocus();
        QCOMPARE(box.text(), QStringLiteral("JO20"));
        QVERIFY(!box.hasSelectedText());
    }

    void clickingAShortBoxSelectsIt() {
        m_panel->open();
        QLineEdit& box = m_panel->edit("txtlondms_0");
        box.setText(QStringLiteral("-123"));
        QTest::mouseClick(&box, Qt::LeftButton);
        QCOMPARE(box.selectedText(), QStringLiteral("-12"));
    }

    void lettersFollowEveryKeystroke() {
        m_panel->open();
        m_panel->type("txtDecLat", QStringLiteral("-"));
        QCOMPARE(m_panel->text("lblDecNS"), QStringLiteral("N"));
        m_panel->type("txtDecLat", QStringLiteral("-5"));
        QCOMPARE(m_panel->text("lblDecNS"), QStringLiteral("S"));
        m_panel->edit("txtDecLong").setText(QStringLiteral("-0.1"));
        QCOMPARE(m_panel->text("lblDecEW"), QStringLiteral("W"));
        m_panel->edit("txtDecLong").clear();
        QCOMPARE(m_panel->text("lblDecEW"), QStringLiteral("E"));
    }

    void aPasteIntoABoxLosesItsLineEnd() {
        m_panel->open();
        setClipboard("50.9375\r\n");
        m_panel->edit("txtDecLat").setFocus();
        m_panel->edit("txtDecLat").paste();
        QCOMPARE(m_panel->text("txtDecLat"), QStringLiteral("50.9375"));
    }

    void menu_data() {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<QString>("clipboard");
        QTest::addColumn<QString>("text");
        const auto row = [](const char* name, const char* entry, const char* clipboard,
                            const char* text) {
            QTest::newRow(name) << QString::fromLatin1(entry) << QString::fromUtf8(clipboard)
                                << QString::fromUtf8(text);
        };
        row("paste", "mnuPasted", " fn42aa\r\n", "FN42AA");
        row("paste nothing", "mnuPasted", "", "");
        row("paste here", "mnuPaste_3", "\nfn42\n", "FN42");
    }

    void menu() {
        QFETCH(const QString, entry);
        QFETCH(const QString, clipboard);
        QFETCH(const QString, text);
        m_panel->open();
        QGuiApplication::clipboard()->setText(clipboard);
        m_panel->edit("txtLocator").setText(QStringLiteral(" jo20aw "));
        chooseFromMenu(entry);
        QCOMPARE(m_panel->text("txtLocator"), text);
    }

    void menuFillsTheUpperPanel_data() {
        QTest::addColumn<bool>("isHome");
        QTest::newRow("mnuPaste_0") << true;
        QTest::newRow("mnuPaste_1") << false;
    }

    void menuFillsTheUpperPanel() {
        QFETCH(const bool, isHome);
        m_panel->open();
        const QSignalSpy changed(&m_panel->panel(), &ConverterPanels::homeTargetChanged);
        m_panel->edit("txtLocator").setText(QStringLiteral(" jo20aw "));
        chooseFromMenu(QString::fromLatin1(QTest::currentDataTag()));
        const HomeTarget& homeTarget = m_panel->form().homeTarget;
        QCOMPARE(toQString((isHome ? homeTarget.txtHome : homeTarget.txtTarget).text()),
                 QStringLiteral("JO20AW"));
        QCOMPARE(changed.count(), 1);
    }

    void menuCopies() {
        m_panel->open();
        m_panel->edit("txtLocator").setText(QStringLiteral(" jo20aw "));
        chooseFromMenu(QStringLiteral("mnuPaste_5"));
        QCOMPARE(clipboardText(), QStringLiteral("JO20AW"));
    }

    void menuHasItsEntriesInOrder() {
        m_panel->open();
        m_panel->edit("txtLocator").setText(QStringLiteral("JO20"));
        QStringList captions;
        QVERIFY(m_panel->withMenuOf(m_panel->edit("txtLocator"), [&](const QMenu& menu) {
            QCOMPARE(menu.objectName(), QStringLiteral("mnuOptions"));
            for (const QAction* action : menu.actions())
                captions.append(action->isSeparator() ? QStringLiteral("-") : action->text());
            QVERIFY(!m_panel->edit("txtLocator").isEnabled());
        }));
        const QStringList wanted{QStringLiteral("Paste"),
                                 QStringLiteral("-"),
                                 QStringLiteral("Paste into Home:"),
                                 QStringLiteral("Paste into Target:"),
                                 QStringLiteral("-"),
                                 QStringLiteral("Paste here"),
                                 QStringLiteral("-"),
                                 QStringLiteral("Copy")};
        QCOMPARE(captions, wanted);
        QVERIFY(m_panel->edit("txtLocator").isEnabled());
        QVERIFY(m_panel->edit("txtLocator").updatesEnabled());
        QCOMPARE(m_panel->focus(), QStringLiteral("txtLocator"));
    }

    void aShortTextHasTheBoxsOwnMenu() {
        m_panel->open();
        m_panel->edit("txtLocator").setText(QStringLiteral("JO2"));
        QVERIFY(m_panel->withMenuOf(m_panel->edit("txtLocator"), [](const QMenu& menu) {
            QVERIFY(menu.objectName() != QStringLiteral("mnuOptions"));
        }));
    }

    void testButtonShowsADistance() {
        m_panel->open();
        m_panel->button("Command2").click();
        QCOMPARE(m_panel->text("Label1"), QStringLiteral("134.767616"));
    }

private:
    void announceMessage(const test::Row& row) {
        if (const auto message = test::expectedMessage(row))
            m_panel->watchdog().expectMessageBox(toQString(message->text), titleOf(*message),
                                                 test::messageBoxIcon(message->icon));
    }

    static QString titleOf(const Message& message) {
        return message.title.empty() ? QStringLiteral("Orbisgrid") : toQString(message.title);
    }

    QString shownDms(const char* boxes, const char* list) {
        QStringList parts;
        for (int i = 0; i < 3; ++i) {
            const QByteArray name = QByteArray(boxes) + '_' + QByteArray::number(i);
            parts.append(m_panel->text(name.constData()));
        }
        parts.append(m_panel->list(list).currentText());
        return parts.join(u' ');
    }

    void chooseFromMenu(const QString& entry) {
        QVERIFY(m_panel->withMenuOf(m_panel->edit("txtLocator"), [&](const QMenu& menu) {
            auto* action = menu.findChild<QAction*>(entry);
            QVERIFY(action != nullptr);
            action->trigger();
        }));
    }

    std::unique_ptr<test::OpenedPanel<ConverterPanels>> m_panel;
};

QTEST_MAIN(ConverterPanelsTest)
#include "converter_panels_test.moc"
