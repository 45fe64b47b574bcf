// The player. The window is either stopped or playing, and Timer1 runs exactly while it plays.
//
//   stopped --Play--> playing       button Play; a change of zoom plays on
//   playing --StopPlay--> stopped   button Stop; Once only after its last frame; SetPositions, and with it
//                                   every change of zoom
//
// Stopping keeps the frame and the direction. Back, Play, Forward and Setup work while it is stopped, Stop
// while it plays; a click that zooms and the zoom menu work always.
#include "animation/frmAnimSetup.h"
#include "animation/frmAnimation.h"
#include "animation/rules/layout.h"
#include "assistant/rules/help_numbers.h"
#include "controls/control_table.h"
#include "controls/picture_box.h"
#include "controls/pictures.h"
#include "controls/spoken.h"
#include "controls/watch.h"
#include "disk/texts.h"
#include "display/lmk.h"
#include "shell/shell.h"
#include "snapshot/frmSnapshot.h"

#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QPointer>

#include <utility>

namespace lumrake {

namespace {

constexpr int kControlHeight = 21;

// clang-format off
constexpr ControlRow kControls[] = { // their places are those of LayoutOf
    {New<QPushButton>, "cmdControl", 0, "", 0, 0, 24, kControlHeight, "animation/back.svg",    "", "BACK",    kHelpBack,    kOnMove, 0, "Back"},
    {New<QPushButton>, "cmdControl", 1, "", 0, 0, 24, kControlHeight, "animation/stop.svg",    "", "STOP",    kHelpStop,    kOnMove, 0, "Stop"},
    {New<QPushButton>, "cmdControl", 2, "", 0, 0, 24, kControlHeight, "animation/play.svg",    "", "PLAY",    kHelpPlay,    kOnMove, 0, "Play"},
    {New<QPushButton>, "cmdControl", 3, "", 0, 0, 24, kControlHeight, "animation/forward.svg", "", "FORWARD", kHelpForward, kOnMove, 0, "Forward"},
    {New<QPushButton>, "cmdControl", 4, "", 0, 0, 49, kControlHeight, "&Setup",                "", "SETUP",   kHelpSetup,   kOnMove},
};

/// A key on the picture and the control that it stands for while that can be clicked.
constexpr std::pair<int, int> kPictureKeys[] = {
    {Qt::Key_Left, 0}, {Qt::Key_Space, 1}, {Qt::Key_Space, 2}, {Qt::Key_Right, 3},
};
// clang-format on

} // namespace

void frmAnimation::CreateControls() {
    SetHelp(this, kHelpNone);
    setWindowTitle(QStringLiteral("animation..."));
    picImage = new PictureBox(this);
    picImage->setObjectName(QStringLiteral("picImage"));
    SetSpoken(
        picImage,
        {.role = QAccessible::Graphic,
         .name =
             [this] {
                 return QStringLiteral("Frame %1 of %2").arg(state.iCurrentFrame + 1).arg(record.iFrames);
             },
         .description =
             [this] {
                 return QStringLiteral("%1, %2x, %3")
                     .arg(Latin(lmk::RowOf(record.iMode).Caption))
                     .arg(lmk::ZoomIndexToFactor(record.iZoom))
                     .arg(Latin(Timer1.isActive() ? "playing" : "stopped"));
             }});
    picImage->SetBorder(kPictureBorder);
    picImage->SetBackground(QColor(192, 192, 192));
    picImage->setCursor(DrawCursor(kToolMagnify, devicePixelRatioF()));
    picImage->setFocusPolicy(Qt::StrongFocus);
    picImage->MouseDown = [this](const MouseArgs& args) { picImage_MouseDown(args); };
    SetHelp(picImage, kHelpFrame);
    lumrake::CreateControls(*this, nullptr, kControls);
    Bind(*this, "cmdControl", cmdControl);
    Connect(this, cmdControl, &QPushButton::clicked, &frmAnimation::cmdControl_Click);
    Timer1.setTimerType(Qt::PreciseTimer);
    QObject::connect(&Timer1, &QTimer::timeout, this, &frmAnimation::Timer1_Timer);
    EnableControls(false);
}

void frmAnimation::EnableControls(bool bPlaying) {
    for (QPushButton* button : cmdControl) {
        button->setEnabled((TagOf(button) == QLatin1String("STOP")) == bPlaying);
    }
}

void frmAnimation::Play() {
    EnableControls(true);
    Timer1.start();
    TellSpoken(picImage);
}

void frmAnimation::StopPlay() {
    Timer1.stop();
    EnableControls(false);
    TellSpoken(picImage);
}

void frmAnimation::Timer1_Timer() {
    NextFrame();
}

void frmAnimation::NextFrame() {
    if (lumrake::NextFrame(state, record)) {
        StopPlay();
    }
    ShowCurrentFrame();
}

void frmAnimation::PreviousFrame() {
    if (lumrake::PreviousFrame(state, record)) {
        StopPlay();
    }
    ShowCurrentFrame();
}

void frmAnimation::ShowCurrentFrame() {
    lmk::zxShowMem(&picImage->hDC(), byMemory.data(), FrameOffset(record, state.iCurrentFrame),
                   static_cast<std::int32_t>(byMemory.size()), record.iWidth, record.iLines, 1,
                   record.iUpsideDown * 128 | record.iZoom * 16 | record.iMode, record.byAttribute,
                   Settings.lPalette.data());
    picImage->update();
    if (!Timer1.isActive()) { // nobody can listen to the frames as they fly by
        TellSpoken(picImage);
    }
}

QSize frmAnimation::FrameSize() const {
    // A window of its own, without a main window, is laid out as the child it stands for.
    constexpr QSize kUsual(8, 28);
    auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget());
    if (frame == nullptr) {
        return kUsual;
    }
    const QMargins margins = frame->contentsMargins();
    return {margins.left() + margins.right(), margins.top() + margins.bottom()};
}

void frmAnimation::SetPositions() {
    SetCaption(this, QString::fromStdString(record.sTitle.Trimmed()));
    Timer1.setInterval(record.iPause);
    StopPlay();
    const std::int32_t factor = lmk::ZoomIndexToFactor(record.iZoom);
    const QSize picture(factor * record.iWidth + 2 * kPictureBorder,
                        factor * record.iLines + 2 * kPictureBorder);
    const QSize frame = FrameSize();
    const PlayerLayout layout = LayoutOf(picture.width(), picture.height(), frame.width());
    const QSize outer(layout.windowWidth, layout.windowHeight);
    QWidget* window = ChildFrame(this);
    window->setFixedSize(window == this ? outer - frame : outer);
    picImage->setGeometry(layout.pictureLeft, kPictureTop, picture.width(), picture.height());
    for (std::size_t i = 0; i < cmdControl.size(); ++i) {
        cmdControl[i]->move(layout.controlLeft[i], layout.controlTop);
    }
}

void frmAnimation::cmdControl_Click(int Index) {
    // In the order of the controls.
    static constexpr void (frmAnimation::*kProcedures[])() = {&frmAnimation::PreviousFrame,
                                                              &frmAnimation::StopPlay, &frmAnimation::Play,
                                                              &frmAnimation::NextFrame, &frmAnimation::Setup};
    const QPointer<frmAnimation> alive(this); // the setup dialog may outlive the window
    (this->*kProcedures[Index])();
    if (alive) {
        picImage->setFocus();
    }
}

/// The bytes and their length stay those of the launch: another snapshot counts when the animation is opened
/// next.
void frmAnimation::Setup() {
    AnimToGlobal();
    if (!AskForSettings()) {
        return;
    }
    state = PlayState();
    record = HeldForUse(record, record.lFileLength);
    ShowAgain(false);
    if (bAnimChanged != 0) {
        SetChanged(-1);
    }
}

void frmAnimation::ShowAgain(bool bPlaying) {
    SetPositions();
    ShowCurrentFrame();
    if (bPlaying) {
        Play();
    }
}

void frmAnimation::picImage_MouseDown(const MouseArgs& args) {
    const bool bPlaying = Timer1.isActive();
    if (args.Button == 1 && record.iZoom < 5) {
        ++record.iZoom;
        SetChanged(-1);
    } else if (args.Button == 2 && record.iZoom > 1) {
        --record.iZoom;
        SetChanged(-1);
    }
    ShowAgain(bPlaying);
}

void frmAnimation::SetZoom(std::int16_t NewZoom) {
    if (NewZoom == record.iZoom || lmk::ZoomIndexToFactor(NewZoom) == 0) {
        return;
    }
    const bool bPlaying = Timer1.isActive();
    SetChanged(-1);
    record.iZoom = NewZoom;
    ShowAgain(bPlaying);
}

void frmAnimation::Form_Activate() {
    Shell().SetStatusText(CaptionOf(this));
    Shell().UpdateToolbars(QStringLiteral("ANIMATION"), true);
    Shell().UpdateToolbars(QStringLiteral("SNAPSHOT"), false);
    Shell().EnableNetCommands(false); // no net lies in an animation
}

/// Alt+S is the key of Setup and of the main window's Snapshot menu, and the toolkit presses neither of two.
/// Here it is the button's for as long as that can be pressed; the menu has nothing for an animation.
bool frmAnimation::IsSetupKey(const QKeyEvent& event) const {
    return event.modifiers() == Qt::AltModifier && event.key() == Qt::Key_S && cmdControl[4]->isEnabled();
}

bool frmAnimation::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && IsSetupKey(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void frmAnimation::keyPressEvent(QKeyEvent* event) {
    if (IsSetupKey(*event)) {
        cmdControl[4]->click();
        return;
    }
    if (focusWidget() == picImage && (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
        for (const auto& [key, Index] : kPictureKeys) {
            if (event->key() == key && cmdControl[Index]->isEnabled()) {
                if (key != Qt::Key_Space || !event->isAutoRepeat()) {
                    cmdControl_Click(Index);
                }
                return;
            }
        }
    }
    if (event->key() != Qt::Key_Escape || !frmSnapshot::LetBlockGo()) {
        QWidget::keyPressEvent(event);
    }
}

} // namespace lumrake
