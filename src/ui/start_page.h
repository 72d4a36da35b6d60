#pragma once

#include <QWidget>

#include <string>
#include <vector>

class QCommandLinkButton;
class QLabel;
class QVBoxLayout;

namespace qv {

// The work area while no tournament is open: a new tournament file, one chosen to open, or one of the files
// opened last.
class StartPage : public QWidget
{
    Q_OBJECT

public:
    explicit StartPage(QWidget* parent = nullptr);

    // The files opened last, newest first.
    void show_recent(const std::vector<std::string>& files);

    QCommandLinkButton* new_button() const { return m_new; }
    QCommandLinkButton* open_button() const { return m_open; }
    QList<QCommandLinkButton*> recent_buttons() const;
    QLabel* no_recent_label() const { return m_no_recent; }

signals:
    void newRequested();
    void openRequested();
    void recentChosen(const QString& path);

private:
    QCommandLinkButton* m_new;
    QCommandLinkButton* m_open;
    QLabel* m_no_recent;
    QWidget* m_recent;
    QVBoxLayout* m_recent_layout;
};

} // namespace qv
