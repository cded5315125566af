// What became of the meters of a table: what the reports for people, test benches and programs are made of.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "meter/field_table.h"
#include "meter/setup_image.h"
#include "transfer/compare_setups.h"

namespace counter {

enum class MeterEnd {
    NotReached,   // its turn did not come
    AsWanted,     // read, and as the table says
    Different,    // read, or written and read back, and not as the table says
    Written,      // read, written, read back, and as the table says now
    Got,          // read into a file
    Read,         // a reading was taken
    LinkFailed,   // no answer, or a wrong one
    Refused,      // a file, folder or port could not be opened, read or written
    Interrupted,  // in the middle of its turn
};

// The name of an end in JSON: "as wanted", "not reached".
const char* NameOf(MeterEnd end);
// The other way; Refused for a name that is none.
MeterEnd EndNamed(std::string_view name);
// One that is as the user asked for.
bool IsGood(MeterEnd end);

// A field that differs or has a column of its own in the table. Values as people read them; nothing where
// they were not read.
struct ReportedField {
    std::string Field;
    int Position = 0;
    std::string Wanted;
    std::optional<std::string> Found, Left;  // as found, as a Put has left it
    bool FoundDiffers = false, LeftDiffers = false;
    bool Counts = true;  // a Put over this link writes it
};

// As read from a meter, over which road and by a tool that takes it for which version.
struct ReadImages {
    std::optional<SetupImage> Found, Left;
    PutRoad Road = PutRoad::AsciiSerial;
    int FirmwareVersion = 0;
};

std::vector<ReportedField> ReportedFields(const SetupImage& wanted, const ReadImages& read,
                                          const std::vector<Field>& columns);

struct MeterReport {
    int Row = 0;
    std::string Name, Line, Place, Setup;  // place: "Custom ASCII, 9600 baud, address 5"
    MeterEnd End = MeterEnd::NotReached;
    std::string Words;              // what became of it, a line
    int LinkError = 0;              // of a link that failed
    std::vector<std::string> Said;  // further lines for people
    std::vector<std::string> Consequences;
    std::vector<ReportedField> Fields;
    std::vector<std::string> Written;  // the frames that have gone out, in order
    bool WrittenKnown = true;          // otherwise its process ended before it could tell
    bool Verified = false;             // read back after that, and all as the table says
    std::string Backup, File;          // where the setup as found is, and where a Get has written
    std::vector<std::string> Values;   // of a reading
    std::string AnswersAt;             // where it answered, if not at the row's own place
    double Seconds = 0;
    ReadImages Images;
    std::optional<SetupImage> Wanted;  // where that is not what the table alone says
};

struct FleetReport {
    std::string Action;  // check, put, get, read
    std::string Table;
    std::string Started, Ended;  // ISO 8601
    std::string By;              // user@host
    double Seconds = 0;
    bool Interrupted = false;
    std::vector<MeterReport> Meters;  // in the order of the table
};

// "60 meters: 57 as the table says, 2 differ, 1 failed"
std::string SummaryOf(const FleetReport& report);

// One page that stands alone, for screen and paper.
std::string HtmlReport(const FleetReport& report);
// JUnit XML as CI servers read it: a test case a meter.
std::string JunitReport(const FleetReport& report);

// The text between tags or in an attribute of either: marks escaped, and what XML 1.0 can't hold replaced.
std::string MarkupText(std::string_view text);

}  // namespace counter
