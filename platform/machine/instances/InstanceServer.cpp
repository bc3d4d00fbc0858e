// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/instances/InstanceServer.h"

#include "platform/machine/base/SystemErrors.h"
#include "platform/machine/instances/Protocol.h"
#include "platform/machine/instances/RequestReader.h"

#include <sys/eventfd.h>

#include <algorithm>
#include <cerrno>
#include <deque>
#include <mutex>

namespace tonvale {

using namespace instances;

namespace {

UniqueFd makeEvent() {
    UniqueFd event(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!event) throw systemError(errno);
    return event;
}

void signalEvent(int event) {
    const std::uint64_t one = 1;
    // Fails only when the counter is full, and then it is signalled.
    (void)!::write(event, &one, sizeof one);
}

void clearEvent(int event) {
    std::uint64_t count = 0;
    // Fails only when the counter is zero.
    (void)!::read(event, &count, sizeof count);
}

} // namespace

// What the posted callbacks hold on to, so that they may run after the server has gone.
struct InstanceServer::Shared {
    explicit Shared(Handlers own) : handlers(std::move(own)) {}

    const UniqueFd stopEvent = makeEvent();
    const UniqueFd requestEvent = makeEvent();

    mutable std::mutex mutex;
    std::deque<Request> requests; // guarded by mutex
    bool stopped = false;         // guarded by mutex

    // User-interface thread only.
    const Handlers handlers;

    bool push(Request request);
    std::optional<Request> popFirst();
    std::vector<Request> popLists();
    void serve(Request request);

private:
    [[nodiscard]] std::vector<WindowInfo> windows() const;
    void answerList(const Request &request) const;
    void answerClose(Request request) const;
    friend class InstanceServer;
};

bool InstanceServer::Shared::push(Request request) {
    const std::lock_guard lock(mutex);
    if (stopped || requests.size() >= kMostWaitingRequests) return false;
    requests.push_back(std::move(request));
    signalEvent(requestEvent.get());
    return true;
}

std::optional<Request> InstanceServer::Shared::popFirst() {
    const std::lock_guard lock(mutex);
    if (requests.empty()) return std::nullopt;
    Request request = std::move(requests.front());
    requests.pop_front();
    return request;
}

std::vector<Request> InstanceServer::Shared::popLists() {
    clearEvent(requestEvent.get());
    const std::lock_guard lock(mutex);
    const auto lists = std::stable_partition(requests.begin(), requests.end(),
                                             [](const Request &request) { return request.message.kind != Kind::List; });
    std::vector<Request> result(std::make_move_iterator(lists), std::make_move_iterator(requests.end()));
    requests.erase(lists, requests.end());
    return result;
}

void InstanceServer::Shared::serve(Request request) {
    switch (request.message.kind) {
    case Kind::List: return answerList(request);
    case Kind::Close: return answerClose(std::move(request));
    case Kind::Execute:
        // Whoever has given up waiting hands the path to somebody else.
        if (sendMessage(request.socket.get(), Kind::Accepted)) {
            request.socket.reset();
            handlers.execute(request.message.text);
        }
        return;
    default: return;
    }
}

std::vector<WindowInfo> InstanceServer::Shared::windows() const {
    std::vector<WindowInfo> result = handlers.windows();
    std::erase_if(result, [](const WindowInfo &window) { return window.handle > 0xFFFFFFFF; });
    result.resize(std::min(result.size(), kMostWindows));
    return result;
}

void InstanceServer::Shared::answerList(const Request &request) const {
    for (const WindowInfo &window : windows())
        if (!sendMessage(request.socket.get(), Kind::Window, packWindow(window))) return;
    // A client that is not there any more needs no end.
    (void)sendMessage(request.socket.get(), Kind::End);
}

void InstanceServer::Shared::answerClose(Request request) const {
    if (const auto window = parseHandle(request.message.text)) handlers.close(*window);
    const bool leaving = windows().empty();
    (void)sendMessage(request.socket.get(), leaving ? Kind::Leaving : Kind::Accepted);
    // Stays open until the process has ended: its end is what the client waits for.
    if (leaving) (void)request.socket.release();
}

InstanceServer::InstanceServer(EventLoop &loop, Handlers handlers)
    : address_(rendezvous_.ownAddress()), shared_(std::make_shared<Shared>(std::move(handlers))) {
    RequestReader reader(rendezvous_.listen(address_), shared_->stopEvent.get(),
                         [&loop, shared = shared_](Request request) {
                             if (!shared->push(std::move(request))) return;
                             loop.post([shared] {
                                 if (auto next = shared->popFirst()) shared->serve(std::move(*next));
                             });
                         });
    thread_ = std::thread([run = std::move(reader)]() mutable { run.run(); });
}

InstanceServer::~InstanceServer() {
    rendezvous_.remove(address_);
    signalEvent(shared_->stopEvent.get());
    thread_.join();
    const std::lock_guard lock(shared_->mutex);
    shared_->stopped = true;
    shared_->requests.clear();
}

int InstanceServer::requestsFd() const { return shared_->requestEvent.get(); }

void InstanceServer::answerLists() {
    for (const Request &request : shared_->popLists()) shared_->answerList(request);
}

bool InstanceServer::isAskedToClose() const {
    const std::lock_guard lock(shared_->mutex);
    return std::any_of(shared_->requests.begin(), shared_->requests.end(),
                       [](const Request &request) { return request.message.kind == Kind::Close; });
}

} // namespace tonvale
