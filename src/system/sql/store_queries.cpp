#include "system/sql/store_queries.h"

#include <sys/statvfs.h>

#include <QSqlError>
#include <QUuid>
#include <utility>

namespace counter {

namespace {

// The numbers of SQLite whose words of their own say too little or are others than the system's.
struct KnownFailure {
    int Number;
    StatusKind Kind;
    const char* Words;
};

constexpr KnownFailure kKnown[] = {
    {3, StatusKind::NoPermission, "Permission denied"},
    {5, StatusKind::Busy, "another program is writing into it"},
    {6, StatusKind::Busy, "another program is writing into it"},
    {8, StatusKind::NoPermission, "can't be written"},
    {11, StatusKind::Illegal, "is damaged"},
    {13, StatusKind::Other, "No space left on device"},
    {26, StatusKind::Illegal, "is no store of readings"},
};

constexpr int kInputOutput = 10;
constexpr int kFull = 13;

// The index of the log is mapped into memory, and SQLite calls it an I/O error where there is no room for it.
bool NoRoomFor(const std::string& path) {
    constexpr unsigned long kIndexBytes = 32'768;
    struct statvfs disk = {};
    return statvfs(path.c_str(), &disk) == 0 && disk.f_bavail * disk.f_frsize < kIndexBytes;
}

}  // namespace

StoreQueries::StoreQueries(std::string path)
    : path_(std::move(path)), name_(QUuid::createUuid().toString()) {}

StoreQueries::~StoreQueries() {
    prepared_.clear();
    file_ = {};
    QSqlDatabase::removeDatabase(name_);
}

Status StoreQueries::Open(const char* options) {
    file_ = QSqlDatabase::addDatabase("QSQLITE", name_);
    if (!file_.isValid())
        return {StatusKind::Other, path_, "SQLite's plugin for Qt is missing (libqt6sql6-sqlite)"};
    file_.setDatabaseName(QString::fromLocal8Bit(path_.c_str()));
    file_.setConnectOptions(options);
    return file_.open() ? Status{} : Failure(file_.lastError());
}

Status StoreQueries::Failure(const QSqlError& error) const {
    int number = error.nativeErrorCode().toInt() & 0xFF;
    if (number == kInputOutput && NoRoomFor(path_)) number = kFull;
    for (const KnownFailure& known : kKnown) {
        if (known.Number == number) return {known.Kind, path_, known.Words};
    }
    return {StatusKind::Other, path_, error.databaseText().toStdString()};
}

Status StoreQueries::Do(const QString& statement) {
    QSqlQuery query(file_);
    return query.exec(statement) ? Status{} : Failure(query.lastError());
}

Status StoreQueries::Run(const char* statement, std::initializer_list<QVariant> values, QSqlQuery*& query) {
    auto found = prepared_.find(statement);
    if (found == prepared_.end()) {
        QSqlQuery fresh(file_);
        fresh.setForwardOnly(true);
        if (!fresh.prepare(statement)) return Failure(fresh.lastError());
        found = prepared_.emplace(statement, std::move(fresh)).first;
    }
    query = &found->second;
    int place = 0;
    for (const QVariant& value : values) query->bindValue(place++, value);
    if (!query->exec()) return Failure(query->lastError());
    return {};
}

Status StoreQueries::Run(const char* statement, std::initializer_list<QVariant> values) {
    QSqlQuery* query = nullptr;
    Status status = Run(statement, values, query);
    if (!status.Ok()) return status;
    lastId_ = query->lastInsertId().toLongLong();
    query->finish();
    return {};
}

Status StoreQueries::Number(const char* statement, std::int64_t& number) {
    QSqlQuery query(file_);
    if (!query.exec(statement)) return Failure(query.lastError());
    number = query.next() ? query.value(0).toLongLong() : 0;
    return {};
}

// IMMEDIATE: whoever is to write waits here for his turn, and not with half of his work done.
Status StoreQueries::Transaction::Begin() {
    Status status = queries_.Do("BEGIN IMMEDIATE");
    open_ = status.Ok();
    return status;
}

Status StoreQueries::Transaction::Commit() {
    Status status = queries_.Do("COMMIT");
    open_ = open_ && !status.Ok();
    return status;
}

StoreQueries::Transaction::~Transaction() {
    if (open_) queries_.Do("ROLLBACK");
}

}  // namespace counter
