// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/CDReader.h"

#include "controls/Errors.h"

namespace tonvale {

void AbsentCDReader::OpenDevice() { throw RuntimeError(ErrorNumber::DeviceIOError); }

void AbsentCDReader::PlayTrack(std::int32_t /*index*/) { throw RuntimeError(ErrorNumber::DeviceIOError); }

void AbsentCDReader::PlayRange(CdTime /*start*/, CdTime /*playTime*/) {
    throw RuntimeError(ErrorNumber::DeviceIOError);
}

} // namespace tonvale
