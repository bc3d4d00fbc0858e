// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/machine/registry/Database.h"

#include "platform/machine/base/SystemErrors.h"
#include "platform/machine/base/UniqueFd.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <cerrno>

namespace tonvale {

namespace {

constexpr int kBusyMilliseconds = 2000;

void makeFile(const std::string &path) {
    const UniqueFd file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!file && errno != EEXIST) throw systemError(errno);
}

// Whether other machines may have the file open as well, or memory cannot be shared through it.
bool isOnNetwork(const std::string &path) {
    struct statfs system {};
    if (::statfs(path.c_str(), &system) != 0) return true;
    switch (static_cast<std::uint32_t>(system.f_type)) {
    case NFS_SUPER_MAGIC:
    case SMB_SUPER_MAGIC:
    case SMB2_SUPER_MAGIC:
    case CIFS_SUPER_MAGIC:
    case AFS_SUPER_MAGIC:
    case AFS_FS_MAGIC:
    case V9FS_MAGIC:
    case FUSE_SUPER_MAGIC: return true;
    default: return false;
    }
}

// The path as an address, to which parameters can be added.
std::string addressOf(const std::string &path) {
    std::string address = "file://";
    for (const char c : path) {
        if (c == '%')
            address += "%25";
        else if (c == '?')
            address += "%3f";
        else if (c == '#')
            address += "%23";
        else
            address += c;
    }
    return address;
}

} // namespace

Database::Database(const std::string &path, Missing missing) : path_(path) {
    if (missing == Missing::Create) makeFile(path);
    open(path, SQLITE_OPEN_READWRITE | (missing == Missing::Create ? SQLITE_OPEN_CREATE : 0));
}

Database Database::alone(const std::string &path) {
    Database database;
    database.path_ = path;
    database.isAlone_ = true;
    // What is in a log has to be read with the database. The log's index is then kept in memory
    // of our own, which goes only without locks. Where there is no log, nothing must make one.
    const bool hasLog = ::access((path + "-wal").c_str(), F_OK) == 0;
    database.open(addressOf(path) + (hasLog ? "?vfs=unix-none" : "?immutable=1"),
                  SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
    database.execute("PRAGMA locking_mode=EXCLUSIVE");
    database.keepLog();
    return database;
}

void Database::open(const std::string &address, int flags) {
    // Noted before the database is looked at: what is damaged is what was there then.
    struct stat status {};
    if (::stat(path_.c_str(), &status) == 0) {
        device_ = status.st_dev;
        inode_ = status.st_ino;
    }
    sqlite3 *handle = nullptr;
    const int result =
        sqlite3_open_v2(address.c_str(), &handle, flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    handle_.reset(handle);
    if (result != SQLITE_OK) fail();
    if (sqlite3_busy_timeout(handle, kBusyMilliseconds) != SQLITE_OK) fail();
}

bool Database::isInPlace() const {
    struct stat status {};
    return ::stat(path_.c_str(), &status) == 0 && status.st_dev == device_ && status.st_ino == inode_;
}

void Database::prepareToWrite() {
    if (isPrepared_) return;
    isPrepared_ = true;
    // A commit to a write-ahead log does not wait for the disk. After a power cut the newest
    // values may be gone, but what is there belongs together; a kill loses nothing. The log's
    // index is shared memory, which several machines cannot share.
    const char *mode = isOnNetwork(path_) ? "PRAGMA journal_mode=TRUNCATE" : "PRAGMA journal_mode=WAL";
    // A store that is in use just now keeps the mode it has, which is as safe, and a change of the
    // mode is not waited for in addition to the lock. All else that is wrong the write finds.
    if (sqlite3_busy_timeout(handle(), 0) != SQLITE_OK) fail();
    (void)sqlite3_exec(handle(), mode, nullptr, nullptr, nullptr);
    if (sqlite3_busy_timeout(handle(), kBusyMilliseconds) != SQLITE_OK) fail();
    execute("PRAGMA synchronous=NORMAL");
}

void Database::keepLog() {
    if (sqlite3_db_config(handle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr) != SQLITE_OK) fail();
}

void Database::execute(const char *statements) {
    if (sqlite3_exec(handle_.get(), statements, nullptr, nullptr, nullptr) != SQLITE_OK) fail();
}

std::int64_t Database::number(const char *query) {
    Statement statement(*this, query);
    return statement.step() ? statement.number(0) : 0;
}

void Database::fail() const {
    if (!handle_) throw DatabaseError{SQLITE_NOMEM, 0, sqlite3_errstr(SQLITE_NOMEM)};
    throw DatabaseError{sqlite3_extended_errcode(handle_.get()), sqlite3_system_errno(handle_.get()),
                        sqlite3_errmsg(handle_.get())};
}

Statement::Statement(Database &database, const char *text) : database_(database) {
    sqlite3_stmt *handle = nullptr;
    check(sqlite3_prepare_v2(database.handle(), text, -1, &handle, nullptr));
    handle_.reset(handle);
}

Statement &Statement::bind(std::int64_t value) {
    check(sqlite3_bind_int64(handle_.get(), ++bound_, value));
    return *this;
}

Statement &Statement::bind(std::string_view text) {
    // A null pointer would bind NULL.
    const char *data = text.data() != nullptr ? text.data() : "";
    check(sqlite3_bind_text(handle_.get(), ++bound_, data, static_cast<int>(text.size()), SQLITE_STATIC));
    return *this;
}

Statement &Statement::bindBlob(std::string_view bytes) {
    const char *data = bytes.data() != nullptr ? bytes.data() : "";
    check(sqlite3_bind_blob64(handle_.get(), ++bound_, data, bytes.size(), SQLITE_STATIC));
    return *this;
}

bool Statement::step() {
    const int result = sqlite3_step(handle_.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE) database_.fail();
    return result == SQLITE_ROW;
}

std::string Statement::bytes(int column) {
    const void *data = sqlite3_column_blob(handle_.get(), column);
    const int size = sqlite3_column_bytes(handle_.get(), column);
    return data == nullptr ? std::string()
                           : std::string(static_cast<const char *>(data), static_cast<std::size_t>(size));
}

void Statement::check(int result) {
    if (result != SQLITE_OK) database_.fail();
}

Transaction::~Transaction() {
    // A failed rollback has rolled back already, or the next opening does.
    if (open_) (void)sqlite3_exec(database_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::commit() {
    database_.execute("COMMIT");
    open_ = false;
}

} // namespace tonvale
