#pragma once

#include <QPalette>
#include <QString>

namespace orbisgrid::test {

/// The palettes that the windows are looked at in, by name: "light" (Qt's own), "dark" and
/// "contrast" (yellow on black), and of known desktops "grey" and "night".
inline QPalette paletteOf(const QString& look) {
    const auto made = [](QRgb window, QRgb button, QRgb base, QRgb text, QRgb highlight,
                         QRgb link) {
        QPalette palette{QColor(button), QColor(window)};
        for (const auto role :
             {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::BrightText})
            palette.setColor(role, QColor(text));
        QColor faint(text);
        faint.setAlpha(128);
        palette.setColor(QPalette::PlaceholderText, faint);
        palette.setColor(QPalette::Base, QColor(base));
        palette.setColor(QPalette::Highlight, QColor(highlight));
        palette.setColor(QPalette::HighlightedText,
                         qGray(highlight) > 128 ? QColor(Qt::black) : QColor(Qt::white));
        palette.setColor(QPalette::Link, QColor(link));
        return palette;
    };
    if (look == QStringLiteral("dark"))
        return made(0x2a2a2a, 0x353535, 0x232323, 0xffffff, 0x2a82da, 0x50a0f0);
    if (look == QStringLiteral("contrast"))
        return made(0x000000, 0x000000, 0x000000, 0xffff00, 0x00ffff, 0xffff00);
    if (look == QStringLiteral("grey"))
        return made(0xd4d0c8, 0xd4d0c8, 0xffffff, 0x000000, 0x0a246a, 0x0000ff);
    if (look == QStringLiteral("night"))
        return made(0x2a2e32, 0x31363b, 0x1b1e20, 0xfcfcfc, 0x3daee9, 0x1d99f3);
    return {};
}

} // namespace orbisgrid::test
