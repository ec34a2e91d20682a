#pragma once

#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QString>

#include <deque>
#include <functional>
#include <optional>

class QDialog;

namespace orbisgrid::test {

/// Answers the modal boxes of a test. Each box must have been announced, in the order in which they
/// come; one that was not makes the running test fail and is closed, so that no test ever hangs on
/// a question nobody answers.
///
/// Announce boxes before the click that shows them, and let each test end with `allCame()`:
///
///     watchdog.expectMessageBox(text, title, QMessageBox::Warning);
///     QTest::mouseClick(button, Qt::LeftButton);
///     QVERIFY(watchdog.allCame());
class DialogWatchdog : public QObject {
    Q_OBJECT

public:
    DialogWatchdog();
    ~DialogWatchdog() override;

    /// The next box is a message with exactly this text, title and icon, whose parent is a window
    /// (a box without one opens behind a window that stays on top). It is answered with `answer`.
    void expectMessageBox(const QString& text, const QString& title, QMessageBox::Icon icon,
                          QMessageBox::StandardButton answer = QMessageBox::Ok);

    /// The next box asks for a line of text. `answer` is typed and accepted; without one the box is
    /// cancelled.
    void expectInputBox(const QString& title, const QString& prompt, const QString& preset,
                        const std::optional<QString>& answer);

    /// The next box is a dialog with this objectName, for instance a window that is shown modal. It
    /// is handed to `use` and closed afterwards if it is still open. Boxes that come up meanwhile
    /// are announced inside `use`.
    void expectDialog(const QString& objectName, const std::function<void(QDialog&)>& use);

    /// From now on every box is handed to `use` and closed afterwards if it is still open,
    /// announced or not: for tests that press at random.
    void answerEvery(const std::function<void(QDialog&)>& use) { m_answerEvery = use; }

    /// Whether every announced box came and none came that was not announced.
    bool allCame() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Expectation {
        QString what;
        std::function<void(QDialog&)> use;
    };

    Q_INVOKABLE void answerNext();

    std::deque<QPointer<QDialog>> m_shown; ///< boxes that wait for their answer
    std::deque<Expectation> m_expected;
    std::function<void(QDialog&)> m_answerEvery;
    bool m_isFailed = false;
};

} // namespace orbisgrid::test
