// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/Errors.h"

#include <new>

namespace tonvale {

const char *errorDescription(ErrorNumber number) {
    switch (number) {
    case ErrorNumber::None: return "";
    case ErrorNumber::InvalidProcedureCall: return "Invalid procedure call or argument";
    case ErrorNumber::Overflow: return "Overflow";
    case ErrorNumber::OutOfMemory: return "Out of memory";
    case ErrorNumber::SubscriptOutOfRange: return "Subscript out of range";
    case ErrorNumber::TypeMismatch: return "Type mismatch";
    case ErrorNumber::InternalError: return "Internal error";
    case ErrorNumber::BadFileNameOrNumber: return "Bad file name or number";
    case ErrorNumber::FileNotFound: return "File not found";
    case ErrorNumber::DeviceIOError: return "Device I/O error";
    case ErrorNumber::FileAlreadyExists: return "File already exists";
    case ErrorNumber::DiskFull: return "Disk full";
    case ErrorNumber::InputPastEndOfFile: return "Input past end of file";
    case ErrorNumber::PermissionDenied: return "Permission denied";
    case ErrorNumber::PathFileAccessError: return "Path/File access error";
    case ErrorNumber::PathNotFound: return "Path not found";
    case ErrorNumber::ObjectVariableNotSet: return "Object variable or With block variable not set";
    case ErrorNumber::InvalidPropertyValue: return "Invalid property value";
    case ErrorNumber::CantCreateObject: return "ActiveX component can't create object";
    case ErrorNumber::AutomationError: return "Automation error";
    }
    return "Application-defined or object-defined error";
}

RuntimeError::RuntimeError(ErrorNumber number) : RuntimeError(number, errorDescription(number)) {}

RuntimeError::RuntimeError(ErrorNumber number, const std::string &description)
    : RuntimeError(static_cast<std::int32_t>(number), description) {}

RuntimeError::RuntimeError(std::int32_t number, const std::string &description)
    : std::runtime_error(description), number_(number) {}

void ErrObject::Clear() {
    Number = 0;
    Description.clear();
}

void ErrObject::set(const RuntimeError &error) {
    Number = error.number();
    Description = error.description();
}

void keepCurrentException(ErrObject &err) {
    try {
        throw;
    } catch (const RuntimeError &error) {
        err.set(error);
    } catch (const std::bad_alloc &) {
        err.set(RuntimeError(ErrorNumber::OutOfMemory));
    } catch (const std::exception &error) {
        err.set(RuntimeError(ErrorNumber::InternalError, error.what()));
    }
}

} // namespace tonvale
