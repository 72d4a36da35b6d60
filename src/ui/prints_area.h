#pragma once

#include "documents/print_save_draws.h"
#include "ui/area_page.h"

class QCheckBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace qv {

// The prints area, print_save_draws ("Print draws"): the draws that exist, the ticks "split128", "country" and
// "times", the copies, "print" and "save as PDF", and the actions "save images" and "save text" over the selected draws.
class PrintsArea : public AreaPage
{
    Q_OBJECT

public:
    PrintsArea(Session& session, QWidget* parent = nullptr);

    void init() override;
    void clear() override;
    void refresh_lists(Lists which) override;

    QListWidget* draw_list() const { return m_draws; }
    QListWidget* action_list() const { return m_actions; }
    QLineEdit* copies() const { return m_copies; }
    QCheckBox* tick(const char* caption) const;
    PrintsChoice choice() const;

public slots:
    // events_drawdone_draws: reads the list again, keeping the selection.
    void load_draws();
    bool print();
    // "save as PDF": the pages "print" makes, one copy, in one PDF file.
    bool save_pdf();
    bool save_images();
    bool save_text();

private:
    QWidget* build_options();
    void run_action(const QString& action);

    Session& m_session;
    bool m_loading = false;
    QListWidget* m_draws;
    QListWidget* m_actions;
    QLineEdit* m_copies;
    std::vector<QCheckBox*> m_ticks;
};

} // namespace qv
