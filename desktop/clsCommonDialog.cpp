// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/clsCommonDialog.h"

#include "controls/Errors.h"
#include "controls/Text.h"

#include <algorithm>

namespace tonvale {

namespace {

constexpr std::int32_t kDefaultFileSize = 256;

std::string platformFilter(std::string filter) {
    std::replace(filter.begin(), filter.end(), '|', '\0');
    filter += '\0';
    return filter;
}

} // namespace

void clsCommonDialog::ShowOpen() { show(&FileDialogs::getOpenFileName); }

void clsCommonDialog::ShowSave() { show(&FileDialogs::getSaveFileName); }

void clsCommonDialog::show(Call call) {
    apiReturn_ = 0;
    extendedError_ = 0;
    OpenFileName dialog;
    dialog.filter = platformFilter(Filter);
    dialog.filterIndex = FilterIndex;
    dialog.capacity = static_cast<std::size_t>(MaxFileSize <= 0 ? kDefaultFileSize : MaxFileSize);
    dialog.file = FileName;
    dialog.initialDirectory = InitDir;
    dialog.title = DialogTitle;
    dialog.defaultExtension = DefaultExt;
    dialog.flags = Flags;
    apiReturn_ = (dialogs_.*call)(dialog);
    if (apiReturn_ == 1) {
        FileName = split(dialog.file, dialog.fileTitle);
        FileTitle = split(dialog.fileTitle, dialog.fileTitle);
    } else if (apiReturn_ != 0) {
        extendedError_ = dialogs_.extendedError();
    } else if (CancelError) {
        throw RuntimeError(kCancelPressed, "Cancel Pressed");
    }
}

std::string clsCommonDialog::split(const std::string &buffer, const std::string &titleBuffer) const {
    const bool severalChosen = (Flags & kDialogAllowMultiselect) != 0 && untilZero(titleBuffer).empty();
    return severalChosen ? buffer : std::string(untilZero(buffer));
}

} // namespace tonvale
