// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "desktop/CCaptionlessWindowMover.h"
#include "desktop/StayOnTop.h"
#include "tests/unit/fakes/PlayerTest.h"

#include <gtest/gtest.h>

#include <vector>

namespace tonvale::test {
namespace {

class WindowMover : public PlayerTest {
protected:
    WindowMover() : mover(world.app()) {
        mover.Form(&world.start());
        form().Move(1000, 2000);
    }
    void expectErrorBox(const std::string &title) {
        expectBox("Error: 91. Object variable or With block variable not set", BoxIcon::None, BoxPlace::Normal,
                  BoxButtons::Ok, title);
    }
    CCaptionlessWindowMover mover;
};

TEST_F(WindowMover, MovesTheWindowWithThePointer) {
    mover.HandleMouseDown(50, 60);
    EXPECT_TRUE(form().MouseCaptured);
    mover.HandleMouseMove(80, 40);
    EXPECT_EQ(form().Left, 1030);
    EXPECT_EQ(form().Top, 1980);
    // The window has moved below the pointer, so its place in the window counts from the press again.
    mover.HandleMouseMove(50, 60);
    EXPECT_EQ(form().Left, 1030);
    EXPECT_EQ(form().Top, 1980);
    mover.HandleMouseUp();
    EXPECT_FALSE(form().MouseCaptured);
}

TEST_F(WindowMover, KeepsTheSize) {
    const double width = form().Width, height = form().Height;
    mover.HandleMouseDown(0, 0);
    mover.HandleMouseMove(500, 500);
    EXPECT_EQ(form().Width, width);
    EXPECT_EQ(form().Height, height);
}

TEST_F(WindowMover, AMoveWithoutAPressDoesNothing) {
    mover.HandleMouseMove(80, 40);
    EXPECT_EQ(form().Left, 1000);
    mover.HandleMouseDown(0, 0);
    mover.HandleMouseUp();
    mover.HandleMouseMove(80, 40);
    EXPECT_EQ(form().Left, 1000);
    EXPECT_EQ(form().Top, 2000);
}

TEST_F(WindowMover, WithoutAWindowReportsIt) {
    mover.Form(nullptr);
    mover.HandleMouseDown(1, 1);
    expectErrorBox("HandleMouseDown");
    mover.HandleMouseUp();
    expectErrorBox("HandleMouseUp");
    EXPECT_EQ(world.boxes.shown.size(), 2U);
    mover.HandleMouseMove(1, 1);
    EXPECT_EQ(world.boxes.shown.size(), 2U);
}

TEST_F(WindowMover, ReportsAWindowThatHasGoneWhileDragging) {
    mover.HandleMouseDown(1, 1);
    mover.Form(nullptr);
    mover.HandleMouseMove(2, 2);
    expectErrorBox("HandleMouseMove");
}

TEST_F(WindowMover, EveryPartOfThePanelDragsTheWindow) {
    std::vector<MouseEvents *> parts{
        &form(),           &form().Label3,          &form().lblTime,        &form().lblLength,   &form().lblProgress,
        &form().lblVolume, &form().lblMasterVolume, &form().lblBalance,     &form().framePanel,  &form().MMLEDDigitX1,
        &form().MMLEDX1,   &form().MMLEDGaugeX1,    &form().MMLevelScaleX1, &form().MMLEDSpinX1, &form().MMLEDSpinX2};
    for (auto *group : {&form().CurPosLEDHour, &form().CurPosLEDMinute, &form().CurPosLEDSecond, &form().TotalLEDHour,
                        &form().TotalLEDMinute, &form().TotalLEDSecond})
        for (LedDigit &digit : *group) parts.push_back(&digit);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        form().Move(1000, 2000);
        parts[i]->MouseDown(10, 10);
        parts[i]->MouseMove(25, 5);
        parts[i]->MouseUp();
        parts[i]->MouseMove(99, 99);
        EXPECT_EQ(form().Left, 1015) << i;
        EXPECT_EQ(form().Top, 1995) << i;
        EXPECT_FALSE(form().MouseCaptured) << i;
    }
}

TEST_F(WindowMover, OnTopAndNotOnTopLeavePlaceAndSizeAlone) {
    const double width = form().Width;
    StayOnTop(form());
    EXPECT_TRUE(form().Topmost);
    NotOnTop(form());
    EXPECT_FALSE(form().Topmost);
    EXPECT_EQ(form().Left, 1000);
    EXPECT_EQ(form().Width, width);
}

} // namespace
} // namespace tonvale::test
