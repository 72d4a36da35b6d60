#pragma once

#include "payments/payments_list.h"
#include "ui/area_page.h"

#include <QPointer>

#include <cstdint>
#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace qv {

class PaymentsCompileWindow;

// The payments area: one line a person with a bill (bill, paid, mustpay, state, player), filtered by the ticks
// of the three states and sorted by the sort list; the details of the current person beside it; below, the
// amount box that records a payment, "pif" and "snp" for the selected, the compile, the totals and the files.
class PaymentsArea : public AreaPage
{
    Q_OBJECT

public:
    PaymentsArea(Session& session, QWidget* parent = nullptr);

    void init() override;
    void clear() override;

    QTreeWidget* list() const { return m_list; }
    QLineEdit* amount_box() const { return m_amount; }
    QPlainTextEdit* details() const { return m_details; }
    QCheckBox* state_tick(int index) const { return m_ticks[static_cast<std::size_t>(index)]; }
    QComboBox* sort_list() const { return m_sort; }
    QCheckBox* hold_refresh() const { return m_hold; }
    QString totals_text() const;
    QString currency_text() const;
    QString count_text() const;
    // The selected lines' pids, in list order.
    std::vector<std::int64_t> selected_pids() const;
    // Makes the line of the pid current and the only one selected; false when the list does not show it.
    bool select_pid(std::int64_t pid);

public slots:
    // "load": reads the list again.
    void loadpayments();
    // "save" (Enter in the amount box): records the typed amount for the selected person.
    bool save_payment();
    bool set_selected_paid_in_full();
    bool set_selected_nothing_paid();
    PaymentsCompileWindow* open_compile();
    void save_list();
    void save_detailed();
    void print_list(bool landscape);
    void copy_list();

private:
    QWidget* build_view_row();
    QWidget* build_payment_row();
    QWidget* build_file_row();
    void set_tab_order();
    void remember_view();
    void show_lines(const std::vector<std::int64_t>& keep_selected);
    // After a payment, "pif" or "snp": with hold refresh on, only the lines of these pids are written again;
    // otherwise the whole list is read again.
    void after_change(const std::vector<std::int64_t>& pids);
    // Writes one person's line again from the table; the line stays where it is.
    void quick_fix_list1_single(std::int64_t pid);
    void show_totals();
    void show_details();
    std::vector<std::string> list_text() const;

    Session& m_session;
    PaymentsList m_payments;
    bool m_loading = false;

    std::vector<QCheckBox*> m_ticks;
    QComboBox* m_sort;
    QCheckBox* m_descending;
    QCheckBox* m_hold;
    QTreeWidget* m_list;
    QPlainTextEdit* m_details;
    QLabel* m_count;
    QLabel* m_totals;
    QLabel* m_currency;
    QLineEdit* m_amount;
    QPointer<PaymentsCompileWindow> m_compile;
};

} // namespace qv
