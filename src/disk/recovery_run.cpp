#include "disk/recovery_run.h"

#include "disk/files.h"
#include "disk/folders.h"
#include "disk/system_calls.h"
#include "disk/write_into.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QStandardPaths>

namespace lumrake {

namespace {

const QString kBeingWritten = QStringLiteral(".new");

struct Run {
    QString folder; ///< of an open run, as its name
    QString name;
    int lock = -1; ///< handle; -1 until a file is needed
    int files = 0; ///< named so far
};
Run run;

QString Folder() {
    QString state = QFile::decodeName(qgetenv("XDG_STATE_HOME"));
    if (!QDir::isAbsolutePath(state)) { // as its rules say, and when there is none
#if defined(Q_OS_WIN)
        state = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
#else
        state = QDir::home().filePath(QStringLiteral(".local/state"));
#endif
    }
    return state + QLatin1String("/lumrake");
}

QByteArray LockFile(const QDir& folder, const QString& name) {
    return QFile::encodeName(folder.filePath(name + QLatin1String(".lock")));
}

Outcome OpenRun() {
    if (run.lock >= 0) {
        if (QFileInfo::exists(QFile::decodeName(LockFile(run.folder, run.name)))) {
            return Outcome::Done();
        }
        DropLock(LockFile(run.folder, run.name).constData(), run.lock); // somebody cleared the folder
        run.lock = -1;
    }
    const QString path = Folder();
    if (const Outcome made = MakeOwnFolder(path); made.IsNotDone()) {
        return made;
    }
    if (!IsOwnFolder(QFile::encodeName(path).constData())) {
        return Outcome::Failed(path + QLatin1String(" is not this user's own folder."));
    }
    run.folder = path;
    // A program that starts just now may take the new lock for a dead run's, and the file away with it.
    for (int tries = 0; run.lock < 0 && tries < 10; ++tries) {
        if (run.files == 0) { // else others know the name
            const quint64 number = QRandomGenerator::system()->generate64();
            run.name = QStringLiteral("%1").arg(number, 16, 16, QLatin1Char('0'));
        }
        run.lock = TakeLock(LockFile(run.folder, run.name).constData());
    }
    return Outcome::OfSystem(run.lock >= 0)
        .During(QStringLiteral("The folder %1 takes no new file.").arg(path));
}

Outcome WriteSynced(const QString& path, QIODevice::OpenMode mode, std::span<const std::uint8_t> bytes,
                    std::span<const std::uint8_t> more = {}) {
    QFile file(path);
    if (!file.open(mode | QIODevice::Unbuffered, QFile::ReadOwner | QFile::WriteOwner)) {
        return Outcome::Failed(file.errorString());
    }
    return WriteInto(file, bytes).Then([&] { return WriteInto(file, more); }).Then([&] {
        return Outcome::OfSystem(SyncFile(file.handle()));
    });
}

/// Gives this run the files of a dead one, whose lock is held meanwhile.
void AdoptFiles(const QDir& folder, const QString& name) {
    for (const QString& file : folder.entryList({name + QLatin1String("-*")}, QDir::Files | QDir::Hidden)) {
        QString path;
        if (file.endsWith(kBeingWritten)) {
            QFile::remove(folder.filePath(file));
        } else if (NameFileOfRun(QFileInfo(file).suffix(), path).IsNotDone() ||
                   RenameFile(folder.filePath(file), path)) {
            return; // they stay for the next start
        }
    }
}

} // namespace

Outcome NameFileOfRun(const QString& kind, QString& path) {
    const Outcome opened = OpenRun();
    if (opened.IsDone()) {
        path = QDir(run.folder).filePath(QStringLiteral("%1-%2.%3").arg(run.name).arg(++run.files).arg(kind));
    }
    return opened;
}

Outcome WriteFileOfRun(const QString& path, std::span<const std::uint8_t> bytes,
                       std::span<const std::uint8_t> more) {
    const QString fresh = path + kBeingWritten;
    const Outcome outcome =
        OpenRun().Then([&] { return WriteSynced(fresh, QIODevice::WriteOnly, bytes, more); }).Then([&] {
            return Outcome::OfSystem(RenameFile(fresh, path));
        });
    if (outcome.IsNotDone()) {
        QFile::remove(fresh);
    }
    return outcome.Then([&path] { return SyncFolderOf(path); });
}

Outcome AppendToFileOfRun(const QString& path, std::span<const std::uint8_t> bytes) {
    return OpenRun().Then(
        [&] { return WriteSynced(path, QIODevice::Append | QIODevice::ExistingOnly, bytes); });
}

void RemoveFileOfRun(const QString& path) {
    if (!path.isEmpty()) {
        QFile::remove(path);
    }
}

void AdoptDeadRuns() {
    const QDir folder(Folder());
    if (!IsOwnFolder(QFile::encodeName(folder.path()).constData())) {
        return;
    }
    static const QRegularExpression ours(QStringLiteral("^([0-9a-f]{16})(-\\d+\\.\\w+(\\.new)?|\\.lock)$"));
    QStringList names;
    for (const QString& file : folder.entryList(QDir::Files | QDir::Hidden)) {
        names << ours.match(file).captured(1);
    }
    names.removeDuplicates();
    names.removeAll(QString());
    for (const QString& name : names) {
        const QByteArray lock = LockFile(folder, name);
        const int handle = name == run.name ? -1 : TakeLock(lock.constData());
        if (handle >= 0) {
            AdoptFiles(folder, name);
            DropLock(lock.constData(), handle);
        }
    }
}

QStringList FilesOfRun(const QString& kind) {
    QStringList files;
    if (run.lock >= 0) {
        const QDir folder(run.folder);
        for (const QString& name : folder.entryList({run.name + QLatin1String("-*.") + kind}, QDir::Files,
                                                    QDir::Time | QDir::Reversed)) {
            files << folder.filePath(name);
        }
    }
    return files;
}

void EndRecoveryRun() {
    if (run.lock >= 0) {
        DropLock(LockFile(run.folder, run.name).constData(), run.lock);
        run = Run();
    }
}

} // namespace lumrake
