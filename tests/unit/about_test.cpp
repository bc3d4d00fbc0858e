// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/Disclaimer.h"
#include "desktop/frmAbout.h"
#include "desktop/tiles.h"
#include "tests/unit/fakes/PlayerTest.h"

#include <numeric>

namespace tonvale::test {
namespace {

TEST(Tiles, CoverTheWindowRowByRowAndAreCutOffAtItsEdges) {
    EXPECT_EQ(tiles({25, 12}, {10, 8}),
              (std::vector<PixelRect>{
                  {0, 0, 10, 8}, {10, 0, 10, 8}, {20, 0, 5, 8}, {0, 8, 10, 4}, {10, 8, 10, 4}, {20, 8, 5, 4}}));
}

TEST(Tiles, AWindowOfWholeTilesHasNoneBeyondItsEdge) {
    EXPECT_EQ(tiles({20, 8}, {10, 8}), (std::vector<PixelRect>{{0, 0, 10, 8}, {10, 0, 10, 8}}));
}

TEST(Tiles, ASmallWindowHasOneThatIsCutOff) {
    EXPECT_EQ(tiles({3, 2}, {10, 8}), (std::vector<PixelRect>{{0, 0, 3, 2}}));
}

TEST(Tiles, AShorterStepOverlaps) {
    EXPECT_EQ(tiles({10, 15}, {10, 8}, {10, 7}),
              (std::vector<PixelRect>{{0, 0, 10, 8}, {0, 7, 10, 8}, {0, 14, 10, 1}}));
}

TEST(Tiles, WithoutASizeThereAreNone) {
    EXPECT_TRUE(tiles({20, 8}, {0, 8}).empty());
    EXPECT_TRUE(tiles({20, 8}, {10, -1}).empty());
    EXPECT_TRUE(tiles({20, 8}, {10, 8}, {10, 0}).empty());
    EXPECT_TRUE(tiles({0, 8}, {10, 8}).empty());
    EXPECT_TRUE(tiles({-5, -5}, {10, 8}).empty());
    EXPECT_EQ(tiles({INT32_MAX, INT32_MAX}, {INT32_MAX, INT32_MAX}).size(), 1U);
}

class About : public PlayerTest {
protected:
    About() {
        start();
        click(form().aboutmenu.Click);
    }
    frmAbout &about() { return *world.app().frmAbout; }
};

TEST_F(About, HasItsTextsAndNoTitle) {
    EXPECT_TRUE(about().Visible);
    EXPECT_EQ(about().Label1.Caption, "Version 3.66");
    EXPECT_EQ(about().Label2.Caption, "tonvale@orvane.example");
    EXPECT_EQ(about().Label3.Caption, "http://www.orvane.example/");
    EXPECT_EQ(about().Command1.Caption, "&Okay");
    EXPECT_EQ(about().BorderStyle, BorderStyle::None);
    EXPECT_FALSE(about().picTilePic.Visible);
}

TEST_F(About, TheTilesCoverItWhateverItsSize) {
    for (const auto &[width, height] : std::vector<std::pair<int, int>>{{380, 240}, {64, 64}, {65, 1}, {1000, 777}}) {
        about().userResized(width * kTwipsPerPixel, height * kTwipsPerPixel);
        const std::vector<PixelRect> places = about().Form_Paint();
        const auto area = [](std::int64_t sum, const PixelRect &place) {
            return sum + std::int64_t{place.width} * place.height;
        };
        EXPECT_EQ(std::accumulate(places.begin(), places.end(), std::int64_t{0}, area), width * height);
        EXPECT_EQ(places.back().x + places.back().width, width);
        EXPECT_EQ(places.back().y + places.back().height, height);
        EXPECT_EQ(places.front().width, std::min(width, 64));
    }
}

TEST_F(About, IsCoveredFromTheStart) { EXPECT_FALSE(about().Form_Paint().empty()); }

TEST_F(About, IsDraggedByItsSurface) {
    int moves = 0;
    const Connection connection = about().moveRequested.connect([&] { ++moves; });
    about().MouseCaptured = true;
    for (MouseEvents *part :
         std::initializer_list<MouseEvents *>{&about(), &about().Image1, &about().Image2, &about().Label1})
        part->MouseDown(1, 1);
    EXPECT_EQ(moves, 4);
    EXPECT_FALSE(about().MouseCaptured);
    EXPECT_FALSE(static_cast<bool>(about().Label2.MouseDown)) << "its click is the mail";
}

TEST_F(About, TheMailAddressBeginsAMail) {
    about().Label2.Click();
    ASSERT_EQ(world.shell.calls.size(), 1U);
    EXPECT_EQ(world.shell.calls[0].file, "mailto:tonvale@orvane.example?subject=Mail from Tonvale");
}

TEST_F(About, TheWebAddressOpensTheHomePageFromTheTray) {
    about().Label3.Click();
    ASSERT_EQ(world.shell.calls.size(), 1U);
    EXPECT_EQ(world.shell.calls[0].file, "http://www.orvane.example/");
    EXPECT_TRUE(form().TrayX1.Visible);
    EXPECT_FALSE(about().Visible);
}

TEST_F(About, OkayAndEscCloseIt) {
    about().Command1.Click();
    EXPECT_FALSE(world.app().frmAbout.isLoaded());
    about().userPressedKey('a');
    EXPECT_TRUE(world.app().frmAbout.isLoaded());
    about().userPressedKey(kKeyEscape);
    EXPECT_FALSE(world.app().frmAbout.isLoaded());
}

class TheDisclaimer : public PlayerTest {
protected:
    TheDisclaimer() {
        start();
        click(form().DisclaimerMenu.Click);
    }
    Disclaimer &window() { return *world.app().Disclaimer; }
};

TEST_F(TheDisclaimer, SaysThatThereIsNoWarranty) {
    EXPECT_TRUE(window().Visible);
    EXPECT_EQ(window().Caption, "Disclaimer:");
    EXPECT_EQ(window().Command1.Caption, "&Okay");
    EXPECT_TRUE(window().Text1.ReadOnly);
    EXPECT_TRUE(window().Text1.MultiLine);
    for (const char *words :
         {"as it is", "no warranty of any kind", "no remedy for damages", "neither altered nor resold"})
        EXPECT_NE(window().Text1.Text.get().find(words), std::string::npos) << words;
}

TEST_F(TheDisclaimer, OkayAndEscCloseIt) {
    window().Command1.Click();
    EXPECT_FALSE(world.app().Disclaimer.isLoaded());
    window().userPressedKey('a');
    EXPECT_TRUE(world.app().Disclaimer.isLoaded());
    window().userPressedKey(kKeyEscape);
    EXPECT_FALSE(world.app().Disclaimer.isLoaded());
}

} // namespace
} // namespace tonvale::test
