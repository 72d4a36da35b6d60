#pragma once

#include <span>
#include <string_view>

namespace qv {

class Session;
class Settings;

// Which entries a compile bills. The option number is what payments.opt stores.
struct CompileCriterion
{
    int option;
    std::string_view text;
    // Appended to "select * from evententries "; empty for every entry.
    std::string_view filter;
};

// The three criteria in the order the compile window offers them.
std::span<const CompileCriterion> compile_criteria();
// The criterion of an option; an unknown option is taken as the first.
const CompileCriterion& compile_criterion(int option);
// The stored choice (payments.opt), a damaged value read as the first option.
int compile_option(Settings& settings);

// Bills every person for the entries that meet the criterion. Bills, event counts and states start again from
// nothing; the amounts paid stay. Each entry takes the present fee and draw flag of its event first; a doubles
// entry bills each partner in full. Then the states are set. The running label shows "n/m".
// False when no entry met the criterion (the bills are then all 0) or a fee is not a number (nothing changes).
bool compile(Session& session, int option);

} // namespace qv
