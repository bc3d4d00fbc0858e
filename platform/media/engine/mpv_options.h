// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <mpv/client.h>

#include <string>

namespace tonvale {

// Makes the library a mere decoder: no settings of its own, no scripts, no keys, nothing read but
// the source that it is given. `outputs` are the sound outputs to try, in order. Throws
// RuntimeError for an option that the library does not take.
void setMpvOptions(mpv_handle *handle, const std::string &outputs);

} // namespace tonvale
