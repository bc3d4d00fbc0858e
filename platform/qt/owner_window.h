// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QDialog;

namespace tonvale {

// Ties a dialog to the window that the user works in, so that it stands above it and in its
// middle. The window does not own it: it may be unloaded while the dialog is open.
void placeAboveActiveWindow(QDialog &dialog);

} // namespace tonvale
