#include "ui/prints_area.h"

#include "core/session.h"
#include "ui/id_lists.h"
#include "ui/pdf_printer.h"
#include "ui/qt_text.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace qv {

namespace {

// The ticks, their settings and what they tell the pictures.
struct Tick
{
    const char* caption;
    const char* key;
    const char* tip;
};
constexpr Tick ticks[] = {
    { "split128", "psd.check1", "a draw of 128 in two halves of 64" },
    { "country", "psd.check2", "the country column of the first round" },
    { "times", "psd.check3", "the day, time and court of matches not yet played" },
};

constexpr const char* action_captions[] = { "save images", "save text" };

} // namespace

PrintsArea::PrintsArea(Session& session, QWidget* parent)
    : AreaPage(parent)
    , m_session(session)
    , m_draws(new QListWidget(this))
    , m_actions(new QListWidget(this))
    , m_copies(new QLineEdit(QStringLiteral("1"), this))
{
    setObjectName(QStringLiteral("prints"));
    auto* title = new QLabel(QStringLiteral("Print draws"), this);
    QFont bold = title->font();
    bold.setBold(true);
    bold.setPointSize(bold.pointSize() + 2);
    title->setFont(bold);

    m_draws->setObjectName(QStringLiteral("draws"));
    m_draws->setSelectionMode(QAbstractItemView::ExtendedSelection);
    auto* all = new QPushButton(QStringLiteral("*"), this);
    all->setObjectName(QStringLiteral("select all"));
    all->setToolTip(QStringLiteral("select all draws"));
    auto* none = new QPushButton(QStringLiteral("-"), this);
    none->setObjectName(QStringLiteral("unselect all"));
    none->setToolTip(QStringLiteral("unselect all draws"));
    auto* marks = new QHBoxLayout;
    marks->addWidget(all);
    marks->addWidget(none);
    marks->addStretch();

    auto* draws_box = new QGroupBox(QStringLiteral("draws"), this);
    auto* draws_column = new QVBoxLayout(draws_box);
    draws_column->addLayout(marks);
    draws_column->addWidget(m_draws, 1);

    auto* columns = new QHBoxLayout;
    columns->addWidget(draws_box, 1);
    columns->addWidget(build_options());
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(title);
    layout->addLayout(columns, 1);

    connect(all, &QPushButton::clicked, m_draws, &QListWidget::selectAll);
    connect(none, &QPushButton::clicked, m_draws, &QListWidget::clearSelection);
    connect(m_actions, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { run_action(item->text()); });
    setTabOrder(m_draws, m_ticks.front());
}

QWidget* PrintsArea::build_options()
{
    auto* box = new QWidget(this);
    box->setMaximumWidth(240);
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    for (const auto& tick : ticks) {
        auto* made = new QCheckBox(QString::fromLatin1(tick.caption), box);
        made->setObjectName(QString::fromLatin1(tick.caption));
        made->setToolTip(QString::fromLatin1(tick.tip));
        column->addWidget(made);
        m_ticks.push_back(made);
        const char* key = tick.key;
        connect(made, &QCheckBox::toggled, this, [this, key](bool on) {
            if (!m_loading)
                m_session.settings().set_disk_var(key, on ? "1" : "0");
        });
    }
    auto* form = new QFormLayout;
    m_copies->setObjectName(QStringLiteral("copies"));
    m_copies->setMaximumWidth(60);
    form->addRow(QStringLiteral("&copies"), m_copies);
    column->addLayout(form);
    auto* print_button = new QPushButton(QStringLiteral("print"), box);
    print_button->setObjectName(QStringLiteral("print"));
    column->addWidget(print_button);
    auto* pdf_button = new QPushButton(QStringLiteral("save as PDF"), box);
    pdf_button->setObjectName(QStringLiteral("save_pdf"));
    column->addWidget(pdf_button);
    column->addSpacing(10);
    m_actions->setObjectName(QStringLiteral("actions"));
    for (const char* action : action_captions)
        m_actions->addItem(QString::fromLatin1(action));
    m_actions->setMaximumHeight(m_actions->sizeHintForRow(0) * 2 + 6);
    column->addWidget(m_actions);
    column->addStretch();
    connect(print_button, &QPushButton::clicked, this, &PrintsArea::print);
    connect(pdf_button, &QPushButton::clicked, this, &PrintsArea::save_pdf);
    connect(m_copies, &QLineEdit::returnPressed, this, &PrintsArea::print);
    return box;
}

QCheckBox* PrintsArea::tick(const char* caption) const
{
    for (auto* box : m_ticks)
        if (box->objectName() == QLatin1String(caption))
            return box;
    return nullptr;
}

void PrintsArea::init()
{
    m_loading = true;
    for (std::size_t i = 0; i < std::size(ticks); ++i)
        m_ticks[i]->setChecked(m_session.settings().integer(ticks[i].key) == 1);
    m_loading = false;
    m_copies->setText(QStringLiteral("1"));
    load_draws();
}

void PrintsArea::clear()
{
    m_draws->clear();
}

void PrintsArea::refresh_lists(Lists which)
{
    if (which == Lists::events || which == Lists::draw)
        load_draws();
}

void PrintsArea::load_draws()
{
    const auto keep = selected_ids(m_draws);
    m_draws->clear();
    if (!m_session.has_tournament())
        return;
    for (const auto& line : events_drawdone_draws(m_session.tournament())) {
        auto* item = add_id_line(m_draws, line.text, line.eid);
        item->setSelected(std::find(keep.begin(), keep.end(), line.eid) != keep.end());
    }
}

PrintsChoice PrintsArea::choice() const
{
    PrintsChoice chosen;
    chosen.eids = selected_ids(m_draws);
    chosen.split128 = m_ticks[0]->isChecked();
    chosen.country = m_ticks[1]->isChecked();
    chosen.times = m_ticks[2]->isChecked();
    chosen.copies = to_std(m_copies->text());
    return chosen;
}

bool PrintsArea::print()
{
    return prints_print(m_session, choice());
}

bool PrintsArea::save_pdf()
{
    return prints_save_pdf(m_session, choice(), pdf_printer);
}

bool PrintsArea::save_images()
{
    return prints_save_images(m_session, choice());
}

bool PrintsArea::save_text()
{
    return prints_save_text(m_session, choice());
}

void PrintsArea::run_action(const QString& action)
{
    if (action == QLatin1String("save images"))
        save_images();
    else if (action == QLatin1String("save text"))
        save_text();
}

} // namespace qv
