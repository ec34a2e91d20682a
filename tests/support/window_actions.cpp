#include "tests/support/window_actions.h"

#include "ui/qt_text.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>

namespace orbisgrid::test {

namespace {

template <typename Widget>
Widget& control(QWidget& window, std::string_view name) {
    auto* found = window.findChild<Widget*>(
        QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size())));
    if (found == nullptr)
        qFatal("no control %s", std::string(name).c_str());
    return *found;
}

} // namespace

void act(QWidget& window, const PanelAction& action) {
    for (const TypedText& typed : action.typed) {
        auto& widget = control<QWidget>(window, typed.control);
        const QString text = toQString(typed.text);
        if (auto* list = qobject_cast<QComboBox*>(&widget)) {
            list->setCurrentIndex(std::max(list->findText(text), 0));
        } else {
            auto& box = control<QLineEdit>(window, typed.control);
            box.setText(text.left(box.maxLength()));
        }
    }
    if (!action.button.empty())
        control<QAbstractButton>(window, action.button).click();
}

QMessageBox::Icon messageBoxIcon(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::information:
        return QMessageBox::Information;
    case MessageIcon::exclamation:
        return QMessageBox::Warning;
    case MessageIcon::question:
        return QMessageBox::Question;
    case MessageIcon::none:
        break;
    }
    return QMessageBox::NoIcon;
}

} // namespace orbisgrid::test
