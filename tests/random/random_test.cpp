/// Somebody who does anything in any order. After every event the program has to be in order; the seed and the
/// number of the event are told and repeat the run (LUMRAKE_RANDOM_SEED, LUMRAKE_RANDOM_EVENTS). Time stands still:
/// animations play on events of the stream, so that nothing depends on the speed of the machine.
#include "random/in_order.h"

#include <QDir>
#include <QLoggingCategory>
#include <QMouseEvent>

namespace lumrake::testing {
namespace {

class RandomUser : public MainStage {
  public:
    explicit RandomUser(unsigned seed) : random_(seed) {
        SetMessageBoxAnswerer([this](const MessageBox& box) { return Answer(box); });
        SetFileDialogAnswerer([this](CommonDialog::Kind, const CommonDialog& dialog) {
            return ChooseFile(dialog.DialogTitle.contains(QLatin1String("Bitmap")));
        });
        QFile::copy(QStringLiteral(LUMRAKE_HELP_FILE), Path(QStringLiteral("LMKHELP.DAT")));
        qApp->installEventFilter(&clock_);
        Serve();
        Begin();
    }
    ~RandomUser() override { qApp->removeEventFilter(&clock_); }

    /// One event and what follows from it; false when the program is out of order.
    bool Step() {
        modalActions_ = 0;
        Act();
        do {
            QCoreApplication::processEvents();
        } while (QApplication::activePopupWidget() != nullptr ||
                 QApplication::activeModalWidget() != nullptr);
        if (ended > 0) {
            EXPECT_EQ(iSnapshotCount + iAnimationCount, 0) << "the run ended with open windows";
            ended = 0;
            EndRun();
            Begin();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Pass(*MainWindow(), QEvent(QEvent::UpdateRequest));
        const std::string faults = inspector_.Faults(held_ != 0);
        EXPECT_EQ(faults, "");
        return faults.empty();
    }

  private:
    /// Lets no timer tick but those of dialogs' painting and of this test itself, and keeps the main window from
    /// painting.
    class Clock : public QObject {
      public:
        bool eventFilter(QObject* watched, QEvent* event) override {
            const bool ticks = event->type() == QEvent::Timer && !watched->isWindowType() &&
                               qstrcmp(watched->metaObject()->className(), "QSingleShotTimer") != 0;
            const bool paints = event->type() == QEvent::UpdateRequest && watched == MainWindow();
            return !open && (ticks || paints);
        }
        bool open = false;
    };

    /// What the clock keeps back otherwise.
    void Pass(QObject& to, QEvent&& event) {
        clock_.open = true;
        QCoreApplication::sendEvent(&to, &event);
        clock_.open = false;
    }

    int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
    bool Once(int in) { return Pick(in) == 0; }
    template <class List> auto& OneOf(List& list) {
        return list[static_cast<std::size_t>(Pick(int(std::size(list))))];
    }
    void Begin() {
        MakeFile(QStringLiteral("One.sna"), NoiseBytes(1));
        MakeFile(QStringLiteral("game one.SNA"), NoiseBytes(49179));
        MakeFile(QStringLiteral("\u00dcber & unter.z80"), NoiseBytes(700));
        MakeFile(QStringLiteral("empty.raw"), {});
        MakeFile(QStringLiteral("Walk.ANM"),
                 EncodeAnimation(SampleRecord(Path(QStringLiteral("game one.SNA")))));
        MakeFile(QStringLiteral("lost.anm"), EncodeAnimation(SampleRecord(QStringLiteral("gone.sna"))));
        Start();
    }

    BoxAnswer Answer(const MessageBox& box) {
        const BoxAnswer some[] = {BoxAnswer::Yes, BoxAnswer::No, BoxAnswer::Yes, BoxAnswer::Cancel};
        return box.buttons == BoxButtons::Ok ? BoxAnswer::Ok
                                             : some[Pick(box.buttons == BoxButtons::YesNo ? 3 : 4)];
    }

    QString ChooseFile(bool bitmap) {
        const frmSnapshot* active = MainWindow()->ActiveSnapshot();
        if (bitmap && active != nullptr && active->GetZoom() > 3) { // they would take most of the time
            return {};
        }
        QStringList names = QDir(Path(QString())).entryList(QDir::Files);
        names << QStringLiteral("New.dat") << QStringLiteral("no such place/x.sna") << QString();
        const QString name = OneOf(names);
        return name.isEmpty() ? name : Path(name);
    }

    /// Looks for what waits for an answer, in whatever loop of events the program now is.
    void Serve() {
        QTimer::singleShot(0, &guard_, [this] {
            Serve();
            QWidget* popup = QApplication::activePopupWidget();
            QWidget* modal = popup != nullptr ? popup : QApplication::activeModalWidget();
            if (modal != nullptr && (++modalActions_ > 20 || Once(8))) {
                modal->close();
            } else if (popup != nullptr) {
                const Qt::Key keys[] = {Qt::Key_Return, Qt::Key_Down, Qt::Key_Up, Qt::Key_Right};
                QTest::keyClick(popup, OneOf(keys));
            } else if (modal != nullptr) {
                UseOneOf(*modal);
            }
        });
    }

    /// Keys of all kinds, held ones too, numbers and turns for any control.
    QString SomeWords() {
        static const QStringList words =
            u"Ctrl+%1|Alt+%1|%1|+%1|-%1|F%2|Ctrl+F%2|Esc|Return|Backspace|Space|+Space|=Space|-Space|"
            "Left|Right|Up|Down|PgUp|PgDown|Home|End|Ctrl+Left|Ctrl+Down|Shift+Right|Shift+Up|"
            "Home Shift+End %3|Home %3|Shift+Home -1|Home 99999999999|"
            "wheel%4|side%4|shift,wheel%4|ctrl,wheel%4|shift,ctrl,wheel%4|held,wheel%4"_qs.split(u'|');
        const QString letter = QChar(u'A' + Pick(26));
        return QString(OneOf(words))
            .replace(u"%1"_qs, letter)
            .replace(u"%2"_qs, QString::number(1 + Pick(12)))
            .replace(u"%3"_qs, QString::number(Pick(Once(2) ? 20 : 1000)))
            .replace(u"%4"_qs, QString::number(Pick(481) - 240));
    }

    /// Buttons are clicked; what lies under the mouse, or has the focus, is used with the mouse, keys and the wheel.
    void UseOneOf(QWidget& parent) {
        QList<QWidget*> controls = parent.findChildren<QWidget*>();
        controls.removeIf([](const QWidget* one) { return !one->isEnabled() || !one->isVisible(); });
        if (controls.isEmpty()) {
            return;
        }
        QPointer<QWidget> control = OneOf(controls);
        const bool clicked = qobject_cast<QAbstractButton*>(control.data()) != nullptr && !Once(4);
        if (!clicked && Once(2)) {
            Use(parent, (Once(2) ? u"@it "_qs : QString()) + SomeWords(), {{u"it"_qs, control}});
            return;
        }
        const QPoint at = clicked ? control->rect().center()
                                  : QPoint(Pick(control->width() + 1), Pick(control->height() + 1));
        const Qt::MouseButton button = !clicked && Once(4) ? Qt::RightButton : Qt::LeftButton;
        const QPoint inWindow = control->mapTo(control->window(), at);
        if (QWidget* above = control->window()->childAt(inWindow)) { // as a real mouse finds it
            control = above;
        }
        const QPointF place = control->mapFrom(control->window(), inWindow);
        Send(*control, QEvent::MouseButtonPress, button, button, place);
        if (control) {
            Send(*control, QEvent::MouseButtonRelease, button, Qt::NoButton, place);
        }
    }

    static void Send(QWidget& to, QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held,
                     QPointF at) {
        QMouseEvent event(type, at, to.mapToGlobal(at), button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&to, &event);
    }

    /// The mouse over the picture or the block on it. The control that was pressed has the mouse until no button
    /// is held any more.
    void Draw(const SnapshotProbe& probe) {
        const bool overClip = probe.Clip().isVisible() && Once(2);
        if (grabber_.isNull() || !held_) {
            held_ = Qt::NoButton;
            grabber_ = overClip ? static_cast<QWidget*>(&probe.Clip()) : &probe.Picture();
        }
        const Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
        const Qt::MouseButton button = Once(2) ? OneOf(buttons) : Qt::NoButton;
        const QEvent::Type type = button == Qt::NoButton   ? QEvent::MouseMove
                                  : held_.testFlag(button) ? QEvent::MouseButtonRelease
                                  : Once(4)                ? QEvent::MouseButtonDblClick
                                                           : QEvent::MouseButtonPress;
        const int reach = Once(4) ? 100000 : 300;
        const QPointF at(Pick(reach) - reach / 10, Pick(reach) - reach / 10);
        held_ ^= button;
        Send(*grabber_, type, button, held_, at);
    }

    void Tick() {
        for (frmAnimation* animation : Forms<frmAnimation>()) {
            QTimer& timer = AnimationProbe{*animation}.Timer();
            if (timer.isActive()) {
                Pass(timer, QTimerEvent(timer.timerId()));
            }
        }
    }

    void Command() {
        QList<QAction*> commands = MainWindow()->findChildren<QAction*>();
        commands.removeIf([](const QAction* one) { return one->menu() != nullptr || !one->isVisible(); });
        QAction* command = OneOf(commands);
        if (command != MainWindow()->Entry(Menu::menu_exit) || Once(3)) {
            command->trigger();
        }
    }

    void Act() {
        frmSnapshot* active = MainWindow()->ActiveSnapshot();
        const int windows = iSnapshotCount + iAnimationCount;
        const int n = Pick(100);
        if (windows == 0 || (n < 3 && windows < 5)) {
            Click(n % 3 == 0 ? Menu::menu_animation : Menu::menu_open, n % 3 == 0 ? 2 : 0);
        } else if (n < 36 && active != nullptr) {
            Draw({*active});
        } else if (n < 44 && active != nullptr) {
            Use(*active, u"@picture "_qs + SomeWords(), {{u"picture"_qs, &SnapshotProbe{*active}.Picture()}});
        } else if (n < 52) {
            Tick();
        } else if (n < 64) {
            Command();
        } else {
            UseOneOf(n < 80 && active != nullptr ? static_cast<QWidget&>(*active)
                     : n < 85                    ? static_cast<QWidget&>(Bar())
                                                 : *MainWindow());
        }
    }

    std::mt19937 random_;
    Inspector inspector_;
    Qt::MouseButtons held_; ///< over the picture, by
    QPointer<QWidget> grabber_;
    int modalActions_ = 0; ///< in the event under way
    Clock clock_;
    QObject guard_; ///< the last member, so that no event is served after it
};

TEST(RandomUse, LeavesTheProgramInOrder) {
    const int seed = qEnvironmentVariable("LUMRAKE_RANDOM_SEED", QStringLiteral("1")).toInt();
    const int events = qEnvironmentVariable("LUMRAKE_RANDOM_EVENTS", QStringLiteral("3000")).toInt();
    // The platform without a screen says of much that it cannot do it.
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
    RandomUser user(static_cast<unsigned>(seed));
    for (int event = 1; event <= events; ++event) {
        ASSERT_TRUE(user.Step()) << "seed " << seed << ", event " << event;
    }
}

} // namespace
} // namespace lumrake::testing
