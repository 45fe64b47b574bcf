#include "about/frmAbout.h"
#include "animation/anim_support.h"
#include "assistant/rules/help_file.h"
#include "controls/colour_button.h"
#include "controls/tab_strip.h"
#include "preferences/frmPrefs.h"
#include "shell/main_stage.h"
#include "shell/window/file_commands.h"
#include "snapshot/frmColours.h"
#include "snapshot/snapshot_probe.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QLabel>
#include <QScreen>
#include <QToolTip>

namespace lumrake::testing {
namespace {

constexpr int kNever = -1; ///< nothing is said and the bubble stays as it is
constexpr int kUnknown = 999;

/// Controls of one array on a page of the form, and the help number of the first: on a move of the mouse and
/// on the focus. The others follow it one by one.
struct Array {
    int page;
    const char* name;
    int first, count, onMove, onFocus;
};

/// Counts the controls below `node` that a screen reader finds: all that can have the focus or were given a name.
/// One that lacks a name or a role of its own fails the test.
int Named(QAccessibleInterface* node) {
    if (node == nullptr || !node->isValid() || node->state().invisible) {
        return 0;
    }
    const auto* widget = qobject_cast<QWidget*>(node->object());
    int named = node->state().focusable || (widget != nullptr && !widget->accessibleName().isEmpty()) ? 1 : 0;
    EXPECT_TRUE(named == 0 || (node->role() != QAccessible::NoRole && node->role() != QAccessible::Client &&
                               !node->text(QAccessible::Name).trimmed().isEmpty()))
        << (node->object() ? node->object()->objectName().toStdString() : "a part");
    for (int i = 0; i < node->childCount(); ++i) {
        named += Named(node->child(i));
    }
    return named;
}

void ExpectNames(QWidget& window, int atLeast) {
    EXPECT_GE(Named(QAccessible::queryAccessibleInterface(&window)), atLeast);
}

/// What stands where on a form: a line for each control, deeper ones further right. Parts of the toolkit's own controls
/// are left out.
void Describe(const QWidget& control, const QString& indent, QString& lines) {
    const QRect at = control.geometry();
    const QPoint place = indent.isEmpty() ? QPoint() : at.topLeft();
    const QVariant title = control.property("title"), text = control.property("text");
    lines += indent + QLatin1String(control.metaObject()->className()) + u' ' + control.objectName() +
             u" %1,%2 %3x%4"_qs.arg(place.x()).arg(place.y()).arg(at.width()).arg(at.height()) +
             (control.isHidden() ? u" hidden"_qs : QString()) + u" | "_qs + title.toString() +
             text.toString() + u" | "_qs + control.toolTip().replace(u'\n', u' ') + u'\n';
    if (control.inherits("QComboBox") || control.inherits("QAbstractScrollArea") ||
        control.inherits("QLineEdit") || control.inherits("QTabBar")) {
        return;
    }
    for (const QObject* child : control.children()) {
        if (child->isWidgetType() && !child->objectName().startsWith(u"qt")) { // not a tip that just shows
            Describe(static_cast<const QWidget&>(*child), indent + u"  "_qs, lines);
        }
    }
}

/// The form is laid out as its list in tests/shell/forms/ says. LUMRAKE_WRITE_FORMS=1 writes the lists anew, to be read
/// before they are kept.
void ExpectLaidOut(const QWidget& form, const QString& name) {
    QString lines;
    Describe(form, {}, lines);
    QFile list(u"%1/%2.txt"_qs.arg(QStringLiteral(LUMRAKE_FORMS), name));
    if (qEnvironmentVariableIsSet("LUMRAKE_WRITE_FORMS")) {
        ASSERT_TRUE(list.open(QIODevice::WriteOnly) && list.write(lines.toUtf8()) > 0);
        return;
    }
    ASSERT_TRUE(list.open(QIODevice::ReadOnly)) << name.toStdString();
    EXPECT_EQ(lines.toStdString(), list.readAll().toStdString());
}

/// The whole program with the assistant on and the help file that it comes with.
class Prompts : public ::testing::Test {
  protected:
    Prompts() {
        QFile::copy(QStringLiteral(LUMRAKE_HELP_FILE), stage.Path(QStringLiteral("LMKHELP.DAT")));
        const auto bytes = stage.ReadFile(QStringLiteral("LMKHELP.DAT"));
        help.assign(bytes.begin(), bytes.end());
        main.resize(1300, 1000); // the assistant stands beside the children
        stage.Click(Menu::menu_fizzlet);
        bubble = Find<QLabel>(main, "lblBubble");
    }
    void Open(QWidget& form, int number) {
        main.ShowPrompt(kUnknown);
        form.show();
        form.activateWindow();
        WaitForActive(form);
        ExpectSaid(number, form, {});
        ExpectNames(form, 2);
        ExpectLaidOut(form, form.windowTitle());
        const QPoint off = form.frameGeometry().center() - form.screen()->geometry().center();
        EXPECT_LE(off.manhattanLength(), 4) << "not in the middle";
        Hover(form, {1, 1}, 0);
    }
    void ExpectSaid(int number, const QWidget& control, QPoint place) const {
        const std::string said = bubble->isVisible() ? bubble->text().toStdString() : std::string();
        const auto unknown = number == 0 ? "" : "Sorry, I can't help you with that one!";
        EXPECT_EQ(said, FindPrompt(help, number).value_or(unknown))
            << number << ": " << control.objectName().toStdString() << ' ' << place.x() << ',' << place.y();
    }
    /// Moves the mouse to a place of a control; what lies on top there gets the move.
    void Hover(QWidget& control, QPoint place, int number) {
        QWidget& window = *control.window();
        QWidget* under = window.childAt(control.mapTo(&window, place));
        under = under == nullptr ? &window : under;
        const QPointF local = under->mapFrom(&window, control.mapTo(&window, QPointF(place)));
        QMouseEvent move(QEvent::MouseMove, local, under->mapToGlobal(local), Qt::NoButton, {}, {});
        main.ShowPrompt(kUnknown);
        QCoreApplication::sendEvent(under, &move);
        ExpectSaid(number, control, place);
    }
    void Focus(QWidget& control, int number) {
        control.window()->setFocus();
        main.ShowPrompt(kUnknown);
        control.setFocus();
        ExpectSaid(number, control, {-1, -1});
    }
    void Try(QWidget& form, std::span<const Array> arrays, std::span<const std::pair<QPoint, int>> tabs) {
        auto* strip = Find<TabStrip>(form, "SSTab1");
        for (const auto& [place, number] : tabs) {
            Hover(*strip, place, number);
        }
        for (const Array& array : arrays) {
            strip->SetTab(array.page);
            ExpectNames(form, 3);
            for (int i = 0; i < array.count; ++i) {
                const QString name = u"%1(%2)"_qs.arg(QLatin1String(array.name)).arg(array.first + i);
                QWidget& control = *Find(form, qPrintable(name));
                Hover(control, {3, 3}, array.onMove > 0 ? array.onMove + i : array.onMove);
                if (array.onFocus > 0) {
                    Focus(control, array.onFocus + i);
                }
            }
        }
    }

    MainStage stage;
    frmMain& main = stage.Start();
    std::string help;
    QLabel* bubble = nullptr;
};

TEST_F(Prompts, MainWindow) {
    std::vector<int> numbers{20, 21, 22, 24, 25, 26, 28, 29, 30, 31, 33, 34, 36, 37, 38};
    for (int run = 0; run < 2; ++run) {
        const auto buttons = stage.Buttons();
        for (qsizetype i = 0; i < buttons.size(); ++i) {
            const QRect place = buttons[i]->geometry();
            Hover(stage.Bar(), {place.left(), 14}, 0); // the exact boundary belongs to neither
            Hover(stage.Bar(), {place.left() + 1, 14}, numbers[static_cast<std::size_t>(i)]);
            Hover(stage.Bar(), {place.right(), 14}, numbers[static_cast<std::size_t>(i)]);
        }
        Hover(stage.Bar(), {4, 14}, 0);
        Hover(stage.Bar(), {buttons.back()->x() + 33, 14}, 0);
        stage.Click(Menu::menu_toolbar, 2);
        numbers.erase(numbers.begin() + 3, numbers.begin() + 6); // the others move up
    }
    ExpectLaidOut(stage.Bar(), QStringLiteral("Toolbar"));
    Hover(MainProbe::Coords(main), {12, 12}, 39);
    Hover(*main.findChild<QMdiArea*>(), {30, 30}, 0);
    Hover(MainProbe::Status(main), {30, 9}, kNever);
}

TEST_F(Prompts, SnapshotWindow) {
    OpenSnapshotFile(stage.Snapshot(QStringLiteral("game.sna")));
    const SnapshotProbe probe{dynamic_cast<frmSnapshot&>(*main.ActiveForm())};
    Hover(probe.form, {2, 2}, 0);
    Hover(probe.Container(), {probe.Container().width() - 3, probe.Container().height() - 3}, 0);
    Hover(probe.Picture(), {5, 5}, 1);
    Hover(probe.Track(), {8, 100}, 2);
    Hover(probe.Thumb(), {8, 8}, 2);
    for (int i = 0; i < 4; ++i) {
        Hover(probe.Box(static_cast<std::size_t>(i)), {9, 9}, 3 + i);
        Hover(probe.Spin(static_cast<std::size_t>(i)), {4, 9}, kNever);
        Hover(probe.Status(), {probe.Status().PanelLeft(i + 1) + 1, 9}, 8 + i);
        Hover(probe.Status(), {probe.Status().PanelLeft(i + 1), 9}, kNever); // between two panels
    }
    Hover(probe.Bar(), {8, 4}, kNever);
    Hover(probe.Options(), {9, 9}, 7);
    Hover(probe.ColourOf(0), {9, 9}, 11);
    QStringList tips;
    for (int panel = 1; panel <= 4; ++panel) {
        const QPoint place(probe.Status().PanelLeft(panel) + 4, 9);
        QHelpEvent rest(QEvent::ToolTip, place, probe.Status().mapToGlobal(place));
        QCoreApplication::sendEvent(&probe.Status(), &rest);
        tips << QToolTip::text();
    }
    EXPECT_EQ(tips.join(u'|').toStdString(),
              "Full path of snapshot file|Size of snapshot file|Current zoom.  Click here to adjust.|"
              "Current attribute settings.  Click here to adjust.");
    ExpectLaidOut(probe.form, QStringLiteral("Snapshot"));
    ExpectNames(main, 12); // four boxes with their buttons, options, picture, scroll bar, thumb, colours
}

TEST_F(Prompts, AnimationWindow) {
    auto* form = new frmAnimation;
    const auto record = EncodeAnimation(SampleRecord(stage.Snapshot(QStringLiteral("game.sna"))));
    ASSERT_TRUE(form->Launch(stage.MakeFile(QStringLiteral("walk.anm"), record)));
    const AnimationProbe probe{*form};
    Hover(*form, {1, 1}, 0);
    Hover(probe.Picture(), {4, 4}, 45);
    ExpectNames(main, 5);
    ExpectLaidOut(*form, QStringLiteral("Animation"));
    for (const bool playing : {false, true}) {
        playing ? form->Play() : form->StopPlay();
        for (int i = 0; i < 5; ++i) { // a button that can't be pressed is bare ground
            Hover(probe.Control(static_cast<std::size_t>(i)), {4, 4}, (i == 1) == playing ? 40 + i : 0);
        }
    }
}

TEST_F(Prompts, AnimationSetup) {
    // clang-format off
    constexpr Array kArrays[] = {
        {0, "txtAnimSetup", 0, 1, 48, 48}, {0, "cmdSetup",     2, 1, 49, 49}, {0, "txtAnimSetup", 1, 1, 50, 50},
        {0, "cboAnimSetup", 0, 2, 51, 51}, {0, "txtAnimSetup", 2, 6, 53, 53}, {0, "chkAnimSetup", 0, 1, 59, 59},
        {0, "cmdSetup",     4, 1, 60, 60}, {0, "cmdSetup",     0, 2, 61, 61}, {1, "txtAnimSetup", 8, 1, 63, 63},
    };
    const std::pair<QPoint, int> kTabs[] = {
        {{51, 18}, 46}, {{52, 9}, 0}, {{56, 3}, 47}, {{94, 9}, 47}, {{95, 9}, 0}, {{360, 225}, 0}};
    // clang-format on
    frmAnimSetup form(GlobalAnim);
    Open(form, 48);
    Try(form, kArrays, kTabs);
    Find<TabStrip>(form, "SSTab1")->SetTab(0);
    Focus(*Find(form, "cboAnimSetup(1)"), 52);
    Focus(*Find(form, "chkAnimSetup(0)"), 59); // this one leaves the status bar alone
    EXPECT_EQ(MainProbe::Status(main).PanelAt(1).Text, QStringLiteral("Select the display mode"));
}

TEST_F(Prompts, Preferences) {
    // clang-format off
    constexpr Array kArrays[] = {
        {0, "cmdPrefs", 0, 2, 61, 61}, {0, "chkGeneral", 0, 2,     73, 73}, {1, "txtDefault", 0,  5, 75, 75},
        {1, "optMode",  0, 5, 80, 80}, {1, "cmdPrefs",   4, 1,     85, 85}, {2, "optSmall",   0,  4, 86, 86},
        {2, "optLarge", 0, 4, 90, 90}, {3, "cmdPrefs",   2, 1,     94, 94}, {3, "scrCol",     0,  3, kNever, 95},
        {3, "frmPrefs", 4, 1, 0,   0}, {1, "lblPrefs",   4, 1,      0,  0}, {3, "imgPrefs",   3,  1,  0,  0},
        {3, "lblPalette", 0, 1, 98, 0}, {3, "lblPalette", 15, 1, 98, 0},
    };
    const std::pair<QPoint, int> kTabs[] = {
        {{1, 9}, 0},    {{2, 9}, 69},   {{52, 9}, 69},  {{53, 9}, 70},  {{104, 9}, 70}, {{105, 9}, 71}, {{170, 9}, 71},
        {{171, 9}, 72}, {{216, 9}, 72}, {{217, 9}, 0},  {{60, 2}, 0},   {{60, 3}, 70},  {{60, 18}, 70}, {{60, 19}, 0}};
    // clang-format on
    frmPrefs form;
    Open(form, 73);
    Try(form, kArrays, kTabs);
    Find<TabStrip>(form, "SSTab1")->SetTab(1);
    Find<QAbstractButton>(form, "optMode(1)")->click();
    Hover(*Find(form, "txtDefault(1)"), {3, 3}, 0); // disabled
}

TEST_F(Prompts, AttributePicker) {
    frmColours form;
    Open(form, 66);
    for (QLabel* square : form.findChildren<QLabel*>()) {
        Hover(*square, {5, 5}, square->text().isEmpty() ? 64 : 65);
    }
    const std::map<QString, int> captions{{u"Bright"_qs, 66}, {u"&Cancel"_qs, 67}, {u"&Select"_qs, 68}};
    for (auto* button : form.findChildren<QAbstractButton*>()) {
        if (!button->text().isEmpty()) { // the row of tabs has two without
            Hover(*button, {5, 9}, captions.at(button->text()));
            Focus(*button, captions.at(button->text()));
        }
    }
}

TEST_F(Prompts, AboutBox) {
    frmAbout form;
    Open(form, kUnknown);
    const std::tuple<bool, const char*, int> cases[] = {
        {false, "Image1", 12},  {false, "cmdOkay", 13}, {false, "cmdFlip", 14}, {false, "Label2", 15},
        {false, "Label1", 0},   {false, "Frame1", 0},   {true, "cmdFlip", 16},  {true, "cmdOkay", 13},
        {true, "lblPeople", 0}, {false, "cmdFlip", 14}};
    for (const auto& [credits, control, number] : cases) {
        if (Find(form, "Frame2")->isVisible() != credits) {
            Press(form, "cmdFlip");
        }
        EXPECT_NE(Find(form, "Frame1")->isVisible(), credits);
        Hover(*Find(form, control), {3, 3}, number);
    }
    EXPECT_EQ(Find<QLabel>(form, "lblVersion")->text(), QStringLiteral("Version 2.00      "));
    for (const QLabel* label : form.findChildren<QLabel*>()) {
        EXPECT_LE(label->heightForWidth(label->width()), label->height());
    }
    Press(form, "cmdOkay");
    EXPECT_FALSE(form.isVisible());
}

} // namespace
} // namespace lumrake::testing
