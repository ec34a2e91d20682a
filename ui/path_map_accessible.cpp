#include "ui/path_map_accessible.h"

#include "ui/path_map_view.h"

#include <QAccessibleWidget>

namespace orbisgrid {

namespace {

class PathMapAccessible : public QAccessibleWidget {
public:
    explicit PathMapAccessible(PathMapView* view)
        : QAccessibleWidget(view, QAccessible::Graphic)
        , m_view(*view) {}

    QString text(QAccessible::Text kind) const override {
        const QString cross = m_view.crossReadOut();
        const bool isOfCross =
            kind == QAccessible::Value || (kind == QAccessible::Description && !cross.isEmpty());
        return isOfCross ? cross : QAccessibleWidget::text(kind);
    }

private:
    const PathMapView& m_view;
};

QAccessibleInterface* accessibleOf(const QString& /*className*/, QObject* object) {
    auto* view = qobject_cast<PathMapView*>(object);
    return view == nullptr ? nullptr : new PathMapAccessible(view);
}

} // namespace

void makePathMapsSpeak() {
    QAccessible::installFactory(accessibleOf); // which keeps each factory once
}

} // namespace orbisgrid
