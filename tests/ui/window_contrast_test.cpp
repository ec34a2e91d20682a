#include "tests/ui/main_window_fixture.h"
#include "tests/ui/measured_contrast.h"
#include "tests/ui/palettes.h"
#include "ui/about_window.h"
#include "ui/contrast_style.h"
#include "ui/help_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QPixmapCache>
#include <QPushButton>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QToolButton>

using namespace orbisgrid;

namespace {

/// A part of a drawn window and how well it is seen.
struct Part {
    QString name;
    double seen = 0;
    double least = 0;
};

QRect indicatorOf(const QCheckBox& box) {
    QStyleOptionButton option;
    option.initFrom(&box);
    return box.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &box);
}

QRect partOf(const QComboBox& list, QStyle::SubControl part) {
    QStyleOptionComboBox option;
    option.initFrom(&list);
    option.subControls = QStyle::SC_All;
    return list.style()->subControlRect(QStyle::CC_ComboBox, &option, part, &list);
}

/// Measures everything that a window draws.
class Measured {
public:
    explicit Measured(QWidget& window)
        : m_window(window)
        , m_image(window.grab().toImage()) {
        for (const auto* widget : window.findChildren<QWidget*>()) {
            if (widget->isVisible() && !widget->visibleRegion().isEmpty())
                measure(*widget);
        }
    }

    const QList<Part>& parts() const { return m_parts; }

    QStringList hardlySeen() const {
        QStringList names;
        for (const Part& part : m_parts) {
            if (part.seen < part.least)
                names.append(part.name + QStringLiteral(": ") + QString::number(part.seen));
        }
        return names;
    }

private:
    void measure(const QWidget& widget) {
        m_widget = &widget;
        const QRect all = widget.rect();
        const QRect inside = all.adjusted(4, 4, -4, -4);
        if (const auto* list = qobject_cast<const QComboBox*>(&widget)) {
            edge("edge", all);
            ink("text", partOf(*list, QStyle::SC_ComboBoxEditField), contrastOfTexts);
            ink("arrow", partOf(*list, QStyle::SC_ComboBoxArrow).adjusted(2, 4, -4, -4),
                contrastOfEdges);
        } else if (const auto* box = qobject_cast<const QCheckBox*>(&widget)) {
            const QRect indicator = indicatorOf(*box);
            edge("box", indicator);
            if (box->isChecked())
                ink("mark", indicator.adjusted(2, 2, -2, -2), contrastOfEdges);
            ink("text", all.adjusted(indicator.right() + 2, 0, 0, 0), contrastOfTexts);
        } else if (qobject_cast<const QToolButton*>(&widget) != nullptr) {
            edge("edge", all);
            ink("symbol", inside, contrastOfEdges);
        } else if (qobject_cast<const QPushButton*>(&widget) != nullptr) {
            edge("edge", all);
            ink("text", inside, contrastOfTexts);
        } else if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
            edge("edge", all);
            if (!line->text().isEmpty())
                ink("text", inside, contrastOfTexts);
        } else if (isText(widget)) {
            ink("text", all, contrastOfTexts);
        } else if (const auto* frame = qobject_cast<const QFrame*>(&widget);
                   frame != nullptr && frame->frameShape() != QFrame::NoFrame) {
            edge("frame", all);
        }
    }

    static bool isText(const QWidget& widget) {
        const QString text = widget.property("text").toString();
        const bool isLabel = qobject_cast<const QLabel*>(&widget) != nullptr ||
                             widget.inherits("orbisgrid::LinkLabel");
        return isLabel && !text.isEmpty();
    }

    QRect inWindow(const QRect& rect) const {
        return rect.translated(m_widget->mapTo(&m_window, QPoint()));
    }

    QString nameOf(const char* part) const {
        return m_widget->objectName() + u' ' + m_widget->property("text").toString() + u' ' +
               QString::fromLatin1(part);
    }

    void edge(const char* name, const QRect& rect) {
        const QColor ground = m_window.palette().color(QPalette::Window);
        m_parts.append(
            {nameOf(name), test::edgeContrast(m_image, inWindow(rect), ground), contrastOfEdges});
    }

    void ink(const char* name, const QRect& rect, double least) {
        m_parts.append({nameOf(name), test::inkContrast(m_image, inWindow(rect)), least});
    }

    QWidget& m_window;
    QImage m_image;
    const QWidget* m_widget = nullptr;
    QList<Part> m_parts;
};

void addLooks() {
    QTest::addColumn<QString>("look");
    for (const char* look : {"light", "dark", "contrast", "grey", "night"})
        QTest::newRow(look) << QString::fromLatin1(look);
}

} // namespace

/// Everything in the windows is seen, whatever the palette: measured in the pixels that are drawn.
class WindowContrastTest : public QObject {
    Q_OBJECT

private Q_SLOTS:

    void init() {
        QPixmapCache::clear();
        QApplication::setStyle(QStringLiteral("fusion"));
        QApplication::setPalette(QPalette());
    }

    void theMainWindowIsSeen_data() { addLooks(); }

    void theMainWindowIsSeen() {
        QFETCH(const QString, look);
        wear(look);
        test::MainWindow main;
        openFilled(main);
        const Measured measured(main.window());
        QVERIFY(measured.parts().size() > 90);
        QCOMPARE(measured.hardlySeen().join(u'\n'), QString());
        main.click("chkOnTop");
        QCOMPARE(Measured(main.window()).hardlySeen().join(u'\n'), QString());
    }

    void withQtsOwnStyleItIsNot_data() { addLooks(); }

    /// That the measure finds what is hardly seen.
    void withQtsOwnStyleItIsNot() {
        QFETCH(const QString, look);
        QApplication::setPalette(test::paletteOf(look));
        test::MainWindow main;
        openFilled(main);
        const QString found = Measured(main.window()).hardlySeen().join(u'\n');
        QVERIFY2(found.contains(QStringLiteral("txtHome JO20AW edge")), qPrintable(found));
        QVERIFY2(found.contains(QStringLiteral("chkOnTop Stay on top box")), qPrintable(found));
    }

    void aListWithoutASelectionIsRead_data() { addLooks(); }

    void aListWithoutASelectionIsRead() {
        QFETCH(const QString, look);
        wear(look);
        test::MainWindow main;
        main.open();
        QComboBox& list = main.list("cmbHome");
        QCOMPARE(list.currentIndex(), -1);
        const QImage image = list.grab().toImage();
        QVERIFY(test::inkContrast(image, partOf(list, QStyle::SC_ComboBoxEditField)) >=
                contrastOfTexts);
    }

    void theRingAroundTheFocusIsSeen_data() { addLooks(); }

    void theRingAroundTheFocusIsSeen() {
        QFETCH(const QString, look);
        wear(look);
        test::MainWindow main;
        main.open();
        main.edit("txtHome").setFocus();
        QStringList ring;
        do {
            QWidget& widget = *main.window().focusWidget();
            ring.append(widget.objectName());
            const QImage with = widget.grab().toImage();
            if (qobject_cast<QLabel*>(&widget) == nullptr &&
                qobject_cast<QCheckBox*>(&widget) == nullptr)
                QVERIFY2(test::edgeContrast(with, with.rect(), windowColor()) >= contrastOfEdges,
                         qPrintable(widget.objectName()));
            QTest::keyClick(&widget, Qt::Key_Tab);
            // A result may be empty, and the button that Enter means has the ring always.
            const auto* button = qobject_cast<QPushButton*>(&widget);
            const bool isTheSame = qobject_cast<QLabel*>(&widget) != nullptr ||
                                   (button != nullptr && button->isDefault());
            QVERIFY2(isTheSame || widget.grab().toImage() != with, qPrintable(widget.objectName()));
        } while (main.focus() != ring.first() && ring.size() < 100);
        QVERIFY(ring.size() > 40);
    }

    void theAboutWindowIsSeen_data() { addLooks(); }

    void theAboutWindowIsSeen() {
        QFETCH(const QString, look);
        wear(look);
        DesktopToolRegistry registry;
        frmAbout about(12, registry);
        about.show();
        const Measured measured(about);
        QVERIFY(measured.parts().size() > 10);
        QCOMPARE(measured.hardlySeen().join(u'\n'), QString());
    }

    void theHelpWindowIsSeen_data() { addLooks(); }

    void theHelpWindowIsSeen() {
        QFETCH(const QString, look);
        wear(look);
        Help help("/nowhere");
        help.show();
        const Measured measured(help);
        QVERIFY(measured.parts().size() >= 3);
        QCOMPARE(measured.hardlySeen().join(u'\n'), QString());
    }

private:
    static void wear(const QString& look) {
        QApplication::setPalette(test::paletteOf(look));
        useContrastStyleWhereNeeded();
    }

    static QColor windowColor() { return QApplication::palette().color(QPalette::Window); }

    static void openFilled(test::MainWindow& main) {
        test::IniText ini;
        ini.targetLines = test::listLines("FN42AA");
        main.open(ini);
        main.edit("txtHome").setText(QStringLiteral("JO20AW"));
        main.edit("txtTarget").setText(QStringLiteral("FN42AA"));
        main.click("cmdCalculateDistDir");
    }
};

QTEST_MAIN(WindowContrastTest)
#include "window_contrast_test.moc"
