// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/base/Module.h"

#include <dlfcn.h>

#include <unistd.h>

#include <cstdio>

namespace tonvale {

namespace {

constexpr const char *kLibraryDirectory = "/../lib/orvane-tonvale/";

void *openModule(const std::string &file, const std::string &directory) {
    for (const char *place : {"/", kLibraryDirectory}) {
        const std::string path = directory + place + file;
        if (::access(path.c_str(), R_OK) != 0) continue;
        // What such libraries need of others is found when they call it: finding all of it takes long.
        if (void *module = ::dlopen(path.c_str(), RTLD_LAZY | RTLD_LOCAL | RTLD_NODELETE)) return module;
        const char *reason = ::dlerror();
        (void)std::fprintf(stderr, "tonvale: %s\n", reason != nullptr ? reason : path.c_str());
        return nullptr;
    }
    (void)std::fprintf(stderr, "tonvale: there is no %s in %s\n", file.c_str(), directory.c_str());
    return nullptr;
}

} // namespace

void *symbolOfModule(const char *file, const char *symbol, const std::string &directory) {
    void *module = openModule(file, directory);
    return module == nullptr ? nullptr : ::dlsym(module, symbol);
}

} // namespace tonvale
