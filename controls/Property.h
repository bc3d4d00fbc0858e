// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Signal.h"

#include <utility>

namespace tonvale {

// A value that tells its listeners when it has changed; assigning an equal value does nothing.
template <class T> class Property {
public:
    Property() = default;
    explicit Property(T initial) : value_(std::move(initial)) {}
    Property(const Property &) = delete;
    Property &operator=(const Property &other) {
        set(other.value_);
        return *this;
    }
    Property &operator=(T value) {
        set(std::move(value));
        return *this;
    }

    // Returns whether the value was another one before.
    bool set(T value) {
        if (value == value_) return false;
        value_ = std::move(value);
        changed_();
        return true;
    }
    [[nodiscard]] const T &get() const { return value_; }
    operator const T &() const { return value_; }

    Connection onChange(std::function<void()> listener) { return changed_.connect(std::move(listener)); }

    template <class U> friend bool operator==(const Property &property, const U &value) {
        return property.value_ == value;
    }
    friend bool operator==(const Property &a, const Property &b) { return a.value_ == b.value_; }

private:
    T value_{};
    Signal<> changed_;
};

} // namespace tonvale
