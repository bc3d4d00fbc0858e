// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/Form.h"

#include <algorithm>
#include <utility>

namespace tonvale {

Forms::Forms(EventLoop &loop, ErrObject &err) : loop_(loop), err_(err), self_(std::make_shared<Forms *>(this)) {}

Forms::~Forms() { *self_ = nullptr; }

void Forms::keepUntilUnused(std::unique_ptr<Form> form) {
    dead_.push_back(std::move(form));
    postBurial();
}

void Forms::handlerLeft() {
    if (--handlers_ == 0 && !dead_.empty()) postBurial();
}

// Not at once: what called the handler may be a part of the window, too.
void Forms::postBurial() {
    loop_.post([self = self_] {
        if (*self != nullptr && (*self)->handlers_ == 0) (*self)->dead_.clear();
    });
}

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

void Form::userPressedKey(std::int16_t keyAscii) {
    const Forms::HandlerScope scope(forms_);
    attempt([&] { Form_KeyPress(keyAscii); });
}

void Form::userReleasedButton(std::int16_t button, std::int16_t shift, double x, double y) {
    const Forms::HandlerScope scope(forms_);
    attempt([&] { Form_MouseUp(button, shift, x, y); });
}

void Form::userDroppedFiles(const std::vector<std::string> &names) {
    const Forms::HandlerScope scope(forms_);
    attempt([&] { Form_DropFiles(names); });
}

bool Form::Unload() {
    if (unloading_ || slot_ == nullptr) return true;
    const Forms::HandlerScope scope(forms_);
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
    if (!form_) load();
    // A window may be unloaded while it loads.
    if (!form_) throw RuntimeError(ErrorNumber::CantCreateObject);
    return *form_;
}

void FormSlot::load() {
    if (!factory_) throw RuntimeError(ErrorNumber::CantCreateObject);
    const Forms::HandlerScope scope(forms_);
    form_ = factory_();
    Form &made = *form_;
    made.slot_ = this;
    forms_.loaded_.push_back(&made);
    made.attempt([&] { forms_.formLoading(made); });
    made.attempt([&] { made.Form_Load(); });
}

bool FormSlot::Unload() { return !form_ || form_->Unload(); }

void FormSlot::release() {
    std::unique_ptr<Form> leaving = std::move(form_);
    Form &form = *leaving;
    form.slot_ = nullptr;
    form.Visible = false;
    std::erase(forms_.loaded_, &form);
    forms_.formUnloaded(form);
    forms_.keepUntilUnused(std::move(leaving));
    if (forms_.loaded_.empty()) forms_.lastFormUnloaded();
}

} // namespace tonvale
