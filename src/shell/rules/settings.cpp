#include "shell/rules/settings.h"

#include "base/record_codec.h"
#include "display/attribute.h"

namespace lumrake {

namespace {

/// The one list of the fields in file order, for both directions.
template <typename Record, typename Visitor> void VisitFields(Record& record, Visitor visit) {
    visit(record.sVersion, record.lWindowTop, record.lWindowLeft, record.lWindowWidth, record.lWindowHeight,
          record.bToolbarVisible, record.sRecentFile, record.bAutoload, record.bPromptSave,
          record.lDefaultOffset, record.iDefaultWidth, record.iDefaultLines, record.iDefaultColumns,
          record.iDefaultAttribute, record.iDefaultMode, record.iSmallChange, record.iLargeChange,
          record.lPalette, record.bAssistantOn);
}

constexpr Colour Rgb(Colour red, Colour green, Colour blue) {
    return red + 256 * green + 65536 * blue;
}

} // namespace

std::array<std::uint8_t, kSettingsBytes> EncodeSettings(const SettingsRecord& settings) {
    std::array<std::uint8_t, kSettingsBytes> bytes{};
    VisitFields(settings, RecordWriter(bytes));
    return bytes;
}

SettingsRecord DecodeSettings(std::span<const std::uint8_t, kSettingsBytes> bytes) {
    SettingsRecord settings;
    VisitFields(settings, RecordReader(bytes));
    return settings;
}

void SetDefaultSettings(SettingsRecord& settings, std::string_view version, const WindowTwips& window) {
    settings = SettingsRecord();
    settings.sVersion.Set(version);
    settings.lWindowTop = window.lTop;
    settings.lWindowLeft = window.lLeft;
    settings.lWindowWidth = window.lWidth;
    settings.lWindowHeight = window.lHeight;
    SetDefaultPalette(settings);
}

void SetDefaultPalette(SettingsRecord& settings) {
    // The colour number's bits are blue, red, green from the lowest; 208 is a normal channel, 255 a bright
    // one.
    for (std::size_t i = 0; i < settings.lPalette.size(); ++i) {
        const Colour level = i < 8 ? 208 : 255;
        settings.lPalette[i] = Rgb(i & 2 ? level : 0, i & 4 ? level : 0, i & 1 ? level : 0);
    }
}

bool IsSameVersion(const SettingsRecord& settings, std::string_view version) {
    return settings.sVersion.Trimmed() == TrimBlanks(version);
}

Colour AttributeColour(const SettingsRecord& settings, std::int16_t iAttribute, std::string_view sWhich) {
    return settings.lPalette[static_cast<std::size_t>(sWhich == "FORE" ? lmk::InkColour(iAttribute)
                                                                       : lmk::PaperColour(iAttribute))];
}

} // namespace lumrake
