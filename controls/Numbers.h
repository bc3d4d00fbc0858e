// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tonvale {

// Nearest whole number, ties to the even one.
[[nodiscard]] double roundEven(double value);
// The same as a 32- or 16-bit number; error 6 outside the range, NaN included.
[[nodiscard]] std::int32_t toInt32(double value);
[[nodiscard]] std::int16_t toInt16(double value);

// Arithmetic that raises error 6 instead of wrapping.
[[nodiscard]] std::int32_t add32(std::int32_t a, std::int32_t b);
[[nodiscard]] std::int32_t subtract32(std::int32_t a, std::int32_t b);
[[nodiscard]] std::int32_t multiply32(std::int32_t a, std::int32_t b);
[[nodiscard]] std::int16_t add16(std::int16_t a, std::int16_t b);
[[nodiscard]] std::int16_t multiply16(std::int16_t a, std::int16_t b);

// The number that a text begins with, 0 when it begins with none. Blanks, tabs and line feeds are
// passed over wherever they stand; "e" and "d" begin an exponent; "&H" and "&O" are hexadecimal
// and octal numbers (16 bits wide up to four hexadecimal digits, else 32 bits). The point is the
// decimal mark in every locale.
[[nodiscard]] double numericPrefix(std::string_view text);

// Whole text to number, as a conversion function does it: error 13 where the text is no number.
[[nodiscard]] double textToDouble(std::string_view text);
[[nodiscard]] std::int16_t textToInt16(std::string_view text);
[[nodiscard]] std::int32_t textToInt32(std::string_view text);
// "True", "False" in any case, or a number; error 13 otherwise.
[[nodiscard]] bool textToBoolean(std::string_view text);
[[nodiscard]] std::string booleanToText(bool value);

// Number formats "00", "000" and "0.0"; rounding is half away from zero, as formatting does it.
[[nodiscard]] std::string formatDigits(double value, int minimumDigits);
[[nodiscard]] std::string formatOneDecimal(double value);
// As short as it can be with so many significant digits: "3", "23.976", "1E+20".
[[nodiscard]] std::string formatGeneral(double value, int significantDigits);

} // namespace tonvale
