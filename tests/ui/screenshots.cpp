/// Renders the main window for people to look at: screenshots <folder> [look] [points]
/// [width x height], where a look is a name of tests/ui/palettes.h. With the folder alone it
/// renders what is worth a look: each palette, large fonts, a stretched window. No test: what is
/// beautiful is judged by eye. The scale comes from QT_SCALE_FACTOR.
#include "tests/ui/main_window_fixture.h"
#include "tests/ui/palettes.h"
#include "ui/contrast_style.h"
#include "ui/fractional_scale_style.h"

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

void render(const Rendering& rendering, const QString& folder) {
    QApplication::setStyle(QStringLiteral("fusion"));
    QApplication::setPalette(test::paletteOf(rendering.look));
    useContrastStyleWhereNeeded();
    useFractionalScaleStyleWhereNeeded();
    const QFont usual = QApplication::font();
    QFont font = usual;
    if (rendering.points > 0)
        font.setPointSize(rendering.points);
    QApplication::setFont(font);

    test::MainWindow main;
    test::IniText ini;
    ini.homeLines = test::listLines("JO20AW,JO21AA");
    main.open(ini);
    if (!rendering.size.isEmpty())
        main.window().resize(rendering.size);
    save(main.window(),
         folder + QStringLiteral("/main-empty-") + rendering.name() + QStringLiteral(".png"));
    main.type("txtHome", QStringLiteral("JO20AW"));
    main.type("txtTarget", QStringLiteral("FN42AA"));
    main.pressEnter("txtTarget");
    save(main.window(),
         folder + QStringLiteral("/main-") + rendering.name() + QStringLiteral(".png"));
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
    }
    return 0;
}
