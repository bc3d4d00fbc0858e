// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Form.h"

namespace tonvale {

// Keeps a window above all others, or no longer; its place and size stay.
inline void StayOnTop(Form &form) { form.Topmost = true; }
inline void NotOnTop(Form &form) { form.Topmost = false; }

} // namespace tonvale
