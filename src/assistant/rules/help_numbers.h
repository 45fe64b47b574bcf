#pragma once

#include <cstdint>

namespace lumrake {

/// The numbers of the prompts in LMKHELP.DAT, by what they tell about. Numbers that follow each other in a row or an
/// array of controls have a name for the first of them.
enum HelpNumber : std::int32_t {
    kHelpNone = 0, ///< empties the bubble

    // The snapshot window
    kHelpPicture = 1,
    kHelpThumb = 2,
    kHelpFirstValue = 3, ///< offset, width, lines, columns
    kHelpOptions = 7,
    kHelpFirstPanel = 8, ///< file name, size, zoom, attribute
    kHelpAttributePanel = 11,

    // The About box
    kHelpLogo = 12,
    kHelpAboutOkay = 13,
    kHelpCredit = 14,
    kHelpAuthor = 15,
    kHelpAbout = 16,

    // The toolbar of the main window
    kHelpOpen = 20,
    kHelpSave = 21,
    kHelpExport = 22,
    kHelpCut = 24,
    kHelpCopy = 25,
    kHelpPaste = 26,
    kHelpDraw = 28,
    kHelpMagnify = 29,
    kHelpNet = 30,
    kHelpPan = 31,
    kHelpToAnimation = 33,
    kHelpTopLeft = 34,
    kHelpNewAnimation = 36,
    kHelpOpenAnimation = 37,
    kHelpSaveAnimation = 38,
    kHelpCoords = 39,

    // The animation window
    kHelpBack = 40,
    kHelpStop = 41,
    kHelpPlay = 42,
    kHelpForward = 43,
    kHelpSetup = 44,
    kHelpFrame = 45,

    // The animation setup
    kHelpSettingsTab = 46,
    kHelpNotesTab = 47,
    kHelpSnapFile = 48,
    kHelpChooseFile = 49,
    kHelpTitle = 50,
    kHelpRepeat = 51,
    kHelpMode = 52,
    kHelpOffset = 53,
    kHelpWidth = 54,
    kHelpLines = 55,
    kHelpFrames = 56,
    kHelpStep = 57,
    kHelpPause = 58,
    kHelpUpsideDown = 59,
    kHelpAttribute = 60,
    kHelpNotes = 63,

    // Buttons of the animation setup and the preferences
    kHelpOkay = 61,
    kHelpCancel = 62,

    // The attribute picker
    kHelpColours = 64,
    kHelpSample = 65,
    kHelpBright = 66,
    kHelpPickerCancel = 67,
    kHelpSelect = 68,

    // The preferences
    kHelpGeneralTab = 69,
    kHelpDefaultsTab = 70,
    kHelpNavigationTab = 71,
    kHelpPaletteTab = 72,
    kHelpPromptSave = 73,
    kHelpAutoload = 74,
    kHelpDefaultOffset = 75,
    kHelpDefaultWidth = 76,
    kHelpDefaultLines = 77,
    kHelpDefaultColumns = 78,
    kHelpDefaultAttribute = 79,
    // 80 to 84 are those of the display modes (display/modes.h)
    kHelpDefaultColours = 85,
    kHelpFirstSmallChange = 86,
    kHelpFirstLargeChange = 90,
    kHelpPaletteTools = 94,
    kHelpRed = 95,
    kHelpGreen = 96,
    kHelpBlue = 97,
    kHelpPalette = 98,
};

} // namespace lumrake
