#include "tests/support/child.h"
#include "tests/support/x_server.h"
#include "tests/ui/opened_map.h"

#include <QAccessible>
#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusReply>
#include <QDBusVariant>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <csignal>
#include <cstdlib>

using namespace orbisgrid;

namespace {

/// A session of messages with the service that screen readers listen on.
class SpeechBus {
public:
    SpeechBus() {
        const QString socket = m_folder.filePath(QStringLiteral("bus"));
        const std::string address = "unix:path=" + socket.toStdString();
        m_daemon = test::startChild([&] {
            test::becomeCommand("dbus-daemon --session --nofork --address=" + address +
                                " >/dev/null 2>&1");
        });
        test::waitUntil([&] { return QFile::exists(socket); }, 30);
        ::setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
        ::setenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1", 1);
    }

    SpeechBus(const SpeechBus&) = delete;
    SpeechBus& operator=(const SpeechBus&) = delete;
    SpeechBus(SpeechBus&&) = delete;
    SpeechBus& operator=(SpeechBus&&) = delete;

    ~SpeechBus() { test::endChild(m_daemon, SIGTERM); }

private:
    QTemporaryDir m_folder;
    pid_t m_daemon = -1;
};

} // namespace

/// What a screen reader hears of the map, by listening as one does.
class PathMapSpokenTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() {
        const QDBusReply<QString> address =
            QDBusConnection::sessionBus().call(QDBusMessage::createMethodCall(
                QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress")));
        QVERIFY2(address.isValid(), qPrintable(address.error().message()));
        m_reader = QDBusConnection::connectToBus(address.value(), QStringLiteral("screen reader"));
        QVERIFY(m_reader.connect({}, {}, QStringLiteral("org.a11y.atspi.Event.Object"),
                                 QStringLiteral("PropertyChange"), this, SLOT(hear(QDBusMessage))));
        QDBusMessage wish = QDBusMessage::createMethodCall(
            QStringLiteral("org.a11y.atspi.Registry"), QStringLiteral("/org/a11y/atspi/registry"),
            QStringLiteral("org.a11y.atspi.Registry"), QStringLiteral("RegisterEvent"));
        wish.setArguments({QStringLiteral("object:")});
        QCOMPARE(m_reader.call(wish).type(), QDBusMessage::ReplyMessage);
        QVERIFY(QTest::qWaitFor([] { return QAccessible::isActive(); }));
    }

    void init() {
        QTest::failOnWarning(QRegularExpression(QStringLiteral("Interface")));
        m_map = std::make_unique<test::OpenedMap>();
        m_map->open(LocatorPair{u"JO20AW", u"FN42AA"});
        m_map->view().setFocus();
        // Until all is said that belongs to opening it.
        QVERIFY(QTest::qWaitFor([&] { return !m_heard.isEmpty(); }));
        for (qsizetype before = 0; before != m_heard.size();) {
            before = m_heard.size();
            QTest::qWait(300);
        }
        m_heard.clear();
    }

    void cleanup() { m_map.reset(); }

    void eachStepOfTheCross() {
        m_map->press(Qt::Key_Up);
        QVERIFY(hasHeard(1));
        QCOMPARE(m_heard.last(), QStringLiteral("FN42AA: 5637 km, 3520 miles, 291°"));
        m_map->press(Qt::Key_Right);
        QVERIFY(hasHeard(2));
        QVERIFY2(m_heard.last().endsWith(QStringLiteral(", 292°")), qPrintable(m_heard.last()));
        QCOMPARE(m_heard.last(), m_map->text("lblPlace"));
    }

    void aClick() {
        QTest::mouseClick(&m_map->view(), Qt::LeftButton, {}, m_map->pixelOf({0, 0}));
        QVERIFY(hasHeard(1));
        QCOMPARE(m_heard.last(), m_map->text("lblPlace"));
        QVERIFY2(m_heard.last().contains(QStringLiteral(" km, ")), qPrintable(m_heard.last()));
    }

    void whatToDoWhereNoCrossIsLeft() {
        m_map->press(Qt::Key_Up);
        QVERIFY(hasHeard(1));
        m_map->window().showSubject(subjectBeforePath(u"JO20AW"));
        QVERIFY(hasHeard(2));
        QVERIFY2(m_heard.last().contains(QStringLiteral("arrow keys")), qPrintable(m_heard.last()));
    }

    void nothingOfAPointer() {
        QTest::mouseMove(&m_map->view(), m_map->pixelOf({0, 0}));
        QVERIFY(QTest::qWaitFor([&] { return !m_map->text("lblPlace").isEmpty(); }));
        QTest::qWait(200);
        QCOMPARE(m_heard, QStringList());
    }

public Q_SLOTS:

    /// A reader asks for the new description then, and speaks it.
    void hear(const QDBusMessage& event) {
        if (event.arguments().value(0) != QStringLiteral("accessible-description"))
            return;
        QDBusMessage question = QDBusMessage::createMethodCall(
            event.service(), event.path(), QStringLiteral("org.freedesktop.DBus.Properties"),
            QStringLiteral("Get"));
        question.setArguments(
            {QStringLiteral("org.a11y.atspi.Accessible"), QStringLiteral("Description")});
        auto* answer = new QDBusPendingCallWatcher(m_reader.asyncCall(question), this);
        connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
            const QDBusPendingReply<QDBusVariant> reply = *answer;
            m_heard +=
                reply.isError() ? reply.error().message() : reply.value().variant().toString();
            answer->deleteLater();
        });
    }

private:
    /// Waits. Result: whether so many descriptions have been spoken, and no more.
    bool hasHeard(qsizetype count) {
        return QTest::qWaitFor([&] { return m_heard.size() >= count; }) && m_heard.size() == count;
    }

    QDBusConnection m_reader{QString()};
    std::unique_ptr<test::OpenedMap> m_map;
    QStringList m_heard; ///< descriptions
};

int main(int argc, char** argv) {
    test::XServer server;
    server.useInThisProcess();
    server.startWindowManager();
    const SpeechBus bus;
    QApplication application(argc, argv);
    PathMapSpokenTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "path_map_spoken_test.moc"
