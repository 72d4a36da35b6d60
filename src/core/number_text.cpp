#include "core/number_text.h"

#include <cmath>
#include <cstdio>

namespace qv {

std::string number_text(double value)
{
    if (std::isfinite(value) && value == std::floor(value) && std::fabs(value) < 1e15)
        return std::to_string(static_cast<long long>(value));
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.15g", value);
    return buffer;
}

} // namespace qv
