// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Errors.h"
#include "controls/Text.h"
#include "core/Services.h"
#include "tests/unit/fakes/CallLog.h"

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tonvale::test {

// A registry in memory. Reading or writing can be made to fail, for one root or for all.
class FakeRegistry : public Registry {
public:
    explicit FakeRegistry(CallLog &log) : log_(log) {}

    std::optional<ErrorNumber> readError, writeError;
    std::optional<RootKey> failingRoot; // none: the errors are for all roots

    bool keyExists(RootKey root, const std::string &key) override {
        failWith(readError, root);
        return keys_.contains({root, upperCase(key)});
    }
    std::optional<RegistryValue> query(RootKey root, const std::string &key, const std::string &name) override {
        failWith(readError, root);
        const auto found = keys_.find({root, upperCase(key)});
        if (found == keys_.end()) return std::nullopt;
        const auto value = found->second.find(upperCase(name));
        if (value == found->second.end()) return std::nullopt;
        return value->second.value;
    }
    void set(RootKey root, const std::string &key, const std::string &name, const RegistryValue &value) override {
        failWith(writeError, root);
        log_.add("registry.set " + key + " " + name + "=" + value.data);
        for (std::size_t at = key.find('\\'); at != std::string::npos; at = key.find('\\', at + 1))
            keys_[{root, upperCase(key.substr(0, at))}];
        Value &stored = keys_[{root, upperCase(key)}][upperCase(name)];
        if (stored.name.empty()) stored.name = name;
        stored.value = value;
    }
    bool deleteValue(RootKey root, const std::string &key, const std::string &name) override {
        failWith(writeError, root);
        const auto found = keys_.find({root, upperCase(key)});
        return found != keys_.end() && found->second.erase(upperCase(name)) > 0;
    }
    bool deleteKey(RootKey root, const std::string &key) override {
        failWith(writeError, root);
        if (!subKeys(root, key).empty()) return false;
        return keys_.erase({root, upperCase(key)}) > 0;
    }
    std::vector<std::string> subKeys(RootKey root, const std::string &key) override {
        failWith(readError, root);
        const std::string above = upperCase(key) + "\\";
        std::vector<std::string> result;
        for (const auto &[at, values] : keys_) {
            if (at.first != root || !at.second.starts_with(above)) continue;
            const std::string below = at.second.substr(above.size());
            if (below.find('\\') == std::string::npos) result.push_back(below);
        }
        return result;
    }

    // For tests: a text value, or nothing.
    [[nodiscard]] std::optional<std::string> text(RootKey root, const std::string &key, const std::string &name) {
        const auto found = keys_.find({root, upperCase(key)});
        if (found == keys_.end() || !found->second.contains(upperCase(name))) return std::nullopt;
        return found->second.at(upperCase(name)).value.data;
    }
    void setText(RootKey root, const std::string &key, const std::string &name, const std::string &data) {
        keys_[{root, upperCase(key)}][upperCase(name)] = {name, {ValueType::String, data}};
    }

private:
    struct Value {
        std::string name;
        RegistryValue value;
    };
    void failWith(const std::optional<ErrorNumber> &error, RootKey root) const {
        if (error && (!failingRoot || *failingRoot == root)) throw RuntimeError(*error);
    }

    CallLog &log_;
    std::map<std::pair<RootKey, std::string>, std::map<std::string, Value>> keys_;
};

} // namespace tonvale::test
