// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/Errors.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace tonvale::test {
namespace {

TEST(RuntimeErrors, HaveTheNumbersAndWordsThatTheirUsersKnow) {
    const std::vector<std::pair<std::int32_t, std::string>> known{
        {6, "Overflow"},
        {13, "Type mismatch"},
        {53, "File not found"},
        {58, "File already exists"},
        {61, "Disk full"},
        {70, "Permission denied"},
        {75, "Path/File access error"},
        {76, "Path not found"},
        {91, "Object variable or With block variable not set"},
    };
    for (const auto &[number, words] : known) {
        const RuntimeError error{static_cast<ErrorNumber>(number)};
        EXPECT_EQ(error.number(), number);
        EXPECT_EQ(error.description(), words);
    }
}

TEST(ResumeNext, SkipsTheFailingStatementAndRunsTheNext) {
    ErrObject err;
    std::string seen;
    const bool good = resumeNext(
        err, [&] { seen += "a"; }, [] { throw RuntimeError(ErrorNumber::FileNotFound); }, [&] { seen += "b"; });
    EXPECT_FALSE(good);
    EXPECT_EQ(seen, "ab");
    EXPECT_EQ(err.Number, 53);
    EXPECT_EQ(err.Description, "File not found");
}

TEST(ResumeNext, LeavesAnEarlierErrorStanding) {
    ErrObject err;
    err.set(RuntimeError(ErrorNumber::DiskFull));
    EXPECT_TRUE(resumeNext(err, [] {}));
    EXPECT_EQ(err.Number, 61);
    err.Clear();
    EXPECT_EQ(err.Number, 0);
    EXPECT_EQ(err.Description, "");
}

TEST(ResumeNext, TellsTheDiagnosticLogOfEachError) {
    ErrObject err;
    std::vector<std::int32_t> skipped;
    err.onSkipped = [&](const ErrObject &error) { skipped.push_back(error.Number); };
    resumeNext(
        err, [] { throw RuntimeError(ErrorNumber::Overflow); }, [] {},
        [] { throw RuntimeError(ErrorNumber::PathNotFound); });
    EXPECT_EQ(skipped, (std::vector<std::int32_t>{6, 76}));
}

TEST(ResumeNext, ForeignExceptionsBecomeRuntimeErrors) {
    ErrObject err;
    resumeNext(err, [] { throw std::bad_alloc(); });
    EXPECT_EQ(err.Number, 7);
    resumeNext(err, [] { throw std::logic_error("strange"); });
    EXPECT_EQ(err.Number, 51);
    EXPECT_EQ(err.Description, "strange");
}

} // namespace
} // namespace tonvale::test
