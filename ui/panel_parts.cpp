#include "ui/panel_parts.h"

#include "ui/contrast_style.h"
#include "ui/edge.h"
#include "ui/qt_text.h"
#include "ui/result_label.h"

#include <QClipboard>
#include <QComboBox>
#include <QEvent>
#include <QFontMetrics>
#include <QFrame>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QToolButton>
#include <QVBoxLayout>

namespace orbisgrid {

namespace {

/// Of a box that shows `widest` whole, with its frame and the room that the text keeps from it.
int widthFor(const QLineEdit& edit, const QString& widest) {
    constexpr int marginsAndCaret = 8;
    QStyleOptionFrame option;
    option.initFrom(&edit);
    option.lineWidth = 1;
    const QSize text(edit.fontMetrics().horizontalAdvance(widest) + marginsAndCaret,
                     edit.fontMetrics().height());
    return edit.style()->sizeFromContents(QStyle::CT_LineEdit, &option, text, &edit).width();
}

class WheelGuard : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool passesOver =
            event->type() == QEvent::Wheel && !static_cast<QWidget*>(watched)->hasFocus();
        if (passesOver)
            event->ignore();
        return passesOver;
    }
};

/// A frame with the style's measures.
class PanelFrame : public QFrame {
public:
    PanelFrame() { setFrameStyle(int(QFrame::StyledPanel) | int(QFrame::Plain)); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        drawEdge(painter, rect(), edgeColor(palette()));
    }
};

QString withoutLineEnds(QString text) {
    const auto isLineEnd = [](QChar c) {
        return c == u'\n' || c == u'\r' || c == QChar::LineSeparator ||
               c == QChar::ParagraphSeparator;
    };
    text.removeIf(isLineEnd);
    return text;
}

} // namespace

QFrame* captionedFrame(const QString& caption, QLayout* content) {
    auto* frame = new PanelFrame;
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(captionLabel(caption));
    layout->addLayout(content, 1);
    return frame;
}

QLabel* captionLabel(const QString& text, QWidget* buddy) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(buddy);
    return label;
}

QLabel* resultLabel(const QString& objectName, TextView text, const QString& meaning) {
    auto* label = new ResultLabel(toQString(text));
    label->setObjectName(objectName);
    label->setAccessibleDescription(meaning); // never a name: it would hide the text
    return label;
}

QToolButton* glyphButton(const QString& objectName, Glyph glyph, const QString& tip,
                         const QString& accessibleName) {
    auto* button = new QToolButton;
    button->setObjectName(objectName);
    button->setIcon(glyphIcon(glyph));
    const int side = qMax(16, button->fontMetrics().ascent() * 5 / 4); // grows with the font
    button->setIconSize(QSize(side, side));
    button->setToolTip(tip);
    button->setAccessibleName(accessibleName.isEmpty() ? tip : accessibleName);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

void bindBox(QLineEdit& edit, TextBox& value, const BoxLook& look) {
    edit.setObjectName(look.objectName);
    edit.setMaxLength(static_cast<int>(value.maximumLength()));
    edit.setFixedWidth(widthFor(edit, look.widest));
    QObject::connect(&edit, &QLineEdit::textChanged, &edit, [&edit, &value](const QString& text) {
        const QString oneLine = withoutLineEnds(text);
        if (oneLine != text)
            edit.setText(oneLine); // comes back here
        else
            value.set(toText(text));
    });
}

void setLeastLetters(QComboBox& list, int count) {
    // QComboBox::setMinimumContentsLength would create the drop-down list now, before anyone opens
    // it.
    QStyleOptionComboBox option;
    option.initFrom(&list);
    const QSize text(list.fontMetrics().horizontalAdvance(u'X') * count,
                     list.fontMetrics().height());
    list.setMinimumWidth(
        list.style()->sizeFromContents(QStyle::CT_ComboBox, &option, text, &list).width());
    list.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void ignoreWheelWithoutFocus(QComboBox& list) {
    list.setFocusPolicy(Qt::StrongFocus); // the wheel gives no focus either
    list.installEventFilter(new WheelGuard(&list));
}

void showText(QLineEdit& edit, TextView text) {
    const QString shown = toQString(text);
    if (edit.text() != shown)
        edit.setText(shown);
}

void showText(QLabel& label, TextView text) {
    const QString shown = toQString(text);
    if (label.text() != shown)
        label.setText(shown); // tells screen readers too: a label's text is its name
}

void copyToClipboard(const Text& text) {
    QGuiApplication::clipboard()->setText(toQString(text));
}

} // namespace orbisgrid
