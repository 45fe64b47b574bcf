/// A snapshot window as a document, and the controls around its picture.
#include "controls/colour_button.h"
#include "snapshot/snapshot_probe.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QMenu>

namespace lumrake {
namespace {

class SnapshotWindow : public testing::SnapshotTest {
  protected:
    static void Type(const SnapshotProbe& probe, std::size_t box, const char* keys) {
        probe.Box(box).selectAll();
        QTest::keyClicks(&probe.Box(box), QString::fromLatin1(keys));
    }
    static void ClickArrow(SpinBar& bar, bool last) {
        const QPoint end(bar.width() - 4, bar.height() - 4);
        QTest::mouseClick(&bar, Qt::LeftButton, {}, last ? end : QPoint(4, 4));
    }
    static int Place(const SnapshotProbe& probe) { return probe.Thumb().y() - probe.Track().y(); }
};

TEST_F(SnapshotWindow, OpensUnderItsLowerCaseName) {
    Settings.lDefaultOffset = 1000;
    const QString sFile = MakeFile(QStringLiteral("Mixed Case.SNA"), testing::NoiseBytes(1000));
    const SnapshotProbe probe{*Launch(u"MIXED CASE.SNA"_qs)};
    EXPECT_EQ(probe.form.GetFilename(), sFile) << "as the disk spells it";
    EXPECT_EQ(probe.form.windowTitle(), QStringLiteral("mixed case.sna"));
    EXPECT_EQ(probe.Status().accessibleDescription(), sFile.toLower() + u"; 1000 bytes; 1x; "_qs);
    EXPECT_EQ(probe.Texts(), "999 256 192 1") << "an offset at the length is the last byte";
    EXPECT_EQ(probe.Box(0).selectedText(), QStringLiteral("999")) << "a number can be typed at once";
}

TEST_F(SnapshotWindow, RefusesWhatIsNone) {
    MakeFile(QStringLiteral("empty"), {});
    QFile huge(Path(QStringLiteral("huge")));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize(2147483648LL));
    const char* const cases[][2] = {{"missing", "Open file|File not found!"},
                                    {"empty", "The file is empty."},
                                    {".", "It is a directory."},
                                    {"huge", "longer than 2147483647 bytes"}};
    for (const auto& [name, message] : cases) {
        EXPECT_EQ(Launch(QLatin1String(name)), nullptr) << name;
        EXPECT_TRUE(boxes.back().startsWith(QLatin1String("Open file|")));
        EXPECT_TRUE(boxes.back().contains(QLatin1String(message))) << message;
    }
    EXPECT_EQ(boxes.size(), std::size(cases));
    EXPECT_EQ(iSnapshotCount, 0);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SnapshotWindow, AsksOnceForEachClosingAndCountsTheWindowOut) {
    using enum BoxAnswer;
    // changed, prompt, what is answered when it asks
    const std::tuple<bool, std::int16_t, std::vector<BoxAnswer>> cases[] = {
        {false, 1, {}}, {true, 0, {}}, {true, 1, {Cancel}}, {true, 1, {No}}, {true, 1, {Yes}}};
    for (const auto& [changed, prompt, answer] : cases) {
        const bool closes = answer != std::vector{Cancel};
        const SnapshotProbe probe = Open(100);
        Open(100); // the active one
        const int before = iSnapshotCount;
        probe.Data()[0] ^= 255;
        probe.SetChanged(changed);
        Settings.bPromptSave = prompt;
        SetMessageBoxAnswerer([&, answer = answer](const MessageBox& box) {
            boxes.push_back(box.title + u'|' + box.text);
            EXPECT_EQ(area.currentSubWindow()->widget(), &probe.form) << "the one that is asked about";
            QCloseEvent again;
            QCoreApplication::sendEvent(&probe.form, &again);
            EXPECT_FALSE(again.isAccepted());
            return answer.at(0);
        });
        EXPECT_EQ(ChildFrame(&probe.form)->close(), closes);
        EXPECT_EQ(std::exchange(boxes, {}), std::vector(answer.size(), u"Snapshot|Save changes to %1?"_qs.arg(
                                                                           Path(u"Test.SNA"_qs).toLower())));
        EXPECT_EQ(iSnapshotCount, closes ? before - 1 : before);
        EXPECT_EQ(ReadFile(u"Test.SNA"_qs) != testing::NoiseBytes(100), answer == std::vector{Yes});
        EXPECT_TRUE(closes || probe.Changed() == -1);
    }
}

TEST_F(SnapshotWindow, TypedNumbersAreHeldWithinTheirLimits) {
    // clang-format off
    const std::tuple<std::size_t, const char*, const char*, const char*> cases[] = { // box, keys, texts, message
        {0, "1000", "999 64 40 1",   "Snapshot|Offset must be between 0 and 999!"},
        {0, "9x9",  "99 64 40 1",    ""},
        {2, "9999", "99 64 512 1",   "Snapshot|Lines must be between 1 and 512!"},
        {3, "17",   "99 64 512 16",  "Snapshot|Columns must be between 1 and 16!"},
        {3, "\b",   "99 64 512 ",    ""},
        {2, "\b",   "99 64  ",       ""},
        {0, "\b",   " 64  ",         ""},
    };
    // clang-format on
    const SnapshotProbe probe = Open(1000);
    for (const auto& [box, keys, texts, message] : cases) {
        boxes = {QString()};
        Type(probe, box, keys);
        EXPECT_EQ(probe.Texts(), texts) << keys;
        EXPECT_EQ(boxes.back().toStdString(), message);
        EXPECT_EQ(probe.Box(box).cursorPosition(), probe.Box(box).text().size()) << keys;
    }
    EXPECT_EQ(probe.form.GetOffset(), 0);
    EXPECT_EQ(probe.Picture().size(), QSize(64, 1)) << "one line, one column";
}

TEST_F(SnapshotWindow, MillionsKeepTheirDigits) {
    const SnapshotProbe probe = Open(1234568);
    probe.View().lOffset = 1234559;
    probe.form.Form_Activate();
    ClickArrow(probe.Bar(), true);
    EXPECT_EQ(probe.Texts(), "1234567 64 40 1");
    QTest::keyClick(&probe.Box(0), Qt::Key_Backspace);
    EXPECT_EQ(probe.form.GetOffset(), 123456);
    probe.Box(0).Change = {};
    probe.Box(0).Write(u"2147483647"_qs);
    const QFontMetricsF digits(probe.Box(0).font());
    EXPECT_LE(digits.horizontalAdvance(probe.Box(0).text()), 44) << "what the frame and the caret leave";
}

TEST_F(SnapshotWindow, BoxesTakeDigitsOnlyAndWhatTheModeAllows) {
    const SnapshotProbe probe = Open(20000, 64, 16);
    const std::pair<const char*, int> pastes[] = {{"12a", 0},      {"1234567", 0}, {"-5", 0},
                                                  {"\xd9\xa1", 0}, {"12", 12},     {"77", 77}};
    for (const auto& [pasted, offset] : pastes) {
        QGuiApplication::clipboard()->setText(QString::fromUtf8(pasted));
        probe.Box(0).selectAll();
        testing::FromContextMenu(probe.Box(0), "&Paste");
        EXPECT_EQ(probe.form.GetOffset(), offset) << pasted;
    }
    testing::FromContextMenu(probe.Box(0), "&Undo");
    EXPECT_EQ(probe.form.GetOffset(), 12);
    // The click that brings the focus selects the number, the next one sets the caret.
    ASSERT_TRUE(QTest::qWaitForWindowActive(&area, 60000));
    probe.Bar().setFocus();
    for (const char* selected : {"12", ""}) {
        QTest::mouseClick(&probe.Box(0), Qt::LeftButton);
        EXPECT_EQ(probe.Box(0).selectedText(), QLatin1String(selected));
    }
    Type(probe, 0, "30");
    probe.form.SetMode(kText, true);
    Type(probe, 0, "5\b");
    const std::unique_ptr<QMenu> menu(probe.Box(0).createStandardContextMenu());
    for (QAction* entry : menu->actions()) {
        entry->trigger(); // Undo, for one
    }
    ClickArrow(probe.Spin(2), true);
    EXPECT_EQ(probe.Texts(), "30 64 24 1");
    EXPECT_FALSE(probe.Box(3).isEnabled() || probe.Spin(3).isEnabled()) << "one column";
    probe.form.SetMode(kScreen, true);
    EXPECT_FALSE(probe.Box(1).isEnabled() || probe.Spin(2).isEnabled()) << "one size";
    probe.form.SetMode(kByteMasks, true);
    EXPECT_TRUE(probe.Box(1).isEnabled() && probe.Box(1).isReadOnly() && !probe.Box(0).isReadOnly());
}

TEST_F(SnapshotWindow, TheAddressBarStepsAndRests) {
    Settings.iSmallChange = 2;
    Settings.iLargeChange = 4;
    const SnapshotProbe probe = Open(49179, 256, 192);
    SpinBar &bar = probe.Bar(), &spin = probe.Spin(0);
    QPushButton& thumb = probe.Thumb(); // hands its keys on
    // where, a key or the angle of a wheel, and the offset then
    // clang-format off
    const std::tuple<QWidget*, int, int> steps[] = {
        {&bar, Qt::Key_PageDown, 1536}, {&bar, Qt::Key_Down, 1600}, {&thumb, Qt::Key_Up, 1536}, {&bar, Qt::Key_Up, 1472},
        {&thumb, Qt::Key_PageDown, 3008}, {&bar, Qt::Key_PageUp, 1472}, {&bar, Qt::Key_End, 1472}, {&bar, -240, 1600},
    };
    // clang-format on
    for (const auto& [to, what, offset] : steps) {
        std::abs(what) < 1000 ? testing::TurnWheel(*to, {0, what}) : QTest::keyClick(to, Qt::Key(what));
        EXPECT_EQ(probe.form.GetOffset(), offset) << what;
        EXPECT_EQ(bar.sliderPosition(), Place(probe));
    }
    QTest::mouseClick(&bar, Qt::MiddleButton, {}, {8, 90});
    ClickArrow(bar, true);
    ClickArrow(spin, false);
    EXPECT_EQ(probe.form.GetOffset(), 1663);
    QTest::mousePress(&bar, Qt::LeftButton, {}, {8, 4}); // held down it goes on
    EXPECT_TRUE(QTest::qWaitFor([&probe] { return probe.form.GetOffset() < 1663 - 3 * 64; }, 60000));
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, {8, 4});
    Type(probe, 0, "49170");
    EXPECT_LT(Place(probe), 10) << "a number typed moves the picture and not the thumb";
    ClickArrow(probe.Bar(), true);
    EXPECT_EQ(probe.form.GetOffset(), 49178) << "held at the last byte";
    EXPECT_GT(Place(probe), 100);
}

TEST_F(SnapshotWindow, TheThumbIsDraggedPastBothEnds) {
    for (const std::size_t length : {std::size_t{1}, std::size_t{70000}}) {
        const SnapshotProbe probe = Open(length);
        const int last = static_cast<int>(length) - 1;
        QTest::mousePress(&probe.Thumb(), Qt::LeftButton, {}, QPoint(8, 5));
        // where the mouse goes, where the thumb is then, and the offset, which trails by one event
        const int travel = probe.Bar().height() - 48;
        const int half = static_cast<int>(100 * (static_cast<float>(length) / static_cast<float>(travel)));
        for (const auto& [y, place, offset] :
             {std::tuple{105, 100, 0}, {6, 101, half}, {-4000, 0, 0}, {4000, travel, last}}) {
            QTest::mouseMove(&probe.Thumb(), QPoint(8, y));
            EXPECT_EQ(Place(probe), place);
            EXPECT_EQ(probe.form.GetOffset(), offset);
            EXPECT_EQ(probe.Bar().value(), 0) << "the bar rests until the release";
        }
        QTest::mouseRelease(&probe.Thumb(), Qt::LeftButton, {}, QPoint(8, 5));
        EXPECT_EQ(probe.Bar().value(), travel);
    }
}

TEST_F(SnapshotWindow, AttributeAndItsButtons) {
    const SnapshotProbe probe = Open(1000);
    probe.form.SetAttribute(199, false); // bit 7 falls away
    QTest::mouseClick(&probe.ColourOf(1), Qt::LeftButton);
    EXPECT_EQ(probe.form.GetAttribute(), 64 + 15);
    QTest::mouseClick(&probe.ColourOf(0), Qt::LeftButton);
    EXPECT_EQ(probe.form.GetAttribute(), 64 + 8);
    EXPECT_EQ(probe.form.focusWidget(), &probe.Bar()) << "the arrow keys go on scrolling";
    Settings.lPalette[8] = 65536 * 7 + 256 * 8 + 9;
    Settings.lPalette[9] = 65536 * 6 + 256 * 5 + 4;
    probe.form.ReShow();
    EXPECT_EQ(probe.ColourOf(0).grab().toImage().pixel(9, 7), qRgb(9, 8, 7));
    EXPECT_EQ(probe.ColourOf(1).grab().toImage().pixel(9, 7), qRgb(4, 5, 6));
    EXPECT_EQ(probe.Picture().hDC().Picture().foreColour, qRgb(9, 8, 7));
    EXPECT_EQ(probe.Picture().hDC().Picture().backColour, qRgb(4, 5, 6));
}

TEST_F(SnapshotWindow, ZoomByPanelStopsAtItsLimits) {
    const SnapshotProbe probe = Open(2000, 256, 40, 16);
    const auto left = Qt::LeftButton, right = Qt::RightButton, middle = Qt::MiddleButton;
    // pressed, released (0 is below the bar) and the zoom then
    const std::tuple<Qt::MouseButton, int, int, const char*> clicks[] = {
        {right, 3, 3, "1x"}, {left, 3, 3, "2x"},  {middle, 3, 3, "2x"}, {left, 3, 2, "2x"},
        {left, 2, 3, "2x"},  {left, 4, 4, "2x"},  {left, 3, 0, "2x"},   {left, 3, 3, "4x"},
        {left, 3, 3, "8x"},  {left, 3, 3, "16x"}, {left, 3, 3, "16x"}};
    const auto place = [&](int panel) {
        return panel == 0 ? QPoint(probe.Status().PanelLeft(3) + 10, 30)
                          : QPoint(probe.Status().PanelLeft(panel) + 10, 9);
    };
    for (const auto& [button, pressed, released, text] : clicks) {
        QTest::mousePress(&probe.Status(), button, {}, place(pressed));
        QTest::mouseRelease(&probe.Status(), button, {}, place(released));
        EXPECT_EQ(probe.Status().PanelAt(3).Text, QLatin1String(text));
    }
    EXPECT_EQ(probe.Picture().width(), 65536) << "wider than 16 bits";
}

TEST_F(SnapshotWindow, LayoutHoldsAtEverySize) {
    const SnapshotProbe probe = Open(1000);
    Type(probe, 0, "700");
    QWidget* frame = ChildFrame(&probe.form);
    for (const QSize size : {QSize(100, 100), QSize(290, 300), QSize(640, 560)}) {
        frame->resize(size);
        QCoreApplication::sendPostedEvents();
        const QSize inner = probe.form.size();
        EXPECT_EQ(frame->size(), size.expandedTo(QSize(267, 260)));
        EXPECT_EQ(probe.Container().geometry(), QRect(8, 8, inner.width() - 122, inner.height() - 38));
        EXPECT_EQ(Place(probe), 700 * (probe.Bar().height() - 48) / 1000);
        EXPECT_EQ(probe.form.GetOffset(), 700) << "a new limit of the bar is no scroll step";
        for (const int colour : {0, 1}) {
            EXPECT_EQ(probe.ColourOf(colour).pos(),
                      QPoint(probe.Status().PanelLeft(4) + 2 + 18 * colour, inner.height() - 15));
        }
        EXPECT_GT(probe.Options().y(), probe.Box(3).geometry().bottom());
        EXPECT_EQ(probe.Status().PanelWidth(1), std::max(0, inner.width() - 141 - 53 - 71));
        EXPECT_EQ(probe.form.childAt(probe.Box(0).pos()), &probe.Box(0)) << "not its label";
    }
    probe.Options().setFocus();
    QTest::keyClick(&probe.Options(), Qt::Key_Tab);
    EXPECT_EQ(probe.form.focusWidget(), &probe.Container());
}

} // namespace
} // namespace lumrake
