#include "tests/support/child.h"
#include "ui/app_icon.h"

#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cstdlib>

using namespace orbisgrid;

namespace {

constexpr int installedSizes[] = {16, 22, 24, 32, 48, 64, 128, 256};

QString fileOf(const QString& folder, int size) {
    return folder + QStringLiteral("/orbisgrid-%1.png").arg(size);
}

QString kept() {
    return QStringLiteral(ORBISGRID_SOURCES "/packaging/icons");
}

int differenceOfPixels(QRgb one, QRgb other) {
    return std::abs(qRed(one) - qRed(other)) + std::abs(qGreen(one) - qGreen(other)) +
           std::abs(qBlue(one) - qBlue(other)) + std::abs(qAlpha(one) - qAlpha(other));
}

/// How far two pictures are from each other: 0 for the same one, 255 for black and white. 256 where
/// one of them is missing or has another size.
double difference(const QImage& one, const QImage& other) {
    if (one.isNull() || one.size() != other.size())
        return 256;
    const QImage left = one.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QImage right = other.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    qint64 sum = 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x)
            sum += differenceOfPixels(left.pixel(x, y), right.pixel(x, y));
    }
    return static_cast<double>(sum) / (4.0 * left.width() * left.height());
}

/// The icon as the program paints it.
QImage painted(int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    appIcon().paint(&painter, image.rect());
    return image;
}

} // namespace

/// One picture in three places: the drawing, the files that are installed, and what the program
/// paints.
class AppIconTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void theProgramPaintsWhatIsInstalled_data() { addSizes(); }

    void theProgramPaintsWhatIsInstalled() {
        QFETCH(int, size);
        const QImage file(fileOf(kept(), size));
        QVERIFY2(difference(file, painted(size)) < 4,
                 qPrintable(QString::number(difference(file, painted(size)))));
    }

    void theInstalledFilesAreRenderedFromTheDrawing_data() { addSizes(); }

    void theInstalledFilesAreRenderedFromTheDrawing() {
        QFETCH(int, size);
        QVERIFY2(m_isRendered, "scripts/icons.sh failed");
        const QImage rendered(fileOf(m_rendered.path(), size));
        QVERIFY2(difference(rendered, QImage(fileOf(kept(), size))) < 0.5,
                 "run scripts/icons.sh after a change of the drawing");
    }

    void aWindowGetsTheSizesThatItNames() {
        const QIcon icon = appIcon();
        const QList<QSize> sizes = icon.availableSizes();
        QCOMPARE(sizes.size(), 4);
        for (const QSize& size : sizes)
            QCOMPARE(icon.pixmap(size, 1.0).size(), size);
    }

    void anotherPictureIsFarAway() {
        QImage empty(64, 64, QImage::Format_ARGB32_Premultiplied);
        empty.fill(Qt::transparent);
        QVERIFY(difference(painted(64), empty) > 50);
        QVERIFY(difference(painted(64), painted(64).mirrored(true, false)) > 10);
    }

private:
    static void addSizes() {
        QTest::addColumn<int>("size");
        for (const int size : installedSizes)
            QTest::addRow("%d", size) << size;
    }

    QTemporaryDir m_rendered;
    const bool m_isRendered = test::shell("'" ORBISGRID_SOURCES "/scripts/icons.sh' '" +
                                          m_rendered.path().toStdString() + "'")
                                  .status == 0;
};

QTEST_MAIN(AppIconTest)
#include "app_icon_test.moc"
