// One connection to an SQLite file: statements and transactions, failures in the system's words.
#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>
#include <initializer_list>
#include <map>
#include <string>

#include "platform/status.h"

namespace counter {

class StoreQueries {
  public:
    explicit StoreQueries(std::string path);
    ~StoreQueries();
    StoreQueries(const StoreQueries&) = delete;
    StoreQueries& operator=(const StoreQueries&) = delete;

    Status Open(const char* options);
    // A statement without values.
    Status Do(const QString& statement);
    // A statement of this program's own, which is prepared once: `query` stands before its first row.
    Status Run(const char* statement, std::initializer_list<QVariant> values, QSqlQuery*& query);
    Status Run(const char* statement, std::initializer_list<QVariant> values);
    // The one whole number that a statement gives.
    Status Number(const char* statement, std::int64_t& number);
    std::int64_t LastId() const { return lastId_; }

    // Ends in a commit, or in a rollback that leaves the file as it was.
    class Transaction {
      public:
        explicit Transaction(StoreQueries& queries) : queries_(queries) {}
        ~Transaction();
        Transaction(const Transaction&) = delete;
        Transaction& operator=(const Transaction&) = delete;
        Status Begin();
        Status Commit();

      private:
        StoreQueries& queries_;
        bool open_ = false;
    };

  private:
    Status Failure(const QSqlError& error) const;

    std::string path_;
    QString name_;  // of the connection
    QSqlDatabase file_;
    std::map<std::string, QSqlQuery> prepared_;
    std::int64_t lastId_ = 0;
};

}  // namespace counter
