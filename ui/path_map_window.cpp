#include "ui/path_map_window.h"

#include "map/map_words.h"
#include "platform/byte_stream.h"
#include "platform/safe_file.h"
#include "ui/panel_parts.h"
#include "ui/path_map_view.h"
#include "ui/picture_file.h"
#include "ui/qt_text.h"
#include "ui/read_out_label.h"
#include "ui/visible_place.h"
#include "ui/window_messages.h"

#include <QCheckBox>
#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QScreen>
#include <QVBoxLayout>

#include <cerrno>

namespace orbisgrid {

namespace {

/// A text that takes more lines where it has to, and gives room to the map where there is little.
QLabel* textBelow(const char* objectName, QLabel* label) {
    label->setObjectName(QString::fromLatin1(objectName));
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    label->setMinimumSize(1, 1);
    return label;
}

std::optional<Outlines> outlinesIn(const std::string& path) {
    const auto bytes = readFile(path);
    return bytes ? Outlines::decode(*bytes) : std::nullopt;
}

} // namespace

PathMap::PathMap(const MapSurroundings& surroundings, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_outlines(outlinesIn(surroundings.outlinesFile))
    , m_view(new PathMapView(surroundings.now))
    , m_lblPath(textBelow("lblPath", new QLabel))
    , m_lblPlace(textBelow("lblPlace", new ReadOutLabel))
    , m_chkNight(new QCheckBox(QStringLiteral("Day and night"))) {
    setObjectName(QStringLiteral("PathMap"));
    setWindowTitle(QStringLiteral("Path on a map"));
    m_chkNight->setObjectName(QStringLiteral("chkNight"));
    m_chkNight->setChecked(true);
    m_chkNight->setFocusPolicy(Qt::TabFocus); // a click leaves the keys to the map
    m_view->setOutlines(m_outlines ? &*m_outlines : nullptr);

    auto* lastLine = new QHBoxLayout;
    lastLine->addWidget(m_lblPlace, 1);
    lastLine->addWidget(m_chkNight, 0, Qt::AlignRight | Qt::AlignBottom);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_lblPath);
    layout->addLayout(lastLine);
    resize(sizeHint().boundedTo(screen()->availableSize() - windowFrame));

    connect(m_view, &PathMapView::readOutChanged, m_lblPlace, &QLabel::setText);
    connect(m_view, &PathMapView::targetChosen, this, &PathMap::targetChosen);
    connect(m_view, &PathMapView::menuWanted, this, &PathMap::showMenu);
    connect(m_chkNight, &QCheckBox::toggled, m_view, &PathMapView::setShowsNight);
}

void PathMap::showSubject(const MapSubject& subject) {
    m_subject = subject;
    m_view->showSubject(subject);
    Text line = subject.caption;
    if (!m_outlines)
        line += u" (The outlines of the land are missing: orbisgrid-map.dat cannot be read.)";
    showText(*m_lblPath, line);
}

/// The map's keys work wherever the focus is.
void PathMap::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else if (!m_view->takeKey(*event))
        QWidget::keyPressEvent(event);
}

// Menu ------------------------------------------------------------------------------------------

void PathMap::showMenu(const QString& locator, const QPoint& globalPosition) {
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("mnuPathMap"));
    const auto add = [&](const char* objectName, const QString& caption,
                         const std::function<void()>& chosen) {
        QAction* action = menu.addAction(caption);
        action->setObjectName(QString::fromLatin1(objectName));
        connect(action, &QAction::triggered, this, chosen);
        return action;
    };
    for (QAction* ofPlace : {add("mnuSetTarget", QStringLiteral("Set as Target"),
                                 [=, this] { Q_EMIT targetChosen(locator); }),
                             add("mnuSetHome", QStringLiteral("Set as Home"),
                                 [=, this] { Q_EMIT homeChosen(locator); }),
                             add("mnuCopyLocator", QStringLiteral("Copy locator"),
                                 [=] { copyToClipboard(toText(locator)); })})
        ofPlace->setEnabled(!locator.isEmpty());
    menu.addSeparator();
    add("mnuCopyPicture", QStringLiteral("Copy picture"), [this] { copyPicture(); });
    add("mnuSavePicture", QStringLiteral("Save picture…"), [this] { askForFile(); });
    menu.exec(globalPosition);
}

SvgWords PathMap::words() const {
    return mapWords(m_view->options(), m_subject.targets.empty() ? Text() : m_subject.caption);
}

void PathMap::copyPicture() {
    const Picture picture = pathMap(m_view->options());
    auto* both = new QMimeData;
    both->setImageData(printedImage(picture));
    both->setData(QStringLiteral("image/svg+xml"), pictureFile(picture, words(), PictureKind::svg));
    QGuiApplication::clipboard()->setMimeData(both);
}

// Saving ----------------------------------------------------------------------------------------

/// "JO20AW-FN42AA", "JO20AW" or "world".
QString PathMap::suggestedName() const {
    QString name = toQString(m_subject.home.value_or(u"world"));
    for (const MapTarget& target : m_subject.targets)
        name += u'-' + toQString(target.text);
    return name;
}

void PathMap::askForFile() {
    QFileDialog dialog(this, QStringLiteral("Save picture"));
    dialog.setObjectName(QStringLiteral("dlgSavePicture"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters({QStringLiteral("SVG drawing (*.svg)"),
                           QStringLiteral("PNG image (*.png)"),
                           QStringLiteral("PDF page (*.pdf)")});
    dialog.setDefaultSuffix(QStringLiteral("svg"));
    connect(&dialog, &QFileDialog::filterSelected, &dialog,
            [&](const QString& filter) { dialog.setDefaultSuffix(filter.left(3).toLower()); });
    dialog.selectFile(suggestedName());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const QString fileName = dialog.selectedFiles().constFirst();
    // Whichever kind was chosen, where the name's end is of none.
    const auto chosen = pictureKindOf(u'.' + dialog.selectedNameFilter().left(3));
    savePicture(fileName, pictureKindOf(fileName).value_or(chosen.value_or(PictureKind::svg)));
}

void PathMap::savePicture(const QString& fileName, PictureKind kind) {
    const QByteArray bytes = pictureFile(pathMap(m_view->options()), words(), kind);
    if (bytes.isEmpty()) {
        sayNotSaved(QStringLiteral("it could not be made"));
        return;
    }
    FileReplacement file(QFile::encodeName(fileName).toStdString());
    if (file.write({bytes.constData(), static_cast<std::size_t>(bytes.size())}) && file.finish())
        return;
    const QString reason = file.error() == EINVAL ? QStringLiteral("it is a device or a pipe")
                                                  : QString::fromStdString(reasonOf(file.error()));
    sayNotSaved(reason);
}

void PathMap::sayNotSaved(const QString& reason) {
    showMessageBox(this, {toText(QStringLiteral("The picture was not saved: ") + reason + u'.'),
                          u"Save picture", MessageIcon::exclamation});
}

} // namespace orbisgrid
