#include "snapshot/frmColours.h"

#include "support/when_open.h"

#include <QLabel>

namespace lumrake::testing {
namespace {

TEST(Colours, AreChosenByTheMouseAndGivenBackBySelectAlone) {
    // what it starts from; what is done, before it is closed by its box; the result; ink and paper as entries of the
    // palette
    const std::tuple<std::int16_t, const char*, std::int16_t, int, int> rows[] = {
        // clang-format off
        {-1,  "@cmdColour(0) click", 7,   7,  0},  {0,   "@cmdColour(0) click", 0,   0,  0},
        {71,  "@cmdColour(0) click", 71,  15, 8},  {255, "@cmdColour(0) click", 127, 15, 15},
        {9,   "@cmdColour(1) click", -1,  1,  1},  {9,   "@lblColour(2) click", -1,  2,  1},
        {-1,  "@lblColour(2) click @lblColour(6) right @lblColour(5) middle @lblColour(8) click @chkBright click "
              "Esc Return Enter @cmdColour(0) click", 114, 10, 14}, // the sample offers no colour, keys choose nothing
        {114, "@chkBright click @cmdColour(0) click", 50, 2, 6},
        // clang-format on
    };
    const Stage stage;
    std::ranges::generate(Settings.lPalette, [red = 0]() mutable { return red++; });
    frmColours form; // one for all, as a window has it
    for (const auto& [start, words, result, ink, paper] : rows) {
        SCOPED_TRACE(words);
        const WhenOpen<frmColours> driver([&form, words = words](frmColours&) {
            Use(form, QLatin1String(words));
            form.close();
        });
        EXPECT_EQ(form.GetColour(start), result);
        for (int i = 0; i < 9; ++i) {
            auto* square = form.findChild<QLabel*>(u"lblColour(%1)"_qs.arg(i));
            EXPECT_EQ(square->grab().toImage().pixel(9, 9), qRgb(i == 8 ? paper : i + (ink & 8), 0, 0)) << i;
            EXPECT_TRUE(i < 8 || square->palette().color(QPalette::WindowText) == QColor(ink, 0, 0));
        }
    }
}

} // namespace
} // namespace lumrake::testing
