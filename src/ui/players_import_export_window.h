#pragma once

#include <QDialog>

class QComboBox;
class QLabel;
class QListWidget;
class QMenu;

namespace qv {

class Session;

// "players import/export": the players by the window's filter, the folder that imported players go into, and the
// menu of the player files and the register's text exports.
class PlayersImportExportWindow : public QDialog
{
    Q_OBJECT

public:
    PlayersImportExportWindow(Session& session, QWidget* parent = nullptr);

    QListWidget* list() const { return m_list; }
    QComboBox* folder() const { return m_folder; }
    QMenu* menu() const { return m_menu; }
    // Runs a line of the menu by its caption.
    void run(const QString& caption);

public slots:
    void refresh();

private:
    void fill_folders();
    void set_filter();
    std::int64_t chosen_fid() const;

    Session& m_session;
    QLabel* m_tag;
    QListWidget* m_list;
    QComboBox* m_folder;
    QMenu* m_menu;
};

PlayersImportExportWindow* open_players_import_export(Session& session, QWidget* parent);

} // namespace qv
