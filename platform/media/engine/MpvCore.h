// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Loop.h"
#include "platform/media/engine/MpvNode.h"
#include "platform/media/engine/SourceShelf.h"

#include <mpv/client.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>

namespace tonvale {

// Where films show their picture.
enum class PictureOutput { None, Window };

// Owns the handle of the decoder. Nothing here waits for the decoder's own thread, but where it is
// said: requests are sent, answers come as events that carry the request's id. For the user-interface
// thread alone.
class MpvCore {
public:
    // `drain` is called from the loop when events wait. Throws RuntimeError.
    MpvCore(EventLoop &loop, const std::string &outputs, std::function<void()> drain);
    // Prompt even where the decoder hangs: it is then left to end by itself.
    ~MpvCore();
    MpvCore(const MpvCore &) = delete;
    MpvCore &operator=(const MpvCore &) = delete;

    [[nodiscard]] SourceShelf &shelf() { return *shelf_; }
    // The next event, MPV_EVENT_NONE if there is none within this time.
    [[nodiscard]] const mpv_event &wait(double seconds);
    // Has `drain` called once more.
    void requestDrain();

    void command(std::uint64_t id, std::initializer_list<const char *> words);
    void setFlag(const char *property, bool value);
    void setNumber(const char *property, double value);
    void setText(const char *property, const std::string &value);
    void ask(std::uint64_t id, const char *property, mpv_format format);
    void observe(std::uint64_t id, const char *property, mpv_format format);
    void unobserve(std::uint64_t id);

    // Between the finding of a file's tracks and the choice among them the decoder waits, with an
    // event of its own. Meanwhile it answers these at once; what it refuses is left as it is.
    [[nodiscard]] MpvNode read(const char *property);
    void setNow(const char *property, const char *value);
    void goOn(const mpv_event_hook &hook);

    [[nodiscard]] mpv_handle *handle() const { return handle_.get(); }
    void setPictureOutput(PictureOutput output);
    // Waits until it is so, for a short while, and does what is to be done `meanwhile` again and
    // again. False: the decoder hangs.
    [[nodiscard]] bool setPictureOutputNow(PictureOutput output, const std::function<void()> &meanwhile);
    // Leaves the decoder to itself for good. Nothing may be asked of it any more.
    void abandon();

private:
    struct HandleDeleter {
        void operator()(mpv_handle *handle) const { mpv_terminate_destroy(handle); }
    };
    using Handle = std::unique_ptr<mpv_handle, HandleDeleter>;

    // What the decoder's threads and callbacks that still lie in the loop may reach. `drain` is the
    // user-interface thread's, and empty once the core is gone.
    struct Doorbell : std::enable_shared_from_this<Doorbell> {
        Doorbell(EventLoop &eventLoop, std::function<void()> onDrain) : loop(eventLoop), drain(std::move(onDrain)) {}
        void ring();

        EventLoop &loop;
        std::atomic<bool> rung{false};
        std::function<void()> drain;
    };

    void check(int result) const;
    void silence();

    std::shared_ptr<Doorbell> doorbell_;
    std::shared_ptr<SourceShelf> shelf_ = std::make_shared<SourceShelf>();
    Handle handle_;
};

} // namespace tonvale
