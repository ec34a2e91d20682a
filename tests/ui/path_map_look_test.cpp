#include "platform/wide_registers.h"
#include "tests/proof/land_comparison.h"
#include "tests/support/child.h"
#include "tests/ui/opened_map.h"
#include "tests/ui/palettes.h"
#include "ui/contrast.h"
#include "ui/map_colors.h"
#include "ui/picture_file.h"
#include "ui/picture_painter.h"
#include "ui/qt_text.h"

#include <QFile>
#include <QFontMetricsF>
#include <QTemporaryDir>

#include <iostream>
#include <memory>

using namespace orbisgrid;

namespace {

constexpr LocatorPair bostonPath{u"JO20AW", u"FN42AA"};

/// Between the mean colours of a block: smoothed edges are the same there, a line that is missing
/// is not.
double differenceOfBlocks(const QImage& one, const QImage& other, const QRect& block) {
    std::array<double, 3> sums{};
    for (int y = block.top(); y <= block.bottom(); ++y) {
        for (int x = block.left(); x <= block.right(); ++x) {
            const QRgb left = one.pixel(x, y), right = other.pixel(x, y);
            sums[0] += qRed(left) - qRed(right);
            sums[1] += qGreen(left) - qGreen(right);
            sums[2] += qBlue(left) - qBlue(right);
        }
    }
    const double most = std::max({std::fabs(sums[0]), std::fabs(sums[1]), std::fabs(sums[2])});
    return most / (block.width() * block.height());
}

/// The greatest of these differences, and where that block begins.
std::pair<double, QPoint> mostDifferentBlock(const QImage& one, const QImage& other) {
    constexpr int side = 20; // a dot of the pictures, or a length of a line
    std::pair<double, QPoint> most{};
    for (int y = 0; y < one.height(); y += side) {
        for (int x = 0; x < one.width(); x += side) {
            const double difference = differenceOfBlocks(one, other, {x, y, side, side});
            if (difference > most.first)
                most = {difference, {x, y}};
        }
    }
    return most;
}

/// With print's colours, as a window paints.
QImage paintedForScreen(const Picture& picture) {
    const RoleStyles styles = printStyles();
    return paintedImage(
        picture, 2000,
        {.styles = styles, .font = QFont(QStringLiteral("DejaVu Sans")), .isForScreen = true});
}

/// Black land in a white sea, and nothing else.
RoleStyles landAlone() {
    RoleStyles styles;
    styles[Role::sea].fill = 0xFFFFFFFF;
    styles[Role::land].fill = 0xFF000000;
    return styles;
}

/// What the letters of a label cover, as it is painted.
QRectF lettersOf(const Picture::Label& label, QFont font, double scale) {
    const RoleStyles styles = printStyles();
    font.setPixelSize(std::max(1, qRound(label.size * scale)));
    font.setBold(styles.of(label.role).isBold);
    const QFontMetricsF metrics(font);
    const QString text = toQString(label.text);
    QPointF place = QPointF(label.place.x, label.place.y) * scale;
    if (label.anchor == Picture::Anchor::middle)
        place.rx() -= metrics.horizontalAdvance(text) / 2;
    else if (label.anchor == Picture::Anchor::end)
        place.rx() -= metrics.horizontalAdvance(text);
    return metrics.tightBoundingRect(text).translated(place);
}

} // namespace

/// How the map looks: its colours, its letters, and that all painters show the same.
class PathMapLookTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    // Colours -------------------------------------------------------------------------------

    void textsAndLinesAreSeen_data() {
        QTest::addColumn<QString>("look");
        for (const char* look : {"light", "dark", "contrast", "grey", "night"})
            QTest::newRow(look) << QString::fromLatin1(look);
    }

    void textsAndLinesAreSeen() {
        QFETCH(const QString, look);
        const RoleStyles styles = screenStyles(test::paletteOf(look));
        const QColor sea = QColor::fromRgba(styles.of(Role::sea).fill);
        const QColor land = QColor::fromRgba(styles.of(Role::land).fill);
        for (const Role role : everyRole()) {
            const QColor fill = QColor::fromRgba(styles.of(role).fill);
            const QColor seam = QColor::fromRgba(styles.of(role).stroke);
            if (isTextRole(role))
                QVERIFY2(contrast(fill, seam) >= contrastOfTexts, roleName(role).data());
        }
        for (const Role role : {Role::shortPath, Role::longPath, Role::rim, Role::tick, Role::cross,
                                Role::land, Role::ring}) {
            const QColor line = QColor::fromRgba(styles.of(role).stroke);
            QVERIFY2(contrast(line, sea) >= contrastOfEdges, roleName(role).data());
        }
        for (const Role role : {Role::target, Role::home})
            QVERIFY2(contrast(QColor::fromRgba(styles.of(role).fill), land) >= contrastOfEdges,
                     roleName(role).data());
        for (const Role role : {Role::shortPath, Role::longPath, Role::cross})
            QVERIFY2(contrast(QColor::fromRgba(styles.of(role).stroke), land) >= contrastOfEdges,
                     roleName(role).data());
    }

    /// On black the two colours are the palette's, whatever they are.
    void pathsAreSeenOnBlackWithAnyHighlight_data() {
        QTest::addColumn<QColor>("highlight");
        for (const char* color : {"#000080", "#0000aa", "#330066", "#2c2c2c", "#000000", "#00ffff"})
            QTest::newRow(color) << QColor(QString::fromLatin1(color));
    }

    void pathsAreSeenOnBlackWithAnyHighlight() {
        QFETCH(const QColor, highlight);
        QPalette palette{QColor(Qt::black), QColor(Qt::black)};
        palette.setColor(QPalette::WindowText, Qt::white);
        palette.setColor(QPalette::Highlight, highlight);
        const RoleStyles styles = screenStyles(palette);
        const QColor sea = QColor::fromRgba(styles.of(Role::sea).fill);
        const QColor land = QColor::fromRgba(styles.of(Role::land).fill);
        for (const std::uint32_t color :
             {styles.of(Role::shortPath).stroke, styles.of(Role::longPath).stroke,
              styles.of(Role::target).fill, styles.of(Role::home).fill}) {
            QVERIFY(contrast(QColor::fromRgba(color), sea) >= contrastOfEdges);
            QVERIFY(contrast(QColor::fromRgba(color), land) >= contrastOfEdges);
        }
    }

    // Painters ------------------------------------------------------------------------------

    /// Another program's reading of the file, against our own painting of the same picture.
    void theFileAndThePaintingAreTheSame_data() {
        QTest::addColumn<PictureKind>("kind");
        QTest::addColumn<bool>("isForScreen");
        QTest::newRow("SVG, on paper") << PictureKind::svg << false;
        QTest::newRow("SVG, on a screen") << PictureKind::svg << true;
        QTest::newRow("PDF") << PictureKind::pdf << false;
    }

    void theFileAndThePaintingAreTheSame() {
        QFETCH(const PictureKind, kind);
        QFETCH(const bool, isForScreen);
        test::OpenedMap map;
        map.open(bostonPath);
        map.press(Qt::Key_Up);
        map.press(Qt::Key_Left, Qt::ShiftModifier); // the cross beside the Target
        const QTemporaryDir folder;
        const Picture picture = pathMap(map.view().options());
        QFile file(folder.filePath(QStringLiteral("map")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(pictureFile(picture, {u"title", u"description"}, kind));
        file.close();
        const std::string reader =
            kind == PictureKind::pdf
                ? "pdftoppm -png -singlefile -scale-to-x 2000 -scale-to-y 2000 map read"
                : "rsvg-convert --background-color=white -w 2000 -h 2000 map -o read.png";
        QCOMPARE(test::shell("cd '" + folder.path().toStdString() + "' && " + reader).status, 0);
        const QImage painted = isForScreen ? paintedForScreen(picture) : printedImage(picture);
        const QImage read = QImage(folder.filePath(QStringLiteral("read.png")))
                                .convertToFormat(QImage::Format_RGB32);
        QCOMPARE(read.size(), painted.size());
        // Without a label it would be 40 and more, without a line 13 (but for the dotted rings).
        const auto [difference, place] = mostDifferentBlock(read, painted);
        QVERIFY2(difference < 12,
                 qPrintable(
                     QStringLiteral("%1 at %2, %3").arg(difference).arg(place.x()).arg(place.y())));
    }

    /// Pixel by pixel, against a test of the sphere that knows nothing of maps.
    void paintedLandIsWhereItIs() {
        const RoleStyles styles = landAlone();
        const test::LandComparison found = test::compareLand([&](const PathMapOptions& options) {
            const QImage image = paintedImage(pathMap(options), test::landPixels,
                                              {.styles = styles, .font = {}, .isForScreen = true});
            letGoOfWideRegisters(); // the rest is many sines
            return [image](Picture::Point point) {
                return qGray(image.pixel(static_cast<int>(point.x), static_cast<int>(point.y))) <
                       128;
            };
        });
        std::cout << found.looked << " pixels, " << found.differing << " shown otherwise, of which "
                  << found.wrong << " farther than two pixels from a coast\n";
        QCOMPARE(found.looked, 600'000);
        QCOMPARE(found.wrong, 0);
        QVERIFY(found.differing < found.looked / 100); // the coasts themselves
    }

    // Letters -------------------------------------------------------------------------------

    void lettersNeitherOverlapNorLeaveThePicture_data() {
        QTest::addColumn<int>("points");
        QTest::addColumn<int>("side");
        QTest::addColumn<double>("scale");
        for (const int points : {8, 10, 14, 18}) {
            for (const int side : {200, 600, 1000}) {
                for (const double scale : {1.0, 1.25, 2.0})
                    QTest::addRow("%d points, %d pixels, scale %g", points, side, scale)
                        << points << side << scale;
            }
        }
    }

    void lettersNeitherOverlapNorLeaveThePicture() {
        QFETCH(const int, points);
        QFETCH(const int, side);
        QFETCH(const double, scale);
        QFont font = QApplication::font();
        font.setPointSize(points);
        qsizetype labels = 0;
        for (const double kilometres : {halfCircumference, 3000.0, 1000.0, 200.0}) {
            PathMapOptions options;
            const MapSubject subject = subjectOfPath(bostonPath).value();
            options.view = {.centre = subject.centre,
                            .radiusKilometres = kilometres,
                            .textSize = QFontInfo(font).pixelSize() * Picture::side / side};
            options.home = subject.home;
            options.targets = subject.targets;
            options.moment = parsedMoment("2026-06-21T12:00:00Z");
            QList<QRectF> taken;
            const double pixels = scale * side;
            for (const Picture::Shape& shape : pathMap(options).shapes) {
                const auto* label = std::get_if<Picture::Label>(&shape);
                if (label == nullptr)
                    continue;
                const QRectF letters = lettersOf(*label, font, pixels / Picture::side);
                const QString text = toQString(label->text);
                QVERIFY2(QRectF(-0.5, -0.5, pixels + 1, pixels + 1).contains(letters),
                         qPrintable(text));
                for (const QRectF& other : std::as_const(taken))
                    QVERIFY2(!other.intersects(letters), qPrintable(text));
                taken.append(letters);
            }
            labels += taken.size();
        }
        QVERIFY2(labels >= 8, qPrintable(QString::number(labels))); // Home and Target at least
    }
};

QTEST_MAIN(PathMapLookTest)
#include "path_map_look_test.moc"
