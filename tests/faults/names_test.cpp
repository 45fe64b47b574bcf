/// Files with all kinds of names, and files that somebody changed behind the program's back.
#include "faults/file_stage.h"
#include "shell/file_commands.h"

#include <QDir>
#include <QFileInfo>

#include <functional>
#include <sys/stat.h>

namespace lumrake::testing {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes MemoryOf(const frmSnapshot& form) {
    const auto bytes = SnapshotProbe{const_cast<frmSnapshot&>(form)}.Memory().Bytes();
    return {bytes.begin(), bytes.end()};
}

frmSnapshot* OpenChanged(FileStage& stage, const QString& name) {
    frmSnapshot* form = stage.Open(NoiseBytes(500), name);
    EXPECT_NE(form, nullptr) << name.toStdString();
    SnapshotProbe{*form}.Memory().Bytes()[7] ^= 255;
    SnapshotProbe{*form}.Changed() = -1;
    return form;
}

TEST(FileNames, OfAnyKindAreOpenedSavedAndMade) {
    const QString names[] = {
        QStringLiteral("a  b .SNA"),     QStringLiteral(" Blanks "),
        QStringLiteral("\u00dcber.SNA"), QStringLiteral("\u041a\u043b\u044e\u0447.Tap"),
        QStringLiteral("no dot"),        QStringLiteral("%1 & \"x\" [*].z80"),
        QString(255, QLatin1Char('N')),  QStringLiteral("D/").repeated(30) + QString(255, QLatin1Char('N'))};
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        FileStage stage;
        QDir().mkpath(QFileInfo(stage.Path(name)).path());
        frmSnapshot* form = OpenChanged(stage, name);
        EXPECT_TRUE(SaveSnapshot(*form));
        EXPECT_EQ(stage.ReadFile(name), MemoryOf(*form));
        EXPECT_EQ(form->GetFilename(), stage.Path(name));

        const QString made = QFileInfo(stage.Path(name)).path() + QLatin1String("/New ") +
                             QFileInfo(name).fileName().right(200).trimmed();
        const QString onDisk =
            QFileInfo(made).path() + QLatin1Char('/') + QFileInfo(made).fileName().toLower();
        stage.files = {made};
        EXPECT_TRUE(SaveSnapshotAs(*form));
        EXPECT_EQ(form->GetFilename(), onDisk);
        EXPECT_EQ(form->windowTitle(), QFileInfo(onDisk).fileName().left(40).trimmed());
        EXPECT_TRUE(
            SnapshotProbe{*form}.Status().accessibleDescription().startsWith(onDisk.toLower() + u';'));
        EXPECT_EQ(QDir(QFileInfo(made).path()).entryList(QDir::Files | QDir::Hidden).size(), 2);
        // The list finds it again, in this run by its true path.
        OpenSnapshotFile(RecentFiles()[0].sTruePath);
        EXPECT_EQ(iSnapshotCount, 2);
    }
}

TEST(FileNames, TooLongForTheDiskAreTold) {
    FileStage stage;
    frmSnapshot* form = OpenChanged(stage, QStringLiteral("a.sna"));
    stage.files = {stage.Path(QString(300, QLatin1Char('N')))};
    EXPECT_FALSE(SaveSnapshotAs(*form));
    ASSERT_EQ(stage.boxes.size(), 1U);
    EXPECT_TRUE(stage.boxes[0].contains(QLatin1String("File name too long"))) << stage.boxes[0].toStdString();
    EXPECT_EQ(form->GetFilename(), stage.Path(QStringLiteral("a.sna")));
    EXPECT_EQ(QDir(stage.Path(QString())).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

TEST(FilesBehindTheProgram, AreSavedOverOrTold) {
    struct Case {
        const char* what;
        const char* reason; ///< null when the save goes well
        std::function<void(const FileStage&, const QString& file)> change;
    };
    const QString kOther = QStringLiteral("other.sna");
    const Case cases[] = {
        {"deleted", nullptr, [](const auto&, const QString& file) { QFile::remove(file); }},
        {"turned into a link", nullptr,
         [&](const auto& stage, const QString& file) {
             QFile::remove(file);
             stage.MakeFile(kOther, NoiseBytes(9000, 2));
             QFile::link(stage.Path(kOther), file);
         }},
        {"made read-only", "write-protected",
         [](const auto&, const QString& file) {
             QFile::setPermissions(file, QFile::ReadOwner | QFile::ReadUser);
         }},
        {"turned into a pipe", "not a regular file",
         [](const auto&, const QString& file) {
             QFile::remove(file);
             mkfifo(QFile::encodeName(file).constData(), 0600);
         }},
        {"lost with its directory", "No such file or directory",
         [](const auto& stage, const QString&) {
             QDir(stage.Path(QStringLiteral("sub"))).removeRecursively();
         }},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.what);
        FileStage stage;
        QDir(stage.Path(QString())).mkdir(QStringLiteral("sub"));
        const QString name = QStringLiteral("sub/Test.SNA");
        frmSnapshot* form = OpenChanged(stage, name);
        one.change(stage, stage.Path(name));
        const bool exists = QFileInfo(stage.Path(name)).isFile();
        const Bytes before = exists ? stage.ReadFile(name) : Bytes();
        EXPECT_EQ(SaveSnapshot(*form), one.reason == nullptr);
        EXPECT_EQ(SnapshotProbe{*form}.Changed() == 0, one.reason == nullptr);
        EXPECT_EQ(form->GetFilename(), stage.Path(name));
        if (one.reason == nullptr) {
            EXPECT_EQ(stage.ReadFile(name), MemoryOf(*form));
            EXPECT_TRUE(stage.boxes.empty());
            if (QFileInfo(stage.Path(name)).isSymLink()) {
                EXPECT_EQ(stage.ReadFile(kOther), MemoryOf(*form));
            }
            continue;
        }
        ASSERT_EQ(stage.boxes.size(), 1U);
        EXPECT_TRUE(stage.boxes[0].startsWith(QLatin1String("Save|")) &&
                    stage.boxes[0].contains(QLatin1String(one.reason)))
            << stage.boxes[0].toStdString();
        EXPECT_EQ(QFileInfo(stage.Path(name)).isFile(), exists);
        EXPECT_TRUE(!exists || stage.ReadFile(name) == before);
    }
}

} // namespace
} // namespace lumrake::testing
