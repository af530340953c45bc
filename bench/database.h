// SQLite in memory, as a yardstick for scans. What fails ends the program.
#pragma once

#include <cstdlib>
#include <sqlite3.h>

namespace tavernook {

class Database {
  public:
    Database() {
        if (sqlite3_open(":memory:", &database_) != SQLITE_OK) std::abort();
    }
    ~Database() { sqlite3_close(database_); }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    void run(const char* statement) {
        if (sqlite3_exec(database_, statement, nullptr, nullptr, nullptr) != SQLITE_OK) {
            std::abort();
        }
    }

  private:
    friend class Statement;
    sqlite3* database_ = nullptr;
};

// Its parameters count from 1, its columns from 0.
class Statement {
  public:
    Statement(Database& database, const char* text) {
        if (sqlite3_prepare_v2(database.database_, text, -1, &statement_, nullptr) != SQLITE_OK) {
            std::abort();
        }
    }
    ~Statement() { sqlite3_finalize(statement_); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    Statement& bind(int place, int value) {
        sqlite3_bind_int(statement_, place, value);
        return *this;
    }
    Statement& bind(int place, double value) {
        sqlite3_bind_double(statement_, place, value);
        return *this;
    }
    Statement& bind(int place, const char* text) {
        sqlite3_bind_text(statement_, place, text, -1, SQLITE_TRANSIENT);
        return *this;
    }

    // Once, without rows; it can be bound and carried out again.
    void carry_out() {
        if (sqlite3_step(statement_) != SQLITE_DONE) std::abort();
        sqlite3_reset(statement_);
    }

    // False behind the last row, where it starts over.
    bool next_row() {
        if (sqlite3_step(statement_) == SQLITE_ROW) return true;
        sqlite3_reset(statement_);
        return false;
    }
    int whole(int column) { return sqlite3_column_int(statement_, column); }
    double number(int column) { return sqlite3_column_double(statement_, column); }
    const unsigned char* text(int column) { return sqlite3_column_text(statement_, column); }

  private:
    sqlite3_stmt* statement_ = nullptr;
};

}  // namespace tavernook
