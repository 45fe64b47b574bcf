/// What a tick of a playing animation costs until it is seen: 256 x 192 pixels at 4:1 in a real window on the
/// offscreen platform, beside the painting of its exposure alone.
#include "probes.h"

#include "animation/rules/animation_record.h"
#include "disk/save_file.h"
#include "shell/shell.h"

#include <QApplication>

namespace lumrake::bench {
namespace {

struct Player {
    Player() {
        UseLargestView();
        const QString snapshot = FileOf(Place::Memory, 48 * 1024);
        AnimationRecord record;
        record.sSnapFile.Set(snapshot.toStdString());
        record.iWidth = 256;
        record.iLines = 192;
        record.iZoom = 3;
        record.lOffset = 27;
        record.iFrames = 7;
        record.lStep = 6144;
        record.iPause = 20;
        record.iRepeat = kPingPong;
        record.lFileLength = 48 * 1024;
        record.byAttribute = 56;
        const QString file = FilePath(Place::Memory, QStringLiteral("walk.anm"));
        opened = WriteWholeFile(file, EncodeAnimation(record)).IsDone() && form.Launch(file);
        QCoreApplication::processEvents();
    }

    frmAnimation form;
    AnimationProbe probe{form};
    bool opened = false;
};

Player& ThePlayer(benchmark::State& state) {
    static auto* const player = new Player; // never deleted: the toolkit goes before static variables
    if (!player->opened) {
        state.SkipWithError("the animation doesn't open");
    }
    return *player;
}

void Frame(benchmark::State& state) {
    const Player& player = ThePlayer(state);
    for (auto _ : state) {
        player.probe.Tick();
        player.probe.Picture().repaint();
    }
}

void Paint(benchmark::State& state) {
    const Player& player = ThePlayer(state);
    for (auto _ : state) {
        player.probe.Picture().repaint();
    }
}

/// One frame of as many windows as fit on a large screen, each until it is seen.
void FrameOfMany(benchmark::State& state) {
    static std::vector<Player*> players; // never deleted, as above
    while (players.size() < 40) {
        players.push_back(new Player);
        if (!players.back()->opened) {
            state.SkipWithError("an animation doesn't open");
        }
    }
    for (auto _ : state) {
        for (const Player* player : players) {
            player->probe.Tick();
            player->probe.Picture().repaint();
        }
    }
}

const bool kRegistered = [] {
    Add("Animation/frame", Frame);
    Add("Animations/frame", FrameOfMany);
    Add("Animation/paint", Paint);
    return true;
}();

} // namespace
} // namespace lumrake::bench
