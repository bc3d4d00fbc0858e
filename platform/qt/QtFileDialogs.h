// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

#include <string>
#include <vector>

class QFileDialog;

namespace tonvale {

// The desktop's own dialogs where it has some, else Qt's.
class QtFileDialogs : public FileDialogs {
public:
    std::int32_t getOpenFileName(OpenFileName &dialog) override;
    std::int32_t getSaveFileName(OpenFileName &dialog) override;
    std::int32_t extendedError() override { return 0; } // a dialog of the toolkit does not fail
    std::optional<std::string> browseForFolder(const std::string &title) override;

private:
    static std::int32_t answer(OpenFileName &dialog, const QFileDialog &window, const std::vector<std::string> &files);
};

} // namespace tonvale
