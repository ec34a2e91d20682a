#include "tests/ui/made_control.h"
#include "tests/ui/measured_contrast.h"
#include "tests/ui/palettes.h"
#include "ui/contrast_style.h"

#include <QApplication>
#include <QCheckBox>
#include <QPixmapCache>
#include <QStyleOptionButton>
#include <QTest>

using namespace orbisgrid;

namespace {

double edgeContrastOf(QWidget& widget) {
    QPixmapCache::clear(); // the style keeps what it drew of buttons and lists
    widget.resize(120, 40);
    const QImage image = widget.grab().toImage();
    return test::edgeContrast(image, image.rect(), widget.palette().color(QPalette::Window));
}

QRect squareOf(const QCheckBox& box) {
    QStyleOptionButton option;
    option.initFrom(&box);
    return box.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &box);
}

} // namespace

class ContrastStyleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void takesThePlaceOfQtsOwnStyleAlone() {
        QApplication::setStyle(QStringLiteral("windows"));
        useContrastStyleWhereNeeded();
        QVERIFY(qobject_cast<ContrastStyle*>(QApplication::style()) == nullptr);
        QApplication::setStyle(QStringLiteral("fusion"));
        useContrastStyleWhereNeeded();
        QVERIFY(qobject_cast<ContrastStyle*>(QApplication::style()) != nullptr);
    }

    void edgesAreSeen_data() {
        QTest::addColumn<QString>("look");
        QTest::addColumn<QString>("kind");
        for (const char* look : {"light", "dark", "contrast", "grey", "night"}) {
            for (const char* kind : {"box", "list", "button", "tool button", "frame"})
                QTest::addRow("%s, %s", look, kind)
                    << QString::fromLatin1(look) << QString::fromLatin1(kind);
        }
    }

    void edgesAreSeen() {
        QFETCH(const QString, look);
        QFETCH(const QString, kind);
        QApplication::setPalette(test::paletteOf(look));
        const double before = edgeContrastOf(*test::madeControl(kind));
        QVERIFY2(before < contrastOfEdges, "without the style they are not");
        useContrastStyleWhereNeeded();
        const double seen = edgeContrastOf(*test::madeControl(kind));
        QVERIFY2(seen >= contrastOfEdges, qPrintable(QString::number(seen)));
    }

    void theSquareOfACheckBoxGrowsWithItsText() {
        useContrastStyleWhereNeeded();
        QCheckBox box(QStringLiteral("Stay on top"));
        const int usual = squareOf(box).height();
        QFont font = box.font();
        font.setPointSize(18);
        box.setFont(font);
        QVERIFY(squareOf(box).height() > usual);
        QCOMPARE(squareOf(box).height(), box.fontMetrics().ascent());
        QCOMPARE(squareOf(box).width(), squareOf(box).height());
    }

    void edgesAreQuietUnlessTheWindowIsBlack() {
        useContrastStyleWhereNeeded();
        QVERIFY(edgeContrastOf(*test::madeControl(QStringLiteral("box"))) < 5);
        QApplication::setPalette(test::paletteOf(QStringLiteral("contrast")));
        QVERIFY(edgeContrastOf(*test::madeControl(QStringLiteral("box"))) > 9);
    }

    void selectedTextIsReadWithTheDesktopsPalette() {
        const auto seen = [] {
            const QPalette palette = QApplication::palette();
            return contrast(palette.color(QPalette::HighlightedText),
                            palette.color(QPalette::Highlight));
        };
        QVERIFY2(seen() < contrastOfTexts, "without the style it is not");
        useContrastStyleWhereNeeded();
        QVERIFY(seen() >= contrastOfTexts);
    }

    void aChangeOfThePaletteIsFollowed() {
        useContrastStyleWhereNeeded();
        const auto box = test::madeControl(QStringLiteral("box"));
        for (const char* look : {"dark", "light", "night", "dark"}) {
            QApplication::setPalette(test::paletteOf(QString::fromLatin1(look)));
            QVERIFY(edgeContrastOf(*box) >= contrastOfEdges);
        }
    }

    void init() {
        QApplication::setStyle(QStringLiteral("fusion"));
        QApplication::setPalette(QPalette());
    }
};

QTEST_MAIN(ContrastStyleTest)
#include "contrast_style_test.moc"
