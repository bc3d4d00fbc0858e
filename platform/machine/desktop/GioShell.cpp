// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/desktop/GioShell.h"

#include "controls/Text.h"

#include <fcntl.h>
#include <gio/gdesktopappinfo.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace tonvale {

namespace {

enum Code : std::int32_t {
    kFileNotFound = 2,
    kPathNotFound = 3,
    kAccessDenied = 5,
    kAssociationIncomplete = 27,
    kNoAssociation = 31,
    kSuccess = 33,
};

bool isSchemeCharacter(char c) { return g_ascii_isalnum(c) != 0 || c == '+' || c == '-' || c == '.'; }

// The scheme of an address, or the empty text. A single letter is a drive, not a scheme.
std::string schemeOf(const std::string &text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string::npos || colon < 2 || g_ascii_isalpha(text[0]) == 0) return {};
    const bool good = std::all_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(colon), isSchemeCharacter);
    return good ? lowerCase(text.substr(0, colon)) : std::string();
}

// Characters that no address may hold, blanks mostly, in the form that it may.
std::string escaped(const std::string &address) {
    const GlibString text(g_uri_escape_string(address.c_str(), ":/?#[]@!$&'()*+,;=%", FALSE));
    return text.get();
}

std::string absolute(const std::string &path, const std::string &directory) {
    const GlibString base(directory.empty() ? g_get_current_dir() : g_strdup(directory.c_str()));
    const GlibString full(g_canonicalize_filename(path.c_str(), base.get()));
    return full.get();
}

std::int32_t codeOf(const std::string &path, int error) {
    if (error == EACCES || error == EPERM) return kAccessDenied;
    struct stat status {};
    const std::string parent = path.substr(0, path.rfind('/') + 1);
    return error == ENOENT && ::stat(parent.c_str(), &status) == 0 ? kFileNotFound : kPathNotFound;
}

// The mode alone does not tell: on some file systems every file has it.
bool isProgram(const std::string &path) {
    if (::access(path.c_str(), X_OK) != 0) return false;
    const UniqueFd file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    std::array<char, 4> start{};
    const ssize_t count = file ? ::read(file.get(), start.data(), start.size()) : 0;
    const std::string_view magic(start.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    return magic.starts_with("#!") || magic == "\177ELF";
}

void rememberProcess(GDesktopAppInfo *, GPid process, gpointer user) {
    *static_cast<std::uint64_t *>(user) = static_cast<std::uint64_t>(process);
}

} // namespace

Shell::Launch GioShell::execute(const std::string &verb, const std::string &file, const std::string &parameters,
                                const std::string &directory, std::int32_t) {
    const std::string folded = lowerCase(verb);
    if (file.empty() || file.find('\0') != std::string::npos) return {kFileNotFound};
    if (folded == "explore") return explore(absolute(file, directory));
    if (!folded.empty() && folded != "open") return {kNoAssociation};
    const std::string scheme = schemeOf(file);
    if (!scheme.empty() && scheme != "file") return openAddress(scheme, file);
    if (scheme.empty()) return openPath(absolute(file, directory), parameters, directory);
    const GlibString path(g_filename_from_uri(escaped(file).c_str(), nullptr, nullptr));
    return path ? openPath(path.get(), parameters, directory) : Launch{kFileNotFound};
}

Shell::Launch GioShell::openAddress(const std::string &scheme, const std::string &address) {
    const GlibObject<GAppInfo> handler(g_app_info_get_default_for_uri_scheme(scheme.c_str()));
    return handler ? launch(handler.get(), escaped(address)) : Launch{kNoAssociation};
}

Shell::Launch GioShell::openPath(const std::string &path, const std::string &parameters, const std::string &directory) {
    const std::string name = files_.find(path);
    struct stat status {};
    if (::stat(name.c_str(), &status) != 0) return {codeOf(name, errno)};
    if (!S_ISREG(status.st_mode) || !isProgram(name)) return openWithHandler(name);
    Launch result{kSuccess};
    const int error = launcher_.start(name, parameters, directory, result.process);
    return error == 0 ? result : Launch{codeOf(name, error)};
}

Shell::Launch GioShell::explore(const std::string &path) {
    const std::string name = files_.find(path);
    struct stat status {};
    if (::stat(name.c_str(), &status) != 0) return {codeOf(name, errno)};
    return S_ISDIR(status.st_mode) ? openWithHandler(name) : Launch{kPathNotFound};
}

Shell::Launch GioShell::openWithHandler(const std::string &path) {
    if (::access(path.c_str(), R_OK) != 0) return {codeOf(path, errno)};
    const GlibObject<GFile> file(g_file_new_for_path(path.c_str()));
    GError *failure = nullptr;
    const GlibObject<GAppInfo> handler(g_file_query_default_handler(file.get(), nullptr, &failure));
    const GlibError error(failure);
    if (!handler) return {kNoAssociation};
    const GlibString address(g_file_get_uri(file.get()));
    return launch(handler.get(), address.get());
}

Shell::Launch GioShell::launch(GAppInfo *handler, const std::string &address) {
    Launch result{kSuccess};
    GList addresses{const_cast<char *>(address.c_str()), nullptr, nullptr};
    GError *failure = nullptr;
    // A process id is known for handlers that are programs; others are reached over the bus.
    const gboolean good = G_IS_DESKTOP_APP_INFO(handler) != 0
                              ? g_desktop_app_info_launch_uris_as_manager(
                                    G_DESKTOP_APP_INFO(handler), &addresses, nullptr, G_SPAWN_SEARCH_PATH, nullptr,
                                    nullptr, rememberProcess, &result.process, &failure)
                              : g_app_info_launch_uris(handler, &addresses, nullptr, &failure);
    const GlibError error(failure);
    if (good == 0) return {kAssociationIncomplete};
    if (result.process != 0) launcher_.watch(result.process);
    return result;
}

} // namespace tonvale
