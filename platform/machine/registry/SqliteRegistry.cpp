// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/registry/SqliteRegistry.h"

#include "controls/Text.h"
#include "platform/machine/base/Directories.h"
#include "platform/machine/base/SystemErrors.h"
#include "platform/machine/registry/KeyPath.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace tonvale {

namespace {

constexpr std::int64_t kVersion = 1;
constexpr int kMostKeptAside = 1000;

constexpr const char *kMakeTables =
    "CREATE TABLE keys(root INTEGER NOT NULL, parent TEXT NOT NULL COLLATE NOCASE,"
    " name TEXT NOT NULL COLLATE NOCASE, PRIMARY KEY(root, parent, name)) WITHOUT ROWID;"
    "CREATE TABLE entries(root INTEGER NOT NULL, key TEXT NOT NULL COLLATE NOCASE,"
    " name TEXT NOT NULL COLLATE NOCASE, type INTEGER NOT NULL, value BLOB NOT NULL,"
    " PRIMARY KEY(root, key, name)) WITHOUT ROWID;"
    "PRAGMA user_version=1";

// Thrown where the store is sound but cannot be used by this version.
struct ForeignStore {
    std::string reason;
};

bool isDamage(const DatabaseError &error) {
    const int primary = error.code & 0xFF;
    return primary == SQLITE_CORRUPT || primary == SQLITE_NOTADB;
}

RuntimeError runtimeErrorOf(const DatabaseError &error) {
    switch (error.code & 0xFF) {
    case SQLITE_FULL: return RuntimeError(ErrorNumber::DiskFull);
    case SQLITE_NOMEM: return RuntimeError(ErrorNumber::OutOfMemory);
    case SQLITE_PERM:
    case SQLITE_AUTH: return RuntimeError(ErrorNumber::PermissionDenied);
    case SQLITE_READONLY:
        // Another process has kept the store aside under our hands.
        if (error.code == SQLITE_READONLY_DBMOVED) return RuntimeError(ErrorNumber::PathFileAccessError);
        return RuntimeError(ErrorNumber::PermissionDenied);
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN: {
        const RuntimeError cause = systemError(error.system);
        const auto number = static_cast<ErrorNumber>(cause.number());
        if (number == ErrorNumber::DiskFull || number == ErrorNumber::PermissionDenied) return cause;
        break;
    }
    default: break;
    }
    return RuntimeError(ErrorNumber::PathFileAccessError);
}

std::int64_t numberOf(RootKey root) { return static_cast<std::int64_t>(root); }

bool hasKey(Database &database, RootKey root, const KeyPath &key) {
    if (key.isRoot()) return true;
    Statement found(database, "SELECT 1 FROM keys WHERE root=? AND parent=? AND name=?");
    return found.bind(numberOf(root)).bind(key.parent).bind(key.name).step();
}

std::optional<RegistryValue> readValue(Database &database, RootKey root, const std::string &key,
                                       std::string_view name) {
    Statement found(database, "SELECT type, value FROM entries WHERE root=? AND key=? AND name=?");
    if (!found.bind(numberOf(root)).bind(key).bind(name).step()) return std::nullopt;
    return RegistryValue{static_cast<ValueType>(found.number(0)), found.bytes(1)};
}

void makeKey(Database &database, RootKey root, const KeyPath &key) {
    if (hasKey(database, root, key)) return;
    makeKey(database, root, KeyPath::of(key.parent));
    Statement insert(database, "INSERT INTO keys VALUES(?, ?, ?)");
    insert.bind(numberOf(root)).bind(key.parent).bind(key.name).run();
}

void writeValue(Database &database, RootKey root, const std::string &key, std::string_view name,
                const RegistryValue &value) {
    Statement write(database, "INSERT INTO entries VALUES(?, ?, ?, ?, ?) ON CONFLICT(root, key, name)"
                              " DO UPDATE SET type=excluded.type, value=excluded.value");
    write.bind(numberOf(root)).bind(key).bind(name);
    write.bind(static_cast<std::int64_t>(value.type)).bindBlob(value.data).run();
}

void writeToStandardError(const std::string &line) { (void)std::fprintf(stderr, "tonvale: %s\n", line.c_str()); }

// Takes the first name of the form "<path>.damaged-<n>" that is free, and never one in use.
std::string renameFileAside(const std::string &path) {
    for (int n = 1; n <= kMostKeptAside; ++n) {
        const std::string aside = path + ".damaged-" + std::to_string(n);
        if (::renameat2(AT_FDCWD, path.c_str(), AT_FDCWD, aside.c_str(), RENAME_NOREPLACE) == 0) return aside;
        if (errno != EEXIST) throw systemError(errno);
    }
    throw RuntimeError(ErrorNumber::FileAlreadyExists);
}

std::string renameAside(const std::string &path) {
    const std::string aside = renameFileAside(path);
    // What lies beside belongs to the damaged store; a fresh one must not be mixed up with it.
    for (const char *suffix : {"-wal", "-shm", "-journal"})
        if (::rename((path + suffix).c_str(), (aside + suffix).c_str()) != 0 && errno != ENOENT)
            throw systemError(errno);
    return aside;
}

std::string directoryOf(const std::string &path) { return path.substr(0, path.rfind('/')); }

bool exists(const std::string &path) { return ::access(path.c_str(), F_OK) == 0; }

// A connection that others see makes files beside the store, unless another process has made them.
bool mustBeReadAlone(const std::string &path) {
    if (!exists(path)) return false;
    if (::access(path.c_str(), W_OK) == 0 && ::access(directoryOf(path).c_str(), W_OK) == 0) return false;
    return !exists(path + "-journal") && !(exists(path + "-wal") && exists(path + "-shm"));
}

} // namespace

SqliteRegistry::SqliteRegistry() : SqliteRegistry(configDirectory() + "/registry.db", writeToStandardError) {}

SqliteRegistry::SqliteRegistry(std::string path, Report report) : path_(std::move(path)), report_(std::move(report)) {}

bool SqliteRegistry::keyExists(RootKey root, const std::string &key) {
    const KeyPath path = KeyPath::of(key);
    return run(Purpose::Read, path.isRoot(), [&](Database &database) { return hasKey(database, root, path); });
}

std::optional<RegistryValue> SqliteRegistry::query(RootKey root, const std::string &key, const std::string &name) {
    const std::string path = KeyPath::of(key).text();
    return run(Purpose::Read, std::optional<RegistryValue>(),
               [&](Database &database) { return readValue(database, root, path, untilZero(name)); });
}

void SqliteRegistry::set(RootKey root, const std::string &key, const std::string &name, const RegistryValue &value) {
    const KeyPath path = KeyPath::of(key);
    const std::string keyText = path.text();
    run(Purpose::Write, false, [&](Database &database) {
        // The windows write all of their settings back whenever they go; most of them are as
        // they were, and these cost no disk access.
        const auto present = readValue(database, root, keyText, untilZero(name));
        if (present && present->type == value.type && present->data == value.data) return true;
        Transaction transaction(database);
        makeKey(database, root, path);
        writeValue(database, root, keyText, untilZero(name), value);
        transaction.commit();
        return true;
    });
}

bool SqliteRegistry::deleteValue(RootKey root, const std::string &key, const std::string &name) {
    const std::string path = KeyPath::of(key).text();
    return run(Purpose::Write, false, [&](Database &database) {
        Statement remove(database, "DELETE FROM entries WHERE root=? AND key=? AND name=?");
        remove.bind(numberOf(root)).bind(path).bind(untilZero(name)).run();
        return database.changes() > 0;
    });
}

bool SqliteRegistry::deleteKey(RootKey root, const std::string &key) {
    const KeyPath path = KeyPath::of(key);
    const std::string text = path.text();
    return run(Purpose::Write, false, [&](Database &database) {
        Transaction transaction(database);
        Statement below(database, "SELECT 1 FROM keys WHERE root=? AND parent=? LIMIT 1");
        if (path.isRoot() || below.bind(numberOf(root)).bind(text).step()) return false;
        Statement removeKey(database, "DELETE FROM keys WHERE root=? AND parent=? AND name=?");
        removeKey.bind(numberOf(root)).bind(path.parent).bind(path.name).run();
        if (database.changes() == 0) return false;
        Statement removeValues(database, "DELETE FROM entries WHERE root=? AND key=?");
        removeValues.bind(numberOf(root)).bind(text).run();
        transaction.commit();
        return true;
    });
}

std::vector<std::string> SqliteRegistry::subKeys(RootKey root, const std::string &key) {
    const std::string path = KeyPath::of(key).text();
    return run(Purpose::Read, std::vector<std::string>(), [&](Database &database) {
        Statement names(database, "SELECT name FROM keys WHERE root=? AND parent=? ORDER BY name");
        names.bind(numberOf(root)).bind(path);
        std::vector<std::string> result;
        while (names.step()) result.push_back(names.bytes(0));
        return result;
    });
}

template <class Result, class Operation>
Result SqliteRegistry::run(Purpose purpose, Result ofEmptyStore, const Operation &operation) {
    if (unusable_) throw RuntimeError(ErrorNumber::PathFileAccessError);
    try {
        if (!open(purpose)) return ofEmptyStore;
        return operation(*database_);
    } catch (const DatabaseError &error) {
        giveUp(error);
    } catch (const ForeignStore &store) {
        refuse(path_ + " " + store.reason + "; it is left as it is");
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
}

// Returns whether there is a store to work on; one that is missing or empty has nothing to read.
bool SqliteRegistry::open(Purpose purpose) {
    // Another process may have kept the store aside under our hands, and one that is read alone
    // does not see what others write.
    if (database_ && (database_->isAlone() || !database_->isInPlace())) disconnect();
    if (!database_) {
        struct stat status {};
        const bool missing = ::stat(path_.c_str(), &status) != 0 && errno == ENOENT;
        if (missing && purpose == Purpose::Read) return false;
        if (missing) makeDirectories(directoryOf(path_));
        connect(purpose);
    }
    if (purpose == Purpose::Write) database_->prepareToWrite();
    if (!hasTables_ && purpose == Purpose::Write) makeTables();
    return hasTables_;
}

void SqliteRegistry::connect(Purpose purpose) {
    if (mustBeReadAlone(path_)) return readAlone();
    try {
        database_.emplace(path_, purpose == Purpose::Write ? Database::Missing::Create : Database::Missing::Fail);
        checkVersion();
    } catch (const DatabaseError &error) {
        // Reading needs no room, but the files beside the store do.
        const bool lacksRoom = runtimeErrorOf(error).number() == static_cast<std::int32_t>(ErrorNumber::DiskFull);
        if (purpose == Purpose::Write || !lacksRoom) throw;
        disconnect();
        readAlone();
    }
}

void SqliteRegistry::readAlone() {
    database_.emplace(Database::alone(path_));
    checkVersion();
}

void SqliteRegistry::disconnect() {
    database_.reset();
    hasTables_ = false;
}

void SqliteRegistry::checkVersion() {
    std::int64_t version = database_->number("PRAGMA user_version");
    if (version == 0 && database_->number("SELECT count(*) FROM sqlite_master") != 0) {
        // Between the two looks another process may have made the tables, and the version with them.
        version = database_->number("PRAGMA user_version");
        if (version == 0) throw ForeignStore{"is another program's database"};
    }
    if (version > kVersion || version < 0) throw ForeignStore{"was written by a newer version"};
    hasTables_ = version == kVersion;
}

void SqliteRegistry::makeTables() {
    Transaction transaction(*database_);
    checkVersion(); // another process may have been first
    if (!hasTables_) database_->execute(kMakeTables);
    transaction.commit();
    hasTables_ = true;
}

void SqliteRegistry::giveUp(const DatabaseError &error) {
    if (isDamage(error)) keepAside(error);
    if ((error.code & 0xFF) == SQLITE_CANTOPEN) report_("the settings in " + path_ + " cannot be opened");
    // A connection that failed to open, or lost its file, is tried afresh the next time.
    if (!hasTables_ || error.code == SQLITE_READONLY_DBMOVED) disconnect();
    throw runtimeErrorOf(error);
}

void SqliteRegistry::keepAside(const DatabaseError &error) {
    // Where another process was quicker, the name belongs to a fresh store by now.
    const bool isOurs = database_ && database_->isInPlace();
    if (database_) database_->keepLog();
    disconnect();
    if (!isOurs) return refuse("the settings are damaged and have been kept aside already");
    try {
        const std::string aside = renameAside(path_);
        refuse("the settings are damaged (" + error.description + "); they are kept as " + aside);
    } catch (const RuntimeError &failure) {
        refuse("the settings in " + path_ + " are damaged and cannot be moved aside: " + failure.description());
    }
}

void SqliteRegistry::refuse(const std::string &reason) {
    unusable_ = true;
    disconnect();
    report_(reason);
}

} // namespace tonvale
