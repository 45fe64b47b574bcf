#include "bench.h"

#include "disk/files.h"
#include "shell/shell.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace lumrake::bench {

namespace {

/// An open file, -1 when that failed.
class Handle {
  public:
    Handle(const QString& path, int flags) : handle_(open(qPrintable(path), flags, 0644)) {}
    ~Handle() {
        if (handle_ >= 0) {
            close(handle_);
        }
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    operator int() const { return handle_; }

  private:
    int handle_;
};

bool WriteAll(int handle, const std::vector<std::uint8_t>& bytes) {
    for (std::size_t done = 0; done < bytes.size();) {
        const ssize_t count = write(handle, bytes.data() + done, bytes.size() - done);
        if (count <= 0) {
            return false;
        }
        done += static_cast<std::size_t>(count);
    }
    return true;
}

} // namespace

std::vector<std::uint8_t> Noise(std::size_t count) {
    std::vector<std::uint8_t> noise(count);
    std::uint32_t state = 1;
    for (auto& byte : noise) {
        byte = static_cast<std::uint8_t>((state = state * 1664525 + 1013904223) >> 24);
    }
    return noise;
}

QString FilePath(Place place, const QString& name) {
    static const QTemporaryDir onDisk;
    static const QTemporaryDir inMemory(QFileInfo(QStringLiteral("/dev/shm")).isWritable()
                                            ? QStringLiteral("/dev/shm/lumrake-bench-XXXXXX")
                                            : onDisk.filePath(QStringLiteral("XXXXXX")));
    return (place == Place::Disk ? onDisk : inMemory).filePath(name);
}

QString FileOf(Place place, std::int64_t length) {
    const QString path = FilePath(place, QStringLiteral("%1.sna").arg(length));
    if (!QFileInfo::exists(path)) {
        const std::vector<std::uint8_t> piece = Noise(std::size_t{1} << 20);
        const Handle file(path, O_WRONLY | O_CREAT);
        for (std::int64_t at = 0; at < length; at += static_cast<std::int64_t>(piece.size())) {
            if (!WriteAll(file, piece)) {
                std::perror(qPrintable(path));
                std::exit(EXIT_FAILURE);
            }
        }
        if (ftruncate(file, length) != 0) {
            std::perror(qPrintable(path));
            std::exit(EXIT_FAILURE);
        }
    }
    return path;
}

bool PlainRead(const QString& path, std::uint8_t* to, std::size_t count) {
    const Handle file(path, O_RDONLY);
    for (std::size_t done = 0; done < count;) {
        const ssize_t got = read(file, to + done, count - done);
        if (got <= 0) {
            return false;
        }
        done += static_cast<std::size_t>(got);
    }
    return true;
}

bool PlainSave(const QString& path, const std::vector<std::uint8_t>& bytes) {
    const QString beside = path + QLatin1String(".new");
    {
        const Handle file(beside, O_WRONLY | O_CREAT | O_TRUNC);
        if (file < 0 || !WriteAll(file, bytes) || fsync(file) != 0) {
            return false;
        }
    }
    return std::rename(qPrintable(beside), qPrintable(path)) == 0;
}

void UseLargestView() {
    SetDefaultSettings(Settings, "2.00", {});
    Settings.bPromptSave = 0;
    Settings.iDefaultLines = 512;
    Settings.iDefaultColumns = 16;
}

} // namespace lumrake::bench
