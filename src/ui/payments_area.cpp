#include "ui/payments_area.h"

#include "core/session.h"
#include "payments/compile.h"
#include "payments/money.h"
#include "payments/payment_details.h"
#include "payments/payments_files.h"
#include "payments/taking_payments.h"
#include "ui/payments_compile_window.h"
#include "ui/qt_text.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSplitter>
#include <QTextDocument>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace qv {

namespace {

constexpr int pid_role = Qt::UserRole;
// The three columns of amounts line up on the right.
constexpr int amount_columns = 3;
// Amounts and states get room to breathe even when they are short.
constexpr int min_column_width = 80;

// The ticks of the states, their captions and their settings, in the order the list heading names the states.
struct StateTick
{
    const char* caption;
    const char* key;
};
constexpr StateTick state_ticks[]
    = { { "paid in full", "payments.pif" }, { "outstanding balance", "payments.ob" }, { "over paid", "payments.neg" } };

void fill_item(QTreeWidgetItem* item, const PaymentLine& line)
{
    const auto fields = line_fields(line);
    for (int column = 0; column < static_cast<int>(fields.size()); ++column) {
        item->setText(column, qs(fields[static_cast<std::size_t>(column)]));
        if (column < amount_columns)
            item->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    }
    item->setData(0, pid_role, QVariant::fromValue<qlonglong>(line.pid));
}

QString joined(const std::vector<std::string>& lines, const char* separator)
{
    QStringList texts;
    for (const auto& line : lines)
        texts << qs(line);
    return texts.join(QString::fromLatin1(separator));
}

QPushButton* button(const char* caption, const char* tip, QWidget* parent)
{
    auto* made = new QPushButton(QString::fromLatin1(caption), parent);
    made->setObjectName(QString::fromLatin1(caption));
    if (tip)
        made->setToolTip(QString::fromLatin1(tip));
    return made;
}

} // namespace

PaymentsArea::PaymentsArea(Session& session, QWidget* parent)
    : AreaPage(parent)
    , m_session(session)
    , m_sort(new QComboBox(this))
    , m_descending(new QCheckBox(QStringLiteral("descending"), this))
    , m_hold(new QCheckBox(QStringLiteral("hold refresh"), this))
    , m_list(new QTreeWidget(this))
    , m_details(new QPlainTextEdit(this))
    , m_count(new QLabel(this))
    , m_totals(new QLabel(this))
    , m_currency(new QLabel(this))
    , m_amount(new QLineEdit(this))
{
    setObjectName(QStringLiteral("payments"));
    m_list->setObjectName(QStringLiteral("list1"));
    m_list->setColumnCount(static_cast<int>(std::size(payments_heading)));
    QStringList heading;
    for (const char* caption : payments_heading)
        heading << QString::fromLatin1(caption);
    m_list->setHeaderLabels(heading);
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAlternatingRowColors(true);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->header()->setStretchLastSection(true);
    for (int column = 0; column < amount_columns; ++column)
        m_list->headerItem()->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    m_details->setObjectName(QStringLiteral("details"));
    m_details->setReadOnly(true);
    m_amount->setObjectName(QStringLiteral("amount"));
    m_amount->setToolTip(QStringLiteral("hit return key to save"));

    auto* splitter = new QSplitter(this);
    splitter->addWidget(m_list);
    splitter->addWidget(m_details);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);

    auto* sums = new QHBoxLayout;
    sums->addWidget(m_count);
    sums->addSpacing(20);
    sums->addWidget(m_totals);
    sums->addStretch();
    sums->addWidget(m_currency);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(build_view_row());
    layout->addWidget(splitter, 1);
    layout->addLayout(sums);
    layout->addWidget(build_payment_row());
    layout->addWidget(build_file_row());

    set_tab_order();
    connect(m_list, &QTreeWidget::currentItemChanged, this, [this] { show_details(); });
    connect(m_amount, &QLineEdit::returnPressed, this, &PaymentsArea::save_payment);
}

QWidget* PaymentsArea::build_view_row()
{
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const auto& tick : state_ticks) {
        auto* box = new QCheckBox(QString::fromLatin1(tick.caption), row);
        box->setObjectName(QString::fromLatin1(tick.key));
        m_ticks.push_back(box);
        layout->addWidget(box);
        connect(box, &QCheckBox::toggled, this, &PaymentsArea::remember_view);
    }
    layout->addSpacing(20);
    m_sort->setObjectName(QStringLiteral("sort"));
    for (const char* caption : payments_sort_captions)
        m_sort->addItem(QString::fromLatin1(caption));
    layout->addWidget(m_sort);
    layout->addWidget(m_descending);
    layout->addSpacing(20);
    layout->addWidget(m_hold);
    layout->addStretch();
    auto* load = button("load", "read the list again", row);
    layout->addWidget(load);

    connect(m_sort, &QComboBox::currentIndexChanged, this, &PaymentsArea::remember_view);
    connect(m_descending, &QCheckBox::toggled, this, &PaymentsArea::remember_view);
    connect(m_hold, &QCheckBox::toggled, this, [this](bool on) {
        if (!m_loading)
            m_session.settings().set_disk_var("payments_hfr", on ? "1" : "0");
    });
    connect(load, &QPushButton::clicked, this, &PaymentsArea::loadpayments);
    return row;
}

QWidget* PaymentsArea::build_payment_row()
{
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(QStringLiteral("add/subtract (+/-)"), row);
    label->setBuddy(m_amount);
    m_amount->setMaximumWidth(120);
    auto* save = button("save", "hit return key to save", row);
    auto* pif = button("pif", "set selected to paid in full", row);
    auto* snp = button("snp", "set selected to nothing paid", row);
    auto* compile = button("compile...", "compile the bills from the entries", row);
    layout->addWidget(label);
    layout->addWidget(m_amount);
    layout->addWidget(save);
    layout->addSpacing(20);
    layout->addWidget(pif);
    layout->addWidget(snp);
    layout->addStretch();
    layout->addWidget(compile);
    connect(save, &QPushButton::clicked, this, &PaymentsArea::save_payment);
    connect(pif, &QPushButton::clicked, this, &PaymentsArea::set_selected_paid_in_full);
    connect(snp, &QPushButton::clicked, this, &PaymentsArea::set_selected_nothing_paid);
    connect(compile, &QPushButton::clicked, this, &PaymentsArea::open_compile);
    return row;
}

QWidget* PaymentsArea::build_file_row()
{
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* save = button("save list", "save the list as payments.txt", row);
    auto* detailed = button("make payments file", "save the details of every person as payments_detailed.txt", row);
    auto* portrait = button("print portrait", nullptr, row);
    auto* landscape = button("print landscape", nullptr, row);
    auto* copy = button("copy", "copy the list", row);
    for (auto* each : { save, detailed, portrait, landscape, copy })
        layout->addWidget(each);
    layout->addStretch();
    connect(save, &QPushButton::clicked, this, &PaymentsArea::save_list);
    connect(detailed, &QPushButton::clicked, this, &PaymentsArea::save_detailed);
    connect(portrait, &QPushButton::clicked, this, [this] { print_list(false); });
    connect(landscape, &QPushButton::clicked, this, [this] { print_list(true); });
    connect(copy, &QPushButton::clicked, this, &PaymentsArea::copy_list);
    return row;
}

void PaymentsArea::set_tab_order()
{
    // As the eye reads the area: the view row, the list, the payment row, the files, the details.
    std::vector<QWidget*> chain(m_ticks.begin(), m_ticks.end());
    chain.insert(chain.end(),
        { m_sort, m_descending, m_hold, findChild<QPushButton*>(QStringLiteral("load")), m_list, m_amount });
    for (const char* name : { "save", "pif", "snp", "compile...", "save list", "make payments file", "print portrait",
             "print landscape", "copy" })
        chain.push_back(findChild<QPushButton*>(QString::fromLatin1(name)));
    chain.push_back(m_details);
    for (std::size_t i = 0; i + 1 < chain.size(); ++i)
        setTabOrder(chain[i], chain[i + 1]);
}

void PaymentsArea::init()
{
    auto& settings = m_session.settings();
    m_loading = true;
    for (std::size_t i = 0; i < m_ticks.size(); ++i)
        m_ticks[i]->setChecked(settings.integer(state_ticks[i].key) == 1);
    const auto view = PaymentsView::from_settings(settings);
    m_sort->setCurrentIndex(static_cast<int>(view.sort));
    m_descending->setChecked(view.descending);
    m_hold->setChecked(settings.text("payments_hfr") == "1");
    m_loading = false;
    m_amount->clear();
    loadpayments();
}

void PaymentsArea::clear()
{
    m_payments = {};
    m_list->clear();
    m_details->clear();
    m_amount->clear();
    m_count->clear();
    m_totals->clear();
    m_currency->clear();
    if (m_compile)
        m_compile->close();
}

void PaymentsArea::remember_view()
{
    if (m_loading)
        return;
    auto& settings = m_session.settings();
    for (std::size_t i = 0; i < m_ticks.size(); ++i)
        settings.set_disk_var(state_ticks[i].key, m_ticks[i]->isChecked() ? "1" : "0");
    settings.set_disk_var("payments.sort2", std::to_string(m_sort->currentIndex()));
    settings.set_disk_var("payments.sort1", m_descending->isChecked() ? "1" : "0");
    loadpayments();
}

void PaymentsArea::loadpayments()
{
    if (!m_session.has_tournament())
        return;
    PaymentsView view;
    view.pif = m_ticks[0]->isChecked();
    view.ob = m_ticks[1]->isChecked();
    view.neg = m_ticks[2]->isChecked();
    view.sort = static_cast<PaymentsSort>(std::clamp(m_sort->currentIndex(), 0, 3));
    view.descending = m_descending->isChecked();
    m_payments = qv::loadpayments(m_session.tournament(), view);
    m_currency->setText(qs(currency_line(m_session.tournament())));
    show_lines(selected_pids());
}

void PaymentsArea::show_lines(const std::vector<std::int64_t>& keep_selected)
{
    m_list->setUpdatesEnabled(false);
    m_list->clear();
    QList<QTreeWidgetItem*> items;
    items.reserve(static_cast<qsizetype>(m_payments.lines.size()));
    for (const auto& line : m_payments.lines) {
        auto* item = new QTreeWidgetItem;
        fill_item(item, line);
        items << item;
    }
    m_list->addTopLevelItems(items);
    for (auto* item : items) {
        const auto pid = item->data(0, pid_role).toLongLong();
        if (std::find(keep_selected.begin(), keep_selected.end(), pid) != keep_selected.end()) {
            item->setSelected(true);
            if (!m_list->currentItem())
                m_list->setCurrentItem(item, 0, QItemSelectionModel::NoUpdate);
        }
    }
    for (int column = 0; column + 1 < m_list->columnCount(); ++column) {
        m_list->resizeColumnToContents(column);
        m_list->setColumnWidth(column, std::max(m_list->columnWidth(column), min_column_width));
    }
    m_list->setUpdatesEnabled(true);
    m_count->setText(QStringLiteral("count=%1").arg(m_payments.lines.size()));
    show_totals();
    show_details();
}

void PaymentsArea::show_totals()
{
    m_totals->setText(joined(totals_lines(m_payments.totals), "    "));
}

void PaymentsArea::show_details()
{
    auto* item = m_list->currentItem();
    if (!item || !m_session.has_tournament()) {
        m_details->clear();
        return;
    }
    const auto pid = item->data(0, pid_role).toLongLong();
    const auto line = std::find_if(
        m_payments.lines.begin(), m_payments.lines.end(), [pid](const PaymentLine& each) { return each.pid == pid; });
    if (line == m_payments.lines.end())
        return;
    const int option = compile_option(m_session.settings());
    const auto entries = person_entries(m_session.tournament(), line->player, option);
    m_details->setPlainText(joined(load_data(*line, entries, option), "\n"));
}

std::vector<std::int64_t> PaymentsArea::selected_pids() const
{
    std::vector<std::int64_t> pids;
    for (int row = 0; row < m_list->topLevelItemCount(); ++row) {
        auto* item = m_list->topLevelItem(row);
        if (item->isSelected())
            pids.push_back(item->data(0, pid_role).toLongLong());
    }
    return pids;
}

bool PaymentsArea::select_pid(std::int64_t pid)
{
    for (int row = 0; row < m_list->topLevelItemCount(); ++row) {
        auto* item = m_list->topLevelItem(row);
        if (item->data(0, pid_role).toLongLong() == pid) {
            m_list->setCurrentItem(item, 0, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
            return true;
        }
    }
    return false;
}

void PaymentsArea::after_change(const std::vector<std::int64_t>& pids)
{
    if (!m_hold->isChecked()) {
        loadpayments();
        return;
    }
    for (auto pid : pids)
        quick_fix_list1_single(pid);
    m_payments.totals = totals_of(m_payments.lines);
    show_totals();
    show_details();
}

void PaymentsArea::quick_fix_list1_single(std::int64_t pid)
{
    const auto now = payment_line(m_session.tournament(), pid);
    if (!now)
        return;
    for (auto& line : m_payments.lines)
        if (line.pid == pid)
            line = *now;
    for (int row = 0; row < m_list->topLevelItemCount(); ++row) {
        auto* item = m_list->topLevelItem(row);
        if (item->data(0, pid_role).toLongLong() == pid)
            fill_item(item, *now);
    }
}

bool PaymentsArea::save_payment()
{
    const auto pids = selected_pids();
    if (!take_payment(m_session, pids, to_std(m_amount->text()))) {
        m_amount->setFocus();
        m_amount->selectAll();
        return false;
    }
    // A second Enter must not pay twice.
    m_amount->clear();
    after_change(pids);
    return true;
}

bool PaymentsArea::set_selected_paid_in_full()
{
    const auto pids = selected_pids();
    if (!set_paid_in_full(m_session, pids))
        return false;
    after_change(pids);
    return true;
}

bool PaymentsArea::set_selected_nothing_paid()
{
    const auto pids = selected_pids();
    if (!set_nothing_paid(m_session, pids))
        return false;
    after_change(pids);
    return true;
}

PaymentsCompileWindow* PaymentsArea::open_compile()
{
    if (!m_session.has_tournament())
        return nullptr;
    if (!m_compile) {
        m_compile = new PaymentsCompileWindow(m_session, window());
        connect(m_compile, &PaymentsCompileWindow::compiled, this, &PaymentsArea::loadpayments);
    }
    m_compile->show();
    m_compile->raise();
    m_compile->activateWindow();
    return m_compile;
}

void PaymentsArea::save_list()
{
    if (m_session.has_tournament())
        save_payments_list(m_session, m_payments);
}

void PaymentsArea::save_detailed()
{
    if (m_session.has_tournament())
        make_payments_file(m_session, compile_option(m_session.settings()));
}

std::vector<std::string> PaymentsArea::list_text() const
{
    return payments_list_lines(m_payments, to_std(m_currency->text()));
}

void PaymentsArea::print_list(bool landscape)
{
    QPrinter printer;
    printer.setPageOrientation(landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    QTextDocument document;
    document.setDefaultFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    QTextOption columns;
    columns.setTabStopDistance(90);
    document.setDefaultTextOption(columns);
    document.setPlainText(joined(list_text(), "\n"));
    document.print(&printer);
}

void PaymentsArea::copy_list()
{
    QApplication::clipboard()->setText(joined(list_text(), "\n"));
}

QString PaymentsArea::totals_text() const
{
    return m_totals->text();
}

QString PaymentsArea::currency_text() const
{
    return m_currency->text();
}

QString PaymentsArea::count_text() const
{
    return m_count->text();
}

} // namespace qv
