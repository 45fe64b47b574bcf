#include "disk/files.h"
#include "disk/recovery_run.h"
#include "disk/save_file.h"
#include "disk/temporary_file.h"
#include "disk/texts.h"
#include "support/forms_support.h"

#include <QDir>
#include <QFileInfo>

#include <array>
#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace lumrake {
namespace {

using testing::NoiseBytes;
using testing::Stage;

TEST(Files, AreFoundWithoutRegardToCaseWhenThereIsOne) {
    const Stage stage;
    const auto find = [&stage](const char* name) { return FindFile(stage.Path(QString::fromLatin1(name))); };
    QDir(stage.Path(QString())).mkpath(QStringLiteral("Games/Old"));
    const QString sHero = stage.MakeFile(QStringLiteral("Games/Old/Hero.SNA"), NoiseBytes(3));
    EXPECT_EQ(find("games/old/hero.sna"), sHero);
    EXPECT_EQ(find("games/old/none.sna"), std::nullopt);
    EXPECT_EQ(FindFile(QString()), std::nullopt);
    stage.MakeFile(QStringLiteral("Games/Old/hero.sna"), NoiseBytes(4));
    EXPECT_EQ(find("Games/Old/Hero.SNA"), sHero);
    EXPECT_EQ(find("Games/Old/HERO.sna"), std::nullopt) << "it is not known which one is meant";
    ASSERT_TRUE(QFile::link(stage.Path(QStringLiteral("none")), stage.Path(QStringLiteral("Nowhere"))));
    EXPECT_EQ(find("Nowhere"), std::nullopt);
    EXPECT_EQ(find("nowhere"), std::nullopt);
    // A new name that may mean two files means neither.
    stage.MakeFile(QStringLiteral("Games/Old/HERO.sna"), NoiseBytes(5));
    EXPECT_EQ(PathForNewFile(stage.Path(u"Games/Old/ HeRo.SnA"_qs)).path,
              stage.Path(u"Games/Old/hero.sna"_qs));
    EXPECT_TRUE(PathForNewFile(QString()).path.isEmpty());
}

TEST(Files, AFirstRecordKeepsTheTailBehindIt) {
    const Stage stage;
    auto bytes = NoiseBytes(20);
    const QString sFile = stage.MakeFile(QStringLiteral("records"), bytes);
    const auto record = NoiseBytes(8, 2);
    ASSERT_TRUE(WriteFirstRecord(sFile, record).IsDone());
    std::copy(record.begin(), record.end(), bytes.begin());
    EXPECT_EQ(stage.ReadFile(QStringLiteral("records")), bytes);

    MemoryBlock block;
    ASSERT_TRUE(ReadWholeFile(sFile, block, 5).IsDone());
    const QString pipe = stage.Path(QStringLiteral("pipe")); // nobody writes into it
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_TRUE(ReadWholeFile(pipe, block).IsNotDone());
    EXPECT_EQ(block.size(), 5U);
}

TEST(Files, LeftByADeadRunGoWhereItNotedThemAndNoOthers) {
    const Stage stage;
    const QString own = stage.MakeFile(u"a.sna.qwerty"_qs, NoiseBytes(3));
    const QString kept[] = {stage.MakeFile(u"a.sna"_qs, NoiseBytes(3)),
                            stage.MakeFile(u"b.sna.abcdef"_qs, {}), stage.Path(u"link.abcdef"_qs),
                            stage.Path(u"folder.abcdef"_qs)};
    ASSERT_TRUE(QFile::link(kept[0], kept[2]) && QDir().mkdir(kept[3]));
    for (const QString& noted : {own, kept[0], kept[2], kept[3], u"relative.abcdef"_qs}) {
        QString note;
        ASSERT_TRUE(NameFileOfRun(kTemporaryNote, note).IsDone());
        const QByteArray name = noted.toUtf8();
        ASSERT_TRUE(WriteFileOfRun(note, BytesOf(name)).IsDone());
    }
    EndRecoveryRun();
    AdoptDeadRuns();
    RemoveLeftOvers();
    EXPECT_FALSE(QFileInfo::exists(own));
    for (const QString& path : kept) {
        EXPECT_TRUE(QFileInfo::exists(path)) << path.toStdString();
    }
    EXPECT_TRUE(FilesOfRun(kTemporaryNote).empty());
}

/// A program that takes what dead ones kept, keeps one file more and runs until it is killed.
struct Program {
    pid_t process = 0;
    std::array<int, 2> ends{};

    void Start() {
        ASSERT_EQ(pipe(ends.data()), 0);
        process = fork();
        if (process == 0) {
            QString file;
            AdoptDeadRuns();
            const bool kept = NameFileOfRun(kKeptChanges, file).IsDone() && WriteFileOfRun(file, {}).IsDone();
            const int files = kept ? static_cast<int>(FilesOfRun(kKeptChanges).size()) : -1;
            _exit(write(ends[1], &files, sizeof files) > 0 ? pause() : 1);
        }
    }
    /// How many files it has in the end.
    int Files() {
        int files = -1;
        EXPECT_EQ(read(ends[0], &files, sizeof files), ssize_t{sizeof files});
        return files;
    }
    void Kill() {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
        close(ends[0]), close(ends[1]);
        process = 0;
    }
};

TEST(Files, OfDeadProgramsGoToOneThatStartsAndThoseOfLivingOnesToNobody) {
    constexpr int kSteps = 6;
    // A bit says which one starts, or is killed when it runs; the first is the first.
    for (int order = 0; order < 1 << kSteps; order += 2) {
        const Stage stage;
        std::array<Program, 2> programs;
        std::array<int, 2> held{};
        int dead = 0;
        for (int step = 0; step < kSteps; ++step) {
            const auto which = static_cast<std::size_t>(order >> step & 1);
            if (programs[which].process != 0) {
                programs[which].Kill();
                dead += std::exchange(held[which], 0);
            } else {
                programs[which].Start();
                held[which] = programs[which].Files();
                ASSERT_EQ(held[which], std::exchange(dead, 0) + 1) << "order " << order << ", step " << step;
            }
        }
        for (const std::size_t which : {0U, 1U}) {
            programs[which].process != 0 ? programs[which].Kill() : void();
            dead += held[which];
        }
        programs[0].Start(), programs[1].Start(); // at once
        const int files = programs[0].Files() + programs[1].Files();
        programs[0].Kill(), programs[1].Kill();
        // What one is just giving itself the other leaves to it, or to the next start.
        const QStringList left = QDir(stage.Path(u"lumrake"_qs)).entryList({u"*.changes"_qs});
        EXPECT_EQ(left.size(), dead + 2);
        EXPECT_LE(files, dead + 2);
    }
}

} // namespace
} // namespace lumrake
