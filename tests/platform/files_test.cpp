#include "platform/files.h"
#include "support/forms_support.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace lumrake {
namespace {

using testing::NoiseBytes;
using testing::Stage;

TEST(Files, AreFoundWithoutRegardToCaseWhenThereIsOne) {
    const Stage stage;
    QDir(stage.Path(QString())).mkpath(QStringLiteral("Games/Old"));
    stage.MakeFile(QStringLiteral("Games/Old/Hero.SNA"), NoiseBytes(3));
    EXPECT_EQ(FindFile(stage.Path(QStringLiteral("games/old/hero.sna"))),
              stage.Path(QStringLiteral("Games/Old/Hero.SNA")));
    EXPECT_EQ(FindFile(stage.Path(QStringLiteral("games/old/none.sna"))), std::nullopt);
    EXPECT_EQ(FindFile(QString()), std::nullopt);
    stage.MakeFile(QStringLiteral("Games/Old/hero.sna"), NoiseBytes(4));
    // Exactly spelled it is found, in another spelling it is not known which one is meant.
    EXPECT_EQ(FindFile(stage.Path(QStringLiteral("Games/Old/Hero.SNA"))),
              stage.Path(QStringLiteral("Games/Old/Hero.SNA")));
    EXPECT_EQ(FindFile(stage.Path(QStringLiteral("Games/Old/HERO.sna"))), std::nullopt);
    const QString nowhere = stage.Path(QStringLiteral("Nowhere"));
    ASSERT_TRUE(QFile::link(stage.Path(QStringLiteral("none")), nowhere));
    EXPECT_EQ(FindFile(nowhere), std::nullopt);
    EXPECT_EQ(FindFile(nowhere.toLower()), std::nullopt);
}

TEST(Files, NewNamesGoToDiskInLowerCaseUnlessAFileIsMeant) {
    const Stage stage;
    const NewFile fresh = PathForNewFile(stage.Path(QStringLiteral(" Screen.BMP ")));
    EXPECT_EQ(fresh.path, stage.Path(QStringLiteral("screen.bmp")));
    EXPECT_FALSE(fresh.exists);
    stage.MakeFile(QStringLiteral("SCREEN.bmp"), NoiseBytes(1));
    const NewFile meant = PathForNewFile(stage.Path(QStringLiteral("Screen.BMP")));
    EXPECT_EQ(meant.path, stage.Path(QStringLiteral("SCREEN.bmp")));
    EXPECT_TRUE(meant.exists);
    stage.MakeFile(QStringLiteral("ScReEn.bmp"), NoiseBytes(1));
    EXPECT_EQ(PathForNewFile(stage.Path(QStringLiteral("Screen.BMP"))).path, fresh.path)
        << "neither is meant";
    EXPECT_TRUE(PathForNewFile(QString()).path.isEmpty());
}

TEST(Files, AWriteReplacesTheWholeFileOrNothing) {
    const Stage stage;
    const auto bytes = NoiseBytes(1000);
    const QString name = QStringLiteral("out.raw");
    ASSERT_EQ(WriteWholeFile(stage.Path(name), bytes), std::nullopt);
    EXPECT_EQ(stage.ReadFile(name), bytes);

    const QString link = QStringLiteral("link.raw");
    ASSERT_TRUE(QFile::link(stage.Path(name), stage.Path(link)));
    ASSERT_EQ(WriteWholeFile(stage.Path(link), std::span(bytes).first(10)), std::nullopt);
    EXPECT_TRUE(QFileInfo(stage.Path(link)).isSymLink());
    EXPECT_EQ(stage.ReadFile(name).size(), 10U);

    QFile::setPermissions(stage.Path(name), QFile::ReadOwner | QFile::ReadUser);
    EXPECT_NE(WriteWholeFile(stage.Path(name), bytes), std::nullopt);
    EXPECT_EQ(stage.ReadFile(name).size(), 10U);
    EXPECT_NE(WriteWholeFile(stage.Path(QStringLiteral("no/such/file")), bytes), std::nullopt);
    // Nothing is left over beside the two files.
    EXPECT_EQ(QDir(stage.Path(QString())).entryList(QDir::Files | QDir::Hidden).size(), 2);
}

TEST(Files, AFirstRecordKeepsTheTailBehindIt) {
    const Stage stage;
    const QString name = QStringLiteral("records");
    auto bytes = NoiseBytes(20);
    stage.MakeFile(name, bytes);
    const auto record = NoiseBytes(8, 2);
    ASSERT_EQ(WriteFirstRecord(stage.Path(name), record), std::nullopt);
    std::copy(record.begin(), record.end(), bytes.begin());
    EXPECT_EQ(stage.ReadFile(name), bytes);

    MemoryBlock block;
    ASSERT_EQ(ReadWholeFile(stage.Path(name), block, 5), std::nullopt);
    EXPECT_EQ(block.size(), 5U);
    EXPECT_NE(ReadWholeFile(stage.Path(QString()), block), std::nullopt);
    const QString pipe = stage.Path(QStringLiteral("pipe")); // nobody writes into it
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_NE(ReadWholeFile(pipe, block), std::nullopt);
    EXPECT_EQ(block.size(), 5U);
}

TEST(Files, TitleIsWhatFollowsTheLastSeparator) {
    EXPECT_EQ(FileTitleOf(QStringLiteral("/a/b.sna")), QStringLiteral("b.sna"));
    EXPECT_EQ(FileTitleOf(QStringLiteral("c:\\a\\b.sna")), QStringLiteral("b.sna"));
    EXPECT_EQ(FileTitleOf(QStringLiteral("b.sna")), QString());
}

} // namespace
} // namespace lumrake
