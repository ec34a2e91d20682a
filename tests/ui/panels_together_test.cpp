#include "tests/ui/main_window_fixture.h"

using namespace orbisgrid;

/// What one panel does and another, or the window around them, shows or keeps.
class PanelsTogetherTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void init() { m_main = std::make_unique<test::MainWindow>(); }

    void cleanup() {
        QVERIFY(m_main->watchdog().allCame());
        m_main.reset();
    }

    void calculateShowsTheTargetInTheConverter() {
        m_main->open();
        m_main->type("txtHome", QStringLiteral("JO20AW"));
        m_main->type("txtTarget", QStringLiteral("FN42AA"));
        m_main->click("cmdCalculateDistDir");
        QCOMPARE(m_main->text("txtLocator"), QStringLiteral("FN42AA"));
        QCOMPARE(m_main->edit("txtLocator").selectedText(), QStringLiteral("FN42AA"));
        QCOMPARE(m_main->text("txtUIView"), QStringLiteral("=4201.15N/07157.30W"));
        QCOMPARE(m_main->focus(), QStringLiteral("picFocus"));
    }

    void theConvertersMenuFillsTheUpperPanel_data() {
        QTest::addColumn<QString>("box");
        QTest::newRow("mnuPaste_0") << QStringLiteral("txtHome");
        QTest::newRow("mnuPaste_1") << QStringLiteral("txtTarget");
    }

    void theConvertersMenuFillsTheUpperPanel() {
        QFETCH(const QString, box);
        m_main->open();
        m_main->edit("txtLocator").setText(QStringLiteral(" jo20aw "));
        QVERIFY(m_main->withMenuOf(m_main->edit("txtLocator"), [](const QMenu& menu) {
            auto* action = menu.findChild<QAction*>(QString::fromLatin1(QTest::currentDataTag()));
            QVERIFY(action != nullptr);
            action->trigger();
        }));
        QCOMPARE(m_main->child<QLineEdit>(box).text(), QStringLiteral("JO20AW"));
    }

    void enterOnTheButtonCalculates() {
        m_main->open();
        m_main->edit("txtHome").setText(QStringLiteral("JO20AW"));
        m_main->edit("txtTarget").setText(QStringLiteral("FN42AA"));
        m_main->pressEnter("cmdCalculateDistDir");
        QCOMPARE(m_main->text("lblDistKm"), QStringLiteral("5637 Km"));
    }

    void defaultIsWrittenAtOnce() {
        m_main->open();
        m_main->type("txtHome", QStringLiteral("JO20AW"));
        m_main->click("cmdDefault_0");
        m_main->type("txtTarget", QStringLiteral("FN42"));
        m_main->click("cmdDefault_1");
        QCOMPARE(m_main->iniLines().at(3), QStringLiteral("JO20AW"));
        QCOMPARE(m_main->iniLines().at(5), QStringLiteral("FN42"));
    }

    void mapOpensAtTheConverter_data() {
        QTest::addColumn<QString>("latitude");
        QTest::addColumn<QString>("longitude");
        QTest::addColumn<QByteArray>("address");
        QTest::newRow("as typed") << QStringLiteral("50.9375") << QStringLiteral("-4.5")
                                  << QByteArray("http://www.google.com/maps?q=50.9375,-4.5");
        QTest::newRow("fractions written out")
            << QStringLiteral(".5") << QStringLiteral("0.00001")
            << QByteArray("http://www.google.com/maps?q=0.5,0.00001");
        QTest::newRow("blanks are encoded")
            << QStringLiteral(" 50.9") << QStringLiteral("4&x=1")
            << QByteArray("http://www.google.com/maps?q=%2050.9,4%26x%3D1");
    }

    void mapOpensAtTheConverter() {
        QFETCH(const QString, latitude);
        QFETCH(const QString, longitude);
        QFETCH(const QByteArray, address);
        m_main->open();
        m_main->edit("txtDecLat").setText(latitude);
        m_main->edit("txtDecLong").setText(longitude);
        m_main->click("cmdShowMapURL");
        QCOMPARE(m_main->box().takeOpenedAddress(), address);
    }

private:
    std::unique_ptr<test::MainWindow> m_main;
};

QTEST_MAIN(PanelsTogetherTest)
#include "panels_together_test.moc"
