#include "ui/picture_file.h"

#include "ui/picture_painter.h"
#include "ui/qt_text.h"

#include <QBuffer>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

namespace orbisgrid {

namespace {

/// What the SVG file asks for first.
QFont printFont() {
    return {QStringLiteral("DejaVu Sans")};
}

QByteArray png(const Picture& picture) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return printedImage(picture).save(&buffer, "PNG") ? bytes : QByteArray();
}

QByteArray pdf(const Picture& picture, const SvgWords& words) {
    constexpr double millimetres = 200;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(toQString(words.title));
    writer.setPageSize(QPageSize(QSizeF(millimetres, millimetres), QPageSize::Millimeter));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    QPainter painter;
    if (!painter.begin(&writer))
        return {};
    const RoleStyles styles = printStyles();
    paintPicture(painter, picture,
                 {.styles = styles, .font = printFont(), .scale = writer.width() / Picture::side});
    return painter.end() ? bytes : QByteArray();
}

} // namespace

std::optional<PictureKind> pictureKindOf(const QString& fileName) {
    const auto isOf = [&](const QString& end) {
        return fileName.endsWith(end, Qt::CaseInsensitive);
    };
    if (isOf(QStringLiteral(".png")))
        return PictureKind::png;
    if (isOf(QStringLiteral(".pdf")))
        return PictureKind::pdf;
    return isOf(QStringLiteral(".svg")) ? std::optional(PictureKind::svg) : std::nullopt;
}

QImage printedImage(const Picture& picture) {
    constexpr int pixels = 2000;
    const RoleStyles styles = printStyles();
    return paintedImage(picture, pixels, {.styles = styles, .font = printFont()});
}

QByteArray pictureFile(const Picture& picture, const SvgWords& words, PictureKind kind) {
    switch (kind) {
    case PictureKind::png:
        return png(picture);
    case PictureKind::pdf:
        return pdf(picture, words);
    case PictureKind::svg:
        break;
    }
    return QByteArray::fromStdString(svgText(picture, words));
}

} // namespace orbisgrid
