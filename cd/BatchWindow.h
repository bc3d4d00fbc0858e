// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cd/BatchCodec.h"
#include "cd/BatchVariant.h"
#include "controls/Form.h"
#include "controls/ListBox.h"
#include "controls/MMGaugeX.h"
#include "controls/Toolbar.h"
#include "core/Application.h"
#include "desktop/clsCommonDialog.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tonvale {

// Converts a list of files, one after the other, into one folder. What makes it the encoder or the
// decoder is in its BatchVariant alone.
class BatchWindow : public Form {
public:
    BatchWindow(Application &app, const BatchVariant &variant);
    ~BatchWindow() override;

    Toolbar Toolbar1;
    ListBox List1; // full paths
    Label Label1;
    MMGaugeX Gauge{"Converting..."};

    MenuEntry FileMenu{"&File"};
    MenuEntry ConvertMenu, ExitMenu{"E&xit"}; // EncodeMenu or DecodeMenu; its caption is the state
    MenuEntry EditMenu{"&Edit"};
    MenuEntry AddMenu{"&Add"}, RemoveMenu{"&Remove"}, MoveUpMenu{"Move &Up"}, MoveDownMenu{"Move &Down"};
    [[nodiscard]] const std::vector<MenuEntry *> &menuBar() const { return menuBar_; }

    std::int32_t MaxRowExtent = 0;
    std::string SourceFile;            // the file in work
    bool RunFinished = false;          // a run came to its end; nothing ever clears it
    bool RunActive = false;            // a file is being converted and the run may go on
    std::vector<std::string> RunQueue; // the rows as the run began
    std::int32_t RunPos = 0;
    std::string DestFolder;

private:
    // ---- BatchWindow.cpp ----
    void arrangeMenus();
    void connectMenus();
    void connectParts();
    void Form_Load() override;
    void Form_Unload(std::int16_t &cancel) override;
    void showNotice();
    void EditMenu_Click();
    void Toolbar1_ButtonClick(const std::string &key);
    [[nodiscard]] bool mayEdit();
    void AddMenu_Click();
    void RemoveMenu_Click();
    void removeFromToolbar();
    void moveRow(MoveRow direction);
    void tell(const std::string &text);

    // ---- batch_run.cpp ----
    void ConvertMenu_Click();
    void startRun();
    void stopRun();
    void endRun();
    void startFile();
    void convert(const std::string &output);
    [[nodiscard]] bool isAccepted(const std::string &extension) const;
    void showFileInWork();
    void codecProgress(std::int32_t position);
    void codecDone();

    Application &app_;
    const BatchVariant &variant_;
    std::unique_ptr<BatchCodec> codec_;
    std::unique_ptr<clsCommonDialog> CommonDialog; // made at first use
    MenuEntry fileSeparator_{"-"}, editSeparator_{"-"};
    std::vector<MenuEntry *> menuBar_;
};

} // namespace tonvale
