#include "ui/clear_data_dialog.h"

#include "core/session.h"
#include "ui/window_behaviour.h"

#include <QCheckBox>
#include <QPushButton>
#include <QVBoxLayout>

#include <string>

namespace qv {

ClearDataDialog::ClearDataDialog(Session& session, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_clear(new QPushButton(QStringLiteral("clear data"), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("cleardata"));
    setWindowTitle(QStringLiteral("clear data"));
    static const std::array<const char*, 5> captions { "delete players and entries", "delete events and entries",
        "delete entries", "delete days", "delete details" };
    auto* layout = new QVBoxLayout(this);
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        m_boxes[i] = new QCheckBox(QString::fromLatin1(captions[i]), this);
        layout->addWidget(m_boxes[i]);
        connect(
            m_boxes[i], &QCheckBox::toggled, this, [this, i](bool checked) { remember(static_cast<int>(i), checked); });
    }
    layout->addWidget(m_clear);
    set_tab_chain({ m_boxes[0], m_boxes[1], m_boxes[2], m_boxes[3], m_boxes[4], m_clear });
    m_boxes[0]->setFocus();
    // It clears data: pressed on purpose only.
    no_main_button(this);
    connect(m_clear, &QPushButton::clicked, this, &ClearDataDialog::clear);

    m_loading = true;
    const auto stored = load_clear_data_ticks(m_session);
    const std::array<bool, 5> ticked { stored.players_and_entries, stored.events_and_entries, stored.entries,
        stored.days, stored.details };
    for (std::size_t i = 0; i < m_boxes.size(); ++i)
        m_boxes[i]->setChecked(ticked[i]);
    m_loading = false;
}

ClearDataTicks ClearDataDialog::ticks() const
{
    return { m_boxes[0]->isChecked(), m_boxes[1]->isChecked(), m_boxes[2]->isChecked(), m_boxes[3]->isChecked(),
        m_boxes[4]->isChecked() };
}

void ClearDataDialog::remember(int index, bool checked)
{
    if (m_loading)
        return;
    m_session.settings().set_disk_var("cdata_" + std::to_string(index + 1), checked ? "1" : "0");
}

void ClearDataDialog::clear()
{
    if (!clear_data(m_session, ticks()))
        return;
    // The session restarts from the main loop; this window must be gone by then.
    hide();
    deleteLater();
}

} // namespace qv
