// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/CMRU.h"

#include "controls/Text.h"
#include "desktop/text_values.h"

#include <algorithm>

namespace tonvale {

CMRU::CMRU(Application &app)
    : RegistryPath("SOFTWARE\\" + app.services.program.title), app_(app),
      entries_(static_cast<std::size_t>(kDefaultItems) + 1, nullptr) {}

void CMRU::MaxMRUItems(std::int16_t count) {
    maxItems_ = std::max<std::int16_t>(count, 0);
    entries_.resize(static_cast<std::size_t>(maxItems_) + 1, nullptr);
}

tonvale::MenuEntry *CMRU::MenuItem(std::int16_t index) const {
    return index < 0 || index > maxItems_ ? nullptr : entries_[static_cast<std::size_t>(index)];
}

void CMRU::MenuItem(std::int16_t index, tonvale::MenuEntry *entry) {
    if (index >= 0 && index <= maxItems_) entries_[static_cast<std::size_t>(index)] = entry;
}

std::string CMRU::readValue(const std::string &prefix, int position) {
    std::string text;
    resumeNext(app_.Err, [&] {
        text = RegistryGetKeyValue(app_.services.registry, RootKey, keyBelow(RegistryPath, SubKey),
                                   prefix + std::to_string(position));
    });
    return text;
}

void CMRU::writeItem(int position, const Item &item) {
    const std::string key = keyBelow(RegistryPath, SubKey);
    const std::string number = std::to_string(position);
    Registry &registry = app_.services.registry;
    resumeNext(
        app_.Err, [&] { RegistrySetKeyValue(registry, RootKey, key, Prefix + number, item.text); },
        [&] { RegistrySetKeyValue(registry, RootKey, key, TagPrefix + number, item.tag); });
}

std::vector<CMRU::Item> CMRU::storedItems() {
    std::vector<Item> items;
    for (int position = 1; position <= maxItems_; ++position) {
        std::string text = readValue(Prefix, position);
        if (!text.empty()) items.push_back({std::move(text), readValue(TagPrefix, position)});
    }
    return items;
}

void CMRU::GetMRUList() {
    const std::vector<Item> items = storedItems();
    for (MenuEntry *entry : entries_)
        if (entry != nullptr) entry->Visible = false;
    if (items.empty()) return;
    if (entries_[0] != nullptr) entries_[0]->Visible = true;
    for (std::size_t rank = 1; rank <= items.size(); ++rank) {
        MenuEntry *const entry = entries_[rank];
        if (entry == nullptr) continue;
        // The number is the rank among the items found; gaps in the registry close up.
        entry->Caption = "&" + std::to_string(rank) + ". " + items[rank - 1].text;
        entry->Visible = true;
        entry->Tag = items[rank - 1].tag;
    }
}

void CMRU::SetMRUList(const std::string &item, const std::string &tag) {
    if (item.empty()) {
        for (int position = 1; position <= maxItems_; ++position) writeItem(position, {});
    } else {
        std::vector<Item> items{{item, tag}};
        for (Item &stored : storedItems())
            if (!equalFolded(stored.text, item)) items.push_back(std::move(stored));
        const auto count = std::min(items.size(), static_cast<std::size_t>(maxItems_));
        for (std::size_t i = 0; i < count; ++i) writeItem(static_cast<int>(i + 1), items[i]);
    }
    GetMRUList();
}

} // namespace tonvale
