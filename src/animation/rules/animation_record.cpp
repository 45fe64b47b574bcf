#include "animation/rules/animation_record.h"

#include "base/record_codec.h"
#include "display/modes.h"

#include <algorithm>
#include <limits>

namespace lumrake {

namespace {

/// The fields in file order, for both directions.
template <class Record, class Visitor> void VisitFields(Record& record, Visitor&& visit) {
    visit(record.sAnimFile, record.sSnapFile, record.sTitle, record.iWidth, record.iLines, record.iZoom,
          record.lOffset, record.iFrames, record.lStep, record.iPause, record.iRepeat, record.lFileLength,
          record.byAttribute, record.sNotes, record.iMode, record.iUpsideDown);
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
    AnimationRecord copied = from;
    copied.sAnimFile = to.sAnimFile;
    copied.iZoom = to.iZoom;
    copied.lFileLength = to.lFileLength;
    to = copied;
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
