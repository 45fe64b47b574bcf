#include "platform/tab_strip.h"
#include "preferences/colour_swatch.h"
#include "preferences/frmPrefs.h"
#include "snapshot/frmColours.h"
#include "support/forms_support.h"
#include "support/when_open.h"

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
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    template <class Control = QWidget> Control& Get(const char* name, int index = -1) {
        const QString number = index < 0 ? QString() : u"(%1)"_qs.arg(index);
        return dynamic_cast<Control&>(*form->findChild<QWidget*>(QLatin1String(name) + number));
    }
    void Press(const char* name, int index) { Get<QAbstractButton>(name, index).click(); }
    void Choose(int mode) { Press("optMode", mode); }
    void Select(int swatch) { QTest::mouseClick(&Get("lblPalette", swatch), Qt::LeftButton); }
    QLineEdit& Field(int index) { return Get<QLineEdit>("txtDefault", index); }
    /// Types into a field and moves the focus on to another.
    void Type(int index, const char* keys, int next) {
        Field(index).setFocus();
        QTest::keyClicks(&Field(index), QLatin1String(keys));
        Field(next).setFocus();
    }
    QString SizeFields() {
        QString all;
        for (int i = 1; i <= 3; ++i) {
            all += Field(i).text() + QLatin1String(Field(i).isEnabled() ? " " : "! ");
        }
        return all.trimmed();
    }
    void Okay() { Press("cmdPrefs", 0); }
    void Page(int index) { Get<TabStrip>("SSTab1").SetTab(index); }
    void Menu(int entry) { form->findChild<QMenu*>()->actions()[entry]->trigger(); }
    void Slide(int index, int value) { Get<QSlider>("scrCol", index).setValue(value); }
    PaletteColours Swatches() {
        PaletteColours colours{};
        std::ranges::generate(
            colours, [this, i = 0]() mutable { return Get<ColourSwatch>("lblPalette", i++).BackColor(); });
        return colours;
    }
    testing::Stage stage;
    std::unique_ptr<frmPrefs> form;
};

TEST_F(PrefsTest, OkayWritesWhatTheScreenShows) {
    Settings.bAutoload = 1;
    Settings.lDefaultOffset = 16384000; // longer than its field
    Settings.iDefaultAttribute = 0;
    Settings.lPalette[0] = 0x7F102030; // its high byte is nobody's business
    SettingsRecord expected = Settings;
    Settings.iDefaultMode = -7; // unknown choices count as the first
    Settings.iSmallChange = Settings.iLargeChange = 3;
    for (const bool edits : {false, true}) {
        Open();
        if (edits) {
            Press("chkGeneral", 0);
            Field(0).setText(u"9e99"_qs); // held at the end of its field
            Choose(4);
            Press("optSmall", 1);
            Press("optLarge", 2);
            expected.bPromptSave = 0;
            expected.lDefaultOffset = 2147483647;
            expected.iDefaultMode = 4;
            expected.iSmallChange = 2;
            expected.iLargeChange = 4;
        }
        Okay();
        EXPECT_FALSE(form->isVisible());
        EXPECT_EQ(EncodeSettings(Settings), EncodeSettings(expected)) << edits;
    }
}

TEST_F(PrefsTest, TheModeTiesTheSizeFields) {
    Settings.iDefaultMode = 1;
    Settings.iDefaultWidth = 8;
    Open();
    Page(1);
    EXPECT_EQ(SizeFields(), u"256! 192! 1!"_qs);
    Choose(0);
    EXPECT_EQ(SizeFields(), u"256 192 1"_qs);
    Type(1, "16", 3);
    Type(3, "7-1x. 23", 2); // digits, as many as there is room for
    EXPECT_EQ(Field(3).text(), u"71"_qs);
    Choose(2);
    Type(2, "20", 1);
    EXPECT_EQ(SizeFields(), u"16 16 1!"_qs);
    Type(2, "5", 0);
    EXPECT_EQ(SizeFields(), u"16 8 1!"_qs);
    Type(2, "47", 2);
    QTest::keyClick(&Field(2), Qt::Key_Return); // Okay without a click must not pass 47 on
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Settings.iDefaultLines, 40);
}

TEST_F(PrefsTest, AFaultIsToldOnceAndLeavesAllAsItIs) {
    Settings.lDefaultOffset = -5;
    const auto before = EncodeSettings(Settings);
    Open();
    Press("chkGeneral", 1);
    Page(1);
    Field(1).clear();
    Field(3).setFocus();
    QTest::keyClick(&Field(3), Qt::Key_Return);
    EXPECT_EQ(stage.boxes, std::vector<QString>{u"Preferences|Invalid default offset"_qs});
    EXPECT_TRUE(form->isVisible() && Field(3).hasFocus());
    EXPECT_EQ(Get<TabStrip>("SSTab1").CurrentTab(), 1);
    EXPECT_EQ(EncodeSettings(Settings), before);
}

TEST_F(PrefsTest, CancelTakesBackTheGradingsOnly) {
    const PaletteColours standard = Settings.lPalette;
    PaletteColours start = standard;
    start[0] = 0x70; // red 112, then steps of (208 - 112) / 7 = 13.7
    start[15] = 0;
    const struct {
        std::function<void()> act;
        bool atOnce;       ///< the palette has what the swatches show
        std::size_t index; ///< one of the swatches changed, and its colour afterwards
        Colour colour;
    } cases[] = {{[this] { Select(9); }, true, 9, standard[9]},
                 {[this] { Select(2), Slide(1, 77); }, true, 2, ColourOf({208, 77, 0})},
                 {[this] { Menu(0); }, true, 15, standard[15]},
                 {[this] { Menu(1); }, true, 8, 0x70},
                 {[this] { Menu(2); }, true, 7, 0},
                 {[this] { Menu(3); }, false, 6, ColourOf({112 + 6 * 14, 180, 180})},
                 {[this] { Menu(4); }, false, 14, 0}};
    for (const auto& one : cases) {
        for (const bool okay : {false, true}) {
            Settings.lPalette = start;
            Open();
            one.act();
            const PaletteColours swatches = Swatches(), kept = one.atOnce ? swatches : start;
            EXPECT_EQ(swatches[one.index], one.colour) << one.index;
            EXPECT_EQ(Settings.lPalette, kept);
            Press("cmdPrefs", okay ? 0 : 1);
            EXPECT_EQ(Settings.lPalette, okay ? swatches : kept);
        }
    }
}

TEST_F(PrefsTest, TheSlidersFollowTheSelectedSwatch) {
    Open();
    Select(9);
    EXPECT_EQ(Get<QLabel>("lblCol", 2).text(), u"255"_qs);
    EXPECT_EQ(Get("shpMarker").geometry(), Get("lblPalette", 9).geometry().adjusted(-1, -1, 1, 1));
    Menu(4); // a grading does not touch the sliders, and the next move starts from them
    Slide(0, 3);
    EXPECT_EQ(Settings.lPalette[9], ColourOf({3, 0, 255}));
    Menu(3);
    Menu(1); // of swatches and palette each copies its own
    EXPECT_NE(Swatches()[9], Settings.lPalette[9]);
    EXPECT_EQ(Settings.lPalette[9], Settings.lPalette[1]);
    EXPECT_EQ(Get<QLabel>("lblCol", 0).text().toInt(), PartsOf(Swatches()[9]).red);
}

TEST_F(PrefsTest, ThePickerGivesBackAnAttributeOrNothing) {
    Open();
    for (const auto& [button, field] : {std::pair{u"&Cancel"_qs, u"199"_qs}, {u"&Select"_qs, u"71"_qs}}) {
        Field(4).setText(u"199"_qs); // the picker leaves bit 7 out
        const testing::WhenOpen<frmColours> driver([&button = button](frmColours& picker) {
            for (auto* one : picker.findChildren<QPushButton*>()) {
                one->text() == button ? one->click() : void();
            }
        });
        Page(1);
        Get("cmdPrefs", 4).setFocus();
        QTest::keyClick(&Get("cmdPrefs", 4), Qt::Key_Return); // not Okay's
        EXPECT_EQ(Field(4).text(), field);
    }
}

} // namespace
} // namespace lumrake
