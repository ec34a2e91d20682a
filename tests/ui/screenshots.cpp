/// Renders the main window and the map for people to look at: screenshots <folder> [look] [points]
/// [width x height], where a look is a name of tests/ui/palettes.h. With the folder alone it
/// renders what is worth a look: each palette, large fonts, a stretched window, maps around many
/// places. No test: what is beautiful is judged by eye. The scale comes from QT_SCALE_FACTOR.
#include "tests/ui/main_window_fixture.h"
#include "tests/ui/palettes.h"
#include "ui/contrast_style.h"
#include "ui/fractional_scale_style.h"
#include "ui/path_map_window.h"

#include <QApplication>

using namespace orbisgrid;

namespace {

struct Rendering {
    QString look;
    int points = 0; ///< 0: the font as it is
    QSize size;     ///< empty: the window's own

    QString name() const {
        QString text = look;
        if (points > 0)
            text += QStringLiteral("-%1pt").arg(points);
        if (!size.isEmpty())
            text += QStringLiteral("-%1x%2").arg(size.width()).arg(size.height());
        return text;
    }
};

QList<Rendering> everyRendering() {
    QList<Rendering> all;
    for (const char* look : {"light", "dark", "contrast", "grey", "night"})
        all.append({QString::fromLatin1(look), 0, {}});
    all.append({QStringLiteral("dark"), 18, {}});
    all.append({QStringLiteral("light"), 0, {1200, 800}});
    return all;
}

Rendering renderingOf(const QStringList& arguments) {
    const QStringList sides = arguments.value(4).split(u'x');
    const QSize size =
        sides.size() == 2 ? QSize(sides.at(0).toInt(), sides.at(1).toInt()) : QSize();
    return {arguments.at(2), arguments.value(3).toInt(), size};
}

void save(QWidget& widget, const QString& path) {
    QTest::qWait(50);
    if (!widget.grab().save(path))
        qFatal("cannot write %s", qPrintable(path));
}

/// Puts on a look; result: the font before.
QFont putOn(const Rendering& rendering) {
    QApplication::setStyle(QStringLiteral("fusion"));
    QApplication::setPalette(test::paletteOf(rendering.look));
    useContrastStyleWhereNeeded();
    useFractionalScaleStyleWhereNeeded();
    const QFont usual = QApplication::font();
    QFont font = usual;
    if (rendering.points > 0)
        font.setPointSize(rendering.points);
    QApplication::setFont(font);
    return usual;
}

void calculate(test::MainWindow& main, const QString& home) {
    main.type("txtHome", home);
    main.type("txtTarget", QStringLiteral("FN42AA"));
    main.pressEnter("txtTarget");
}

void renderMap(test::MainWindow& main, int zoom, const QString& path) {
    if (!main.window().findChild<QWidget*>(QStringLiteral("PathMap")))
        main.click("cmdShowPathMap");
    auto& view = main.child<QWidget>(QStringLiteral("picPathMap"));
    QTest::keyClick(&view, Qt::Key_0);
    for (int i = 0; i < zoom; ++i)
        QTest::keyClick(&view, Qt::Key_Plus);
    save(main.child<QWidget>(QStringLiteral("PathMap")), path);
}

/// Around Europe, New Zealand, both poles and Hawaii: the world, about 3,000 and 200 km.
void renderMaps(const QString& folder) {
    const QFont usual = putOn({QStringLiteral("light"), 0, {}});
    for (const char* home : {"JO20AW", "RE78JS", "JR09AX", "JA00AA", "BL11BH"}) {
        for (const int zoom : {0, 8, 20}) {
            test::MainWindow main;
            main.open();
            calculate(main, QString::fromLatin1(home));
            renderMap(
                main, zoom,
                QStringLiteral("%1/map-%2-%3.png").arg(folder, QLatin1String(home)).arg(zoom));
        }
    }
    QApplication::setFont(usual);
}

void render(const Rendering& rendering, const QString& folder) {
    const QFont usual = putOn(rendering);
    test::MainWindow main;
    test::IniText ini;
    ini.homeLines = test::listLines("JO20AW,JO21AA");
    main.open(ini);
    if (!rendering.size.isEmpty())
        main.window().resize(rendering.size);
    save(main.window(),
         folder + QStringLiteral("/main-empty-") + rendering.name() + QStringLiteral(".png"));
    calculate(main, QStringLiteral("JO20AW"));
    save(main.window(),
         folder + QStringLiteral("/main-") + rendering.name() + QStringLiteral(".png"));
    renderMap(main, 0,
              folder + QStringLiteral("/map-") + rendering.name() + QStringLiteral(".png"));
    QApplication::setFont(usual);
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const QString folder = arguments.value(1, QStringLiteral("."));
    if (arguments.size() > 2) {
        render(renderingOf(arguments), folder);
    } else {
        for (const Rendering& rendering : everyRendering())
            render(rendering, folder);
        renderMaps(folder);
    }
    return 0;
}
