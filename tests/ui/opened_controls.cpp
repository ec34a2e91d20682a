#include "tests/ui/opened_controls.h"

#include <QApplication>
#include <QTimer>

namespace orbisgrid::test {

QString OpenedControls::text(const char* name) {
    return child<QWidget>(QString::fromLatin1(name)).property("text").toString();
}

QStringList OpenedControls::items(const char* name) {
    const QComboBox& box = list(name);
    QStringList texts;
    for (int i = 0; i < box.count(); ++i)
        texts.append(box.itemText(i));
    return texts;
}

QStringList OpenedControls::labelTexts() {
    QStringList texts;
    for (const QLabel* label : window().findChildren<QLabel*>())
        texts.append(label->text());
    return texts;
}

void OpenedControls::type(const char* name, const QString& text) {
    QLineEdit& box = edit(name);
    box.setFocus();
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, text);
}

void OpenedControls::click(const char* name) {
    QTest::mouseClick(&button(name), Qt::LeftButton);
}

void OpenedControls::pressEnter(const char* name, Qt::Key key) {
    auto& widget = child<QWidget>(QString::fromLatin1(name));
    widget.setFocus();
    QTest::keyClick(&widget, key);
}

bool OpenedControls::withMenuOf(QLineEdit& box, const std::function<void(QMenu&)>& use) {
    bool wasUsed = false;
    // A menu may have an event loop of its own, inside the press.
    QTimer::singleShot(50, &window(), [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr)
            return;
        wasUsed = true;
        use(*menu);
        menu->close();
    });
    const QPoint middle = box.mapTo(&window(), box.rect().center());
    QTest::mousePress(window().windowHandle(), Qt::RightButton, {}, middle);
    const bool came = QTest::qWaitFor([&] { return wasUsed; });
    QTest::mouseRelease(window().windowHandle(), Qt::RightButton, {}, middle);
    return came;
}

QString OpenedControls::focus() {
    const QWidget* widget = window().focusWidget();
    return widget == nullptr ? QString() : widget->objectName();
}

void OpenedControls::showActive() {
    window().show();
    window().activateWindow();
    if (!QTest::qWaitForWindowActive(&window()))
        qFatal("the window does not become active");
}

} // namespace orbisgrid::test
