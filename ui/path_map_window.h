#pragma once

#include "map/map_subject.h"
#include "map/outlines.h"
#include "map/svg.h"

#include <QWidget>

#include <functional>
#include <optional>
#include <string>

class QCheckBox;
class QLabel;

namespace orbisgrid {

class PathMapView;
enum class PictureKind;

/// What the window of the map needs of the machine.
struct MapSurroundings {
    std::string outlinesFile;    ///< orbisgrid-map.dat; without it the map has no land
    std::function<Moment()> now; ///< for day and night
};

/// The window of the map, `PathMap`: the picture, the line of the path below it, a line for the
/// place below the pointer or at the cross, and a switch for day and night. Escape closes it.
class PathMap : public QWidget {
    Q_OBJECT

public:
    /// Reads the outlines. Where they are missing or damaged the map is shown without them, and its
    /// line says so.
    explicit PathMap(const MapSurroundings& surroundings, QWidget* parent = nullptr);

    void showSubject(const MapSubject& subject);

Q_SIGNALS:
    /// A locator of 6 characters was chosen on the map.
    void targetChosen(const QString& locator);
    void homeChosen(const QString& locator);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void showMenu(const QString& locator, const QPoint& globalPosition);
    void copyPicture();
    void askForFile();
    void savePicture(const QString& fileName, PictureKind kind);
    void sayNotSaved(const QString& reason);
    SvgWords words() const;
    QString suggestedName() const;

    std::optional<Outlines> m_outlines;
    MapSubject m_subject;
    PathMapView* m_view;
    QLabel* m_lblPath;
    QLabel* m_lblPlace;
    QCheckBox* m_chkNight;
};

} // namespace orbisgrid
