#pragma once

#include "animation/anim_support.h"
#include "display/modes.h"
#include "shell/main_stage.h"
#include "snapshot/frmClip.h"
#include "snapshot/snapshot_probe.h"

#include <QPointer>
#include <QScreen>

#include <map>
#include <random>
#include <sstream>

namespace lumrake::testing {

/// The open windows of one kind.
template <class Form> std::vector<Form*> Forms() {
    std::vector<Form*> forms;
    for (QMdiSubWindow* frame : MainWindow()->findChildren<QMdiSubWindow*>()) {
        if (auto* form = dynamic_cast<Form*>(frame->widget()); form != nullptr && !frame->isHidden()) {
            forms.push_back(form);
        }
    }
    return forms;
}

constexpr int kLastMode = static_cast<int>(lmk::kModes.size()) - 1;

/// Looks over the whole program between two events: numbers in their limits, pictures that show the bytes, a screen
/// that is up to date, commands that are on when there is something for them.
class Inspector {
  public:
    /// What is out of order; empty when nothing is. `pressed`: a mouse button is held over a picture. The main window
    /// has painted what was out of date.
    std::string Faults(bool pressed) {
        faults_.str({});
        const auto snapshots = Forms<frmSnapshot>();
        const auto animations = Forms<frmAnimation>();
        Expect(iSnapshotCount == static_cast<int>(snapshots.size()), "snapshots are counted wrong");
        Expect(iAnimationCount == static_cast<int>(animations.size()), "animations are counted wrong");
        for (frmSnapshot* form : snapshots) {
            CheckView({*form});
            CheckBytes(*form);
        }
        for (frmAnimation* form : animations) {
            const AnimationProbe probe{*form};
            const AnimationRecord& record = probe.Record();
            const int frame = probe.State().iCurrentFrame;
            Expect(frame >= 0 && frame < record.iFrames, "frame " + std::to_string(frame));
            Expect(HeldForUse(record, record.lFileLength) == record, "a record out of its limits");
        }
        CheckCommands(pressed);
        if (++calls_ % 4 == 0) { // what is out of date stays so for a while
            QWidget& main = *MainWindow();
            const QImage shown = main.screen()->grabWindow(main.winId()).toImage();
            Expect(shown == main.grab().toImage().convertToFormat(shown.format()),
                   "something was not repainted");
        }
        Expect(SnapshotProbe::Placing().IsSound(), "tool " + std::to_string(iCurrentTool));
        Expect(QGuiApplication::overrideCursor() == nullptr, "an hourglass is left");
        return faults_.str();
    }

  private:
    struct Shadow { ///< of a document, at the call before
        QPointer<frmSnapshot> form;
        std::vector<std::uint8_t> bytes;
    };

    void Expect(bool holds, const std::string& fault) {
        if (!holds) {
            faults_ << fault << "; ";
        }
    }

    void CheckView(const SnapshotProbe& probe) {
        const ViewNumbers& view = probe.View();
        const auto& [placing, net] = std::tie(SnapshotProbe::Placing(), probe.Net());
        const bool isHere = placing.window == &probe.form;
        const bool isFramed = net.Visible && net.Frame && net == FrameOf(placing.block);
        Expect(net.IsSound() && probe.Clip().isHidden() != isHere &&
                   (!isHere || (probe.ClipPlace() == placing.block && (isFramed || !placing.IsHanging()))),
               "the net or the block");
        const bool isScreen = view.iMode == kScreen;
        const auto in = [](int value, int least, int most) { return value >= least && value <= most; };
        Expect(in(view.lOffset, 0, view.lFileLength - 1) && in(view.iWidth, isScreen ? 256 : 8, 256) &&
                   view.iWidth % 8 == 0 && in(view.iLines, isScreen ? 192 : 1, isScreen ? 192 : 512) &&
                   in(view.iColumns, 1, isScreen || view.iMode == kText ? 1 : 16) &&
                   in(view.iMode, 0, kLastMode) && in(view.iZoom, 1, 5) &&
                   view.iZoomFactor == 1 << (view.iZoom - 1) && in(view.iUpsideDown, 0, 1),
               "out of limits: " + probe.Texts() + " mode " + std::to_string(view.iMode));
        const PicturePixel at = probe.form.Cell();
        Expect(in(at.x, 0, view.PictureWidth()) && in(at.y, 0, view.iLines), "the cell lies outside");
        const std::int32_t numbers[] = {view.lOffset, view.iWidth, view.iLines, view.iColumns};
        for (std::size_t box = 0; box < 4; ++box) {
            const QString text = probe.Box(box).text();
            Expect((text.isEmpty() ? (box == 0 ? 0 : 1) : text.toInt()) == numbers[box],
                   "value box " + std::to_string(box) + " says " + text.toStdString());
        }
        const lmk::BitPicture& picture = probe.Picture().hDC().Picture();
        if (picture.Width() != view.PictureWidth() || picture.Height() != view.iLines ||
            probe.Picture().size() != QSize(view.ScreenWidth(), view.ScreenHeight())) {
            faults_ << "the picture has another size; ";
            return;
        }
        const auto z = static_cast<float>(view.iZoomFactor);
        for (int sample = 0; sample < 16; ++sample) {
            const int x = static_cast<int>(random_()) % view.PictureWidth();
            const int y = static_cast<int>(random_()) % view.iLines;
            const int bit =
                ReadPixel(probe.Memory().Bytes(), view, static_cast<float>(x) * z, static_cast<float>(y) * z);
            Expect(picture.PixelAt(x, y) == (bit != 0),
                   "pixel " + std::to_string(x) + ',' + std::to_string(y) + " is shown wrong");
        }
    }

    /// Bytes change in documents alone that know of it.
    void CheckBytes(frmSnapshot& form) {
        const SnapshotProbe probe{form};
        Shadow& shadow = shadows_[&form];
        const bool sameForm = shadow.form == &form; // not another one that opened where it lay
        Expect(!sameForm || shadow.bytes == probe.Bytes() || probe.Changed() != 0,
               "bytes changed and the document did not");
        shadow = {&form, probe.Bytes()};
    }

    void CheckCommands(bool pressed) {
        const frmMain& main = *MainWindow();
        frmSnapshot* form = main.ActiveSnapshot();
        const bool any = main.ActiveForm() != nullptr, snapshot = form != nullptr,
                   animation = any && !snapshot;
        Expect(any == (iSnapshotCount + iAnimationCount > 0), "no child is active");
        const auto expect = [&](bool on, Menu name, int first = 0, int last = 0) {
            for (int Index = first; Index <= last; ++Index) {
                const QAction& entry = *main.Entry(name, Index);
                Expect(entry.isEnabled() == on, entry.text().toStdString() + (on ? " is off" : " is on"));
            }
        };
        // clang-format off
        const std::tuple<bool, Menu, int, int> commands[] = { // whether they are on, their first and last index
            {snapshot, Menu::menu_save, 0, 0},        {snapshot, Menu::menu_saveas, 0, 0},
            {snapshot, Menu::menu_exportviews, 0, 0}, {snapshot, Menu::menu_mode, 0, kLastMode},
            {snapshot, Menu::menu_snapshot, 0, 3},    {snapshot, Menu::tbrMain, kToolDraw, kToolPan},
            {animation, Menu::menu_animation, 3, 4},  {animation, Menu::menu_animationtogif, 0, 0},
            {any, Menu::menu_zoomopt, 0, 0},
        };
        // clang-format on
        for (const auto& [on, name, first, last] : commands) {
            expect(on, name, first, last);
        }
        if (!any || frmClip::Instance().IsEmpty() == 0) { // a copy of nothing leaves Paste on
            expect(any, Menu::menu_edit, 3, 3);
        }
        // The commands are on; or on or off: while a net is dragged, or when it is one pixel that grew with the zoom.
        bool net = false, open = false;
        if (snapshot) {
            const SnapshotProbe probe{*form};
            const auto& shape = probe.Net();
            net = shape.Visible && !shape.Frame && shape.Width > 1;
            open = shape.Visible && !shape.Frame &&
                   (pressed || !shape.Dotted || shape.Width <= probe.View().iZoomFactor);
            for (int mode = 0; mode <= kLastMode; ++mode) {
                Expect(main.Entry(Menu::menu_mode, mode)->isChecked() == (form->GetMode() == mode),
                       "tick of modes");
            }
            Expect(main.Entry(Menu::menu_snapshot, 2)->isChecked() == (form->GetFlip() != 0),
                   "tick of the flip");
        }
        if (!open) {
            expect(net, Menu::menu_edit, 1, 2);
            expect(net, Menu::menu_edit, 4, 4);
            expect(net, Menu::menu_exportselect);
        }
    }

    std::map<frmSnapshot*, Shadow> shadows_;
    int calls_ = 0;
    std::minstd_rand random_; ///< for the samples of the pictures
    std::ostringstream faults_;
};

} // namespace lumrake::testing
