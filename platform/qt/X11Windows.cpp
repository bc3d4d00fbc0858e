// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/qt/X11Windows.h"

#include <algorithm>
#include <cstring>

namespace tonvale {

namespace {

constexpr std::uint32_t kLongestProperty = 64 * 1024; // in units of four bytes
constexpr std::uint8_t kFormat32 = 32;

} // namespace

xcb_atom_t X11Windows::atom(std::string_view name) const {
    const auto reply =
        fetchReply(xcb_intern_atom_reply, connection_.get(),
                   xcb_intern_atom(connection_.get(), 0, static_cast<std::uint16_t>(name.size()), name.data()));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::string X11Windows::bytes(xcb_window_t window, std::string_view property) const {
    const auto reply = fetchReply(
        xcb_get_property_reply, connection_.get(),
        xcb_get_property(connection_.get(), 0, window, atom(property), XCB_GET_PROPERTY_TYPE_ANY, 0, kLongestProperty));
    if (!reply) return {};
    const auto *value = static_cast<const char *>(xcb_get_property_value(reply.get()));
    return {value, static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

std::vector<std::uint32_t> X11Windows::numbers(xcb_window_t window, std::string_view property) const {
    const std::string data = bytes(window, property);
    std::vector<std::uint32_t> result(data.size() / sizeof(std::uint32_t));
    std::memcpy(result.data(), data.data(), result.size() * sizeof(std::uint32_t));
    return result;
}

std::vector<X11Windows::Window> X11Windows::list() const {
    std::vector<Window> result;
    if (!connection_) return result;
    for (const xcb_window_t id : numbers(rootWindow(connection_.get()), "_NET_CLIENT_LIST")) {
        const auto process = numbers(id, "_NET_WM_PID");
        std::string title = bytes(id, "_NET_WM_NAME");
        if (title.empty()) title = bytes(id, "WM_NAME");
        result.push_back({id, process.empty() ? 0 : static_cast<pid_t>(process.front()), std::move(title)});
    }
    return result;
}

void X11Windows::askToClose(xcb_window_t window) const {
    if (!connection_) return;
    const xcb_atom_t wish = atom("WM_DELETE_WINDOW");
    const auto understood = numbers(window, "WM_PROTOCOLS");
    if (std::find(understood.begin(), understood.end(), wish) == understood.end()) return;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = kFormat32;
    message.window = window;
    message.type = atom("WM_PROTOCOLS");
    message.data.data32[0] = wish;
    message.data.data32[1] = XCB_CURRENT_TIME;
    // One that has gone meanwhile needs no message.
    (void)succeeds(connection_.get(), xcb_send_event_checked(connection_.get(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                                                             reinterpret_cast<const char *>(&message)));
}

} // namespace tonvale
