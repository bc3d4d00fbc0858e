// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Services.h"
#include "platform/machine/registry/Database.h"

#include <functional>
#include <optional>

namespace tonvale {

// The registry in one database of this user, shared by all processes. It is opened at the first
// use and made at the first write, so a program that only reads leaves nothing behind. A value is
// written in one transaction: a kill leaves the old one or the new one. While it is open there are
// a log (-wal) and its index (-shm) beside it; the last process to close it takes them away.
class SqliteRegistry : public Registry {
public:
    // Says on standard error what has become of a store that is unusable.
    using Report = std::function<void(const std::string &line)>;

    SqliteRegistry(); // the store of this user
    SqliteRegistry(std::string path, Report report);

    bool keyExists(RootKey root, const std::string &key) override;
    std::optional<RegistryValue> query(RootKey root, const std::string &key, const std::string &name) override;
    void set(RootKey root, const std::string &key, const std::string &name, const RegistryValue &value) override;
    bool deleteValue(RootKey root, const std::string &key, const std::string &name) override;
    bool deleteKey(RootKey root, const std::string &key) override;
    std::vector<std::string> subKeys(RootKey root, const std::string &key) override;

private:
    enum class Purpose { Read, Write };
    template <class Result, class Operation>
    Result run(Purpose purpose, Result ofEmptyStore, const Operation &operation);
    [[nodiscard]] bool open(Purpose purpose);
    void connect(Purpose purpose);
    void disconnect();
    void readAlone();
    void checkVersion();
    void makeTables();
    [[noreturn]] void giveUp(const DatabaseError &error);
    void keepAside(const DatabaseError &error);
    void refuse(const std::string &reason);

    std::string path_;
    Report report_;
    std::optional<Database> database_;
    bool hasTables_ = false;
    bool unusable_ = false; // for the rest of this process
};

} // namespace tonvale
