// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Files that grow beside their targets, on file systems of both kinds.

#include "platform/machine/base/NewFile.h"
#include "tests/backend/machine/Support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <vector>

namespace tonvale::test {

namespace {

class Growing : public testing::TestWithParam<NewFile::Growing> {
protected:
    [[nodiscard]] std::string path(const std::string &name) const { return home_ / ("files/" + name); }
    [[nodiscard]] std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto &entry : std::filesystem::directory_iterator(path("")))
            names.push_back(entry.path().filename());
        std::ranges::sort(names);
        return names;
    }
    static void fill(const NewFile &file, const std::string &content) {
        ASSERT_EQ(::write(file.get(), content.data(), content.size()), static_cast<ssize_t>(content.size()));
    }

private:
    ScratchHome home_;
    bool isMade_ = std::filesystem::create_directory(path(""));
};

TEST_P(Growing, TakesItsPlaceWhenItIsWhole) {
    std::ofstream(path("target")) << "old";
    NewFile file;
    ASSERT_EQ(file.make(path("target"), GetParam()), 0);
    fill(file, "new");
    EXPECT_EQ(readFile(path("target")), "old");
    EXPECT_EQ(file.publish(), 0);
    EXPECT_EQ(readFile(path("target")), "new");
    EXPECT_EQ(files(), std::vector<std::string>{"target"});
}

TEST_P(Growing, LeavesNothingUnlessItIsWhole) {
    {
        NewFile file;
        ASSERT_EQ(file.make(path("target"), GetParam()), 0);
        EXPECT_EQ(files().size(), GetParam() == NewFile::Growing::Hidden ? 1U : 0U);
    }
    EXPECT_TRUE(files().empty());
}

TEST_P(Growing, DoesNotTakeTheNameOfAnother) {
    const std::string other = ".tonvale-" + std::to_string(::getpid()) + "-0";
    std::ofstream(path(other)) << "other";
    NewFile file;
    ASSERT_EQ(file.make(path("target"), GetParam()), 0);
    EXPECT_EQ(file.publish(), 0);
    EXPECT_EQ(files(), (std::vector<std::string>{other, "target"}));
    EXPECT_EQ(readFile(path(other)), "other");
}

TEST_P(Growing, SaysWhenItsPlaceHasGone) {
    std::filesystem::create_directory(path("place"));
    NewFile file;
    EXPECT_EQ(file.make(path("nowhere/target"), GetParam()), ENOENT);
    ASSERT_EQ(file.make(path("place/target"), GetParam()), 0);
    std::filesystem::remove_all(path("place"));
    EXPECT_EQ(file.publish(), ENOENT);
    EXPECT_TRUE(files().empty());
}

INSTANTIATE_TEST_SUITE_P(NewFile, Growing, testing::Values(NewFile::Growing::Nameless, NewFile::Growing::Hidden),
                         [](const auto &growing) {
                             return growing.param == NewFile::Growing::Hidden ? "Hidden" : "Nameless";
                         });

} // namespace

} // namespace tonvale::test
