#include "tests/support/accessible_tree.h"
#include "tests/support/child.h"
#include "tests/ui/opened_map.h"
#include "tests/ui/palettes.h"
#include "ui/contrast.h"
#include "ui/map_colors.h"
#include "ui/picture_file.h"
#include "ui/picture_painter.h"
#include "ui/qt_text.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QFileDialog>
#include <QMimeData>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTimer>
#include <QWheelEvent>

using namespace orbisgrid;

namespace {

constexpr LocatorPair bostonPath{u"JO20AW", u"FN42AA"};
const Position brussels = pointOf(u"JO20aw");
const Position boston = pointOf(u"FN42aa");

int differenceOfPixels(QRgb one, QRgb other) {
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other))});
}

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

} // namespace

class PathMapWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void init() { m_map = std::make_unique<test::OpenedMap>(); }

    void cleanup() {
        QVERIFY(m_map->watchdog().allCame());
        m_map.reset();
    }

    // What it shows -------------------------------------------------------------------------

    void theLineIsThePaths() {
        m_map->open(bostonPath);
        QCOMPARE(m_map->text("lblPath"),
                 QStringLiteral("JO20AW to FN42AA: 5637 km, 3520 miles, 291°; long path 34368 km, "
                                "111°"));
        QVERIFY(!m_map->window().isModal());
    }

    void homeAndTargetAreDrawnWhereTheyAre() {
        m_map->open(bostonPath);
        const QImage image = m_map->view().grab().toImage();
        QVERIFY(differenceOfPixels(image.pixel(m_map->pixelOf(brussels)), 0xFF000000) < 40);
        QVERIFY(differenceOfPixels(image.pixel(m_map->pixelOf(boston)), 0xFFB00020) < 40);
    }

    void withoutOutlinesItSaysSoAndShowsTheRest_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("missing") << QByteArray();
        QTest::newRow("damaged") << QByteArray("ORBIMAP1 and nothing of it");
    }

    void withoutOutlinesItSaysSoAndShowsTheRest() {
        QFETCH(const QByteArray, content);
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("map.dat"));
        if (!content.isEmpty()) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(content);
        }
        m_map = std::make_unique<test::OpenedMap>(path.toStdString());
        m_map->open(bostonPath);
        QVERIFY(m_map->text("lblPath").startsWith(QStringLiteral("JO20AW to FN42AA: 5637 km")));
        QVERIFY(
            m_map->text("lblPath").contains(QStringLiteral("outlines of the land are missing")));
        const QImage image = m_map->view().grab().toImage();
        QVERIFY(differenceOfPixels(image.pixel(m_map->pixelOf(boston)), 0xFFB00020) < 40);
    }

    void aSmallWindowStillShowsAMap() {
        m_map->open(bostonPath);
        m_map->window().resize(200, 200);
        QVERIFY(QTest::qWaitFor([&] { return m_map->window().size() == QSize(200, 200); }));
        QVERIFY(m_map->view().height() >= 120);
        const QImage image = m_map->view().grab().toImage();
        QVERIFY(differenceOfPixels(image.pixel(m_map->pixelOf(brussels)), 0xFF000000) < 60);
    }

    /// The clock is looked at when something happens, and at no other time.
    void theNightIsThatOfTheMomentWhenItOpened() {
        m_map->open(bostonPath);
        const Moment opened = m_map->view().options().moment.value();
        m_map->setMoment(Moment{opened.seconds + 3600});
        QTest::qWait(50);
        QCOMPARE(m_map->view().options().moment->seconds, opened.seconds);
        m_map->press(Qt::Key_Plus);
        QCOMPARE(m_map->view().options().moment->seconds, opened.seconds + 3600);
        m_map->setMoment(opened);
        m_map->window().showSubject(subjectOfPath(bostonPath).value());
        QCOMPARE(m_map->view().options().moment->seconds, opened.seconds);
    }

    void theCheckBoxSwitchesTheNight() {
        m_map->open(bostonPath);
        const QImage night = m_map->view().grab().toImage();
        QTest::mouseClick(&m_map->button("chkNight"), Qt::LeftButton, {}, QPoint(5, 8));
        QVERIFY(!m_map->view().options().moment.has_value());
        QVERIFY(m_map->view().grab().toImage() != night);
    }

    // Pointer and cross ---------------------------------------------------------------------

    void thePointersPlaceIsReadOut() {
        m_map->open(bostonPath);
        QTest::mouseMove(&m_map->view(), m_map->pixelOf(boston));
        QVERIFY(QTest::qWaitFor(
            [&] { return m_map->text("lblPlace").startsWith(QStringLiteral("FN")); }));
        QVERIFY(m_map->text("lblPlace").contains(QStringLiteral(" km, ")));
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(&m_map->view(), &leave);
        QCOMPARE(m_map->text("lblPlace"), QString());
    }

    void thePointersPlaceChangesWithTheRadius() {
        m_map->open(bostonPath);
        const QPoint place = m_map->view().rect().center() + QPoint(80, 40);
        QTest::mouseMove(&m_map->view(), place);
        QTest::mouseMove(&m_map->view(), place + QPoint(1, 0));
        const QString before = m_map->view().readOut();
        QTest::keyClick(&m_map->view(), Qt::Key_Plus);
        const QString after = m_map->view().readOut();
        QVERIFY(!after.isEmpty());
        QVERIFY2(after != before, qPrintable(after));
        QTest::mouseMove(&m_map->view(), place);
        QTest::mouseMove(&m_map->view(), place + QPoint(1, 0));
        QCOMPARE(m_map->view().readOut(), after);
    }

    void thePointersPlaceIsSaidAgainWithAnotherPath() {
        m_map->open(bostonPath);
        for (const QPoint& place : {QPoint(60, 30), QPoint(61, 30)}) // one of them is another one
            QTest::mouseMove(&m_map->view(), m_map->view().rect().center() + place);
        QTest::keyClick(&m_map->view(), Qt::Key_Left);
        QCOMPARE(m_map->view().readOut(), m_map->view().crossReadOut());
        m_map->window().showSubject(subjectOfPath(bostonPath).value());
        QVERIFY(m_map->view().crossReadOut().isEmpty());
        QVERIFY(!m_map->view().readOut().isEmpty());
    }

    void withoutAHomeThereIsALocatorAndNoDistance() {
        m_map->open(subjectBeforePath(u""));
        m_map->press(Qt::Key_Up);
        QCOMPARE(m_map->text("lblPlace"), QStringLiteral("JJ00AA"));
    }

    void aClickKeepsItsReadOut() {
        m_map->open(bostonPath);
        const QSignalSpy chosen(&m_map->window(), &PathMap::targetChosen);
        QTest::mouseClick(&m_map->view(), Qt::LeftButton, {}, m_map->pixelOf(boston));
        const QString kept = m_map->text("lblPlace");
        QVERIFY(kept.contains(QStringLiteral(" km, ")));
        QTest::mouseMove(&m_map->view(), m_map->pixelOf(brussels));
        QVERIFY(QTest::qWaitFor([&] { return m_map->text("lblPlace") != kept; }));
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(&m_map->view(), &leave);
        QCOMPARE(m_map->text("lblPlace"), kept);
        QCOMPARE(chosen.count(), 0);
    }

    void aClickOutsideOfTheRimDoesNothing() {
        m_map->open(bostonPath);
        const QSignalSpy chosen(&m_map->window(), &PathMap::targetChosen);
        QTest::mouseClick(&m_map->view(), Qt::LeftButton, {}, QPoint(3, 3));
        QTest::mouseDClick(&m_map->view(), Qt::LeftButton, {}, QPoint(3, 3));
        QCOMPARE(m_map->text("lblPlace"), QString());
        QCOMPARE(chosen.count(), 0);
    }

    /// At a radius where the smallest of these subsquares is more than 3 pixels wide.
    void aDoubleClickGivesTheSubsquareBack() {
        QRandomGenerator random(20260621);
        const auto letter = [&](int count) {
            return QChar(u'A' + static_cast<ushort>(random.bounded(count)));
        };
        const auto digit = [&] { return QChar(u'0' + static_cast<ushort>(random.bounded(10))); };
        m_map->open(bostonPath);
        const QSignalSpy chosen(&m_map->window(), &PathMap::targetChosen);
        for (int i = 0; i < 1000; ++i) {
            QString locator;
            for (const QChar character :
                 {letter(18), QChar(u'C' + static_cast<ushort>(random.bounded(14))), digit(),
                  digit(), letter(24), letter(24)})
                locator += character;
            const Text target = toText(locator);
            // Home is in the middle of its square: both are on a map of 156 km.
            Text home = target;
            home[4] = u'L';
            home[5] = u'L';
            m_map->window().showSubject(subjectOfPath({home, target}).value());
            for (int step = 0; i == 0 && step < 30; ++step)
                m_map->press(Qt::Key_Plus); // down to 100 km
            for (int step = 0; i == 0 && step < 2; ++step)
                m_map->press(Qt::Key_Minus); // 156 km
            const Position place = pathBetween({home, target})->target;
            QTest::mouseDClick(&m_map->view(), Qt::LeftButton, {}, m_map->pixelOf(place));
            QCOMPARE(chosen.count(), i + 1);
            QCOMPARE(chosen.last().first().toString(), locator);
        }
    }

    // Keys ----------------------------------------------------------------------------------

    void arrowsMoveTheCross() {
        m_map->open(bostonPath);
        m_map->press(Qt::Key_Up); // the first one puts it on the Target
        QCOMPARE(m_map->text("lblPlace"), QStringLiteral("FN42AA: 5637 km, 3520 miles, 291°"));
        m_map->press(Qt::Key_Right);
        QVERIFY(m_map->text("lblPlace").endsWith(QStringLiteral(", 292°")));
        m_map->press(Qt::Key_Left, Qt::ShiftModifier);
        QVERIFY(m_map->text("lblPlace").endsWith(QStringLiteral(", 282°")));
        const double before = crossKilometres();
        m_map->press(Qt::Key_Up);
        const double pixel = MapFrame(m_map->shownView()).kilometresPerUnit() * Picture::side /
                             std::min(m_map->view().width(), m_map->view().height());
        QVERIFY(std::fabs(crossKilometres() - before - pixel) < 1e-6);
        m_map->press(Qt::Key_Down, Qt::ShiftModifier);
        QVERIFY(std::fabs(crossKilometres() - before + 9 * pixel) < 1e-6);
    }

    void theFirstCrossIsWithinTheRim() {
        m_map->open(bostonPath);
        for (int i = 0; i < 10; ++i)
            QTest::keyClick(&m_map->view(), Qt::Key_Plus);
        QVERIFY(radius() < 5000); // Boston is farther away
        QTest::keyClick(&m_map->view(), Qt::Key_Left);
        QVERIFY(std::fabs(crossKilometres() - radius()) < 1e-6 * radius());
    }

    void theCrossStaysWithinTheRim() {
        m_map->open(bostonPath);
        m_map->press(Qt::Key_Up);
        for (int i = 0; i < 100; ++i)
            m_map->press(Qt::Key_Up, Qt::ShiftModifier);
        QVERIFY(std::fabs(crossKilometres() - halfCircumference) < 1e-3);
        for (int i = 0; i < 100; ++i)
            m_map->press(Qt::Key_Down, Qt::ShiftModifier);
        QVERIFY(crossKilometres() < 1e-6);
        m_map->press(Qt::Key_Up, Qt::ShiftModifier);
        QVERIFY2(m_map->text("lblPlace").endsWith(QStringLiteral(", 291°")),
                 "the direction is lost");
    }

    void enterTakesTheCrossAsTarget() {
        m_map->open(bostonPath);
        const QSignalSpy chosen(&m_map->window(), &PathMap::targetChosen);
        m_map->press(Qt::Key_Return);
        QCOMPARE(chosen.count(), 0);
        m_map->press(Qt::Key_Up);
        m_map->press(Qt::Key_Return);
        m_map->press(Qt::Key_Enter);
        QCOMPARE(chosen.count(), 2);
        QCOMPARE(chosen.last().first().toString(), QStringLiteral("FN42AA"));
    }

    void keysAndWheelChangeTheRadius() {
        m_map->open(bostonPath);
        QCOMPARE(radius(), halfCircumference);
        m_map->press(Qt::Key_Plus);
        QCOMPARE(radius(), halfCircumference / 1.25);
        turnWheel(120);
        QCOMPARE(radius(), halfCircumference / 1.25 / 1.25);
        turnWheel(-120);
        m_map->press(Qt::Key_Minus);
        m_map->press(Qt::Key_Minus);
        QCOMPARE(radius(), halfCircumference);
        turnWheel(120 * 100);
        QCOMPARE(radius(), 100.0);
        m_map->press(Qt::Key_0);
        QCOMPARE(radius(), halfCircumference);
    }

    void escapeClosesIt() {
        m_map->open(bostonPath);
        m_map->press(Qt::Key_Escape);
        QVERIFY(!m_map->window().isVisible());
    }

    void screenReadersHearWhereTheCrossIs() {
        m_map->open(bostonPath);
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&m_map->view());
        QCOMPARE(spoken->text(QAccessible::Value), QString());
        QVERIFY(spoken->text(QAccessible::Description).contains(QStringLiteral("arrow keys")));
        m_map->press(Qt::Key_Up);
        QCOMPARE(spoken->text(QAccessible::Description), spoken->text(QAccessible::Value));
        QCOMPARE(spoken->text(QAccessible::Value),
                 QStringLiteral("FN42AA: 5637 km, 3520 miles, 291°"));
        QCOMPARE(test::controlsThatSayNothing(m_map->window()), QStringList());
    }

    // Menu ----------------------------------------------------------------------------------

    void menuOfAPlace_data() {
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("home");
        QTest::addColumn<QString>("copied");
        const QString locator = QStringLiteral("FN42AA");
        QTest::newRow("mnuSetTarget") << locator << QString() << QString();
        QTest::newRow("mnuSetHome") << QString() << locator << QString();
        QTest::newRow("mnuCopyLocator") << QString() << QString() << locator;
    }

    void menuOfAPlace() {
        QFETCH(const QString, target);
        QFETCH(const QString, home);
        QFETCH(const QString, copied);
        QGuiApplication::clipboard()->clear();
        m_map->open(bostonPath);
        const QSignalSpy targets(&m_map->window(), &PathMap::targetChosen);
        const QSignalSpy homes(&m_map->window(), &PathMap::homeChosen);
        m_map->press(Qt::Key_Up);
        choose(QTest::currentDataTag());
        QCOMPARE(targets.isEmpty() ? QString() : targets.last().first().toString(), target);
        QCOMPARE(homes.isEmpty() ? QString() : homes.last().first().toString(), home);
        QCOMPARE(QGuiApplication::clipboard()->text(), copied);
    }

    void theMenuOfTheRightButtonIsOfThePlaceBelowThePointer() {
        m_map->open(bostonPath);
        const QSignalSpy targets(&m_map->window(), &PathMap::targetChosen);
        m_map->press(Qt::Key_Up); // a cross elsewhere
        m_map->press(Qt::Key_Up);
        const QPoint place = m_map->pixelOf(brussels);
        withMenu(
            [](const QMenu& menu) {
                QStringList captions;
                for (const QAction* action : menu.actions())
                    captions += action->text();
                QCOMPARE(
                    captions,
                    (QStringList{QStringLiteral("Set as Target"), QStringLiteral("Set as Home"),
                                 QStringLiteral("Copy locator"), QString(),
                                 QStringLiteral("Copy picture"), QStringLiteral("Save picture…")}));
                menu.actions().constFirst()->trigger();
            },
            QContextMenuEvent::Mouse, place);
        QCOMPARE(targets.size(), 1);
        QCOMPARE(targets.last().first().toString().left(4), QStringLiteral("JO20"));
    }

    void withoutAPlaceTheMenuHasThePictureOnly() {
        m_map->open(bostonPath);
        withMenu([](const QMenu& menu) {
            for (const char* name : {"mnuSetTarget", "mnuSetHome", "mnuCopyLocator"})
                QVERIFY(!menu.findChild<QAction*>(QString::fromLatin1(name))->isEnabled());
            QVERIFY(menu.findChild<QAction*>(QStringLiteral("mnuSavePicture"))->isEnabled());
        });
    }

    void theCopiedPictureIsAnImageAndADrawing() {
        m_map->open(bostonPath);
        choose("mnuCopyPicture");
        const QMimeData* data = QGuiApplication::clipboard()->mimeData();
        QVERIFY(data->hasImage());
        QCOMPARE(qvariant_cast<QImage>(data->imageData()).size(), QSize(2000, 2000));
        const QByteArray svg = data->data(QStringLiteral("image/svg+xml"));
        QVERIFY(svg.contains("<title>Path from JO20AW to FN42AA</title>"));
    }

    // Files ---------------------------------------------------------------------------------

    void savesByTheNamesEnd_data() {
        QTest::addColumn<QByteArray>("begins");
        QTest::newRow("map.svg") << QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg");
        QTest::newRow("map.png") << QByteArray("\x89PNG");
        QTest::newRow("map.PDF") << QByteArray("%PDF-1.");
        QTest::newRow("without an end") << QByteArray("<?xml");
    }

    void savesByTheNamesEnd() {
        QFETCH(const QByteArray, begins);
        const QTemporaryDir folder;
        m_map->open(bostonPath);
        const QString name = QString::fromLatin1(QTest::currentDataTag());
        saveAs(folder.filePath(name));
        const QString written = name.contains(u'.') ? name : name + QStringLiteral(".svg");
        QFile file(folder.filePath(written));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        QVERIFY(bytes.startsWith(begins));
        QVERIFY(bytes.size() > 10'000);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
    }

    void aFailureIsSaidWithItsReason_data() {
        QTest::addColumn<QString>("target");
        QTest::newRow("it is a device or a pipe") << QStringLiteral("/dev/full");
        QTest::newRow("No such file or directory") << QStringLiteral("/nowhere/map.svg");
    }

    void aFailureIsSaidWithItsReason() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("map.svg"));
        QFETCH(const QString, target);
        QVERIFY(QFile::link(target, path));
        m_map->open(bostonPath);
        announceSaving(path);
        m_map->watchdog().expectMessageBox(QStringLiteral("The picture was not saved: ") +
                                               QString::fromLatin1(QTest::currentDataTag()) + u'.',
                                           QStringLiteral("Save picture"), QMessageBox::Warning);
        choose("mnuSavePicture");
    }

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
        for (const Role role : {Role::shortPath, Role::longPath, Role::cross})
            QVERIFY2(contrast(QColor::fromRgba(styles.of(role).stroke), land) >= contrastOfEdges,
                     roleName(role).data());
    }

    /// Another program's reading of the file, against our own painting of the same picture.
    void theFileAndThePaintingAreTheSame_data() {
        QTest::addColumn<bool>("isForScreen");
        QTest::newRow("on paper") << false;
        QTest::newRow("on a screen") << true;
    }

    void theFileAndThePaintingAreTheSame() {
        QFETCH(const bool, isForScreen);
        m_map->open(bostonPath);
        m_map->press(Qt::Key_Up);
        m_map->press(Qt::Key_Left, Qt::ShiftModifier); // the cross beside the Target
        const QTemporaryDir folder;
        const Picture picture = pathMap(m_map->view().options());
        QFile file(folder.filePath(QStringLiteral("map.svg")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(pictureFile(picture, {u"title", u"description"}, PictureKind::svg));
        file.close();
        const QString png = folder.filePath(QStringLiteral("map.png"));
        QCOMPARE(test::shell("rsvg-convert --background-color=white -w 2000 -h 2000 '" +
                             file.fileName().toStdString() + "' -o '" + png.toStdString() + "'")
                     .status,
                 0);
        const QImage painted = isForScreen ? paintedForScreen(picture) : printedImage(picture);
        const QImage read = QImage(png).convertToFormat(QImage::Format_RGB32);
        QCOMPARE(read.size(), painted.size());
        // Without a label it would be 40 and more, without a line 13 (but for the dotted rings).
        const auto [difference, place] = mostDifferentBlock(read, painted);
        QVERIFY2(difference < 12,
                 qPrintable(
                     QStringLiteral("%1 at %2, %3").arg(difference).arg(place.x()).arg(place.y())));
    }

private:
    double radius() { return m_map->view().options().view.radiusKilometres; }

    double crossKilometres() {
        const MapFrame frame(m_map->shownView());
        const PlanePoint point = frame.projection().project(m_map->view().options().cross.value());
        return std::hypot(point.x, point.y);
    }

    void turnWheel(int eighthsOfDegrees) {
        const QPointF middle = m_map->view().rect().center();
        QWheelEvent event(middle, m_map->view().mapToGlobal(middle), {}, {0, eighthsOfDegrees},
                          Qt::NoButton, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&m_map->view(), &event);
    }

    /// Opens the menu, as the menu key does unless it is said otherwise, and hands it over.
    void withMenu(const std::function<void(const QMenu&)>& use,
                  QContextMenuEvent::Reason reason = QContextMenuEvent::Keyboard,
                  QPoint place = {1, 1}) {
        bool wasUsed = false;
        QTimer::singleShot(50, &m_map->window(), [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            QVERIFY(menu != nullptr);
            QCOMPARE(menu->objectName(), QStringLiteral("mnuPathMap"));
            wasUsed = true;
            use(*menu);
            menu->close();
        });
        QContextMenuEvent event(reason, place, m_map->view().mapToGlobal(place));
        QApplication::sendEvent(&m_map->view(), &event);
        QVERIFY(wasUsed);
    }

    void choose(const char* entry) {
        withMenu([&](const QMenu& menu) {
            auto* action = menu.findChild<QAction*>(QString::fromLatin1(entry));
            QVERIFY(action != nullptr);
            action->trigger();
        });
    }

    void saveAs(const QString& path) {
        announceSaving(path);
        choose("mnuSavePicture");
    }

    void announceSaving(const QString& path) {
        m_map->watchdog().expectDialog(QStringLiteral("dlgSavePicture"), [path](QDialog& dialog) {
            auto& files = static_cast<QFileDialog&>(dialog);
            if (QFile::exists(path))
                files.setOption(QFileDialog::DontConfirmOverwrite);
            files.selectFile(path);
            QMetaObject::invokeMethod(&files, "accept");
        });
    }

    std::unique_ptr<test::OpenedMap> m_map;
};

QTEST_MAIN(PathMapWindowTest)
#include "path_map_window_test.moc"
