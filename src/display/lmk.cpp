/// How the drawing stays near the cost of copying bytes: the picture is filled in blocks of 16 lines. For every
/// block (or character row) ByteWindow::Bytes gives a pointer to memory that may be read whole, so nothing below it
/// has to think about the ends of the file. Wide columns are copied row by row with a length known to the
/// compiler; narrow ones would cost one step a byte and are turned as small matrices in registers instead. The
/// loops are written so that the compiler makes vector code of them. A clip that leaves part of the picture takes
/// the plain road, byte by byte.
#include "display/lmk.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <utility>

namespace lmk {
namespace {

enum Mode : int { kGraphics = 0, kScreen = 1, kText = 2, kLineMasks = 3, kByteMasks = 4 };

constexpr int kMaxColumns = 16, kMaxLines = 512, kMaxColumnBytes = 32;
constexpr int kMaxRowBytes = kMaxColumns * kMaxColumnBytes;
constexpr int kBlockLines = 16;
constexpr int kCharLines = 8;
/// Most bytes that are asked of ByteWindow at once: a character row.
constexpr int kMaxRun = kCharLines * kMaxRowBytes;
static_assert(kMaxRun >= kBlockLines * 2 * kMaxColumnBytes);

constexpr std::array<std::uint8_t, kMaxRun> kZeros{};

/// The memory as an endless line of bytes, 0 outside.
class ByteWindow {
public:
    ByteWindow(const std::uint8_t* memory, std::int32_t length)
        : memory_(memory), length_(memory != nullptr && length > 0 ? length : 0) {}

    std::uint8_t At(std::int64_t address) const {
        return address >= 0 && address < length_ ? memory_[address] : std::uint8_t{0};
    }

    /// Pointer to `count` (1..kMaxRun) readable bytes with the content of address, address + 1, ... A run across an
    /// end of the memory is pieced together in a patch; there is one for each end, so that runs which do not
    /// overlap may be asked for one after the other and used together.
    const std::uint8_t* Bytes(std::int64_t address, std::int64_t count) {
        const std::int64_t end = address + count;
        if (address >= 0 && end <= length_)
            return memory_ + address;
        if (end <= 0 || address >= length_)
            return kZeros.data();
        std::uint8_t* patch = patches_[address < 0 ? 0 : 1];
        const std::int64_t from = std::max<std::int64_t>(address, 0), to = std::min<std::int64_t>(end, length_);
        std::fill_n(patch, count, std::uint8_t{0});
        std::copy(memory_ + from, memory_ + to, patch + (from - address));
        return patch;
    }

private:
    const std::uint8_t* memory_;
    std::int64_t length_;
    std::uint8_t patches_[2][kMaxRun]; // filled when needed
};

/// The numbers of a view, all within their limits.
struct View {
    std::int64_t offset;
    int mode, columnBytes, lines, columns;
    bool upsideDown;

    bool HasColumns() const { return mode != kScreen && mode != kText; }
    /// Bytes from one line of a column to the next one, in the modes with columns.
    int Pitch() const { return mode == kGraphics ? columnBytes : 2 * columnBytes; }
    int RowBytes() const { return columnBytes * columns; }
    /// Address of the first byte of a line, in Text of the line's byte in the first character.
    std::int64_t LineAddress(int line) const {
        switch (mode) {
        case kScreen: return offset + zxScreenOffset(0, line);
        case kText: return offset + line / kCharLines * kCharLines * columnBytes + line % kCharLines;
        default: return offset + std::int64_t{line} * Pitch();
        }
    }
};

/// Where the lines of a view go: line 0 at the top, or at the bottom with a negative step.
struct Target {
    std::uint8_t* line0;
    std::ptrdiff_t step;

    std::uint8_t* Line(int line) const { return line0 + line * step; }
};

// ---- Blocks of lines ---------------------------------------------------------------------------------------------

template <int kBytes>
void CopyLines(std::uint8_t* __restrict to, std::ptrdiff_t step, const std::uint8_t* __restrict from, int pitch,
               int lines) {
    for (int i = 0; i < lines; ++i, to += step, from += pitch)
        std::memcpy(to, from, kBytes);
}

/// The same for bytes that are followed by mask bytes.
template <int kBytes>
void CopyEvenBytes(std::uint8_t* __restrict to, std::ptrdiff_t step, const std::uint8_t* __restrict from, int pitch,
                   int lines) {
    for (int i = 0; i < lines; ++i, to += step, from += pitch)
        for (int b = 0; b < kBytes; ++b)
            to[b] = from[2 * b];
}

using LineCopier = void (*)(std::uint8_t*, std::ptrdiff_t, const std::uint8_t*, int, int);

template <std::size_t... kIndex>
LineCopier CopierFor(int columnBytes, bool everySecond, std::index_sequence<kIndex...>) {
    static constexpr LineCopier kPlain[] = {&CopyLines<kIndex + 1>...};
    static constexpr LineCopier kEven[] = {&CopyEvenBytes<kIndex + 1>...};
    return (everySecond ? kEven : kPlain)[columnBytes - 1];
}

/// Turns 16 / sizeof(Unit) columns by 16 lines: piece `line` of columns[k] becomes piece k of target line `line`.
template <typename Unit>
void TurnColumns(const std::uint8_t* const* columns, const Target& target, int firstLine) {
    constexpr std::size_t kColumns = 16 / sizeof(Unit);
    Unit in[kColumns][kBlockLines], out[kBlockLines][kColumns];
    for (std::size_t k = 0; k < kColumns; ++k)
        std::memcpy(in[k], columns[k], sizeof in[k]);
    for (int line = 0; line < kBlockLines; ++line)
        for (std::size_t k = 0; k < kColumns; ++k)
            out[line][k] = in[k][line];
    for (int line = 0; line < kBlockLines; ++line)
        std::memcpy(target.Line(firstLine + line), out[line], sizeof out[line]);
}

/// Picks units 0, 2, 4 ... of a block: drops mask bytes (one-byte units) or mask rows (units of a row's length).
template <typename Unit>
void PickEven(const std::uint8_t* from, std::uint8_t* to, int units) {
    for (int i = 0; i < units; ++i)
        std::memcpy(to + i * static_cast<int>(sizeof(Unit)), from + 2 * i * static_cast<int>(sizeof(Unit)),
                    sizeof(Unit));
}

/// Columns of 8, 16 or 32 pixels (Unit: one line of one), at least 16 lines.
template <typename Unit>
void DrawNarrowColumns(const View& view, ByteWindow& window, const Target& target) {
    constexpr std::size_t kTurned = 16 / sizeof(Unit);
    constexpr int kGroup = static_cast<int>(kTurned), kBytes = static_cast<int>(sizeof(Unit));
    std::uint8_t picked[kTurned][kBlockLines * sizeof(Unit)];
    for (int line = 0; line < view.lines; line += kBlockLines) {
        const int first = std::min(line, view.lines - kBlockLines); // the last block may repeat lines
        for (int group = 0; group < view.columns; group += kGroup) {
            const std::uint8_t* columns[kTurned];
            for (int k = 0; k < kGroup; ++k) {
                if (group + k >= view.columns) {
                    columns[k] = kZeros.data(); // bits right of the picture
                    continue;
                }
                const std::int64_t row = std::int64_t{group + k} * view.lines + first;
                columns[k] = window.Bytes(view.offset + row * view.Pitch(), kBlockLines * view.Pitch());
                if (view.mode == kGraphics)
                    continue;
                if (view.mode == kByteMasks)
                    PickEven<std::uint8_t>(columns[k], picked[k], kBlockLines * kBytes);
                else
                    PickEven<Unit>(columns[k], picked[k], kBlockLines);
                columns[k] = picked[k];
            }
            TurnColumns<Unit>(columns, Target{target.line0 + group * kBytes, target.step}, first);
        }
    }
}

void DrawColumns(const View& view, ByteWindow& window, const Target& target) {
    constexpr int kTurnFrom = 4; // columns; fewer are copied faster one by one
    if (view.lines >= kBlockLines && view.columns >= kTurnFrom) {
        switch (view.columnBytes) {
        case 1: return DrawNarrowColumns<std::uint8_t>(view, window, target);
        case 2: return DrawNarrowColumns<std::uint16_t>(view, window, target);
        case 4: return DrawNarrowColumns<std::uint32_t>(view, window, target);
        default: break;
        }
    }
    const LineCopier copy =
        CopierFor(view.columnBytes, view.mode == kByteMasks, std::make_index_sequence<kMaxColumnBytes>());
    const int pitch = view.Pitch();
    for (int line = 0; line < view.lines; line += kBlockLines) {
        const int lines = std::min(kBlockLines, view.lines - line);
        for (int column = 0; column < view.columns; ++column) {
            const std::int64_t row = std::int64_t{column} * view.lines + line;
            copy(target.Line(line) + column * view.columnBytes, target.step,
                 window.Bytes(view.offset + row * pitch, lines * pitch), pitch, lines);
        }
    }
}

void DrawScreen(const View& view, ByteWindow& window, const Target& target) {
    const auto bytes = static_cast<std::size_t>(view.RowBytes());
    for (int line = 0; line < view.lines; ++line)
        std::memcpy(target.Line(line), window.Bytes(view.LineAddress(line), view.RowBytes()), bytes);
}

/// Turns 16 characters of 8 bytes into 8 lines of 16 bytes.
void TurnCharacters(const std::uint8_t* __restrict characters, std::uint8_t (&out)[kCharLines][16]) {
    std::uint8_t in[16][kCharLines];
    std::memcpy(in, characters, sizeof in);
    for (int line = 0; line < kCharLines; ++line)
        for (int k = 0; k < 16; ++k)
            out[line][k] = in[k][line];
}

void DrawText(const View& view, ByteWindow& window, const Target& target) {
    constexpr int kGroup = 16;
    std::uint8_t out[kCharLines][kGroup];
    for (int line = 0; line < view.lines; line += kCharLines) {
        const std::uint8_t* from = window.Bytes(view.LineAddress(line), kCharLines * view.RowBytes());
        const int lines = std::min(kCharLines, view.lines - line);
        for (int group = 0; group < view.RowBytes(); group += kGroup) {
            const int count = std::min(kGroup, view.RowBytes() - group);
            const std::uint8_t* characters = from + group * kCharLines;
            std::uint8_t filledUp[kGroup * kCharLines];
            if (count < kGroup) { // a row has room for 16 bytes; those right of the picture stay 0
                std::fill(std::copy_n(characters, count * kCharLines, filledUp), std::end(filledUp),
                          std::uint8_t{0});
                characters = filledUp;
            }
            TurnCharacters(characters, out);
            for (int i = 0; i < lines; ++i)
                std::memcpy(target.Line(line + i) + group, out[i], kGroup);
        }
    }
}

// ---- The clip ----------------------------------------------------------------------------------------------------

/// Draws only `clip`, which lies in the picture and is not empty. The bits of a byte that the clip leaves out keep
/// what they were.
void DrawClip(const View& view, const ByteWindow& window, const Target& target, const Rect& clip) {
    const int right = clip.x + clip.width;
    const int firstByte = clip.x / 8, lastByte = (right - 1) / 8;
    const int firstMask = 0xff >> (clip.x % 8), lastMask = 0xff00 >> ((right - 1) % 8 + 1);
    const int columnBytes = view.HasColumns() ? view.columnBytes : view.RowBytes();
    const std::int64_t columnStep = std::int64_t{view.lines} * view.Pitch();
    const int byteStep = view.mode == kText ? kCharLines : view.mode == kByteMasks ? 2 : 1;

    for (int row = clip.y; row < clip.y + clip.height; ++row) {
        const int line = view.upsideDown ? view.lines - 1 - row : row;
        const std::int64_t start = view.LineAddress(line);
        std::uint8_t* to = target.Line(line);
        for (int b = firstByte; b <= lastByte; ++b) {
            const std::int64_t address = start + b / columnBytes * columnStep + b % columnBytes * byteStep;
            const int mask = (b == firstByte ? firstMask : 0xff) & (b == lastByte ? lastMask : 0xff);
            to[b] = static_cast<std::uint8_t>((to[b] & ~mask) | (window.At(address) & mask));
        }
    }
}

Rect Intersection(const Rect& a, int width, int height) {
    const auto cut = [](std::int64_t at, int limit) {
        return static_cast<int>(std::clamp<std::int64_t>(at, 0, limit));
    };
    const int left = cut(a.x, width), top = cut(a.y, height);
    return {left, top, cut(std::int64_t{a.x} + a.width, width) - left,
            cut(std::int64_t{a.y} + a.height, height) - top};
}

std::uint32_t ScreenColour(std::int32_t colour) {
    const auto value = static_cast<std::uint32_t>(colour);
    return 0xff000000 | (value & 0xff) << 16 | (value & 0xff00) | (value >> 16 & 0xff);
}

} // namespace

std::uint32_t DeviceContext::ScreenPixel(int x, int y) const {
    const bool inside = x >= 0 && y >= 0 && picture_.PixelAt(x / factor_, y / factor_);
    return inside ? picture_.foreColour : picture_.backColour;
}

void DeviceContext::Clear() {
    picture_.Resize(picture_.Width(), picture_.Height());
}

std::int32_t ZoomIndexToFactor(std::int32_t iZoom) {
    return iZoom >= 1 && iZoom <= 5 ? 1 << (iZoom - 1) : 0;
}

std::int32_t zxShowMem(DeviceContext* hdc, const std::uint8_t* memory, std::int32_t offset, std::int32_t length,
                       std::int32_t width, std::int32_t lines, std::int32_t columns, std::int32_t options,
                       std::uint8_t attribute, const std::int32_t* palette) {
    if (hdc == nullptr)
        return 0;
    View view{};
    view.offset = offset;
    view.mode = (options & 15) <= kByteMasks ? options & 15 : kGraphics;
    view.columnBytes = std::clamp(width, 8, 8 * kMaxColumnBytes) / 8;
    view.lines = std::clamp(lines, 1, kMaxLines);
    view.columns = std::clamp(columns, 1, kMaxColumns);
    view.upsideDown = (options & 128) != 0;
    hdc->factor_ = std::max(ZoomIndexToFactor(options >> 4 & 7), 1);

    BitPicture& picture = hdc->picture_;
    if (palette != nullptr) {
        const int bright = (attribute & 64) != 0 ? 8 : 0;
        picture.foreColour = ScreenColour(palette[bright + (attribute & 7)]);
        picture.backColour = ScreenColour(palette[bright + (attribute >> 3 & 7)]);
    }

    const int pictureWidth = 8 * view.RowBytes();
    const Rect whole{0, 0, pictureWidth, view.lines};
    Rect clip = whole;
    if (picture.Width() != pictureWidth || picture.Height() != view.lines)
        picture.Resize(pictureWidth, view.lines);
    else if (hdc->clip_)
        clip = Intersection(*hdc->clip_, pictureWidth, view.lines);

    ByteWindow window(memory, length);
    const std::ptrdiff_t stride = picture.Stride();
    const Target target = view.upsideDown ? Target{picture.Row(view.lines - 1), -stride}
                                          : Target{picture.Row(0), stride};
    if (clip.width <= 0 || clip.height <= 0)
        return 1;
    if (clip.width < whole.width || clip.height < whole.height)
        DrawClip(view, window, target, clip);
    else if (view.mode == kScreen)
        DrawScreen(view, window, target);
    else if (view.mode == kText)
        DrawText(view, window, target);
    else
        DrawColumns(view, window, target);
    return 1;
}

std::int32_t zxScreenOffset(std::int32_t x, std::int32_t y) {
    const std::int64_t line = y;
    return static_cast<std::int32_t>(2048 * (line / 64) + 256 * (line % 8) + 32 * (line / 8 % 8) + x / 8);
}

} // namespace lmk
