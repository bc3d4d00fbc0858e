// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/key_codes.h"

#include <QKeyEvent>

#include <string_view>

namespace tonvale {

namespace {

constexpr std::int32_t kVirtualPlus = 107, kVirtualMinus = 109, kVirtualF1 = 112;
constexpr std::uint32_t kSymbolPlus = 0xFFAB, kSymbolMinus = 0xFFAD; // of the numeric keypad
constexpr std::uint32_t kSymbolF1 = 0xFFBE, kSymbolF12 = 0xFFC9;

// Space, digits and letters stand for themselves in all three tables.
std::optional<std::int32_t> virtualKeyOfLatin(std::uint32_t sign) {
    if (sign == ' ' || (sign >= '0' && sign <= '9') || (sign >= 'A' && sign <= 'Z'))
        return static_cast<std::int32_t>(sign);
    if (sign >= 'a' && sign <= 'z') return static_cast<std::int32_t>(sign - 'a' + 'A');
    return std::nullopt;
}

struct KeyRow {
    std::uint32_t firstPlace;
    std::string_view signs;
};
constexpr KeyRow kRows[] = {{2, "1234567890"}, {16, "QWERTYUIOP"}, {30, "ASDFGHJKL"}, {44, "ZXCVBNM"}};

} // namespace

std::optional<std::int32_t> virtualKeyOfSymbol(std::uint32_t symbol) {
    if (symbol == kSymbolPlus) return kVirtualPlus;
    if (symbol == kSymbolMinus) return kVirtualMinus;
    if (symbol >= kSymbolF1 && symbol <= kSymbolF12) return static_cast<std::int32_t>(symbol - kSymbolF1) + kVirtualF1;
    return virtualKeyOfLatin(symbol);
}

std::optional<std::int32_t> virtualKeyOfPlace(std::uint32_t place) {
    for (const KeyRow &row : kRows)
        if (place >= row.firstPlace && place - row.firstPlace < row.signs.size())
            return row.signs[place - row.firstPlace];
    return std::nullopt;
}

std::optional<std::int32_t> virtualKeyOfEvent(const QKeyEvent &event) {
    const int key = event.key();
    if (event.modifiers().testFlag(Qt::KeypadModifier)) {
        if (key == Qt::Key_Plus) return kVirtualPlus;
        if (key == Qt::Key_Minus) return kVirtualMinus;
        return std::nullopt;
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return key - Qt::Key_F1 + kVirtualF1;
    return virtualKeyOfLatin(static_cast<std::uint32_t>(key));
}

} // namespace tonvale
