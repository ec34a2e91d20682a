#include "tests/support/x_server.h"
#include "tests/ui/main_window_fixture.h"

#include <QApplication>
#include <QClipboard>

using namespace orbisgrid;

/// The selection that X keeps beside the clipboard: what is marked anywhere, the middle mouse
/// button inserts. Offscreen there is none, so this has a server of its own.
class PrimarySelectionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void init() {
        m_main = std::make_unique<test::MainWindow>();
        m_main->open();
    }

    void cleanup() { m_main.reset(); }

    void theMiddleButtonTrimsBeforeTheCut_data() {
        QTest::addColumn<QString>("marked");
        QTest::addColumn<QString>("text");
        const auto row = [](const char* box, const char* marked, const char* text) {
            QTest::newRow(box) << QString::fromLatin1(marked) << QString::fromLatin1(text);
        };
        row("txtHome", " JO20AW", "JO20AW");
        row("txtTarget", "\r\n  FN42AA  \r\n", "FN42AA");
        row("txtLocator", "   JO20AW55AA\n", "JO20AW55AA");
        row("txtUIView", "  =5056.17N/00402.67E\n", "=5056.17N/00402.67E");
    }

    void theMiddleButtonTrimsBeforeTheCut() {
        QFETCH(const QString, marked);
        QFETCH(const QString, text);
        mark(marked);
        QLineEdit& box = m_main->edit(QTest::currentDataTag());
        QTest::mouseClick(&box, Qt::MiddleButton);
        QCOMPARE(box.text(), text);
    }

    void theMiddleButtonInsertsWhereItIsPressed() {
        mark(QStringLiteral("20"));
        QLineEdit& box = m_main->edit("txtHome");
        box.setText(QStringLiteral("JOAW"));
        box.selectAll();
        QTest::mouseClick(&box, Qt::MiddleButton, {}, QPoint(2, box.height() / 2));
        QCOMPARE(box.text(), QStringLiteral("20JOAW"));
    }

    void aClickThatSelectsLeavesWhatIsMarkedElsewhere_data() {
        QTest::addColumn<QString>("selected");
        QTest::newRow("txtlatdms_0") << QStringLiteral("050");
        QTest::newRow("txtlatdms_2") << QStringLiteral("05");
        QTest::newRow("txtlondms_0") << QStringLiteral("050");
    }

    void aClickThatSelectsLeavesWhatIsMarkedElsewhere() {
        QFETCH(const QString, selected);
        mark(QStringLiteral("marked elsewhere"));
        QLineEdit& box = m_main->edit(QTest::currentDataTag());
        box.setText(QStringLiteral("0501"));
        for (int click = 0; click < 3; ++click) {
            QTest::mouseClick(&box, Qt::LeftButton);
            QCOMPARE(box.selectedText(), selected);
            QTest::qWait(QApplication::doubleClickInterval() + 50); // no double click
        }
        QCOMPARE(QGuiApplication::clipboard()->text(QClipboard::Selection),
                 QStringLiteral("marked elsewhere"));
    }

private:
    static void mark(const QString& text) {
        QVERIFY(QGuiApplication::clipboard()->supportsSelection());
        QGuiApplication::clipboard()->setText(text, QClipboard::Selection);
    }

    std::unique_ptr<test::MainWindow> m_main;
};

int main(int argc, char** argv) {
    test::XServer server;
    server.useInThisProcess();
    server.startWindowManager();
    QApplication application(argc, argv);
    PrimarySelectionTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "primary_selection_test.moc"
