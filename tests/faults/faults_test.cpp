/// What stands on the disk, and what the user knows of it, after any call to the system has failed.
#include "animation/anim_support.h"
#include "animation/animation_commands.h"
#include "faults/fault_shim.h"
#include "faults/file_stage.h"
#include "platform/system_calls.h"
#include "shell/file_commands.h"

#include <QDir>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <functional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace lumrake::testing {
namespace {

using Bytes = std::vector<std::uint8_t>;

const QString kSnapshotFile = QStringLiteral("Test.SNA"), kAnimationFile = QStringLiteral("Walk.anm");

/// Two documents with changes over an empty disk. Every question is answered with Yes, every file dialog with
/// the next of `files`.
struct Rig : FileStage {
    Rig() {
        SetMessageBoxAnswerer([this](const MessageBox& box) {
            boxes.push_back(box.title + QLatin1Char('|') + box.text);
            return box.buttons == BoxButtons::Ok ? BoxAnswer::Ok : BoxAnswer::Yes;
        });
        Settings.iDefaultWidth = 128;
        Settings.iDefaultLines = 64;
        OpenSnapshot();
        MakeFile(kAnimationFile, EncodeAnimation(SampleRecord(Path(kSnapshotFile))));
        animation = new frmAnimation;
        EXPECT_TRUE(animation->Launch(Path(kAnimationFile)));
    }

    void OpenSnapshot() {
        snapshot = Open(NoiseBytes(40000), kSnapshotFile); // more than a buffer takes
        snapshot->SetZoom(4);                              // so that its bitmap is, too
        SnapshotProbe{*snapshot}.DrawNet(3, 2, 400, 200);
    }

    /// Both documents have changes and their own names; `target` holds the old bytes and nothing else is there.
    void Reset(const QString& target, const Bytes& old) {
        if (iSnapshotCount == 0) {
            OpenSnapshot();
        }
        for (const QString& name : QDir(Path(QString())).entryList(QDir::Files | QDir::Hidden)) {
            QFile::remove(Path(name));
        }
        ASSERT_TRUE(snapshot->SaveSnap(Path(kSnapshotFile), kSnapshotFile));
        ASSERT_TRUE(animation->SaveAnimation(Path(kAnimationFile)));
        SnapshotProbe{*snapshot}.Changed() = -1;
        animation->SetChanged(-1);
        MakeFile(target, old);
        boxes.clear();
        files.assign(3, Path(target));
    }

    bool Changed() const {
        return SnapshotProbe{*snapshot}.Changed() != 0 && AnimationProbe{*animation}.Changed();
    }
    bool HasOwnNames() const {
        return snapshot->GetFilename() == Path(kSnapshotFile) &&
               animation->GetFilename() == Path(kAnimationFile);
    }

    frmSnapshot* snapshot = nullptr;
    frmAnimation* animation = nullptr;
};

struct Writer {
    const char* name;
    QString target;
    const char* boxTitle;
    bool keepsDocument; ///< an export: the document has nothing to do with its outcome
    std::function<void(Rig&)> write;
};

const Writer kWriters[] = {
    {"Save", kSnapshotFile, "Save", false, [](Rig& rig) { SaveSnapshot(*rig.snapshot); }},
    {"Save as", QString(255, QLatin1Char('o')), "Save", false,
     [](Rig& rig) { SaveSnapshotAs(*rig.snapshot); }},
    {"raw data", QStringLiteral("view.raw"), "Save", true, [](Rig& rig) { rig.snapshot->ExportViewToRaw(); }},
    {"view", QStringLiteral("view.bmp"), "Save", true, [](Rig& rig) { rig.snapshot->ExportViewToBMP(); }},
    {"selection", QStringLiteral("net.bmp"), "Save", true,
     [](Rig& rig) { rig.snapshot->ExportSelectionToBMP(); }},
    {"animation", kAnimationFile, "Animation", false, [](Rig& rig) { SaveAnimationCommand(*rig.animation); }},
    {"animation as", QStringLiteral("other.anm"), "Animation", false,
     [](Rig& rig) { SaveAnimationAs(*rig.animation); }},
    {"settings", QStringLiteral("LMK.CFG"), "Settings", true, [](Rig&) { SaveSettings(); }},
};

void PrintTo(const Writer& writer, std::ostream* out) {
    *out << writer.name;
}

struct Fault {
    int error;
    bool shortWrite = false;
    int interruptEvery = 0;
    bool onlyNamed = false;
};
const Fault kFaults[] = {{EIO, false, 2}, {ENOSPC, true}, {ENOSPC, true, 2, true}, {EACCES, false, 0, true}};

FaultPlan PlanOf(const Rig& rig, const Fault& fault, int failAt) {
    const std::string directory = rig.Path(QString()).toStdString();
    return {directory, failAt, fault.error, fault.shortWrite, fault.interruptEvery, fault.onlyNamed};
}

QString Reason(int error) {
    return QString::fromLocal8Bit(std::strerror(error));
}

class Writes : public ::testing::TestWithParam<Writer> {};

TEST_P(Writes, LeaveTheOldFileOrTheNewOneAndSaySo) {
    const Writer& writer = GetParam();
    const Bytes old = NoiseBytes(1000, 2);
    Rig rig;
    rig.Reset(writer.target, old);
    const QByteArray target = QFile::encodeName(rig.Path(writer.target));
    const auto rights = [&target] {
        struct stat found = {};
        stat(target.constData(), &found);
        return std::tuple{found.st_mode, found.st_uid, found.st_gid};
    };
    chmod(target.constData(), 0640);
    [[maybe_unused]] const int given = chown(target.constData(), 1234, 4321); // where we may
    const auto before = rights();
    writer.write(rig);
    EXPECT_EQ(rights(), before);
    const Bytes fresh = rig.ReadFile(writer.target);
    ASSERT_NE(fresh, old);
    for (const Fault& fault : kFaults) {
        bool struck = true;
        for (int failAt = 1; struck; ++failAt) {
            SCOPED_TRACE(::testing::Message() << std::strerror(fault.error) << " at call " << failAt
                                              << (fault.onlyNamed ? " of named files" : ""));
            rig.Reset(writer.target, old);
            const auto others = QDir(rig.Path(QString())).entryList(QDir::Files | QDir::Hidden);
            ArmFaults(PlanOf(rig, fault, failAt));
            writer.write(rig);
            struck = DisarmFaults() >= failAt;

            const Bytes found = rig.ReadFile(writer.target);
            ASSERT_TRUE(found == old || found == fresh) << found.size() << " bytes that are neither";
            EXPECT_EQ(QDir(rig.Path(QString())).entryList(QDir::Files | QDir::Hidden), others);
            if (found == fresh) {
                EXPECT_TRUE(rig.boxes.empty() || rig.boxes.back().contains(QLatin1String("overwrite?")));
                EXPECT_EQ(rig.Changed(), writer.keepsDocument);
                continue;
            }
            ASSERT_TRUE(struck && !rig.boxes.empty());
            EXPECT_TRUE(rig.boxes.back().startsWith(QLatin1String(writer.boxTitle) + QLatin1Char('|')));
            EXPECT_TRUE(rig.boxes.back().contains(Reason(fault.error))) << rig.boxes.back().toStdString();
            EXPECT_TRUE(rig.Changed() && rig.HasOwnNames());
            writer.write(rig); // the disk works again
            EXPECT_EQ(rig.ReadFile(writer.target), fresh);
        }
    }
    for (const char* call : {"open", "write", "fsync", "linkat", "rename", "close"}) {
        EXPECT_TRUE(StruckCalls().contains(call)) << call;
    }
}

INSTANTIATE_TEST_SUITE_P(Of, Writes, ::testing::ValuesIn(kWriters), [](const auto& test) {
    std::string name = test.param.name;
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
});

TEST(Faults, AskAClosingWindowForAnotherName) {
    for (const Fault& fault : kFaults) {
        Rig rig;
        bool struck = true;
        for (int failAt = 1; struck; ++failAt) {
            SCOPED_TRACE(::testing::Message() << std::strerror(fault.error) << " at call " << failAt);
            const Bytes old = NoiseBytes(1000, 2);
            rig.Reset(kSnapshotFile, old);
            int calls = -1;
            SetFileDialogAnswerer([&](CommonDialog::Kind, const CommonDialog&) {
                calls = DisarmFaults(); // elsewhere there is room
                return rig.Path(QStringLiteral("Rescue.sna"));
            });
            const auto memory = SnapshotProbe{*rig.snapshot}.Memory().Bytes();
            const Bytes fresh(memory.begin(), memory.end());
            ArmFaults(PlanOf(rig, fault, failAt));
            EXPECT_TRUE(ChildFrame(rig.snapshot)->close());
            struck = std::max(calls, DisarmFaults()) >= failAt;
            EXPECT_EQ(iSnapshotCount, 0);
            const Bytes found = rig.ReadFile(kSnapshotFile);
            if (found == fresh) {
                EXPECT_EQ(rig.boxes.size(), 1U) << "the question only";
                continue;
            }
            EXPECT_EQ(found, old);
            ASSERT_EQ(rig.boxes.size(), 2U);
            EXPECT_TRUE(rig.boxes[1].contains(Reason(fault.error))) << rig.boxes[1].toStdString();
            EXPECT_TRUE(rig.boxes[1].endsWith(QLatin1String("Save under another name?")));
            EXPECT_EQ(rig.ReadFile(QStringLiteral("rescue.sna")), fresh);
        }
    }
}

TEST(Faults, WhileReadingAreToldAndOpenNothing) {
    const std::pair<const char*, std::function<void(Rig&)>> readers[] = {
        {"Open file|", [](Rig& rig) { OpenSnapshotFile(rig.Path(kSnapshotFile)); }},
        {"Animation|", [](Rig&) { OpenAnimationDialog(); }},
        {"Settings|", [](Rig&) { LoadSettings({}); }},
    };
    for (const auto& [told, read] : readers) {
        Rig rig;
        for (int failAt = 1; failAt <= 2; ++failAt) { // to open it and to read from it
            SCOPED_TRACE(::testing::Message() << told << " at call " << failAt);
            rig.Reset(QStringLiteral("LMK.CFG"), NoiseBytes(kSettingsBytes));
            rig.files = {rig.Path(kAnimationFile)};
            const int windows = iSnapshotCount + iAnimationCount;
            ArmFaults(PlanOf(rig, {EIO, false, 2}, failAt));
            read(rig);
            DisarmFaults();
            ASSERT_EQ(rig.boxes.size(), 1U);
            EXPECT_TRUE(rig.boxes[0].startsWith(QLatin1String(told)));
            EXPECT_TRUE(rig.boxes[0].contains(Reason(EIO))) << rig.boxes[0].toStdString();
            EXPECT_EQ(iSnapshotCount + iAnimationCount, windows);
        }
    }
}

TEST(Faults, ALimitOfTheFileSizeIsAFailureAndNoEnd) {
    HoldWriteSignals();
    raise(SIGPIPE); // the same for a pipe without a reader
    const Bytes old = NoiseBytes(1000, 2);
    Rig rig;
    rig.Reset(kSnapshotFile, old);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{100, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    SaveSnapshot(*rig.snapshot);
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(rig.ReadFile(kSnapshotFile), old);
    EXPECT_TRUE(rig.boxes.back().contains(Reason(EFBIG))) << rig.boxes.back().toStdString();
    EXPECT_TRUE(rig.Changed());
}

} // namespace
} // namespace lumrake::testing
