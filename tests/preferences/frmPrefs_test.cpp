#include "controls/tab_strip.h"
#include "preferences/frmPrefs.h"
#include "snapshot/frmColours.h"
#include "support/forms_support.h"
#include "support/when_open.h"

#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSlider>

namespace lumrake {
namespace {

class PrefsTest : public ::testing::Test {
  protected:
    /// Opens the dialog over the settings as they now are.
    void Open() {
        form = std::make_unique<frmPrefs>();
        form->show();
        testing::WaitForActive(*form);
    }
    template <class Control = QWidget> Control& Get(const char* name, int index = -1) {
        const QString number = index < 0 ? QString() : u"(%1)"_qs.arg(index);
        return dynamic_cast<Control&>(*form->findChild<QWidget*>(QLatin1String(name) + number));
    }
    void Do(const char* words) { testing::Use(*form, QLatin1String(words)); }
    QLineEdit& Field(int index) { return Get<QLineEdit>("txtDefault", index); }
    std::string SizeFields() {
        QString all;
        for (int i = 1; i <= 3; ++i) {
            all += Field(i).text() + QLatin1String(Field(i).isEnabled() ? " " : "! ");
        }
        return all.trimmed().toStdString();
    }
    PaletteColours Swatches() {
        PaletteColours colours{};
        std::ranges::generate(colours, [this, i = 0]() mutable {
            const QColor painted = Get("lblPalette", i++).grab().toImage().pixelColor(8, 8);
            return ColourOf({painted.red(), painted.green(), painted.blue()});
        });
        return colours;
    }
    testing::Stage stage;
    std::unique_ptr<frmPrefs> form;
};

TEST_F(PrefsTest, EachControlHasItsPlaceInTheRecordThereAndBack) {
    const std::tuple<const char*, int, int> rows[] = {
        // what is done, place in the record, the number then there
        // clang-format off
        {"@chkGeneral(0) click", 440, 0}, {"@chkGeneral(1) click", 438, 1}, {"@optMode(1) click", 454, 1},
        {"@optMode(2) click",    454, 2}, {"@optMode(3) click",    454, 3}, {"@optMode(4) click", 454, 4},
        {"@optMode(0) click",    454, 0}, {"@optSmall(1) click",   456, 2}, {"@optSmall(2) click", 456, 4},
        {"@optSmall(3) click",   456, 8}, {"@optSmall(0) click",   456, 1}, {"@optLarge(1) click", 458, 2},
        {"@optLarge(2) click",   458, 4}, {"@optLarge(3) click",   458, 8}, {"@optLarge(0) click", 458, 1},
        // too long a text is cut
        {"@txtDefault(0) 7000123", 442, 70001}, {"@txtDefault(1) 2408", 446, 240}, {"@txtDefault(2) 1807", 448, 180},
        {"@txtDefault(3) 129",     450, 12},    {"@txtDefault(4) 1139", 452, 113},
        // clang-format on
    };
    Settings.lDefaultOffset = 16384000; // longer than its field
    Settings.lPalette[0] = 0x7F102030;  // its high byte is nobody's business
    auto expected = EncodeSettings(Settings);
    Settings.iDefaultMode = -7; // unknown choices count as the first
    Settings.iSmallChange = Settings.iLargeChange = 3;
    for (const auto& [words, place, number] : rows) {
        SCOPED_TRACE(words);
        for (int i = 0; i < (place == 442 ? 4 : 2); ++i) {
            expected[static_cast<std::size_t>(place + i)] = static_cast<std::uint8_t>(number >> (8 * i));
        }
        Open();
        Do(words);
        Do("@cmdPrefs(0) click");
        EXPECT_EQ(EncodeSettings(Settings), expected);
        Open();
        testing::Use(*form, QString::fromLatin1(words).section(u' ', 0, 0));
        const auto* box = qobject_cast<QLineEdit*>(form->focusWidget());
        EXPECT_TRUE(box ? box->text().toInt() == number
                        : static_cast<QAbstractButton*>(form->focusWidget())->isChecked() ==
                              (place == 454 || number != 0));
    }
}

TEST_F(PrefsTest, TheModeTiesTheSizeFields) {
    Settings.iDefaultMode = 1;
    Settings.iDefaultWidth = 8;
    Open();
    const std::pair<const char*, const char*> rows[] = {
        {"@txtDefault(0)", "256! 192! 1!"},
        {"@optMode(0) click", "256 192 1"},
        {"@txtDefault(1) 16 @txtDefault(3) 7-1x.23", "16 192 71"}, // digits, as many as there is room for
        {"@optMode(2) click @txtDefault(2) 20 @txtDefault(1)", "16 16 1!"},
        {"@txtDefault(2) 5 @txtDefault(0)", "16 8 1!"},
    };
    for (const auto& [words, sizes] : rows) {
        Do(words);
        EXPECT_EQ(SizeFields(), sizes) << words;
    }
    Do("@txtDefault(2) 47 Return"); // Okay without a click must not pass 47 on
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Settings.iDefaultLines, 40);
}

TEST_F(PrefsTest, ALongNumberIsShownWholeAndOnlyMadeShorter) {
    Settings.lDefaultOffset = 1234567;
    Open();
    Do("@txtDefault(1)");
    for (const char* selected : {"1234567", ""}) { // by the click that brings the focus
        QTest::mouseClick(&Field(0), Qt::LeftButton);
        EXPECT_EQ(Field(0).selectedText(), QLatin1String(selected));
    }
    Do("End 8 Backspace 9");
    EXPECT_EQ(Field(0).text(), u"123456"_qs);
    QGuiApplication::clipboard()->setText(u"987654321"_qs);
    Field(0).clear();
    testing::FromContextMenu(Field(0), "&Paste");
    EXPECT_EQ(Field(0).text(), u"98765"_qs);
    testing::FromContextMenu(Field(0), "&Undo");
    EXPECT_EQ(Field(0).text(), u""_qs);
}

TEST_F(PrefsTest, AFaultIsToldOnceAndLeavesAllAsItIs) {
    Settings.lDefaultOffset = -5;
    const auto before = EncodeSettings(Settings);
    Open();
    Do("@chkGeneral(1) click @txtDefault(1) Backspace @txtDefault(3) Return");
    EXPECT_EQ(stage.boxes, std::vector{u"Preferences|Invalid default offset"_qs});
    EXPECT_TRUE(form->isVisible() && Field(3).isVisible() && Field(3).hasFocus());
    EXPECT_EQ(EncodeSettings(Settings), before);
}

TEST_F(PrefsTest, CancelTakesBackTheGradingsOnly) {
    const PaletteColours standard = Settings.lPalette;
    PaletteColours start = standard;
    start[0] = 0x70; // red 112, then steps of (208 - 112) / 7 = 13.7
    start[15] = 0;
    const struct {
        const char* words;
        bool atOnce;       ///< the palette has what the swatches show
        std::size_t index; ///< one of the swatches changed, and its colour afterwards
        Colour colour;
    } cases[] = {{"@lblPalette(9) click", true, 9, standard[9]},
                 {"@lblPalette(2) click @scrCol(1) PgUp", true, 2, ColourOf({208, 16, 0})},
                 {"@cmdPrefs(2) click D", true, 15, standard[15]},
                 {"@cmdPrefs(2) click N", true, 8, 0x70},
                 {"@cmdPrefs(2) click B", true, 7, 0},
                 {"@cmdPrefs(2) click P", false, 6, ColourOf({112 + 6 * 14, 180, 180})},
                 {"@cmdPrefs(2) click R", false, 14, 0}};
    for (const auto& [words, atOnce, index, colour] : cases) {
        for (const bool okay : {false, true}) {
            Settings.lPalette = start;
            Open();
            Do(words);
            const PaletteColours swatches = Swatches(), kept = atOnce ? swatches : start;
            EXPECT_EQ(swatches[index], colour) << words;
            EXPECT_EQ(Settings.lPalette, kept);
            Do(okay ? "@cmdPrefs(0) click" : "@cmdPrefs(1) click");
            EXPECT_EQ(Settings.lPalette, okay ? swatches : kept);
        }
    }
}

TEST_F(PrefsTest, TheSlidersFollowTheSelectedSwatch) {
    Open();
    Do("@lblPalette(9) click");
    EXPECT_EQ(Get<QLabel>("lblCol", 2).text(), u"255"_qs);
    EXPECT_EQ(Get("shpMarker").geometry(), Get("lblPalette", 9).geometry().adjusted(-1, -1, 1, 1));
    Do("Right Up Up Up Left Space"); // walked and chosen by keys
    EXPECT_EQ(Get("shpMarker").geometry(), Get("lblPalette", 1).geometry().adjusted(-1, -1, 1, 1));
    Do("@lblPalette(9) click");
    Do("@cmdPrefs(2) click R"); // a grading does not touch the sliders, and the next move starts from them
    Do("@scrCol(0)");
    testing::TurnWheel(Get("scrCol", 1), {0, 120}); // the focus is elsewhere
    testing::TurnWheel(Get("scrCol", 0), {0, 120});
    EXPECT_EQ(Settings.lPalette[9], ColourOf({3, 0, 255}));
    Do("@cmdPrefs(2) click P");
    Do("@cmdPrefs(2) click N"); // of swatches and palette each copies its own
    EXPECT_NE(Swatches()[9], Settings.lPalette[9]);
    EXPECT_EQ(Settings.lPalette[9], Settings.lPalette[1]);
    EXPECT_EQ(Get<QLabel>("lblCol", 0).text().toInt(), PartsOf(Swatches()[9])[0]);
    for (int i = 0; i < 3; ++i) {
        for (const auto& [key, number] :
             {std::pair{Qt::Key_Home, 0}, {Qt::Key_PageUp, 16}, {Qt::Key_End, 255}}) {
            QTest::keyClick(&Get("scrCol", i), key);
            EXPECT_EQ(Get<QLabel>("lblCol", i).text(), QString::number(number));
            EXPECT_EQ(Swatches()[9] >> (8 * i) & 255, number);
        }
        for (const QColor ground : {Qt::white, Qt::black}) { // the number is red, green or blue on both
            form->setPalette(ground);
            const QColor text = Get("lblCol", i).palette().color(QPalette::WindowText);
            const std::array parts{text.red(), text.green(), text.blue()};
            EXPECT_EQ(std::ranges::max_element(parts) - parts.begin(), i);
        }
    }
}

TEST_F(PrefsTest, PagesTurnByKeysAndClicksAndTakeTheFocus) {
    Settings.iSmallChange = 4;
    Open();
    const std::pair<const char*, const char*> turns[] = {
        // what is done, where the focus is then
        // clang-format off
        {"@chkGeneral(0) Ctrl+PgDown", "txtDefault(0)"}, {"@optMode(3) Ctrl+PgDown",     "optSmall(2)"},
        {"@optSmall(2) Ctrl+Tab",      "scrCol(0)"},     {"@scrCol(2) Ctrl+PgDown",      "chkGeneral(0)"},
        {"@chkGeneral(1) Ctrl+PgUp",   "scrCol(0)"},     {"@cmdPrefs(1) Ctrl+Shift+Tab", "optSmall(2)"},
        {"@optSmall(2) tab52",         "chkGeneral(0)"}, {"@chkGeneral(1) tab53",        "txtDefault(0)"},
        {"@txtDefault(3) tab170",      "optSmall(2)"},   {"@cmdPrefs(0) tab171",         "scrCol(0)"},
        {"@scrCol(1) tab200",          "scrCol(0)"},
        // clang-format on
    };
    for (const auto& [words, to] : turns) {
        Do(words);
        EXPECT_TRUE(form->focusWidget() == &Get(to) && Get(to).isVisible()) << words;
    }
}

TEST_F(PrefsTest, ThePickerGivesBackAnAttributeOrNothing) {
    Open();
    for (const auto& [button, field] :
         {std::pair{"@cmdColour(1) click", u"199"_qs}, {"@cmdColour(0) click", u"71"_qs}}) {
        Field(4).setText(u"199"_qs); // the picker leaves bit 7 out
        const testing::WhenOpen<frmColours> driver(
            [&button = button](frmColours& picker) { testing::Use(picker, QLatin1String(button)); });
        Do("@cmdPrefs(4) Return"); // not Okay's
        EXPECT_EQ(Field(4).text(), field);
    }
}

} // namespace
} // namespace lumrake
