// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/Form.h"

#include "tests/unit/expectations.h"
#include "tests/unit/fakes/CallLog.h"
#include "tests/unit/fakes/FakeLoop.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tonvale::test {
namespace {

struct Script {
    std::function<void(Form &)> load, unload;
    std::int16_t queryCancel = 0, unloadCancel = 0;
};

class ScriptedForm : public Form {
public:
    ScriptedForm(Forms &forms, const std::string &name, CallLog &log, Script &script)
        : Form(forms, name), log_(log), script_(script) {}
    ~ScriptedForm() override { log_.add("destroyed"); }
    int value = 0;
    using Form::attempt;

private:
    void Form_Load() override {
        log_.add("load");
        if (script_.load) script_.load(*this);
    }
    void Form_Resize() override { log_.add("resize"); }
    void Form_Activate() override { log_.add("activate"); }
    void Form_QueryUnload(std::int16_t &cancel) override {
        log_.add("query");
        cancel = script_.queryCancel;
    }
    void Form_Unload(std::int16_t &cancel) override {
        log_.add("unload");
        cancel = script_.unloadCancel;
        if (script_.unload) script_.unload(*this);
    }

    CallLog &log_;
    Script &script_;
};

class FormLife : public testing::Test {
protected:
    FormLife() {
        holder.setFactory([this] { return std::make_unique<ScriptedForm>(forms, "Window", log, script); });
    }
    CallLog log;
    FakeLoop loop;
    ErrObject err;
    Forms forms{loop, err};
    Script script;
    FormHolder<ScriptedForm> holder{forms};
};

TEST_F(FormLife, TheFirstReferenceLoadsTheWindowHidden) {
    EXPECT_FALSE(holder.isLoaded());
    holder->value = 1;
    EXPECT_TRUE(holder.isLoaded());
    EXPECT_FALSE(holder->Visible);
    EXPECT_EQ(holder->value, 1);
    EXPECT_EQ(log.all(), (std::vector<std::string>{"load"}));
    EXPECT_EQ(forms.loaded(), (std::vector<Form *>{&*holder}));
}

TEST_F(FormLife, AReferenceAfterTheUnloadMakesAFreshOne) {
    holder->value = 1;
    EXPECT_TRUE(holder.Unload());
    EXPECT_FALSE(holder.isLoaded());
    EXPECT_TRUE(forms.loaded().empty());
    EXPECT_EQ(holder->value, 0);
    loop.runUntilIdle();
    EXPECT_EQ(log.all(), (std::vector<std::string>{"load", "query", "unload", "load", "destroyed"}));
}

TEST_F(FormLife, UnloadingAWindowThatIsNotLoadedDoesNothing) {
    EXPECT_TRUE(holder.Unload());
    EXPECT_TRUE(log.all().empty());
}

TEST_F(FormLife, AWindowMayRefuseTheQuery) {
    script.queryCancel = 1;
    holder->Show();
    EXPECT_FALSE(holder.Unload());
    EXPECT_TRUE(holder.isLoaded());
    EXPECT_TRUE(holder->Visible);
    EXPECT_FALSE(log.has("unload"));
    script.queryCancel = 0;
    EXPECT_TRUE(holder.Unload());
}

TEST_F(FormLife, AWindowMayRefuseTheUnload) {
    script.unloadCancel = 1;
    holder->Show();
    EXPECT_FALSE(holder.Unload());
    EXPECT_TRUE(holder->Visible);
    EXPECT_FALSE(holder->isUnloading());
    script.unloadCancel = 0;
    EXPECT_TRUE(holder.Unload());
}

TEST_F(FormLife, AnUnloadedWindowIsHidden) {
    holder->Show();
    bool visible = true;
    const Connection connection = forms.formUnloaded.connect([&](Form &form) { visible = form.Visible; });
    holder.Unload();
    EXPECT_FALSE(visible);
}

TEST_F(FormLife, AHandlerOfItsOwnMayUnloadIt) {
    holder->value = 3;
    ScriptedForm &form = *holder;
    form.attempt([&] {
        form.Unload();
        EXPECT_EQ(form.value, 3); // lives on until the loop comes round
    });
    EXPECT_FALSE(log.has("destroyed"));
    loop.runUntilIdle();
    EXPECT_TRUE(log.has("destroyed"));
}

TEST_F(FormLife, UnloadingItAgainFromItsUnloadDoesNothing) {
    script.unload = [](Form &form) { EXPECT_TRUE(form.Unload()); };
    holder.form();
    EXPECT_TRUE(holder.Unload());
    EXPECT_EQ(log.count("unload"), 1);
}

TEST_F(FormLife, AFailingLoadLeavesTheWindowLoaded) {
    script.load = [](Form &) { throw RuntimeError(ErrorNumber::PathNotFound); };
    holder.form();
    EXPECT_TRUE(holder.isLoaded());
    EXPECT_EQ(err.Number, 76);
}

TEST_F(FormLife, AFailingUnloadDoesNotHoldIt) {
    script.unload = [](Form &) { throw RuntimeError(ErrorNumber::DiskFull); };
    holder.form();
    EXPECT_TRUE(holder.Unload());
    EXPECT_FALSE(holder.isLoaded());
    EXPECT_EQ(err.Number, 61);
}

TEST_F(FormLife, AWindowThatUnloadsItselfWhileItLoadsCanNotBeReferenced) {
    script.load = [](Form &form) { form.Unload(); };
    EXPECT_RUNTIME_ERROR(holder.form(), 429);
    EXPECT_FALSE(holder.isLoaded());
    loop.runUntilIdle();
    EXPECT_EQ(log.count("destroyed"), 1);
}

TEST_F(FormLife, ThePiecesOfTheProgramAreToldOfIt) {
    const Connection a = forms.formLoading.connect([&](Form &form) { log.add("view of " + form.Name); });
    const Connection b = forms.formUnloaded.connect([&](Form &form) { log.add("gone " + form.Name); });
    const Connection c = forms.lastFormUnloaded.connect([&] { log.add("last"); });
    holder.form();
    holder.Unload();
    EXPECT_EQ(log.all(),
              (std::vector<std::string>{"view of Window", "load", "query", "unload", "gone Window", "last"}));
}

TEST_F(FormLife, TheLastWindowIsTheOneThatLeavesNone) {
    FormHolder<ScriptedForm> other{forms};
    other.setFactory([this] { return std::make_unique<ScriptedForm>(forms, "Other", log, script); });
    int last = 0;
    const Connection connection = forms.lastFormUnloaded.connect([&] { ++last; });
    holder.form();
    other.form();
    holder.Unload();
    EXPECT_EQ(last, 0);
    other.Unload();
    EXPECT_EQ(last, 1);
}

TEST_F(FormLife, AHolderWithoutAFactoryCannotCreateTheObject) {
    FormHolder<ScriptedForm> unknown{forms};
    EXPECT_FALSE(unknown.exists());
    EXPECT_RUNTIME_ERROR(unknown.form(), 429);
}

TEST_F(FormLife, ScaleSizesAreTheFramesWithoutTheChrome) {
    ScriptedForm &form = *holder;
    form.Move(10, 20, 3000, 2000);
    form.setChrome(120, 690);
    EXPECT_EQ(form.ScaleWidth(), 2880);
    EXPECT_EQ(form.ScaleHeight(), 1310);
    EXPECT_EQ(form.Left, 10);
    EXPECT_EQ(form.Top, 20);
    form.Move(30, 40);
    EXPECT_EQ(form.Width, 3000);
}

TEST_F(FormLife, TheUsersResizeIsSeenByTheWindow) {
    holder->userResized(500, 400);
    holder->userActivated();
    EXPECT_EQ(holder->Width, 500);
    EXPECT_EQ(log.all(), (std::vector<std::string>{"load", "resize", "activate"}));
}

TEST_F(FormLife, ToTheFrontAndPaintingAreToldToTheView) {
    const Connection a = holder->raised.connect([&] { log.add("raised"); });
    const Connection b = holder->refreshed.connect([&] { log.add("refreshed"); });
    holder->ZOrder();
    holder->Refresh();
    EXPECT_EQ(log.all(), (std::vector<std::string>{"load", "raised", "refreshed"}));
}

} // namespace
} // namespace tonvale::test
