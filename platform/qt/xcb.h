// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <type_traits>

namespace tonvale {

struct CloseXcb {
    void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
};
struct FreeReply {
    void operator()(void *reply) const { std::free(reply); }
};
using XcbConnection = std::unique_ptr<xcb_connection_t, CloseXcb>;
template <class T> using XcbReply = std::unique_ptr<T, FreeReply>;

// The outcome of a request that has one.
template <class Fetch, class Cookie> auto fetchReply(Fetch fetch, xcb_connection_t *connection, Cookie cookie) {
    xcb_generic_error_t *failure = nullptr;
    XcbReply<std::remove_pointer_t<decltype(fetch(connection, cookie, &failure))>> reply(
        fetch(connection, cookie, &failure));
    const XcbReply<xcb_generic_error_t> error(failure);
    return reply;
}

[[nodiscard]] inline bool succeeds(xcb_connection_t *connection, xcb_void_cookie_t request) {
    return !XcbReply<xcb_generic_error_t>(xcb_request_check(connection, request)) &&
           xcb_connection_has_error(connection) == 0;
}

// Whether our windows are on an X display, and not on some other kind.
[[nodiscard]] bool isOnX11();

// A connection beside the toolkit's; null where the display cannot be reached.
[[nodiscard]] XcbConnection connectToX();

[[nodiscard]] xcb_window_t rootWindow(xcb_connection_t *connection);

} // namespace tonvale
