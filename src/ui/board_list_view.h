#pragma once

#include "scheduling/board_list.h"

#include <QListWidget>
#include <QStyledItemDelegate>

#include <vector>

class QLabel;

namespace qv {

// Draws a tab-separated line in columns: each field starts where its word stands in the list's header.
class TabbedLineDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    // The x positions of the fields, from the header text and the words that head the fields, in field order.
    void set_stops(const QString& header, const QStringList& words, const QFontMetrics& metrics);
    const std::vector<int>& stops() const { return m_stops; }
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    std::vector<int> m_stops;
};

// A list of the board on screen: it mirrors a BoardList line for line and hands the user's selection back to it.
class BoardListView : public QListWidget, public BoardListObserver
{
    Q_OBJECT

public:
    BoardListView(BoardList& list, const QString& header, const QStringList& field_words, QWidget* parent = nullptr);
    ~BoardListView() override;

    BoardList& board_list() { return m_list; }
    // The header line above the list, in the list's font so that the columns meet their words.
    QLabel* header() const { return m_header; }

    void lines_reset() override;
    void line_inserted(int row) override;
    void line_removed(int row) override;
    void line_changed(int row) override;
    void selection_changed() override;
    void bulk(bool begin) override;

signals:
    // The focus line changed: the sid it carries, 0 for none.
    void currentSidChanged(qint64 sid);

private:
    QListWidgetItem* make_item(const BoardLine& line) const;
    void take_selection(const QItemSelection& selected, const QItemSelection& deselected);

    BoardList& m_list;
    QLabel* m_header;
    TabbedLineDelegate* m_delegate;
    bool m_pushing = false;
};

} // namespace qv
