// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <memory>
#include <stop_token>
#include <string>

namespace tonvale {

// One file on its way into another. Failures are thrown as RuntimeError; what has been written
// by then is gone when the conversion is.
class Conversion {
public:
    virtual ~Conversion() = default;

    // How much is done, 0 to 1. Called some 25 times a second, on the thread that runs.
    using Progress = std::function<void(double done)>;

    // Once, on any thread. Puts the complete file, or after a stop the part done so far, into its
    // place. Comes back soon after a stop.
    virtual void run(const std::stop_token &stop, const Progress &progress) = 0;
};

// How many threads work on one file; bytes do not depend on it.
struct Crew {
    unsigned threads = 1;
};

// What the module offers by the name kCodecModuleSymbol. Opening throws when the source is not
// what it should be, when it is the target itself, and when nothing can be written beside the target.
struct CodecModule {
    using Open = std::unique_ptr<Conversion>(const std::string &source, const std::string &target, Crew crew);
    Open *openEncoding = nullptr;
    Open *openDecoding = nullptr;
};
using CodecModuleFunction = void(CodecModule &module);
inline constexpr const char *kCodecModuleSymbol = "tonvaleCodecModule";

} // namespace tonvale
