// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/Views.h"

#include "player/Form1.h"
#include "ui/FormWindow.h"
#include "ui/MainWindowView.h"

namespace tonvale {

namespace {

// Which window shows which form; null for one that has none yet.
std::unique_ptr<FormWindow> makeWindow(Form &form) {
    if (auto *main = dynamic_cast<Form1 *>(&form)) return std::make_unique<MainWindowView>(*main);
    return nullptr;
}

} // namespace

void Views::Release::operator()(FormWindow *window) const { window->release(); }

Views::Views(Forms &forms) {
    loading_ = forms.formLoading.connect([this](Form &form) { follow(form); });
    unloaded_ = forms.formUnloaded.connect([this](Form &form) { views_.erase(&form); });
}

Views::~Views() = default;

void Views::follow(Form &form) {
    views_[&form].shown = form.Visible.onChange([this, &form] {
        const auto found = views_.find(&form);
        if (found == views_.end() || found->second.window || !form.Visible) return;
        found->second.window.reset(makeWindow(form).release());
    });
}

} // namespace tonvale
