/// The keys and turns of the wheel in a snapshot window, each with its effect.
#include "snapshot/snapshot_probe.h"

#include <sstream>

namespace lumrake {
namespace {

class Keys : public testing::SnapshotTest {
  protected:
    void ChooseTool(std::int16_t iTool) override { iCurrentTool = iTool; }

    static void Do(const SnapshotProbe& window, const char* script) {
        testing::Use(window.form, u"@picture "_qs + QLatin1String(script),
                     {{u"picture"_qs, &window.Picture()},
                      {u"ground"_qs, &window.Container()},
                      {u"track"_qs, &window.Track()},
                      {u"thumb"_qs, &window.Thumb()},
                      {u"offset"_qs, &window.Box(0)},
                      {u"width"_qs, &window.Box(1)},
                      {u"lines"_qs, &window.Box(2)},
                      {u"spin"_qs, &window.Spin(2)},
                      {u"ink"_qs, &window.ColourOf(0)},
                      {u"paper"_qs, &window.ColourOf(1)}},
                     {{u"paste"_qs, [&] { window.form.Paste(); }},
                      {u"copy"_qs, [&] { window.form.Copy(false); }},
                      {u"text"_qs, [&] { window.form.SetMode(kText, true); }},
                      {u"mouse"_qs, [&] { window.Move(0, 5, 6); }},
                      {u"below"_qs, [&] {
                           QTest::mouseClick(&window.Track(), Qt::LeftButton, {}, {4, 190});
                       }}});
    }
    /// All that a key may change.
    static std::string StateOf(const SnapshotProbe& window) {
        const auto [x, y] = window.form.Cell();
        const auto& net = window.Net();
        std::ostringstream state;
        // clang-format off
        state << window.Texts() << "; " << window.View().iZoomFactor << "x; cell " << x << ',' << y << "; at "
              << window.Picture().x() << ',' << window.Picture().y() << "; tool " << iCurrentTool << "; colours "
              << window.form.GetAttribute() << "; net " << net.Left << ',' << net.Top << ',' << net.Width << ','
              << net.Height << (net.Visible ? "" : " hidden") << ';' << std::hex;
        // clang-format on
        for (std::size_t i = 0; i < window.Memory().size(); ++i) {
            const int byte = window.Data()[i];
            byte != 0 ? state << ' ' << i << ':' << byte : state;
        }
        return state.str() + '.';
    }
};

TEST_F(Keys, DoWhatTheTableSays) {
    // clang-format off
    const std::pair<const char*, const char*> cases[] = { // what is done and what the state then tells
        {"Right Right Down",                      "cell 2,1"},
        {"Ctrl+Right Ctrl+Down Left",             "cell 7,8"},
        {"End Down Right",                        "cell 63,1"},
        {"End Home Up",                           "cell 0,0"},
        {"mouse Right",                           "cell 6,6"},
        {"Right Space",                           "; 0:40"},
        {"+Space Right =Space Down -Space Down",  "; 0:c0 8:40"},
        {"Space Right Space Backspace",           "; 0:80"},
        {"Z +Space =Space -Space",                "2x; cell 0,0"},
        {"Z Space Space Space End Ctrl+Down",     "8x; cell 63,8; at -252,0"}, // no further than into sight
        {"Z End Space Space Space Backspace",     "4x; cell 63,0"},
        {"S Right +Space End Ctrl+Down -Space",   "cell 63,8; at 0,0; tool 4; colours 15; net 1,0,63,8;"},
        {"P +Space Left Ctrl+Down -Space Right",  "cell 1,0; at -1,8; tool 5"},
        {"Ctrl+Down Return",                      "64 64 40 1"},
        {"PgDown PgDown PgDown PgDown PgDown PgDown Ctrl+Down Ctrl+Down Enter", "1920 64 40 1"}, // past the end
        {"Space S +Space Right Down -Space copy D paste Down Down +Space Down -Space", "hidden; 0:80 10:80."},
        {"Space S +Space Right Down -Space copy D paste Down Esc", "hidden; 0:80."},
        {"Space S +Space Right Down -Space copy D paste Esc", "tool 2;"},
        {"@offset Up Up Down",                    "1 64 40 1"},
        {"@width Up",                             "0 72 40 1"},
        {"@lines PgDown PgDown PgUp",             "320 64 40 1"},
        {"text @lines Up",                        "0 64 40 1"},
        {"Z Space Space Space @ground Right Down Down Up", "at -32,-32"},
        {"@ground Right Down",                    "at 0,0"}, // all of it is seen
        {"@ink Backspace",                        "colours 14"},
        {"@paper right",                          "colours 7;"},
        {"below",                                 "320 64 40 1"},
        {"wheel-120",                             "8 64 40 1"},
        {"wheel-60 wheel-60 wheel-60 wheel60",    "8 64 40 1"}, // turned back it begins anew
        {"@ground wheel-240 @track wheel-120 @thumb wheel120", "16 64 40 1"},
        {"shift,wheel-120 shift,side-240",        "3 64 40 1"},
        {"shift,ctrl,wheel120",                   "0 72 40 1"},
        {"ctrl,wheel120 ctrl,wheel240 ctrl,wheel-120", "4x; cell 2,2; at -8,-8"},
        {"ctrl,wheel360 side-30",                 "8x; cell 5,3; at -44,-28"},
        {"held,wheel-120 +Space wheel-120 -Space", "0 64 40 1"},
        {"@lines wheel120 @spin wheel120",        "0 64 56 1"},
        {"text @lines wheel120 @spin wheel120",   "0 64 48 1"},
    };
    // clang-format on
    for (const auto& [script, state] : cases) {
        const SnapshotProbe window = Open(std::vector<std::uint8_t>(2000));
        Settings.iSmallChange = Settings.iLargeChange = 1;
        Settings.bPromptSave = 0;
        iCurrentTool = kToolDraw;
        Do(window, script);
        EXPECT_NE(StateOf(window).find(state), std::string::npos) << script << " gives " << StateOf(window);
        window.form.close();
    }
}

TEST_F(Keys, TheByteUnderTheCellIsToldBesideThePicture) {
    const SnapshotProbe window = Open(std::vector<std::uint8_t>(2000));
    const QRect lines(window.Box(3).geometry().bottomLeft() + QPoint(0, 2),
                      window.Options().geometry().topRight() - QPoint(0, 2));
    const auto shown = [&] { return window.form.grab(lines).toImage(); };
    const QImage bare = shown();
    Do(window, "Right");
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown() != bare; }, 60000));
}

TEST_F(Keys, TheGridLiesBetweenThePixelsFrom8xUp) {
    const SnapshotProbe window = Open(std::vector<std::uint8_t>(2000));
    for (const std::int16_t zoom : {std::int16_t{3}, std::int16_t{4}}) {
        window.form.SetZoom(zoom);
        const QImage plain = window.Picture().grab().toImage();
        Do(window, "G");
        const QImage grid = window.Picture().grab().toImage();
        Do(window, "G");
        EXPECT_EQ(window.Picture().grab().toImage(), plain);
        for (int at = 0; at < 160; ++at) {
            const bool line = zoom == 4 && (at % 8 == 0 || at % 64 == 1); // each eighth is two thick
            EXPECT_EQ(grid.pixel(at, 5) != plain.pixel(at, 5), line) << at;
            EXPECT_EQ(grid.pixel(5, at) != plain.pixel(5, at), line) << at;
        }
    }
}

} // namespace
} // namespace lumrake
