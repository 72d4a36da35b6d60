#pragma once

#include "core/user_talk.h"
#include "core/value_classes.h"

#include <optional>
#include <string>
#include <string_view>

namespace qv {

// Why a typed value was refused. position is the 0-based character index of the offending character, for the
// window to select; -1 when the fault is the value as a whole.
struct Refusal
{
    std::string message;
    int position = -1;
};
using Check = std::optional<Refusal>; // nullopt: the value passes

// The checks of typed values; each stops at the first fault.
Check value_required(std::string_view text);
Check check_class(std::string_view text, ValueClass cls);
Check check_integer(std::string_view text);
Check check_double(std::string_view text);
Check check_signed_double(std::string_view text);

// Shows the refusal, if any, and answers whether the value passed.
bool report(UserTalk& talk, const Check& check);

// The same checks for imported lines: "ok" or the fault, with 1-based positions as the reader of the
// feedback file counts them.
std::string check_class_text(std::string_view text, ValueClass cls);
std::string check_integer_text(std::string_view text);
std::string check_double_text(std::string_view text);

} // namespace qv
