/// The yardsticks: a Qt Widgets window of the main window's size, linked the same way.
///
///     bare_window          with nothing in it
///     bare_window text     with one line of text, which costs the loading of fonts
///     bare_window widgets  with as many plain widgets as the main window has
///     bare_window end      with nothing in it, and it ends as soon as it is shown
///     bare_window load     no window: what it takes to load the libraries and to end
#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <string_view>

namespace {

/// Labels, boxes, buttons and lists in the main window's numbers, in rows of nine.
void fillWithWidgets(QWidget& window) {
    constexpr int columns = 9;
    auto* grid = new QGridLayout(&window);
    const auto add = [grid](QWidget* widget) {
        grid->addWidget(widget, grid->count() / columns, grid->count() % columns);
    };
    for (int i = 0; i < 35; ++i)
        add(new QLabel(QStringLiteral("Locator")));
    for (int i = 0; i < 12; ++i)
        add(new QLineEdit);
    for (int i = 0; i < 25; ++i)
        add(new QPushButton(QStringLiteral("OK")));
    for (int i = 0; i < 4; ++i)
        add(new QComboBox);
}

} // namespace

int main(int argc, char** argv) {
    const std::string_view wanted(argc > 1 ? argv[1] : "");
    if (wanted == "load")
        return 0;
    QApplication application(argc, argv);
    QWidget window;
    window.resize(606, 422);
    if (wanted == "text")
        (new QVBoxLayout(&window))->addWidget(new QLabel(QStringLiteral("Orbisgrid")));
    if (wanted == "widgets")
        fillWithWidgets(window);
    window.show();
    if (wanted == "end")
        QTimer::singleShot(0, &application, &QApplication::quit);
    return QApplication::exec();
}
