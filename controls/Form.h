// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/Controls.h"
#include "controls/Errors.h"
#include "controls/Loop.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tonvale {

class Form;
class FormSlot;

enum class WindowState : std::int16_t { Normal = 0, Minimized = 1, Maximized = 2 };
// Without a border a window has no title either; with a sizable one it can be maximized.
enum class BorderStyle { None, Fixed, Sizable };

inline constexpr std::int16_t kKeyEscape = 27;
inline constexpr std::int16_t kLeftButton = 1, kRightButton = 2, kMiddleButton = 4;

// Where all loaded windows are known. One for each program.
class Forms {
public:
    Forms(EventLoop &loop, ErrObject &err);
    ~Forms();
    Forms(const Forms &) = delete;
    Forms &operator=(const Forms &) = delete;

    [[nodiscard]] EventLoop &loop() const { return loop_; }
    [[nodiscard]] ErrObject &err() const { return err_; }
    [[nodiscard]] const std::vector<Form *> &loaded() const { return loaded_; }

    Signal<Form &> formLoading;  // before Form_Load: where a view comes into being
    Signal<Form &> formUnloaded; // after Form_Unload, while the window still exists
    Signal<> lastFormUnloaded;   // the program has no window left

    // Stands on the stack while a handler of any window runs. A handler may show a box, which
    // serves messages, which may unload the handler's own window: an unloaded window lives on
    // until no handler is left on the stack.
    class HandlerScope {
    public:
        explicit HandlerScope(Forms &forms) : forms_(forms) { ++forms_.handlers_; }
        ~HandlerScope() { forms_.handlerLeft(); }
        HandlerScope(const HandlerScope &) = delete;
        HandlerScope &operator=(const HandlerScope &) = delete;

    private:
        Forms &forms_;
    };

private:
    friend class FormSlot;
    void keepUntilUnused(std::unique_ptr<Form> form);
    void handlerLeft();
    void postBurial();

    EventLoop &loop_;
    ErrObject &err_;
    std::vector<Form *> loaded_;
    std::vector<std::unique_ptr<Form>> dead_;
    int handlers_ = 0;
    // A burial that waits in the loop looks here whether there still is somebody to ask.
    std::shared_ptr<Forms *> self_;
};

// A window: load -> (show, resize, hide ...) -> query unload -> unload. Sizes and places are in
// twips; Width and Height are the frame's, ScaleWidth and ScaleHeight the inside's.
class Form : public MouseEvents {
public:
    Form(Forms &forms, std::string name);
    virtual ~Form();
    Form(const Form &) = delete;
    Form &operator=(const Form &) = delete;

    const std::string Name;
    Property<std::string> Caption;
    Property<double> Left, Top, Width, Height;
    Property<bool> Enabled{true};
    Property<bool> Visible{false};
    Property<bool> ShowInTaskbar{true};
    Property<WindowState> State{WindowState::Normal};
    Property<bool> Topmost{false};
    Property<bool> MouseCaptured{false};
    tonvale::BorderStyle BorderStyle = tonvale::BorderStyle::Fixed; // set before the window is shown
    Property<double> MinWidth, MinHeight;                           // as far as the user can make it smaller
    Property<bool> AcceptsFiles{false};                             // from the desktop's file managers

    [[nodiscard]] double ScaleWidth() const { return Width - chromeWidth_; }
    [[nodiscard]] double ScaleHeight() const { return Height - chromeHeight_; }

    void Show();
    void Hide();
    void Move(double left, double top);
    void Move(double left, double top, double width, double height);
    void ZOrder();  // to the front
    void Refresh(); // paints at once what is due
    // Lets the window system drag the window on with the button that is down now.
    void MoveByWindowSystem() { moveRequested(); }
    void PopupMenu(MenuEntry &menu) { popUpRequested(menu); } // where the pointer is

    // Asks, then unloads. Returns false when a handler refused. The object lives on until no
    // handler is running, so a handler of its own may call this.
    bool Unload();
    [[nodiscard]] bool isUnloading() const { return unloading_; }

    // For the view: what the frame, title and menu take of Width and Height, in twips.
    void setChrome(double width, double height);
    // For the view: what the user did to the window.
    void userResized(double width, double height);
    void userActivated() { Form_Activate(); }
    void userPressedKey(std::int16_t keyAscii);
    void userReleasedButton(std::int16_t button, std::int16_t shift, double x, double y);
    void userDroppedFiles(const std::vector<std::string> &names); // bytes, in the order of delivery

    // For channels that deliver a command to a window.
    virtual void Form_LinkExecute(std::string & /*commandString*/, std::int16_t & /*cancel*/) {}

    Signal<> raised;                    // ZOrder was called
    Signal<> refreshed;                 // Refresh was called
    Signal<MenuEntry &> popUpRequested; // show this menu where the pointer is
    Signal<> moveRequested;             // MoveByWindowSystem was called
    Signal<> chromeChanged;

protected:
    virtual void Form_Load() {}
    virtual void Form_Resize() {}
    virtual void Form_Activate() {}
    virtual void Form_KeyPress(std::int16_t & /*keyAscii*/) {}
    virtual void Form_MouseUp(std::int16_t /*button*/, std::int16_t /*shift*/, double /*x*/, double /*y*/) {}
    virtual void Form_DropFiles(const std::vector<std::string> & /*names*/) {}
    virtual void Form_QueryUnload(std::int16_t & /*cancel*/) {}
    virtual void Form_Unload(std::int16_t & /*cancel*/) {}

    [[nodiscard]] Forms &forms() const { return forms_; }
    // One statement of a handler that goes on after an error. Returns whether it succeeded.
    template <class Statement> bool attempt(Statement &&statement) {
        return resumeNext(forms_.err(), std::forward<Statement>(statement));
    }

    // The handler of an event: an error in it goes no further than here.
    template <class Body> auto handler(Body body) {
        return [this, body = std::move(body)](const auto &...arguments) {
            const Forms::HandlerScope scope(forms_);
            attempt([&] { body(arguments...); });
        };
    }

private:
    friend class FormSlot;
    Forms &forms_;
    FormSlot *slot_ = nullptr;
    double chromeWidth_ = 0, chromeHeight_ = 0;
    bool unloading_ = false;
};

// Holds at most one window: makes it at the first reference, drops it at its unload.
class FormSlot {
public:
    using Factory = std::function<std::unique_ptr<Form>()>;

    explicit FormSlot(Forms &forms) : forms_(forms) {}
    ~FormSlot();
    FormSlot(const FormSlot &) = delete;
    FormSlot &operator=(const FormSlot &) = delete;

    // Says how the window is made. Without it a reference throws error 429.
    void setFactory(Factory factory) { factory_ = std::move(factory); }
    [[nodiscard]] bool exists() const { return static_cast<bool>(factory_); }
    [[nodiscard]] bool isLoaded() const { return form_ != nullptr; }
    // Unloading a window that is not loaded does nothing.
    bool Unload();
    // The window, made and loaded if there is none.
    Form &form();

private:
    friend class Form;
    void load();
    void release();

    Forms &forms_;
    Factory factory_;
    std::unique_ptr<Form> form_;
};

template <class FormType> class FormHolder : public FormSlot {
public:
    using FormSlot::FormSlot;
    FormType &operator*() { return static_cast<FormType &>(form()); }
    FormType *operator->() { return &**this; }
};

} // namespace tonvale
