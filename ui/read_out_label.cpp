#include "ui/read_out_label.h"

#include <algorithm>

namespace orbisgrid {

namespace {

/// The widest read-out.
QString widest() {
    return QStringLiteral("MM88WW: 20003 km, 12430 miles, 359°");
}

} // namespace

ReadOutLabel::ReadOutLabel(QWidget* parent)
    : QLabel(parent) {
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

int ReadOutLabel::heightForWidth(int width) const {
    const QRect room(0, 0, std::max(width, 1), QWIDGETSIZE_MAX);
    return fontMetrics().boundingRect(room, Qt::TextWordWrap, widest()).height();
}

QSize ReadOutLabel::sizeHint() const {
    return {fontMetrics().horizontalAdvance(widest()), fontMetrics().height()};
}

QSize ReadOutLabel::minimumSizeHint() const {
    return {1, fontMetrics().height()};
}

} // namespace orbisgrid
