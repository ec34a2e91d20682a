#include "ui/result_label.h"

#include <QFocusEvent>

namespace orbisgrid {

ResultLabel::ResultLabel(const QString& text, QWidget* parent)
    : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setText(text); // before the focus policy: a label with one makes a document of each new text
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::IBeamCursor);
}

/// Selecting needs a document behind the label. It is made when the pointer or the focus comes,
/// which keeps it out of the start.
void ResultLabel::makeSelectable() {
    if (textInteractionFlags() != Qt::LinksAccessibleByMouse)
        return;
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(Qt::StrongFocus); // the flags alone would let only a click in
}

bool ResultLabel::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::MouseButtonPress:
    case QEvent::ContextMenu:
        makeSelectable();
        break;
    case QEvent::Polish:
        // QLabel would make the document now.
        return QFrame::event(event); // NOLINT(bugprone-parent-virtual-call)
    default:
        break;
    }
    return QLabel::event(event);
}

void ResultLabel::focusInEvent(QFocusEvent* event) {
    QLabel::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        setSelection(0, static_cast<int>(text().size()));
}

void ResultLabel::focusOutEvent(QFocusEvent* event) {
    QLabel::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        setSelection(0, 0);
}

} // namespace orbisgrid
