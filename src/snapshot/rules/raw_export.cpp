#include "snapshot/rules/raw_export.h"

namespace lumrake {

// The display library already brings every layout into packed rows, by the same addressing rule, so the rows
// of an unflipped drawing are the export.
RawExport::RawExport(std::span<const std::uint8_t> byMemory, const ViewNumbers& view) {
    lmk::zxShowMem(&context_, byMemory.data(), view.lOffset, static_cast<std::int32_t>(byMemory.size()),
                   view.iWidth, view.iLines, view.iColumns, view.iMode, 0, nullptr);
}

std::span<const std::uint8_t> RawExport::Row(std::int32_t row) const {
    return {context_.Picture().Row(row), static_cast<std::size_t>(RowBytes())};
}

} // namespace lumrake
