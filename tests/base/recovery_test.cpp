#include "base/check_sum.h"
#include "base/recovery_record.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

namespace lumrake {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// Which of the states of a document the file brings back, 0 for nothing and -1 for what never was.
std::ptrdiff_t StateIn(std::span<const std::uint8_t> file, const std::vector<Bytes>& states) {
    const auto recovery = ReadRecovery(file);
    Bytes bytes = states[0];
    for (const auto& [number, block] :
         recovery ? recovery->blocks : std::map<std::uint32_t, Recovery::Block>()) {
        std::ranges::copy(block.bytes, bytes.begin() + number * std::ptrdiff_t{ChangedBlocks::kBytes});
    }
    const auto found = std::ranges::find(states, bytes);
    return found == states.end() ? -1 : found - states.begin();
}

TEST(Recovery, FromAFileThatWasCutOrHarmedIsAStateThatWas) {
    std::vector<Bytes> states{Bytes(4100)};
    ChangedBlocks blocks;
    blocks.Open(4100);
    int asked = 0;
    blocks.onNew = [&asked] { ++asked; };
    RecoveryWriter writer;
    writer.Begin({RecoveryHeader::kSnapshot, "/games/a.sna", 4100});
    Bytes file;
    std::vector<std::size_t> ends;
    for (const std::vector<std::size_t>& places : {std::vector<std::size_t>{4099}, {4098}, {0, 4097}}) {
        Bytes bytes = states.back();
        for (const std::size_t place : places) {
            blocks.Touch(bytes, place);
            bytes[place] = 0x81;
        }
        writer.Add(blocks.New(), bytes, 7);
        blocks.SetKept();
        std::ranges::copy(writer.Take(), std::back_inserter(file));
        states.push_back(bytes);
        ends.push_back(file.size());
    }
    EXPECT_EQ(asked, 3) << "once for each record";
    EXPECT_EQ(blocks.Changed().size(), 2U);
    EXPECT_EQ(ReadRecovery(file)->blocks[1].before, CheckSum(Bytes(4)));
    for (std::size_t at = 0; at <= file.size(); ++at) {
        const auto whole = std::ranges::count_if(ends, [at](std::size_t end) { return end <= at; });
        ASSERT_EQ(StateIn(std::span(file).first(at), states), whole) << "cut at " << at;
        Bytes harmed = file;
        harmed.push_back(0); // what follows a whole record does it no harm
        harmed[at] ^= static_cast<std::uint8_t>(at % 2 == 0 ? 0x80 : 0x01);
        ASSERT_EQ(StateIn(harmed, states), whole) << "harmed at " << at;
    }
}

} // namespace
} // namespace lumrake
