#pragma once

#include "base/fixed_string.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace lumrake {

/// Repeat types, as values of iRepeat.
enum Repeat : std::int16_t { kOnceOnly = 0, kContinuous = 1, kPingPong = 2 };

/// What an animation is: which equally spaced frames to cut out of which file, and how to play them. It holds
/// no pictures. An .ANM file is this record and nothing else: in this order, little-endian, nothing between
/// the fields, 759 bytes, without a mark that says what it is.
///
///   offset width field        meaning
///        0   100 sAnimFile    the animation's own path when it was saved; blank before the first save
///      100   100 sSnapFile    path of the file that supplies the bytes
///      200    30 sTitle       caption of the window
///      230     2 iWidth       width of a frame in pixels, a multiple of 8 from 8 to 256
///      232     2 iLines       height of a frame in pixels, 1 to 192
///      234     2 iZoom        zoom index 1 to 5, for the factors 1, 2, 4, 8, 16
///      236     4 lOffset      place of frame 0 in the file, 0 and more
///      240     2 iFrames      number of frames; the dialog accepts 2 and more
///      242     4 lStep        bytes from the start of one frame to the start of the next, 1 and more
///      246     2 iPause       milliseconds from one frame to the next, 1 and more
///      248     2 iRepeat      0 Once only, 1 Continuous, 2 Ping-Pong
///      250     4 lFileLength  how many bytes of sSnapFile count, from its start; what it lacks reads 0
///      254     1 byAttribute  ink in bits 0 to 2, paper in bits 3 to 5, bright in bit 6
///      255   500 sNotes       free text; line breaks are CR LF
///      755     2 iMode        0 Graphics, 3 Line masks, 4 Byte masks
///      757     2 iUpsideDown  1 when the last line of a frame is drawn at the top, else 0
///
/// Texts are padded with blanks, not ended by a zero byte; one that is too long is cut.
///
/// Example: width 16, 24 lines, zoom 2, offset 27000, 8 frames of step 48, pause 100, Ping-Pong, length
/// 49179, attribute 56 has from 230 on
///   10 00  18 00  02 00  78 69 00 00  08 00  30 00 00 00  64 00  02 00  1B C0 00 00  38
struct AnimationRecord {
    FixedString<100> sAnimFile;
    FixedString<100> sSnapFile;
    FixedString<30> sTitle;
    std::int16_t iWidth = 0;
    std::int16_t iLines = 0;
    std::int16_t iZoom = 0;
    std::int32_t lOffset = 0;
    std::int16_t iFrames = 0;
    std::int32_t lStep = 0;
    std::int16_t iPause = 0;
    std::int16_t iRepeat = 0;
    std::int32_t lFileLength = 0;
    std::uint8_t byAttribute = 0;
    FixedString<500> sNotes;
    std::int16_t iMode = 0;
    std::int16_t iUpsideDown = 0;

    bool operator==(const AnimationRecord&) const = default;
};

inline constexpr std::size_t kAnimationBytes = 759;

/// The record's bytes, and the record that bytes stand for. Any bytes give a record, and encoding it gives
/// the same bytes again.
std::array<std::uint8_t, kAnimationBytes> EncodeAnimation(const AnimationRecord& record);
AnimationRecord DecodeAnimation(std::span<const std::uint8_t, kAnimationBytes> bytes);

/// The record with every number that lies outside its range at the nearest value that can be used: an unknown
/// mode counts as Graphics, an unknown repeat as Continuous, any upside-down flag but 0 as 1, a file length
/// below 1 as `lSnapLength`, the bytes that the snapshot has (0 and more). lOffset keeps its upper end open:
/// a place past the end of the file shows as an empty frame. Texts and the attribute stay.
AnimationRecord HeldForUse(AnimationRecord record, std::int32_t lSnapLength);

/// Copies what the setup dialog shows and nothing else: all fields but sAnimFile, iZoom and lFileLength,
/// which belong to the window.
void CopySettings(const AnimationRecord& from, AnimationRecord& to);

/// First byte of frame `iFrame` in the file. Held at the ends of 32 bits, where no file has bytes.
std::int32_t FrameOffset(const AnimationRecord& record, std::int16_t iFrame);

/// Bytes that one frame takes in the file: the step that frames standing close together have. The mask modes
/// hold a mask byte beside each byte of the picture, hence twice as many. A width that is no multiple of 8
/// gives a fraction.
float FrameBytes(std::int16_t iMode, std::int32_t lWidth, std::int32_t lLines);

} // namespace lumrake
