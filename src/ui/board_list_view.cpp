#include "ui/board_list_view.h"

#include "ui/qt_text.h"

#include <QApplication>
#include <QLabel>
#include <QPainter>

namespace qv {

namespace {

// Where a whole word stands in the header, searching on from `from`; -1 when it does not.
qsizetype word_at(const QString& header, const QString& word, qsizetype from)
{
    for (auto at = header.indexOf(word, from); at >= 0; at = header.indexOf(word, at + 1)) {
        const bool starts = at == 0 || header[at - 1] == QLatin1Char(' ');
        const bool ends = at + word.size() >= header.size() || header[at + word.size()] == QLatin1Char(' ');
        if (starts && ends)
            return at;
    }
    return -1;
}

} // namespace

void TabbedLineDelegate::set_stops(const QString& header, const QStringList& words, const QFontMetrics& metrics)
{
    m_stops.clear();
    qsizetype from = 0;
    for (const auto& word : words) {
        const auto at = word_at(header, word, from);
        if (at < 0)
            break;
        m_stops.push_back(metrics.horizontalAdvance(header.left(at)));
        from = at + word.size();
    }
}

void TabbedLineDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QString text = item.text;
    item.text.clear();
    const QWidget* widget = option.widget;
    QStyle* style = widget ? widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, widget);

    const auto fields = text.split(QLatin1Char('\t'));
    painter->save();
    painter->setPen(item.palette.color(
        QPalette::Normal, item.state & QStyle::State_Selected ? QPalette::HighlightedText : QPalette::Text));
    const QRect area = option.rect.adjusted(2, 0, 0, 0);
    for (qsizetype i = 0; i < fields.size(); ++i) {
        const int left = i < static_cast<qsizetype>(m_stops.size()) ? m_stops[static_cast<std::size_t>(i)]
                                                                    : (m_stops.empty() ? 0 : m_stops.back());
        const int right
            = i + 1 < static_cast<qsizetype>(m_stops.size()) ? m_stops[static_cast<std::size_t>(i + 1)] : area.width();
        QRect cell(area.left() + left, area.top(), std::max(0, right - left - 4), area.height());
        painter->drawText(cell, Qt::AlignLeft | Qt::AlignVCenter,
            item.fontMetrics.elidedText(fields[i], Qt::ElideRight, cell.width()));
    }
    painter->restore();
}

BoardListView::BoardListView(BoardList& list, const QString& header, const QStringList& field_words, QWidget* parent)
    : QListWidget(parent)
    , m_list(list)
    , m_header(new QLabel(header, parent))
    , m_delegate(new TabbedLineDelegate(this))
{
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setUniformItemSizes(true);
    setItemDelegate(m_delegate);
    m_header->setFont(font());
    m_header->setContentsMargins(frameWidth() + 2, 0, 0, 0);
    m_delegate->set_stops(header, field_words, fontMetrics());
    m_list.set_observer(this);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &BoardListView::take_selection);
    connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
        if (m_pushing)
            return;
        m_list.set_current(row);
        emit currentSidChanged(row >= 0 && row < m_list.size() ? m_list.line(row).sid : 0);
    });
    lines_reset();
}

BoardListView::~BoardListView()
{
    m_list.set_observer(nullptr);
}

QListWidgetItem* BoardListView::make_item(const BoardLine& line) const
{
    auto* item = new QListWidgetItem(qs(line.text));
    item->setData(Qt::UserRole, QVariant::fromValue<qlonglong>(line.sid));
    return item;
}

void BoardListView::lines_reset()
{
    m_pushing = true;
    setUpdatesEnabled(false);
    clear();
    for (const auto& line : m_list.lines())
        addItem(make_item(line));
    setUpdatesEnabled(true);
    m_pushing = false;
    selection_changed();
}

void BoardListView::line_inserted(int row)
{
    m_pushing = true;
    insertItem(row, make_item(m_list.line(row)));
    m_pushing = false;
}

void BoardListView::line_removed(int row)
{
    m_pushing = true;
    delete takeItem(row);
    m_pushing = false;
}

void BoardListView::line_changed(int row)
{
    if (auto* line = item(row))
        line->setText(qs(m_list.line(row).text));
}

void BoardListView::selection_changed()
{
    m_pushing = true;
    QItemSelection selection;
    const auto& lines = m_list.lines();
    for (int row = 0; row < static_cast<int>(lines.size()); ++row) {
        if (!lines[static_cast<std::size_t>(row)].selected)
            continue;
        int last = row;
        while (last + 1 < static_cast<int>(lines.size()) && lines[static_cast<std::size_t>(last + 1)].selected)
            ++last;
        selection.select(QListWidget::model()->index(row, 0), QListWidget::model()->index(last, 0));
        row = last;
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (m_list.current() >= 0) {
        selectionModel()->setCurrentIndex(
            QListWidget::model()->index(m_list.current(), 0), QItemSelectionModel::NoUpdate);
        scrollToItem(item(m_list.current()));
    }
    m_pushing = false;
}

void BoardListView::bulk(bool begin)
{
    setUpdatesEnabled(!begin);
}

void BoardListView::take_selection(const QItemSelection& selected, const QItemSelection& deselected)
{
    if (m_pushing)
        return;
    for (const auto& index : deselected.indexes())
        m_list.set_selected(index.row(), false);
    for (const auto& index : selected.indexes())
        m_list.set_selected(index.row(), true);
}

} // namespace qv
