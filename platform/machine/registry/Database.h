// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <sqlite3.h>
#include <sys/types.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tonvale {

// What SQLite reports. `code` is its extended result code, `system` the errno below it.
struct DatabaseError {
    int code = SQLITE_OK;
    int system = 0;
    std::string description;
};

// One connection. Every operation throws DatabaseError.
class Database {
public:
    enum class Missing { Create, Fail };
    // A file that is made is this user's alone, and so are those that come beside it. Throws
    // RuntimeError when it cannot be made.
    Database(const std::string &path, Missing missing);
    // Reads a file where the files of a connection that is seen by others cannot be made beside
    // it. Others do not see this one: it is good for what is read at once.
    [[nodiscard]] static Database alone(const std::string &path);
    [[nodiscard]] bool isAlone() const { return isAlone_; }
    // Whether the file is still the one that its path leads to.
    [[nodiscard]] bool isInPlace() const;

    // To be called before the first change; what it does happens once.
    void prepareToWrite();
    // Leaves what is in the log where it is when the connection closes.
    void keepLog();

    void execute(const char *statements);
    [[nodiscard]] std::int64_t number(const char *query);

    [[noreturn]] void fail() const;
    [[nodiscard]] sqlite3 *handle() const { return handle_.get(); }
    [[nodiscard]] int changes() const { return sqlite3_changes(handle_.get()); }

private:
    Database() = default;
    void open(const std::string &address, int flags);

    struct Close {
        void operator()(sqlite3 *handle) const { (void)sqlite3_close_v2(handle); }
    };
    std::string path_;
    std::unique_ptr<sqlite3, Close> handle_;
    dev_t device_ = 0;
    ino_t inode_ = 0;
    bool isAlone_ = false, isPrepared_ = false;
};

// One prepared statement with its values bound in the order of the calls. What is bound has to
// live as long as the statement.
class Statement {
public:
    Statement(Database &database, const char *text);

    Statement &bind(std::int64_t value);
    Statement &bind(std::string_view text);
    Statement &bindBlob(std::string_view bytes);

    // Returns whether there is a row.
    bool step();
    void run() { (void)step(); }
    [[nodiscard]] std::int64_t number(int column) { return sqlite3_column_int64(handle_.get(), column); }
    [[nodiscard]] std::string bytes(int column);

private:
    void check(int result);

    struct Finalize {
        void operator()(sqlite3_stmt *handle) const {
            // Repeats the error of the last step, which has been looked at.
            (void)sqlite3_finalize(handle);
        }
    };
    Database &database_;
    std::unique_ptr<sqlite3_stmt, Finalize> handle_;
    int bound_ = 0;
};

// Takes the write lock at once, so that what is read inside is still true when it is written;
// undone unless committed.
class Transaction {
public:
    explicit Transaction(Database &database) : database_(database) { database_.execute("BEGIN IMMEDIATE"); }
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;
    ~Transaction();
    void commit();

private:
    Database &database_;
    bool open_ = true;
};

} // namespace tonvale
