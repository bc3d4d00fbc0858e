// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

#include <cstdint>
#include <string>

namespace tonvale {

// The file dialogs. Set the properties, show, read FileName.
class clsCommonDialog {
public:
    explicit clsCommonDialog(FileDialogs &dialogs) : dialogs_(dialogs) {}

    std::string FileName, FileTitle;
    std::string DialogTitle, InitDir, DefaultExt;
    std::string Filter; // "description|*.a;*.b|description|*.c"
    std::int32_t FilterIndex = 0;
    std::int32_t Flags = 0;
    std::int32_t MaxFileSize = 0; // bytes; 0 or less means 256
    bool CancelError = false;     // a cancelled dialog raises kCancelPressed

    // Several names chosen come back as the directory and the names, separated by zero characters.
    void ShowOpen();
    void ShowSave();

    [[nodiscard]] std::int32_t APIReturn() const { return apiReturn_; }
    [[nodiscard]] std::int32_t ExtendedError() const { return extendedError_; }

    static constexpr std::int32_t kCancelPressed = static_cast<std::int32_t>(0x800407D1U);

private:
    using Call = std::int32_t (FileDialogs::*)(OpenFileName &);
    void show(Call call);
    [[nodiscard]] std::string split(const std::string &buffer, const std::string &titleBuffer) const;

    FileDialogs &dialogs_;
    std::int32_t apiReturn_ = 0, extendedError_ = 0;
};

} // namespace tonvale
