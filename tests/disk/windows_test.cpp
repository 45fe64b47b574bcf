// What only Windows does with files.
#include "disk/files.h"
#include "disk/known_file.h"
#include "disk/save_file.h"
#include "support/forms_support.h"

#include <QDir>
#include <QFileInfo>

#include <windows.h>

namespace lumrake {
namespace {

using testing::NoiseBytes;
using testing::Stage;

std::wstring Wide(const QString& path) {
    return QDir::toNativeSeparators(path).toStdWString();
}

TEST(WindowsFiles, AreReplacedWithTheirAttributesOrLeftAlone) {
    struct Case {
        const char* name;
        DWORD attributes;
        DWORD shared; ///< with others by the one who has it open; all ones: nobody has
        const char* refused;
    };
    constexpr DWORD kNobody = ~DWORD{0};
    // clang-format off
    constexpr Case kCases[] = {
        {"plain.sna",     FILE_ATTRIBUTE_ARCHIVE,                          kNobody,          nullptr},
        {"hidden.sna",    FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_HIDDEN,  kNobody,          nullptr},
        {"protected.sna", FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_READONLY,                         kNobody,          "The file is write-protected."},
        {"held.sna",      FILE_ATTRIBUTE_ARCHIVE,                          0,                ""},
        {"read.sna",      FILE_ATTRIBUTE_ARCHIVE,                          FILE_SHARE_READ,  ""},
    };
    // clang-format on
    const Stage stage;
    const auto old = NoiseBytes(40), fresh = NoiseBytes(20, 2);
    for (const Case& row : kCases) {
        SCOPED_TRACE(row.name);
        const QString path = stage.MakeFile(QLatin1String(row.name), old);
        ASSERT_NE(SetFileAttributesW(Wide(path).c_str(), row.attributes), 0);
        const HANDLE holder = row.shared == kNobody
                                  ? INVALID_HANDLE_VALUE
                                  : CreateFileW(Wide(path).c_str(), GENERIC_READ, row.shared, nullptr,
                                                OPEN_EXISTING, 0, nullptr);
        const Outcome outcome = WriteWholeFile(path, fresh);
        if (holder != INVALID_HANDLE_VALUE) {
            CloseHandle(holder);
        }
        EXPECT_EQ(outcome.IsDone(), row.refused == nullptr) << outcome.Reason().toStdString();
        EXPECT_TRUE(outcome.IsDone() || !outcome.Reason().isEmpty());
        EXPECT_TRUE(outcome.Reason().startsWith(QLatin1String(row.refused)))
            << outcome.Reason().toStdString();
        EXPECT_EQ(stage.ReadFile(QLatin1String(row.name)), row.refused == nullptr ? fresh : old);
        EXPECT_EQ(GetFileAttributesW(Wide(path).c_str()), row.attributes);
        SetFileAttributesW(Wide(path).c_str(), FILE_ATTRIBUTE_NORMAL);
    }
    EXPECT_EQ(QDir(stage.Path({})).entryList({u"*.sna.*"_qs}, QDir::Files | QDir::Hidden), QStringList());
}

TEST(WindowsFiles, NamesThatMeanAnotherFileAreRefused) {
    const Stage stage;
    for (const char* name :
         {"con", "Nul.sna", "COM1.bmp", "lpt9", "aux .txt", "dot.", "blank ", "a?b.sna", "a:b"}) {
        EXPECT_EQ(WriteWholeFile(stage.Path(QLatin1String(name)), NoiseBytes(3)).Reason(),
                  u"The system does not allow this name."_qs)
            << name;
    }
    for (const char* name : {"icon", "com10.bmp", "null", ".dot", "\u00e9\u0142.sna"}) {
        const QString path = stage.Path(QString::fromUtf8(name));
        EXPECT_EQ(WriteWholeFile(path, NoiseBytes(3)).Reason(), QString()) << name;
        EXPECT_TRUE(QFileInfo(path).isFile()) << name;
    }
}

TEST(WindowsFiles, AreTheSameInAnyLetterCaseAndShownWithTheSystemsSeparators) {
    const Stage stage;
    const QString path = stage.MakeFile(u"Hero.SNA"_qs, NoiseBytes(3));
    const std::optional<QString> found = FindFile(stage.Path(u"hero.sna"_qs));
    ASSERT_TRUE(found);
    EXPECT_EQ(QFileInfo(*found), QFileInfo(path));
    EXPECT_FALSE(found->contains(QLatin1Char('/'))) << found->toStdString();
    const NewFile target = PathForNewFile(stage.Path(u"HERO.sna"_qs));
    EXPECT_TRUE(target.exists);
    EXPECT_FALSE(target.path.contains(QLatin1Char('/'))) << target.path.toStdString();
}

TEST(WindowsFiles, ChangedByAnotherProgramAreKnown) {
    const Stage stage;
    const QString path = stage.MakeFile(u"hero.sna"_qs, NoiseBytes(30));
    KnownFile known;
    MemoryBlock block;
    ASSERT_TRUE(known.Read(path, block).IsDone());
    EXPECT_TRUE(known.FindUnchanged(path).IsDone());
    ASSERT_TRUE(known.Write(path, NoiseBytes(30, 2)).IsDone());
    EXPECT_TRUE(known.FindUnchanged(path).IsDone());
    stage.MakeFile(u"hero.sna"_qs, NoiseBytes(30, 3));
    EXPECT_TRUE(known.FindUnchanged(path).IsNotDone());
}

} // namespace
} // namespace lumrake
