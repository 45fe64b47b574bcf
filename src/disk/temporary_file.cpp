#include "disk/temporary_file.h"

#include "disk/recovery_run.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>

namespace lumrake {

TemporaryFile::TemporaryFile(const QString& path) {
    constexpr qsizetype kLongest = 255 - 7; // bytes, of most file systems
    const QFileInfo info(path);
    QString name = info.fileName();
    while (QFile::encodeName(name).size() > kLongest) {
        name.chop(1);
    }
    name += QLatin1Char('.');
    for (int letter = 0; letter < 6; ++letter) {
        name += QChar(u'a' + QRandomGenerator::global()->bounded(26));
    }
    path_ = info.absoluteDir().filePath(name);
    if (NameFileOfRun(kTemporaryNote, note_).IsDone()) {
        QFile note(note_); // not synced: it is for a killed program, not for a power cut
        if (note.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner)) {
            note.write(QFile::encodeName(path_));
        }
    }
}

TemporaryFile::~TemporaryFile() {
    if (made_) {
        QFile::remove(path_);
    }
    RemoveFileOfRun(note_);
}

void RemoveLeftOvers() {
    static const QRegularExpression ours(QStringLiteral("\\.[a-z]{6}$"));
    for (const QString& noted : FilesOfRun(kTemporaryNote)) {
        QFile note(noted);
        if (note.open(QIODevice::ReadOnly)) {
            const QString path = QFile::decodeName(note.read(65536));
            const QFileInfo found(path);
            if (found.isAbsolute() && ours.match(path).hasMatch() && found.isFile() && !found.isSymLink() &&
                found.ownerId() == QFileInfo(noted).ownerId()) {
                QFile::remove(path);
            }
        }
        note.close();
        RemoveFileOfRun(noted);
    }
}

} // namespace lumrake
