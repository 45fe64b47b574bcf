#include "animation/anim_support.h"
#include "animation/frmAnimSetup.h"
#include "controls/picture_box.h"
#include "controls/pictures.h"
#include "controls/screen.h"
#include "disk/texts.h"
#include "preferences/frmPrefs.h"
#include "shell/main_stage.h"
#include "shell/window/file_commands.h"
#include "snapshot/frmColours.h"
#include "snapshot/snapshot_probe.h"
#include "support/when_open.h"

#include <QCheckBox>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QScreen>
#include <QSlider>
#include <QToolButton>

namespace lumrake::testing {
namespace {

class FileCommands : public ::testing::Test, public MainStage {
  protected:
    FileCommands() : main(Start()) {}
    void Open(const QString& path) {
        files.push_back(path);
        Click(Menu::menu_open);
    }
    std::string RecentCaption(int slot) const {
        const QAction* entry = main.Entry(Menu::menu_recent, slot);
        return entry->isVisible() ? entry->text().toStdString() : std::string();
    }

    frmMain& main;
    const QString a = Snapshot(QStringLiteral("A & b.SNA"));
};

TEST_F(FileCommands, TheNewestComesInAtTheHeadAndTheOldestFallsOut) {
    const std::string shownA = a.toLower().replace(u"&"_qs, u"&&"_qs).toStdString();
    for (const QString& file : {QString(), a, a}) { // the first is a cancel
        EXPECT_EQ(main.Entry(Menu::menu_bar1)->isVisible(), iSnapshotCount > 0);
        Open(file);
    }
    EXPECT_EQ(RecentCaption(2), "&2. " + shownA);
    EXPECT_EQ(RecentCaption(3), "");
    for (const char* name : {"D.sna", "C.sna", "B.sna"}) {
        Open(Snapshot(Latin(name)));
    }
    EXPECT_EQ(RecentCaption(3), "&3. " + Path(u"d.sna"_qs).toLower().toStdString());
    EXPECT_EQ(RecentCaption(4), "&4. " + shownA);

    // What is opened from the list keeps its place, and is the file with its true name.
    for (const auto& [keys, file] : {std::pair{"Alt+F 1", u"B.sna"_qs},
                                     {"Alt+F 2", u"C.sna"_qs},
                                     {"Alt+F 3", u"D.sna"_qs},
                                     {"Alt+F 4", u"A & b.SNA"_qs}}) {
        Press(keys);
        EXPECT_EQ(main.ActiveSnapshot()->GetFilename().toStdString(), Path(file).toStdString());
    }
    EXPECT_EQ(iSnapshotCount, 9);
    EXPECT_EQ(Settings.sRecentFile[3].Trimmed(), a.toLower().toStdString());
    QFile::remove(a);
    Snapshot(QStringLiteral("a & b.sna")); // is another one
    Click(Menu::menu_recent, 4);
    EXPECT_EQ(boxes, std::vector{u"Open file|File not found!"_qs});
}

TEST_F(FileCommands, ALaterRunOpensNoOtherFileThanMeant) {
    const QString paths[] = {Snapshot(QString(150, u'N')), Snapshot(u"end "_qs), Snapshot(u"\u0130.sna"_qs),
                             Snapshot(u"Hero.SNA"_qs)};
    for (int slot = 3; slot >= 0; --slot) {
        Open(paths[slot]);
    }
    QString sAskedIn;
    SetFileDialogAnswerer([&](CommonDialog::Kind, const CommonDialog& dialog) {
        sAskedIn = dialog.FileName;
        return paths[0];
    });
    const QString sDirectory = QFileInfo(a).path() + u'/';
    EXPECT_EQ(RecentCaption(1), "&1. " + paths[0].toLower().toStdString()) << "whole in its own run";
    EXPECT_EQ(Settings.sRecentFile[0].Text(), paths[0].toLower().left(100).toStdString());
    EXPECT_LE(main.Entry(Menu::menu_file)->menu()->sizeHint().width(), main.screen()->size().width() / 2);
    EXPECT_TRUE(main.Entry(Menu::menu_recent, 1)->toolTip().contains(QString(80, u'n') + u'\n'));
    for (const bool later : {false, true}) {
        for (int slot = 0; slot < 4; ++slot) {
            sAskedIn.clear();
            Click(Menu::menu_recent, slot + 1);
            EXPECT_EQ(main.ActiveSnapshot()->GetFilename(), paths[slot]);
            EXPECT_EQ(sAskedIn, later && slot == 0 ? sDirectory : QString()) << "the record has cut it";
        }
        ResetRecentFiles(); // from the record, as at the start of a run
    }
    Snapshot(u"hero.sna"_qs);
    Click(Menu::menu_recent, 4);
    EXPECT_EQ(sAskedIn, sDirectory);
    EXPECT_EQ(main.ActiveSnapshot()->GetFilename(), paths[0]);
    EXPECT_EQ(RecentCaption(2), "&2. " + paths[1].toLower().trimmed().toStdString());
}

TEST_F(FileCommands, SaveAsAsksOnlyBeforeAnExistingFileIsOverwritten) {
    const QString old = MakeFile(QStringLiteral("Old.sna"), NoiseBytes(9));
    Open(a);
    files = {old, Path(QStringLiteral("OLD.SNA")), Path(QStringLiteral("gone/x.sna"))};
    answers = {BoxAnswer::No, BoxAnswer::Yes};
    Click(Menu::menu_saveas);
    EXPECT_EQ(boxes, std::vector{u"Save|%1 already exists, overwrite?"_qs.arg(old.toLower())});
    EXPECT_EQ(ReadFile(QStringLiteral("Old.sna")).size(), 9u);
    EXPECT_EQ(main.ActiveSnapshot()->GetFilename(), a);
    // A file that is there in other letters is the one that is meant and written; what fails does not enter the
    // list, and is not asked about.
    for (const unsigned told : {2U, 3U}) {
        Click(Menu::menu_saveas);
        EXPECT_EQ(ReadFile(QStringLiteral("Old.sna")), NoiseBytes(6912));
        EXPECT_EQ(RecentCaption(1), "&1. " + old.toLower().toStdString());
        EXPECT_EQ(boxes.size(), told);
    }
}

TEST_F(FileCommands, GoToTheActiveOfTwoWindows) {
    Open(a);
    frmSnapshot* first = main.ActiveSnapshot();
    Open(MakeFile(QStringLiteral("b.sna"), NoiseBytes(7000, 2)));
    Click(Menu::menu_zoom, 4);
    const QList<QAction*> windows = WindowList();
    ASSERT_EQ(windows.size(), 2);
    EXPECT_EQ(windows[0]->text(), QStringLiteral("&1 a && b.sna"));
    EXPECT_TRUE(windows[1]->isChecked() && !windows[0]->isChecked());
    Press("Ctrl+Tab");
    ASSERT_EQ(main.ActiveForm(), first);
    windows[1]->trigger();
    EXPECT_EQ(main.ActiveSnapshot()->GetZoom(), 4);
    Press("Alt+W 1");
    ASSERT_EQ(main.ActiveForm(), first);
    EXPECT_EQ(first->GetZoom(), 1);
    files = {Path(QStringLiteral("copy.sna"))};
    Click(Menu::menu_saveas);
    EXPECT_EQ(ReadFile(QStringLiteral("copy.sna")).size(), 6912u);
    const QString& caption = MainProbe::Status(main).PanelAt(1).Text;
    EXPECT_EQ(caption, u"copy.sna"_qs);
    const WhenOpen<frmAnimSetup> driver([](frmAnimSetup& setup) { setup.reject(); });
    Click(Menu::menu_snapshot, 1);
    EXPECT_EQ(caption, u"copy.sna"_qs) << "the dialog's hints are gone";
    main.ShowCoords(0, 3, 4);
    main.close();
    EXPECT_EQ(caption + MainProbe::CoordsText(main), u"LMK for Windows0,00,0"_qs);
}

TEST_F(FileCommands, MaximisedWindowsFollowEachOtherAndTheListTellsThemApart) {
    QDir(Path({})).mkdir(u"in"_qs);
    const auto shown = [&] { // is it maximised, and how does the list go on behind the caption
        QString text = ChildFrame(main.ActiveForm())->isMaximized() ? u"max"_qs : u"free"_qs;
        for (const QAction* entry : WindowList()) {
            text +=
                entry->text().mid(3).replace(QFileInfo(a).path(), u"~"_qs).replace(u"a && b.sna"_qs, u"|"_qs);
        }
        return text;
    };
    Open(a);
    auto& frame = dynamic_cast<QMdiSubWindow&>(*ChildFrame(main.ActiveForm()));
    frame.systemMenu()->actions()[1]->trigger();
    frame.showMaximized();
    QTest::keyClick(&frame, Qt::Key_Right);
    ASSERT_EQ(frame.pos(), QPoint()) << "Move waited for keys";
    Open(a);
    EXPECT_EQ(shown(), u"max|:1|:2"_qs);
    Open(Snapshot(u"in/A & b.SNA"_qs));
    EXPECT_EQ(shown(), u"max| (~):1| (~):2| (~/in)"_qs);
    WindowList()[0]->trigger();
    ChildFrame(main.ActiveForm())->close();
    EXPECT_EQ(shown(), u"max| (~)| (~/in)"_qs);
    (new frmAnimation)->Launch(MakeFile(u"walk.anm"_qs, EncodeAnimation(SampleRecord(a))));
    EXPECT_EQ(shown(), u"free| (~)| (~/in)Walk"_qs) << "it has one size";
    WindowList()[0]->trigger();
    EXPECT_EQ(shown(), u"free| (~)| (~/in)Walk"_qs);
}

TEST_F(FileCommands, WhatIsDroppedIsOpenedByItsEnding) {
    Open(a);
    QMimeData dropped;
    dropped.setText(a);
    dropped.setUrls({QUrl::fromLocalFile(a),
                     QUrl::fromLocalFile(MakeFile(u"W.ANM"_qs, EncodeAnimation(SampleRecord(a)))),
                     QUrl::fromLocalFile(Path(u"."_qs)), QUrl(u"http://a.b/c"_qs),
                     QUrl::fromLocalFile(Path(u"c.anm"_qs)), QUrl::fromLocalFile(Snapshot(u"d"_qs))});
    QDragEnterEvent enter({}, Qt::CopyAction | Qt::MoveAction, &dropped, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&SnapshotProbe{*main.ActiveSnapshot()}.Box(0), &enter);
    QDropEvent drop({}, Qt::CopyAction | Qt::MoveAction, &dropped, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&main, &drop);
    EXPECT_TRUE(enter.isAccepted() && enter.dropAction() == Qt::CopyAction);
    EXPECT_TRUE(QTest::qWaitFor([] { return iSnapshotCount == 3; }, 60000));
    EXPECT_EQ(boxes.size(), 3u) << "the folder, what is on no disk, what is not there";
    EXPECT_EQ(iAnimationCount, 1);
    EXPECT_EQ(RecentCaption(1), "&1. " + Path(u"d"_qs).toLower().toStdString());
    EXPECT_EQ(RecentCaption(3), RecentCaption(2).replace(1, 1, "3")) << "a twice, and no folder";
}

TEST_F(FileCommands, TheMouseStaysWithThePictureFromTheFirstPress) {
    Open(a);
    const SnapshotProbe probe{*main.ActiveSnapshot()};
    QMenu* menu = dynamic_cast<QMdiSubWindow&>(*ChildFrame(&probe.form)).systemMenu();
    QObject::connect(menu, &QMenu::aboutToShow, menu, &QWidget::close, Qt::QueuedConnection);
    const auto at = [&](int x, int y) { return probe.Container().mapTo(&main, QPoint(x, y)); };
    iCurrentTool = kToolPan;
    QTest::mousePress(main.windowHandle(), Qt::LeftButton, {}, at(50, 50));
    QTest::mousePress(main.windowHandle(), Qt::RightButton, {}, at(50, -20)); // leaves the anchor
    QTest::mouseMove(main.windowHandle(), at(40, 70));
    EXPECT_EQ(probe.Picture().pos(), QPoint(-10, 20));
    EXPECT_EQ(menu->windowHandle(), nullptr) << "it has never been open";
    QTest::mouseRelease(main.windowHandle(), Qt::RightButton, {}, at(40, 70));
    QTest::mouseRelease(main.windowHandle(), Qt::LeftButton, {}, at(40, 70));
    Press("Alt+-");
    EXPECT_NE(menu->windowHandle(), nullptr);
}

/// What the commands are given to (see Program); the captions of the menu entry; the ways to it: letters, its key, the
/// toolbar's button; what the user then sees changed.
struct Command {
    char state;
    const char *entry, *letters, *key, *button, *effect;
};
// clang-format off
const Command kCommands[] = {
    {'0', "File/Open snapshot",               "Alt+F O",                            "Ctrl+O",               "Open snapshot",              "asked Open snapshot file..."},
    {'S', "File/Save",                        "Alt+F S",                            "Ctrl+S",               "Save snapshot",              "test.sna 6912 127"},
    {'S', "File/Save As",                     "Alt+F A",                            "Ctrl+A",               "",                           "1 copy on | asked Save snapshot file as... | copy 6912 127 | panels copy; 6912 bytes; 1x; "},
    {'S', "File/Export view/Windows Bitmap",  "Alt+F E W",                          "",                     "",                           "asked Save Bitmap file as... | copy 94 66"},
    {'S', "File/Export view/Raw data",        "Alt+F E R",                          "",                     "Export to DAT file",         "asked Save Raw file as... | copy 32 127"},
    {'S', "File/Export selection to BMP",     "Alt+F R",                            "",                     "",                           "asked Save Bitmap file as... | copy 78 66"},
    {'A', "File/Preferences",                 "Alt+F P",                            "",                     "",                           "asked LMK Preferences | colours c80000 c80000 c80000"},
    {'0', "File/Exit",                        "Alt+F X",                            "",                     "",                           "LMK.CFG 526 50"},
    {'S', "Edit/Cut",                         "Alt+E T",                            "Ctrl+X",               "Cut",                        "bar eee eee eeee ee eed | bytes 0 255 0 | clip 32"},
    {'S', "Edit/Copy",                        "Alt+E C",                            "Ctrl+C",               "Copy",                       "bar eee eee eeee ee eed | clip 32"},
    {'T', "Edit/Paste",                       "Alt+E P",                            "Ctrl+V",               "Paste",                      "cursor 5 16 16 | net on | tool 1 Draw"},
    {'D', "Edit/Delete",                      "Alt+E D",                            "Del",                  "",                           "bytes 0 255 0"},
    {'T', "View/Zoom/1:1",                    "Alt+V Z Return",                     "",                     "",                           "panels test.sna; 6912 bytes; 1x;  | view -20 -30 16 8"},
    {'S', "View/Zoom/2:1",                    "Alt+V Z Down Return",                "",                     "",                           "panels test.sna; 6912 bytes; 2x;  | view 0 0 64 16"},
    {'A', "View/Zoom/16:1",                   "Alt+V Z Down Down Down Down Return", "",                     "",                           "zoom 5"},
    {'A', "View/File",                        "Alt+V F",                            "Ctrl+F1",              "",                           "File off | bar ddd dddd dd eee"},
    {'0', "View/Editing",                     "Alt+V E",                            "Ctrl+F2",              "",                           "Editing off | bar edd dddd dd eed"},
    {'0', "View/Drawing",                     "Alt+V D",                            "Ctrl+F3",              "",                           "Drawing off | bar edd ddd dd eed | tool 2"},
    {'S', "View/Snapshot",                    "Alt+V S",                            "Ctrl+F4",              "",                           "Snapshot off | bar eee eed eeee eed"},
    {'0', "View/Animation",                   "Alt+V A",                            "Ctrl+F5",              "",                           "Animation off | bar edd ddd dddd dd"},
    {'0', "View/Co-ordinates",                "Alt+V C",                            "Ctrl+F6",              "",                           "Co-ordinates off | panel off"},
    {'T', "Snapshot/Graphics mode",           "Alt+S G",                            "",                     "",                           "Graphics mode on | Text mode off | mode 0"},
    {'S', "Snapshot/Screen mode",             "Alt+S S",                            "",                     "",                           "Graphics mode off | Screen mode on | mode 1 | numbers 0 256 192 1 | view 0 0 256 192"},
    {'S', "Snapshot/Text mode",               "Alt+S T",                            "",                     "",                           "Graphics mode off | Text mode on | mode 2 | numbers 0 16 8 1 | view 0 0 16 8"},
    {'S', "Snapshot/Line masks",              "Alt+S L",                            "",                     "",                           "Graphics mode off | Line masks on | mode 3"},
    {'S', "Snapshot/Byte masks",              "Alt+S B Return",                     "",                     "",                           "Byte masks on | Graphics mode off | mode 4"},
    {'S', "Snapshot/Set attributes",          "Alt+S B B Return",                   "",                     "",                           "asked Colours | attribute 120"},
    {'S', "Snapshot/Animate...",              "Alt+S A",                            "",                     "Create animation",           "asked Animation Setup"},
    {'S', "Snapshot/Flip upside down",        "Alt+S F",                            "",                     "",                           "Flip upside down on | flip -1"},
    {'T', "Snapshot/Flip upside down",        "Alt+S F",                            "",                     "",                           "Flip upside down off | flip 0"},
    {'T', "Snapshot/Position at top left",    "Alt+S P",                            "",                     "Position image at top left", "view 0 0 256 128"},
    {'0', "Animation/New animation",          "Alt+A N",                            "Ctrl+Q",               "New animation",              "asked Animation Setup"},
    {'S', "Animation/Open",                   "Alt+A O",                            "Ctrl+W",               "Open animation",             "asked Open animation file..."},
    {'A', "Animation/Save",                   "Alt+A S",                            "Ctrl+E",               "Save animation",             "walk.anm 759 47"},
    {'A', "Animation/Save as",                "Alt+A A",                            "Ctrl+R",               "",                           "asked Save animation file as... | copy 759 47"},
    {'A', "Animation/Export to animated GIF", "Alt+A E",                            "Ctrl+G",               "",                           "asked LMK V2.00|Sorry, this option is not available yet."},
    {'S', "Window/Close all",                 "Alt+W C",                            "Ctrl+K",               "",                           "asked Close all|Are you sure?"},
    {'0', "Help/About Lumrake",               "Alt+H A",                            "F12",                  "",                           "asked About"},
    {'0', "Help/Mr Fizzlet's assistance",     "Alt+H M",                            "F1",                   "",                           "Fizzlet on | Mr Fizzlet's assistance on"},
    {'S', "",                                 "",                                   "",                     "Draw",                       "bar eee ddd eeee ee eed | cursor 2 16 16 | net off | tool 2 Draw"},
    {'P', "",                                 "",                                   "",                     "Draw",                       "cursor 2 16 16 | net off | tool 2 Draw"},
    {'S', "",                                 "",                                   "",                     "Zoom",                       "bar eee ddd eeee ee eed | cursor 3 16 16 | net off | tool 3 Zoom"},
    {'T', "",                                 "",                                   "",                     "Select",                     "cursor 4 16 16 | tool 4 Select"},
    {'S', "",                                 "",                                   "",                     "Pan",                        "bar eee ddd eeee ee eed | cursor 5 16 16 | net off | tool 5 Pan"},
    // Keys without an entry, and what has the keyboard afterwards.
    {'S', "",                                 "",                                   "Del",                  "",                           "numbers  16 8 2 | Offset"}, // the box keeps it
    {'S', "",                                 "",                                   "Tab Tab Del",          "",                           " | Width"}, // and a locked one too
    {'S', "",                                 "",                                   "Tab Right",            "",                           "numbers 1 16 8 2 | Offset steps"},
    {'S', "",                                 "",                                   "Tab Right Left",       "",                           " | Offset steps"},
    {'S', "",                                 "",                                   "F6 Right Right",       "",                           " | Create animation"},
    {'0', "",                                 "",                                   "F6 Right Right Space", "",                           "asked Open animation file... | Open animation"},
    {'0', "",                                 "",                                   "F6 Right Left",        "",                           " | Open snapshot"},
    {'S', "",                                 "",                                   "F6 Right Esc",         "",                           " | Offset"},
    {'S', "",                                 "",                                   "F6 F6",                "",                           " | Offset"},
    {'D', "",                                 "",                                   "D",                    "",                           "bar eee ddd eeee ee eed | cursor 2 16 16 | net off | tool 2 Draw | Picture"},
    {'D', "",                                 "",                                   "Z",                    "",                           "bar eee ddd eeee ee eed | cursor 3 16 16 | net off | tool 3 Zoom | Picture"},
    {'D', "",                                 "",                                   "P S",                  "",                           "bar eee ddd eeee ee eed | net off | Picture"},
    {'D', "",                                 "",                                   "Ctrl+F3 Z",            "",                           "Drawing off | bar eee eed ee eed | tool 4 | Picture"}, // a hidden button
    {'P', "",                                 "",                                   "Esc",                  "",                           "cursor 2 16 16 | net off | tool 2 Draw | Offset"},
};
// clang-format on

/// The whole program, fresh. 0: nothing is open. S: a snapshot with a net, not yet saved; the Offset box has the
/// focus. D: the picture has it. T: all settings of the snapshot are others, and a block is on the clipboard. P: it
/// is being placed. A: an animation before the snapshot.
class Program : public MainStage {
  public:
    explicit Program(char state) {
        Settings.iDefaultWidth = 16;
        Settings.iDefaultLines = 8;
        Settings.iDefaultColumns = 2;
        Settings.iDefaultAttribute = 56; // black on white
        const QString sFile = MakeFile(u"test.sna"_qs, std::vector<std::uint8_t>(6912, 0xff));
        if (state != '0') {
            OpenSnapshotFile(sFile);
            const SnapshotProbe probe{*main.ActiveSnapshot()};
            probe.Data()[0] = 0x7f;
            Button("Select")->click();
            probe.DrawNet(0, 0, 8, 4);
            if (state == 'D') {
                probe.Picture().setFocus();
            } else if (state == 'T' || state == 'P') {
                probe.form.Copy(false);
                Button("Draw")->click();
                Click(Menu::menu_mode, kText);
                Click(Menu::menu_snapshot, 2);
                probe.form.SetZoom(5);
                probe.form.SetPosition(-20, -30);
            }
            state == 'P' ? probe.form.Paste() : void();
        }
        if (state == 'A') {
            (new frmAnimation)->Launch(MakeFile(u"walk.anm"_qs, EncodeAnimation(SampleRecord(sFile))));
        }
        SetFileDialogAnswerer([this](CommonDialog::Kind kind, const CommonDialog& dialog) {
            boxes.push_back(dialog.DialogTitle);
            return kind == CommonDialog::Kind::Save ? Path(u"copy"_qs) : QString();
        });
        answers = {BoxAnswer::No};
        QObject::connect(&modal_, &QTimer::timeout, [this] { AnswerModal(); });
        modal_.start(1);
    }
    ~Program() override { frmClip::Instance().SetData({}); }

    using Seen = std::map<std::string, std::string>; ///< what the user sees, by name
    Seen Look() {
        Seen seen;
        for (const QString& box : boxes) {
            seen["asked"] += box.toStdString();
        }
        for (const QString& file : QDir(Path({})).entryList(QDir::Files)) {
            const auto bytes = ReadFile(file);
            seen[file.toStdString()] = std::to_string(bytes.size()) + ' ' + std::to_string(bytes[0]);
        }
        seen["tool"] = std::to_string(iCurrentTool);
        int right = 0;
        for (QToolButton* button : Buttons()) {
            seen["bar"] += right > 0 && button->x() > right ? " " : "";        // for each separator
            seen["bar"] += button->grab().toImage().isGrayscale() ? 'd' : 'e'; // what is off is grey
            right = button->geometry().right() + 1;
            seen["tool"] += button->isChecked() ? ' ' + button->toolTip().toStdString() : "";
        }
        WindowList();
        for (const QAction* entry : main.findChildren<QAction*>()) {
            std::string& tick = seen[entry->text().remove(u'&').toStdString()];
            tick =
                entry->isCheckable() && !entry->text().isEmpty() ? (entry->isChecked() ? "on" : "off") : tick;
        }
        for (QWidget* widget : main.findChildren<QWidget*>()) {
            if (dynamic_cast<PictureBox*>(widget) != nullptr || widget->accessibleName() == u"Ink"_qs) {
                const QColor shown =
                    widget->grab().toImage().pixelColor(widget->width() - 3, widget->height() - 3);
                seen["colours"] += (seen["colours"].empty() ? "" : " ") + shown.name().mid(1).toStdString();
            }
        }
        seen["panel"] = MainProbe::Coords(main).isHidden() ? "off" : "on";
        const auto* bubble = main.findChild<QLabel*>(u"lblBubble"_qs);
        seen["Fizzlet"] = bubble != nullptr && bubble->parentWidget()->isVisible() ? "on" : "off";
        if (frmSnapshot* form = main.ActiveSnapshot()) {
            LookAt({*form}, seen);
        } else if (const auto* animation = dynamic_cast<frmAnimation*>(main.ActiveForm())) {
            seen["zoom"] = std::to_string(animation->GetZoom());
        }
        return seen;
    }

  private:
    static void LookAt(const SnapshotProbe& probe, Seen& seen) {
        const auto text = [](const auto&... values) {
            return ((' ' + std::to_string(values)) + ...).substr(1);
        };
        probe.Move(0, 1, 1); // the cursor follows with the next move
        const QCursor cursor = probe.Picture().cursor();
        for (int tool = kToolPlacing; tool <= kToolPan; ++tool) {
            const QPixmap drawing = LoadPicture(u"cursors/%1.svg"_qs.arg(tool), {32, 32}, 1);
            if (cursor.pixmap().toImage() == drawing.toImage()) {
                seen["cursor"] = text(tool, cursor.hotSpot().x(), cursor.hotSpot().y());
            }
        }
        const QRect at = probe.Picture().geometry();
        const auto bytes = probe.Memory().Bytes();
        seen["bytes"] = text(bytes[0], bytes[1], bytes[2]);
        seen["view"] = text(at.x(), at.y(), at.width(), at.height());
        seen["mode"] = text(probe.form.GetMode());
        seen["flip"] = text(probe.form.GetFlip());
        seen["attribute"] = text(probe.form.GetAttribute());
        seen["numbers"] = probe.Texts();
        seen["net"] = probe.Net().Visible ? "on" : "off";
        seen["clip"] = text(frmClip::Instance().GetData().size());
        seen["panels"] = probe.Status().accessibleDescription().section(QDir::separator(), -1).toStdString();
    }
    /// Dialogs are cancelled, but for the picker, where another colour is taken; in the preferences black has become
    /// red by then.
    void AnswerModal() {
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || QApplication::activeWindow() != dialog) {
            return;
        }
        boxes.push_back(dialog->windowTitle());
        if (auto* picker = dynamic_cast<frmColours*>(dialog)) {
            picker->findChild<QCheckBox*>()->click();
            picker->findChild<QPushButton*>()->click();
            return;
        }
        if (dynamic_cast<frmPrefs*>(dialog) != nullptr) {
            for (int page = 1; page <= 3; ++page) {
                QTest::keyClick(dialog, Qt::Key_Tab, Qt::ControlModifier);
            }
            auto* red = Find<QSlider>(*dialog, "scrCol(0)"); // of black
            red->setValue(red->isVisible() ? 200 : 100);
        }
        dialog->close();
    }

    frmMain& main = Start();
    QTimer modal_;
};

TEST(Wires, LeadFromMenuKeyAndButtonToTheSame) {
    for (const Command& command : kCommands) {
        const char* const ways[] = {command.letters, command.key, command.button};
        for (int way = 0; way < 3; ++way) {
            if (*ways[way] == '\0') {
                continue;
            }
            Program program(command.state);
            auto before = program.Look();
            EXPECT_TRUE(before.contains(Latin(command.entry).section(u'/', -1).toStdString()))
                << command.entry;
            way < 2 ? program.Press(ways[way])
                    : QTest::mouseClick(program.Button(command.button), Qt::LeftButton);
            std::string effect;
            for (const auto& [name, value] : program.Look()) {
                if (before[name] != value) {
                    effect += (effect.empty() ? "" : " | ") + name + ' ' + value;
                }
            }
            if (*command.letters == '\0' && way == 1) {
                effect += " | " + KeysGoTo(*MainWindow())->accessibleName().toStdString();
            }
            EXPECT_EQ(effect, command.effect) << ways[way] << " in " << command.state;
        }
    }
}

TEST(Wires, EscLetsABlockGoFromAnAnimationToo) {
    Program program('P');
    ASSERT_EQ(iCurrentTool, kToolPlacing);
    const auto record = EncodeAnimation(SampleRecord(program.Path(u"test.sna"_qs)));
    ASSERT_TRUE((new frmAnimation)->Launch(program.MakeFile(u"walk.anm"_qs, record)));
    program.Press("Esc");
    EXPECT_EQ(iCurrentTool, kToolDraw);
}

TEST(Wires, OptionsOpensTheSnapshotMenu) {
    const Program program('S');
    QTimer::singleShot(0, [] { Program::Press("F"); });
    QTest::mouseClick(&SnapshotProbe{*MainWindow()->ActiveSnapshot()}.Options(), Qt::LeftButton);
    EXPECT_EQ(MainWindow()->ActiveSnapshot()->GetFlip(), -1);
}

TEST(MainWindow, AStatusTextTooLongLosesItsMiddle) {
    MainStage stage;
    frmMain& main = stage.Start();
    const auto shown = [&](const QString& text) {
        main.SetStatusText(text);
        return MainProbe::Status(main).grab().toImage();
    };
    const QImage whole = shown(QString(400, u'n'));
    for (const int at : {0, 200, 399}) {
        EXPECT_EQ(shown(QString(400, u'n').replace(at, 1, u'I')) == whole, at == 200) << at;
    }
}

/// The program with three changed documents a, b and c, of which c is active.
class ThreeChanged : public MainStage {
  public:
    ThreeChanged() {
        Start();
        for (const char* name : {"a", "b ", "c"}) { // no blank shows in a question
            OpenSnapshotFile(Snapshot(QLatin1String(name)));
            SnapshotProbe{*MainWindow()->ActiveSnapshot()}.SetChanged();
        }
    }
    /// The documents that were asked about since the last call; e is the end of "Are you sure?".
    std::string Asked() {
        std::string letters;
        for (const QString& box : std::exchange(boxes, {})) {
            letters += box.at(box.size() - 2).toLatin1();
        }
        return letters;
    }
};

using enum BoxAnswer;

TEST(MainWindow, ExitStopsAtTheFirstChildThatStays) {
    ThreeChanged stage;
    QWidget* frame = ChildFrame(MainWindow()->ActiveForm());
    stage.answers = {Cancel, No, Cancel};
    QTest::mouseClick(frame, Qt::LeftButton, {}, QPoint(frame->width() - 16, 12)); // its cross
    stage.Click(Menu::menu_exit);
    EXPECT_EQ(stage.Asked(), "cab");
    EXPECT_EQ(iSnapshotCount, 2);
    EXPECT_EQ(stage.ended, 0);
    EXPECT_FALSE(QFile::exists(SettingsFile()));
    stage.answers = {Yes, No};
    MainWindow()->close();
    EXPECT_EQ(stage.Asked(), "bc");
    EXPECT_EQ(stage.ended, 1);
}

TEST(MainWindow, ASaveThatFailsOnTheWayOutCanStopIt) {
    // The answers to the question about a and to the box of its failure; what the dialog is told; whether it ends.
    const std::tuple<std::deque<BoxAnswer>, std::deque<QString>, int> rows[] = {
        {{Yes, Cancel}, {}, 0},
        {{Yes, Yes, Yes}, {QString(300, u'n'), QString()}, 0},
        {{Yes, Yes, No, No, No, No}, {u"c"_qs}, 1}, // not over that file, then not at all
        {{Yes, Yes, Yes, No, No}, {u"c"_qs}, 1},
    };
    for (const auto& [answers, names, ends] : rows) {
        ThreeChanged stage;
        QFile::setPermissions(stage.Path(u"a"_qs), QFile::ReadOwner);
        stage.MakeFile(u"c"_qs, NoiseBytes(9));
        stage.answers = answers;
        for (const QString& name : names) {
            stage.files.push_back(name.isEmpty() ? name : stage.Path(name));
        }
        MainWindow()->close();
        EXPECT_EQ(stage.ended, ends);
        EXPECT_EQ(iSnapshotCount, ends == 1 ? 0 : 3);
        EXPECT_TRUE(stage.answers.empty() && stage.files.empty());
        EXPECT_EQ(stage.ReadFile(u"c"_qs).size(), answers.size() == 5 ? 6912U : 9U);
    }
}

TEST(MainWindow, CloseAllAsksTheActiveChildAgainAsLongAsItStays) {
    ThreeChanged stage;
    stage.answers = {Yes, Cancel, Cancel, No, No, Yes, No, No};
    for (const auto& [asked, left] : {std::pair{"eccc", 2}, {"e", 2}, {"eba", 0}}) {
        stage.Click(Menu::menu_closeall);
        EXPECT_EQ(stage.Asked(), asked);
        EXPECT_EQ(iSnapshotCount, left);
    }
}

TEST(MainWindow, PlacesCountTheFrame) {
    MainStage stage;
    frmMain& main = stage.Start();
    const QWidget& coords = MainProbe::Coords(main);
    for (const int width : {1, 1400}) {
        main.resize(width, 400);
        EXPECT_GE(coords.x(), stage.Buttons().back()->geometry().right()) << width;
        EXPECT_EQ(coords.x(), main.frameGeometry().width() - 181);
    }
    MainProbe::Coords(main).move(0, 0); // as it lay before the frame was known
    QEvent active(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&main, &active);
    EXPECT_EQ(coords.x(), main.frameGeometry().width() - 181);
    main.setGeometry(700, 760, 1400, 300);
    HoldOnScreen(main);
    EXPECT_TRUE(main.screen()->geometry().contains(main.frameGeometry()));
    frmPrefs form(&main);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form, 60000));
    EXPECT_LE((main.screen()->geometry().center() - form.frameGeometry().center()).manhattanLength(), 1);
}

} // namespace
} // namespace lumrake::testing
