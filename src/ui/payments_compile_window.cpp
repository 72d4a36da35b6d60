#include "ui/payments_compile_window.h"

#include "core/session.h"
#include "payments/compile.h"
#include "ui/qt_text.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace qv {

PaymentsCompileWindow::PaymentsCompileWindow(Session& session, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_compile(new QPushButton(QStringLiteral("compile"), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("payments_compile"));
    setWindowTitle(QStringLiteral("compile payments"));

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("bill a person for each entry that:"), this));
    const int stored = compile_option(m_session.settings());
    for (const auto& criterion : compile_criteria()) {
        auto* button = new QRadioButton(qs(criterion.text), this);
        button->setObjectName(QStringLiteral("option%1").arg(criterion.option));
        button->setChecked(criterion.option == stored);
        layout->addWidget(button);
        m_criteria.push_back(button);
        // Connected after the stored choice is shown, so that showing it writes nothing back.
        connect(button, &QRadioButton::toggled, this, [this, option = criterion.option](bool on) {
            if (on)
                m_session.settings().set_disk_var("payments.opt", std::to_string(option));
        });
    }

    auto* close = new QPushButton(QStringLiteral("close"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_compile);
    buttons->addWidget(close);
    layout->addLayout(buttons);
    m_compile->setDefault(true);
    connect(m_compile, &QPushButton::clicked, this, &PaymentsCompileWindow::compile);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

QRadioButton* PaymentsCompileWindow::criterion(int option) const
{
    const auto& criteria = compile_criteria();
    for (std::size_t i = 0; i < criteria.size(); ++i)
        if (criteria[i].option == option)
            return m_criteria[i];
    return nullptr;
}

bool PaymentsCompileWindow::compile()
{
    int option = compile_option(m_session.settings());
    const auto& criteria = compile_criteria();
    for (std::size_t i = 0; i < criteria.size(); ++i)
        if (m_criteria[i]->isChecked())
            option = criteria[i].option;
    const bool done = qv::compile(m_session, option);
    emit compiled();
    if (done)
        accept();
    return done;
}

} // namespace qv
