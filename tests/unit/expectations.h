// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Errors.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace tonvale::test {

// The number of the RuntimeError that the statement throws, 0 when it throws none.
template <class Statement> std::int32_t errorOf(Statement &&statement) {
    try {
        statement();
    } catch (const RuntimeError &error) {
        return error.number();
    }
    return 0;
}

} // namespace tonvale::test

#define EXPECT_RUNTIME_ERROR(statement, errorNumber)                                                                   \
    EXPECT_EQ(::tonvale::test::errorOf([&] { static_cast<void>(statement); }), errorNumber)
