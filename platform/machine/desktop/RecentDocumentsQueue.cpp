// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/desktop/RecentDocumentsQueue.h"

namespace tonvale {

RecentDocumentsQueue::~RecentDocumentsQueue() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_one();
    if (thread_.joinable()) thread_.join();
}

void RecentDocumentsQueue::add(const std::string &path) {
    push([path](RecentDocuments &list) { list.add(path); });
}

void RecentDocumentsQueue::clear() {
    push([](RecentDocuments &list) { list.clear(); });
}

void RecentDocumentsQueue::push(Work work) {
    {
        const std::lock_guard lock(mutex_);
        waiting_.push_back(std::move(work));
    }
    changed_.notify_one();
    if (!thread_.joinable()) thread_ = std::thread([this] { run(); });
}

void RecentDocumentsQueue::run() {
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return ending_ || !waiting_.empty(); });
        if (waiting_.empty()) return;
        const Work work = std::move(waiting_.front());
        waiting_.pop_front();
        lock.unlock();
        if (RecentDocuments *list = target_()) work(*list);
        lock.lock();
    }
}

} // namespace tonvale
