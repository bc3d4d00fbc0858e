// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/base/Module.h"

#include "platform/machine/base/Directories.h"

#include <dlfcn.h>

#include <cstdio>
#include <string>

namespace tonvale {

namespace {

constexpr const char *kLibraryDirectory = "/../lib/orvane-tonvale/";

void *openModule(const std::string &file) {
    for (const std::string &directory : {programDirectory() + "/", programDirectory() + kLibraryDirectory}) {
        const std::string path = directory + file;
        if (::access(path.c_str(), R_OK) != 0) continue;
        if (void *module = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE)) return module;
        const char *reason = ::dlerror();
        (void)std::fprintf(stderr, "tonvale: %s\n", reason != nullptr ? reason : path.c_str());
    }
    return nullptr;
}

} // namespace

void *symbolOfModule(const char *file, const char *symbol) {
    void *module = openModule(file);
    return module == nullptr ? nullptr : ::dlsym(module, symbol);
}

} // namespace tonvale
