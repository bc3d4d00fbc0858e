// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cd/BatchCodec.h"
#include "desktop/list_editing.h"

#include <memory>
#include <span>
#include <string_view>

namespace tonvale {

enum class RefusedSource { EndsInBox, GoesOn }; // a file that the codec does not open
enum class FinishedIsSet { BeforeListIsCleared, AfterListIsCleared };

// All that differs between the two batch windows.
struct BatchVariant {
    const char *name;
    const char *caption;
    std::unique_ptr<BatchCodec> (*makeCodec)(const Services &);
    const char *introduction;                 // Label1 before the first run
    const char *convertCaption, *stopCaption; // ConvertMenu: at rest, during a run
    const char *convertToolTip;               // of the toolbar
    const char *noticeKey;                    // of the notice at load; null: none
    AddDialog addDialog;
    const char *folderTitle;
    const char *converting;                    // Label1 during a run, before the path
    const char *stopped, *finished;            // Label1 at a stop
    const char *nothingSelected;               // box: Remove of the toolbar
    const char *failed;                        // box: an error at the start of a file
    std::span<const std::string_view> sources; // accepted extensions, in lower case
    const char *resultExtension;
    RefusedSource refusedSource;
    FinishedIsSet finishedIsSet;
};

extern const BatchVariant kEncode, kDecode;

} // namespace tonvale
