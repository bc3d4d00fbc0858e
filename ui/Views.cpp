// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/Views.h"

#include "ui/AboutView.h"
#include "ui/BatchWindowView.h"
#include "ui/DisclaimerView.h"
#include "ui/ListWindowView.h"
#include "ui/MainWindowView.h"
#include "ui/MediaOptionsView.h"
#include "ui/MediaStatisticsView.h"
#include "ui/SettingsView.h"
#include "ui/VideoWindowView.h"
#include "ui/window_place.h"

#include <array>

namespace tonvale {

namespace {

using Maker = std::unique_ptr<FormWindow> (*)(Form &form);

// The view if the form is of its kind, else null.
template <class View, class Model> std::unique_ptr<FormWindow> makeFor(Form &form) {
    auto *model = dynamic_cast<Model *>(&form);
    return model != nullptr ? std::make_unique<View>(*model) : nullptr;
}

// Which window shows which form.
constexpr std::array<Maker, 9> kMakers{
    makeFor<MainWindowView, Form1>,
    makeFor<ListWindowView, PlaylistWindow>,
    makeFor<BatchWindowView, BatchWindow>,
    makeFor<VideoWindowView, frmVideoPlay>,
    makeFor<MediaOptionsView, MediaOptionsWindow>,
    makeFor<MediaStatisticsView, MediaStatisticsWindow>,
    makeFor<AboutView, frmAbout>,
    makeFor<DisclaimerView, Disclaimer>,
    makeFor<SettingsView, Settings>,
};

// Null for a form that has no window yet.
std::unique_ptr<FormWindow> makeWindow(Form &form) {
    for (const Maker make : kMakers)
        if (auto window = make(form)) return window;
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
    if (form.Left == 0 && form.Top == 0) form.Left = kNowhere;
    views_[&form].shown = form.Visible.onChange([this, &form] {
        const auto found = views_.find(&form);
        if (found == views_.end() || found->second.window || !form.Visible) return;
        found->second.window.reset(makeWindow(form).release());
    });
}

} // namespace tonvale
