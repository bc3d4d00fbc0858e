// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>

namespace tonvale {

// The numbers that programs of this platform know their run-time errors by.
enum class ErrorNumber : std::int32_t {
    None = 0,
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    InternalError = 51,
    BadFileNameOrNumber = 52,
    FileNotFound = 53,
    DeviceIOError = 57,
    FileAlreadyExists = 58,
    DiskFull = 61,
    InputPastEndOfFile = 62,
    PermissionDenied = 70,
    PathFileAccessError = 75,
    PathNotFound = 76,
    ObjectVariableNotSet = 91,
    InvalidPropertyValue = 380,
    CantCreateObject = 429,
    AutomationError = 440,
};

// The words that belong to a number ("File not found" for 53).
[[nodiscard]] const char *errorDescription(ErrorNumber number);

// What a failing operation of a control or a service throws.
class RuntimeError : public std::runtime_error {
public:
    explicit RuntimeError(ErrorNumber number);
    RuntimeError(ErrorNumber number, const std::string &description);
    RuntimeError(std::int32_t number, const std::string &description);

    [[nodiscard]] std::int32_t number() const { return number_; }
    [[nodiscard]] std::string description() const { return what(); }

private:
    std::int32_t number_;
};

// The last error that a handler skipped or caught.
class ErrObject {
public:
    std::int32_t Number = 0;
    std::string Description;

    void Clear();
    void set(const RuntimeError &error);

    // Called for each error that is skipped, for the diagnostic log.
    std::function<void(const ErrObject &)> onSkipped;
};

// Keeps the error that is being handled in `err`; call it from a catch (...) block only. An
// exception that is no RuntimeError becomes one: 7 for want of memory, 51 for anything else.
void keepCurrentException(ErrObject &err);

// Runs the statements one after the other; one that fails is skipped, its error stays in `err`,
// and the next one runs. Returns whether all of them succeeded.
template <class... Statements> bool resumeNext(ErrObject &err, Statements &&...statements) {
    bool good = true;
    const auto run = [&](auto &&statement) {
        try {
            statement();
        } catch (...) {
            keepCurrentException(err);
            good = false;
            if (err.onSkipped) err.onSkipped(err);
        }
    };
    (run(std::forward<Statements>(statements)), ...);
    return good;
}

} // namespace tonvale
