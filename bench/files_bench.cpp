/// What reading and writing files costs, beside the bare system calls on as many bytes.
#include "probes.h"

#include "controls/common_dialog.h"
#include "controls/message_box.h"
#include "controls/save_picture.h"
#include "disk/files.h"
#include "disk/save_file.h"
#include "display/lmk.h"
#include "shell/shell.h"
#include "snapshot/rules/raw_export.h"

#include <QDir>
#include <QFile>

#include <cstdlib>
#include <memory>
#include <string>

namespace lumrake::bench {
namespace {

constexpr std::int64_t kMebibyte = 1 << 20;

// ---- 1000 views of 256 x 192 at 4:1 as bitmaps ----

constexpr int kViews = 1000, kViewBytes = 6144;

/// The bytes of all views, one after the other, and a directory for the bitmaps.
QString ViewsFile() {
    QDir().mkpath(FilePath(Place::Memory, QStringLiteral("views")));
    return FileOf(Place::Memory, kViews * kViewBytes);
}

void BitmapsOurs(benchmark::State& state) {
    const QString source = ViewsFile();
    for (auto _ : state) {
        MemoryBlock bytes;
        bool done = ReadWholeFile(source, bytes).IsDone();
        lmk::DeviceContext context;
        for (int view = 0; view < kViews && done; ++view) {
            lmk::zxShowMem(&context, bytes.data(), view * kViewBytes, kViews * kViewBytes, 256, 192, 1,
                           3 * 16, 56, Settings.lPalette.data());
            const QString name = QStringLiteral("views/%1.bmp").arg(view + 1, 4, 10, QLatin1Char('0'));
            done = SavePicture(FilePath(Place::Memory, name), context.Picture(), 4).IsDone();
        }
        if (!done) {
            state.SkipWithError("a file failed");
        }
    }
}

void BitmapsFfmpeg(benchmark::State& state) {
    const std::string command =
        "ffmpeg -v error -nostdin -y -threads 2 -f rawvideo -pix_fmt monob -s 256x192 -i '" +
        ViewsFile().toStdString() + "' -vf scale=1024:768:flags=neighbor -pix_fmt monob -threads 2 '" +
        FilePath(Place::Memory, QStringLiteral("views")).toStdString() + "/%04d.bmp'";
    for (auto _ : state) {
        if (std::system(command.c_str()) != 0) {
            state.SkipWithError("ffmpeg failed");
        }
    }
}

// ---- the largest view as a bitmap at 16:1, and raw ----

void BitmapOurs(benchmark::State& state) {
    lmk::DeviceContext context;
    const std::vector<std::uint8_t> memory = Noise(256 * 1024);
    lmk::zxShowMem(&context, memory.data(), 0, 256 * 1024, 256, 512, 16, 5 * 16, 56,
                   Settings.lPalette.data());
    for (auto _ : state) {
        if (SavePicture(FilePath(Place::Memory, QStringLiteral("view.bmp")), context.Picture(), 16)
                .IsNotDone()) {
            state.SkipWithError("the bitmap can't be written");
        }
    }
}

void Plain(benchmark::State& state, Place place, std::int64_t count) {
    const std::vector<std::uint8_t> bytes = Noise(static_cast<std::size_t>(count));
    const QString path = FilePath(place, QStringLiteral("plain"));
    for (auto _ : state) {
        if (!PlainSave(path, bytes)) {
            state.SkipWithError("the file can't be written");
        }
    }
}

/// The rows of the view into a file.
void RawOurs(benchmark::State& state) {
    const std::vector<std::uint8_t> memory = Noise(256 * 1024);
    ViewNumbers view;
    view.lFileLength = 256 * 1024;
    view.iLines = 512;
    view.iColumns = 16;
    for (auto _ : state) {
        const RawExport rows(memory, view);
        std::vector<std::uint8_t> bytes;
        bytes.reserve(static_cast<std::size_t>(rows.Rows() * rows.RowBytes()));
        for (std::int32_t row = 0; row < rows.Rows(); ++row) {
            const auto from = rows.Row(row);
            bytes.insert(bytes.end(), from.begin(), from.end());
        }
        if (WriteWholeFile(FilePath(Place::Memory, QStringLiteral("rows.raw")), bytes).IsNotDone()) {
            state.SkipWithError("the file can't be written");
        }
    }
}

/// The command, with its progress bar, after the dialog.
void RawCommand(benchmark::State& state) {
    Editor& editor = EditorOf(state, 1);
    const QString path = FilePath(Place::Memory, QStringLiteral("view.raw"));
    SetFileDialogAnswerer([&path](CommonDialog::Kind, const CommonDialog&) { return path; });
    SetMessageBoxAnswerer([](const MessageBox&) { return BoxAnswer::Yes; }); // the file is there already
    for (auto _ : state) {
        editor.form.ExportViewToRaw();
    }
    SetFileDialogAnswerer({});
    SetMessageBoxAnswerer({});
    if (QFile(path).size() != 256 * 1024) {
        state.SkipWithError("the file isn't there");
    }
}

// ---- opening and saving ----

void OpenOurs(benchmark::State& state, std::int64_t length) {
    const QString path = FileOf(Place::Disk, length);
    for (auto _ : state) {
        MemoryBlock bytes;
        if (ReadWholeFile(path, bytes).IsNotDone()) {
            state.SkipWithError("the file can't be read");
        }
    }
}

/// Into memory that is new each time, as a document's has to be, or into the same again and again.
void OpenPlain(benchmark::State& state, std::int64_t length, bool intoNewMemory) {
    const QString path = FileOf(Place::Disk, length);
    const auto count = static_cast<std::size_t>(length);
    std::unique_ptr<std::uint8_t[]> bytes(new std::uint8_t[count]);
    for (auto _ : state) {
        if (intoNewMemory) {
            bytes.reset(); // first, so that two never exist at a time
            bytes.reset(new std::uint8_t[count]);
        }
        if (!PlainRead(path, bytes.get(), count)) {
            state.SkipWithError("the file can't be read");
        }
    }
}

void SaveOurs(benchmark::State& state) {
    static frmSnapshot* form = nullptr; // never deleted: the toolkit goes before static variables
    const QString path = FilePath(Place::Disk, QStringLiteral("saved.sna"));
    if (form == nullptr) {
        UseLargestView();
        form = new frmSnapshot;
        if (!form->Launch(FileOf(Place::Disk, 16 * kMebibyte), QStringLiteral("view.sna"))) {
            state.SkipWithError("the window doesn't open");
        }
    }
    for (auto _ : state) {
        if (form->SaveSnap(path, QStringLiteral("saved.sna")).IsNotDone()) {
            state.SkipWithError("the file can't be saved");
        }
    }
}

const bool kRegistered = [] {
    using benchmark::State;
    Add("Bitmaps/ours", BitmapsOurs);
    Add("Bitmaps/ffmpeg", BitmapsFfmpeg);
    Add("Bitmap/ours", BitmapOurs);
    Add("Bitmap/plain", [](State& state) { Plain(state, Place::Memory, 64 * kMebibyte); });
    Add("Raw/ours", RawOurs);
    Add("Raw/command", RawCommand);
    Add("Raw/plain", [](State& state) { Plain(state, Place::Memory, 256 * 1024); });
    for (const auto& [group, length] :
         {std::pair{"Open16M/", 16 * kMebibyte}, {"Open1G/", 1024 * kMebibyte}}) {
        const std::string name = group;
        Add(name + "ours", [length](State& state) { OpenOurs(state, length); });
        Add(name + "plain", [length](State& state) { OpenPlain(state, length, true); });
        Add(name + "again", [length](State& state) { OpenPlain(state, length, false); });
    }
    Add("Save/ours", SaveOurs)->Iterations(3);
    Add("Save/plain", [](State& state) { Plain(state, Place::Disk, 16 * kMebibyte); })->Iterations(3);
    return true;
}();

} // namespace
} // namespace lumrake::bench
