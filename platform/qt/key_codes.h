// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <optional>

class QKeyEvent;

namespace tonvale {

// The virtual key codes that KeyboardHook tells, from what the machine calls the keys.

// X's name of a key's sign, such as 0x70 for the p.
[[nodiscard]] std::optional<std::int32_t> virtualKeyOfSymbol(std::uint32_t symbol);
// A key of the main block by its place, for keyboards that have no Latin letters at all. The places
// are counted as the kernel does.
[[nodiscard]] std::optional<std::int32_t> virtualKeyOfPlace(std::uint32_t place);
[[nodiscard]] std::optional<std::int32_t> virtualKeyOfEvent(const QKeyEvent &event);

} // namespace tonvale
