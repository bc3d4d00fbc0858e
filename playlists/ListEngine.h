// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <string>

namespace tonvale {

// One entry of a running list. The extension has its dot and the case that it has in the path.
struct ListItem {
    std::string path, baseName, extension;
};

// What plays a list's items, one after the other. Failures are thrown as RuntimeError.
class ListEngine {
public:
    virtual ~ListEngine() = default;

    std::function<void()> itemEnded; // the list is to go on

    // What an item needs before the pause that goes before each.
    virtual void prepare(const ListItem &item) = 0;
    virtual void start(const ListItem &item) = 0;
    virtual void pause(const ListItem &item) = 0;
    virtual void resume(const ListItem &item) = 0;
    virtual void stop() = 0;
    virtual void stopAtClose() { stop(); }
    virtual void stopPolling() = 0; // an end that has to be asked for goes unseen from now on
    virtual void shutDown() = 0;    // nothing sounds or notifies any more
};

} // namespace tonvale
