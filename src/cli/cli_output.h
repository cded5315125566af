// Text and JSON that several commands write alike.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "cli/cli.h"
#include "meter/columns.h"
#include "meter/field_table.h"
#include "meter/field_value.h"
#include "meter/setup_image.h"
#include "meter/text.h"
#include "platform/status.h"

namespace counter {

using Json = nlohmann::ordered_json;  // keys in the order in which they are written

// A document as text, without a control character in it: a meter can send any, and a terminal obeys them.
// `indent` blanks a level, -1 for one line.
std::string JsonText(const Json& document, int indent);

// One document on standard output.
void WriteJson(const CommandCall& call, const Json& document);

// Begins a line on standard error with "counterctl: ".
std::ostream& Complain(const CliWorld& world);
// The text with blanks for its line ends: whoever reads standard error counts on a line each.
std::string OneLine(std::string text);
// "counterctl: PATH: REASON" on standard error. Returns exit status 2; where a wait was given up because the
// program is to end, "counterctl: interrupted" and 130.
int RefuseStatus(const CommandCall& call, const Status& status);
// "counterctl: REASON" on standard error. Returns exit status 1.
int RefuseCall(const CommandCall& call, const std::string& reason);

// Flushes standard output. Returns `status`, or 2 with its line written where the output of a command that
// went well could not be written.
int OutputStatus(const CliWorld& world, int status);

// "3..2", "4" for one bit, "7..0" for a whole byte; empty for a value and for carried digits.
std::string BitsText(const FieldRow& row);

// A field's value: a text, or a number where the field has no list.
Json ValueJson(const FieldValue& value);
Json FieldJson(const SetupImage& image, Field field);
std::string FieldValueText(const SetupImage& image, Field field);

}  // namespace counter
