// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/codec/Conversion.h"
#include "platform/codec/engine/Decoding.h"
#include "platform/codec/engine/Encoding.h"

extern "C" __attribute__((visibility("default"))) void tonvaleCodecModule(tonvale::CodecModule &module) {
    using namespace tonvale;
    module.openEncoding = [](const std::string &source, const std::string &target,
                             Crew crew) -> std::unique_ptr<Conversion> {
        return std::make_unique<Encoding>(source, target, crew);
    };
    module.openDecoding = [](const std::string &source, const std::string &target,
                             Crew crew) -> std::unique_ptr<Conversion> {
        return std::make_unique<Decoding>(source, target, crew);
    };
}
