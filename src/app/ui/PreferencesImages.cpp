#include "app/ui/PreferencesImages.h"

#include <QHash>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace PreferencesImages {

namespace {

const char *svgFor(const QString &identifier)
{
    static const QHash<QString, const char *> images = {
        {QStringLiteral("General"),
         R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 32 32">
              <rect x="3" y="6" width="26" height="8" rx="4" fill="#4a90d9"/>
              <circle cx="25" cy="10" r="3" fill="#fff"/>
              <rect x="3" y="18" width="26" height="8" rx="4" fill="#9aa3ad"/>
              <circle cx="7" cy="22" r="3" fill="#fff"/></svg>)"},
        {QStringLiteral("Files"),
         R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 32 32">
              <path d="M10 3h12l5 5v17H10z" fill="#dfe6ee" stroke="#6b7785"/>
              <path d="M5 8h12l5 5v16H5z" fill="#fff" stroke="#4a5561"/>
              <path d="M8 17h11M8 21h11M8 25h8" stroke="#4a90d9" stroke-width="1.5"/></svg>)"},
        {QStringLiteral("Editor"),
         R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 32 32">
              <rect x="4" y="4" width="20" height="24" rx="2" fill="#fff" stroke="#4a5561"/>
              <path d="M8 10h12M8 14h9M8 18h11" stroke="#9aa3ad" stroke-width="1.5"/>
              <path d="M27 9l3 3-13 13-4 1 1-4z" fill="#e8a33d" stroke="#8a5a14"/></svg>)"},
        {QStringLiteral("Pro"),
         R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 32 32">
              <path d="M21 3a7 7 0 0 0-6.5 9.5L4 23a3 3 0 0 0 5 5l10.5-10.5A7 7 0 0 0 29 11l-4 4-5-1-1-5 4-4z"
                    fill="#7b8794" stroke="#3e4751"/></svg>)"},
        {QStringLiteral("Updates"),
         R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 32 32">
              <path d="M26 16a10 10 0 1 1-3-7.1" fill="none" stroke="#3c9a5f" stroke-width="3.5"
                    stroke-linecap="round"/>
              <path d="M27 3v9h-9z" fill="#3c9a5f"/></svg>)"},
    };
    return images.value(identifier);
}

}

QIcon image(const QString &identifier)
{
    const char *svg = svgFor(identifier);
    if (!svg)
        return {};
    QSvgRenderer renderer{QByteArray(svg)};
    QIcon icon;
    for (int size : {32, 64}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        renderer.render(&painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

}
