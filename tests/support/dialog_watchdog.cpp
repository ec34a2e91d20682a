#include "tests/support/dialog_watchdog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QInputDialog>
#include <QPointer>
#include <QTest>

#include <stdexcept>

namespace orbisgrid::test {

namespace {

[[noreturn]] void refuse(const QString& what) {
    throw std::runtime_error(what.toStdString());
}

void compare(const QString& what, const QString& actual, const QString& expected) {
    if (actual != expected)
        refuse(QStringLiteral("%1: \"%2\", not \"%3\"").arg(what, actual, expected));
}

template <typename Box>
Box& as(QDialog& dialog, const char* kind) {
    auto* box = qobject_cast<Box*>(&dialog);
    if (box == nullptr)
        refuse(
            QStringLiteral("no %1: \"%2\"").arg(QString::fromLatin1(kind), dialog.windowTitle()));
    return *box;
}

QString described(const QDialog& dialog) {
    const auto* message = qobject_cast<const QMessageBox*>(&dialog);
    return QStringLiteral("\"%1\" %2")
        .arg(dialog.windowTitle(), message == nullptr ? dialog.objectName() : message->text());
}

} // namespace

DialogWatchdog::DialogWatchdog() {
    qApp->installEventFilter(this);
}

DialogWatchdog::~DialogWatchdog() {
    qApp->removeEventFilter(this);
}

void DialogWatchdog::expectMessageBox(const QString& text, const QString& title,
                                      QMessageBox::Icon icon, QMessageBox::StandardButton answer) {
    m_expected.push_back({title + QStringLiteral(": ") + text, [=](QDialog& dialog) {
                              auto& box = as<QMessageBox>(dialog, "message box");
                              compare(QStringLiteral("text"), box.text(), text);
                              compare(QStringLiteral("title"), box.windowTitle(), title);
                              if (box.icon() != icon)
                                  refuse(QStringLiteral("icon: %1").arg(box.icon()));
                              if (box.parentWidget() == nullptr)
                                  refuse(QStringLiteral("a box without a parent"));
                              QAbstractButton* const button = box.button(answer);
                              if (button == nullptr)
                                  refuse(QStringLiteral("no such button: %1").arg(answer));
                              QTest::mouseClick(button, Qt::LeftButton);
                          }});
}

void DialogWatchdog::expectInputBox(const QString& title, const QString& prompt,
                                    const QString& preset, const std::optional<QString>& answer) {
    m_expected.push_back({title + QStringLiteral(": ") + prompt, [=](QDialog& dialog) {
                              auto& box = as<QInputDialog>(dialog, "input box");
                              compare(QStringLiteral("title"), box.windowTitle(), title);
                              compare(QStringLiteral("prompt"), box.labelText(), prompt);
                              compare(QStringLiteral("preset"), box.textValue(), preset);
                              if (!answer) {
                                  QTest::keyClick(&box, Qt::Key_Escape);
                                  return;
                              }
                              box.setTextValue(*answer);
                              QTest::keyClick(&box, Qt::Key_Return);
                          }});
}

void DialogWatchdog::expectDialog(const QString& objectName,
                                  const std::function<void(QDialog&)>& use) {
    m_expected.push_back({objectName, [=](QDialog& dialog) {
                              compare(QStringLiteral("objectName"), dialog.objectName(),
                                      objectName);
                              use(dialog);
                          }});
}

bool DialogWatchdog::allCame() const {
    for (const Expectation& expectation : m_expected)
        qWarning("this box did not come: %s", qPrintable(expectation.what));
    return m_expected.empty() && !m_isFailed;
}

bool DialogWatchdog::eventFilter(QObject* watched, QEvent* event) {
    auto* const dialog = qobject_cast<QDialog*>(watched);
    if (dialog != nullptr && event->type() == QEvent::Show && dialog->isModal()) {
        // Answered once its own event loop runs.
        m_shown.emplace_back(dialog);
        QMetaObject::invokeMethod(this, "answerNext", Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

void DialogWatchdog::answerNext() {
    const QPointer<QDialog> dialog = m_shown.front();
    m_shown.pop_front();
    if (!dialog)
        return;
    try {
        if (m_answerEvery) {
            m_answerEvery(*dialog);
        } else {
            if (m_expected.empty())
                refuse(QStringLiteral("nobody expected this box: ") + described(*dialog));
            const Expectation next = m_expected.front();
            m_expected.pop_front();
            next.use(*dialog);
        }
    } catch (const std::exception& error) {
        m_isFailed = true;
        QTest::qFail(error.what(), __FILE__, __LINE__);
    }
    if (dialog && dialog->isVisible())
        dialog->reject();
}

} // namespace orbisgrid::test
