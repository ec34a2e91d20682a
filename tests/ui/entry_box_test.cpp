#include "tests/ui/main_window_fixture.h"

#include <QAction>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>

using namespace orbisgrid;

/// The boxes that positions are pasted into, in the main window: whatever comes from outside, and
/// undo.
class EntryBoxTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void init() {
        m_main = std::make_unique<test::MainWindow>();
        m_main->open();
    }

    void cleanup() {
        QVERIFY(m_main->watchdog().allCame());
        m_main.reset();
    }

    // What comes from outside ---------------------------------------------------------------

    void whatComesFromOutsideIsTrimmedBeforeTheCut_data() {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("way");
        QTest::addColumn<QString>("outside");
        QTest::addColumn<QString>("text");
        for (const char* way : {"key", "other key", "own menu", "drop"}) {
            const auto row = [way](const char* box, const char* outside, const char* text) {
                QTest::addRow("%s, %s", box, way)
                    << QString::fromLatin1(box) << QString::fromLatin1(way)
                    << QString::fromLatin1(outside) << QString::fromLatin1(text);
            };
            row("txtHome", " JO20AW", "JO20AW");
            row("txtTarget", "\r\n  FN42AA  \r\n", "FN42AA");
            row("txtLocator", "   JO20AW55AA\n", "JO20AW55AA");
            row("txtUIView", "  =5056.17N/00402.67E\n", "=5056.17N/00402.67E");
        }
    }

    void whatComesFromOutsideIsTrimmedBeforeTheCut() {
        QFETCH(const QString, box);
        QFETCH(const QString, way);
        QFETCH(const QString, outside);
        QFETCH(const QString, text);
        auto& edit = m_main->child<QLineEdit>(box);
        edit.setFocus();
        QGuiApplication::clipboard()->setText(outside);
        if (way == QStringLiteral("key"))
            QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
        else if (way == QStringLiteral("other key"))
            QTest::keyClick(&edit, Qt::Key_Insert, Qt::ShiftModifier);
        else if (way == QStringLiteral("own menu"))
            chooseFromOwnMenu(edit, "&Paste");
        else
            drop(edit, outside);
        QCOMPARE(edit.text(), text);
    }

    void aPasteTakesThePlaceOfTheSelection() {
        QLineEdit& home = m_main->edit("txtHome");
        home.setText(QStringLiteral("JO20AW"));
        home.setSelection(4, 2);
        QGuiApplication::clipboard()->setText(QStringLiteral(" xx\n"));
        QTest::keyClick(&home, Qt::Key_Insert, Qt::ShiftModifier);
        QCOMPARE(home.text(), QStringLiteral("JO20xx"));
    }

    void aDropIsACopyUnlessItIsAMove() {
        QCOMPARE(drop(m_main->edit("txtHome"), QStringLiteral(" JO20 ")), Qt::CopyAction);
    }

    // Undo ----------------------------------------------------------------------------------

    void typedLettersAreUndoneAndDoneAgain_data() {
        QTest::addColumn<QString>("box");
        for (const char* box : {"txtHome", "txtTarget", "txtLocator"})
            QTest::newRow(box) << QString::fromLatin1(box);
    }

    void typedLettersAreUndoneAndDoneAgain() {
        QFETCH(const QString, box);
        auto& edit = m_main->child<QLineEdit>(box);
        edit.setFocus();
        QTest::keyClicks(&edit, QStringLiteral("jo2"));
        QCOMPARE(edit.text(), QStringLiteral("JO2"));
        QCOMPARE(undone(edit), QStringLiteral("JO"));
        QCOMPARE(undone(edit), QStringLiteral("J"));
        QCOMPARE(undone(edit), QString());
        QCOMPARE(undone(edit), QString());
        QCOMPARE(doneAgain(edit), QStringLiteral("J"));
        QCOMPARE(doneAgain(edit), QStringLiteral("JO"));
        QCOMPARE(doneAgain(edit), QStringLiteral("JO2"));
        QCOMPARE(doneAgain(edit), QStringLiteral("JO2"));
        QCOMPARE(edit.cursorPosition(), 3);
    }

    void theValueFollowsAnUndo() {
        m_main->type("txtHome", QStringLiteral("jo20awx"));
        m_main->edit("txtTarget").setText(QStringLiteral("FN42AA"));
        undone(m_main->edit("txtHome"));
        undone(m_main->edit("txtHome"));
        m_main->click("cmdCalculateDistDir");
        QCOMPARE(m_main->text("txtHome"), QStringLiteral("JO20LL"));
    }

    void anEditAfterAnUndoForgetsWhatWasUndone() {
        QLineEdit& home = m_main->edit("txtHome");
        m_main->type("txtHome", QStringLiteral("jo"));
        undone(home);
        QTest::keyClicks(&home, QStringLiteral("n"));
        QCOMPARE(doneAgain(home), QStringLiteral("JN"));
        QCOMPARE(undone(home), QStringLiteral("J"));
    }

    void aPasteIsOneEdit() {
        QLineEdit& box = m_main->edit("txtUIView");
        m_main->type("txtUIView", QStringLiteral("=5"));
        box.setFocus();
        QGuiApplication::clipboard()->setText(QStringLiteral("056.17N"));
        QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(undone(box), QStringLiteral("=5"));
    }

    void aTextThatTheProgramSetsStartsAnew() {
        m_main->type("txtHome", QStringLiteral("jo20"));
        m_main->type("txtTarget", QStringLiteral("fn42"));
        m_main->click("cmdCalculateDistDir");
        QCOMPARE(undone(m_main->edit("txtHome")), QStringLiteral("JO20LL"));
    }

    void theOwnMenuUndoesToo() {
        QLineEdit& home = m_main->edit("txtHome");
        home.setFocus();
        QVERIFY2(!isEnabledInOwnMenu(home, "&Undo"), "nothing was typed");
        QTest::keyClicks(&home, QStringLiteral("jo"));
        QVERIFY(isEnabledInOwnMenu(home, "&Undo"));
        QVERIFY(!isEnabledInOwnMenu(home, "&Redo"));
        chooseFromOwnMenu(home, "&Undo");
        QCOMPARE(home.text(), QStringLiteral("J"));
        QVERIFY(isEnabledInOwnMenu(home, "&Redo"));
        chooseFromOwnMenu(home, "&Redo");
        QCOMPARE(home.text(), QStringLiteral("JO"));
    }

private:
    static QString undone(QLineEdit& edit) {
        QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
        return edit.text();
    }

    static QString doneAgain(QLineEdit& edit) {
        QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        return edit.text();
    }

    static QAction* entryOf(const QMenu& menu, const char* caption) {
        for (QAction* action : menu.actions()) {
            if (action->text().startsWith(QString::fromLatin1(caption)))
                return action;
        }
        return nullptr;
    }

    void chooseFromOwnMenu(QLineEdit& edit, const char* entry) {
        QVERIFY(m_main->withMenuOf(edit, [&](const QMenu& menu) {
            QAction* action = entryOf(menu, entry);
            QVERIFY(action != nullptr);
            QVERIFY(action->isEnabled());
            action->trigger();
        }));
    }

    bool isEnabledInOwnMenu(QLineEdit& edit, const char* entry) {
        bool isEnabled = false;
        const bool came = m_main->withMenuOf(edit, [&](const QMenu& menu) {
            QAction* action = entryOf(menu, entry);
            QVERIFY(action != nullptr);
            isEnabled = action->isEnabled();
        });
        return came && isEnabled;
    }

    /// Result: what was done with the dropped text.
    static Qt::DropAction drop(QLineEdit& edit, const QString& text) {
        QMimeData data;
        data.setText(text);
        const QPoint middle = edit.rect().center();
        QDragEnterEvent enter(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&edit, &enter);
        QDropEvent event(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&edit, &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }

    std::unique_ptr<test::MainWindow> m_main;
};

QTEST_MAIN(EntryBoxTest)
#include "entry_box_test.moc"
