// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Property.h"
#include "controls/Signal.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tonvale {

// Models of window parts. Sizes and places are in twips (15 to a device-independent pixel),
// relative to the inside of the window. Setting a value from code raises the same event as the
// user does, and only when the value really changes.

struct Control {
    Property<bool> Enabled{true};
    Property<bool> Visible{true};
    Property<std::string> ToolTipText;
    Property<double> Left, Top, Width, Height;

    void Move(double left, double top) {
        Left = left;
        Top = top;
    }
};

// Mouse events of parts that drag the window: place of the pointer in twips.
struct MouseEvents {
    Event<double, double> MouseDown, MouseMove;
    Event<> MouseUp;
};

struct Label : Control, MouseEvents {
    explicit Label(std::string caption = {}) : Caption(std::move(caption)) {}
    Property<std::string> Caption;
    Event<> Click;
};

struct Frame : Control, MouseEvents {
    explicit Frame(std::string caption = {}) : Caption(std::move(caption)) {}
    Property<std::string> Caption;
};

// A value whose change raises an event.
template <class T> class Notifying {
public:
    explicit Notifying(Event<> &event, T initial = {}) : property_(std::move(initial)), event_(event) {}
    Notifying &operator=(T value) {
        if (property_.set(std::move(value))) event_();
        return *this;
    }
    [[nodiscard]] const T &get() const { return property_; }
    operator const T &() const { return property_; }
    // For the view alone.
    Connection onChange(std::function<void()> listener) { return property_.onChange(std::move(listener)); }
    // Sets the value without its event.
    bool setQuietly(T value) { return property_.set(std::move(value)); }

    template <class U> friend bool operator==(const Notifying &notifying, const U &value) {
        return notifying.property_ == value;
    }

private:
    Property<T> property_;
    Event<> &event_;
};

struct TextBox : Control {
    Event<> Change;
    Notifying<std::string> Text{Change};
    bool ReadOnly = false, MultiLine = false;
};

struct CommandButton : Control {
    explicit CommandButton(std::string caption = {}) : Caption(std::move(caption)) {}
    Property<std::string> Caption;
    Event<> Click;
    Event<> MouseMove;
};

struct CheckBox : Control {
    explicit CheckBox(std::string caption = {}) : Caption(std::move(caption)) {}
    Property<std::string> Caption;
    Event<> Click;
    Notifying<std::int16_t> Value{Click}; // 0 off, 1 on, 2 greyed
};

// One entry of a menu. An entry with children is a submenu; its Click is raised as it opens.
struct MenuEntry {
    explicit MenuEntry(std::string caption = {}) : Caption(std::move(caption)) {}
    Property<std::string> Caption; // "&" before the mnemonic; "-" alone is a separator
    Property<bool> Enabled{true};
    Property<bool> Visible{true};
    Property<bool> Checked{false};
    std::string Tag;
    std::string Shortcut; // such as "Ctrl+O"; empty for none
    Event<> Click;
    std::vector<MenuEntry *> children;
};

struct Led : Control, MouseEvents {
    Property<std::int32_t> LEDColor{0x0000FF}; // blue * 65536 + green * 256 + red
};

struct LedDigit : Control, MouseEvents {
    enum class Kind { Digit, Colon };
    explicit LedDigit(Kind kind = Kind::Digit) : DisplayType(kind) {}
    Kind DisplayType;
    Property<std::int32_t> Value{0}; // 0 to 9
};

struct LedGauge : Control, MouseEvents {
    Property<std::int32_t> Position{0}; // 0 to 100
};

struct LevelScale : Control, MouseEvents {};

// A picture that the view draws.
struct Image : Control, MouseEvents {};

// Min, Max and a Value that always stays between them.
class RangedControl : public Control {
public:
    Event<> Change;

    RangedControl(std::int32_t min, std::int32_t max, std::int32_t value) : Min(min), Max(max), value_(Change, value) {}

    Property<std::int32_t> Min, Max;
    [[nodiscard]] std::int32_t Value() const { return value_; }
    void Value(std::int32_t value) { value_ = limited(value); }
    // A value outside the new range is limited to it without an event: nobody has moved it.
    void setRange(std::int32_t min, std::int32_t max) {
        Min = min;
        Max = max;
        value_.setQuietly(limited(Value()));
    }
    Connection onValueChange(std::function<void()> listener) { return value_.onChange(std::move(listener)); }

protected:
    [[nodiscard]] std::int32_t limited(std::int32_t value) const {
        return std::max(Min.get(), std::min(value, Max.get()));
    }
    Notifying<std::int32_t> value_;
};

class LedSpin : public RangedControl, public MouseEvents {
public:
    explicit LedSpin(std::int32_t value = 0) : RangedControl(0, 100, value) {}
    std::int32_t Step = 1;
};

class Slider : public RangedControl {
public:
    Slider(std::int32_t min, std::int32_t max, std::int32_t largeChange = 1)
        : RangedControl(min, max, std::max(min, std::min(0, max))), LargeChange(largeChange) {}
    Event<> Scroll; // the user drags the thumb
    std::int32_t LargeChange;

    // For the view: the thumb is dragged here. Raises Scroll in place of Change.
    void scrollTo(std::int32_t value) {
        if (value_.setQuietly(limited(value))) Scroll();
    }
};

struct ProgressBar : Control {
    Property<std::int32_t> Min{0}, Max{100}, Value{0};
};

class ComboBox : public Control {
public:
    Event<> Click;
    Property<std::vector<std::string>> List;
    Notifying<std::int32_t> ListIndex{Click, -1}; // -1: nothing is selected
};

} // namespace tonvale
