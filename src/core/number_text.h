#pragma once

#include <string>

namespace qv {

// A money or count column as lists and files show it: a whole amount without a point ("35", "-10"), any other
// amount in its shortest exact decimal form up to 15 significant digits ("12.5", "0.3").
std::string number_text(double value);

} // namespace qv
