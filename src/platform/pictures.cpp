#include "platform/pictures.h"

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
    QIcon icon;
    for (const qreal ratio : {1.0, 1.5, 2.0, 3.0}) {
        icon.addPixmap(LoadPicture(name, size, ratio));
    }
    return icon;
}

QCursor DrawCursor(int tool, qreal devicePixelRatio) {
    const QString name = QStringLiteral("cursors/%1.svg").arg(tool);
    return QCursor(LoadPicture(name, QSize(32, 32), devicePixelRatio), 16, 16);
}

} // namespace lumrake
