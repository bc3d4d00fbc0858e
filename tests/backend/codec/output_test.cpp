// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The file that a conversion writes, on file systems of both kinds.

#include "controls/Errors.h"
#include "platform/codec/engine/OutputFile.h"
#include "tests/backend/codec/CodecTest.h"

#include <unistd.h>

#include <array>
#include <filesystem>

namespace tonvale::test {

namespace {

class Output : public CodecTest, public testing::WithParamInterface<OutputFile::Growing> {};

TEST_P(Output, HasItsNameWhenItIsWhole) {
    write("target", "old");
    OutputFile output(path("target"), GetParam());
    output.write(2, std::array<std::uint8_t, 3>{'c', 'd', 'e'});
    output.write(0, std::array<std::uint8_t, 2>{'a', 'b'});
    EXPECT_EQ(readFile(path("target")), "old");
    output.publish(4);
    EXPECT_EQ(readFile(path("target")), "abcd");
    EXPECT_EQ(files(), std::vector<std::string>{"target"});
}

TEST_P(Output, LeavesNothingUnlessItIsWhole) {
    {
        const OutputFile output(path("target"), GetParam());
        EXPECT_EQ(files().size(), GetParam() == OutputFile::Growing::Hidden ? 1U : 0U);
    }
    EXPECT_TRUE(files().empty());
}

TEST_P(Output, DoesNotTakeTheNameOfAnother) {
    const std::string other = ".tonvale-" + std::to_string(::getpid()) + "-0";
    write(other, "other");
    OutputFile output(path("target"), GetParam());
    output.publish(0);
    EXPECT_EQ(files(), (std::vector<std::string>{other, "target"}));
    EXPECT_EQ(readFile(path(other)), "other");
}

TEST_P(Output, SaysWhenItsPlaceHasGone) {
    std::filesystem::create_directory(path("place"));
    OutputFile output(path("place/target"), GetParam());
    std::filesystem::remove_all(path("place"));
    EXPECT_THROW(output.publish(0), RuntimeError);
    EXPECT_TRUE(files().empty());
}

INSTANTIATE_TEST_SUITE_P(Growing, Output, testing::Values(OutputFile::Growing::Nameless, OutputFile::Growing::Hidden),
                         [](const auto &growing) {
                             return growing.param == OutputFile::Growing::Hidden ? "Hidden" : "Nameless";
                         });

} // namespace

} // namespace tonvale::test
