/// Renders the windows for people to look at: screenshots <folder> [light|dark|contrast] [points]
/// [width x height]. No test: what is beautiful is judged by eye. The scale comes from
/// QT_SCALE_FACTOR.
#include "tests/ui/main_window_fixture.h"
#include "ui/contrast_style.h"

#include <QApplication>
#include <QPalette>

using namespace orbisgrid;

namespace {

QPalette darkPalette() {
    QPalette palette(QColor(53, 53, 53), QColor(42, 42, 42));
    palette.setColor(QPalette::Base, QColor(35, 35, 35));
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    palette.setColor(QPalette::Link, QColor(80, 160, 240));
    return palette;
}

QPalette contrastPalette() {
    QPalette palette(Qt::black, Qt::black);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::BrightText, QPalette::Link})
        palette.setColor(role, Qt::yellow);
    palette.setColor(QPalette::Base, Qt::black);
    palette.setColor(QPalette::Highlight, Qt::cyan);
    palette.setColor(QPalette::HighlightedText, Qt::black);
    return palette;
}

void save(QWidget& widget, const QString& path) {
    QTest::qWait(50);
    if (!widget.grab().save(path))
        qFatal("cannot write %s", qPrintable(path));
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const QString folder = arguments.value(1, QStringLiteral("."));
    const QString look = arguments.value(2, QStringLiteral("light"));
    if (look == QStringLiteral("dark"))
        QApplication::setPalette(darkPalette());
    if (look == QStringLiteral("contrast"))
        QApplication::setPalette(contrastPalette());
    useContrastStyleWhereNeeded();
    if (const int points = arguments.value(3).toInt(); points > 0) {
        QFont font = QApplication::font();
        font.setPointSize(points);
        QApplication::setFont(font);
    }

    test::MainWindow main;
    test::IniText ini;
    ini.homeLines = test::listLines("JO20AW,JO21AA");
    main.open(ini);
    if (const QStringList size = arguments.value(4).split(u'x'); size.size() == 2)
        main.window().resize(size[0].toInt(), size[1].toInt());
    save(main.window(), folder + QStringLiteral("/main-empty-") + look + QStringLiteral(".png"));
    main.type("txtHome", QStringLiteral("JO20AW"));
    main.type("txtTarget", QStringLiteral("FN42AA"));
    main.pressEnter("txtTarget");
    save(main.window(), folder + QStringLiteral("/main-") + look + QStringLiteral(".png"));
    return 0;
}
