// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/bind.h"

class QCheckBox;
class QComboBox;
class QPlainTextEdit;

namespace tonvale {

void bind(Bindings &bindings, QCheckBox &widget, CheckBox &box);
void bind(Bindings &bindings, QComboBox &widget, ComboBox &box);
void bind(Bindings &bindings, QPlainTextEdit &widget, TextBox &box);

} // namespace tonvale
