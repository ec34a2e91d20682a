/// The yardsticks: a Qt Widgets window of the main window's size, linked the same way.
///
///     bare_window          with nothing in it
///     bare_window text     with one line of text, which costs the loading of fonts
///     bare_window end      with nothing in it, and it ends as soon as it is shown
///     bare_window load     no window: what it takes to load the libraries and to end
#include <QApplication>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

#include <string_view>

int main(int argc, char** argv) {
    const std::string_view wanted(argc > 1 ? argv[1] : "");
    if (wanted == "load")
        return 0;
    QApplication application(argc, argv);
    QWidget window;
    window.resize(606, 422);
    if (wanted == "text")
        (new QVBoxLayout(&window))->addWidget(new QLabel(QStringLiteral("Orbisgrid")));
    window.show();
    if (wanted == "end")
        QTimer::singleShot(0, &application, &QApplication::quit);
    return QApplication::exec();
}
