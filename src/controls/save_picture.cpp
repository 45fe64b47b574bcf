#include "controls/save_picture.h"

#include "disk/save_file.h"
#include "disk/system_calls.h"
#include "disk/texts.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>

#include <cstring>
#include <new>

namespace lumrake {

Outcome SavePicture(const QString& path, const lmk::BitPicture& picture, int factor) {
    if (picture.Width() == 0 || picture.Height() == 0) {
        return Outcome::Failed(QStringLiteral("The picture is empty."));
    }
    QImage image(picture.Width() * factor, picture.Height() * factor, QImage::Format_Mono);
    QByteArray bytes;
    try {
        bytes.reserve(image.sizeInBytes() + 100); // with its header
    } catch (const std::bad_alloc&) {
        image = QImage();
    }
    if (image.isNull()) {
        return Outcome::Failed(QStringLiteral("There is not enough memory for the picture."));
    }
    AdviseLargePages(image.bits(), static_cast<std::size_t>(image.sizeInBytes()));
    AdviseLargePages(bytes.data(), static_cast<std::size_t>(bytes.capacity()));
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
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, "bmp");
    if (!writer.write(image)) {
        return Outcome::Failed(writer.errorString());
    }
    return WriteWholeFile(path, BytesOf(bytes));
}

} // namespace lumrake
