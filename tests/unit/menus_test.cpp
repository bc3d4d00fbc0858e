// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/shared_windows.h"
#include "tests/unit/fakes/PlayerTest.h"

namespace tonvale::test {
namespace {

constexpr const MenuEntry *kLine = nullptr; // a separator

using Row = std::pair<const MenuEntry *, std::string>;
using Rows = std::vector<Row>;

Rows rowsOf(const MenuEntry &menu) {
    Rows rows;
    for (const MenuEntry *entry : menu.children)
        rows.push_back(entry->Caption == "-" && entry->children.empty() && !entry->Click ? Row{kLine, ""}
                                                                                         : Row{entry, entry->Caption});
    return rows;
}

class Menus : public PlayerTest {};

TEST_F(Menus, TheBarHasSixMenus) {
    start();
    Texts captions;
    for (const MenuEntry *menu : form().menuBar()) captions.push_back(menu->Caption);
    EXPECT_EQ(captions, (Texts{"&File", "&Playback", "&Conversions", "&Options", "&Window", "&Help"}));
    EXPECT_EQ(form().menuBar(),
              (std::vector<MenuEntry *>{&form().FileMenu, &form().ControlsMenu, &form().ConversionsMenu,
                                        &form().OptionsMenu, &form().WindowMenu, &form().helpmenu}));
}

TEST_F(Menus, TheFileMenuEndsWithTheRecentFiles) {
    Form1 &f = start();
    EXPECT_EQ(rowsOf(f.FileMenu), (Rows{{&f.playmenu, "&Load and Play File"},
                                        {&f.DeleteMenu, "&Delete Current File"},
                                        {kLine, ""},
                                        {&f.CDDBMenu, "&CDDB Access CD Player"},
                                        {kLine, ""},
                                        {&f.playlistmenu, "&Audio PlayList"},
                                        {&f.VideoPlayListMenu, "Vide&o PlayList"},
                                        {&f.VivoPlayListMenu2, "&Vivo PlayList"},
                                        {kLine, ""},
                                        {&f.ExitMenu, "E&xit"},
                                        {kLine, ""},
                                        {&f.mnuFileMRU[1], ""},
                                        {&f.mnuFileMRU[2], ""},
                                        {&f.mnuFileMRU[3], ""},
                                        {&f.mnuFileMRU[4], ""}}));
    EXPECT_EQ(f.FileMenu.children[10], f.mnuFileMRU.data());
}

TEST_F(Menus, ThePlaybackMenu) {
    Form1 &f = start();
    EXPECT_EQ(rowsOf(f.ControlsMenu), (Rows{{&f.playcurrentmenu, "&Play"},
                                            {&f.PauseMenu, "Pa&use"},
                                            {&f.StopMenu, "&Stop"},
                                            {kLine, ""},
                                            {&f.MuteMenu, "&Mute"},
                                            {kLine, ""},
                                            {&f.CDPlayMenu, "Advanced &CD Player"},
                                            {&f.VideoCDPlayMenu, "Advanced &Video CD Player"}}));
}

TEST_F(Menus, TheConversionsMenu) {
    Form1 &f = start();
    EXPECT_EQ(rowsOf(f.ConversionsMenu), (Rows{{&f.WAVConvertMenu, "WAV &Batch Converter"},
                                               {kLine, ""},
                                               {&f.wav2mp3, "Convert &WAV to MP3"},
                                               {&f.Mp32WAV, "Convert &MP3 to WAV"},
                                               {kLine, ""},
                                               {&f.cd2mp3, "Convert &CD Audio to MP3"},
                                               {&f.cd2wavmenu, "Convert CD &Audio to WAV"}}));
}

TEST_F(Menus, TheOptionsMenuAndItsTwoSubmenus) {
    Form1 &f = start();
    EXPECT_EQ(rowsOf(f.OptionsMenu),
              (Rows{{&f.generalmenu, "&Preferences"},
                    {&f.assosicatemenu, "&Associate  Supported File Types"},
                    {kLine, ""},
                    {&f.zoom, "&Video Zoom"},
                    {&f.MMPropsMenu, "&System Multimedia Properties"},
                    {kLine, ""},
                    {&f.ClearDocMenu, "&Clear Windows Recent Documents List"},
                    {&f.ClearMRUMenu, "Clear Application's &Most Recently Used (MRU) Files List"}}));
    EXPECT_EQ(rowsOf(f.zoom), (Rows{{&f.FullScreenAdvMenu, "Full Screen (Normal - Advanced Options)"},
                                    {&f.FullZoomMenu, "&Full Screen (Stretch)"},
                                    {kLine, ""},
                                    {&f.original, "&Original Size"},
                                    {&f.half, "&Half Screen"},
                                    {&f.Quarter, "&Quarter Screen"},
                                    {&f.DoubleSizeMenu, "&Double Original Size"}}));
    EXPECT_EQ(rowsOf(f.MMPropsMenu), (Rows{{&f.SoumdPropsMenu, "&Audio"},
                                           {&f.CDPropsMenu, "&CD Audio"},
                                           {&f.MIDIPropsMenu, "&MIDI"},
                                           {&f.VidePropsMenu, "&Video"},
                                           {kLine, ""},
                                           {&f.AllPropsMenu, "&All"}}));
}

TEST_F(Menus, TheWindowMenu) {
    Form1 &f = start();
    EXPECT_EQ(rowsOf(f.WindowMenu), (Rows{{&f.rollmenu, "&Roll Up"},
                                          {&f.traymenu, "Minimize as &Tray Icon"},
                                          {kLine, ""},
                                          {&f.StartSSMenu, "&Activate Windows Screen Saver"}}));
}

TEST_F(Menus, TheHelpMenu) {
    Form1 &f = start();
    EXPECT_EQ(rowsOf(f.helpmenu), (Rows{{&f.infomenu, "&Help"},
                                        {kLine, ""},
                                        {&f.mailmemenu, "&Mail Orvane Productions"},
                                        {&f.visitmemenu, "&Visit Orvane Productions on the Web"},
                                        {kLine, ""},
                                        {&f.DisclaimerMenu, "&Disclaimer"},
                                        {&f.aboutmenu, "&About"}}));
    EXPECT_EQ(f.infomenu.Shortcut, "F1");
}

TEST_F(Menus, TheTraysMenu) {
    Form1 &f = start();
    EXPECT_EQ(f.PopUpMenu2.Caption, "PopUpMenu");
    EXPECT_EQ(rowsOf(f.PopUpMenu2), (Rows{{&f.exitpop, "Exit"},
                                          {kLine, ""},
                                          {&f.helppopmenu, "Help"},
                                          {&f.ConvertPopMenu, "Conversions"},
                                          {kLine, ""},
                                          {&f.DeleteMenu2, "Delete Current File"},
                                          {&f.PauseMenuPop, "Pause"},
                                          {kLine, ""},
                                          {&f.VivoPlayListMenu, "Vivo PlayList"},
                                          {&f.playlistmenu2, "Audio PlayList"},
                                          {kLine, ""},
                                          {&f.playcurrentpop, "Play Current File"},
                                          {&f.playnewpop, "Play New File"},
                                          {kLine, ""},
                                          {&f.showpop, "Restore Window"}}));
    EXPECT_EQ(rowsOf(f.helppopmenu), (Rows{{&f.aboutpop, "About"},
                                           {kLine, ""},
                                           {&f.visitmepop, "Visit Orvane Productions on the Web"},
                                           {&f.MailOrvanePop, "Mail Orvane Productions"},
                                           {kLine, ""},
                                           {&f.InfoPopMenu, "Help"}}));
    EXPECT_EQ(rowsOf(f.ConvertPopMenu), (Rows{{&f.BatchConvPop, "WAV Batch Converter"},
                                              {kLine, ""},
                                              {&f.cd2wavpop, "Convert CD Audio to WAV"},
                                              {&f.cd2mp2pop, "Convert CD Audio to MP3"},
                                              {kLine, ""},
                                              {&f.wav2mp3pop, "Convert WAV to MP3"},
                                              {&f.Mp32WAVPop, "Convery MP3 to WAV"}}));
}

TEST_F(Menus, ThePicturesMenu) {
    Form1 &f = start();
    EXPECT_EQ(rowsOf(f.VidPopMenu), (Rows{{&f.VidPlayPop, "Play"},
                                          {&f.VidPlayCurrentPop, "Play Current File"},
                                          {&f.VidPausePop, "Pause"},
                                          {kLine, ""},
                                          {&f.VidDeletePop, "Delete Current File"},
                                          {kLine, ""},
                                          {&f.VidMutePop, "Mute"},
                                          {&f.VidZoomPop, "Video Zoom"}}));
    EXPECT_EQ(rowsOf(f.VidZoomPop), (Rows{{&f.VidOrigSize, "Original Size"},
                                          {kLine, ""},
                                          {&f.FullPopMenu, "Full Screen (Normal - Advanced Options)"},
                                          {&f.VidFullPop, "Full Screen (Stretch)"},
                                          {kLine, ""},
                                          {&f.VidHalfPop, "Half Screen"},
                                          {&f.VidQuarterPop, "Quarter Screen"},
                                          {&f.VidDblPop, "Double Original Size"}}));
}

void collect(const MenuEntry &menu, std::vector<const MenuEntry *> &leaves) {
    for (const MenuEntry *entry : menu.children)
        if (entry->children.empty())
            leaves.push_back(entry);
        else
            collect(*entry, leaves);
}

TEST_F(Menus, EveryEntryButOneHasAnAction) {
    Form1 &f = start();
    std::vector<const MenuEntry *> leaves;
    for (const MenuEntry *menu : f.menuBar()) collect(*menu, leaves);
    collect(f.PopUpMenu2, leaves);
    collect(f.VidPopMenu, leaves);
    EXPECT_GT(leaves.size(), 90U);
    for (const MenuEntry *entry : leaves) {
        if (entry->Caption == "-") continue;
        EXPECT_EQ(static_cast<bool>(entry->Click), entry != &f.VidDblPop) << entry->Caption.get();
    }
}

TEST_F(Menus, TheButtonsHaveTheirHints) {
    Form1 &f = start();
    f.btnPlayCurrent.MouseMove();
    Texts hints;
    for (const CommandButton *button :
         {&f.btnPlay, &f.btnPlayCurrent, &f.btnPause, &f.btnStop, &f.btnMute, &f.btnDelete, &f.btnHelp})
        hints.push_back(button->ToolTipText);
    EXPECT_EQ(hints, (Texts{"Play New File", "There is no file currently loaded to play.", "Pause", "Stop", "Mute",
                            "Delete", "Help"}));
}

// ---- other windows ------------------------------------------------------------------------------

class WindowsFromMenus : public PlayerTest {
protected:
    struct Case {
        FormSlot &window;
        std::string name;
        std::vector<MenuEntry *> entries;
    };
    // Every window that has a plain way to it. Makes plain windows for them.
    std::vector<Case> cases(Form1 &f) {
        Application &app = world.app();
        return {{app.frmPlayList, "frmPlayList", {&f.playlistmenu, &f.playlistmenu2}},
                {app.frmVideoPlayList, "frmVideoPlayList", {&f.VideoPlayListMenu}},
                {app.frmVivoPlayList, "frmVivoPlayList", {&f.VivoPlayListMenu, &f.VivoPlayListMenu2}},
                {app.frmCDPlayer, "frmCDPlayer", {&f.CDPlayMenu}},
                {app.frmVideoCDPlayer, "frmVideoCDPlayer", {&f.VideoCDPlayMenu}},
                {app.frmCD2WAV, "frmCD2WAV", {&f.cd2wavmenu, &f.cd2wavpop, &f.wav2mp3pop}},
                {app.frmCD2MP3, "frmCD2MP3", {&f.cd2mp3, &f.cd2mp2pop}},
                {app.frmEncode, "frmEncode", {&f.wav2mp3}},
                {app.frmDecode, "frmDecode", {&f.Mp32WAV, &f.Mp32WAVPop}},
                {app.settings, "Settings", {&f.generalmenu}},
                {app.frmAssociate, "frmAssociate", {&f.assosicatemenu}},
                {app.frmAbout, "frmAbout", {&f.aboutmenu, &f.aboutpop}},
                {app.Disclaimer, "Disclaimer", {&f.DisclaimerMenu}},
                {app.frmCDDBMain, "frmCDDBMain", {&f.CDDBMenu}},
                {app.frmVideoPlay, "frmVideoPlay", {&f.FullScreenAdvMenu, &f.FullPopMenu}}};
    }
    void landAll() {
        Application &app = world.app();
        const auto land = [&app](FormSlot &slot, const std::string &name) {
            if (!slot.exists()) slot.setFactory([&app, name] { return std::make_unique<Form>(app.forms, name); });
        };
        app.frmVideoPlayList.setFactory(
            [this] { return std::make_unique<FakeListWindow>(world.app().forms, "frmVideoPlayList", world.log); });
        for (const auto &[slot, name] :
             std::vector<std::pair<FormSlot *, std::string>>{{&app.frmCDPlayer, "frmCDPlayer"},
                                                             {&app.frmVideoCDPlayer, "frmVideoCDPlayer"},
                                                             {&app.frmCD2WAV, "frmCD2WAV"},
                                                             {&app.frmCD2MP3, "frmCD2MP3"},
                                                             {&app.frmEncode, "frmEncode"},
                                                             {&app.frmDecode, "frmDecode"},
                                                             {&app.frmAssociate, "frmAssociate"},
                                                             {&app.frmCDDBMain, "frmCDDBMain"}})
            land(*slot, name);
    }
};

TEST_F(WindowsFromMenus, EachEntryShowsItsWindow) {
    landAll();
    world.setSetting("CDDB Enter Prompt", "False");
    Form1 &f = start();
    for (const Case &c : cases(f))
        for (MenuEntry *entry : c.entries) {
            c.window.Unload();
            EXPECT_TRUE(entry->Enabled) << c.name;
            click(entry->Click);
            ASSERT_TRUE(c.window.isLoaded()) << c.name << " by " << entry->Caption.get();
            EXPECT_TRUE(c.window.form().Visible) << c.name;
            EXPECT_EQ(c.window.form().Name, c.name);
        }
    EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(WindowsFromMenus, AWindowThatIsShownAlreadyComesToTheFront) {
    landAll();
    world.setSetting("CDDB Enter Prompt", "False");
    Form1 &f = start();
    for (MenuEntry *entry : {&f.aboutpop, &f.playlistmenu, &f.CDDBMenu}) {
        click(entry->Click);
        int raised = 0;
        const Connection connection = world.app().forms.loaded().back()->raised.connect([&] { ++raised; });
        click(entry->Click);
        EXPECT_EQ(raised, 1) << entry->Caption.get();
    }
}

TEST_F(WindowsFromMenus, AnEntryWhoseWindowIsNotThereIsGrey) {
    Form1 &f = start();
    for (const Case &c : cases(f))
        for (MenuEntry *entry : c.entries) {
            EXPECT_EQ(entry->Enabled, c.window.exists()) << c.name;
            if (!c.window.exists()) click(entry->Click); // as a key would
        }
    EXPECT_FALSE(f.CDPlayMenu.Enabled);
    EXPECT_TRUE(f.aboutmenu.Enabled);
}

TEST_F(WindowsFromMenus, TheDatabaseOfDiscsAsksFirst) {
    landAll();
    Form1 &f = start();
    click(f.CDDBMenu.Click);
    expectBox("Important Note:  In order to use the key elements of this feature, you must be connected to the "
              "Internet. \n\nWould you like to continue?",
              BoxIcon::Information, BoxPlace::Foreground, BoxButtons::YesNo);
    EXPECT_FALSE(world.app().frmCDDBMain.isLoaded());
    world.boxes.answers = {BoxResult::Yes};
    click(f.CDDBMenu.Click);
    EXPECT_TRUE(world.app().frmCDDBMain.isLoaded());
    EXPECT_EQ(world.boxes.shown.size(), 2U);
}

TEST_F(WindowsFromMenus, ASettingThatIsNoBooleanMakesItAsk) {
    landAll();
    world.setSetting("CDDB Enter Prompt", "perhaps");
    Form1 &f = start();
    click(f.CDDBMenu.Click);
    EXPECT_EQ(world.boxes.shown.size(), 1U);
}

// ---- the desktop's settings of sound and picture --------------------------------------------------

class SystemPropertiesMenu : public PlayerTest {};

TEST_F(SystemPropertiesMenu, EachEntryShowsItsSheet) {
    Form1 &f = start();
    EXPECT_EQ(f.MMProps.Sheets, PropertySheets::psAll);
    EXPECT_EQ(f.MMProps.Title, "Audio Properties");
    std::vector<std::int32_t> sheets;
    for (MenuEntry *entry : {&f.AllPropsMenu, &f.SoumdPropsMenu, &f.VidePropsMenu, &f.MIDIPropsMenu, &f.CDPropsMenu}) {
        click(entry->Click);
        sheets.push_back(static_cast<std::int32_t>(world.systemProperties.shown.back()));
    }
    EXPECT_EQ(sheets, (std::vector<std::int32_t>{0, 1, 2, 3, 4}));
    EXPECT_EQ(f.MMProps.Sheets, PropertySheets::psCD);
}

TEST_F(SystemPropertiesMenu, ADesktopWithoutThemIsPassedOver) {
    world.systemProperties.failure = ErrorNumber::CantCreateObject;
    click(start().SoumdPropsMenu.Click);
    EXPECT_TRUE(world.boxes.shown.empty());
}

// ---- hot keys -------------------------------------------------------------------------------------

class HotKeys : public PlayerTest {
protected:
    HotKeys() {
        start();
        file("/m/a.mp3");
        executeFromDesktop("/m/a.mp3");
    }
    void press(std::int32_t key) {
        world.keyboard.press(key);
        world.runUntilIdle();
    }
};

TEST_F(HotKeys, SpaceStops) {
    press(32);
    EXPECT_TRUE(isIdle());
    EXPECT_FALSE(world.media.playing);
}

TEST_F(HotKeys, SpaceIsTheStopEntryWhichLeavesTheLoopAlone) {
    world.app().settings->Check6.Value = 1;
    press(32);
    EXPECT_EQ(world.app().settings->Check6.Value, 1);
    EXPECT_TRUE(isRunning()) << "the loop starts it again";
}

TEST_F(HotKeys, LStopsWhatRunsAndElseLoads) {
    press(76);
    EXPECT_TRUE(isIdle());
    press(76);
    EXPECT_EQ(world.dialogs.opened.size(), 1U);
}

TEST_F(HotKeys, MMutes) {
    press(77);
    EXPECT_EQ(form().MuteMenu.Caption, "&Un-Mute");
    press(77);
    EXPECT_EQ(form().MuteMenu.Caption, "&Mute");
}

TEST_F(HotKeys, PPausesAndResumes) {
    press(80);
    EXPECT_EQ(form().PauseMenu.Caption, "&Resume");
    EXPECT_FALSE(world.media.playing);
    press(80);
    EXPECT_TRUE(world.media.playing);
}

TEST_F(HotKeys, F1IsHelp) {
    file("/opt/tonvale/Help/index.html");
    press(112);
    EXPECT_EQ(world.shell.calls.size(), 1U);
}

TEST_F(HotKeys, OtherKeysDoNothing) {
    world.log.clear();
    for (std::int32_t key = 0; key < 256; ++key)
        if (key != 32 && key != 76 && key != 77 && key != 80 && key != 112) press(key);
    press(-1);
    press(INT32_MAX);
    EXPECT_TRUE(world.log.of({"engine", "cd", "mixer", "dialog", "box"}).empty());
    EXPECT_TRUE(isRunning());
    EXPECT_TRUE(world.shell.calls.empty());
}

TEST_F(HotKeys, AreForTheWindowThatIsShown) {
    form().Hide(); // behind a list, which has keys of its own
    press(80);
    EXPECT_EQ(form().PauseMenu.Caption, "Pa&use");
    form().Show();
    press(80);
    EXPECT_EQ(form().PauseMenu.Caption, "&Resume");
}

TEST_F(HotKeys, WorkFromTheTray) {
    click(form().traymenu.Click);
    EXPECT_FALSE(form().Visible);
    press(80);
    EXPECT_EQ(form().PauseMenu.Caption, "&Resume");
}

TEST_F(HotKeys, EndWithTheWindow) {
    form().Unload();
    world.log.clear();
    press(77); // the window waits for its end
    press(77);
    EXPECT_TRUE(world.log.of({"mixer"}).empty());
    EXPECT_FALSE(world.app().form1.isLoaded());
}

} // namespace
} // namespace tonvale::test
