#include "ui/control_panel.h"

#include "core/session.h"
#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace qv {

ControlPanel::ControlPanel(Session& session, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_session(session)
    , m_sports(new QListWidget(this))
    , m_save(new QPushButton(QStringLiteral("save"), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("control_panel"));
    setWindowTitle(QStringLiteral("control panel"));

    for (const auto& sport : set_up_sport())
        m_sports->addItem(qs(sport.name));

    static const std::array<const char*, 6> labels { "court", "short", "plural", "match", "short", "plural" };
    auto* form = new QFormLayout;
    for (std::size_t i = 0; i < m_words.size(); ++i) {
        m_words[i] = new QLineEdit(this);
        form->addRow(QString::fromLatin1(labels[i]), m_words[i]);
    }
    form->addRow(QString(), m_save);

    auto* group = new QGroupBox(QStringLiteral("sport"), this);
    auto* inner = new QHBoxLayout(group);
    inner->addWidget(m_sports);
    inner->addLayout(form);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(group);

    set_tab_chain({ m_sports, m_words[0], m_words[1], m_words[2], m_words[3], m_words[4], m_words[5], m_save });
    show_words(current_sport_words(m_session));
    connect(m_sports, &QListWidget::currentRowChanged, this, &ControlPanel::choose_sport);
    connect(m_save, &QPushButton::clicked, this, &ControlPanel::save);
}

SportWords ControlPanel::words() const
{
    return { to_std(m_words[0]->text()), to_std(m_words[1]->text()), to_std(m_words[2]->text()),
        to_std(m_words[3]->text()), to_std(m_words[4]->text()), to_std(m_words[5]->text()) };
}

void ControlPanel::show_words(const SportWords& words)
{
    const auto values = as_array(words);
    for (std::size_t i = 0; i < m_words.size(); ++i)
        m_words[i]->setText(qs(values[i]));
}

void ControlPanel::choose_sport(int row)
{
    const auto& sports = set_up_sport();
    if (row >= 0 && row < static_cast<int>(sports.size()))
        show_words(sports[static_cast<std::size_t>(row)].words);
}

void ControlPanel::save()
{
    const SportWords typed = words();
    const SaveWords result = save_sport_words(m_session, typed);
    if (result == SaveWords::refused) {
        if (const auto refusal = validate_sport_words(typed)) {
            QLineEdit* box = m_words.at(static_cast<std::size_t>(refusal->field));
            box->setFocus();
            if (refusal->refusal.position < 0)
                box->selectAll();
            else
                box->setSelection(utf16_offset(box->text(), refusal->refusal.position),
                    utf16_offset(box->text(), refusal->refusal.position + 1)
                        - utf16_offset(box->text(), refusal->refusal.position));
        }
        return;
    }
    // The restart carries the new words everywhere; this panel must not outlive it.
    if (result == SaveWords::saved_restarting)
        close();
}

} // namespace qv
