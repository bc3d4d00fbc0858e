// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/instances/Protocol.h"

#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>

namespace tonvale::instances {

namespace {

// A title is shown, not stored; what is beyond this length tells nobody anything.
constexpr std::size_t kLongestTitle = 1024;

bool isCommand(std::string_view text) {
    return !text.empty() && text.size() <= kLongestPath + 2 && text.find('\0') == std::string_view::npos;
}

} // namespace

std::optional<Message> parseRequest(std::string_view packet) {
    if (packet.empty()) return std::nullopt;
    const auto kind = static_cast<Kind>(packet.front());
    const std::string_view text = packet.substr(1);
    const bool good = (kind == Kind::List && text.empty()) || (kind == Kind::Execute && isCommand(text)) ||
                      (kind == Kind::Close && parseHandle(text));
    return good ? std::optional(Message{kind, std::string(text)}) : std::nullopt;
}

std::optional<WindowHandle> parseHandle(std::string_view text) {
    WindowHandle handle = 0;
    const char *end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, handle);
    return !text.empty() && result.ec == std::errc() && result.ptr == end ? std::optional(handle) : std::nullopt;
}

std::string packWindow(const WindowInfo &window) {
    std::string text = std::to_string(window.handle);
    text += '\0' + window.className + '\0' + window.title.substr(0, kLongestTitle);
    return text;
}

std::optional<WindowInfo> unpackWindow(std::string_view text) {
    const std::size_t first = text.find('\0');
    const std::size_t second = first == std::string_view::npos ? first : text.find('\0', first + 1);
    if (second == std::string_view::npos) return std::nullopt;
    const auto handle = parseHandle(text.substr(0, first));
    if (!handle) return std::nullopt;
    return WindowInfo{*handle, std::string(text.substr(first + 1, second - first - 1)),
                      std::string(text.substr(second + 1))};
}

bool sendMessage(int socket, Kind kind, std::string_view text) {
    std::string packet(1, static_cast<char>(kind));
    packet += text;
    return ::send(socket, packet.data(), packet.size(), MSG_NOSIGNAL | MSG_DONTWAIT) ==
           static_cast<ssize_t>(packet.size());
}

Received receivePacket(int socket, std::string &packet) {
    std::array<char, kLongestPacket> buffer{};
    const ssize_t length = ::recv(socket, buffer.data(), buffer.size(), MSG_DONTWAIT | MSG_TRUNC);
    if (length < 0 && (errno == EAGAIN || errno == EINTR)) return Received::Nothing;
    // MSG_TRUNC tells the packet's full length, which may be more than was taken.
    if (length <= 0 || static_cast<std::size_t>(length) > buffer.size()) return Received::Gone;
    packet.assign(buffer.data(), static_cast<std::size_t>(length));
    return Received::Packet;
}

int Deadline::milliseconds() const {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end_ - Clock::now()).count();
    return static_cast<int>(std::clamp<std::int64_t>(left, 0, 1'000'000));
}

} // namespace tonvale::instances
