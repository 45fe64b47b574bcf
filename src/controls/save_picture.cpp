#include "controls/save_picture.h"

#include "disk/save_file.h"
#include "disk/texts.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>

#include <cstring>

namespace lumrake {

Outcome SavePicture(const QString& path, const lmk::BitPicture& picture, int factor) {
    if (picture.Width() == 0 || picture.Height() == 0) {
        return Outcome::Failed(QStringLiteral("The picture is empty."));
    }
    QImage image(picture.Width() * factor, picture.Height() * factor, QImage::Format_Mono);
    if (image.isNull()) {
        return Outcome::Failed(QStringLiteral("There is not enough memory for the picture."));
    }
    image.setColorTable({picture.backColour, picture.foreColour});
    const auto stride = static_cast<std::size_t>(image.bytesPerLine());
    uchar* target = image.bits();
    for (int row = 0; row < picture.Height(); ++row) {
        std::memset(target + stride - 4, 0, 4); // what fills the row up goes to the file as well
        picture.ExpandRowBits(row, factor, target);
        const uchar* const first = target;
        for (int copy = 1; copy < factor; ++copy) {
            target += stride;
            std::memcpy(target, first, stride);
        }
        target += stride;
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!QImageWriter(&buffer, "bmp").write(image)) {
        return Outcome::Failed(QStringLiteral("There is not enough memory for the picture."));
    }
    return WriteWholeFile(path, BytesOf(bytes));
}

} // namespace lumrake
