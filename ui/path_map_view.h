#pragma once

#include "map/map_subject.h"
#include "map/path_map.h"

#include <QWidget>

#include <functional>
#include <optional>

namespace orbisgrid {

/// The map in its window: paints the picture, says what lies below the pointer or the cross, and
/// passes on what is chosen. It remembers nothing beyond its own life.
///
/// Wheel, + and - change the radius, 0 shows the whole world. A click or the arrow keys put the
/// cross somewhere: left and right turn it around Home by a degree, up and down move it by a pixel,
/// with Shift ten times as far. A double click or Enter chooses the Target.
class PathMapView : public QWidget {
    Q_OBJECT

public:
    /// `now` is asked for the moment of day and night: when the map is shown, gets another size or
    /// radius, or is about something else.
    explicit PathMapView(std::function<Moment()> now, QWidget* parent = nullptr);

    /// Another centre or another path. The cross goes.
    void showSubject(const MapSubject& subject);

    /// Land and borders; they must outlive the view.
    void setOutlines(const Outlines* outlines);

    void setShowsNight(bool showsNight);

    /// The whole map as it is shown, with texts of the usual size for a file.
    PathMapOptions options() const;

    /// Takes a key that moves the cross, changes the radius or chooses the Target. Result: whether
    /// it was one.
    bool takeKey(const QKeyEvent& event);

    /// What is said of the place below the pointer, or at the cross: of what was moved last.
    QString readOut() const { return m_readOut; }

    /// What is said of the cross; empty where none is on the map.
    QString crossReadOut() const;

    QSize sizeHint() const override;

Q_SIGNALS:
    void readOutChanged(const QString& readOut);
    void targetChosen(const QString& locator);
    /// The right mouse button or the menu key, at that place of the world.
    void menuWanted(const QString& locator, const QPoint& globalPosition);

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    /// Where the cross is, seen from the centre: at a distance of 0 it still has a direction.
    struct Cross {
        double azimuth{}; ///< degrees
        double kilometres{};
    };

    double side() const; ///< of the square that the map takes, in pixels
    QPointF corner() const;
    MapView view(double textSize) const;
    double screenTextSize() const;
    PathMapOptions options(double textSize) const;
    std::optional<Position> placeAt(QPointF point) const;
    std::optional<Position> crossPlace() const;
    QString captionOf(const std::optional<Position>& place) const;

    void zoom(double steps);
    void setRadius(double kilometres);
    void setCross(const std::optional<Cross>& cross);
    void sayCross();
    Cross crossOf(Position place) const;
    bool moveCross(const QKeyEvent& event);
    bool changeRadius(const QKeyEvent& event);
    void sayReadOut();
    void lookAtClock();
    void showAnew();
    void pictureChanged();

    std::function<Moment()> m_now;
    Moment m_moment;
    MapSubject m_subject;
    const Outlines* m_outlines = nullptr;
    bool m_showsNight = true;
    double m_radius = halfCircumference;
    std::optional<Cross> m_cross;     ///< where it is beyond the rim, it is as good as none
    std::optional<QPointF> m_pointer; ///< while it is over the view
    bool m_pointerMovedLast = true;   ///< and not the cross
    QString m_readOut;
    std::optional<Picture> m_picture; ///< of the present state; nothing until it is painted
};

} // namespace orbisgrid
