#include "ui/feedback_tab.h"

#include "core/session.h"
#include "online/accounts.h"
#include "ui/qt_text.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace qv {

FeedbackTab::FeedbackTab(Session& session, AccountForRequest account, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_account(std::move(account))
    , m_kinds(new QListWidget(this))
    , m_text(new QPlainTextEdit(this))
    , m_send(new QPushButton(QStringLiteral("send"), this))
{
    for (const auto& kind : feedback_kinds())
        m_kinds->addItem(qs(kind.caption));
    m_kinds->setMaximumWidth(160);
    connect(m_kinds, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0 && row < static_cast<int>(feedback_kinds().size()))
            m_text->setPlainText(qs(feedback_kinds()[static_cast<std::size_t>(row)].prompt));
    });
    connect(m_send, &QPushButton::clicked, this, &FeedbackTab::send);

    auto* right = new QVBoxLayout;
    right->addWidget(m_text);
    right->addWidget(m_send, 0, Qt::AlignRight);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_kinds);
    layout->addLayout(right, 1);
}

void FeedbackTab::send()
{
    const auto idx = m_account("select an account on accounts tab");
    if (!idx)
        return;
    const int row = std::max(m_kinds->currentRow(), 0);
    send_feedback(m_session, *idx, feedback_kinds()[static_cast<std::size_t>(row)].type, to_std(m_text->toPlainText()));
}

} // namespace qv
