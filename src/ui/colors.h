#pragma once

#include <QColor>

#include <string_view>

namespace qv {

// Colours are stored as the decimal number Windows gives them: R + 256*G + 65536*B. Text that is not such a
// number reads as 0, black, as the stored value would have read.
QColor color_from_setting(std::string_view text);

// The marker strip of an area the user is neither in nor just came from.
inline QColor regular_grey()
{
    return QColor(192, 192, 192);
}

} // namespace qv
