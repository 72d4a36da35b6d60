#include "ui/addresses_tab.h"

#include "core/app_options.h"
#include "core/session.h"
#include "online/accounts.h"
#include "ui/qt_text.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace qv {

namespace {

constexpr const char* on_accounts_tab = "select account on accounts tab";

} // namespace

AddressesTab::AddressesTab(Session& session, AccountForRequest account, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_account(std::move(account))
    , m_email(new QLineEdit(this))
    , m_old_password(new QLineEdit(this))
    , m_new_password(new QLineEdit(this))
    , m_urls(new QListWidget(this))
    , m_url(new QLineEdit(this))
{
    auto* account_box = new QGroupBox(QStringLiteral("account"), this);
    auto* form = new QFormLayout(account_box);
    auto* email_row = new QHBoxLayout;
    email_row->addWidget(m_email);
    email_row->addWidget(add_button("update server", &AddressesTab::update_email));
    form->addRow(QStringLiteral("account email *"), email_row);
    form->addRow(QStringLiteral("old password"), m_old_password);
    auto* password_row = new QHBoxLayout;
    password_row->addWidget(m_new_password);
    password_row->addWidget(add_button("change password", &AddressesTab::change_password));
    form->addRow(QStringLiteral("new password"), password_row);
    form->addRow(QString(), add_button("get ip address presented to server", &AddressesTab::show_ip_address));
    m_old_password->setEchoMode(QLineEdit::Password);
    m_new_password->setEchoMode(QLineEdit::Password);

    auto* urls_box = new QGroupBox(QStringLiteral("urls"), this);
    for (const auto& url : url_options())
        m_urls->addItem(qs(url.caption));
    m_urls->setMaximumHeight(m_urls->sizeHintForRow(0) * m_urls->count() + 2 * m_urls->frameWidth() + 4);
    auto* url_buttons = new QHBoxLayout;
    url_buttons->addWidget(add_button("update", &AddressesTab::update_url));
    url_buttons->addWidget(add_button("default", &AddressesTab::default_url));
    url_buttons->addStretch();
    auto* urls_column = new QVBoxLayout(urls_box);
    urls_column->addWidget(m_urls);
    urls_column->addWidget(m_url);
    urls_column->addLayout(url_buttons);
    connect(m_urls, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row < 0)
            return;
        const auto& option = url_options().at(static_cast<std::size_t>(row));
        const std::string stored = m_session.settings().text(option.key);
        m_url->setText(qs(stored.empty() ? std::string(option.builtin) : stored));
    });
    connect(m_email, &QLineEdit::returnPressed, this, &AddressesTab::update_email);
    connect(m_new_password, &QLineEdit::returnPressed, this, &AddressesTab::change_password);
    connect(m_url, &QLineEdit::returnPressed, this, &AddressesTab::update_url);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(account_box);
    layout->addWidget(urls_box);
    layout->addStretch();
}

QPushButton* AddressesTab::add_button(const char* caption, void (AddressesTab::*slot)())
{
    auto* button = new QPushButton(QString::fromLatin1(caption), this);
    button->setObjectName(QString::fromLatin1(caption));
    connect(button, &QPushButton::clicked, this, slot);
    return button;
}

QPushButton* AddressesTab::button(const QString& caption) const
{
    return findChild<QPushButton*>(caption);
}

void AddressesTab::update_email()
{
    if (const auto idx = m_account(on_accounts_tab))
        update_account_email(m_session, *idx, to_std(m_email->text()));
}

void AddressesTab::change_password()
{
    if (const auto idx = m_account(on_accounts_tab)) {
        if (qv::change_password(m_session, *idx, to_std(m_old_password->text()), to_std(m_new_password->text()))) {
            m_old_password->clear();
            m_new_password->clear();
            emit accountChanged();
        }
    }
}

void AddressesTab::show_ip_address()
{
    if (const auto idx = m_account(on_accounts_tab))
        qv::show_ip_address(m_session, *idx);
}

void AddressesTab::update_url()
{
    const int row = m_urls->currentRow();
    if (row >= 0)
        qv::update_url(m_session, url_options().at(static_cast<std::size_t>(row)), to_std(m_url->text()));
}

void AddressesTab::default_url()
{
    const int row = m_urls->currentRow();
    if (row < 0)
        return;
    const auto& option = url_options().at(static_cast<std::size_t>(row));
    m_url->setText(qs(option.builtin));
    qv::update_url(m_session, option, option.builtin);
}

} // namespace qv
