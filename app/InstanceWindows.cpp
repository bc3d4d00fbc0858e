// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/InstanceWindows.h"

#include "core/WindowSearch.h"

namespace tonvale {

void InstanceWindows::watch(Forms &forms) {
    loading_ = forms.formLoading.connect([this](Form &form) { windows_[++lastHandle_] = &form; });
    unloaded_ = forms.formUnloaded.connect(
        [this](Form &form) { std::erase_if(windows_, [&](const auto &window) { return window.second == &form; }); });
}

std::vector<WindowInfo> InstanceWindows::list() const {
    std::vector<WindowInfo> list;
    for (const auto &[handle, form] : windows_) list.push_back({handle, kFormClass, form->Caption});
    return list;
}

void InstanceWindows::close(WindowHandle handle) {
    const auto found = windows_.find(handle);
    if (found != windows_.end()) found->second->Unload();
}

} // namespace tonvale
