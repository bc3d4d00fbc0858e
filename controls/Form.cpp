// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/Form.h"

#include <algorithm>
#include <utility>

namespace tonvale {

Form::Form(Forms &forms, std::string name) : Name(std::move(name)), forms_(forms) {}

Form::~Form() = default;

void Form::Show() { Visible = true; }

void Form::Hide() { Visible = false; }

void Form::Move(double left, double top) {
    Left = left;
    Top = top;
}

void Form::Move(double left, double top, double width, double height) {
    Move(left, top);
    Width = width;
    Height = height;
}

void Form::ZOrder() { raised(); }

void Form::Refresh() { refreshed(); }

void Form::setChrome(double width, double height) {
    if (width == chromeWidth_ && height == chromeHeight_) return;
    chromeWidth_ = width;
    chromeHeight_ = height;
    chromeChanged();
}

void Form::userResized(double width, double height) {
    Width = width;
    Height = height;
    Form_Resize();
}

bool Form::Unload() {
    if (unloading_ || slot_ == nullptr) return true;
    unloading_ = true;
    std::int16_t cancel = 0;
    attempt([&] { Form_QueryUnload(cancel); });
    if (cancel == 0) attempt([&] { Form_Unload(cancel); });
    if (cancel != 0) {
        unloading_ = false;
        return false;
    }
    slot_->release();
    return true;
}

FormSlot::~FormSlot() {
    if (form_) std::erase(forms_.loaded_, form_.get());
}

Form &FormSlot::form() {
    if (!form_) {
        if (!factory_) throw RuntimeError(ErrorNumber::CantCreateObject);
        form_ = factory_();
        form_->slot_ = this;
        forms_.loaded_.push_back(form_.get());
        // Kept by reference: a window may be unloaded while it loads, and lives on until the loop
        // comes round.
        Form &made = *form_;
        forms_.formLoading(made);
        made.attempt([&] { made.Form_Load(); });
        return made;
    }
    return *form_;
}

bool FormSlot::Unload() { return !form_ || form_->Unload(); }

void FormSlot::release() {
    const std::shared_ptr<Form> dying = std::move(form_);
    dying->slot_ = nullptr;
    dying->Visible = false;
    std::erase(forms_.loaded_, dying.get());
    forms_.formUnloaded(*dying);
    // The caller may be one of its own handlers.
    forms_.loop().post([dying] {});
    if (forms_.loaded_.empty()) forms_.lastFormUnloaded();
}

} // namespace tonvale
