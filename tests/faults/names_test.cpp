/// Files with all kinds of names, and files that somebody changed behind the program's back.
#include "disk/save_file.h"
#include "faults/file_stage.h"
#include "shell/window/file_commands.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QProcess>
#include <QTimer>

#include <fcntl.h>

namespace lumrake::testing {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes MemoryOf(const frmSnapshot& form) {
    const auto bytes = SnapshotProbe{const_cast<frmSnapshot&>(form)}.Memory().Bytes();
    return {bytes.begin(), bytes.end()};
}

/// `isOld`: the file was last changed long before it is opened.
frmSnapshot* OpenChanged(FileStage& stage, const QString& name, bool isOld = false) {
    stage.MakeFile(name, NoiseBytes(500));
    const timespec times[] = {{0, UTIME_OMIT}, {1'000'000'000, isOld ? 0 : UTIME_NOW}};
    EXPECT_EQ(utimensat(AT_FDCWD, QFile::encodeName(stage.Path(name)).constData(), times, 0), 0);
    frmSnapshot* form = stage.Launch(name);
    EXPECT_NE(form, nullptr) << name.toStdString();
    SnapshotProbe{*form}.Data()[7] ^= 255;
    SnapshotProbe{*form}.SetChanged();
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
        EXPECT_TRUE(Save(*form));
        EXPECT_EQ(stage.ReadFile(name), MemoryOf(*form));
        EXPECT_EQ(form->GetFilename(), stage.Path(name));

        const QString made = QFileInfo(stage.Path(name)).path() + QLatin1String("/New ") +
                             QFileInfo(name).fileName().right(200).trimmed();
        const QString onDisk =
            QFileInfo(made).path() + QLatin1Char('/') + QFileInfo(made).fileName().toLower();
        stage.files = {made};
        EXPECT_TRUE(SaveAs(*form));
        EXPECT_EQ(form->GetFilename(), onDisk);
        EXPECT_EQ(CaptionOf(form), QFileInfo(onDisk).fileName().left(40).trimmed());
        EXPECT_TRUE(
            SnapshotProbe{*form}.Status().accessibleDescription().startsWith(onDisk.toLower() + u';'));
        EXPECT_EQ(QDir(QFileInfo(made).path()).entryList(QDir::Files | QDir::Hidden).size(), 2);
        // The list finds it again, in this run by its true path.
        OpenRecentFile(0);
        EXPECT_EQ(iSnapshotCount, 2);
    }
}

TEST(FilesBehindTheProgram, AreSavedOverOrTold) {
    constexpr const char* kChanged = " has been changed by another program.  Save As can overwrite it.";
    // what somebody does to the file, and the reason that is told; none when the save goes well
    const std::pair<const char*, const char*> cases[] = {
        {"rm sub/Test.SNA", nullptr},
        {"mv sub/Test.SNA other.sna && ln -s ../other.sna sub/Test.SNA", nullptr}, // the bytes that are known
        {"cp -p sub/Test.SNA time && printf x | dd of=sub/Test.SNA conv=notrunc status=none && "
         "touch -r time sub/Test.SNA", // within the tick of a clock, or set back
         kChanged},
        {"head -c 9000 /dev/zero >other.sna && mv other.sna sub/Test.SNA", kChanged},
        {"give sub a list", nullptr}, // that new files are given there
        {"chmod 400 sub/Test.SNA", "write-protected"},
        {"rm sub/Test.SNA && mkfifo -m 600 sub/Test.SNA", "not a regular file"},
        {"rm -r sub", "No such file or directory"},
    };
    for (std::size_t i = 0; i < 2 * std::size(cases); ++i) {
        const auto& [command, reason] = cases[i / 2];
        SCOPED_TRACE(::testing::Message() << (i % 2 == 1 ? "old, " : "") << command);
        FileStage stage;
        QDir(stage.Path(QString())).mkdir(QStringLiteral("sub"));
        const QString name = QStringLiteral("sub/Test.SNA");
        frmSnapshot* form = OpenChanged(stage, name, i % 2 == 1);
        if (*command == 'g') {
            setxattr(QFile::encodeName(stage.Path(QStringLiteral("sub"))), "system.posix_acl_default", kList,
                     static_cast<std::size_t>(kList.size()), 0);
        } else {
            QProcess shell;
            shell.setWorkingDirectory(stage.Path(QString()));
            shell.start(QStringLiteral("sh"), {QStringLiteral("-c"), QLatin1String(command)});
            ASSERT_TRUE(shell.waitForFinished(-1) && shell.exitCode() == 0);
        }
        const bool exists = QFileInfo(stage.Path(name)).isFile();
        const Bytes before = exists ? stage.ReadFile(name) : Bytes();
        const QByteArray file = QFile::encodeName(stage.Path(name));
        const QByteArray rights = exists ? RightsOf(file) : QByteArray();
        EXPECT_EQ(Save(*form), reason == nullptr);
        EXPECT_EQ(SnapshotProbe{*form}.Changed() == 0, reason == nullptr);
        EXPECT_EQ(form->GetFilename(), stage.Path(name));
        if (reason == nullptr) {
            EXPECT_EQ(stage.ReadFile(name), MemoryOf(*form));
            EXPECT_TRUE(stage.boxes.empty());
            EXPECT_TRUE(!exists || RightsOf(file) == rights);
            if (QFileInfo(stage.Path(name)).isSymLink()) {
                EXPECT_EQ(stage.ReadFile(u"other.sna"_qs), MemoryOf(*form));
            }
            continue;
        }
        ASSERT_EQ(stage.boxes.size(), 1U);
        EXPECT_TRUE(stage.boxes[0].startsWith(QLatin1String("Save|")) &&
                    stage.boxes[0].contains(QLatin1String(reason)))
            << stage.boxes[0].toStdString();
        EXPECT_EQ(QFileInfo(stage.Path(name)).isFile(), exists);
        EXPECT_TRUE(!exists || stage.ReadFile(name) == before);
        if (reason == kChanged) {
            stage.files = {stage.Path(name)};
            stage.answers = {BoxAnswer::Yes};
            EXPECT_TRUE(SaveAs(*form) && Save(*form));
            EXPECT_EQ(stage.ReadFile(name), MemoryOf(*form));
        }
    }
}

TEST(FilesBehindTheProgram, AreTheLastWindowsUnlessAnotherProgramChangedThem) {
    FileStage stage;
    const QString name = QStringLiteral("a.sna");
    frmSnapshot* const first = OpenChanged(stage, name);
    const auto open = [&] {
        auto* form = new frmSnapshot;
        EXPECT_TRUE(form->Launch(stage.Path(name), name));
        return form;
    };
    frmSnapshot* const second = open();
    EXPECT_TRUE(Save(*first) && Save(*second) && Save(*first));
    stage.MakeFile(name, NoiseBytes(600));
    frmSnapshot* const third = open(); // it knows the change
    EXPECT_TRUE(!Save(*first) && Save(*third) && !Save(*second));
    stage.files = {stage.Path(name)};
    stage.answers = {BoxAnswer::Yes};
    EXPECT_TRUE(SaveAs(*first) && Save(*third) && Save(*first));
    // The box of a failed save follows where a window is closing.
    SnapshotProbe{*second}.SetChanged();
    stage.MakeFile(name, NoiseBytes(700));
    stage.answers = {BoxAnswer::Yes, BoxAnswer::Cancel};
    EXPECT_FALSE(ChildFrame(second)->close());
    EXPECT_TRUE(stage.boxes.back().contains(QLatin1String("another program")));
}

TEST(FilesBehindTheProgram, KeepTheirRightsInAStickyFolder) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only the administrator can be another user";
    }
    const FileStage stage;
    const QString path = stage.MakeFile(QStringLiteral("theirs"), NoiseBytes(500));
    const QByteArray file = QFile::encodeName(path);
    ASSERT_EQ(chown(file, 2000, 2000), 0); // whom the user has nothing to do with
    setxattr(file, "system.posix_acl_access", kList, static_cast<std::size_t>(kList.size()), 0);
    ASSERT_EQ(chmod(QFile::encodeName(stage.Path(QString())), 01777), 0);
    const QByteArray rights = RightsOf(file);
    ASSERT_EQ(seteuid(1234), 0);
    const Outcome written = WriteWholeFile(path, NoiseBytes(600));
    ASSERT_EQ(seteuid(0), 0);
    EXPECT_TRUE(written.IsDone()) << written.Reason().toStdString();
    EXPECT_EQ(stage.ReadFile(QStringLiteral("theirs")), NoiseBytes(600));
    EXPECT_EQ(RightsOf(file), rights);
}

TEST(FilesBehindTheProgram, AreWholeWhenATimerClosesTheirWindow) {
    int gone = 0;
    for (int events = 0; events < 20; ++events) {
        FileStage stage;
        const QPointer<frmSnapshot> form = OpenChanged(stage, QStringLiteral("a.sna"));
        const Bytes old = stage.ReadFile(QStringLiteral("a.sna")), fresh = MemoryOf(*form);
        QTimer timer;
        timer.callOnTimeout([&, left = events]() mutable { left-- == 0 && ChildFrame(form)->close(); });
        timer.start(0);
        stage.answers = {BoxAnswer::No};
        stage.files = {stage.Path(QStringLiteral("a.raw"))};
        form->ExportViewToRaw();
        EXPECT_EQ(stage.ReadFile(QStringLiteral("a.raw")).size(), 6144U);
        const bool saved = form && Save(*form);
        EXPECT_EQ(stage.ReadFile(QStringLiteral("a.sna")), saved ? fresh : old);
        gone += form.isNull();
    }
    EXPECT_GT(gone, 10);
}

} // namespace
} // namespace lumrake::testing
