#include "ui/icons.h"

#include <QGuiApplication>
#include <QImage>
#include <QPalette>
#include <QPixmapCache>
#include <QtTest>

#include <vector>

using namespace orbisgrid;

class IconsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void init() { QPixmapCache::clear(); }

    void aGlyphOnSeveralButtonsIsDrawnOnce() {
        const qint64 first = glyphIcon(Glyph::copy).pixmap(16).cacheKey();
        QCOMPARE(glyphIcon(Glyph::copy).pixmap(16).cacheKey(), first);
    }

    void eachGlyphIsAnotherPicture() {
        std::vector<QImage> pictures;
        for (const Glyph glyph :
             {Glyph::convert, Glyph::copy, Glyph::copyAll, Glyph::map, Glyph::pathMap,
              Glyph::removeItem, Glyph::eraseList, Glyph::refresh})
            pictures.push_back(picture(glyph));
        for (std::size_t i = 0; i < pictures.size(); ++i) {
            QVERIFY(pictures[i] != blank());
            for (std::size_t other = 0; other < i; ++other)
                QVERIFY(pictures[i] != pictures[other]);
        }
    }

    void eachSizeIsDrawn() {
        const QIcon icon = glyphIcon(Glyph::map);
        QCOMPARE(icon.pixmap(16).size(), QSize(16, 16));
        QCOMPARE(icon.pixmap(24).size(), QSize(24, 24));
        QCOMPARE(icon.pixmap(QSize(16, 24)).size(), QSize(16, 24));
        QCOMPARE(icon.pixmap(QSize(24, 16)).size(), QSize(24, 16));
    }

    void aButtonThatIsOffHasAPictureOfItsOwn() {
        const QIcon icon = glyphIcon(Glyph::eraseList);
        QVERIFY(icon.pixmap(16, QIcon::Disabled).toImage() != icon.pixmap(16).toImage());
    }

    void otherColorsAreTakenAtOnce() {
        const QPalette usual = QGuiApplication::palette();
        const QImage before = picture(Glyph::copy);
        QPalette changed = usual;
        changed.setColor(QPalette::ButtonText, Qt::red);
        QGuiApplication::setPalette(changed);
        const QImage redLines = picture(Glyph::copy);
        changed.setColor(QPalette::Base, Qt::green);
        QGuiApplication::setPalette(changed);
        const QImage greenSheets = picture(Glyph::copy);
        QGuiApplication::setPalette(usual);
        QVERIFY(redLines != before);
        QVERIFY(greenSheets != redLines);
        QCOMPARE(picture(Glyph::copy), before);
    }

private:
    static constexpr int side = 16;

    static QImage picture(Glyph glyph) { return glyphIcon(glyph).pixmap(side).toImage(); }

    static QImage blank() {
        QPixmap pixmap(side, side);
        pixmap.fill(Qt::transparent);
        return pixmap.toImage();
    }
};

QTEST_MAIN(IconsTest)
#include "icons_test.moc"
