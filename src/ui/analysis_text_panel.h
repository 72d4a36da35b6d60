#pragma once

#include "datafiles/results_analysis.h"

#include <QWidget>

#include <string>
#include <vector>

class QPlainTextEdit;

namespace qv {

class ActionList;
class Session;

// The text box of the analysis windows: the list asked for last under its title, printed or saved as it shows.
class AnalysisTextPanel : public QWidget
{
    Q_OBJECT

public:
    AnalysisTextPanel(Session& session, std::string file_name, QWidget* parent = nullptr);

    void show_text(const AnalysisText& text);
    std::vector<std::string> lines() const;
    QPlainTextEdit* box() const { return m_box; }
    ActionList* actions() const { return m_actions; }

private:
    Session& m_session;
    std::string m_file_name;
    std::string m_title;
    QPlainTextEdit* m_box;
    ActionList* m_actions;
};

} // namespace qv
