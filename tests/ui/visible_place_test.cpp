#include "tests/support/table.h"
#include "ui/visible_place.h"

#include <QString>
#include <QStringList>
#include <QTest>

using namespace orbisgrid;

namespace {

/// "x y width height"
QRect rectOf(const QString& field) {
    const QStringList numbers = field.split(u' ');
    return {numbers.at(0).toInt(), numbers.at(1).toInt(), numbers.at(2).toInt(),
            numbers.at(3).toInt()};
}

QList<ScreenArea> screensOf(const QString& whole, const QString& available) {
    QList<ScreenArea> screens;
    for (const QString& field : whole.split(u'|'))
        screens.append({rectOf(field), rectOf(field)});
    if (available != QStringLiteral("-")) {
        const QStringList fields = available.split(u'|');
        for (qsizetype i = 0; i < screens.size(); ++i)
            screens[i].available = rectOf(fields.at(i));
    }
    return screens;
}

} // namespace

class VisiblePlaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void rows_data() {
        QTest::addColumn<QString>("window");
        QTest::addColumn<QString>("screens");
        QTest::addColumn<QString>("available");
        QTest::addColumn<QString>("place");
        for (const test::Row& row : test::readTable("visible_place.tsv"))
            QTest::newRow(row.name.c_str())
                << QString::fromStdString(row["window"]) << QString::fromStdString(row["screens"])
                << QString::fromStdString(row["available"]) << QString::fromStdString(row["place"]);
    }

    void rows() {
        QFETCH(const QString, window);
        QFETCH(const QString, screens);
        QFETCH(const QString, available);
        QFETCH(const QString, place);
        const QPoint found = visiblePlace(rectOf(window), screensOf(screens, available));
        QCOMPARE(QStringLiteral("%1 %2").arg(found.x()).arg(found.y()), place);
    }
};

QTEST_APPLESS_MAIN(VisiblePlaceTest)
#include "visible_place_test.moc"
