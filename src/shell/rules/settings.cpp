#include "shell/rules/settings.h"

#include "base/record_codec.h"

namespace lumrake {

namespace {

/// The one list of the fields in file order, for both directions.
template <typename Record, typename Visitor> void VisitFields(Record& record, Visitor visit) {
    visit(record.sVersion);
    visit(record.lWindowTop);
    visit(record.lWindowLeft);
    visit(record.lWindowWidth);
    visit(record.lWindowHeight);
    for (auto& visible : record.bToolbarVisible) {
        visit(visible);
    }
    for (auto& file : record.sRecentFile) {
        visit(file);
    }
    visit(record.bAutoload);
    visit(record.bPromptSave);
    visit(record.lDefaultOffset);
    visit(record.iDefaultWidth);
    visit(record.iDefaultLines);
    visit(record.iDefaultColumns);
    visit(record.iDefaultAttribute);
    visit(record.iDefaultMode);
    visit(record.iSmallChange);
    visit(record.iLargeChange);
    for (auto& colour : record.lPalette) {
        visit(colour);
    }
    visit(record.bAssistantOn);
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
    settings.sVersion.Set(version);
    settings.lWindowTop = window.lTop;
    settings.lWindowLeft = window.lLeft;
    settings.lWindowWidth = window.lWidth;
    settings.lWindowHeight = window.lHeight;
    settings.bToolbarVisible.fill(-1);
    for (auto& file : settings.sRecentFile) {
        file.Set("");
    }
    settings.bAutoload = 0;
    settings.bPromptSave = 1;
    settings.lDefaultOffset = 0;
    settings.iDefaultWidth = 256;
    settings.iDefaultLines = 192;
    settings.iDefaultColumns = 1;
    settings.iDefaultAttribute = 15;
    settings.iDefaultMode = 0;
    settings.iSmallChange = 1;
    settings.iLargeChange = 1;
    settings.bAssistantOn = 0;
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
    const int half = (iAttribute & 64) != 0 ? 8 : 0;
    const int index = (sWhich == "FORE" ? iAttribute : iAttribute >> 3) & 7;
    return settings.lPalette[static_cast<std::size_t>(half + index)];
}

} // namespace lumrake
