#include "ui/replacement_windows.h"

#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace qv {

namespace {

QHBoxLayout* accept_cancel(QDialog* window, QPushButton* accept)
{
    auto* cancel = new QPushButton(QStringLiteral("cancel"), window);
    cancel->setAutoDefault(false);
    QObject::connect(cancel, &QPushButton::clicked, window, &QDialog::reject);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(accept);
    row->addWidget(cancel);
    return row;
}

} // namespace

ReplacementsWindow::ReplacementsWindow(
    const std::string& current, const std::vector<std::string>& reserves, Accept accept, QWidget* parent)
    : QDialog(parent)
    , m_reserves(new QListWidget(this))
    , m_accept(new QPushButton(QStringLiteral("accept"), this))
    , m_on_accept(std::move(accept))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("replacements"));
    setWindowTitle(QStringLiteral("replacements"));
    m_reserves->setObjectName(QStringLiteral("reserves"));
    for (const auto& name : reserves)
        m_reserves->addItem(qs(name));
    if (m_reserves->count() > 0)
        m_reserves->setCurrentRow(0);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("replace ") + qs(current) + QStringLiteral(" with"), this));
    layout->addWidget(m_reserves, 1);
    layout->addLayout(accept_cancel(this, m_accept));
    set_main_button(this, m_accept);
    connect(m_accept, &QPushButton::clicked, this, &ReplacementsWindow::accept_choice);
    connect(m_reserves, &QListWidget::itemDoubleClicked, this, &ReplacementsWindow::accept_choice);
}

void ReplacementsWindow::accept_choice()
{
    const auto* chosen = m_reserves->currentItem();
    if (!chosen)
        return;
    if (m_on_accept(to_std(chosen->text())))
        accept();
}

SlotFieldsWindow::SlotFieldsWindow(const std::string& name, const std::string& title, const std::string& current,
    const std::vector<Field>& fields, Accept accept, QWidget* parent)
    : QDialog(parent)
    , m_accept(new QPushButton(QStringLiteral("accept"), this))
    , m_on_accept(std::move(accept))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(qs(name));
    setWindowTitle(qs(title));
    auto* form = new QFormLayout;
    form->addRow(new QLabel(qs(current), this));
    for (const auto& field : fields) {
        auto* box = new QLineEdit(qs(field.value), this);
        if (field.max_length > 0)
            box->setMaxLength(field.max_length);
        fit_characters(box, field.max_length > 0 ? field.max_length + 2 : 20);
        form->addRow(qs(field.caption), box);
        m_boxes.push_back(box);
    }
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(accept_cancel(this, m_accept));
    set_main_button(this, m_accept);
    connect(m_accept, &QPushButton::clicked, this, &SlotFieldsWindow::accept_values);
}

void SlotFieldsWindow::accept_values()
{
    std::vector<std::string> values;
    for (const auto* box : m_boxes)
        values.push_back(to_std(box->text()));
    if (m_on_accept(values))
        accept();
}

} // namespace qv
