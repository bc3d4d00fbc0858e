// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Controls.h"
#include "core/Application.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tonvale {

// A short list of recently used items with a tag each, kept in the registry and mirrored into
// menu entries: element 0 is a separator, the others the items. Failures are silent.
class CMRU {
public:
    explicit CMRU(Application &app);

    tonvale::RootKey RootKey = tonvale::RootKey::LocalMachine;
    std::string RegistryPath; // "SOFTWARE\" and the application's title
    std::string SubKey;
    std::string Prefix = "MRU";
    std::string TagPrefix = "MRUTAG";

    [[nodiscard]] std::int16_t MaxMRUItems() const { return maxItems_; }
    void MaxMRUItems(std::int16_t count);
    [[nodiscard]] tonvale::MenuEntry *MenuItem(std::int16_t index) const;
    // An index outside 0 to MaxMRUItems is ignored.
    void MenuItem(std::int16_t index, tonvale::MenuEntry *entry);

    // Rebuilds the menu from the registry.
    void GetMRUList();
    // Puts the item on top; the empty item clears the whole list.
    void SetMRUList(const std::string &item, const std::string &tag);

private:
    struct Item {
        std::string text, tag;
    };
    static constexpr std::int16_t kDefaultItems = 4;

    [[nodiscard]] std::string readValue(const std::string &prefix, int position);
    void writeItem(int position, const Item &item);
    [[nodiscard]] std::vector<Item> storedItems();

    Application &app_;
    std::int16_t maxItems_ = kDefaultItems;
    std::vector<tonvale::MenuEntry *> entries_;
};

} // namespace tonvale
