#include "tests/ui/main_window_fixture.h"
#include "ui/path_map_view.h"
#include "ui/path_map_window.h"

#include <QCheckBox>
#include <QWindow>

using namespace orbisgrid;

namespace {

const QString bostonLine =
    QStringLiteral("JO20AW to FN42AA: 5637 km, 3520 miles, 291°; long path 34368 km, 111°");

} // namespace

/// What the main window and the window of the map do together.
class MapAndMainWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void init() {
        m_main = std::make_unique<test::MainWindow>();
        m_main->open();
    }

    void cleanup() {
        QVERIFY(m_main->watchdog().allCame());
        m_main.reset();
    }

    void nothingOfItIsMadeBeforeItIsWanted() { QVERIFY(map() == nullptr); }

    void theButtonAndTheKeyOpenOneWindow() {
        m_main->click("cmdShowPathMap");
        PathMap* opened = map();
        QVERIFY(opened != nullptr && opened->isVisible());
        QVERIFY(!opened->isModal());
        QTest::keyClick(&m_main->window(), Qt::Key_F2);
        QCOMPARE(m_main->window().findChildren<PathMap*>().size(), 1);
        opened->close();
        QTest::keyClick(&m_main->window(), Qt::Key_F2);
        QCOMPARE(map(), opened);
        QVERIFY(opened->isVisible());
    }

    void aSecondPressBringsItToTheFront() {
        m_main->click("cmdShowPathMap");
        m_main->window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&m_main->window()));
        m_main->click("cmdShowPathMap");
        QVERIFY(QTest::qWaitForWindowActive(map()));
    }

    void aSecondPressBringsAMinimisedOneBack() {
        m_main->click("cmdShowPathMap");
        map()->showMinimized();
        QTest::keyClick(&m_main->window(), Qt::Key_F2);
        QVERIFY(!map()->isMinimized());
        QVERIFY(map()->isVisible());
    }

    void beforeACalculationASecondPressTakesTheHomeBoxAnew() {
        m_main->click("cmdShowPathMap");
        m_main->type("txtHome", QStringLiteral("RE78JS"));
        QTest::keyClick(&m_main->window(), Qt::Key_F2);
        const auto& view = *map()->findChild<PathMapView*>();
        QVERIFY(view.options().view.centre.latitude < -40);
    }

    void beforeACalculationItIsAroundTheHomeBox_data() {
        QTest::addColumn<QString>("home");
        QTest::addColumn<QString>("line");
        QTest::addColumn<double>("latitude");
        const QString noHome = QStringLiteral("Type Home and Target and press Calculate.");
        const QString noTarget =
            QStringLiteral("Type a Target and press Calculate, or double-click one here.");
        QTest::newRow("empty") << QString() << noHome << 0.0;
        QTest::newRow("whole") << QStringLiteral("JO20AW") << noTarget << 50.9375;
        QTest::newRow("four characters")
            << QStringLiteral("jo20") << noTarget << 50.479167938232422;
        QTest::newRow("three characters") << QStringLiteral("JO2") << noHome << 0.0;
        QTest::newRow("no locator") << QStringLiteral("JOJO") << noHome << 0.0;
    }

    void beforeACalculationItIsAroundTheHomeBox() {
        QFETCH(const QString, home);
        QFETCH(const QString, line);
        QFETCH(const double, latitude);
        m_main->edit("txtHome").setText(home);
        m_main->click("cmdShowPathMap");
        QCOMPARE(m_main->text("lblPath"), line);
        QCOMPARE(view().options().view.centre.latitude, latitude);
    }

    void itShowsWhatWasCalculatedBeforeItOpened() {
        calculate();
        m_main->edit("txtTarget").setText(QStringLiteral("JN00"));
        m_main->click("cmdShowPathMap");
        QCOMPARE(m_main->text("lblPath"), bostonLine);
    }

    void itFollowsEachCalculate() {
        m_main->click("cmdShowPathMap");
        calculate();
        QCOMPARE(m_main->text("lblPath"), bostonLine);
        m_main->type("txtTarget", QStringLiteral("JO20AW"));
        m_main->click("cmdCalculateDistDir");
        QCOMPARE(m_main->text("lblPath"), QStringLiteral("JO20AW to JO20AW: 0 km, 0 miles"));
    }

    void aRefusedCalculateLeavesIt() {
        m_main->click("cmdShowPathMap");
        calculate();
        m_main->type("txtTarget", QStringLiteral("FN4A"));
        m_main->watchdog().expectMessageBox(QStringLiteral("Invalid locator!"),
                                            QStringLiteral("Invalid locator format"),
                                            QMessageBox::Warning);
        m_main->click("cmdCalculateDistDir");
        QCOMPARE(m_main->text("lblPath"), bostonLine);
    }

    void clearingTheFieldsClearsThePath() {
        m_main->click("cmdShowPathMap");
        calculate();
        m_main->click("cmdRefresh");
        QVERIFY(m_main->text("lblPath").startsWith(QStringLiteral("Type ")));
        QVERIFY(view().options().targets.empty());
    }

    void aChosenTargetIsCalculatedAndRemembered() {
        m_main->type("txtHome", QStringLiteral("JO20AW"));
        m_main->click("cmdShowPathMap");
        Q_EMIT map()->targetChosen(QStringLiteral("FN42AA"));
        QCOMPARE(m_main->text("txtTarget"), QStringLiteral("FN42AA"));
        QCOMPARE(m_main->text("lblDistKm"), QStringLiteral("5637 Km"));
        QCOMPARE(m_main->text("lblPath"), bostonLine);
        QCOMPARE(m_main->items("cmbTarget"), QStringList{QStringLiteral("FN42AA")});
    }

    void aDoubleClickIsCalculatedAndRemembered() {
        m_main->type("txtHome", QStringLiteral("JO20AW"));
        m_main->click("cmdShowPathMap");
        const QPoint place = view().rect().center() + QPoint(60, -40);
        QTest::mouseClick(&view(), Qt::LeftButton, {}, place);
        const QString readOut = m_main->text("lblPlace");
        QTest::mouseDClick(&view(), Qt::LeftButton, {}, place);
        const QString locator = readOut.left(6);
        QCOMPARE(m_main->text("txtTarget"), locator);
        QCOMPARE(m_main->items("cmbTarget"), QStringList{locator});
        QVERIFY(m_main->text("lblPath").startsWith(QStringLiteral("JO20AW to ") + locator + u':'));
        QVERIFY(m_main->text("lblDistKm").endsWith(QStringLiteral(" Km")));
    }

    void aSingleClickChangesNothingThatIsRemembered() {
        calculate();
        m_main->click("cmdShowPathMap");
        QTest::mouseClick(&view(), Qt::LeftButton, {}, view().rect().center() + QPoint(40, 40));
        QVERIFY(!m_main->text("lblPlace").isEmpty());
        QCOMPARE(m_main->text("txtTarget"), QStringLiteral("FN42AA"));
        QCOMPARE(m_main->items("cmbTarget"), QStringList{QStringLiteral("FN42AA")});
        QCOMPARE(m_main->text("lblPath"), bostonLine);
    }

    void aChosenHomeIsCalculatedWithTheTarget() {
        calculate();
        m_main->click("cmdShowPathMap");
        Q_EMIT map()->homeChosen(QStringLiteral("FN42AA"));
        QCOMPARE(m_main->text("txtHome"), QStringLiteral("FN42AA"));
        QCOMPARE(m_main->text("lblPath"), QStringLiteral("FN42AA to FN42AA: 0 km, 0 miles"));
    }

    void aChosenHomeWithoutATargetIsTheMiddle() {
        m_main->click("cmdShowPathMap");
        Q_EMIT map()->homeChosen(QStringLiteral("JO20AW"));
        QCOMPARE(m_main->text("txtHome"), QStringLiteral("JO20AW"));
        QCOMPARE(view().options().view.centre.latitude, 50.9375);
    }

    void itStaysOnTopWithTheMainWindow() {
        m_main->child<QCheckBox>(QStringLiteral("chkOnTop")).setChecked(true);
        m_main->click("cmdShowPathMap");
        const auto isOnTop = [this] {
            return map()->windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint);
        };
        QVERIFY(isOnTop());
        m_main->child<QCheckBox>(QStringLiteral("chkOnTop")).setChecked(false);
        QVERIFY(!isOnTop());
        QVERIFY(map()->isVisible());
    }

    void itClosesWithTheMainWindow() {
        m_main->click("cmdShowPathMap");
        const QPointer<PathMap> opened = map();
        m_main->window().close();
        QVERIFY(!opened->isVisible());
    }

private:
    PathMap* map() { return m_main->window().findChild<PathMap*>(QStringLiteral("PathMap")); }

    PathMapView& view() { return m_main->child<PathMapView>(QStringLiteral("picPathMap")); }

    void calculate() {
        m_main->type("txtHome", QStringLiteral("JO20AW"));
        m_main->type("txtTarget", QStringLiteral("FN42AA"));
        m_main->click("cmdCalculateDistDir");
    }

    std::unique_ptr<test::MainWindow> m_main;
};

QTEST_MAIN(MapAndMainWindowTest)
#include "map_and_main_window_test.moc"
