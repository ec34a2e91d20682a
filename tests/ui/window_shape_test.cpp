#include "tests/support/font_size.h"
#include "tests/ui/main_window_fixture.h"

#include <QLineEdit>
#include <QMap>
#include <QToolButton>

using namespace orbisgrid;

namespace {

/// Where everything is, counted from the box that is typed into first.
QMap<const QWidget*, QRect> placesIn(test::MainWindow& main) {
    LocatorConverter& window = main.window();
    const QPoint origin = main.edit("txtHome").mapTo(&window, QPoint());
    QMap<const QWidget*, QRect> places;
    for (const auto* widget : window.findChildren<QWidget*>()) {
        const QString name = widget->objectName();
        const bool isControl = !name.isEmpty() && !name.startsWith(QStringLiteral("qt_"));
        if (isControl && widget->isVisible() && !widget->size().isEmpty())
            places[widget] = QRect(widget->mapTo(&window, QPoint()) - origin, widget->size());
    }
    return places;
}

/// The controls that are elsewhere now.
QStringList moved(const QMap<const QWidget*, QRect>& before,
                  const QMap<const QWidget*, QRect>& after) {
    QStringList names;
    for (auto place = before.constBegin(); place != before.constEnd(); ++place) {
        if (after.value(place.key()) != place.value())
            names.append(place.key()->objectName());
    }
    return names;
}

/// What is left of the window around its controls.
QMargins marginsOf(const LocatorConverter& window) {
    QRect all;
    for (const auto* widget : window.findChildren<QWidget*>()) {
        const bool isControl = qobject_cast<const QLineEdit*>(widget) != nullptr ||
                               qobject_cast<const QFrame*>(widget) != nullptr ||
                               qobject_cast<const QAbstractButton*>(widget) != nullptr;
        if (isControl && widget->isVisible())
            all |= QRect(widget->mapTo(&window, QPoint()), widget->size());
    }
    return {all.left(), all.top(), window.width() - 1 - all.right(),
            window.height() - 1 - all.bottom()};
}

bool isAbout(int a, int b) {
    return std::abs(a - b) <= 1;
}

/// Height of what is drawn inside of a button.
int inkHeight(QAbstractButton& button) {
    const QImage image = button.grab().toImage();
    const QRect inside = image.rect().adjusted(3, 3, -3, -3);
    const QRgb ground = image.pixel(inside.topLeft());
    int first = -1;
    int last = -1;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            if (std::abs(qGray(image.pixel(x, y)) - qGray(ground)) > 64) {
                first = first < 0 ? y : first;
                last = y;
            }
        }
    }
    return last - first + 1;
}

} // namespace

/// The main window at other sizes than its own, and with other fonts.
class WindowShapeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void aLargerWindowKeepsItsContentTogether_data() {
        QTest::addColumn<QSize>("size");
        QTest::newRow("larger") << QSize(1200, 800);
        QTest::newRow("wide") << QSize(1900, 0);
        QTest::newRow("high") << QSize(0, 1200);
        QTest::newRow("a little larger") << QSize(1, 1);
    }

    /// A size of 0 or 1 is that much more than the window has by itself.
    void aLargerWindowKeepsItsContentTogether() {
        QFETCH(QSize, size);
        test::MainWindow main;
        main.open();
        const auto places = placesIn(main);
        QVERIFY(places.size() > 40);
        const QSize own = main.window().size();
        size = {size.width() > 1 ? size.width() : own.width() + size.width(),
                size.height() > 1 ? size.height() : own.height() + size.height()};
        const QMargins before = marginsOf(main.window());
        main.window().resize(size);
        QVERIFY(QTest::qWaitFor([&] { return main.window().size() == size; }));
        QCOMPARE(moved(places, placesIn(main)).join(u' '), QString());
        const QMargins margins = marginsOf(main.window());
        const QSize more = size - own;
        QVERIFY(isAbout(margins.left() - before.left(), more.width() / 2));
        QVERIFY(isAbout(margins.right() - before.right(), more.width() / 2));
        QVERIFY(isAbout(margins.top() - before.top(), more.height() / 2));
        QVERIFY(isAbout(margins.bottom() - before.bottom(), more.height() / 2));
    }

    void aResultMovesNothingInALargerWindow() {
        test::MainWindow main;
        main.open();
        main.window().resize(1200, 800);
        QTest::qWait(50);
        const auto places = placesIn(main);
        main.edit("txtHome").setText(QStringLiteral("RR99XX"));
        main.edit("txtTarget").setText(QStringLiteral("AA00AA"));
        main.click("cmdCalculateDistDir");
        QTest::qWait(50);
        for (const char* name : {"txtTarget", "cmdDefault_1", "cmdOKLocator", "Command15",
                                 "txtUIView", "cmdExit", "Command1"}) {
            const auto* widget = &main.child<QWidget>(QString::fromLatin1(name));
            QCOMPARE(placesIn(main).value(widget), places.value(widget));
        }
    }

    void whereItScrollsALargerWindowKeepsItsContentTogether() {
        const test::FontSize size(26);
        test::MainWindow main;
        main.open();
        main.window().resize(2400, 1800);
        QTest::qWait(50);
        const auto places = placesIn(main);
        main.window().resize(3000, 2000);
        QTest::qWait(50);
        QCOMPARE(moved(places, placesIn(main)).join(u' '), QString());
        const QMargins margins = marginsOf(main.window());
        QVERIFY(isAbout(margins.left(), margins.right()));
        QVERIFY(isAbout(margins.top(), margins.bottom()));
    }

    void buttonsAndTheirPicturesGrowWithTheFont_data() {
        QTest::addColumn<int>("points");
        QTest::newRow("14 points") << 14;
        QTest::newRow("18 points") << 18;
    }

    void buttonsAndTheirPicturesGrowWithTheFont() {
        QFETCH(const int, points);
        QMap<QString, QSize> sizes;
        QMap<QString, int> inks;
        measureButtons(10, sizes, inks);
        QMap<QString, QSize> largeSizes;
        QMap<QString, int> largeInks;
        measureButtons(points, largeSizes, largeInks);
        QVERIFY(sizes.size() >= 15);
        const double growth = points / 10.0;
        constexpr double least = 0.8; // the room around a picture stays
        for (auto size = sizes.constBegin(); size != sizes.constEnd(); ++size) {
            const QString& name = size.key();
            QVERIFY2(largeSizes[name].height() >= size->height() * growth * least,
                     qPrintable(name));
            QVERIFY2(largeSizes[name].width() >= size->width() * growth * least, qPrintable(name));
            // A line across is no higher than it is thick.
            if (inks[name] > 4)
                QVERIFY2(largeInks[name] >= inks[name] * growth * least, qPrintable(name));
        }
    }

private:
    static void measureButtons(int points, QMap<QString, QSize>& sizes, QMap<QString, int>& inks) {
        const test::FontSize size(points);
        test::MainWindow main;
        main.open();
        for (auto* button : main.window().findChildren<QToolButton*>()) {
            if (button->objectName().isEmpty() || !button->isVisible())
                continue;
            sizes[button->objectName()] = button->size();
            inks[button->objectName()] = inkHeight(*button);
        }
    }
};

QTEST_MAIN(WindowShapeTest)
#include "window_shape_test.moc"
