#pragma once

#include "bench.h"

#include "animation/frmAnimation.h"
#include "controls/picture_box.h"
#include "snapshot/frmSnapshot.h"

#include <QCoreApplication>

namespace lumrake {

/// The parts of a snapshot window that stand between the mouse and the screen.
struct SnapshotProbe {
    frmSnapshot& form;

    PictureBox& Picture() const { return *form.picImage; }
    QWidget& Container() const { return *form.picContainer; }
    void WritePixel(float X, float Y, std::int16_t iValue) const { form.WritePixel(X, Y, iValue, false); }
    void Move(int button, float X, float Y) const {
        form.picImage->MouseMove({static_cast<std::int16_t>(button), X, Y});
    }
    /// Lays the net over the whole view.
    void NetOverAll() const {
        static_cast<NetRect&>(form.shpNet) = {0, 0, form.view.ScreenWidth(), form.view.ScreenHeight()};
        form.shpNet.Visible = true;
    }
    /// Drops the block that is being placed on the top left corner.
    void DropAtOrigin() const {
        frmSnapshot::placing.block.Left = frmSnapshot::placing.block.Top = 0;
        form.imgClip->MouseDown({1, 0, 0});
    }
};

struct AnimationProbe {
    frmAnimation& form;

    void Tick() const { form.NextFrame(); }
    PictureBox& Picture() const { return *form.picImage; }
};

namespace bench {

/// A window that shows the largest view through an opening of 800 x 600 pixels.
struct Editor {
    static constexpr QSize kExposure{800, 600};

    explicit Editor(int zoom) {
        UseLargestView();
        opened = form.Launch(FileOf(Place::Memory, 256 * 1024), QStringLiteral("view.sna"));
        form.SetZoom(static_cast<std::int16_t>(zoom));
        form.resize(form.size() + kExposure - probe.Container().size());
        QCoreApplication::processEvents();
        opened = opened && probe.Container().size() == kExposure;
    }

    frmSnapshot form;
    SnapshotProbe probe{form};
    bool opened = false;
};

/// The one window of a zoom index; tells `state` when it didn't open.
Editor& EditorOf(benchmark::State& state, int zoom);

} // namespace bench
} // namespace lumrake
