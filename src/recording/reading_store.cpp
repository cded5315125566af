#include "recording/reading_store.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "meter/leading_number.h"
#include "system/sql/store_queries.h"

namespace counter {

namespace {

// "CRdg": what tells a store of readings from the file of another program.
constexpr int kApplicationId = 0x43526467;

constexpr const char* kTables[] = {
    "CREATE TABLE runs (run INTEGER PRIMARY KEY, meter TEXT NOT NULL, address INTEGER NOT NULL,"
    " baud INTEGER NOT NULL, setup TEXT, start INTEGER NOT NULL, zone INTEGER NOT NULL, note TEXT)",
    "CREATE TABLE readings (run INTEGER NOT NULL REFERENCES runs, number INTEGER NOT NULL,"
    " item INTEGER NOT NULL, time INTEGER NOT NULL, sent TEXT NOT NULL, value REAL, alarms TEXT NOT NULL,"
    " PRIMARY KEY (run, number, item)) WITHOUT ROWID",
    "CREATE TABLE published (run INTEGER PRIMARY KEY REFERENCES runs, topic TEXT NOT NULL,"
    " number INTEGER NOT NULL)",
};

// A meter sends bytes; each is a character of its own in the file, and comes out of it again as that byte.
QString Text(const std::string& bytes) {
    return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

QString Words(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QVariant OrNull(const std::string& text) {
    return text.empty() ? QVariant(QMetaType::fromType<QString>()) : QVariant(Words(text));
}

QVariant Value(const std::string& number) {
    return number.empty() ? QVariant(QMetaType::fromType<double>()) : QVariant(LeadingNumber(number));
}

QVariant Id(std::int64_t number) {
    return QVariant(static_cast<qlonglong>(number));
}

Status MakeTables(StoreQueries& queries) {
    for (const char* table : kTables) {
        if (Status status = queries.Do(table); !status.Ok()) return status;
    }
    if (Status status = queries.Do(QString("PRAGMA application_id=%1").arg(kApplicationId)); !status.Ok())
        return status;
    return queries.Do(QString("PRAGMA user_version=%1").arg(ReadingStore::kSchema));
}

// What the system says of a file that can't be opened to write: SQLite itself says only that it can't. No
// file is opened for it, since a closed one would take the locks of another connection along.
int WhyNotWrite(const std::string& path) {
    struct stat there = {};
    if (stat(path.c_str(), &there) == 0 && S_ISDIR(there.st_mode)) return EISDIR;
    if (access(path.c_str(), R_OK | W_OK) != 0 && errno != ENOENT) return errno;
    const std::size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    return access(folder.c_str(), W_OK | X_OK) == 0 ? 0 : errno;
}

Status OpenToMake(StoreQueries& queries, const std::string& path) {
    Status status = queries.Open("QSQLITE_BUSY_TIMEOUT=5000");
    const int error = status.Ok() ? 0 : WhyNotWrite(path);
    if (error == 0) return status;
    return {error == ENOENT ? StatusKind::NotFound : StatusKind::NoPermission, path, std::strerror(error)};
}

enum class Empty { Fill, Leave, Refuse };

// Filled in a transaction: of several that find the file empty one makes its tables.
Status CheckTables(StoreQueries& queries, const std::string& path, Empty empty) {
    std::int64_t tables = 0, application = 0, schema = 0;
    for (auto [statement, number] :
         {std::pair("SELECT count(*) FROM sqlite_master", &tables),
          std::pair("PRAGMA application_id", &application), std::pair("PRAGMA user_version", &schema)}) {
        if (Status status = queries.Number(statement, *number); !status.Ok()) return status;
    }
    if (tables == 0 && empty == Empty::Fill) return MakeTables(queries);
    if (tables == 0 && empty == Empty::Leave) return {};
    if (application != kApplicationId) return {StatusKind::Illegal, path, "is no store of readings"};
    if (schema <= ReadingStore::kSchema) return {};
    return {StatusKind::Illegal, path,
            "was written by a later version: its tables are of schema " + std::to_string(schema) +
                ", and this version knows schema " + std::to_string(ReadingStore::kSchema)};
}

// Several programs may begin with the same new file at the same time. Whoever turns it into one with a
// write-ahead log has it alone, and SQLite does not wait for that by itself.
Status TurnToLog(StoreQueries& queries) {
    Status status;
    for (int tries = 0; tries < ReadingStore::kPatientMs / 20; ++tries) {
        status = queries.Do("PRAGMA journal_mode=WAL");
        if (status.Kind != StatusKind::Busy) return status;
        usleep(20'000);
    }
    return status;
}

Status Make(StoreQueries& queries, const std::string& path) {
    if (Status status = OpenToMake(queries, path); !status.Ok()) return status;
    if (Status status = CheckTables(queries, path, Empty::Leave); !status.Ok()) return status;
    if (Status status = TurnToLog(queries); !status.Ok()) return status;
    // A kill loses nothing that was committed. Only a power cut may take the last commits; the file stays
    // whole.
    if (Status status = queries.Do("PRAGMA synchronous=NORMAL"); !status.Ok()) return status;
    StoreQueries::Transaction transaction(queries);
    if (Status status = transaction.Begin(); !status.Ok()) return status;
    if (Status status = CheckTables(queries, path, Empty::Fill); !status.Ok()) return status;
    return transaction.Commit();
}

Status Look(StoreQueries& queries, const std::string& path) {
    if (access(path.c_str(), F_OK) != 0) return {StatusKind::NotFound, path, "No such file or directory"};
    if (Status status = queries.Open("QSQLITE_OPEN_READONLY;QSQLITE_BUSY_TIMEOUT=5000"); !status.Ok())
        return status;
    return CheckTables(queries, path, Empty::Refuse);
}

// Rows of run, number, time, sent in the order of items, the last reading perhaps cut off by the limit of
// rows.
void Collect(QSqlQuery& rows, std::vector<StoredReading>& readings) {
    while (rows.next()) {
        const std::int64_t run = rows.value(0).toLongLong(), number = rows.value(1).toLongLong();
        if (readings.empty() || readings.back().Number != number || readings.back().Run != run)
            readings.push_back({run, number, rows.value(2).toLongLong(), {}});
        readings.back().Items.push_back(ReadingItemOf(rows.value(3).toString().toLatin1().toStdString()));
    }
    rows.finish();
}

}  // namespace

ReadingStore::ReadingStore(std::string path, std::unique_ptr<StoreQueries> queries)
    : path_(std::move(path)), queries_(std::move(queries)) {}

ReadingStore::~ReadingStore() = default;

Status ReadingStore::Open(const std::string& path, Use use, std::unique_ptr<ReadingStore>& store) {
    store.reset();
    auto queries = std::make_unique<StoreQueries>(path);
    Status status = use == Use::Make ? Make(*queries, path) : Look(*queries, path);
    if (status.Ok()) store.reset(new ReadingStore(path, std::move(queries)));
    return status;
}

void ReadingStore::WaitAtMost(int ms) {
    queries_->Do(QString("PRAGMA busy_timeout=%1").arg(ms));
}

Status ReadingStore::BeginRun(const RunFacts& facts, std::int64_t& run) {
    StoreQueries::Transaction transaction(*queries_);
    if (Status status = transaction.Begin(); !status.Ok()) return status;
    Status status = queries_->Run(
        "INSERT INTO runs (meter, address, baud, setup, start, zone, note) VALUES (?, ?, ?, ?, ?, ?, ?)",
        {Words(facts.Meter), facts.Address, facts.Baud, OrNull(facts.Setup), Id(facts.StartMs),
         facts.MinutesEast, OrNull(facts.Note)});
    run = queries_->LastId();
    if (status.Ok() && !facts.Topic.empty())
        status = queries_->Run("INSERT INTO published (run, topic, number) VALUES (?, ?, 0)",
                               {Id(run), Words(facts.Topic)});
    return status.Ok() ? transaction.Commit() : status;
}

Status ReadingStore::Add(std::span<const StoredReading> readings) {
    StoreQueries::Transaction transaction(*queries_);
    if (Status status = transaction.Begin(); !status.Ok()) return status;
    for (const StoredReading& reading : readings) {
        int item = 0;
        for (const ReadingItem& value : reading.Items) {
            Status status = queries_->Run(
                "INSERT INTO readings (run, number, item, time, sent, value, alarms)"
                " VALUES (?, ?, ?, ?, ?, ?, ?)",
                {Id(reading.Run), Id(reading.Number), ++item, Id(reading.TimeMs), Text(value.Sent),
                 Value(value.Number), Text(value.Alarms)});
            if (!status.Ok()) return status;
        }
    }
    return transaction.Commit();
}

// Numbers have no gap, so the last is how many there are; counting would read the whole file.
Status ReadingStore::Runs(std::vector<StoredRun>& runs) {
    runs.clear();
    QSqlQuery* rows = nullptr;
    Status status = queries_->Run(
        "SELECT run, meter, address, baud, setup, start, zone, note,"
        " (SELECT max(number) FROM readings r WHERE r.run = runs.run),"
        " (SELECT time FROM readings r WHERE r.run = runs.run ORDER BY number DESC LIMIT 1)"
        " FROM runs ORDER BY run",
        {}, rows);
    if (!status.Ok()) return status;
    while (rows->next()) {
        StoredRun run;
        run.Id = rows->value(0).toLongLong();
        run.Meter = rows->value(1).toString().toStdString();
        run.Address = rows->value(2).toInt();
        run.Baud = rows->value(3).toInt();
        run.Setup = rows->value(4).toString().toStdString();
        run.StartMs = rows->value(5).toLongLong();
        run.MinutesEast = rows->value(6).toInt();
        run.Note = rows->value(7).toString().toStdString();
        run.Readings = rows->value(8).toLongLong();
        run.LastMs = run.Readings > 0 ? rows->value(9).toLongLong() : run.StartMs;
        runs.push_back(std::move(run));
    }
    rows->finish();
    return {};
}

Status ReadingStore::Readings(std::int64_t run, std::int64_t first, int most,
                              std::vector<StoredReading>& readings) {
    readings.clear();
    QSqlQuery* rows = nullptr;
    Status status = queries_->Run(
        "SELECT run, number, time, sent FROM readings WHERE run = ? AND number >= ? AND number < ?"
        " ORDER BY number, item",
        {Id(run), Id(first), Id(first + most)}, rows);
    if (status.Ok()) Collect(*rows, readings);
    return status;
}

// Run by run: a statement over all of them would sort what waits each time.
Status ReadingStore::ToSend(const std::string& topic, std::int64_t run, std::int64_t number, int most,
                            std::vector<StoredReading>& readings) {
    readings.clear();
    QSqlQuery* rows = nullptr;
    Status status = queries_->Run(
        "SELECT run, max(number, iif(run = ?, ?, 0)) FROM published WHERE topic = ? AND run >= ?"
        " ORDER BY run",
        {Id(run), Id(number), Words(topic), Id(run)}, rows);
    std::vector<std::pair<std::int64_t, std::int64_t>> runs;
    while (status.Ok() && rows->next())
        runs.emplace_back(rows->value(0).toLongLong(), rows->value(1).toLongLong());
    if (rows != nullptr) rows->finish();
    for (const auto& [id, sent] : runs) {
        if (!status.Ok() || !readings.empty()) break;
        status = Readings(id, sent + 1, most, readings);
    }
    return status;
}

Status ReadingStore::CountToSend(const std::string& topic, std::int64_t& count) {
    count = 0;
    QSqlQuery* rows = nullptr;
    Status status = queries_->Run(
        "SELECT sum((SELECT coalesce(max(r.number), 0) FROM readings r WHERE r.run = p.run) - p.number)"
        " FROM published p WHERE topic = ?",
        {Words(topic)}, rows);
    if (!status.Ok()) return status;
    if (rows->next()) count = rows->value(0).toLongLong();
    rows->finish();
    return {};
}

Status ReadingStore::Sent(const std::string& topic, std::int64_t run, std::int64_t number) {
    StoreQueries::Transaction transaction(*queries_);
    if (Status status = transaction.Begin(); !status.Ok()) return status;
    if (Status status =
            queries_->Run("UPDATE published SET number = max(number, ?) WHERE topic = ? AND run = ?",
                          {Id(number), Words(topic), Id(run)});
        !status.Ok())
        return status;
    if (Status status =
            queries_->Run("UPDATE published SET number = max(number,"
                          " (SELECT coalesce(max(number), 0) FROM readings r WHERE r.run = published.run))"
                          " WHERE topic = ? AND run < ?",
                          {Words(topic), Id(run)});
        !status.Ok())
        return status;
    return transaction.Commit();
}

Status ReadingStore::LastSent(const std::string& topic, std::int64_t& run, std::int64_t& number) {
    run = number = 0;
    QSqlQuery* rows = nullptr;
    Status status = queries_->Run(
        "SELECT run, number FROM published WHERE topic = ? AND number > 0 ORDER BY run DESC LIMIT 1",
        {Words(topic)}, rows);
    if (!status.Ok()) return status;
    if (rows->next()) run = rows->value(0).toLongLong(), number = rows->value(1).toLongLong();
    rows->finish();
    return {};
}

}  // namespace counter
