/// What stands on the disk, and what the user knows of it, after any call to the system has failed.
#include "animation/anim_support.h"
#include "disk/files.h"
#include "disk/in_place.h"
#include "disk/recovery_run.h"
#include "disk/system_calls.h"
#include "faults/fault_shim.h"
#include "faults/file_stage.h"
#include "shell/kept_document.h"
#include "shell/window/animation_commands.h"
#include "shell/window/file_commands.h"
#include "shell/window/unfinished_saves.h"

#include <QDir>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <functional>
#include <set>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace lumrake::testing {
namespace {

using Bytes = std::vector<std::uint8_t>;

const QString kSnapshotFile = QStringLiteral("Test.SNA"), kAnimationFile = QStringLiteral("Walk.anm"),
              kSnapshotLost = QStringLiteral("cannot be found");

/// Two documents with changes over an empty disk. Every question is answered with `answer`, every file dialog with
/// the next of `files`.
struct Rig : FileStage {
    Rig() {
        SetMessageBoxAnswerer([this](const MessageBox& box) {
            boxes.push_back(box.title + QLatin1Char('|') + box.text);
            return box.buttons == BoxButtons::Ok || box.text.contains(kSnapshotLost) ? BoxAnswer::Ok : answer;
        });
        Settings.iDefaultWidth = 128;
        Settings.iDefaultLines = 64;
        snapshot = Open(NoiseBytes(40000), kSnapshotFile); // more than a buffer takes
        snapshot->SetZoom(4);                              // so that its bitmap is, too
        SnapshotProbe{*snapshot}.DrawNet(3, 2, 400, 200);
        MakeFile(kAnimationFile, EncodeAnimation(SampleRecord(Path(kSnapshotFile))));
        animation = new frmAnimation;
        EXPECT_TRUE(animation->Launch(Path(kAnimationFile)));
    }

    /// Both documents have changes and their own names; `target` holds the old bytes and nothing else is there.
    void Reset(const QString& target, const Bytes& old) {
        for (const QString& name : QDir(Path(QString())).entryList(QDir::Files | QDir::Hidden)) {
            QFile::remove(Path(name));
        }
        MakeFile(kSnapshotFile, NoiseBytes(40000));
        MakeFile(kAnimationFile, EncodeAnimation(SampleRecord(Path(kSnapshotFile))));
        if (!HasOwnNames()) {
            ASSERT_TRUE(snapshot->SaveSnap(Path(kSnapshotFile), kSnapshotFile).IsDone());
            ASSERT_TRUE(animation->SaveAnimation(Path(kAnimationFile)).IsDone());
        }
        SnapshotProbe{*snapshot}.SetChanged();
        animation->SetChanged(-1);
        MakeFile(target, old);
        MemoryBlock ignored; // nobody else has changed them
        EXPECT_TRUE(SnapshotProbe{*snapshot}.File().Read(Path(kSnapshotFile), ignored).IsDone());
        EXPECT_TRUE(AnimationProbe{*animation}.File().Read(Path(kAnimationFile), ignored).IsDone());
        GiveRights(QFile::encodeName(Path(target)));
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

    /// The bytes of the safe copy that stands, or none.
    static Bytes Copy() {
        const QStringList copies = FilesOfRun(kSafeCopy);
        MemoryBlock block;
        if (copies.empty() || ReadWholeFile(copies[0], block).IsNotDone()) {
            return {};
        }
        const auto save = ParseSafeCopy(block.Bytes());
        return save && copies.size() == 1 ? Bytes(save->bytes.begin(), save->bytes.end()) : Bytes(1);
    }

    BoxAnswer answer = BoxAnswer::Yes;
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
    {"Save", kSnapshotFile, "Save", false, [](Rig& rig) { Save(*rig.snapshot); }},
    {"Save as", QString(255, QLatin1Char('o')), "Save", false, [](Rig& rig) { SaveAs(*rig.snapshot); }},
    {"raw data", QStringLiteral("view.raw"), "Save", true, [](Rig& rig) { rig.snapshot->ExportViewToRaw(); }},
    {"view", QStringLiteral("view.bmp"), "Save", true, [](Rig& rig) { rig.snapshot->ExportViewToBMP(); }},
    {"selection", QStringLiteral("net.bmp"), "Save", true,
     [](Rig& rig) { rig.snapshot->ExportSelectionToBMP(); }},
    {"animation", kAnimationFile, "Animation", false, [](Rig& rig) { Save(*rig.animation); }},
    {"animation as", QStringLiteral("other.anm"), "Animation", false,
     [](Rig& rig) { SaveAs(*rig.animation); }},
    {"settings", QStringLiteral("LMK.CFG"), "Settings", true, [](Rig&) { SaveSettings(); }},
};

void PrintTo(const Writer& writer, std::ostream* out) {
    *out << writer.name;
}

struct Fault {
    int error;
    bool shortWrite = false;
    int interruptEvery = 0;
    bool mounted = false;
};
const Fault kFaults[] = {{EIO, false, 2}, {ENOSPC, true}, {ENOSPC, true, 2, true}, {EACCES, false, 0, true}};

FaultPlan PlanOf(const Rig& rig, const Fault& fault, int failAt) {
    const std::string directory = rig.Path(QString()).toStdString();
    return {directory, failAt, fault.error, fault.shortWrite, fault.interruptEvery, fault.mounted};
}

QString Reason(int error) {
    return QString::fromLocal8Bit(std::strerror(error));
}

class Writes : public ::testing::TestWithParam<Writer> {};

TEST_P(Writes, LeaveTheOldFileOrTheNewOneAndSaySo) {
    const Writer& writer = GetParam();
    const Bytes old = NoiseBytes(1000, 2);
    std::set<std::string> calls;
    Rig rig;
    rig.Reset(writer.target, old);
    const QByteArray file = QFile::encodeName(rig.Path(writer.target));
    const QByteArray rights = RightsOf(file);
    writer.write(rig);
    const Bytes fresh = rig.ReadFile(writer.target);
    ASSERT_NE(fresh, old);
    for (const Fault& fault : kFaults) {
        bool struck = true;
        for (int failAt = 1; struck; ++failAt) {
            rig.Reset(writer.target, old);
            const auto others = QDir(rig.Path(QString())).entryList(QDir::Files | QDir::Hidden);
            ArmFaults(PlanOf(rig, fault, failAt));
            writer.write(rig);
            struck = DisarmFaults() >= failAt;
            const std::string call = StruckCall();
            calls.insert(call);
            SCOPED_TRACE(::testing::Message() << std::strerror(fault.error) << " at call " << failAt << ", "
                                              << call << (fault.mounted ? ", in place" : ""));

            const Bytes found = rig.ReadFile(writer.target);
            const Bytes copied = rig.Copy();
            ASSERT_TRUE(found == old || found == fresh || copied == fresh)
                << found.size() << " bytes that are neither";
            EXPECT_EQ(RightsOf(file), rights);
            EXPECT_EQ(QDir(rig.Path(QString())).entryList(QDir::Files | QDir::Hidden), others);
            const bool told = !rig.boxes.empty() && !rig.boxes.back().contains(QLatin1String("overwrite?"));
            if (!told) {
                EXPECT_EQ(found, fresh);
                EXPECT_EQ(rig.Changed(), writer.keepsDocument);
                continue;
            }
            EXPECT_TRUE((found == fresh) == (call == "directory") || fault.mounted)
                << "there, but for how long";
            EXPECT_TRUE(rig.boxes.back().startsWith(QLatin1String(writer.boxTitle) + QLatin1Char('|')));
            EXPECT_TRUE(rig.boxes.back().contains(Reason(fault.error))) << rig.boxes.back().toStdString();
            EXPECT_TRUE(rig.Changed() && rig.HasOwnNames());
            writer.write(rig); // the disk works again
            EXPECT_EQ(rig.ReadFile(writer.target), fresh);
            EXPECT_TRUE(rig.Copy().empty());
        }
    }
    for (const char* call :
         {"open", "write", "fsync", "rename", "close", "stat", "statx", "fchmod", "fsetxattr", "directory"}) {
        EXPECT_TRUE(calls.contains(call)) << call;
    }
}

INSTANTIATE_TEST_SUITE_P(Of, Writes, ::testing::ValuesIn(kWriters), [](const auto& test) {
    std::string name = test.param.name;
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
});

TEST(Faults, WhileReadingAreToldAndOpenNothing) {
    const std::pair<const char*, std::function<void(Rig&)>> readers[] = {
        {"Open file|", [](Rig& rig) { OpenSnapshotFile(rig.Path(kSnapshotFile)); }},
        {"Animation|", [](Rig&) { OpenAnimationDialog(); }},
        {"Settings|", [](Rig&) { LoadSettings({}); }},
    };
    for (const auto& [told, read] : readers) {
        Rig rig;
        for (int failAt = 1; failAt == 1 || StruckCall() != "none"; ++failAt) {
            rig.Reset(QStringLiteral("LMK.CFG"), NoiseBytes(kSettingsBytes));
            rig.files = {rig.Path(kAnimationFile)};
            const int windows = iSnapshotCount + iAnimationCount;
            ArmFaults(PlanOf(rig, {EIO, false, 2}, failAt));
            read(rig);
            DisarmFaults();
            SCOPED_TRACE(::testing::Message() << told << " at call " << failAt << ", " << StruckCall());
            if (rig.boxes.empty()) { // it has found another way
                EXPECT_TRUE(StruckCall() != "open" && StruckCall() != "read");
                continue;
            }
            EXPECT_TRUE(rig.boxes[0].startsWith(QLatin1String(told)));
            EXPECT_TRUE(rig.boxes[0].contains(Reason(EIO)) || rig.boxes[0].contains(kSnapshotLost));
            EXPECT_EQ(iSnapshotCount + iAnimationCount, windows);
        }
    }
}

TEST(Faults, InTheMiddleOfASaveInPlaceAreMendedAtTheNextStart) {
    Rig rig;
    const Bytes fresh = SnapshotProbe{*rig.snapshot}.Bytes();
    const auto die = [&rig](const QString& target, const std::function<void()>& write) {
        int failAt = 0;
        do { // until a part of the file is written
            rig.Reset(target, NoiseBytes(1000, 2));
            ArmFaults(PlanOf(rig, {ENOSPC, true, 0, true}, ++failAt));
            write();
            ASSERT_GE(DisarmFaults(), failAt);
        } while (rig.Copy().empty());
        EndRecoveryRun();
        rig.boxes.clear();
    };
    die(QStringLiteral("LMK.CFG"), SaveSettings);
    const std::int16_t width = std::exchange(Settings.iDefaultWidth, std::int16_t{8});
    FinishSavingSettings();
    LoadSettings({});
    EXPECT_EQ(Settings.iDefaultWidth, width);
    EXPECT_TRUE(rig.boxes.empty() && FilesOfRun(kSafeCopy).empty());

    die(kSnapshotFile, [&rig] { Save(*rig.snapshot); });
    rig.answer = BoxAnswer::Cancel;
    FinishSaves();
    EXPECT_EQ(rig.Copy(), fresh) << "it stays for the next start";
    Save(*rig.snapshot);
    EXPECT_TRUE(FilesOfRun(kSafeCopy).empty()) << "later bytes are saved";

    die(kSnapshotFile, [&rig] { Save(*rig.snapshot); });
    FinishSaves();
    const QString copy = FilesOfRun(kSafeCopy)[0];
    rig.answer = BoxAnswer::Yes;
    MemoryBlock whole;
    ASSERT_TRUE(ReadWholeFile(copy, whole).IsDone());
    for (std::size_t i = 0; i < whole.size(); i += std::size_t{i < fresh.size() ? 97U : 1U}) {
        EXPECT_FALSE(ParseSafeCopy(whole.Bytes().first(i)));
        whole.data()[i] ^= 1;
        EXPECT_FALSE(ParseSafeCopy(whole.Bytes())) << i;
        whole.data()[i] ^= 1;
    }
    FinishSaves();
    EXPECT_EQ(rig.ReadFile(kSnapshotFile), fresh);
    EXPECT_TRUE(FilesOfRun(kSafeCopy).empty());
    EXPECT_TRUE(rig.boxes.back().startsWith(QLatin1String("Save|Lumrake did not finish saving ")));
}

/// The bytes that a start would bring back.
Bytes Kept(const Bytes& file) {
    EndRecoveryRun();
    AdoptDeadRuns();
    Bytes bytes = file;
    for (const QString& sKeptIn : FilesOfRun(kKeptChanges)) {
        MemoryBlock memory;
        EXPECT_TRUE(ReadWholeFile(sKeptIn, memory).IsDone());
        const auto recovery = ReadRecovery(memory.Bytes());
        EXPECT_TRUE(recovery) << "half of something";
        for (const auto& [number, block] : recovery->blocks) {
            std::ranges::copy(block.bytes, bytes.begin() + number * std::ptrdiff_t{ChangedBlocks::kBytes});
        }
    }
    return bytes;
}

TEST(Faults, OfKeepingWhatIsDrawnOpenNoBoxAndLoseNothingKept) {
    std::set<std::string> calls;
    for (const Fault& fault : kFaults) {
        for (const int armedFor : {0, 1, 2}) { // the first that is kept, the next, a start that takes it over
            for (int failAt = 1; failAt == 1 || StruckCall() != "none"; ++failAt) {
                Rig rig;
                const Bytes file = rig.ReadFile(kSnapshotFile);
                const SnapshotProbe probe{*rig.snapshot};
                iCurrentTool = kToolDraw;
                std::vector<Bytes> states{file};
                for (const int step : {0, 1, 2}) {
                    for (int x = 0; step < 2 && x < 40; ++x) { // some of them change a bit
                        probe.Press(1, static_cast<float>(8 * x), static_cast<float>(8 * step));
                    }
                    states.push_back(probe.Bytes());
                    if (step == armedFor) {
                        ArmFaults(PlanOf(rig, fault, failAt));
                    }
                    if (step < 2) {
                        KeepAllDocuments();
                    } else {
                        EndRecoveryRun();
                        AdoptDeadRuns();
                    }
                    if (step == armedFor) {
                        DisarmFaults();
                        break;
                    }
                }
                calls.insert(StruckCall());
                SCOPED_TRACE(::testing::Message() << std::strerror(fault.error) << " at call " << failAt
                                                  << ", " << StruckCall() << ", step " << armedFor);
                EXPECT_TRUE(rig.boxes.empty());
                EXPECT_EQ(rig.ReadFile(kSnapshotFile), file);
                const Bytes kept = Kept(file);
                EXPECT_TRUE(kept == states.back() || (armedFor < 2 && kept == states[states.size() - 2]));
            }
        }
    }
    for (const char* call : {"open", "write", "fsync", "rename", "directory", "mkdir", "flock"}) {
        EXPECT_TRUE(calls.contains(call)) << call;
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
    Save(*rig.snapshot);
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(rig.ReadFile(kSnapshotFile), old);
    EXPECT_TRUE(rig.boxes.back().contains(Reason(EFBIG))) << rig.boxes.back().toStdString();
    EXPECT_TRUE(rig.Changed());
}

} // namespace
} // namespace lumrake::testing
