#include "ui/options_tab.h"

#include "core/app_options.h"
#include "core/session.h"
#include "drawengine/drawconfig.h"
#include "ui/qt_text.h"
#include "ui/refusal_selection.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

namespace qv {

void repaint_area_markers(Session& session)
{
    if (session.has_tournament() && session.current_area())
        session.ishow_no_refresh(*session.current_area());
}

OptionsTab::OptionsTab(Session& session, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_on_file_save(new QComboBox(this))
    , m_draw_type(new QComboBox(this))
{
    auto& settings = m_session.settings();
    auto* ticks = new QGroupBox(QStringLiteral("options"), this);
    auto* tick_column = new QVBoxLayout(ticks);
    for (const auto& option : tick_options()) {
        auto* box = new QCheckBox(qs(option.caption), ticks);
        box->setChecked(settings.integer(option.key) == 1);
        const std::string key(option.key);
        connect(box, &QCheckBox::toggled, this, [this, key](bool on) {
            m_session.settings().set_disk_var(key, on ? "1" : "0");
            if (key == "app.usefootprint")
                repaint_area_markers(m_session);
        });
        tick_column->addWidget(box);
        m_ticks[key] = box;
    }
    tick_column->addStretch();

    auto* form = new QFormLayout;
    for (auto choice : on_file_save_choices())
        m_on_file_save->addItem(qs(choice));
    for (auto line : draw_type_lines)
        m_draw_type->addItem(qs(line));
    m_on_file_save->setCurrentIndex(settings.integer("on_file_save"));
    m_draw_type->setCurrentIndex(settings.integer("default_draw_type"));
    form->addRow(QStringLiteral("on file save"), m_on_file_save);
    form->addRow(QStringLiteral("default draw type"), m_draw_type);
    connect(m_on_file_save, &QComboBox::currentIndexChanged, this,
        [this](int index) { m_session.settings().set_disk_var("on_file_save", std::to_string(index)); });
    connect(m_draw_type, &QComboBox::currentIndexChanged, this,
        [this](int index) { m_session.settings().set_disk_var("default_draw_type", std::to_string(index)); });

    for (const auto& option : number_options()) {
        auto* box = new QLineEdit(qs(settings.text(option.key)), this);
        box->setMaximumWidth(80);
        form->addRow(qs(option.caption), box);
        m_numbers[std::string(option.key)] = box;
        connect(box, &QLineEdit::editingFinished, this, [this, box, option] {
            if (m_telling)
                return;
            m_telling = true;
            if (const auto refused = set_number_option(m_session, option, to_std(box->text())))
                select_refusal(box, *refused);
            m_telling = false;
        });
    }

    auto* layout = new QHBoxLayout(this);
    layout->addWidget(ticks);
    layout->addLayout(form);
}

} // namespace qv
