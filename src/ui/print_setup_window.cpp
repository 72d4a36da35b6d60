#include "ui/print_setup_window.h"

#include "core/session.h"
#include "documents/load_draw_gif.h"
#include "documents/print_setup.h"
#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace qv {

namespace {

constexpr int idx_role = Qt::UserRole;
// The page's proportions: A4.
constexpr double page_short = 210;
constexpr double page_long = 297;

struct MoveButton
{
    const char* caption;
    PictureMove move;
    int row;
    int column;
};
constexpr MoveButton move_buttons[] = {
    { "up", PictureMove::up, 0, 1 },
    { "left", PictureMove::left, 1, 0 },
    { "right", PictureMove::right, 1, 2 },
    { "down", PictureMove::down, 2, 1 },
    { "width+", PictureMove::width_plus, 3, 0 },
    { "width-", PictureMove::width_minus, 3, 2 },
    { "height+", PictureMove::height_plus, 4, 0 },
    { "height-", PictureMove::height_minus, 4, 2 },
};

constexpr const char* tools[] = { "print", "clear pic", "set or origin 0,0", "expand to fit", "small steps" };

QPushButton* make_button(const char* caption, QWidget* parent)
{
    auto* made = new QPushButton(QString::fromLatin1(caption), parent);
    made->setObjectName(QString::fromLatin1(caption));
    return made;
}

QString number_text(double percent)
{
    return QString::number(whole_number_pct(percent));
}

} // namespace

void PageView::show_place(const QImage& picture, const PicturePlace& place)
{
    m_picture = picture;
    m_place = place;
    update();
}

void PageView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    const bool landscape = m_place.orientation == "landscape";
    const double page_w = landscape ? page_long : page_short;
    const double page_h = landscape ? page_short : page_long;
    const double scale = std::min((width() - 10) / page_w, (height() - 10) / page_h);
    const QRectF page((width() - page_w * scale) / 2, (height() - page_h * scale) / 2, page_w * scale, page_h * scale);
    painter.fillRect(page, Qt::white);
    painter.setPen(Qt::darkGray);
    painter.drawRect(page);
    const QRectF place(page.left() + m_place.left / 100 * page.width(), page.top() + m_place.top / 100 * page.height(),
        m_place.width / 100 * page.width(), m_place.height / 100 * page.height());
    if (!m_picture.isNull()) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
        painter.drawImage(place, m_picture);
    }
    painter.setPen(QPen(Qt::blue, 1, Qt::DashLine));
    painter.drawRect(place);
}

PrintSetupWindow::PrintSetupWindow(Session& session, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_session(session)
    , m_kinds(new QComboBox(this))
    , m_configs(new QListWidget(this))
    , m_page(new PageView(this))
    , m_left(new QLineEdit(this))
    , m_top(new QLineEdit(this))
    , m_width(new QLineEdit(this))
    , m_height(new QLineEdit(this))
    , m_name(new QLineEdit(this))
    , m_portrait(new QRadioButton(QStringLiteral("portrait"), this))
    , m_landscape(new QRadioButton(QStringLiteral("landscape"), this))
    , m_small_steps(new QCheckBox(QStringLiteral("small steps"), this))
    , m_note(new QLabel(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("print_setup_new"));
    setWindowTitle(QStringLiteral("print configuration"));
    close_on_escape(this);

    m_kinds->setObjectName(QStringLiteral("drawkind"));
    m_kinds->addItem(QString());
    for (auto word : draw_kind_words())
        m_kinds->addItem(qs(word));
    m_configs->setObjectName(QStringLiteral("configurations"));
    m_configs->setMinimumWidth(260);
    auto* load_gif = make_button("load draw gif...", this);
    auto* tool_list = new QListWidget(this);
    tool_list->setObjectName(QStringLiteral("tools"));
    for (const char* tool : tools)
        tool_list->addItem(QString::fromLatin1(tool));
    tool_list->setMaximumHeight(tool_list->sizeHintForRow(0) * 5 + 6);

    auto* left = new QVBoxLayout;
    auto* kind_label = new QLabel(QStringLiteral("&draw type/size"), this);
    kind_label->setBuddy(m_kinds);
    left->addWidget(kind_label);
    left->addWidget(m_kinds);
    left->addWidget(m_configs, 1);
    left->addWidget(load_gif);
    left->addWidget(tool_list);

    m_page->setMinimumSize(300, 400);
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(left);
    layout->addWidget(m_page, 1);
    auto* right = new QVBoxLayout;
    right->addWidget(build_fields());
    right->addWidget(build_moves());
    right->addWidget(build_operations());
    right->addStretch();
    layout->addLayout(right);

    connect(m_kinds, &QComboBox::currentTextChanged, this, [this] { list_configs(std::nullopt); });
    connect(m_configs, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
        if (item)
            load(item->data(idx_role).toLongLong());
    });
    connect(load_gif, &QPushButton::clicked, this, &PrintSetupWindow::load_draw_gif);
    connect(tool_list, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { run_tool(item->text()); });

    // Tab reads the left column, then the configuration, the moves and the operations.
    std::vector<QWidget*> chain { m_kinds, m_configs, load_gif, tool_list, m_name, m_portrait, m_landscape, m_left,
        m_top, m_width, m_height, button("apply l,t,w,h") };
    for (const auto& each : move_buttons)
        chain.push_back(button(each.caption));
    chain.push_back(m_small_steps);
    for (const char* caption : { "save", "save as", "delete", "set as default", "close" })
        chain.push_back(button(caption));
    set_tab_chain(chain);
    place_picture(clear_settings());
    resize(sizeHint().expandedTo(QSize(900, 620)));
}

QWidget* PrintSetupWindow::build_fields()
{
    auto* box = new QGroupBox(QStringLiteral("configuration"), this);
    auto* form = new QFormLayout(box);
    m_name->setObjectName(QStringLiteral("name"));
    form->addRow(QStringLiteral("&name"), m_name);
    auto* orientation = new QHBoxLayout;
    orientation->addWidget(m_portrait);
    orientation->addWidget(m_landscape);
    form->addRow(orientation);
    const std::pair<QLineEdit*, const char*> fields[]
        = { { m_left, "left%" }, { m_top, "top%" }, { m_width, "width%" }, { m_height, "height%" } };
    for (auto [edit, caption] : fields) {
        edit->setObjectName(QString::fromLatin1(caption));
        edit->setMaximumWidth(80);
        form->addRow(QString::fromLatin1(caption), edit);
        connect(edit, &QLineEdit::returnPressed, this, &PrintSetupWindow::apply_fields);
    }
    auto* apply = make_button("apply l,t,w,h", box);
    apply->setToolTip(QStringLiteral("place the picture by the four values (Enter in a field)"));
    form->addRow(apply);
    form->addRow(m_note);
    connect(apply, &QPushButton::clicked, this, &PrintSetupWindow::apply_fields);
    for (auto* radio : { m_portrait, m_landscape })
        connect(radio, &QRadioButton::toggled, this, [this](bool on) {
            if (!on)
                return;
            auto place = m_place;
            place.orientation = m_landscape->isChecked() ? "landscape" : "portrait";
            place_picture(place);
        });
    return box;
}

QWidget* PrintSetupWindow::build_moves()
{
    auto* box = new QGroupBox(QStringLiteral("move"), this);
    auto* grid = new QGridLayout(box);
    for (const auto& each : move_buttons) {
        auto* moving = make_button(each.caption, box);
        // Holding a button repeats its step.
        moving->setAutoRepeat(true);
        grid->addWidget(moving, each.row, each.column);
        const auto move = each.move;
        connect(moving, &QPushButton::clicked, this,
            [this, move] { place_picture(move_picture(m_place, move, m_small_steps->isChecked())); });
    }
    grid->addWidget(m_small_steps, 5, 0, 1, 3);
    return box;
}

QWidget* PrintSetupWindow::build_operations()
{
    auto* box = new QWidget(this);
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    const std::pair<const char*, void (PrintSetupWindow::*)()> operations[] = {
        { "save", &PrintSetupWindow::save },
        { "save as", &PrintSetupWindow::save_as },
        { "delete", &PrintSetupWindow::remove },
        { "set as default", &PrintSetupWindow::set_as_default },
    };
    for (auto [caption, slot] : operations) {
        auto* made = make_button(caption, box);
        column->addWidget(made);
        connect(made, &QPushButton::clicked, this, slot);
    }
    auto* close_button = make_button("close", box);
    column->addSpacing(10);
    column->addWidget(close_button);
    connect(close_button, &QPushButton::clicked, this, &QWidget::close);
    return box;
}

QLineEdit* PrintSetupWindow::field(const char* name) const
{
    return findChild<QLineEdit*>(QString::fromLatin1(name));
}

QPushButton* PrintSetupWindow::button(const char* caption) const
{
    return findChild<QPushButton*>(QString::fromLatin1(caption));
}

void PrintSetupWindow::choose_kind(const QString& word)
{
    m_kinds->setCurrentText(word);
}

bool PrintSetupWindow::choose_config(std::int64_t idx)
{
    for (int row = 0; row < m_configs->count(); ++row)
        if (m_configs->item(row)->data(idx_role).toLongLong() == idx) {
            m_configs->setCurrentRow(row);
            return true;
        }
    return false;
}

void PrintSetupWindow::set_picture(const QImage& picture)
{
    m_picture = picture;
    m_page->show_place(m_picture, m_place);
}

std::optional<PrintKind> PrintSetupWindow::chosen_kind() const
{
    return draw_kind_from_word(to_std(m_kinds->currentText()));
}

std::optional<std::int64_t> PrintSetupWindow::chosen_idx() const
{
    const auto* item = m_configs->currentItem();
    if (!item || !item->isSelected())
        return std::nullopt;
    return item->data(idx_role).toLongLong();
}

void PrintSetupWindow::list_configs(std::optional<std::int64_t> keep)
{
    const QSignalBlocker quiet(m_configs);
    m_configs->clear();
    m_note->clear();
    const auto kind = chosen_kind();
    if (!kind)
        return;
    for (const auto& config : list_print_configs(m_session.init_db(), *kind)) {
        auto* item = new QListWidgetItem(qs(print_config_line(config)), m_configs);
        item->setData(idx_role, QVariant::fromValue<qlonglong>(config.idx));
    }
    if (keep && choose_config(*keep))
        load(*keep);
}

void PrintSetupWindow::load(std::int64_t idx)
{
    const auto config = load_print_config(m_session.init_db(), m_session.talk(), idx);
    if (!config) {
        list_configs(std::nullopt);
        return;
    }
    m_name->setText(qs(config->name));
    place_picture(place_of(*config));
    m_note->setText(config->system ? QStringLiteral("system config, cannot edit") : QString());
    button("save")->setEnabled(!config->system);
}

void PrintSetupWindow::place_picture(const PicturePlace& place)
{
    m_place = place;
    {
        const QSignalBlocker quiet_portrait(m_portrait);
        const QSignalBlocker quiet_landscape(m_landscape);
        (place.orientation == "landscape" ? m_landscape : m_portrait)->setChecked(true);
    }
    m_page->show_place(m_picture, m_place);
    flush_positions();
}

void PrintSetupWindow::flush_positions()
{
    m_left->setText(number_text(m_place.left));
    m_top->setText(number_text(m_place.top));
    m_width->setText(number_text(m_place.width));
    m_height->setText(number_text(m_place.height));
}

PrintFields PrintSetupWindow::typed_fields() const
{
    return { to_std(m_name->text()), to_std(m_left->text()), to_std(m_top->text()), to_std(m_width->text()),
        to_std(m_height->text()), m_landscape->isChecked() ? "landscape" : "portrait" };
}

void PrintSetupWindow::load_draw_gif()
{
    if (!chosen_kind()) {
        m_session.talk().message("drawtype, drawsize not recognized");
        return;
    }
    if (const auto picture = open_gif_draw(m_session))
        set_picture(*picture);
}

void PrintSetupWindow::apply_fields()
{
    const auto fields = typed_fields();
    if (!validate_4(m_session.talk(), fields))
        return;
    place_picture({ fields.orientation, static_cast<double>(*percentage(fields.left)),
        static_cast<double>(*percentage(fields.top)), static_cast<double>(*percentage(fields.width)),
        static_cast<double>(*percentage(fields.height)) });
}

void PrintSetupWindow::save()
{
    const auto idx = chosen_idx();
    if (!idx) {
        m_session.talk().message("select configuration");
        return;
    }
    if (save_print_config(m_session, *idx, typed_fields()))
        list_configs(idx);
}

void PrintSetupWindow::save_as()
{
    const auto kind = chosen_kind();
    if (!kind) {
        m_session.talk().message("drawtype, drawsize not recognized");
        return;
    }
    if (const auto idx = save_print_config_as(m_session, *kind, typed_fields()))
        list_configs(idx);
}

void PrintSetupWindow::remove()
{
    const auto kind = chosen_kind().value_or(PrintKind {});
    if (delete_print_config(m_session, kind, chosen_idx()))
        list_configs(std::nullopt);
}

void PrintSetupWindow::set_as_default()
{
    const auto kind = chosen_kind().value_or(PrintKind {});
    const auto idx = chosen_idx();
    if (set_print_config_default(m_session, kind, idx))
        list_configs(idx);
}

void PrintSetupWindow::print()
{
    print_setup_print(m_session, m_picture, m_place);
}

void PrintSetupWindow::clear_pic()
{
    m_picture = QImage();
    place_picture(clear_settings());
}

void PrintSetupWindow::run_tool(const QString& tool)
{
    if (tool == QLatin1String("print"))
        print();
    else if (tool == QLatin1String("clear pic"))
        clear_pic();
    else if (tool == QLatin1String("set or origin 0,0"))
        place_picture(set_origin_0_0(m_place));
    else if (tool == QLatin1String("expand to fit"))
        place_picture(expand_to_fit(m_place));
    else if (tool == QLatin1String("small steps"))
        m_small_steps->toggle();
}

} // namespace qv
