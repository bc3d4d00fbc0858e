// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/machine/base/UniqueFd.h"

#include <functional>
#include <string>

namespace tonvale {

// The directory of a path, with the separator at its end; "./" where the path names none.
[[nodiscard]] std::string directoryOf(const std::string &path);

// A file that grows beside its target, without a name where the file system can do this, so that
// nothing is left of it whatever ends the program, and under a hidden one elsewhere. It goes away
// unless it is published. Failures are error numbers of the system; 0 is none.
class NewFile {
public:
    enum class Growing { Nameless, Hidden };

    NewFile() = default;
    ~NewFile();
    NewFile(const NewFile &) = delete;
    NewFile &operator=(const NewFile &) = delete;

    // For reading and writing.
    [[nodiscard]] int make(const std::string &target, Growing growing = Growing::Nameless);
    [[nodiscard]] int get() const { return file_.get(); }
    // Closes the file and puts it into its target's place.
    [[nodiscard]] int publish();

private:
    [[nodiscard]] bool makeNameless();
    [[nodiscard]] bool makeHidden();
    [[nodiscard]] bool giveName();
    [[nodiscard]] bool takeName(const std::function<bool(const char *name)> &take);

    std::string target_;
    std::string name_; // empty while there is none, and once published
    UniqueFd file_;
};

} // namespace tonvale
