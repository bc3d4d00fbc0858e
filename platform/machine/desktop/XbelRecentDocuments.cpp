// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/desktop/XbelRecentDocuments.h"

#include "platform/machine/desktop/GlibHandles.h"

namespace tonvale {

namespace {

constexpr const char *kApplication = "Orvane Tonvale";
constexpr const char *kCommand = "'tonvale %f'";

struct FreeBookmarks {
    void operator()(GBookmarkFile *bookmarks) const { g_bookmark_file_free(bookmarks); }
};
using Bookmarks = std::unique_ptr<GBookmarkFile, FreeBookmarks>;

std::string listPath() {
    const GlibString path(g_build_filename(g_get_user_data_dir(), "recently-used.xbel", nullptr));
    return path.get();
}

// Null when there is a list that cannot be read.
Bookmarks load(const std::string &path) {
    Bookmarks bookmarks(g_bookmark_file_new());
    GError *failure = nullptr;
    if (g_bookmark_file_load_from_file(bookmarks.get(), path.c_str(), &failure) != 0) return bookmarks;
    const GlibError error(failure);
    return g_error_matches(failure, G_FILE_ERROR, G_FILE_ERROR_NOENT) != 0 ? Bookmarks(g_bookmark_file_new()) : nullptr;
}

// A list that cannot be written stays as it was; nobody waits for it.
void save(GBookmarkFile *bookmarks, const std::string &path) {
    const GlibString directory(g_path_get_dirname(path.c_str()));
    if (g_mkdir_with_parents(directory.get(), 0700) != 0) return;
    gsize length = 0;
    const GlibString data(g_bookmark_file_to_data(bookmarks, &length, nullptr));
    if (!data) return;
    (void)g_file_set_contents_full(path.c_str(), data.get(), static_cast<gssize>(length),
                                   G_FILE_SET_CONTENTS_CONSISTENT, 0600, nullptr);
}

std::string mimeTypeOf(const char *path) {
    const GlibString type(g_content_type_guess(path, nullptr, 0, nullptr));
    const GlibString mime(g_content_type_get_mime_type(type.get()));
    return mime ? mime.get() : "application/octet-stream";
}

} // namespace

void XbelRecentDocuments::add(const std::string &path) {
    if (path.empty() || path.find('\0') != std::string::npos) return;
    // The list is shared with programs that tell upper from lower case.
    const std::string name = files_.find(path);
    const GlibString full(g_canonicalize_filename(name.c_str(), nullptr));
    const GlibString address(g_filename_to_uri(full.get(), nullptr, nullptr));
    const std::string list = listPath();
    const Bookmarks bookmarks = load(list);
    if (!address || !bookmarks) return;
    g_bookmark_file_set_mime_type(bookmarks.get(), address.get(), mimeTypeOf(full.get()).c_str());
    g_bookmark_file_add_application(bookmarks.get(), address.get(), kApplication, kCommand);
    save(bookmarks.get(), list);
}

void XbelRecentDocuments::clear() {
    const Bookmarks empty(g_bookmark_file_new());
    save(empty.get(), listPath());
}

} // namespace tonvale
