#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qv {

// One line of a board list: the match's sid as its item data, the text and whether it is selected.
struct BoardLine
{
    std::int64_t sid = 0;
    std::string text;
    bool seeded = false; // a side carries a seed: what "select all seeds" looks for
    bool selected = false;
};

// The window's side of a list: it mirrors each change on screen. A bulk change is bracketed so that the list
// can be hidden meanwhile.
class BoardListObserver
{
public:
    virtual ~BoardListObserver() = default;
    virtual void lines_reset() = 0;
    virtual void line_inserted(int row) = 0;
    virtual void line_removed(int row) = 0;
    virtual void line_changed(int row) = 0;
    virtual void selection_changed() = 0;
    virtual void bulk(bool begin) = 0;
};

// A list of the board (unscheduled, clipboard or court): lines with their sids, the selection, the line with the
// focus and whether the list is on hold refresh, that is patched line by line instead of being read again.
class BoardList
{
public:
    // Hold refresh is refused from this many lines on.
    static constexpr int hold_limit = 30001;

    void set_observer(BoardListObserver* observer) { m_observer = observer; }

    const std::vector<BoardLine>& lines() const { return m_lines; }
    const BoardLine& line(int row) const { return m_lines.at(static_cast<std::size_t>(row)); }
    int size() const { return static_cast<int>(m_lines.size()); }
    bool empty() const { return m_lines.empty(); }

    bool on_hold() const { return m_hold; }
    void set_on_hold(bool on) { m_hold = on; }

    // The focus line; -1 when none.
    int current() const { return m_current; }
    void set_current(int row) { m_current = row >= 0 && row < size() ? row : -1; }

    void assign(std::vector<BoardLine> lines);
    void clear() { assign({}); }
    void append(BoardLine line);
    // The line goes in before the row (at the end for a row past it).
    void insert(int row, BoardLine line);
    void remove(int row);
    void set_text(int row, std::string text);
    void swap(int a, int b);

    // The row that carries the sid; none when no line does.
    std::optional<int> find(std::int64_t sid) const;

    // Selection set by the window: no notice goes back to it.
    void set_selected(int row, bool on);
    // Selection set by an operation: the window is told.
    void select_all(bool on);
    void select_seeds(bool on);
    void select_only(int row);

    std::vector<int> selected_rows() const;
    std::vector<std::int64_t> selected_sids() const;
    bool any_selected() const;

    // Brackets a bulk change for the window; nested brackets count.
    void begin_bulk();
    void end_bulk();

private:
    std::vector<BoardLine> m_lines;
    BoardListObserver* m_observer = nullptr;
    int m_current = -1;
    int m_bulk = 0;
    bool m_hold = false;
};

// Hides the list while a bulk change runs.
class BulkChange
{
public:
    explicit BulkChange(BoardList& list)
        : m_list(list)
    {
        m_list.begin_bulk();
    }
    BulkChange(const BulkChange&) = delete;
    BulkChange& operator=(const BulkChange&) = delete;
    ~BulkChange() { m_list.end_bulk(); }

private:
    BoardList& m_list;
};

} // namespace qv
