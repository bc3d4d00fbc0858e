// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/registry/SqliteRegistry.h"
#include "tests/backend/machine/Support.h"

#include <sys/mount.h>
#include <sys/stat.h>

#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <set>

namespace tonvale {
namespace {

using namespace test;

constexpr RootKey kUser = RootKey::CurrentUser;
const std::string kKey = "Software\\Orvane Tonvale\\Settings";

RegistryValue text(const std::string &data) { return {ValueType::String, data}; }

class RegistryTest : public testing::Test {
protected:
    std::optional<std::string> read(const std::string &name) {
        const auto value = registry.query(kUser, kKey, name);
        return value ? std::optional(value->data) : std::nullopt;
    }
    SqliteRegistry another() {
        return SqliteRegistry(path, [this](const std::string &line) { said.push_back(line); });
    }
    // A store of several pages that nobody has open.
    void makeLargeStore() {
        SqliteRegistry store = another();
        for (int i = 0; i < 200; ++i) store.set(kUser, kKey, "v" + std::to_string(i), text(std::string(300, 'x')));
    }
    // Leaves the log of a process that has been killed after writing.
    void writeAndBeKilled(const std::string &name, const std::string &data) {
        const Pipe written;
        Child writer([&] {
            SqliteRegistry own = another();
            own.set(kUser, kKey, name, text(data));
            written.send();
            return ::pause();
        });
        ASSERT_EQ(written.receive(), '!');
        writer.kill();
    }
    // The names of the files in the store's directory.
    std::set<std::string> files() {
        std::set<std::string> names;
        for (const auto &entry : std::filesystem::directory_iterator(home / "config/orvane-tonvale"))
            names.insert(entry.path().filename());
        return names;
    }
    // Lets all read the store without being able to write it or anything beside it.
    void openToReaders() {
        for (const std::string &name : files())
            std::filesystem::permissions(home / ("config/orvane-tonvale/" + name), std::filesystem::perms(0444));
        for (const char *below : {"", "/config", "/config/orvane-tonvale"})
            std::filesystem::permissions(home.path() + below, std::filesystem::perms(0555));
    }
    // Takes a file out of a store that is open to readers.
    void removeFromReaders(const std::string &file) {
        std::filesystem::permissions(home / "config/orvane-tonvale", std::filesystem::perms(0755));
        std::filesystem::remove(file);
        std::filesystem::permissions(home / "config/orvane-tonvale", std::filesystem::perms(0555));
    }

    ScratchHome home;
    std::string path = home / "config/orvane-tonvale/registry.db";
    std::vector<std::string> said;
    SqliteRegistry registry = another();
};

TEST_F(RegistryTest, LiesInTheConfigurationDirectoryOfThisUserAlone) {
    SqliteRegistry().set(kUser, kKey, "Volume", text("55"));
    EXPECT_EQ(read("Volume"), "55");
    struct stat status {};
    ASSERT_EQ(::stat((home / "config/orvane-tonvale").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0700u);
}

TEST_F(RegistryTest, ItsFilesAreOfThisUserAloneAndTheLogGoesWithTheLastToClose) {
    {
        SqliteRegistry first = another(), second = another();
        first.set(kUser, kKey, "v", text("1"));
        second.set(kUser, kKey, "v", text("2"));
        EXPECT_EQ(files(), (std::set<std::string>{"registry.db", "registry.db-shm", "registry.db-wal"}));
        for (const char *suffix : {"", "-wal", "-shm"}) {
            struct stat status {};
            ASSERT_EQ(::stat((path + suffix).c_str(), &status), 0);
            EXPECT_EQ(status.st_mode & 07777, 0600u) << suffix;
        }
    }
    EXPECT_EQ(files(), std::set<std::string>{"registry.db"});
    EXPECT_EQ(read("v"), "2");
}

TEST_F(RegistryTest, AStoreOfARollbackJournalIsReadAsItIsAndTakesALogWhenWritten) {
    another().set(kUser, kKey, "v", text("1"));
    Database(path, Database::Missing::Fail).execute("PRAGMA journal_mode=TRUNCATE; PRAGMA user_version=1");
    ASSERT_TRUE(exists(path + "-journal"));
    const std::string before = readFile(path);
    EXPECT_EQ(another().query(kUser, kKey, "v")->data, "1");
    EXPECT_EQ(readFile(path), before);
    {
        SqliteRegistry store = another();
        store.set(kUser, kKey, "v", text("2"));
        EXPECT_EQ(files(), (std::set<std::string>{"registry.db", "registry.db-shm", "registry.db-wal"}));
    }
    EXPECT_EQ(read("v"), "2");
}

TEST_F(RegistryTest, ReadingAMissingStoreFindsNothingAndMakesNothing) {
    EXPECT_FALSE(registry.query(kUser, kKey, "Volume"));
    EXPECT_FALSE(registry.keyExists(kUser, kKey));
    EXPECT_TRUE(registry.keyExists(kUser, ""));
    EXPECT_TRUE(registry.subKeys(kUser, "").empty());
    EXPECT_FALSE(exists(home / "config/orvane-tonvale"));
}

TEST_F(RegistryTest, FindsNamesWithoutRegardToCaseAndKeepsTheirFirstForm) {
    registry.set(kUser, "Software\\MRU", "Mru1", text("a"));
    registry.set(kUser, "SOFTWARE\\mru", "MRU1", text("b"));
    EXPECT_EQ(registry.query(kUser, "software\\MRU", "mru1")->data, "b");
    EXPECT_EQ(registry.subKeys(kUser, "SOFTWARE"), std::vector<std::string>{"MRU"});
}

TEST_F(RegistryTest, KeepsEveryByteAndType) {
    const std::string bytes("\0\xFF'\"; DROP TABLE entries\0", 24);
    registry.set(kUser, kKey, "b", {ValueType::Binary, bytes});
    registry.set(kUser, kKey, "empty", text(""));
    registry.set(kUser, kKey, "", text("default"));
    registry.set(kUser, kKey, "n", {ValueType::Dword, std::string("\1\0\0\0", 4)});
    SqliteRegistry fresh = another();
    EXPECT_EQ(fresh.query(kUser, kKey, "b")->data, bytes);
    EXPECT_EQ(fresh.query(kUser, kKey, "b")->type, ValueType::Binary);
    EXPECT_EQ(fresh.query(kUser, kKey, "empty")->data, "");
    EXPECT_EQ(fresh.query(kUser, kKey, "")->data, "default");
    EXPECT_EQ(fresh.query(kUser, kKey, "n")->type, ValueType::Dword);
    EXPECT_FALSE(fresh.query(RootKey::LocalMachine, kKey, "b"));
}

TEST_F(RegistryTest, KeysAreListedByNameAndDeletedFromBelow) {
    for (const char *name : {"b", "C", "a"}) registry.set(kUser, std::string("Top\\") + name + "\\x", "v", text("1"));
    EXPECT_EQ(registry.subKeys(kUser, "Top"), (std::vector<std::string>{"a", "b", "C"}));
    EXPECT_FALSE(registry.deleteKey(kUser, "Top\\a"));
    EXPECT_TRUE(registry.deleteKey(kUser, "Top\\a\\x"));
    EXPECT_FALSE(registry.query(kUser, "Top\\a\\x", "v"));
    EXPECT_TRUE(registry.deleteKey(kUser, "top\\A"));
    EXPECT_FALSE(registry.deleteKey(kUser, "Top\\a"));
    EXPECT_TRUE(registry.deleteValue(kUser, "Top\\b\\x", "V"));
    EXPECT_FALSE(registry.deleteValue(kUser, "Top\\b\\x", "V"));
    EXPECT_TRUE(registry.keyExists(kUser, "Top\\b\\X"));
    EXPECT_FALSE(registry.deleteKey(kUser, ""));
}

TEST_F(RegistryTest, ProcessesWriteAtTheSameTime) {
    const auto writeAll = [this](char letter) {
        return [this, letter] {
            SqliteRegistry own = another();
            for (int i = 0; i < 50; ++i) own.set(kUser, kKey, letter + std::to_string(i), text("v"));
            return 0;
        };
    };
    Child a(writeAll('a')), b(writeAll('b')), c(writeAll('c'));
    EXPECT_EQ(a.exitCode(), 0);
    EXPECT_EQ(b.exitCode(), 0);
    EXPECT_EQ(c.exitCode(), 0);
    for (const char letter : {'a', 'b', 'c'})
        for (int i = 0; i < 50; ++i) EXPECT_TRUE(read(letter + std::to_string(i))) << letter << i;
}

TEST_F(RegistryTest, SeesWhatAnotherProcessHasWrittenSince) {
    registry.set(kUser, kKey, "v", text("old"));
    EXPECT_EQ(Child([this] {
                  another().set(kUser, kKey, "v", text("new"));
                  return 0;
              }).exitCode(),
              0);
    EXPECT_EQ(read("v"), "new");
}

TEST_F(RegistryTest, AKillLeavesTheOldOrTheNewValue) {
    for (int round = 0; round < 25; ++round) {
        const Pipe written;
        Child writer([&] {
            SqliteRegistry own = another();
            for (int i = 1;; ++i) {
                own.set(kUser, kKey, "v",
                        text(std::to_string(round) + ":" + std::to_string(i) + std::string(9000, 'x')));
                written.send();
            }
            return 0;
        });
        for (int i = 0; i < 3 + round % 7; ++i) ASSERT_EQ(written.receive(), '!');
        writer.kill();
        const auto value = another().query(kUser, kKey, "v");
        ASSERT_TRUE(value);
        EXPECT_TRUE(value->data.starts_with(std::to_string(round) + ":"));
        const int last = std::stoi(value->data.substr(value->data.find(':') + 1));
        EXPECT_GE(last, 3 + round % 7);
        EXPECT_EQ(value->data.size() - value->data.find('x'), 9000u);
    }
    EXPECT_TRUE(said.empty());
}

TEST_F(RegistryTest, ADamagedStoreIsKeptAsideAndTheNextStartBeginsAfresh) {
    for (const std::string number : {"1", "2"}) {
        const std::string garbage = "this is no database " + number + std::string(5000, '?');
        std::filesystem::create_directories(home / "config/orvane-tonvale");
        writeFile(path, garbage);
        said.clear();
        SqliteRegistry store = another();
        EXPECT_EQ(errorOf([&] { (void)store.query(kUser, kKey, "v"); }), 75);
        EXPECT_EQ(errorOf([&] { store.set(kUser, kKey, "v", text("1")); }), 75);
        ASSERT_EQ(said.size(), 1u);
        EXPECT_NE(said[0].find(path + ".damaged-" + number), std::string::npos) << said[0];
        EXPECT_EQ(readFile(path + ".damaged-" + number), garbage);
        EXPECT_FALSE(exists(path));
        SqliteRegistry next = another();
        EXPECT_FALSE(next.query(kUser, kKey, "v"));
        next.set(kUser, kKey, "v", text("2"));
        EXPECT_EQ(next.query(kUser, kKey, "v")->data, "2");
    }
}

TEST_F(RegistryTest, DamageInsideTheFileIsFound) {
    makeLargeStore();
    std::string bytes = readFile(path);
    ASSERT_GT(bytes.size(), 20000u);
    // The first page with the version stays whole.
    std::fill(bytes.begin() + 4096, bytes.end(), '\xA5');
    writeFile(path, bytes);
    SqliteRegistry store = another();
    EXPECT_EQ(errorOf([&] { (void)store.query(kUser, kKey, "v7"); }), 75);
    EXPECT_EQ(readFile(path + ".damaged-1"), bytes);
    EXPECT_EQ(said.size(), 1u);
}

TEST_F(RegistryTest, ATruncatedStoreIsDamaged) {
    makeLargeStore();
    std::filesystem::resize_file(path, 4096 + 100);
    SqliteRegistry store = another();
    EXPECT_EQ(errorOf([&] { (void)store.query(kUser, kKey, "v7"); }), 75);
    EXPECT_TRUE(exists(path + ".damaged-1"));
}

TEST_F(RegistryTest, ADamagedStoreIsKeptWithItsLog) {
    makeLargeStore();
    writeAndBeKilled("w", "in the log");
    std::string bytes = readFile(path);
    ASSERT_GT(bytes.size(), 20000u);
    std::fill(bytes.begin() + 4096, bytes.end(), '\xA5');
    writeFile(path, bytes);
    const std::string log = readFile(path + "-wal");
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(errorOf([&] { (void)another().query(kUser, kKey, "v7"); }), 75);
    EXPECT_EQ(readFile(path + ".damaged-1"), bytes);
    EXPECT_EQ(readFile(path + ".damaged-1-wal"), log);
    for (const char *suffix : {"", "-wal", "-shm"}) EXPECT_FALSE(exists(path + suffix)) << suffix;
    EXPECT_FALSE(read("w"));
    registry.set(kUser, kKey, "v7", text("fresh"));
    EXPECT_EQ(read("v7"), "fresh");
}

TEST_F(RegistryTest, AStoreThatAnotherProcessHasKeptAsideIsNotWrittenAnyMore) {
    registry.set(kUser, kKey, "v", text("1"));
    for (const char *suffix : {"", "-wal", "-shm"})
        std::filesystem::rename(path + suffix, path + ".damaged-1" + suffix);
    const std::string kept = readFile(path + ".damaged-1"), log = readFile(path + ".damaged-1-wal");
    EXPECT_FALSE(read("v"));
    EXPECT_FALSE(exists(path));
    registry.set(kUser, kKey, "v", text("2"));
    EXPECT_EQ(another().query(kUser, kKey, "v")->data, "2");
    EXPECT_EQ(readFile(path + ".damaged-1"), kept);
    EXPECT_EQ(readFile(path + ".damaged-1-wal"), log);
}

TEST_F(RegistryTest, ANewerStoreIsLeftUntouched) {
    registry.set(kUser, kKey, "v", text("1"));
    Database(path, Database::Missing::Fail).execute("PRAGMA user_version=2");
    const std::string before = readFile(path);
    SqliteRegistry store = another();
    EXPECT_EQ(errorOf([&] { (void)store.query(kUser, kKey, "v"); }), 75);
    EXPECT_EQ(errorOf([&] { store.set(kUser, kKey, "v", text("2")); }), 75);
    EXPECT_EQ(readFile(path), before);
    EXPECT_EQ(said.size(), 1u);
}

TEST_F(RegistryTest, AnotherProgramsDatabaseIsLeftUntouched) {
    std::filesystem::create_directories(home / "config/orvane-tonvale");
    Database(path, Database::Missing::Create).execute("CREATE TABLE other(x)");
    EXPECT_EQ(errorOf([&] { registry.set(kUser, kKey, "v", text("2")); }), 75);
    EXPECT_EQ(Database(path, Database::Missing::Fail).number("SELECT count(*) FROM sqlite_master"), 1);
}

TEST_F(RegistryTest, AReadOnlyStoreIsReadAndItsWritesAreDenied) {
    another().set(kUser, kKey, "v", text("1"));
    openToReaders();
    EXPECT_EQ(asNobody([&] {
                  SqliteRegistry store = another();
                  if (store.query(kUser, kKey, "v")->data != "1") return 1;
                  if (errorOf([&] { store.set(kUser, kKey, "v", text("2")); }) != 70) return 2;
                  return store.query(kUser, kKey, "v")->data == "1" ? 0 : 3;
              }),
              0);
    EXPECT_EQ(files(), std::set<std::string>{"registry.db"});
    std::filesystem::permissions(path, std::filesystem::perms(0));
    EXPECT_EQ(asNobody([&] { return errorOf([&] { (void)another().query(kUser, kKey, "v"); }); }), 70);
    removeFromReaders(path);
    EXPECT_EQ(asNobody([&] {
                  if (another().query(kUser, kKey, "v")) return 1;
                  return errorOf([&] { another().set(kUser, kKey, "v", text("1")); });
              }),
              70);
}

TEST_F(RegistryTest, AReaderWithoutRightsSeesWhatIsWrittenMeanwhile) {
    if (::geteuid() != 0) GTEST_SKIP() << "needs to become another user";
    another().set(kUser, kKey, "v", text("1"));
    openToReaders();
    const Pipe ready, written;
    const auto expect = [](SqliteRegistry &store, const char *data) {
        return store.query(kUser, kKey, "v")->data == data;
    };
    Child reader([&] {
        if (::setgid(65534) != 0 || ::setuid(65534) != 0) return 98;
        SqliteRegistry store = another();
        for (const char *data : {"1", "2", "3"}) {
            if (!expect(store, data)) return data[0] - '0';
            ready.send();
            if (written.receive() != '!') return 97;
        }
        return 0;
    });
    ASSERT_EQ(ready.receive(), '!');
    {
        SqliteRegistry store = another();
        store.set(kUser, kKey, "v", text("2"));
        written.send();
        ASSERT_EQ(ready.receive(), '!');
    }
    another().set(kUser, kKey, "v", text("3"));
    written.send();
    ASSERT_EQ(ready.receive(), '!');
    written.send();
    EXPECT_EQ(reader.exitCode(), 0);
}

TEST_F(RegistryTest, TheLogOfAKilledProcessIsReadWhereNothingCanBeWritten) {
    another().set(kUser, kKey, "v", text("1"));
    writeAndBeKilled("v", "2");
    openToReaders();
    const std::string before = readFile(path), log = readFile(path + "-wal");
    const auto check = [&] {
        return asNobody([&] {
            SqliteRegistry store = another();
            if (store.query(kUser, kKey, "v")->data != "2") return 1;
            return errorOf([&] { store.set(kUser, kKey, "v", text("3")); }) == 70 ? 0 : 2;
        });
    };
    EXPECT_EQ(check(), 0);
    removeFromReaders(path + "-shm");
    EXPECT_EQ(check(), 0);
    EXPECT_EQ(files(), (std::set<std::string>{"registry.db", "registry.db-wal"}));
    EXPECT_EQ(readFile(path), before);
    EXPECT_EQ(readFile(path + "-wal"), log);
    EXPECT_EQ(read("v"), "2");
}

TEST_F(RegistryTest, AReadOnlyFileInAWritableDirectoryGetsNothingBesideIt) {
    path = home / "config/orvane-tonvale/odd ?#%41 name.db";
    another().set(kUser, kKey, "v", text("1"));
    openToReaders();
    std::filesystem::permissions(home / "config/orvane-tonvale", std::filesystem::perms(0777));
    EXPECT_EQ(asNobody([&] {
                  SqliteRegistry store = another();
                  if (store.query(kUser, kKey, "v")->data != "1") return 1;
                  return errorOf([&] { store.set(kUser, kKey, "v", text("2")); }) == 70 ? 0 : 2;
              }),
              0);
    EXPECT_EQ(files(), std::set<std::string>{"odd ?#%41 name.db"});
}

TEST_F(RegistryTest, ALockedStoreFailsAfterABoundedWait) {
    registry.set(kUser, kKey, "v", text("1"));
    const Pipe locked, done;
    Child holder([&] {
        Database other(path, Database::Missing::Fail);
        other.execute("BEGIN EXCLUSIVE");
        locked.send();
        return done.receive() == '!' ? 0 : 1;
    });
    ASSERT_EQ(locked.receive(), '!');
    SqliteRegistry store = another();
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(errorOf([&] { store.set(kUser, kKey, "v", text("2")); }), 75);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
    done.send();
    EXPECT_EQ(holder.exitCode(), 0);
    store.set(kUser, kKey, "v", text("3"));
    EXPECT_EQ(read("v"), "3");
}

TEST_F(RegistryTest, AFullDiskIsErrorSixtyOneAndKeepsWhatThereWas) {
    const std::string disk = home / "disk";
    std::filesystem::create_directory(disk);
    if (::mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=128k") != 0) GTEST_SKIP() << "needs to mount a small disk";
    {
        SqliteRegistry store(disk + "/registry.db", [](const std::string &) {});
        store.set(kUser, kKey, "v", text("1"));
        EXPECT_EQ(errorOf([&] { store.set(kUser, kKey, "w", text(std::string(200000, 'x'))); }), 61);
        EXPECT_EQ(store.query(kUser, kKey, "v")->data, "1");
        EXPECT_FALSE(store.query(kUser, kKey, "w"));
        store.set(kUser, kKey, "v", text("2"));
        EXPECT_EQ(store.query(kUser, kKey, "v")->data, "2");
    }
    EXPECT_EQ(::umount(disk.c_str()), 0);
}

TEST_F(RegistryTest, AStoreOnAFullDiskIsRead) {
    const std::string disk = home / "disk";
    std::filesystem::create_directory(disk);
    if (::mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=128k") != 0) GTEST_SKIP() << "needs to mount a small disk";
    path = disk + "/registry.db";
    another().set(kUser, kKey, "v", text("1"));
    const std::string filler = disk + "/filler";
    {
        std::ofstream out(filler, std::ios::binary);
        while (out.write(std::string(4096, 'x').data(), 4096).flush()) {
        }
    }
    {
        SqliteRegistry store = another();
        EXPECT_EQ(store.query(kUser, kKey, "v")->data, "1");
        EXPECT_EQ(errorOf([&] { store.set(kUser, kKey, "v", text("2")); }), 61);
        EXPECT_EQ(store.query(kUser, kKey, "v")->data, "1");
        std::filesystem::remove(filler);
        store.set(kUser, kKey, "v", text("3"));
        EXPECT_EQ(store.query(kUser, kKey, "v")->data, "3");
    }
    EXPECT_EQ(::umount(disk.c_str()), 0);
}

TEST_F(RegistryTest, OddKeysAreHarmless) {
    registry.set(kUser, "\\a\\\\b\\", "n", text("1"));
    EXPECT_EQ(registry.query(kUser, "a\\b", "n")->data, "1");
    registry.set(kUser, std::string("zero\0tail", 9), std::string("n\0m", 3), text("2"));
    EXPECT_EQ(registry.query(kUser, "zero", "n")->data, "2");
    registry.set(kUser, "bytes\\\xFF\xFE", "\x80", text("3"));
    EXPECT_EQ(registry.query(kUser, "BYTES\\\xFF\xFE", "\x80")->data, "3");
    EXPECT_EQ(registry.subKeys(kUser, "bytes"), std::vector<std::string>{"\xFF\xFE"});
}

} // namespace
} // namespace tonvale
