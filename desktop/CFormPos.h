// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Form.h"
#include "core/Application.h"

#include <string>

namespace tonvale {

enum class KeepOnScreen { No, Yes };

// Saves and restores a window's place, size and state, one registry value for each window.
class CFormPos {
public:
    explicit CFormPos(Application &app);

    void Form(tonvale::Form *form) { form_ = form; }
    [[nodiscard]] tonvale::Form *Form() const { return form_; }
    std::string RegistryPath; // "SOFTWARE\" and the application's title
    tonvale::RootKey RootKey = tonvale::RootKey::LocalMachine;
    std::string SubKey;

    void CenterForm();
    // False when no place was saved; nothing has moved then.
    bool RestoreForm(KeepOnScreen keep);
    void SaveForm();

private:
    tonvale::Form &boundForm();
    [[nodiscard]] std::string read();
    void write(const std::string &text);
    void moveTo(const std::string &text, KeepOnScreen keep);

    Application &app_;
    tonvale::Form *form_ = nullptr;
};

} // namespace tonvale
