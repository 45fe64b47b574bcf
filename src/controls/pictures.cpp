#include "controls/pictures.h"

#include <QGuiApplication>
#include <QPainter>
#if defined(LUMRAKE_PNG)
#include <QImage>
#else
#include <QSvgRenderer>
#endif

#include <cmath>

namespace lumrake {

namespace {

/// Draws it over the whole of `target`.
void Draw(const QString& name, QPixmap& target) {
    const QString path = QLatin1String(":/") + name;
    QPainter painter(&target);
#if defined(LUMRAKE_PNG)
    QImage drawn; // the least one that is large enough
    for (const char* times : {"1", "1.5", "2", "3", "4"}) {
        if (drawn.width() < target.width()) {
            drawn.load(QStringLiteral("%1.%2.png").arg(path, QLatin1String(times)));
        }
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(target.rect(), drawn);
#else
    QSvgRenderer(path).render(&painter);
#endif
}

} // namespace

QPixmap LoadPicture(const QString& name, QSize size, qreal devicePixelRatio) {
    QPixmap pixmap(QSize(static_cast<int>(std::ceil(size.width() * devicePixelRatio)),
                         static_cast<int>(std::ceil(size.height() * devicePixelRatio))));
    pixmap.fill(Qt::transparent);
    Draw(name, pixmap);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

QIcon LoadIcon(const QString& name, QSize size) {
    // Drawn for the finest screen that there is and for a plain one: every further size would cost as much
    // again, for each of some seventy icons at the start.
    QIcon icon(LoadPicture(name, size, 1));
    if (const qreal finest = qGuiApp->devicePixelRatio(); finest != 1) {
        icon.addPixmap(LoadPicture(name, size, finest));
    }
    return icon;
}

QCursor DrawCursor(int tool, qreal devicePixelRatio) {
    const QString name = QStringLiteral("cursors/%1.svg").arg(tool);
    return QCursor(LoadPicture(name, QSize(32, 32), devicePixelRatio), 16, 16);
}

} // namespace lumrake
