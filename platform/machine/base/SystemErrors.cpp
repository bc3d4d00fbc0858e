// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/base/SystemErrors.h"

#include <cerrno>

namespace tonvale {

namespace {

constexpr std::int32_t kCannotRenameAcrossDrives = 74;

ErrorNumber numberOf(int error) {
    switch (error) {
    case ENOENT: return ErrorNumber::FileNotFound;
    case ENOTDIR:
    case ELOOP: return ErrorNumber::PathNotFound;
    case EACCES:
    case EPERM:
    case EROFS: return ErrorNumber::PermissionDenied;
    case EEXIST:
    case ENOTEMPTY: return ErrorNumber::FileAlreadyExists;
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return ErrorNumber::DiskFull;
    case ENAMETOOLONG: return ErrorNumber::BadFileNameOrNumber;
    case ENOMEM: return ErrorNumber::OutOfMemory;
    case EIO: return ErrorNumber::DeviceIOError;
    default: return ErrorNumber::PathFileAccessError;
    }
}

} // namespace

RuntimeError systemError(int error) {
    if (error == EXDEV) return RuntimeError(kCannotRenameAcrossDrives, "Can't rename with different drive");
    return RuntimeError(numberOf(error));
}

} // namespace tonvale
