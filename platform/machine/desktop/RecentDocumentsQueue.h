// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace tonvale {

// Does the work of a list of recent documents on a thread of its own, which starts with the first
// piece of it: the list is read and written as a whole, and a file that is being opened must not
// wait for that. What is waiting at the end is still done.
class RecentDocumentsQueue : public RecentDocuments {
public:
    // Called on the thread; null where there is no list.
    using Target = std::function<RecentDocuments *()>;

    explicit RecentDocumentsQueue(Target target) : target_(std::move(target)) {}
    ~RecentDocumentsQueue() override;

    void add(const std::string &path) override;
    void clear() override;

private:
    using Work = std::function<void(RecentDocuments &)>;
    void push(Work work);
    void run();

    Target target_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Work> waiting_; // guarded by mutex_
    bool ending_ = false;      // guarded by mutex_
    std::thread thread_;       // user-interface thread only
};

} // namespace tonvale
