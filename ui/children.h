// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>
#include <type_traits>
#include <utility>

namespace tonvale {

// Makes a widget, an action or a menu that `parent` owns.
template <class Child, class Parent, class... Args> Child &makeChild(Parent &parent, Args &&...args) {
    if constexpr (std::is_constructible_v<Child, Parent &, Args...>)
        return *std::make_unique<Child>(parent, std::forward<Args>(args)...).release();
    else
        return *std::make_unique<Child>(&parent, std::forward<Args>(args)...).release();
}

} // namespace tonvale
