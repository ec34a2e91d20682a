#pragma once

#include <QLabel>

namespace orbisgrid {

/// A label for the read-out of a place, whose room depends on its width and never on its text. With
/// the text's own size the map above it would grow and shrink while the pointer moves, and with it
/// the place below the pointer and the text, without an end.
class ReadOutLabel : public QLabel {
    Q_OBJECT

public:
    explicit ReadOutLabel(QWidget* parent = nullptr);

    bool hasHeightForWidth() const override { return true; } // without a text, too

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
};

} // namespace orbisgrid
