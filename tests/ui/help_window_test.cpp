#include "tests/support/accessible_tree.h"
#include "tests/support/dialog_watchdog.h"
#include "tests/support/sealed_box.h"
#include "ui/help_window.h"

#include <QAbstractButton>
#include <QElapsedTimer>
#include <QFile>
#include <QFontInfo>
#include <QInputDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>

#include <memory>

using namespace orbisgrid;

namespace {

const QString manualName = QStringLiteral("Readme.txt");
const QString findTitle = QStringLiteral("Find");
const QString findPrompt = QStringLiteral("Type the text to find:");

/// About 10 MB in lines of 72 characters, with one word near its end.
QByteArray largeManual() {
    QByteArray manual;
    while (manual.size() < 10'000'000)
        manual += "The quick brown fox jumps over the lazy dog, and a little further, too.\n";
    return manual + "needle\n";
}

} // namespace

class HelpWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void init() {
        m_box = std::make_unique<test::SealedBox>();
        m_watchdog = std::make_unique<test::DialogWatchdog>();
    }

    void cleanup() {
        QVERIFY(m_watchdog->allCame());
        m_help.reset();
        m_watchdog.reset();
        m_box.reset();
    }

    void captionsAreTheDesignedOnes() {
        open("one\n");
        QCOMPARE(m_help->objectName(), QStringLiteral("Help"));
        QCOMPARE(m_help->windowTitle(), QStringLiteral("Help: Manual Orbisgrid"));
        QCOMPARE(m_help->findChild<QLabel*>(QStringLiteral("Label1"))->text(),
                 QStringLiteral("Manual"));
        QCOMPARE(findLink().text(), QStringLiteral("Find..."));
    }

    void manualIsShownInAFixedPitchFontAndCannotBeChanged() {
        open("one\ntwo");
        QCOMPARE(text().toPlainText(), QStringLiteral("one\ntwo\n"));
        QCOMPARE(text().font().family(), QStringLiteral("Courier New"));
        QVERIFY(QFontInfo(text().font()).fixedPitch());
        QVERIFY(text().isReadOnly());
        QTest::keyClicks(&text(), QStringLiteral("x"));
        QCOMPARE(text().toPlainText(), QStringLiteral("one\ntwo\n"));
    }

    void windowScrollsAndCanBeResized() {
        open(QByteArray("a line\n").repeated(500));
        QVERIFY(text().verticalScrollBar()->maximum() > 0);
        const int before = text().height();
        m_help->resize(m_help->width(), m_help->height() + 100);
        QVERIFY(QTest::qWaitFor([&] { return text().height() == before + 100; }));
        QTest::keyClick(&text(), Qt::Key_PageDown);
        QVERIFY(text().verticalScrollBar()->value() > 0);
    }

    void missingManualShowsWhereItBelongs() {
        show();
        QVERIFY(text().toPlainText().contains(QStringLiteral("cannot be shown")));
        QVERIFY(text().toPlainText().contains(m_box->programFolder() + u'/' + manualName));
    }

    void unreadableManualShowsWhereItBelongs() {
        // A folder of that name opens for nobody, root included.
        QVERIFY(QDir(m_box->programFolder()).mkdir(manualName));
        show();
        QVERIFY(text().toPlainText().contains(QStringLiteral("cannot be shown")));
    }

    void textInPlaceOfTheManualCanBeSearched() {
        show();
        find(QString(), QStringLiteral("readme.txt"));
        QCOMPARE(selected(), QStringLiteral("Readme.txt"));
    }

    void bytesThatAreNoTextAreShown() {
        QByteArray bytes;
        for (int i = 0; i < 70'000; ++i)
            bytes += static_cast<char>(i * 7 % 256);
        open(bytes + "\nneedle\n");
        find(QString(), QStringLiteral("needle"));
        QCOMPARE(selected(), QStringLiteral("needle"));
    }

    void emptyManualShowsNothing() {
        open(QByteArray());
        QCOMPARE(text().toPlainText(), QString());
        findNothing(QString(), QStringLiteral("one"));
    }

    void findSelectsFirstSecondFirst() {
        open("A word.\nThe other WORD.\n");
        find(QString(), QStringLiteral("word"));
        QCOMPARE(selectionStart(), 2);
        QCOMPARE(selected(), QStringLiteral("word"));
        QCOMPARE(m_help->focusWidget(), &text());
        find(QStringLiteral("WORD"), QStringLiteral("WORD"));
        QCOMPARE(selectionStart(), 18);
        QCOMPARE(selected(), QStringLiteral("WORD"));
        find(QStringLiteral("WORD"), QStringLiteral("WORD"));
        QCOMPARE(selectionStart(), 2);
    }

    void sameWordInAnotherLetterCaseRestartsFromTheTop() {
        open("word word word\n");
        find(QString(), QStringLiteral("word"));
        find(QStringLiteral("WORD"), QStringLiteral("WORD"));
        QCOMPARE(selectionStart(), 5);
        find(QStringLiteral("WORD"), QStringLiteral("Word"));
        QCOMPARE(selectionStart(), 0);
    }

    void overlappingMatchesAreSelectedOneByOne() {
        open("aaaa\n");
        find(QString(), QStringLiteral("AA"));
        QCOMPARE(selectionStart(), 0);
        for (const int place : {1, 2, 0}) {
            pressF3();
            QCOMPARE(selectionStart(), place);
        }
    }

    void selectionIsRightBehindEveryKindOfLineEndAndCharacter_data() {
        QTest::addColumn<QByteArray>("manual");
        QTest::newRow("LF") << QByteArray("one\ntwo\nneedle here\n");
        QTest::newRow("CR LF") << QByteArray("one\r\ntwo\r\nneedle here\r\n");
        QTest::newRow("CR") << QByteArray("one\rtwo\rneedle here\r");
        QTest::newRow("empty lines") << QByteArray("\n\n\n\nneedle\n");
        QTest::newRow("beyond ASCII") << QByteArray("50° 56' straße\nneedle\n");
        QTest::newRow("beyond 16 bits") << QByteArray("\xF0\x9F\x93\xA1\nneedle\n");
        QTest::newRow("other separators of lines and paragraphs")
            << QByteArray("one\xE2\x80\xA8two\xE2\x80\xA9three\x0C\x0B\nneedle\n");
        QTest::newRow("frame characters") << QByteArray("\xEF\xB7\x90one\xEF\xB7\x91\nneedle\n");
        QTest::newRow("older code page") << QByteArray("50\xB0 56'\nneedle\n");
        QTest::newRow("zero bytes") << QByteArray("a\0b\0\nneedle\n", 12);
    }

    void selectionIsRightBehindEveryKindOfLineEndAndCharacter() {
        QFETCH(const QByteArray, manual);
        open(manual);
        find(QString(), QStringLiteral("NEEDLE"));
        QCOMPARE(selected(), QStringLiteral("needle"));
    }

    void nothingFoundSaysSoAndTakesTheSelectionAway() {
        open("one two\n");
        find(QString(), QStringLiteral("two"));
        findNothing(QStringLiteral("TWO"), QStringLiteral("three"));
        QCOMPARE(selected(), QString());
        // The next question is empty, and its find starts from the top.
        find(QString(), QStringLiteral("one"));
        QCOMPARE(selectionStart(), 0);
    }

    void cancelChangesNothingInTheTextAndEmptiesTheNextQuestion() {
        open("one one\n");
        find(QString(), QStringLiteral("one"));
        m_watchdog->expectInputBox(findTitle, findPrompt, QStringLiteral("ONE"), std::nullopt);
        QTest::mouseClick(&findLink(), Qt::LeftButton);
        QCOMPARE(selected(), QStringLiteral("one"));
        QCOMPARE(selectionStart(), 0);
        find(QString(), QStringLiteral("ONE"));
        QCOMPARE(selectionStart(), 0);
    }

    void emptyAnswerIsAsCancel() {
        open("one\n");
        find(QString(), QString());
        QCOMPARE(selected(), QString());
    }

    void questionStandsAtTheTopBesideTheLeftEdge() {
        open("one\n");
        m_help->move(200, 120);
        QPoint place;
        m_watchdog->expectDialog(QString(), [&](QDialog& dialog) { place = dialog.pos(); });
        QTest::mouseClick(&findLink(), Qt::LeftButton);
        QCOMPARE(place, m_help->pos() + QPoint(147, 0)); // 2200 twips
    }

    void findLinkIsReachedAndFollowedByKeys_data() {
        QTest::addColumn<int>("key");
        QTest::newRow("Return") << int(Qt::Key_Return);
        QTest::newRow("Enter") << int(Qt::Key_Enter);
        QTest::newRow("Space") << int(Qt::Key_Space);
    }

    void findLinkIsReachedAndFollowedByKeys() {
        QFETCH(const int, key);
        open("one\n");
        QTest::keyClick(&text(), Qt::Key_Tab);
        QVERIFY(findLink().hasFocus());
        expectQuestion(QString(), QStringLiteral("one"));
        QTest::keyClick(&findLink(), static_cast<Qt::Key>(key));
        QCOMPARE(selected(), QStringLiteral("one"));
    }

    void tabLeadsThroughTheWindowAndBack() {
        open("one\n");
        QVERIFY(text().hasFocus());
        QTest::keyClick(m_help.get(), Qt::Key_Tab);
        QVERIFY(findLink().hasFocus());
        QTest::keyClick(m_help.get(), Qt::Key_Tab);
        QVERIFY(text().hasFocus());
        QTest::keyClick(m_help.get(), Qt::Key_Backtab);
        QVERIFY(findLink().hasFocus());
        QTest::keyClick(m_help.get(), Qt::Key_Backtab);
        QVERIFY(text().hasFocus());
    }

    void everyControlWithTheFocusHasAName() {
        open("one\n");
        QCOMPARE(test::controlsThatSayNothing(*m_help), QStringList());
    }

    void findLinkLooksLikeALink() {
        open("one\n");
        QCOMPARE(findLink().cursor().shape(), Qt::PointingHandCursor);
        const QImage without = findLink().grab().toImage();
        QVERIFY(holds(without, m_help->palette().color(QPalette::Link)));
        QTest::keyClick(&text(), Qt::Key_Tab);
        QVERIFY2(findLink().grab().toImage() != without, "the focus is not visible");
    }

    void controlFAsks() {
        open("one\n");
        expectQuestion(QString(), QStringLiteral("one"));
        QTest::keyClick(m_help.get(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(selected(), QStringLiteral("one"));
    }

    void f3RepeatsWithoutAsking() {
        open("one one\n");
        find(QString(), QStringLiteral("one"));
        pressF3();
        QCOMPARE(selectionStart(), 4);
        pressF3();
        QCOMPARE(selectionStart(), 0);
    }

    void f3AsksWhereThereIsNothingToRepeat() {
        open("one\n");
        expectQuestion(QString(), QStringLiteral("one"));
        pressF3();
        QCOMPARE(selected(), QStringLiteral("one"));
    }

    void escapeCloses() {
        open("one\n");
        QTest::keyClick(&text(), Qt::Key_Escape);
        QVERIFY(QTest::qWaitFor([&] { return !m_help->isVisible(); }));
    }

    void aLargeManualOpensAndFindsQuickly() {
        m_box->writeProgramFile(manualName, largeManual());
        QElapsedTimer timer;
        timer.start();
        show();
        m_help->grab();
        const qint64 openTime = timer.restart();
        qInfo("10 MB manual: opened and drawn in %lld ms", openTime);
        QVERIFY2(openTime < 5000, "it hangs");
        m_watchdog->expectInputBox(findTitle, findPrompt, QString(), QStringLiteral("needle"));
        QTest::keyClick(m_help.get(), Qt::Key_F, Qt::ControlModifier);
        m_help->grab();
        const qint64 findTime = timer.restart();
        qInfo("10 MB manual: found at its end in %lld ms, the question included", findTime);
        QCOMPARE(selected(), QStringLiteral("needle"));
        QVERIFY2(findTime < 5000, "it hangs");
    }

    void aManualOfOneEndlessLineOpensAndFinds() {
        QElapsedTimer timer;
        timer.start();
        open(QByteArray("0123456789").repeated(1'000'000) + "needle");
        find(QString(), QStringLiteral("needle"));
        QCOMPARE(selected(), QStringLiteral("needle"));
        QVERIFY(timer.elapsed() < 5000);
    }

private:
    void open(const QByteArray& manual) {
        m_box->writeProgramFile(manualName, manual);
        show();
    }

    void show() {
        m_help = std::make_unique<Help>(m_box->programFolder().toStdString());
        m_help->show();
        QVERIFY(QTest::qWaitForWindowActive(m_help.get()));
    }

    void expectQuestion(const QString& preset, const QString& answer) {
        m_watchdog->expectInputBox(findTitle, findPrompt, preset, answer);
    }

    /// A find by mouse whose question is preset with `preset`.
    void find(const QString& preset, const QString& answer) {
        expectQuestion(preset, answer);
        QTest::mouseClick(&findLink(), Qt::LeftButton);
    }

    void findNothing(const QString& preset, const QString& answer) {
        expectQuestion(preset, answer);
        m_watchdog->expectMessageBox(QStringLiteral("Nothing found"), QStringLiteral("Orbisgrid"),
                                     QMessageBox::NoIcon);
        QTest::mouseClick(&findLink(), Qt::LeftButton);
    }

    /// Without a window manager no window is active again after a box has closed.
    void pressF3() {
        m_help->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_help.get()));
        QTest::keyClick(&text(), Qt::Key_F3);
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

    QPlainTextEdit& text() const {
        return *m_help->findChild<QPlainTextEdit*>(QStringLiteral("Text1"));
    }

    QAbstractButton& findLink() const {
        return *m_help->findChild<QAbstractButton*>(QStringLiteral("Label2"));
    }

    QString selected() const { return text().textCursor().selectedText(); }

    int selectionStart() const { return text().textCursor().selectionStart(); }

    std::unique_ptr<test::SealedBox> m_box;
    std::unique_ptr<test::DialogWatchdog> m_watchdog;
    std::unique_ptr<Help> m_help;
};

QTEST_MAIN(HelpWindowTest)
#include "help_window_test.moc"
