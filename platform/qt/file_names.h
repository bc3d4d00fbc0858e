// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>
#include <QUrl>

#include <string>
#include <string_view>
#include <vector>

namespace tonvale {

// Files that a dialog has chosen, as bytes. A name that is no valid text comes out of the dialog
// either percent-encoded or with its odd bytes replaced; both find back to the name on disk.
[[nodiscard]] std::vector<std::string> localFiles(const QList<QUrl> &urls);

// "Description, zero, *.a;*.b, zero ..." as Qt writes it: "Description (*.a *.A *.b *.B)".
[[nodiscard]] QStringList nameFilters(std::string_view filter);

// Several files as one text: their directory, zero, then each name and a zero.
[[nodiscard]] std::string joinedSelection(const std::vector<std::string> &files);

} // namespace tonvale
