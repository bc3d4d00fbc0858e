// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <gio/gio.h>

#include <memory>

namespace tonvale {

struct FreeGlib {
    void operator()(void *memory) const { g_free(memory); }
};
struct FreeGError {
    void operator()(GError *error) const { g_error_free(error); }
};
struct UnrefObject {
    void operator()(gpointer object) const { g_object_unref(object); }
};

using GlibString = std::unique_ptr<char, FreeGlib>;
using GlibError = std::unique_ptr<GError, FreeGError>;
template <class T> using GlibObject = std::unique_ptr<T, UnrefObject>;

} // namespace tonvale
