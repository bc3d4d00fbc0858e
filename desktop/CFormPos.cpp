// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/CFormPos.h"

#include "controls/Numbers.h"
#include "controls/Text.h"
#include "desktop/error_box.h"
#include "desktop/text_values.h"

#include <algorithm>

namespace tonvale {

namespace {

constexpr int kSingleDigits = 7; // significant digits of a single-precision number

std::string singleText(double value) { return formatGeneral(static_cast<float>(value), kSingleDigits); }

std::int32_t numberAfter(const std::string &text, const char *key) {
    const std::size_t at = text.find(key);
    if (at == std::string::npos) return 0;
    return toInt32(numericPrefix(std::string_view(text).substr(at + 2)));
}

} // namespace

CFormPos::CFormPos(Application &app) : RegistryPath("SOFTWARE\\" + app.services.program.title), app_(app) {}

tonvale::Form &CFormPos::boundForm() {
    if (form_ == nullptr) throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    return *form_;
}

std::string CFormPos::read() {
    std::string text;
    withErrorBox(app_, "RegistryGetKeyValue", [&] {
        text = RegistryGetKeyValue(app_.services.registry, RootKey, keyBelow(RegistryPath, SubKey), boundForm().Name);
    });
    return text;
}

void CFormPos::write(const std::string &text) {
    withErrorBox(app_, "RegistrySetKeyValue", [&] {
        RegistrySetKeyValue(app_.services.registry, RootKey, keyBelow(RegistryPath, SubKey), boundForm().Name, text);
    });
}

void CFormPos::CenterForm() {
    withErrorBox(app_, "CenterForm", [&] {
        tonvale::Form &form = boundForm();
        Screen &screen = app_.services.screen;
        form.Move((screen.width() - form.Width) / 2, (screen.height() - form.Height) / 2);
    });
}

void CFormPos::SaveForm() {
    withErrorBox(app_, "SaveForm", [&] {
        const tonvale::Form &form = boundForm();
        write("L=" + singleText(form.Left) + ";T=" + singleText(form.Top) + ";W=" + singleText(form.Width) +
              ";H=" + singleText(form.Height) + ";S=" + std::to_string(static_cast<int>(form.State.get())) + ";");
    });
}

bool CFormPos::RestoreForm(KeepOnScreen keep) {
    bool restored = false;
    withErrorBox(app_, "RestoreForm", [&] {
        boundForm();
        const std::string text = read();
        if (text.empty()) return;
        moveTo(text, keep);
        restored = true;
    });
    return restored;
}

void CFormPos::moveTo(const std::string &text, KeepOnScreen keep) {
    double left = numberAfter(text, "L="), top = numberAfter(text, "T=");
    const double width = numberAfter(text, "W="), height = numberAfter(text, "H=");
    const std::int32_t state = numberAfter(text, "S=");
    if (state == 1 || state == 2) {
        boundForm().State = static_cast<WindowState>(state);
        return;
    }
    if (keep == KeepOnScreen::Yes) {
        Screen &screen = app_.services.screen;
        if (screen.width() <= left) left = screen.width() - width;
        if (screen.height() <= top) top = screen.height() - height;
        top = std::max(top, 0.0);
        left = std::max(left, 0.0);
    }
    boundForm().Move(left, top, width, height);
}

} // namespace tonvale
