#include "animation/rules/animation_record.h"

#include "base/record_codec.h"
#include "snapshot/rules/addressing.h"

#include <algorithm>
#include <limits>

namespace lumrake {

namespace {

/// The fields in file order, for both directions.
template <class Record, class Visitor> void VisitFields(Record& record, Visitor&& visit) {
    visit(record.sAnimFile);
    visit(record.sSnapFile);
    visit(record.sTitle);
    visit(record.iWidth);
    visit(record.iLines);
    visit(record.iZoom);
    visit(record.lOffset);
    visit(record.iFrames);
    visit(record.lStep);
    visit(record.iPause);
    visit(record.iRepeat);
    visit(record.lFileLength);
    visit(record.byAttribute);
    visit(record.sNotes);
    visit(record.iMode);
    visit(record.iUpsideDown);
}

template <class Number>
void Hold(Number& field, Number least, Number most = std::numeric_limits<Number>::max()) {
    field = std::clamp(field, least, most);
}

} // namespace

std::array<std::uint8_t, kAnimationBytes> EncodeAnimation(const AnimationRecord& record) {
    std::array<std::uint8_t, kAnimationBytes> bytes{};
    VisitFields(record, RecordWriter(bytes));
    return bytes;
}

AnimationRecord DecodeAnimation(std::span<const std::uint8_t, kAnimationBytes> bytes) {
    AnimationRecord record;
    VisitFields(record, RecordReader(bytes));
    return record;
}

AnimationRecord HeldForUse(AnimationRecord record, std::int32_t lSnapLength) {
    Hold<std::int16_t>(record.iWidth, lmk::kLeastWidth, lmk::kMostWidth);
    // To the nearest multiple of 8, the middle going down.
    record.iWidth = static_cast<std::int16_t>((record.iWidth + 3) / 8 * 8);
    Hold<std::int16_t>(record.iLines, 1, lmk::kScreenLines);
    Hold<std::int16_t>(record.iZoom, 1, lmk::kMostZoom);
    Hold<std::int32_t>(record.lOffset, 0);
    Hold<std::int16_t>(record.iFrames, 1);
    Hold<std::int32_t>(record.lStep, 1);
    Hold<std::int16_t>(record.iPause, 1);
    if (record.iRepeat < kOnceOnly || record.iRepeat > kPingPong) {
        record.iRepeat = kContinuous;
    }
    if (record.lFileLength < 1) {
        record.lFileLength = lSnapLength;
    }
    record.iMode = lmk::PlayableMode(record.iMode);
    record.iUpsideDown = record.iUpsideDown == 0 ? std::int16_t{0} : std::int16_t{1};
    return record;
}

void CopySettings(const AnimationRecord& from, AnimationRecord& to) {
    const FixedString<100> sAnimFile = to.sAnimFile;
    const std::int16_t iZoom = to.iZoom;
    const std::int32_t lFileLength = to.lFileLength;
    to = from;
    to.sAnimFile = sAnimFile;
    to.iZoom = iZoom;
    to.lFileLength = lFileLength;
}

std::int32_t FrameOffset(const AnimationRecord& record, std::int16_t iFrame) {
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t offset = record.lOffset + std::int64_t{iFrame} * record.lStep;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(offset, Limits::min(), Limits::max()));
}

float FrameBytes(std::int16_t iMode, std::int32_t lWidth, std::int32_t lLines) {
    const float bytes = static_cast<float>(lWidth) / 8.0F * static_cast<float>(lLines);
    return bytes * static_cast<float>(lmk::RowOf(iMode).bytesPerByte);
}

} // namespace lumrake
