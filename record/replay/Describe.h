#pragma once

#include <string>

#include "Calls.h"
#include "calls/Form.h"

namespace replay {

std::string Hexadecimal(unsigned long code);
/// The interface and the operation of a record.
std::string NameOf(const RecordHeader& record);
/// A value, in a few words; long ones are shortened.
std::string Describe(const Value& value, record::Form form = record::Form::kSigned);
/// The result of a call and its outputs by their names: "1, handle 3".
std::string Answer(const Call& call, Values values);
/// A call with its arguments: "parser 1: GetItemInt(handle 3, number)".
std::string Question(const Call& call);
/// A call and what came of it, in one line.
std::string Line(const Call& call);

}  // namespace replay
