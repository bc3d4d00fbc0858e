// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>

namespace tonvale {

// All texts are bytes. Case folding knows ASCII and, where the bytes are valid UTF-8, the Latin-1
// Supplement, Latin Extended-A, Greek and Cyrillic letters; other bytes stay as they are, so
// folding never changes a text's length or damages a name.
[[nodiscard]] std::string lowerCase(std::string_view text);
[[nodiscard]] std::string upperCase(std::string_view text);
[[nodiscard]] bool equalFolded(std::string_view a, std::string_view b);

// Without the blanks (code 32 only) at both ends.
[[nodiscard]] std::string trimBlanks(std::string_view text);

// Without one double quote at the start and one at the end, each if present.
[[nodiscard]] std::string withoutOuterQuotes(std::string_view text);

// Case-sensitive wildcard match; "*" stands for any run of characters, "?" for one.
[[nodiscard]] bool matchesPattern(std::string_view text, std::string_view pattern);

// Text up to the first zero character.
[[nodiscard]] std::string_view untilZero(std::string_view text);

// `directory`, the separator of its kind ('/' where it begins with one, else a backslash) and
// `name`. A separator that ends `directory` already is doubled, as joining always did.
[[nodiscard]] std::string joinPath(std::string_view directory, std::string_view name);

} // namespace tonvale
