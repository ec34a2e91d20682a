#include "tests/support/accessible_tree.h"
#include "tests/ui/opened_map.h"
#include "tests/ui/palettes.h"
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
        m_map->setMoment(Moment{opened.seconds + 60});
        const QSize larger = m_map->window().size() + QSize(40, 40);
        m_map->window().resize(larger);
        QVERIFY(QTest::qWaitFor([&] { return m_map->window().size() == larger; }));
        QCOMPARE(m_map->view().options().moment->seconds, opened.seconds + 60);
    }

    /// The line says what the main window says, which is 0 km here; the map knows better.
    void aTargetAQuarterOfTheWorldAwayIsDrawnWhereItIs() {
        constexpr LocatorPair path{u"JA01AS", u"JJ01AS"};
        m_map->open(path);
        QCOMPARE(m_map->text("lblPath"),
                 QStringLiteral("JA01AS to JJ01AS: 0 km, 0 miles, 0°; long path 40005 km, 180°"));
        const QImage image = m_map->view().grab().toImage();
        const QPoint home = m_map->pixelOf(pointOf(u"JA01as"));
        const QPoint target = m_map->pixelOf(pointOf(u"JJ01as"));
        QVERIFY(differenceOfPixels(image.pixel(target), 0xFFB00020) < 40);
        const double rim =
            MapFrame(m_map->shownView()).rim() * m_map->view().height() / Picture::side;
        QCOMPARE(target.x(), home.x());
        QVERIFY(std::abs(home.y() - target.y() - rim / 2) <= 1);
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

    /// Whatever is read out: else another place lies below the pointer, with another text, for
    /// ever.
    void theReadOutNeverChangesTheMapsSize_data() {
        QTest::addColumn<int>("points");
        QTest::addColumn<QSize>("size");
        QTest::newRow("small") << 9 << QSize(320, 360);
        QTest::newRow("smaller") << 10 << QSize(280, 320);
        QTest::newRow("large letters, small") << 14 << QSize(400, 450);
        QTest::newRow("largest letters") << 18 << QSize(622, 696);
        QTest::newRow("largest letters, small") << 18 << QSize(300, 320);
    }

    void theReadOutNeverChangesTheMapsSize() {
        QFETCH(const int, points);
        QFETCH(const QSize, size);
        QFont font = m_map->window().font();
        font.setPointSize(points);
        m_map->window().setFont(font);
        m_map->open(bostonPath);
        m_map->window().resize(size);
        QTest::qWait(50);
        const QSize before = m_map->view().size();
        qsizetype longest = 0;
        for (int y = 5; y < before.height(); y += 20) {
            for (int x = 5; x < before.width(); x += 20) {
                QTest::mouseMove(&m_map->view(), QPoint(x, y));
                QApplication::processEvents();
                QCOMPARE(m_map->view().size(), before);
                longest = std::max(longest, m_map->text("lblPlace").size());
            }
        }
        QVERIFY(longest > 30);
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

    /// From pole to pole, wherever a subsquare is at least 3 pixels wide.
    void aDoubleClickGivesTheSubsquareBack() {
        QRandomGenerator random(20260621);
        m_map->open(bostonPath);
        m_map->window().resize(1000, 1100);
        for (int step = 0; step < 30; ++step)
            m_map->press(Qt::Key_Plus); // down to 100 km
        const double kilometres = MapFrame(m_map->shownView()).kilometresPerUnit() * Picture::side /
                                  std::min(m_map->view().width(), m_map->view().height());
        const QSignalSpy chosen(&m_map->window(), &PathMap::targetChosen);
        QString polarFields;
        while (chosen.count() < 1000) {
            const Text target = anyLocator(random);
            const Position place = pathBetween({target, target})->target;
            const double width = earthRadius * std::numbers::pi / 180 / 12 *
                                 std::cos(place.latitude * std::numbers::pi / 180);
            if (width < 3 * kilometres)
                continue;
            if (target[1] == u'A' || target[1] == u'R')
                polarFields += QChar(target[1]);
            // Home is some subsquares away: both are on the map.
            Text home = target;
            for (const std::size_t i : {4U, 5U})
                home[i] = static_cast<char16_t>(
                    std::clamp(home[i] + random.bounded(-4, 5), int{u'A'}, int{u'X'}));
            m_map->window().showSubject(subjectOfPath({home, target}).value());
            const auto before = chosen.count();
            QTest::mouseDClick(&m_map->view(), Qt::LeftButton, {}, m_map->pixelOf(place));
            QCOMPARE(chosen.count(), before + 1);
            QCOMPARE(chosen.last().first().toString(), toQString(target));
        }
        QVERIFY(polarFields.contains(u'A') && polarFields.contains(u'R'));
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

    void itsKeysWorkWhereverTheMouseHasBeen_data() {
        QTest::addColumn<QString>("clicked");
        for (const char* name : {"chkNight", "lblPath", "lblPlace"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void itsKeysWorkWhereverTheMouseHasBeen() {
        QFETCH(const QString, clicked);
        m_map->open(bostonPath);
        QTest::mouseClick(&m_map->child<QWidget>(clicked), Qt::LeftButton, {}, QPoint(5, 8));
        const auto press = [&](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
        const QSignalSpy chosen(&m_map->window(), &PathMap::targetChosen);
        press(Qt::Key_Plus);
        QCOMPARE(radius(), halfCircumference / 1.25);
        press(Qt::Key_Up);
        QCOMPARE(m_map->view().crossReadOut(), QStringLiteral("FN42AA: 5637 km, 3520 miles, 291°"));
        press(Qt::Key_Return);
        QCOMPARE(chosen.count(), 1);
        press(Qt::Key_Escape);
        QVERIFY(!m_map->window().isVisible());
    }

    void aCrossBeyondTheRimIsNone() {
        m_map->open(bostonPath);
        const QSignalSpy chosen(&m_map->window(), &PathMap::targetChosen);
        m_map->press(Qt::Key_Up);
        const QString onTarget = m_map->text("lblPlace");
        for (int i = 0; i < 10; ++i)
            m_map->press(Qt::Key_Plus);
        QVERIFY(radius() < 5000);
        QCOMPARE(m_map->text("lblPlace"), QString());
        m_map->press(Qt::Key_Return);
        QCOMPARE(chosen.count(), 0);
        m_map->press(Qt::Key_0);
        QCOMPARE(m_map->text("lblPlace"), onTarget);
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

    void theChosenKindDecidesWhereTheNamesEndIsOfNone() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("trip.2026"));
        m_map->open(bostonPath);
        m_map->watchdog().expectDialog(QStringLiteral("dlgSavePicture"), [path](QDialog& dialog) {
            auto& files = static_cast<QFileDialog&>(dialog);
            files.selectNameFilter(QStringLiteral("PNG image (*.png)"));
            files.selectFile(path);
            QMetaObject::invokeMethod(&files, "accept");
        });
        choose("mnuSavePicture");
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().startsWith("\x89PNG"));
    }

    void aFileThatIsThereIsReplaced() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("map.svg"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(QByteArray(1'000'000, 'x')) > 0);
        file.close();
        const auto rights = QFile::ReadOwner | QFile::WriteOwner;
        QVERIFY(file.setPermissions(rights));
        m_map->open(bostonPath);
        saveAs(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().trimmed().endsWith("</svg>"));
        QVERIFY((QFile::permissions(path) & (QFile::ReadGroup | QFile::ReadOther)) == 0);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    }

    void filesHavePrintsColoursWhateverTheDesktopHas_data() {
        QTest::addColumn<QString>("name");
        for (const char* end : {"svg", "png", "pdf"})
            QTest::newRow(end) << QStringLiteral("map.") + QString::fromLatin1(end);
    }

    void filesHavePrintsColoursWhateverTheDesktopHas() {
        QFETCH(const QString, name);
        const QTemporaryDir folder;
        QList<QByteArray> files;
        const QPalette before = QApplication::palette();
        for (const char* look : {"light", "dark", "contrast"}) {
            QApplication::setPalette(test::paletteOf(QString::fromLatin1(look)));
            init();
            m_map->open(bostonPath);
            saveAs(folder.filePath(name));
            QFile file(folder.filePath(name));
            QVERIFY(file.open(QIODevice::ReadOnly));
            files += drawingIn(file.readAll());
        }
        QApplication::setPalette(before);
        QVERIFY(files.at(0).size() > 10'000);
        QVERIFY(files.at(1) == files.at(0));
        QVERIFY(files.at(2) == files.at(0));
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

private:
    /// A file less what is of its time: a PDF says when it was made, and has a number of its own.
    /// Its drawing and letters are its streams, but for the one of such words.
    static QByteArray drawingIn(const QByteArray& file) {
        if (!file.startsWith("%PDF"))
            return file;
        QByteArray streams;
        for (qsizetype at = file.indexOf("stream\n"); at >= 0;) {
            const qsizetype end = file.indexOf("endstream", at);
            const QByteArray stream = file.mid(at, end - at);
            if (!stream.contains("<?xpacket"))
                streams += stream;
            at = file.indexOf("stream\n", end + 9);
        }
        return streams;
    }

    static Text anyLocator(QRandomGenerator& random) {
        Text locator;
        for (const auto& [first, count] :
             {std::pair(u'A', 18), {u'A', 18}, {u'0', 10}, {u'0', 10}, {u'A', 24}, {u'A', 24}})
            locator += static_cast<char16_t>(first + random.bounded(count));
        return locator;
    }

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
