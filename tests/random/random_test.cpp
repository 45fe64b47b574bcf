/// Somebody who does anything in any order. After every event the program has to be in order; the seed and the
/// number of the event are told and repeat the run (LUMRAKE_RANDOM_SEED, LUMRAKE_RANDOM_EVENTS). Time stands still:
/// animations play on events of the stream, so that nothing depends on the speed of the machine.
#include "animation/anim_support.h"
#include "shell/main_stage.h"
#include "snapshot/frmClip.h"
#include "snapshot/snapshot_probe.h"

#include <QAbstractSlider>
#include <QDir>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPointer>
#include <QToolButton>

#include <deque>
#include <map>
#include <random>
#include <set>
#include <sstream>

namespace lumrake::testing {
namespace {

/// The platform without a screen says of much that it cannot do it.
void DropWarnings(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        std::fprintf(stderr, "%s\n", qPrintable(text));
    }
}

int NumberFromEnvironment(const char* name, int usual) {
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : usual;
}

class RandomUser : public MainStage {
  public:
    explicit RandomUser(unsigned seed) : random_(seed) {
        SetMessageBoxAnswerer([this](const MessageBox& box) { return Answer(box); });
        SetFileDialogAnswerer(
            [this](CommonDialog::Kind kind, const CommonDialog& dialog) { return ChooseFile(kind, dialog); });
        QFile::copy(QStringLiteral(LUMRAKE_HELP_FILE), Path(QStringLiteral("LMKHELP.DAT")));
        qApp->installEventFilter(&clock_);
        Serve();
        Begin();
    }
    ~RandomUser() override { qApp->removeEventFilter(&clock_); }

    /// One event and what follows from it; false when the program is out of order.
    bool Step();
    std::string Recent() const {
        std::string text;
        for (const std::string& event : recent_) {
            text += "\n  " + event;
        }
        return text;
    }

    std::size_t Trace() const { return trace_; }

  private:
    struct Shadow {
        QPointer<frmSnapshot> form;
        std::vector<std::uint8_t> bytes;
        ViewNumbers view;
    };
    /// Lets no timer tick but those of painting and of this test itself.
    class Clock : public QObject {
      public:
        bool eventFilter(QObject* watched, QEvent* event) override {
            return event->type() == QEvent::Timer && !open && !watched->isWindowType() &&
                   qstrcmp(watched->metaObject()->className(), "QSingleShotTimer") != 0;
        }
        bool open = false;
    };

    int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
    bool Once(int in) { return Pick(in) == 0; }
    template <class List> auto& OneOf(List& list) {
        return list[static_cast<std::size_t>(Pick(int(std::size(list))))];
    }
    void Note(const std::string& event) {
        recent_.push_back(event);
        trace_ = trace_ * 31 + std::hash<std::string>()(event);
        if (recent_.size() > 25) {
            recent_.pop_front();
        }
    }

    void Begin();
    BoxAnswer Answer(const MessageBox& box);
    QString ChooseFile(CommonDialog::Kind kind, const CommonDialog& dialog);
    void Serve();
    void UseDialog(QWidget& dialog);
    void UsePopup(QWidget& popup);
    void UseControl(QWidget& control);
    static void Send(QWidget& to, QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held,
                     QPointF at);
    void Key();
    void DrawEvent(frmSnapshot& form);
    void Act();

    template <class Form> std::vector<Form*> Forms() const {
        std::vector<Form*> forms;
        for (QMdiSubWindow* frame : MainWindow()->findChildren<QMdiSubWindow*>()) {
            if (auto* form = dynamic_cast<Form*>(frame->widget()); form != nullptr && !frame->isHidden()) {
                forms.push_back(form);
            }
        }
        return forms;
    }
    bool Check();
    void CheckView(const SnapshotProbe& probe, std::ostream& out);
    void CheckBytes(frmSnapshot& form, std::ostream& out);
    void CheckCommands(std::ostream& out) const;

    std::mt19937 random_;
    std::deque<std::string> recent_;
    std::size_t trace_ = 0; ///< of all events: two runs of one seed have the same
    std::map<frmSnapshot*, Shadow> shadows_;
    Qt::MouseButtons held_; ///< over the picture, by
    QPointer<QWidget> grabber_;
    int modalActions_ = 0; ///< in the event under way
    Clock clock_;
    QObject guard_; ///< the last member, so that no event is served after it
};

void RandomUser::Begin() {
    iSnapshotCount = iAnimationCount = 0;
    const std::pair<const char*, std::size_t> contents[] = {{"One.sna", 1},
                                                            {"game one.SNA", 49179},
                                                            {"\xc3\x9c"
                                                             "ber & unter.z80",
                                                             700},
                                                            {"\xd0\xba\xd0\xbb\xd1\x8e\xd1\x87.tap", 6912},
                                                            {"empty.raw", 0}};
    for (const auto& [name, size] : contents) {
        MakeFile(QString::fromUtf8(name), NoiseBytes(size, static_cast<std::uint32_t>(size)));
    }
    AnimationRecord record = SampleRecord(Path(QStringLiteral("game one.SNA")));
    MakeFile(QStringLiteral("Walk.ANM"), EncodeAnimation(record));
    record.iRepeat = kPingPong;
    record.sSnapFile.Set("gone.sna");
    MakeFile(QStringLiteral("lost.anm"), EncodeAnimation(record));
    Start();
}

BoxAnswer RandomUser::Answer(const MessageBox& box) {
    QString text = box.text; // without the directory, which is another one in every run
    Note("box " + text.remove(Path(QString()), Qt::CaseInsensitive).toStdString());
    const int n = Pick(3);
    switch (box.buttons) {
    case BoxButtons::Ok: return BoxAnswer::Ok;
    case BoxButtons::YesNo: return n == 0 ? BoxAnswer::No : BoxAnswer::Yes;
    default: return n == 0 ? BoxAnswer::Cancel : n == 1 ? BoxAnswer::Yes : BoxAnswer::No;
    }
}

QString RandomUser::ChooseFile(CommonDialog::Kind kind, const CommonDialog& dialog) {
    const int n = Pick(8);
    const QStringList there = QDir(Path(QString())).entryList(QDir::Files);
    const int which = Pick(static_cast<int>(there.size()));
    const frmSnapshot* active = MainWindow()->ActiveSnapshot();
    const bool large =
        active != nullptr && active->GetZoom() > 3 && dialog.DialogTitle.contains(QLatin1String("Bitmap"));
    if (n == 0 || large) { // the largest bitmaps would take most of the time
        return {};
    }
    if (n == 1) {
        return Path(QStringLiteral("no such place/x.sna"));
    }
    if (n < 5 && kind == CommonDialog::Kind::Save) {
        return Path(QStringLiteral("New %1.dat").arg(n));
    }
    return Path(there[which]);
}

/// Looks for what waits for an answer, in whatever loop of events the program now is.
void RandomUser::Serve() {
    QTimer::singleShot(0, &guard_, [this] {
        Serve();
        if (QWidget* popup = QApplication::activePopupWidget()) {
            UsePopup(*popup);
        } else if (QWidget* dialog = QApplication::activeModalWidget()) {
            UseDialog(*dialog);
        }
    });
}

void RandomUser::UsePopup(QWidget& popup) {
    const int n = Pick(6);
    Note("popup " + std::to_string(n));
    if (++modalActions_ > 20) {
        popup.close();
    } else {
        const Qt::Key keys[] = {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Down,
                                Qt::Key_Down,   Qt::Key_Up,     Qt::Key_Right};
        QTest::keyClick(&popup, keys[n]);
    }
}

void RandomUser::UseDialog(QWidget& dialog) {
    if (++modalActions_ > 20 || Once(8)) {
        Note("close dialog");
        dialog.close();
        return;
    }
    QList<QWidget*> controls = dialog.findChildren<QWidget*>();
    controls.removeIf([](const QWidget* control) { return !control->isEnabled() || !control->isVisible(); });
    if (!controls.isEmpty()) {
        UseControl(*OneOf(controls));
    }
}

void RandomUser::UseControl(QWidget& control) {
    Note("control " + std::string(control.metaObject()->className()) + ' ' +
         (control.objectName() + control.toolTip()).toStdString());
    const int n = Pick(1000);
    const int sign = Pick(2);
    if (auto* pushed = qobject_cast<QAbstractButton*>(&control)) {
        pushed->click();
    } else if (auto* slider = qobject_cast<QAbstractSlider*>(&control)) {
        if (dynamic_cast<SpinBar*>(slider) == nullptr) {
            slider->setValue(slider->minimum() + n % (slider->maximum() - slider->minimum() + 1));
        }
        slider->triggerAction(static_cast<QAbstractSlider::SliderAction>(1 + n % 6));
    } else if (auto* combo = qobject_cast<QComboBox*>(&control); combo != nullptr && combo->count() > 0) {
        combo->setCurrentIndex(n % combo->count());
    } else if (qobject_cast<QLineEdit*>(&control) != nullptr ||
               qobject_cast<QPlainTextEdit*>(&control) != nullptr) {
        control.setFocus();
        const QString texts[] = {QString::number(n), QString::number(n % 20), QStringLiteral("-1"),
                                 QStringLiteral("99999999999"), QStringLiteral(" 8 a")};
        if (sign == 0) {
            QTest::keyClick(&control, Qt::Key_Home);
            QTest::keyClick(&control, Qt::Key_End, Qt::ShiftModifier);
        }
        QTest::keyClicks(&control, texts[n % 5]);
    } else {
        const QPointF at(Pick(std::max(control.width(), 1)), Pick(std::max(control.height(), 1)));
        const Qt::MouseButton button = n % 4 == 0 ? Qt::RightButton : Qt::LeftButton;
        const QPointer<QWidget> alive(&control);
        Send(control, QEvent::MouseButtonPress, button, button, at);
        if (alive) {
            Send(control, QEvent::MouseButtonRelease, button, Qt::NoButton, at);
        }
    }
}

void RandomUser::Send(QWidget& to, QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held,
                      QPointF at) {
    QMouseEvent event(type, at, to.mapToGlobal(at), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&to, &event);
}

void RandomUser::Key() {
    struct Stroke {
        Qt::Key first, last;
        Qt::KeyboardModifiers with;
    };
    static const Stroke strokes[] = {
        {Qt::Key_0, Qt::Key_9, Qt::NoModifier},           {Qt::Key_A, Qt::Key_Z, Qt::ControlModifier},
        {Qt::Key_F1, Qt::Key_F12, Qt::NoModifier},        {Qt::Key_F1, Qt::Key_F6, Qt::ControlModifier},
        {Qt::Key_Escape, Qt::Key_Enter, Qt::NoModifier},  {Qt::Key_Delete, Qt::Key_Delete, Qt::NoModifier},
        {Qt::Key_Home, Qt::Key_PageDown, Qt::NoModifier}, {Qt::Key_A, Qt::Key_Z, Qt::AltModifier}};
    const Stroke& stroke = OneOf(strokes);
    const auto key = static_cast<Qt::Key>(stroke.first + Pick(stroke.last - stroke.first + 1));
    QWidget* focus = QApplication::focusWidget();
    Note("key " + QKeySequence(key | stroke.with).toString().toStdString());
    QTest::keyClick(focus != nullptr ? focus : MainWindow(), key, stroke.with);
}

/// The mouse over the picture or the block on it. The control that was pressed has the mouse until no button is
/// held any more.
void RandomUser::DrawEvent(frmSnapshot& form) {
    const SnapshotProbe probe{form};
    if (grabber_.isNull()) {
        held_ = Qt::NoButton;
    }
    if (!held_) {
        grabber_ =
            probe.Clip().isVisible() && Once(2) ? static_cast<QWidget*>(&probe.Clip()) : &probe.Picture();
    }
    const Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
    const Qt::MouseButton button = OneOf(buttons);
    const int reach = Once(4) ? 100000 : 300;
    const QPointF at(Pick(reach) - reach / 10, Pick(reach) - reach / 10);
    QEvent::Type type = Once(2)                  ? QEvent::MouseMove
                        : held_.testFlag(button) ? QEvent::MouseButtonRelease
                        : Once(4)                ? QEvent::MouseButtonDblClick
                                                 : QEvent::MouseButtonPress;
    if (type != QEvent::MouseMove) {
        held_ ^= button;
    }
    std::ostringstream text;
    text << "mouse " << type << " button " << button << " tool " << iCurrentTool << " at " << at.x() << ','
         << at.y();
    Note(text.str());
    Send(*grabber_, type, type == QEvent::MouseMove ? Qt::NoButton : button, held_, at);
}

void RandomUser::Act() {
    frmMain& main = *MainWindow();
    frmSnapshot* active = main.ActiveSnapshot();
    const int windows = iSnapshotCount + iAnimationCount;
    const int n = Pick(100);
    if (windows == 0 || (n < 3 && windows < 5)) {
        Note("open");
        Click(n % 3 == 0 ? Menu::menu_animation : Menu::menu_open, n % 3 == 0 ? 2 : 0);
    } else if (n < 45 && active != nullptr) {
        DrawEvent(*active);
    } else if (n < 55) {
        Key();
    } else if (n < 62 && active != nullptr) {
        const auto bar = static_cast<std::size_t>(Pick(5));
        QWidget& control = Once(2) && bar < 4 ? static_cast<QWidget&>(SnapshotProbe{*active}.Box(bar))
                           : bar < 4          ? SnapshotProbe{*active}.Spin(bar)
                                              : SnapshotProbe{*active}.Bar();
        if (control.isEnabled()) {
            UseControl(control);
        }
    } else if (n < 70) {
        if (QWidget* tool = Bar().findChildren<QToolButton*>().value(Pick(18));
            tool != nullptr && tool->isVisible()) {
            UseControl(*tool);
        }
    } else if (n < 80) {
        for (frmAnimation* animation : Forms<frmAnimation>()) {
            if (AnimationProbe{*animation}.Playing()) {
                QTimerEvent tick(AnimationProbe{*animation}.Timer().timerId());
                clock_.open = true;
                QCoreApplication::sendEvent(&AnimationProbe{*animation}.Timer(), &tick);
                clock_.open = false;
            }
        }
    } else if (n < 92) {
        QList<QAction*> commands;
        for (QAction* action : main.findChildren<QAction*>()) {
            if (action->menu() == nullptr && !action->isSeparator() && action->isVisible()) {
                commands << action;
            }
        }
        QAction* command = OneOf(commands);
        if (command != main.Entry(Menu::menu_exit) || Once(3)) {
            QString text = command->text();
            Note("command " + text.remove(Path(QString()), Qt::CaseInsensitive).toStdString());
            command->trigger();
        }
    } else {
        QList<QWidget*> controls = main.findChildren<QWidget*>();
        controls.removeIf(
            [](const QWidget* control) { return !control->isEnabled() || !control->isVisible(); });
        UseControl(*OneOf(controls));
    }
}

bool RandomUser::Step() {
    modalActions_ = 0;
    Act();
    QCoreApplication::processEvents();
    while (QApplication::activePopupWidget() != nullptr || QApplication::activeModalWidget() != nullptr) {
        QCoreApplication::processEvents();
    }
    if (ended > 0) {
        EXPECT_EQ(iSnapshotCount + iAnimationCount, 0) << "the run ended with open windows";
        ended = 0;
        EndRun();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Begin();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return Check();
}

void RandomUser::CheckView(const SnapshotProbe& probe, std::ostream& out) {
    const ViewNumbers& view = probe.View();
    const auto within = [&out](const char* what, int value, int least, int most) {
        if (value < least || value > most) {
            out << what << " is " << value << "; ";
        }
    };
    within("lOffset", view.lOffset, 0, view.lFileLength - 1);
    within("iWidth", view.iWidth, 8, 256);
    within("iWidth mod 8", view.iWidth % 8, 0, 0);
    within("iLines", view.iLines, 1, 512);
    within("iColumns", view.iColumns, 1, view.iMode == kScreen || view.iMode == kText ? 1 : 16);
    within("iMode", view.iMode, 0, 4);
    within("iZoom", view.iZoom, 1, 5);
    within("iZoomFactor", view.iZoomFactor, 1 << (view.iZoom - 1), 1 << (view.iZoom - 1));
    within("iUpsideDown", view.iUpsideDown, 0, 1);
    if (view.iMode == kScreen) {
        within("width of Screen", view.iWidth, 256, 256);
        within("lines of Screen", view.iLines, 192, 192);
    }
    const std::int32_t numbers[] = {view.lOffset, view.iWidth, view.iLines, view.iColumns};
    for (std::size_t box = 0; box < 4; ++box) {
        const QString text = probe.Box(box).text();
        const int shown = text.isEmpty() ? (box == 0 ? 0 : 1) : text.toInt();
        within("difference of a value box", shown - numbers[box], 0, 0);
    }
    const lmk::DeviceContext& shown = probe.Picture().hDC();
    if (shown.ScreenWidth() != view.ScreenWidth() || shown.ScreenHeight() != view.ScreenHeight() ||
        probe.Picture().size() != QSize(view.ScreenWidth(), view.ScreenHeight())) {
        out << "the picture has another size; ";
        return;
    }
    for (int sample = 0; sample < 16; ++sample) {
        const int x = Pick(view.PictureWidth()), y = Pick(view.iLines);
        const auto z = static_cast<float>(view.iZoomFactor);
        const int bit =
            ReadPixel(probe.Memory().Bytes(), view, static_cast<float>(x) * z, static_cast<float>(y) * z);
        if (shown.Picture().PixelAt(x, y) != (bit != 0)) {
            out << "pixel " << x << ',' << y << " is shown wrong; ";
        }
    }
}

/// Every byte that changed belongs to a pixel of the view as it was before the event or is now.
void RandomUser::CheckBytes(frmSnapshot& form, std::ostream& out) {
    const SnapshotProbe probe{form};
    Shadow& shadow = shadows_[&form];
    const auto now = probe.Memory().Bytes();
    if (shadow.form != &form) { // one that opened just now, maybe where a closed one lay
        shadow = {&form, {now.begin(), now.end()}, probe.View()};
        return;
    }
    if (!std::equal(now.begin(), now.end(), shadow.bytes.begin(), shadow.bytes.end())) {
        if (probe.Changed() == 0) {
            out << "bytes changed and the document did not; ";
        }
        std::vector<bool> addressed(now.size());
        for (ViewNumbers view : {shadow.view, probe.View()}) {
            view.iZoom = view.iZoomFactor = 1;
            for (int y = 0; y < view.iLines; ++y) {
                for (int x = 0; x < view.PictureWidth(); x += 8) {
                    const auto at = LocatePixel(view, static_cast<float>(x), static_cast<float>(y));
                    if (at && static_cast<std::size_t>(at->lAddress) < addressed.size()) {
                        addressed[static_cast<std::size_t>(at->lAddress)] = true;
                    }
                }
            }
        }
        for (std::size_t i = 0; i < now.size(); ++i) {
            if (now[i] != shadow.bytes[i] && !addressed[i]) {
                out << "byte " << i << " is in no view and changed; ";
            }
        }
        shadow.bytes.assign(now.begin(), now.end());
    }
    shadow.view = probe.View();
}

void RandomUser::CheckCommands(std::ostream& out) const {
    const frmMain& main = *MainWindow();
    const QWidget* active = main.ActiveForm();
    frmSnapshot* snapshot = main.ActiveSnapshot();
    const bool any = iSnapshotCount + iAnimationCount > 0;
    const auto expect = [&](bool on, Menu name, int first, int last) {
        for (int Index = first; Index <= last; ++Index) {
            if (main.Entry(name, Index)->isEnabled() != on) {
                out << "command " << main.Entry(name, Index)->text().toStdString()
                    << (on ? " is off; " : " is on; ");
            }
        }
    };
    expect(snapshot != nullptr, Menu::menu_save, 0, 0);
    expect(snapshot != nullptr, Menu::menu_saveas, 0, 0);
    expect(snapshot != nullptr, Menu::menu_exportviews, 0, 0);
    expect(snapshot != nullptr, Menu::menu_mode, 0, 4);
    expect(snapshot != nullptr, Menu::menu_snapshot, 0, 3);
    expect(active != nullptr && snapshot == nullptr, Menu::menu_animation, 3, 4);
    expect(active != nullptr && snapshot == nullptr, Menu::menu_animationtogif, 0, 0);
    expect(any, Menu::menu_zoomopt, 0, 0);
    if (!any || frmClip::Instance().IsEmpty() == 0) { // a copy of nothing leaves Paste on
        expect(any, Menu::menu_edit, 3, 3);
    }
    bool net = false, open = false; // while it is dragged, and when it is one pixel that grew with the zoom
    if (snapshot != nullptr) {
        const auto& shape = SnapshotProbe{*snapshot}.Net();
        net = shape.Visible && !shape.Frame && shape.Width > 1;
        open = shape.Visible && !shape.Frame &&
               (held_ || !shape.Dotted || shape.Width <= SnapshotProbe{*snapshot}.View().iZoomFactor);
    }
    if (!open) {
        expect(net, Menu::menu_edit, 1, 2);
        expect(net, Menu::menu_edit, 4, 4);
        expect(net, Menu::menu_exportselect, 0, 0);
    }
    for (int mode = 0; snapshot != nullptr && mode <= 4; ++mode) {
        if (main.Entry(Menu::menu_mode, mode)->isChecked() != (snapshot->GetMode() == mode)) {
            out << "tick of mode " << mode << "; ";
        }
    }
    if (snapshot != nullptr &&
        main.Entry(Menu::menu_snapshot, 2)->isChecked() != (snapshot->GetFlip() != 0)) {
        out << "tick of the flip; ";
    }
    if ((active != nullptr) != any) {
        out << "no child is active; ";
    }
}

bool RandomUser::Check() {
    std::ostringstream out;
    const auto snapshots = Forms<frmSnapshot>();
    const auto animations = Forms<frmAnimation>();
    if (iSnapshotCount != static_cast<int>(snapshots.size()) ||
        iAnimationCount != static_cast<int>(animations.size())) {
        out << "counted " << iSnapshotCount << " and " << iAnimationCount << " windows, open are "
            << snapshots.size() << " and " << animations.size() << "; ";
    }
    for (frmSnapshot* form : snapshots) {
        CheckView({*form}, out);
        CheckBytes(*form, out);
    }
    for (frmAnimation* form : animations) {
        const AnimationProbe probe{*form};
        if (probe.State().iCurrentFrame < 0 || probe.State().iCurrentFrame >= probe.Record().iFrames) {
            out << "frame " << probe.State().iCurrentFrame << "; ";
        }
        if (HeldForUse(probe.Record(), probe.Record().lFileLength) != probe.Record()) {
            out << "a record out of its limits; ";
        }
    }
    CheckCommands(out);
    if (iCurrentTool < kToolPlacing || iCurrentTool > kToolPan ||
        (iCurrentTool == kToolPlacing && SnapshotProbe::Placing() == nullptr)) {
        out << "tool " << iCurrentTool << "; ";
    }
    if (QGuiApplication::overrideCursor() != nullptr) {
        out << "an hourglass is left; ";
    }
    EXPECT_EQ(out.str(), "") << (MainWindow()->ActiveSnapshot() != nullptr ? "snapshot" : "no snapshot")
                             << " active, after:" << Recent();
    return out.str().empty();
}

TEST(RandomUse, LeavesTheProgramInOrder) {
    const int seed = NumberFromEnvironment("LUMRAKE_RANDOM_SEED", 1);
    const int events = NumberFromEnvironment("LUMRAKE_RANDOM_EVENTS", 3000);
    std::printf("seed %d, %d events\n", seed, events);
    std::fflush(stdout);
    qInstallMessageHandler(DropWarnings);
    RandomUser user(static_cast<unsigned>(seed));
    for (int event = 1; event <= events; ++event) {
        ASSERT_TRUE(user.Step()) << "seed " << seed << ", event " << event;
    }
    std::printf("trace %zx\n", user.Trace());
}

} // namespace
} // namespace lumrake::testing
