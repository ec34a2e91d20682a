#pragma once

#include "tests/ui/opened_controls.h"
#include "ui/path_map_view.h"
#include "ui/path_map_window.h"

#include <QSignalSpy>

#include <string>

namespace orbisgrid::test {

/// The window of the map by itself, with the outlines of the source tree and a clock that stands
/// still.
class OpenedMap : public OpenedControls {
public:
    explicit OpenedMap(const std::string& outlinesFile = ORBISGRID_SOURCES
                       "/map/data/orbisgrid-map.dat")
        : m_map({outlinesFile, [this] { return m_moment; }}) {}

    PathMap& window() override { return m_map; }

    PathMapView& view() { return child<PathMapView>(QStringLiteral("picPathMap")); }

    /// Noon of a summer solstice, unless it is set.
    void setMoment(Moment moment) { m_moment = moment; }

    void open(LocatorPair path) { open(subjectOfPath(path).value()); }

    void open(const MapSubject& subject) {
        m_map.showSubject(subject);
        showActive();
    }

    /// Where a place is seen in the view.
    QPoint pixelOf(Position place) {
        const PathMapView& seen = view();
        const double side = std::min(seen.width(), seen.height());
        const Picture::Point point = MapFrame(shownView()).pointOf(place);
        return QPointF((seen.width() - side) / 2 + point.x * side / Picture::side,
                       (seen.height() - side) / 2 + point.y * side / Picture::side)
            .toPoint();
    }

    /// The part of the world that the view shows, with texts of the window's size.
    MapView shownView() {
        MapView shown = view().options().view;
        const double side = std::min(view().width(), view().height());
        shown.textSize = QFontInfo(view().font()).pixelSize() * Picture::side / side;
        return shown;
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&view(), key, modifiers);
    }

private:
    Moment m_moment = parsedMoment("2026-06-21T12:00:00Z").value();
    PathMap m_map;
};

} // namespace orbisgrid::test
