#pragma once

#include <QAbstractButton>
#include <QWidget>

namespace orbisgrid {

/// The About window's pictures, drawn in the palette's colours so that they suit a light and a dark
/// desktop, and without image files, which would cost the start their readers.

/// A globe with its grid and a path between two stations.
class GlobePicture : public QWidget {
    Q_OBJECT

public:
    explicit GlobePicture(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A mast that sends.
class MastPicture : public QWidget {
    Q_OBJECT

public:
    explicit MastPicture(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A quiet line between two parts of the window. (A frame's own line is white on a dark palette.)
class LinePicture : public QWidget {
    Q_OBJECT

public:
    explicit LinePicture(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The donation picture: a heart and a word, clicked as a link is.
class DonationPicture : public QAbstractButton {
    Q_OBJECT

public:
    explicit DonationPicture(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    int wordWidth() const;
};

} // namespace orbisgrid
