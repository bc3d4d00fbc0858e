// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/file_address.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

namespace tonvale::test {
namespace {

using Path = std::optional<std::string>;

Path strictPath(std::string_view address) { return pathOfAddress(address, "desk", StraySigns::Refused); }
Path laxPath(std::string_view address) { return pathOfAddress(address, "desk", StraySigns::Kept); }

void expectPath(std::string_view address, const Path &path) {
    EXPECT_EQ(strictPath(address), path) << address;
    EXPECT_EQ(laxPath(address), path) << address;
}

TEST(FileAddress, EscapesAllButThePlainBytes) {
    EXPECT_EQ(fileAddress("/music/A-z_0.9~.mp3"), "file:///music/A-z_0.9~.mp3");
    EXPECT_EQ(fileAddress("/m\xFFusic/a b%#?.mp3"), "file:///m%FFusic/a%20b%25%23%3F.mp3");
    EXPECT_EQ(fileAddress("/\xC3\xA4"), "file:///%C3%A4");
    EXPECT_EQ(fileAddress("a.mp3"), "");
    EXPECT_EQ(fileAddress(""), "");
}

TEST(FileAddress, FindsBackToEveryName) {
    std::string path = "/";
    for (int byte = 1; byte < 256; ++byte) path += static_cast<char>(byte);
    expectPath(fileAddress(path), path);
}

TEST(FileAddress, IsOfThisMachine) {
    for (const char *address : {"file:///a", "file:/a", "FILE:///a", "file://localhost/a", "File://LocalHost/a",
                                "file://desk/a", "file://DESK/a"})
        expectPath(address, "/a");
    for (const char *address : {"file://other/a", "file://localhost2/a", "file://desk.home/a", "file://desk:80/a"})
        expectPath(address, std::nullopt);
    EXPECT_EQ(pathOfAddress("file:///a", "", StraySigns::Refused), "/a") << "a machine without a name";
}

TEST(FileAddress, IsAnAbsolutePath) {
    for (const char *address : {"", "/a", "file", "file:", "file://", "file:a", "file://desk", "http://desk/a",
                                "smb://desk/a", "http:///a", " file:///a"})
        expectPath(address, std::nullopt);
    expectPath("file:////a", "//a");
    expectPath("file:///", "/");
}

TEST(FileAddress, EscapesAreBytes) {
    expectPath("file:///caf%E9%20100%25.mp3", "/caf\xE9 100%.mp3");
    expectPath("file:///%c3%a4%C3%A4", "/\xC3\xA4\xC3\xA4");
    expectPath("file:///a%3Fb%23c%2541", "/a?b#c%41");
    expectPath("file:///line%0Aend%0D.mp3", "/line\nend\r.mp3");
}

TEST(FileAddress, NoNameHasAZeroInIt) {
    expectPath("file:///a%00b", std::nullopt);
    expectPath(std::string_view("file:///a\0b", 11), std::nullopt);
}

TEST(FileAddress, StraySignsAreOfTheNameOrMakeItNone) {
    for (const std::string name :
         {"/a%", "/%4", "/%zz", "/%4g", "/%-1", "/%+1", "/% 1", "/%%", "/100%.mp3", "/a?b", "/a#b", "/#1.mp3"}) {
        EXPECT_EQ(strictPath("file://" + name), std::nullopt) << name;
        EXPECT_EQ(laxPath("file://" + name), name);
    }
    EXPECT_EQ(laxPath("file:///%%41"), "/%A");
}

} // namespace
} // namespace tonvale::test
