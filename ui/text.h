// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/DisplayText.h"

#include <QString>

#include <string>

namespace tonvale {

// How the models' bytes are shown.
[[nodiscard]] inline QString shown(const std::string &bytes) { return QString::fromStdString(displayText(bytes)); }

} // namespace tonvale
