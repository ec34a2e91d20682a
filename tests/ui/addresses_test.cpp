#include "tests/support/sealed_box.h"
#include "ui/addresses.h"
#include "ui/module1.h"
#include "ui/version.h"

#include <QTest>

#include <memory>

using namespace orbisgrid;

/// The addresses that the program opens, and the shared routines that open them.
class AddressesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void init() { m_box = std::make_unique<test::SealedBox>(); }

    void cleanup() { m_box.reset(); }

    void mapAddressIsEncodedWhereItMustBe_data() {
        QTest::addColumn<QString>("latitude");
        QTest::addColumn<QString>("longitude");
        QTest::addColumn<QString>("query");
        const auto row = [](const char* name, const QString& latitude, const QString& longitude,
                            const char* query) {
            QTest::newRow(name) << latitude << longitude << QString::fromLatin1(query);
        };
        row("digits, points and minus stay", QStringLiteral("-33.5"), QStringLiteral("151.2"),
            "-33.5,151.2");
        row("the blank of the print form", QStringLiteral(" 50.937"), QStringLiteral(" 4.04166"),
            "%2050.937,%204.04166");
        row("a typed comma", QStringLiteral("50,9"), QStringLiteral("4"), "50%2C9,4");
        row("what would end the query", QStringLiteral("1&b=2"), QStringLiteral("3#4"),
            "1%26b%3D2,3%234");
        row("a typed percent and plus", QStringLiteral("%20"), QStringLiteral("+4"), "%2520,%2B4");
        row("letters beyond ASCII", QStringLiteral("50°"), QStringLiteral("4"), "50%C2%B0,4");
        row("empty boxes", QString(), QString(), ",");
    }

    void mapAddressIsEncodedWhereItMustBe() {
        QFETCH(const QString, latitude);
        QFETCH(const QString, longitude);
        QFETCH(const QString, query);
        QCOMPARE(mapAddress(latitude, longitude),
                 QStringLiteral("http://www.google.com/maps?q=") + query);
    }

    void ownAddressesAreUnderReservedNames_data() {
        QTest::addColumn<QString>("address");
        QTest::newRow("home page") << homePageAddress();
        QTest::newRow("update page") << updatePageAddress();
        QTest::newRow("donation page") << donationAddress();
        QTest::newRow("mail") << QStringLiteral("mailto://") + mailAddress();
    }

    void ownAddressesAreUnderReservedNames() {
        QFETCH(const QString, address);
        QVERIFY2(QUrl(address).host().endsWith(QStringLiteral(".example")), qPrintable(address));
    }

    void OpenWebPageOpensTheTextAsItStands() {
        QString text = QStringLiteral("http://a.example/?b=%3a c");
        OpenWebPage(text);
        QCOMPARE(m_box->takeOpenedAddress().value_or("none"), "http://a.example/?b=%3a c");
        QCOMPARE(text, QStringLiteral("http://a.example/?b=%3a c"));
    }

    void OpenWebPageTakesAnEmptyTextForTheHomePage() {
        QString text;
        OpenWebPage(text);
        QCOMPARE(m_box->takeOpenedAddress().value_or("none"), homePageAddress().toUtf8());
        QCOMPARE(text, homePageAddress());
    }

    void MailAuthorNamesTheVersionWithoutPoints() {
        MailAuthor();
        QCOMPARE(m_box->takeOpenedAddress().value_or("none"),
                 "mailto:zz9qx@orbisgrid.example?subject=Orbisgrid v311");
        QVERIFY(m_box->nothingStarted());
    }

private:
    std::unique_ptr<test::SealedBox> m_box;
};

QTEST_GUILESS_MAIN(AddressesTest)
#include "addresses_test.moc"
