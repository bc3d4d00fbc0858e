// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/Numbers.h"

#include "controls/Errors.h"
#include "controls/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace tonvale {

namespace {

constexpr double kLargestFormatted = 1e15;

template <class Int> Int checkedInt(double value) {
    const double rounded = roundEven(value);
    // Written so that NaN fails, too.
    if (!(rounded >= std::numeric_limits<Int>::min() && rounded <= std::numeric_limits<Int>::max()))
        throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<Int>(rounded);
}

template <class Int> Int checkedInt(std::int64_t value) {
    if (value < std::numeric_limits<Int>::min() || value > std::numeric_limits<Int>::max())
        throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<Int>(value);
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// A formatted number has at most this many digits here; more do not fit.
std::int64_t wholeNumber(double value) {
    if (!(value <= kLargestFormatted)) throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<std::int64_t>(value);
}

// The blanks that numericPrefix() passes over.
std::string withoutBlanks(std::string_view text) {
    std::string result;
    for (const char c : text)
        if (c != ' ' && c != '\t' && c != '\n' && c != '\r') result += c;
    return result;
}

// A hexadecimal or octal number behind its "&H" or "&O".
double radixNumber(std::string_view digits, int base) {
    std::uint32_t value = 0;
    const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
    if (parsed.ec == std::errc::result_out_of_range) throw RuntimeError(ErrorNumber::Overflow);
    if (parsed.ec != std::errc{}) return 0;
    if (value <= std::numeric_limits<std::uint16_t>::max()) return static_cast<std::int16_t>(value);
    return static_cast<std::int32_t>(value);
}

// The longest decimal number at the start of a text without blanks, in the form that from_chars
// takes, and how many characters of the text it has used.
struct Decimal {
    std::string number;
    std::size_t used = 0;
};

Decimal decimalPrefix(std::string_view text) {
    Decimal result;
    std::size_t at = 0;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) {
        if (text[at] == '-') result.number += '-';
        ++at;
    }
    bool digits = false, point = false;
    for (; at < text.size(); ++at) {
        if (isDigit(text[at]))
            digits = true;
        else if (text[at] == '.' && !point)
            point = true;
        else
            break;
        result.number += text[at];
    }
    if (!digits) return {};
    result.used = at;
    if (at < text.size() && std::string_view("eEdD").find(text[at]) != std::string_view::npos) {
        std::string exponent = "e";
        std::size_t behind = at + 1;
        if (behind < text.size() && (text[behind] == '+' || text[behind] == '-')) {
            if (text[behind] == '-') exponent += '-';
            ++behind;
        }
        const std::size_t firstDigit = behind;
        while (behind < text.size() && isDigit(text[behind])) exponent += text[behind++];
        if (behind > firstDigit) {
            result.number += exponent;
            result.used = behind;
        }
    }
    return result;
}

// The power of ten of the number's first digit that is not 0; what is out of range is far out.
double decimalMagnitude(std::string_view number) {
    const std::size_t e = number.find('e');
    double exponent = 0;
    if (e != std::string_view::npos) {
        const bool negative = number[e + 1] == '-';
        for (const char digit : number.substr(e + (negative ? 2 : 1))) exponent = exponent * 10 + (digit - '0');
        if (negative) exponent = -exponent;
    }
    const std::string_view mantissa = number.substr(0, e);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    if (first == std::string_view::npos) return -1;
    const double place = first < point ? static_cast<double>(point - first) - 1 : -static_cast<double>(first - point);
    return exponent + place;
}

double decimalValue(const std::string &number) {
    double value = 0;
    const auto parsed = std::from_chars(number.data(), number.data() + number.size(), value);
    if (parsed.ec != std::errc::result_out_of_range) return value;
    // Too small a number is 0; too large a one does not fit.
    if (decimalMagnitude(number) < 0) return 0;
    throw RuntimeError(ErrorNumber::Overflow);
}

} // namespace

double roundEven(double value) {
    const double below = std::floor(value);
    const double rest = value - below;
    if (rest < 0.5) return below;
    if (rest > 0.5) return below + 1;
    return std::fmod(below, 2) == 0 ? below : below + 1;
}

std::int32_t toInt32(double value) { return checkedInt<std::int32_t>(value); }
std::int16_t toInt16(double value) { return checkedInt<std::int16_t>(value); }

std::int32_t add32(std::int32_t a, std::int32_t b) { return checkedInt<std::int32_t>(std::int64_t{a} + b); }
std::int32_t subtract32(std::int32_t a, std::int32_t b) { return checkedInt<std::int32_t>(std::int64_t{a} - b); }
std::int32_t multiply32(std::int32_t a, std::int32_t b) { return checkedInt<std::int32_t>(std::int64_t{a} * b); }
std::int16_t add16(std::int16_t a, std::int16_t b) { return checkedInt<std::int16_t>(std::int64_t{a} + b); }
std::int16_t multiply16(std::int16_t a, std::int16_t b) { return checkedInt<std::int16_t>(std::int64_t{a} * b); }

double numericPrefix(std::string_view text) {
    const std::string dense = withoutBlanks(text);
    if (dense.size() > 2 && dense[0] == '&') {
        if (dense[1] == 'H' || dense[1] == 'h') return radixNumber(std::string_view(dense).substr(2), 16);
        if (dense[1] == 'O' || dense[1] == 'o') return radixNumber(std::string_view(dense).substr(2), 8);
    }
    const Decimal decimal = decimalPrefix(dense);
    return decimal.used == 0 ? 0 : decimalValue(decimal.number);
}

double textToDouble(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) throw RuntimeError(ErrorNumber::TypeMismatch);
    const std::string_view inner = text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
    const Decimal decimal = decimalPrefix(inner);
    if (decimal.used != inner.size()) throw RuntimeError(ErrorNumber::TypeMismatch);
    return decimalValue(decimal.number);
}

std::int16_t textToInt16(std::string_view text) { return toInt16(textToDouble(text)); }
std::int32_t textToInt32(std::string_view text) { return toInt32(textToDouble(text)); }

bool textToBoolean(std::string_view text) {
    const auto is = [&](std::string_view word) {
        if (text.size() != word.size()) return false;
        for (std::size_t i = 0; i < word.size(); ++i)
            if ((text[i] | 0x20) != word[i]) return false;
        return true;
    };
    if (is("true")) return true;
    if (is("false")) return false;
    return textToDouble(text) != 0;
}

std::string booleanToText(bool value) { return value ? "True" : "False"; }

std::string formatDigits(double value, int minimumDigits) {
    const double rounded = std::round(value); // half away from zero
    std::string digits = std::to_string(wholeNumber(std::fabs(rounded)));
    while (digits.size() < static_cast<std::size_t>(minimumDigits)) digits.insert(digits.begin(), '0');
    return rounded < 0 ? "-" + digits : digits;
}

std::string formatOneDecimal(double value) {
    const std::int64_t tenths = wholeNumber(std::round(std::fabs(value) * 10));
    const std::string digits = std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
    return value < 0 && tenths != 0 ? "-" + digits : digits;
}

std::string formatGeneral(double value, int significantDigits) {
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general,
                                   significantDigits);
    return upperCase({buffer.data(), end.ptr});
}

} // namespace tonvale
