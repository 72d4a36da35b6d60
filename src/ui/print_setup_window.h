#pragma once

#include "documents/print_configs.h"
#include "documents/printroutines.h"

#include <QImage>
#include <QWidget>

#include <cstdint>
#include <optional>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace qv {

class Session;

// The page as the print configuration window models it: the page in its orientation and the picture at its
// place, or the outline of the place while no picture is loaded.
class PageView : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;
    void show_place(const QImage& picture, const PicturePlace& place);
    QSize sizeHint() const override { return { 300, 400 }; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage m_picture;
    PicturePlace m_place;
};

// print_setup_new, "print configuration": the configurations of a draw kind, the page with the picture placed on
// it, the four percentages and the name, the moving buttons and the operations on the table prints.
class PrintSetupWindow : public QWidget
{
    Q_OBJECT

public:
    PrintSetupWindow(Session& session, QWidget* parent = nullptr);

    QComboBox* kind_list() const { return m_kinds; }
    QListWidget* config_list() const { return m_configs; }
    QLineEdit* field(const char* name) const;
    QPushButton* button(const char* caption) const;
    QLabel* note() const { return m_note; }
    const PicturePlace& place() const { return m_place; }
    // Chooses the draw kind by its word and lists its configurations.
    void choose_kind(const QString& word);
    // Chooses a configuration's line by its id; false when the list does not show it.
    bool choose_config(std::int64_t idx);
    // The picture to place, as "load draw gif..." loads it.
    void set_picture(const QImage& picture);

public slots:
    void load_draw_gif();
    void apply_fields();
    void save();
    void save_as();
    void remove();
    void set_as_default();
    void print();
    void clear_pic();

private:
    QWidget* build_fields();
    QWidget* build_moves();
    QWidget* build_operations();
    void run_tool(const QString& tool);
    void list_configs(std::optional<std::int64_t> keep);
    void load(std::int64_t idx);
    void place_picture(const PicturePlace& place);
    // flush_positions: the place into the four fields as whole percentages.
    void flush_positions();
    PrintFields typed_fields() const;
    std::optional<PrintKind> chosen_kind() const;
    std::optional<std::int64_t> chosen_idx() const;

    Session& m_session;
    QComboBox* m_kinds;
    QListWidget* m_configs;
    PageView* m_page;
    QLineEdit* m_left;
    QLineEdit* m_top;
    QLineEdit* m_width;
    QLineEdit* m_height;
    QLineEdit* m_name;
    QRadioButton* m_portrait;
    QRadioButton* m_landscape;
    QCheckBox* m_small_steps;
    QLabel* m_note;
    QImage m_picture;
    PicturePlace m_place;
};

} // namespace qv
