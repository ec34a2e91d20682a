#include "ui/window_messages.h"

#include "ui/qt_text.h"

#include <QMessageBox>

#include <utility>

namespace orbisgrid {

namespace {

QMessageBox::Icon boxIcon(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::none:
        return QMessageBox::NoIcon;
    case MessageIcon::information:
        return QMessageBox::Information;
    case MessageIcon::exclamation:
        return QMessageBox::Warning;
    case MessageIcon::question:
        return QMessageBox::Question;
    }
    return QMessageBox::NoIcon;
}

/// QMessageBox wants a line feed where the texts have CR LF.
QString boxText(const Text& text) {
    return toQString(text).remove(u'\r');
}

int execute(QWidget* parent, const Message& message, QMessageBox::StandardButtons buttons,
            QMessageBox::StandardButton defaultButton) {
    const QString title = message.title.empty() ? applicationTitle() : toQString(message.title);
    QMessageBox box(boxIcon(message.icon), title, boxText(message.text), buttons, parent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(defaultButton);
    return box.exec();
}

} // namespace

QString applicationTitle() {
    return QStringLiteral("Orbisgrid");
}

void showMessageBox(QWidget* parent, const Message& message) {
    execute(parent, message, QMessageBox::Ok, QMessageBox::Ok);
}

bool askQuestion(QWidget* parent, const Message& question) {
    return execute(parent, question, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes) ==
           QMessageBox::Yes;
}

WindowMessages::WindowMessages(QWidget& window, std::function<void()> beforeShow)
    : m_window(window)
    , m_beforeShow(std::move(beforeShow)) {}

void WindowMessages::show(const Message& message) {
    m_beforeShow();
    showMessageBox(&m_window, message);
}

} // namespace orbisgrid
