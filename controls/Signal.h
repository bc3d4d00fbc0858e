// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tonvale {

// Owns one subscription; destroying it ends the subscription. Outliving the signal is allowed.
class [[nodiscard]] Connection {
public:
    Connection() = default;
    explicit Connection(std::function<void()> disconnect) : disconnect_(std::move(disconnect)) {}
    Connection(Connection &&other) noexcept : disconnect_(std::exchange(other.disconnect_, nullptr)) {}
    Connection &operator=(Connection &&other) noexcept {
        if (this != &other) {
            disconnect();
            disconnect_ = std::exchange(other.disconnect_, nullptr);
        }
        return *this;
    }
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;
    ~Connection() { disconnect(); }

    void disconnect() {
        if (auto run = std::exchange(disconnect_, nullptr)) run();
    }

private:
    std::function<void()> disconnect_;
};

// A list of listeners, called in the order of their subscription. A listener may subscribe,
// unsubscribe (itself included) or destroy the signal while it is being called.
template <class... Args> class Signal {
public:
    using Listener = std::function<void(Args...)>;

    Signal() = default;
    Signal(const Signal &) = delete;
    Signal &operator=(const Signal &) = delete;

    Connection connect(Listener listener) {
        if (!state_) state_ = std::make_shared<State>();
        const std::uint64_t id = ++state_->lastId;
        state_->slots.push_back({id, std::move(listener)});
        return Connection([weak = std::weak_ptr<State>(state_), id] {
            if (auto state = weak.lock()) state->remove(id);
        });
    }

    void operator()(Args... args) const {
        if (!state_ || state_->slots.empty()) return;
        const std::shared_ptr<State> state = state_;
        const Depth depth(*state);
        // Listeners added meanwhile are not called in this round.
        const std::size_t count = state->slots.size();
        for (std::size_t i = 0; i < count; ++i) {
            if (state->slots[i].id == 0) continue;
            // Called through a copy, since a new subscription may move the vector.
            const Listener listener = state->slots[i].listener;
            listener(args...);
        }
    }

private:
    struct Slot {
        std::uint64_t id; // 0 once removed
        Listener listener;
    };
    struct State {
        std::vector<Slot> slots;
        std::uint64_t lastId = 0;
        int depth = 0;

        void remove(std::uint64_t id) {
            for (Slot &slot : slots)
                if (slot.id == id) slot.id = 0;
            purge();
        }
        void purge() {
            if (depth == 0) std::erase_if(slots, [](const Slot &slot) { return slot.id == 0; });
        }
    };
    struct Depth {
        explicit Depth(State &emitting) : state(emitting) { ++state.depth; }
        ~Depth() {
            --state.depth;
            state.purge();
        }
        State &state;
    };

    std::shared_ptr<State> state_;
};

// The one handler that the owning window gives a control (Control_Event).
template <class... Args> class Event {
public:
    using Handler = std::function<void(Args...)>;

    Event &operator=(Handler handler) {
        handler_ = std::move(handler);
        return *this;
    }
    void operator()(Args... args) const {
        if (!handler_) return;
        const Handler handler = handler_; // the handler may unload its window
        handler(args...);
    }
    explicit operator bool() const { return static_cast<bool>(handler_); }

private:
    Handler handler_;
};

} // namespace tonvale
