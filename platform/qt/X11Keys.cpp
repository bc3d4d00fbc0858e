// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/X11Keys.h"

#include "platform/qt/key_codes.h"

#include <xcb/xinput.h>

#include <algorithm>

namespace tonvale {

namespace {

constexpr std::uint32_t kFirstPlace = 8; // X counts the kernel's key places from here
constexpr int kControlRow = 2;           // of the modifier table
// Two signs of each of the first two layouts. The later ones need further modifiers.
constexpr int kSignsOfLayouts = 4;

struct KeyMask {
    xcb_input_event_mask_t head;
    std::uint32_t mask;
};

std::optional<std::int32_t> firstKnown(const xcb_keysym_t *signs, int count) {
    for (int i = 0; i < std::min(count, kSignsOfLayouts); ++i)
        if (const auto code = virtualKeyOfSymbol(signs[i])) return code;
    return std::nullopt;
}

// The extension's number for its events; nothing where it is missing or too old for raw keys that
// also come while another program holds the keyboard.
std::optional<std::uint8_t> findExtension(xcb_connection_t *connection) {
    const xcb_query_extension_reply_t *extension = xcb_get_extension_data(connection, &xcb_input_id);
    if (extension == nullptr || extension->present == 0) return std::nullopt;
    const auto version =
        fetchReply(xcb_input_xi_query_version_reply, connection, xcb_input_xi_query_version(connection, 2, 2));
    const bool good = version && (version->major_version > 2 || version->minor_version >= 1);
    return good ? std::optional(extension->major_opcode) : std::nullopt;
}

} // namespace

std::unique_ptr<X11Keys> X11Keys::open(const Tell &tell) {
    XcbConnection connection = connectToX();
    if (!connection) return nullptr;
    const auto extension = findExtension(connection.get());
    if (!extension) return nullptr;
    auto keys = std::make_unique<X11Keys>(std::move(connection), *extension, tell);
    return keys->selectKeys() ? std::move(keys) : nullptr;
}

X11Keys::X11Keys(XcbConnection connection, std::uint8_t extension, const Tell &tell)
    : connection_(std::move(connection)), extension_(extension), tell_(tell), codes_(kKeys) {}

bool X11Keys::selectKeys() {
    xcb_connection_t *x = connection_.get();
    KeyMask wanted{{XCB_INPUT_DEVICE_ALL_MASTER, 1},
                   XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE};
    if (!succeeds(x, xcb_input_xi_select_events_checked(x, rootWindow(x), 1, &wanted.head))) return false;
    readMapping();
    readControlKeys();
    readHeldKeys();
    notifier_.emplace(xcb_get_file_descriptor(x), QSocketNotifier::Read);
    QObject::connect(&*notifier_, &QSocketNotifier::activated, &*notifier_, [this] { serve(); });
    // What came along with the answers above lies in the library's queue, where no descriptor tells it.
    QMetaObject::invokeMethod(
        &*notifier_, [this] { serve(); }, Qt::QueuedConnection);
    return true;
}

void X11Keys::readMapping() {
    xcb_connection_t *x = connection_.get();
    const xcb_setup_t *setup = xcb_get_setup(x);
    const int first = setup->min_keycode, count = setup->max_keycode - first + 1;
    const auto mapping = fetchReply(xcb_get_keyboard_mapping_reply, x,
                                    xcb_get_keyboard_mapping(x, setup->min_keycode, static_cast<std::uint8_t>(count)));
    if (!mapping) return;
    const int width = mapping->keysyms_per_keycode;
    const xcb_keysym_t *signs = xcb_get_keyboard_mapping_keysyms(mapping.get());
    const int known = width == 0 ? 0 : xcb_get_keyboard_mapping_keysyms_length(mapping.get()) / width;
    for (int i = 0; i < std::min(count, known); ++i)
        codes_[static_cast<std::size_t>(first + i)] = firstKnown(signs + i * width, width);
}

void X11Keys::readControlKeys() {
    const auto modifiers =
        fetchReply(xcb_get_modifier_mapping_reply, connection_.get(), xcb_get_modifier_mapping(connection_.get()));
    if (!modifiers) return;
    controls_.reset();
    const xcb_keycode_t *keys = xcb_get_modifier_mapping_keycodes(modifiers.get());
    const int width = modifiers->keycodes_per_modifier;
    for (int i = kControlRow * width; i < (kControlRow + 1) * width; ++i)
        if (keys[i] != 0) controls_.set(keys[i]);
}

void X11Keys::readHeldKeys() {
    const auto keymap = fetchReply(xcb_query_keymap_reply, connection_.get(), xcb_query_keymap(connection_.get()));
    if (!keymap) return;
    for (std::size_t key = 0; key < kKeys; ++key) held_[key] = (keymap->keys[key / 8] >> (key % 8) & 1) != 0;
}

void X11Keys::serve() {
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) handle(*event);
    if (xcb_connection_has_error(connection_.get()) != 0) notifier_->setEnabled(false);
}

void X11Keys::handle(const xcb_generic_event_t &event) {
    constexpr std::uint8_t kSentByClient = 0x80;
    const int type = event.response_type & ~kSentByClient;
    if (type == XCB_MAPPING_NOTIFY) {
        readMapping();
        readControlKeys();
    }
    if (type != XCB_GE_GENERIC) return;
    const auto &raw = reinterpret_cast<const xcb_input_raw_key_press_event_t &>(event);
    if (raw.extension != extension_ || raw.detail >= kKeys) return;
    if (raw.event_type == XCB_INPUT_RAW_KEY_PRESS) press(raw.detail);
    if (raw.event_type == XCB_INPUT_RAW_KEY_RELEASE) held_.reset(raw.detail);
}

void X11Keys::press(std::uint32_t key) {
    if (held_[key]) return; // it repeats
    held_.set(key);
    const bool withControl = (held_ & controls_).any();
    if (const auto code = virtualKeyOf(key); code && withControl) tell_(*code);
}

std::optional<std::int32_t> X11Keys::virtualKeyOf(std::uint32_t key) const {
    if (codes_[key] || key < kFirstPlace) return codes_[key];
    return virtualKeyOfPlace(key - kFirstPlace);
}

} // namespace tonvale
