#include "controls/pictures.h"

#include <QGuiApplication>
#include <QPainter>
#include <QSvgRenderer>

#include <cmath>

namespace lumrake {

QPixmap LoadPicture(const QString& name, QSize size, qreal devicePixelRatio) {
    QPixmap pixmap(QSize(static_cast<int>(std::ceil(size.width() * devicePixelRatio)),
                         static_cast<int>(std::ceil(size.height() * devicePixelRatio))));
    pixmap.fill(Qt::transparent);
    QSvgRenderer drawing(QLatin1String(":/") + name);
    QPainter painter(&pixmap);
    drawing.render(&painter);
    painter.end();
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
