#include "tests/ui/main_window_fixture.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QPixmapCache>

#include <malloc.h>
#include <random>

using namespace orbisgrid;

namespace {

/// How many actions, and which: the environment may say both, so that a long run can be made and a
/// failing one again.
int fromEnvironment(const char* name, int otherwise) {
    bool isNumber = false;
    const int value = qEnvironmentVariableIntValue(name, &isNumber);
    return isNumber ? value : otherwise;
}

/// Bytes that are in use, wherever malloc has them.
qint64 memoryInUse() {
    const struct mallinfo2 info = ::mallinfo2();
    return static_cast<qint64>(info.uordblks + info.hblkhd);
}

} // namespace

/// A person who presses and types anything, for a long time.
class SoakTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void init() {
        m_main = std::make_unique<test::MainWindow>();
        m_main->box().writeProgramFile(QStringLiteral("Readme.txt"), "Locators\r\nand more\r\n");
        m_main->watchdog().answerEvery([this](QDialog& dialog) { answer(dialog); });
        m_main->open();
    }

    void cleanup() { m_main.reset(); }

    void anythingInAnyOrder() {
        const int actions = fromEnvironment("ORBISGRID_SOAK_ACTIONS", 3000);
        const int seed = fromEnvironment("ORBISGRID_SOAK_SEED", 1848);
        qInfo("%d actions, ORBISGRID_SOAK_SEED=%d", actions, seed);
        m_random.seed(static_cast<std::uint32_t>(seed));
        const int settled = std::min(actions / 2, 10000);
        qint64 memory = 0;
        for (int i = 0; i < actions; ++i) {
            if (i == settled)
                memory = settledMemory();
            const QString action = act();
            const QString broken = brokenInvariant();
            QVERIFY2(broken.isEmpty(),
                     qPrintable(QStringLiteral("action %1, %2: %3").arg(i).arg(action, broken)));
        }
        const qint64 growth = settledMemory() - memory;
        qInfo("%lld bytes more than after %d actions, %d boxes answered", growth, settled, m_boxes);
        QVERIFY2(growth < 1'000'000, qPrintable(QString::number(growth)));
        QVERIFY(m_boxes > actions / 100);
    }

private:
    int below(int count) {
        return static_cast<int>(m_random() % static_cast<std::uint32_t>(count));
    }

    /// What the lists and boxes hold grows and shrinks by chance: both are emptied before
    /// measuring.
    qint64 settledMemory() {
        // The map keeps its outlines, and Qt what it once needed to paint them: most of it where
        // the antipode is on land.
        for (const char* home : {"JO20AW", "RE78JS"}) {
            m_main->type("txtHome", QString::fromLatin1(home));
            m_main->type("txtTarget", QStringLiteral("FN42AA"));
            m_main->click("cmdCalculateDistDir");
            openAndCloseTheMap();
        }
        for (const char* name : {"cmbHome", "cmbTarget"}) {
            while (m_main->list(name).count() > 0)
                emptyList(name);
        }
        m_main->click("cmdRefresh");
        QCoreApplication::processEvents();
        QPixmapCache::clear(); // Qt 6.8 keeps the picture of each message box, up to ten megabytes
        return memoryInUse();
    }

    void emptyList(const char* name) {
        m_answersYes = true;
        m_main->click(qstrcmp(name, "cmbHome") == 0 ? "cmdClear_0" : "cmdClear_1");
        m_answersYes = false;
        forgetLists();
    }

    QString randomText() {
        static const QString meaning =
            QStringLiteral("0123456789.,-+ ABCDEFGHIJKLRSXabrsxz=/NSEW\u00b0\u00df");
        QString text;
        for (int length = below(12); length > 0; --length)
            text += meaning[below(static_cast<int>(meaning.size()))];
        return text;
    }

    /// One of a hundred locators, so that the lists do not grow for ever.
    QString randomLocator() {
        if (below(4) == 0)
            return randomText();
        return QStringLiteral("%1%2%3%4AW")
            .arg(QChar(u'A' + below(5)))
            .arg(QChar(u'A' + below(5)))
            .arg(below(2))
            .arg(below(2));
    }

    QString act() {
        switch (below(10)) {
        case 0:
        case 1:
            return typeLocators();
        case 2:
        case 3:
        case 4:
            return typeAnywhere();
        case 5:
        case 6:
            return press(okButtons());
        case 7:
            return press(copyButtons());
        case 8:
            return chooseInAList();
        default:
            if (below(100) == 0)
                return openAndCloseTheMap();
            return below(8) == 0 ? press(otherButtons()) : pressEnterSomewhere();
        }
    }

    /// Open it would be painted anew with each Calculate, and little else would be done.
    QString openAndCloseTheMap() {
        m_main->click("cmdShowPathMap");
        QCoreApplication::processEvents();
        m_main->child<QWidget>(QStringLiteral("PathMap")).close();
        return QStringLiteral("cmdShowPathMap");
    }

    using Names = std::vector<const char*>;

    static Names okButtons() {
        return {"cmdCalculateDistDir", "cmdOKLocator", "cmdOKDecimal", "cmdOkDMS", "cmdOkUIView"};
    }

    static Names copyButtons() {
        return {"Command9", "Command10", "Command11", "Command13", "Command15", "Command1"};
    }

    static Names otherButtons() {
        return {"chkOnTop",   "cmdRefresh",      "cmdHelp",         "cmdAbout",     "cmdClear_0",
                "cmdClear_1", "cmdClear1Item_0", "cmdClear1Item_1", "cmdDefault_0", "cmdDefault_1"};
    }

    static Names boxes() {
        return {"txtLocator",  "txtDecLat",   "txtDecLong",  "txtUIView",
                "txtlatdms_0", "txtlatdms_1", "txtlatdms_2", "txtlondms_0",
                "txtlondms_1", "txtlondms_2", "txtHome",     "txtTarget"};
    }

    const char* anyOf(const Names& names) {
        return names[static_cast<std::size_t>(below(static_cast<int>(names.size())))];
    }

    QString typeLocators() {
        m_main->type("txtHome", randomLocator());
        m_main->type("txtTarget", randomLocator());
        m_main->click("cmdCalculateDistDir");
        return QStringLiteral("Calculate");
    }

    QString typeAnywhere() {
        const char* name = anyOf(boxes());
        m_main->type(name, below(2) == 0 ? randomLocator() : randomText());
        return QString::fromLatin1(name);
    }

    QString press(const Names& names) {
        const char* name = anyOf(names);
        const bool isClearing = QByteArray(name).startsWith("cmdClear");
        m_main->click(name);
        if (isClearing)
            forgetLists();
        return QString::fromLatin1(name);
    }

    QString pressEnterSomewhere() {
        const char* name = anyOf(boxes());
        m_main->pressEnter(name, below(2) == 0 ? Qt::Key_Return : Qt::Key_Enter);
        return QStringLiteral("Enter in ") + QString::fromLatin1(name);
    }

    QString chooseInAList() {
        const char* name = anyOf({"cmbHome", "cmbTarget", "cmbDmsNS", "cmbDmsWE"});
        QComboBox& list = m_main->list(name);
        list.setFocus();
        QTest::keyClick(&list, below(2) == 0 ? Qt::Key_Down : Qt::Key_Up);
        return QString::fromLatin1(name);
    }

    void answer(QDialog& dialog) {
        ++m_boxes;
        const auto* message = qobject_cast<QMessageBox*>(&dialog);
        if (message == nullptr)
            return; // Help and About are closed
        const auto buttons = message->buttons();
        auto* yes = message->button(QMessageBox::Yes);
        QTest::mouseClick(m_answersYes && yes != nullptr
                              ? yes
                              : buttons.at(below(static_cast<int>(buttons.size()))),
                          Qt::LeftButton);
    }

    // What holds whatever was done ----------------------------------------------------------

    /// Lists are emptied by their buttons and by nothing else.
    void forgetLists() {
        m_homes.clear();
        m_targets.clear();
    }

    /// Whether the list has all that it had, in that order, and puts down what it has now.
    static bool keeps(const QComboBox& list, QStringList& items) {
        QStringList now;
        for (int i = 0; i < list.count(); ++i)
            now.append(list.itemText(i));
        qsizetype next = 0;
        for (const QString& item : items) {
            next = now.indexOf(item, next) + 1;
            if (next == 0)
                return false;
        }
        items = now;
        return true;
    }

    QString brokenInvariant() {
        const QString azimuth = m_main->text("lblAzimuth");
        if (!m_main->text("lblDistKm").endsWith(QStringLiteral(" Km")) ||
            !m_main->text("lblDistMile").endsWith(QStringLiteral(" Miles")) ||
            !(azimuth.endsWith(QStringLiteral(" degrees")) || azimuth == u"0 Degrees"))
            return QStringLiteral("a label without its unit");
        for (const char* name : boxes()) {
            const QLineEdit& box = m_main->edit(name);
            if (box.text().size() > box.maxLength())
                return QStringLiteral("a box with too much");
        }
        for (const char* name : {"cmbDmsNS", "cmbDmsWE"}) {
            if (m_main->list(name).currentIndex() < 0 || m_main->list(name).count() != 2)
                return QStringLiteral("a hemisphere that is none");
        }
        if (!keeps(m_main->list("cmbHome"), m_homes) ||
            !keeps(m_main->list("cmbTarget"), m_targets))
            return QStringLiteral("a list that lost an entry");
        return m_main->window().isVisible() ? QString() : QStringLiteral("no window");
    }

    std::unique_ptr<test::MainWindow> m_main;
    std::mt19937 m_random;
    int m_boxes = 0;
    bool m_answersYes = false;
    QStringList m_homes;
    QStringList m_targets;
};

QTEST_MAIN(SoakTest)
#include "soak_test.moc"
