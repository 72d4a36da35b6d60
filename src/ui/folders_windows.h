#pragma once

#include <QDialog>

#include <cstdint>
#include <functional>

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace qv {

class Session;

// The tick "beep ok" of the folder windows (`folders_beep_ok`), written at once when changed.
QCheckBox* folders_beep_box(Session& session, QWidget* parent);

// "add new folder" (`addnew_folder`): a name and "save". The caller hears of each folder added.
class AddFolderWindow : public QDialog
{
    Q_OBJECT

public:
    using Added = std::function<void(std::int64_t fid)>;

    AddFolderWindow(Session& session, Added on_added, QWidget* parent = nullptr);

    QLineEdit* name() const { return m_name; }
    QPushButton* save_button() const { return m_save; }

public slots:
    bool save();

private:
    Session& m_session;
    Added m_on_added;
    QLineEdit* m_name;
    QPushButton* m_save;
};

// "folders" (`players_folders`): the folders, their players, and add, rename and delete.
class FoldersWindow : public QDialog
{
    Q_OBJECT

public:
    FoldersWindow(Session& session, QWidget* parent = nullptr);

    QListWidget* folders() const { return m_folders; }
    QListWidget* players() const { return m_players; }
    QLineEdit* name() const { return m_name; }

public slots:
    void refresh();
    AddFolderWindow* add_new();
    bool rename();
    bool remove();

private:
    void show_folder();

    Session& m_session;
    QListWidget* m_folders;
    QListWidget* m_players;
    QLineEdit* m_name;
};

// `players_folders_assign`: the players of its filter ("wrt filter", first line "set filter..."), the folders
// and the players of the chosen folder; selected players move into the folder or out of it.
class FoldersAssignWindow : public QDialog
{
    Q_OBJECT

public:
    FoldersAssignWindow(Session& session, QWidget* parent = nullptr);

    QListWidget* filtered() const { return m_filtered; }
    QLabel* filter_tag() const { return m_tag; }
    QListWidget* folders() const { return m_folders; }
    QListWidget* folder_players() const { return m_in_folder; }
    QPushButton* move_in_button() const { return m_move_in; }
    QPushButton* move_out_button() const { return m_move_out; }

public slots:
    void refresh();
    // Opens "players filter" over this window's filter; storing it reads the list again.
    QDialog* set_filter();
    bool move_in();
    bool move_out();

private:
    void load_filtered();
    void load_folder_players();

    Session& m_session;
    QLabel* m_tag;
    QListWidget* m_filtered;
    QListWidget* m_folders;
    QListWidget* m_in_folder;
    QPushButton* m_move_in;
    QPushButton* m_move_out;
};

} // namespace qv
