// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/Main.h"

#include "controls/Numbers.h"
#include "core/WindowSearch.h"
#include "core/setting_keys.h"

#include <algorithm>
#include <string>
#include <vector>

namespace tonvale {

namespace {

constexpr const char *kRegistryFailure =
    "An error occurred while accessing your system registry which prevents the load of Tonvale.  \r\n"
    "Please correct the situation and reload Tonvale.";

} // namespace

void CloseOtherInstances(Application &app) {
    WindowSearch search(app.services.windows);
    const std::string pattern = "*" + app.services.program.title + "*";
    if (search.FindWindowLike(kDesktopWindow, kFormClassPattern, pattern, SearchFor::All) == 0) return;
    for (const WindowInfo &window : search.found())
        resumeNext(app.Err, [&] { app.services.windows.sendClose(window.handle); });
}

StartResult Main(Application &app) {
    app.Err.Clear();
    const bool readable = resumeNext(app.Err, [&] {
        const bool alone = textToDouble(app.setting(setting::kMultiInstances, "0")) == 0.0;
        if (alone) CloseOtherInstances(app);
    });
    if (!readable) {
        app.box(kRegistryFailure, BoxIcon::Information, BoxPlace::Foreground);
        return StartResult::Failed;
    }
    // It shows itself as it loads; a list that it opens then hides it again.
    resumeNext(app.Err, [&] { app.form1.form(); });
    // A newcomer may close it while it loads.
    return app.form1.isLoaded() ? StartResult::Running : StartResult::Closed;
}

void CloseForms(Application &app, Form &keep) {
    try {
        // A window that is unloaded may load or unload others, so the collection is looked at anew
        // after each; one that refuses is not asked twice.
        std::vector<const Form *> refused{&keep};
        const auto toAsk = [&](const Form *form) {
            return std::find(refused.begin(), refused.end(), form) == refused.end();
        };
        const std::vector<Form *> &loaded = app.forms.loaded();
        for (auto next = loaded.begin(); (next = std::find_if(loaded.begin(), loaded.end(), toAsk)) != loaded.end();)
            if (!(*next)->Unload()) refused.push_back(*next);
        keep.Unload();
    } catch (const RuntimeError &error) {
        app.Err.set(error);
        app.box("Error: " + std::to_string(error.number()) + ". " + error.description(), BoxIcon::None,
                BoxPlace::Normal, BoxButtons::Ok, "CloseForms");
    }
}

} // namespace tonvale
