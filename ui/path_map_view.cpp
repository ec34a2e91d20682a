#include "ui/path_map_view.h"

#include "map/caption.h"
#include "platform/wide_registers.h"
#include "ui/map_colors.h"
#include "ui/path_map_accessible.h"
#include "ui/picture_painter.h"
#include "ui/qt_text.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QFontInfo>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace orbisgrid {

namespace {

constexpr double zoomStep = 1.25;
constexpr int wheelStep = 120; // eighths of a degree: a notch of a usual wheel

} // namespace

PathMapView::PathMapView(std::function<Moment()> now, QWidget* parent)
    : QWidget(parent)
    , m_now(std::move(now)) {
    makePathMapsSpeak(); // before the first of these lines asks for what speaks
    setObjectName(QStringLiteral("picPathMap"));
    setAccessibleName(QStringLiteral("Map of the path"));
    setAccessibleDescription(
        QStringLiteral("The arrow keys move a cross around Home, Enter takes it as Target"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setMinimumSize(120, 120);
}

QSize PathMapView::sizeHint() const {
    return {600, 600};
}

// What it shows ---------------------------------------------------------------------------------

void PathMapView::showSubject(const MapSubject& subject) {
    m_subject = subject;
    setCross(std::nullopt);
    showAnew();
}

void PathMapView::setOutlines(const Outlines* outlines) {
    m_outlines = outlines;
    pictureChanged();
}

void PathMapView::setShowsNight(bool showsNight) {
    m_showsNight = showsNight;
    pictureChanged();
}

void PathMapView::lookAtClock() {
    m_moment = m_now();
    pictureChanged();
}

void PathMapView::showAnew() {
    lookAtClock();
    sayReadOut(); // another place may lie below the pointer
}

void PathMapView::pictureChanged() {
    m_picture.reset();
    update();
}

PathMapOptions PathMapView::options() const {
    return options(MapView{}.textSize);
}

PathMapOptions PathMapView::options(double textSize) const {
    PathMapOptions options;
    options.view = view(textSize);
    options.home = m_subject.home;
    options.targets = m_subject.targets;
    if (m_showsNight)
        options.moment = m_moment;
    options.outlines = m_outlines;
    options.cross = crossPlace();
    return options;
}

MapView PathMapView::view(double textSize) const {
    return {.centre = m_subject.centre, .radiusKilometres = m_radius, .textSize = textSize};
}

/// The texts have the size of the window's own, however large the map is.
double PathMapView::screenTextSize() const {
    return QFontInfo(font()).pixelSize() * Picture::side / side();
}

double PathMapView::side() const {
    return std::max(1, std::min(width(), height()));
}

QPointF PathMapView::corner() const {
    return {(width() - side()) / 2, (height() - side()) / 2};
}

std::optional<Position> PathMapView::placeAt(QPointF point) const {
    const QPointF place = (point - corner()) * Picture::side / side();
    return MapFrame(view(screenTextSize())).placeAt(Picture::Point{place.x(), place.y()});
}

// Painting --------------------------------------------------------------------------------------

void PathMapView::paintEvent(QPaintEvent* /*event*/) {
    if (!m_picture) {
        letGoOfWideRegisters(); // the ground of the window has been painted just now
        m_picture = pathMap(options(screenTextSize()));
    }
    QPainter painter(this);
    const RoleStyles styles = screenStyles(palette());
    paintPicture(painter, *m_picture,
                 {.styles = styles,
                  .font = font(),
                  .scale = side() / Picture::side,
                  .corner = corner(),
                  .isForScreen = true});
    if (!hasFocus())
        return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void PathMapView::showEvent(QShowEvent* event) {
    lookAtClock();
    QWidget::showEvent(event);
}

/// What nobody sees needs no memory.
void PathMapView::hideEvent(QHideEvent* event) {
    m_picture.reset();
    QWidget::hideEvent(event);
}

void PathMapView::resizeEvent(QResizeEvent* event) {
    showAnew();
    QWidget::resizeEvent(event);
}

void PathMapView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange)
        pictureChanged();
    QWidget::changeEvent(event);
}

// Radius ----------------------------------------------------------------------------------------

void PathMapView::setRadius(double kilometres) {
    const QString before = crossReadOut();
    m_radius = std::clamp(kilometres, MapFrame::leastKilometres, halfCircumference);
    showAnew();
    if (crossReadOut() != before)
        sayCross();
}

void PathMapView::zoom(double steps) {
    setRadius(m_radius * std::pow(zoomStep, -steps));
}

void PathMapView::wheelEvent(QWheelEvent* event) {
    zoom(static_cast<double>(event->angleDelta().y()) / wheelStep);
    event->accept();
}

// Cross and pointer -----------------------------------------------------------------------------

PathMapView::Cross PathMapView::crossOf(Position place) const {
    const PlanePoint point = Azimuthal(m_subject.centre).project(place);
    return {std::atan2(point.x, point.y) * 180 / std::numbers::pi, std::hypot(point.x, point.y)};
}

std::optional<Position> PathMapView::crossPlace() const {
    constexpr double rounding = 1e-9;
    if (!m_cross || m_cross->kilometres > m_radius * (1 + rounding))
        return std::nullopt;
    // Its sine and cosine may put it a rounding beyond the antipode, where no place is.
    const double kilometres = std::min(m_cross->kilometres, halfCircumference * (1 - 1e-12));
    const double angle = m_cross->azimuth * std::numbers::pi / 180;
    return Azimuthal(m_subject.centre)
        .placeAt({kilometres * std::sin(angle), kilometres * std::cos(angle)});
}

void PathMapView::setCross(const std::optional<Cross>& cross) {
    m_cross = cross;
    m_pointerMovedLast = !cross.has_value();
    sayReadOut();
    pictureChanged();
    sayCross();
}

void PathMapView::sayCross() {
    // Of a value only a number can be told, so the description has the read-out as well.
    QAccessibleEvent described(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&described);
}

/// Without a Home nothing has a distance.
QString PathMapView::captionOf(const std::optional<Position>& place) const {
    if (!place)
        return {};
    return toQString(m_subject.home ? placeCaption(m_subject.centre, *place)
                                    : placeLocator(*place));
}

QString PathMapView::crossReadOut() const {
    return captionOf(crossPlace());
}

/// Of the place below the pointer, unless the cross has been moved since or there is no place.
void PathMapView::sayReadOut() {
    const auto place = m_pointer && m_pointerMovedLast ? placeAt(*m_pointer) : std::nullopt;
    const QString readOut = place ? captionOf(place) : crossReadOut();
    if (m_readOut == readOut)
        return;
    m_readOut = readOut;
    Q_EMIT readOutChanged(readOut);
}

void PathMapView::mouseMoveEvent(QMouseEvent* event) {
    m_pointer = event->position();
    m_pointerMovedLast = true;
    sayReadOut();
}

void PathMapView::leaveEvent(QEvent* event) {
    m_pointer.reset();
    sayReadOut();
    QWidget::leaveEvent(event);
}

void PathMapView::mousePressEvent(QMouseEvent* event) {
    const auto place = placeAt(event->position());
    if (event->button() == Qt::LeftButton && place)
        setCross(crossOf(*place));
}

void PathMapView::mouseDoubleClickEvent(QMouseEvent* event) {
    const auto place = placeAt(event->position());
    if (event->button() == Qt::LeftButton && place)
        Q_EMIT targetChosen(toQString(placeLocator(*place)));
}

void PathMapView::contextMenuEvent(QContextMenuEvent* event) {
    const bool isMouse = event->reason() == QContextMenuEvent::Mouse;
    const auto place = isMouse ? placeAt(event->pos()) : crossPlace();
    Q_EMIT menuWanted(place ? toQString(placeLocator(*place)) : QString(), event->globalPos());
}

// Keys ------------------------------------------------------------------------------------------

void PathMapView::keyPressEvent(QKeyEvent* event) {
    if (!takeKey(*event))
        QWidget::keyPressEvent(event);
}

bool PathMapView::takeKey(const QKeyEvent& event) {
    if (moveCross(event) || changeRadius(event))
        return true;
    const auto cross = crossPlace();
    if (!cross || (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter))
        return false;
    Q_EMIT targetChosen(toQString(placeLocator(*cross)));
    return true;
}

/// The first arrow puts the cross on the Target, or on the rim in its direction where it is farther
/// away; without a Target on the centre.
bool PathMapView::moveCross(const QKeyEvent& event) {
    const bool isFar = event.modifiers().testFlag(Qt::ShiftModifier);
    const double steps = isFar ? 10 : 1;
    double degrees = 0, pixels = 0;
    switch (event.key()) {
    case Qt::Key_Left:
        degrees = -steps;
        break;
    case Qt::Key_Right:
        degrees = steps;
        break;
    case Qt::Key_Up:
        pixels = steps;
        break;
    case Qt::Key_Down:
        pixels = -steps;
        break;
    default:
        return false;
    }
    if (!crossPlace()) {
        const auto& targets = m_subject.targets;
        Cross first = targets.empty() ? Cross{} : crossOf(targets.front().place);
        first.kilometres = std::min(first.kilometres, m_radius);
        setCross(first);
        return true;
    }
    const double pixel =
        MapFrame(view(screenTextSize())).kilometresPerUnit() * Picture::side / side();
    setCross(Cross{std::remainder(m_cross->azimuth + degrees, 360.0),
                   std::clamp(m_cross->kilometres + pixels * pixel, 0.0, m_radius)});
    return true;
}

bool PathMapView::changeRadius(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Plus:
        zoom(1);
        return true;
    case Qt::Key_Minus:
        zoom(-1);
        return true;
    case Qt::Key_0:
        setRadius(halfCircumference);
        return true;
    default:
        return false;
    }
}

} // namespace orbisgrid
