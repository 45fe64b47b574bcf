// How the drawing stays near the cost of copying bytes: the picture is filled column by column, or character
// row by row. For every one ByteWindow::Bytes gives a pointer to memory that may be read whole, so nothing
// below it has to think about the ends of the file. Wide columns are copied line by line with a length known
// to the compiler, several columns at a time, which keeps several streams of memory under way; narrow columns
// and characters would cost one step a byte and are turned as small matrices in registers instead. The loops
// are plain C++ that the compiler makes vector code of at -O3. A clip that leaves part of the picture takes
// the simple road, byte by byte.
#include "display/lmk.h"

#include "display/attribute.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstring>
#include <type_traits>

/// Marks a function that the compiler makes for the wider vector registers of newer processors as well; the
/// loader takes the best that the processor has. Other compilers and systems have the plain one only.
#if defined(__x86_64__) && defined(__linux__) && defined(__GLIBC__) && defined(__GNUC__) &&                  \
    !defined(__clang__) && !defined(__SANITIZE_ADDRESS__)
#define LMK_FOR_EACH_PROCESSOR [[gnu::target_clones("arch=x86-64-v4", "arch=x86-64-v3", "default")]]
#else
#define LMK_FOR_EACH_PROCESSOR
#endif

namespace lmk {
namespace {

constexpr int kMaxColumns = kMostColumns, kMaxLines = kMostLines, kMaxColumnBytes = kMostWidth / 8;
constexpr int kMaxRowBytes = kMaxColumns * kMaxColumnBytes;
constexpr int kCharLines = 8;
/// Most bytes that are asked of ByteWindow at once: a column with masks. A character row is smaller.
constexpr int kMaxRun = kMaxLines * 2 * kMaxColumnBytes;
static_assert(kMaxRun >= kCharLines * kMaxRowBytes);

constexpr std::array<std::uint8_t, kMaxRun> kZeros{};

/// The memory as an endless line of bytes, 0 outside.
class ByteWindow {
  public:
    ByteWindow(const std::uint8_t* memory, std::int32_t length)
        : memory_(memory), length_(memory != nullptr && length > 0 ? length : 0) {}

    std::uint8_t At(std::int64_t address) const {
        return address >= 0 && address < length_ ? memory_[address] : std::uint8_t{0};
    }

    bool IsInside(std::int64_t begin, std::int64_t end) const { return begin >= 0 && end <= length_; }
    bool IsOutside(std::int64_t begin, std::int64_t end) const { return end <= 0 || begin >= length_; }

    /// Pointer to `count` (1..kMaxRun) readable bytes with the content of address, address + 1, ... A run
    /// across an end of the memory is pieced together in a patch; there is one for each end, so that runs
    /// which do not overlap may be asked for one after the other and used together.
    const std::uint8_t* Bytes(std::int64_t address, std::int64_t count) {
        const std::int64_t end = address + count;
        if (IsInside(address, end)) {
            return memory_ + address;
        }
        if (IsOutside(address, end)) {
            return kZeros.data();
        }
        std::uint8_t* patch = patches_[address < 0 ? 0 : 1];
        const std::int64_t from = std::max<std::int64_t>(address, 0),
                           to = std::min<std::int64_t>(end, length_);
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
    /// Address of the first byte of a line of a column, in the modes with columns.
    std::int64_t Address(int column, int line) const {
        return offset + (std::int64_t{column} * lines + line) * Pitch();
    }
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

// ---- Wide columns ----

/// An unsigned number of twice the size.
template <typename Unit>
using Twice = std::conditional_t<sizeof(Unit) == 1, std::uint16_t,
                                 std::conditional_t<sizeof(Unit) == 2, std::uint32_t, std::uint64_t>>;

/// The first unit, the picture's, of a pair of picture and mask. Reading both lets the compiler take whole
/// vectors.
template <typename Unit> Unit FirstOfPair(const std::uint8_t* pair) {
    Twice<Unit> both;
    std::memcpy(&both, pair, sizeof both);
    return static_cast<Unit>(std::endian::native == std::endian::little ? both : both >> 8 * sizeof(Unit));
}

/// Copies kColumns columns of kBytes bytes, whose lines lie `pitch` bytes apart from `columns` on, next to each
/// other. kByteMasks: every byte is followed by its mask byte.
template <int kBytes, int kColumns, bool kHasByteMasks>
[[gnu::always_inline]] inline void CopyLines(std::uint8_t* __restrict to, std::ptrdiff_t step,
                                             const std::uint8_t* const* columns, int pitch, int lines) {
    const auto copyLine = [](std::uint8_t* __restrict target, const std::uint8_t* __restrict from) {
        if constexpr (kHasByteMasks) {
            for (int b = 0; b < kBytes; ++b) {
                target[b] = FirstOfPair<std::uint8_t>(from + 2 * b);
            }
        } else {
            std::memcpy(target, from, kBytes);
        }
    };
    const std::uint8_t* froms[std::size_t{kColumns}];
    std::copy_n(columns, kColumns, froms);
    std::ptrdiff_t distance = 0;
    for (int i = 0; i < lines; ++i, to += step, distance += pitch) {
#pragma GCC unroll 8
        for (int column = 0; column < kColumns; ++column) {
            copyLine(to + column * kBytes, froms[column] + distance);
        }
    }
}

using LineCopier = void (*)(std::uint8_t*, std::ptrdiff_t, const std::uint8_t* const*, int, int);

/// The largest views are made of these: eight of the widest columns, with their pitch known to the compiler.
LMK_FOR_EACH_PROCESSOR void CopyEight(std::uint8_t* to, std::ptrdiff_t step,
                                      const std::uint8_t* const* columns, int /*pitch*/, int lines) {
    CopyLines<kMaxColumnBytes, 8, false>(to, step, columns, kMaxColumnBytes, lines);
}
LMK_FOR_EACH_PROCESSOR void CopyEightOfLineMasks(std::uint8_t* to, std::ptrdiff_t step,
                                                 const std::uint8_t* const* columns, int /*pitch*/,
                                                 int lines) {
    CopyLines<kMaxColumnBytes, 8, false>(to, step, columns, 2 * kMaxColumnBytes, lines);
}
LMK_FOR_EACH_PROCESSOR void CopyEightOfByteMasks(std::uint8_t* to, std::ptrdiff_t step,
                                                 const std::uint8_t* const* columns, int /*pitch*/,
                                                 int lines) {
    CopyLines<kMaxColumnBytes, 8, true>(to, step, columns, 2 * kMaxColumnBytes, lines);
}

template <bool kHasByteMasks> LineCopier OneColumnCopier(int columnBytes) {
    static constexpr auto kCopiers = []<std::size_t... kIndex>(std::index_sequence<kIndex...>) {
        return std::array<LineCopier, kMaxColumnBytes>{&CopyLines<kIndex + 1, 1, kHasByteMasks>...};
    }
    (std::make_index_sequence<kMaxColumnBytes>());
    return kCopiers[static_cast<std::size_t>(columnBytes - 1)];
}

/// Columns of any width. The widest go eight or two at a time, so that whole cache lines are filled.
template <Mode kMode> void DrawWideColumns(const View& view, ByteWindow& window, const Target& target) {
    constexpr bool kHasByteMasks = kMode == kByteMasks;
    constexpr LineCopier kCopyEight = kMode == kByteMasks   ? &CopyEightOfByteMasks
                                      : kMode == kLineMasks ? &CopyEightOfLineMasks
                                                            : &CopyEight;
    const int pitch = view.Pitch();
    int column = 0;
    const auto draw = [&](LineCopier copy, int count) {
        for (; column + count <= view.columns; column += count) {
            const std::uint8_t* columns[8];
            for (int i = 0; i < count; ++i) {
                columns[i] = window.Bytes(view.Address(column + i, 0), view.lines * pitch);
            }
            copy(target.line0 + column * view.columnBytes, target.step, columns, pitch, view.lines);
        }
    };
    if (view.columnBytes == kMaxColumnBytes) {
        draw(kCopyEight, 8);
        draw(&CopyLines<kMaxColumnBytes, 2, kHasByteMasks>, 2);
    }
    draw(OneColumnCopier<kHasByteMasks>(view.columnBytes), 1);
}

// ---- Narrow columns ----

/// Picks the first of every pair: drops mask bytes, or mask lines (a Unit is then a whole line).
template <typename Unit, int kUnits>
void PickFirsts(const std::uint8_t* __restrict pairs, void* __restrict to) {
    Unit firsts[static_cast<std::size_t>(kUnits)];
    for (int i = 0; i < kUnits; ++i) {
        firsts[i] = FirstOfPair<Unit>(pairs + 2 * i * int{sizeof(Unit)});
    }
    std::memcpy(to, firsts, sizeof firsts);
}

/// One perfect riffle of kUnits units: the halves of `from` are laid into each other. Seen on the number of a
/// unit's place, its top bit moves to the bottom, so that n riffles turn a matrix of 2 to the power n rows.
template <typename Unit, int kUnits> void Riffle(const Unit* __restrict from, Unit* __restrict to) {
    for (int i = 0; i < kUnits / 2; ++i) {
        to[2 * i] = from[i];
        to[2 * i + 1] = from[kUnits / 2 + i];
    }
}

/// Turns the matrix of 16 / sizeof(Unit) rows in `a`, or for characters of 16 rows; the result is in `a`
/// again, or in `b` after an odd number of riffles. Inlined, the vectors stay in registers from one riffle to
/// the next.
template <typename Unit, int kUnits> [[gnu::always_inline]] inline const Unit* Turn(Unit* a, Unit* b) {
    Riffle<Unit, kUnits>(a, b);
    Riffle<Unit, kUnits>(b, a);
    if constexpr (sizeof(Unit) == 4) {
        return a;
    }
    Riffle<Unit, kUnits>(a, b);
    if constexpr (sizeof(Unit) == 2) {
        return b;
    }
    Riffle<Unit, kUnits>(b, a);
    return a;
}

/// Columns of 8, 16 or 32 pixels (a Unit is one line of one) in a view of at least 16 lines: blocks of 16
/// lines and 16 / sizeof(Unit) columns are turned, so that line i of column k becomes unit k of line i.
template <typename Unit, Mode kMode>
void DrawNarrowColumns(const View& view, ByteWindow& window, const Target& target) {
    constexpr std::size_t kArray = 16 / sizeof(Unit), kLines = 16;
    constexpr int kColumns = int{kArray}, kUnits = int{kArray * kLines};
    const int pitch = view.Pitch();
    for (int first = 0; first < view.columns; first += kColumns) {
        const std::uint8_t* columns[kArray];
        for (int k = 0; k < kColumns; ++k) {
            columns[k] = first + k < view.columns
                             ? window.Bytes(view.Address(first + k, 0), view.lines * pitch)
                             : kZeros.data(); // the bits right of the picture
        }
        for (int i = 0; i < view.lines; i += int{kLines}) {
            const int line = std::min(i, view.lines - int{kLines}); // the last block may repeat lines
            const int distance = line * pitch;
            Unit a[kArray * kLines], b[kArray * kLines];
            for (std::size_t k = 0; k < kArray; ++k) {
                const std::uint8_t* from = columns[k] + distance;
                if constexpr (kMode == kGraphics) {
                    std::memcpy(a + k * kLines, from, kLines * sizeof(Unit));
                } else if constexpr (kMode == kLineMasks) {
                    PickFirsts<Unit, int{kLines}>(from, a + k * kLines);
                } else {
                    PickFirsts<std::uint8_t, int{kLines * sizeof(Unit)}>(from, a + k * kLines);
                }
            }
            const Unit* turned = Turn<Unit, kUnits>(a, b);
            std::uint8_t* to = target.Line(line) + first * int{sizeof(Unit)};
            for (int k = 0; k < int{kLines}; ++k, to += target.step) {
                std::memcpy(to, turned + k * kColumns, 16);
            }
        }
    }
}

template <Mode kMode> void DrawColumns(const View& view, ByteWindow& window, const Target& target) {
    constexpr int kTurnedLines = 16, kTurnedColumns = 4; // with fewer the plain road is faster
    if (view.lines >= kTurnedLines && view.columns >= kTurnedColumns) {
        switch (view.columnBytes) {
        case 1: return DrawNarrowColumns<std::uint8_t, kMode>(view, window, target);
        case 2: return DrawNarrowColumns<std::uint16_t, kMode>(view, window, target);
        case 4: return DrawNarrowColumns<std::uint32_t, kMode>(view, window, target);
        default: break;
        }
    }
    DrawWideColumns<kMode>(view, window, target);
}

// ---- Screen and Text ----

void DrawScreen(const View& view, ByteWindow& window, const Target& target) {
    constexpr int kThird = 64, kRows = 8, kRowBytes = 32;
    const LineCopier copy = OneColumnCopier<false>(view.columnBytes);
    for (int third = 0; third < view.lines; third += kThird) {
        for (int line = third; line < std::min(third + kRows, view.lines); ++line) {
            // The lines line, line + 8, line + 16 ... of a third follow each other in memory.
            const int rows = std::min(kRows, (view.lines - line + kRows - 1) / kRows);
            const std::uint8_t* from =
                window.Bytes(view.LineAddress(line), (rows - 1) * kRowBytes + view.RowBytes());
            for (int column = 0; column < view.columns; ++column) {
                const std::uint8_t* part = from + column * view.columnBytes;
                copy(target.Line(line) + column * view.columnBytes, target.step * kRows, &part, kRowBytes,
                     rows);
            }
        }
    }
}

/// Characters of 8 bytes: 16 at a time make 8 lines of 16 bytes.
void DrawText(const View& view, ByteWindow& window, const Target& target) {
    constexpr int kGroup = 16, kBytes = kGroup * kCharLines;
    std::uint8_t a[kBytes], b[kBytes];
    for (int line = 0; line < view.lines; line += kCharLines) {
        const std::uint8_t* from = window.Bytes(view.LineAddress(line), kCharLines * view.RowBytes());
        const int lines = std::min(kCharLines, view.lines - line);
        for (int group = 0; group < view.RowBytes(); group += kGroup) {
            if (view.RowBytes() - group >= kGroup) {
                std::memcpy(a, from + group * kCharLines, kBytes);
            } else { // a row has room for 16 bytes; those right of the picture stay 0
                const auto count = static_cast<std::size_t>((view.RowBytes() - group) * kCharLines);
                std::memset(a, 0, kBytes);
                std::memcpy(a, from + group * kCharLines, count);
            }
            const std::uint8_t* turned = Turn<std::uint8_t, kBytes>(a, b);
            for (int i = 0; i < lines; ++i) {
                std::memcpy(target.Line(line + i) + group, turned + i * kGroup, kGroup);
            }
        }
    }
}

// ---- The clip ----

/// Draws only `clip`, which lies in the picture and is not empty. The bits of a byte that the clip leaves out
/// keep what they were.
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

std::int32_t zxShowMem(DeviceContext* hdc, const std::uint8_t* memory, std::int32_t offset,
                       std::int32_t length, std::int32_t width, std::int32_t lines, std::int32_t columns,
                       std::int32_t options, std::uint8_t attribute, const std::int32_t* palette) {
    if (hdc == nullptr) {
        return 0;
    }
    View view{};
    view.offset = offset;
    view.mode = KnownMode(static_cast<std::int16_t>(options & 15));
    view.columnBytes = std::clamp(width, 8, 8 * kMaxColumnBytes) / 8;
    view.lines = std::clamp(lines, 1, kMaxLines);
    view.columns = std::clamp(columns, 1, kMaxColumns);
    view.upsideDown = (options & 128) != 0;
    hdc->factor_ = std::max(ZoomIndexToFactor(options >> 4 & 7), 1);

    BitPicture& picture = hdc->picture_;
    if (palette != nullptr) {
        picture.foreColour = ScreenColour(palette[InkColour(attribute)]);
        picture.backColour = ScreenColour(palette[PaperColour(attribute)]);
    }

    const int pictureWidth = 8 * view.RowBytes();
    const Rect whole{0, 0, pictureWidth, view.lines};
    Rect clip = whole;
    if (picture.Width() != pictureWidth || picture.Height() != view.lines) {
        picture.Resize(pictureWidth, view.lines);
    } else if (hdc->clip_) {
        clip = Intersection(*hdc->clip_, pictureWidth, view.lines);
    }

    ByteWindow window(memory, length);
    const std::ptrdiff_t stride = picture.Stride();
    const Target target =
        view.upsideDown ? Target{picture.Row(view.lines - 1), -stride} : Target{picture.Row(0), stride};
    if (clip.width <= 0 || clip.height <= 0) {
        return 1;
    }
    if (clip.width < whole.width || clip.height < whole.height) {
        DrawClip(view, window, target, clip);
        return 1;
    }
    switch (view.mode) {
    case kScreen: DrawScreen(view, window, target); break;
    case kText: DrawText(view, window, target); break;
    case kLineMasks: DrawColumns<kLineMasks>(view, window, target); break;
    case kByteMasks: DrawColumns<kByteMasks>(view, window, target); break;
    default: DrawColumns<kGraphics>(view, window, target); break;
    }
    return 1;
}

std::int32_t zxScreenOffset(std::int32_t x, std::int32_t y) {
    const std::int64_t line = y;
    return static_cast<std::int32_t>(2048 * (line / 64) + 256 * (line % 8) + 32 * (line / 8 % 8) + x / 8);
}

} // namespace lmk
