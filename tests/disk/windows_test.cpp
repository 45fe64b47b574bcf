#include "disk/files.h"
#include "support/forms_support.h"

#include <QDir>

#include <windows.h>

// What only Windows does with files.
namespace lumrake {
namespace {

using testing::NoiseBytes;
using testing::Stage;

const wchar_t* Wide(const QString& path) {
    return reinterpret_cast<const wchar_t*>(path.utf16());
}

TEST(Windows, AFileIsSavedUnderItsOwnNameOrTheReasonIsTold) {
    struct Case {
        const char* title;
        DWORD attributes; ///< of the file
        int others;       ///< what another program that holds it lets others do with it, or -1
        const char* told; ///< how the reason ends; empty when it is saved
    };
    const Case cases[] = {
        // clang-format off
        {"nobody else has it",   FILE_ATTRIBUTE_ARCHIVE,  -1,                                 ""},
        {"hidden",               FILE_ATTRIBUTE_HIDDEN,   -1,                                 ""},
        {"read-only",            FILE_ATTRIBUTE_READONLY, -1,                                 "write-protected."},
        {"held by a writer",     FILE_ATTRIBUTE_ARCHIVE,  0,                                  "by another process."},
        {"held without a share", FILE_ATTRIBUTE_ARCHIVE,  FILE_SHARE_READ | FILE_SHARE_WRITE, "denied."},
        // clang-format on
    };
    const auto old = NoiseBytes(300, 1), now = NoiseBytes(400, 2);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.title);
        const Stage stage;
        const QString sFile = stage.MakeFile(u"Zażółć.SNA"_qs, old);
        SetFileAttributesW(Wide(sFile), c.attributes);
        const HANDLE other = c.others < 0
                                 ? nullptr
                                 : CreateFileW(Wide(sFile), GENERIC_READ, static_cast<DWORD>(c.others),
                                               nullptr, OPEN_EXISTING, 0, nullptr);
        const Outcome saved = WriteWholeFile(stage.Path(u"ZAŻÓŁĆ.sna"_qs), now);
        c.others < 0 ? 0 : CloseHandle(other);
        EXPECT_TRUE(saved.Reason().trimmed().endsWith(QLatin1String(c.told))) << saved.Reason().toStdString();
        EXPECT_EQ(saved.IsDone(), *c.told == '\0');
        EXPECT_EQ(stage.ReadFile(u"Zażółć.SNA"_qs), saved.IsDone() ? now : old);
        EXPECT_EQ(GetFileAttributesW(Wide(sFile)) & 7, c.attributes & 7); // read-only, hidden, system
        EXPECT_EQ(QDir(stage.Path({})).entryList(QDir::Files | QDir::Hidden).size(), 1);
        SetFileAttributesW(Wide(sFile), FILE_ATTRIBUTE_NORMAL);
    }
}

TEST(Windows, NamesThatItWouldChangeAreRefused) {
    const Stage stage;
    for (const char* name : {"con", "Aux.sna", "lpt1.bmp", "dot.", "blank ", "stream:x.sna", "what?.sna"}) {
        EXPECT_EQ(WriteWholeFile(stage.Path(QLatin1String(name)), NoiseBytes(1)).Reason(),
                  u"The system does not allow this name."_qs)
            << name;
    }
    EXPECT_EQ(QDir(stage.Path({})).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
    EXPECT_TRUE(WriteWholeFile(stage.Path(u"com.sna"_qs), NoiseBytes(1)).IsDone());
    const QString back = QDir::toNativeSeparators(stage.Path(u"COM.sna"_qs));
    QString mixed = back;
    mixed[mixed.lastIndexOf(u'\\')] = u'/';
    EXPECT_TRUE(FindFile(mixed) && !FindFile(mixed)->contains(u'/'));
    EXPECT_EQ(PathForNewFile(stage.Path(u"COM.sna"_qs)).path, back);
}

} // namespace
} // namespace lumrake
