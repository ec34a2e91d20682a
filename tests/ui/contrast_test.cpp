#include "ui/contrast.h"

#include <QRandomGenerator>
#include <QTest>

#include <cmath>

using namespace orbisgrid;

class ContrastTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void isCountedAsTheGuidelinesDo_data() {
        QTest::addColumn<QString>("one");
        QTest::addColumn<QString>("other");
        QTest::addColumn<double>("ratio");
        const auto row = [](const char* one, const char* other, double ratio) {
            QTest::addRow("%s on %s", one, other)
                << QString::fromLatin1(one) << QString::fromLatin1(other) << ratio;
        };
        row("black", "white", 21);
        row("white", "black", 21);
        row("#123456", "#123456", 1);
        row("#767676", "white", 4.54);
        row("#949494", "white", 3.03);
        row("red", "white", 4.00);
        row("yellow", "black", 19.56);
        row("blue", "white", 8.59);
        row("lime", "black", 15.30);
    }

    void isCountedAsTheGuidelinesDo() {
        QFETCH(const QString, one);
        QFETCH(const QString, other);
        QFETCH(const double, ratio);
        const double counted = contrast(QColor(one), QColor(other));
        QVERIFY2(std::abs(counted - ratio) < 0.005, qPrintable(QString::number(counted)));
    }

    void everyGrayIsCountedByTheirFormula() {
        for (int value = 0; value <= 255; ++value) {
            const double share = value / 255.0;
            const double light =
                share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
            const double counted = contrast(Qt::white, QColor(value, value, value));
            QVERIFY2(std::abs(counted - 1.05 / (light + 0.05)) < 1e-12,
                     qPrintable(QString::number(value)));
        }
    }

    void aColorThatIsSeenStays() {
        QCOMPARE(withContrast(Qt::red, {Qt::white}, 3), QColor(Qt::red));
        QCOMPARE(withContrast(Qt::red, {Qt::black, Qt::white}, 3), QColor(Qt::red));
    }

    void aColorThatIsNotSeenChangesAsLittleAsItTakes() {
        QRandomGenerator random(7);
        for (int i = 0; i < 2000; ++i) {
            const QColor color = QColor::fromRgb(random.generate());
            const QColor ground = QColor::fromRgb(random.generate());
            const QColor seen = withContrast(color, {ground}, 4.5);
            QVERIFY(contrast(seen, ground) >= 4.5); // black or white always has that
            QVERIFY(contrast(seen, ground) < 7 || seen == color ||
                    contrast(seen, ground) < contrast(color, ground) + 4);
        }
    }

    void betweenTwoBackgroundsItFindsWhatIsSeenOnBoth() {
        const QColor dark(53, 53, 53);
        const QColor seen = withContrast(QColor(38, 38, 38), {dark, Qt::white}, 3);
        QVERIFY(contrast(seen, dark) >= 3);
        QVERIFY(contrast(seen, Qt::white) >= 3);
    }

    void whereNothingIsSeenOnAllTheFirstCounts() {
        QCOMPARE(withContrast(Qt::gray, {Qt::black, Qt::white}, 10), QColor(Qt::white));
        QCOMPARE(withContrast(Qt::gray, {Qt::white, Qt::black}, 10), QColor(Qt::black));
    }

    void aTransparentColorIsTakenAsItLooks() {
        const QColor half(255, 255, 255, 128);
        QCOMPARE(withContrast(half, {Qt::black}, 3), QColor(128, 128, 128));
        QVERIFY(contrast(withContrast(half, {QColor(53, 53, 53)}, 4.5), QColor(53, 53, 53)) >= 4.5);
    }

    void whatIsDrawnWithAColorIsWhatCounts() {
        const auto darker = [](const QColor& color) { return color.darker(140); };
        const QColor window =
            withContrast(QColor(239, 239, 239), {QColor(239, 239, 239)}, 3, darker);
        QVERIFY(contrast(darker(window), QColor(239, 239, 239)) >= 3);
        QVERIFY(contrast(window, QColor(239, 239, 239)) < 3);
    }
};

QTEST_APPLESS_MAIN(ContrastTest)
#include "contrast_test.moc"
