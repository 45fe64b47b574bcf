/// Any bytes under any view: whatever the numbers, a picture within the limits is drawn of memory that is only
/// read. 21 bytes say offset, width, lines, columns, options and attribute; the rest is memory.
#include "display/lmk.h"
#include "fuzz/require.h"

#include <cstring>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::int32_t numbers[5] = {};
    constexpr std::size_t kHead = sizeof numbers + 1;
    if (size < kHead) {
        return 0;
    }
    std::memcpy(numbers, data, sizeof numbers);
    const std::vector<std::uint8_t> memory(data + kHead, data + size); // of its exact size
    static constexpr std::int32_t kPalette[16] = {};
    static lmk::DeviceContext context; // used again and again, as a window does
    // Without memory any length shows nothing.
    const auto length = memory.empty() ? numbers[2] : static_cast<std::int32_t>(memory.size());
    const auto show = [&](lmk::DeviceContext* to) {
        return lmk::zxShowMem(to, memory.data(), numbers[0], length, numbers[1], numbers[2], numbers[3],
                              numbers[4], data[kHead - 1], kPalette);
    };
    Require(show(&context) == 1 && show(nullptr) == 0);
    const lmk::BitPicture& picture = context.Picture();
    Require(picture.Width() % 8 == 0 && picture.Width() >= 8 && picture.Width() <= 4096);
    Require(picture.Height() >= 1 && picture.Height() <= 512);
    Require(context.Factor() >= 1 && context.Factor() <= 16);
    return 0;
}
