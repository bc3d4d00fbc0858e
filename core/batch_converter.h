// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// The companion program that converts many WAV files at once. It lies beside this one.

namespace tonvale::batch_converter {

inline constexpr const char *kProgram = "kzr";
inline constexpr const char *kTitle = "WAV Batch Converter"; // part of its window's title

} // namespace tonvale::batch_converter
