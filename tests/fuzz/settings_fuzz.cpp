/// A settings file of any bytes: the record is written back as it was read, and what uses its fields keeps its
/// limits whatever they hold. The bytes behind the record are the file's length.
#include "display/lmk.h"
#include "fuzz/require.h"
#include "preferences/rules/prefs_rules.h"
#include "shell/rules/settings.h"
#include "snapshot/rules/view_limits.h"

#include <algorithm>
#include <cstring>

using namespace lumrake;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::array<std::uint8_t, kSettingsBytes> bytes{};
    const std::size_t head = std::min(size, bytes.size());
    std::copy_n(data, head, bytes.begin());
    const SettingsRecord settings = DecodeSettings(bytes);
    Require(EncodeSettings(settings) == bytes);
    IsSameVersion(settings, "2.00");

    std::int32_t length = 0;
    std::memcpy(&length, data + head, std::min(size - head, sizeof length));
    length = std::max(length & 0x7fffffff, 1);
    ViewNumbers view = DefaultView(settings, length);
    FitToMode(view, view.iMode);
    Require(view.lOffset >= 0 && view.lOffset < length && view.lFileLength == length);
    Require(view.iWidth % 8 == 0 && view.iWidth >= 8 && view.iWidth <= 256);
    Require(view.iLines >= 1 && view.iLines <= 512 && view.iColumns >= 1 && view.iColumns <= 16);
    Require(view.iMode >= kGraphics && view.iMode <= kByteMasks && view.iZoomFactor == 1);
    Require(view.iMode != kText || view.iLines % 8 == 0);
    Require(KnownMode(settings.iDefaultMode) <= kByteMasks);
    for (const char* which : {"FORE", "BACK"}) {
        const Colour colour = AttributeColour(settings, settings.iDefaultAttribute, which);
        Require(std::count(settings.lPalette.begin(), settings.lPalette.end(), colour) > 0);
    }
    return 0;
}
