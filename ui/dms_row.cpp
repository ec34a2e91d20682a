#include "ui/dms_row.h"

#include "ui/panel_parts.h"
#include "ui/qt_text.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>

namespace orbisgrid {

namespace {

/// A click selects the short value for overtyping.
class ShortBox : public QLineEdit {
protected:
    void mouseReleaseEvent(QMouseEvent* event) override {
        // First the box's own part, which takes what is selected by then for the middle mouse
        // button: a click is not to replace what is marked elsewhere.
        QLineEdit::mouseReleaseEvent(event);
        if (event->button() == Qt::LeftButton)
            setSelection(0, 3);
    }
};

QString indexed(const QString& name, int index) {
    return name + u'_' + QString::number(index);
}

QLabel* mark(const QString& objectName, QChar sign) {
    auto* label = captionLabel(QString(sign));
    label->setObjectName(objectName);
    return label;
}

} // namespace

DmsRow DmsRow::make(const Wording& wording, std::array<TextBox, 3>& values, HemisphereList& list) {
    const std::array<QString, 3> tips{wording.degreesTip, QStringLiteral("minutes (0...60)"),
                                      QStringLiteral("seconds (0...60)")};
    const std::array<QString, 3> names{QStringLiteral(" degrees"), QStringLiteral(" minutes"),
                                       QStringLiteral(" seconds")};
    DmsRow row;
    for (std::size_t i = 0; i < row.boxes.size(); ++i) {
        auto* box = new ShortBox;
        bindBox(*box, values.at(i),
                {indexed(wording.boxes, static_cast<int>(i)),
                 i == 0 ? QStringLiteral("-0000") : QStringLiteral("000")});
        box->setToolTip(tips.at(i));
        box->setAccessibleName(wording.coordinate + names.at(i));
        row.boxes.at(i) = box;
    }
    row.hemisphere = new QComboBox;
    row.hemisphere->setObjectName(wording.list);
    row.hemisphere->setToolTip(wording.hemisphereTip);
    row.hemisphere->setAccessibleName(wording.coordinate + QStringLiteral(" hemisphere"));
    for (const TextView item : list.items)
        row.hemisphere->addItem(toQString(item));
    ignoreWheelWithoutFocus(*row.hemisphere);
    QObject::connect(row.hemisphere, &QComboBox::currentIndexChanged, row.hemisphere,
                     [&list](int index) { list.ListIndex = index; });
    return row;
}

QLayout* DmsRow::layout(const Wording& wording) const {
    auto* line = new QHBoxLayout;
    line->setSpacing(3);
    line->addWidget(boxes[0]);
    line->addWidget(mark(indexed(QStringLiteral("Label29"), wording.markIndex), u'°'));
    line->addWidget(boxes[1]);
    line->addWidget(mark(indexed(QStringLiteral("Label30"), wording.markIndex), u'\''));
    line->addWidget(boxes[2]);
    line->addWidget(mark(wording.secondsMark, u'"'));
    line->addSpacing(3);
    line->addWidget(hemisphere);
    line->addStretch();
    return line;
}

void DmsRow::show(const std::array<TextBox, 3>& values, const HemisphereList& list) {
    for (std::size_t i = 0; i < boxes.size(); ++i)
        showText(*boxes.at(i), values.at(i).text());
    hemisphere->setCurrentIndex(list.ListIndex);
}

} // namespace orbisgrid
