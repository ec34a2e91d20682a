#pragma once

#include <QString>
#include <QUrl>

namespace orbisgrid {

/// The author's home page, which an empty address stands for.
inline QString homePageAddress() {
    return QStringLiteral("http://www.orbisgrid.example/");
}

/// The program's own page, with its updates.
inline QString updatePageAddress() {
    return QStringLiteral("http://www.orbisgrid.example/hamradio/orbisgrid.htm");
}

/// The donation page. The service reads its query as it stands, %3a and %2d included.
inline QString donationAddress() {
    return QStringLiteral("https://www.donations.example/cgi-bin/webscr"
                          "?cmd=_xclick&business=zz9qx%40orbisgrid.example"
                          "&item_name=ZZ9QX-Orbisgrid&no_shipping=0&cn=Comments%3a&tax=0"
                          "&currency_code=EUR&lc=US&bn=PP%2dDonationsBF&charset=UTF%2d8");
}

/// The author's mailbox.
inline QString mailAddress() {
    return QStringLiteral("zz9qx@orbisgrid.example");
}

/// The name of the web map, for tool tips.
inline QString mapName() {
    return QStringLiteral("Google Maps");
}

/// The web map at a position. Both texts are degrees as the converter's boxes hold them; what an
/// address cannot hold is percent-encoded (a blank is %20), digits, point and minus stay.
inline QString mapAddress(const QString& latitude, const QString& longitude) {
    const auto encoded = [](const QString& text) {
        return QString::fromLatin1(QUrl::toPercentEncoding(text));
    };
    return QStringLiteral("http://www.google.com/maps?q=") + encoded(latitude) + u',' +
           encoded(longitude);
}

} // namespace orbisgrid
