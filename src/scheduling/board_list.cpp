#include "scheduling/board_list.h"

#include <algorithm>
#include <utility>

namespace qv {

void BoardList::assign(std::vector<BoardLine> lines)
{
    m_lines = std::move(lines);
    m_current = -1;
    if (m_observer)
        m_observer->lines_reset();
}

void BoardList::append(BoardLine line)
{
    m_lines.push_back(std::move(line));
    if (m_observer)
        m_observer->line_inserted(size() - 1);
}

void BoardList::insert(int row, BoardLine line)
{
    row = std::clamp(row, 0, size());
    m_lines.insert(m_lines.begin() + row, std::move(line));
    if (m_current >= row)
        ++m_current;
    if (m_observer)
        m_observer->line_inserted(row);
}

void BoardList::remove(int row)
{
    if (row < 0 || row >= size())
        return;
    m_lines.erase(m_lines.begin() + row);
    if (m_current == row)
        m_current = -1;
    else if (m_current > row)
        --m_current;
    if (m_observer)
        m_observer->line_removed(row);
}

void BoardList::set_text(int row, std::string text)
{
    if (row < 0 || row >= size())
        return;
    m_lines[static_cast<std::size_t>(row)].text = std::move(text);
    if (m_observer)
        m_observer->line_changed(row);
}

void BoardList::swap(int a, int b)
{
    if (a < 0 || b < 0 || a >= size() || b >= size() || a == b)
        return;
    std::swap(m_lines[static_cast<std::size_t>(a)], m_lines[static_cast<std::size_t>(b)]);
    if (m_current == a)
        m_current = b;
    else if (m_current == b)
        m_current = a;
    if (m_observer) {
        m_observer->line_changed(a);
        m_observer->line_changed(b);
        m_observer->selection_changed();
    }
}

std::optional<int> BoardList::find(std::int64_t sid) const
{
    for (int row = 0; row < size(); ++row)
        if (m_lines[static_cast<std::size_t>(row)].sid == sid)
            return row;
    return std::nullopt;
}

void BoardList::set_selected(int row, bool on)
{
    if (row >= 0 && row < size())
        m_lines[static_cast<std::size_t>(row)].selected = on;
}

void BoardList::select_all(bool on)
{
    for (auto& line : m_lines)
        line.selected = on;
    if (m_observer)
        m_observer->selection_changed();
}

void BoardList::select_seeds(bool on)
{
    for (auto& line : m_lines)
        if (line.seeded)
            line.selected = on;
    if (m_observer)
        m_observer->selection_changed();
}

void BoardList::select_only(int row)
{
    for (auto& line : m_lines)
        line.selected = false;
    set_selected(row, true);
    set_current(row);
    if (m_observer)
        m_observer->selection_changed();
}

std::vector<int> BoardList::selected_rows() const
{
    std::vector<int> rows;
    for (int row = 0; row < size(); ++row)
        if (m_lines[static_cast<std::size_t>(row)].selected)
            rows.push_back(row);
    return rows;
}

std::vector<std::int64_t> BoardList::selected_sids() const
{
    std::vector<std::int64_t> sids;
    for (const auto& line : m_lines)
        if (line.selected)
            sids.push_back(line.sid);
    return sids;
}

bool BoardList::any_selected() const
{
    for (const auto& line : m_lines)
        if (line.selected)
            return true;
    return false;
}

void BoardList::begin_bulk()
{
    if (m_bulk++ == 0 && m_observer)
        m_observer->bulk(true);
}

void BoardList::end_bulk()
{
    if (m_bulk > 0 && --m_bulk == 0 && m_observer)
        m_observer->bulk(false);
}

} // namespace qv
