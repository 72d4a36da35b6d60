#include "ui/accounts_tab.h"

#include "core/file_save.h"
#include "core/session.h"
#include "online/accounts.h"
#include "ui/qt_text.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace qv {

namespace {

constexpr int idx_role = Qt::UserRole;

} // namespace

AccountsTab::AccountsTab(Session& session, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_list(new QListWidget(this))
    , m_server(new QLineEdit(this))
    , m_login(new QLineEdit(this))
    , m_password(new QLineEdit(this))
    , m_details(new QPlainTextEdit(this))
{
    m_details->setReadOnly(true);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("server"), m_server);
    form->addRow(QStringLiteral("login"), m_login);
    form->addRow(QStringLiteral("password"), m_password);

    auto* buttons = new QHBoxLayout;
    const std::pair<const char*, void (AccountsTab::*)()> actions[] = { { "add account", &AccountsTab::add_account },
        { "toggle default", &AccountsTab::toggle_default }, { "delete", &AccountsTab::delete_account },
        { "refresh account data", &AccountsTab::refresh_account_data }, { "save list", &AccountsTab::save_list } };
    for (const auto& [caption, slot] : actions) {
        auto* button = new QPushButton(QString::fromLatin1(caption), this);
        button->setObjectName(QString::fromLatin1(caption));
        connect(button, &QPushButton::clicked, this, slot);
        buttons->addWidget(button);
    }
    buttons->addStretch();

    auto* right = new QVBoxLayout;
    right->addLayout(form);
    right->addWidget(m_details);
    auto* top = new QHBoxLayout;
    top->addWidget(m_list, 1);
    top->addLayout(right, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(buttons);

    for (auto* box : { m_server, m_login, m_password })
        connect(box, &QLineEdit::returnPressed, this, &AccountsTab::add_account);
    connect(m_list, &QListWidget::currentRowChanged, this, &AccountsTab::show_selected);
    reload();
}

QPushButton* AccountsTab::button(const QString& caption) const
{
    return findChild<QPushButton*>(caption);
}

void AccountsTab::reload(std::optional<std::int64_t> select)
{
    const QSignalBlocker blocker(m_list);
    m_list->clear();
    for (const auto& account : load_accounts(m_session.init_db())) {
        auto* item = new QListWidgetItem(
            qs(account.custid + "   " + account.servlet + (account.is_default ? "   default" : "")), m_list);
        item->setData(idx_role, static_cast<qlonglong>(account.idx));
        if (select && *select == account.idx)
            m_list->setCurrentItem(item);
    }
    show_selected();
}

void AccountsTab::show_selected()
{
    const auto* item = m_list->currentItem();
    const auto row = item ? find_account(m_session.init_db(), item->data(idx_role).toLongLong()) : std::nullopt;
    if (!row) {
        m_details->clear();
        return;
    }
    m_server->setText(qs(row->servlet));
    m_login->setText(qs(row->custid));
    m_password->setText(qs(row->password));
    QStringList lines;
    for (const auto& line : account_lines({ *row }))
        lines << qs(line);
    m_details->setPlainText(lines.join(QLatin1Char('\n')).trimmed());
}

std::optional<std::int64_t> AccountsTab::selected(std::string_view select_message)
{
    if (const auto* item = m_list->currentItem())
        return item->data(idx_role).toLongLong();
    m_session.talk().message(select_message);
    return std::nullopt;
}

std::optional<std::int64_t> AccountsTab::checked_for_request(std::string_view select_message)
{
    const auto idx = selected(select_message);
    if (!idx)
        return std::nullopt;
    const auto row = find_account(m_session.init_db(), *idx);
    if (!row
        || !local_havecustidpwd(
            m_session, *row, to_std(m_server->text()), to_std(m_login->text()), to_std(m_password->text())))
        return std::nullopt;
    return idx;
}

void AccountsTab::add_account()
{
    const auto result = controlpanel_addaccount(
        m_session, to_std(m_server->text()), to_std(m_login->text()), to_std(m_password->text()));
    if (!result.idx) {
        QLineEdit* box = result.field == AccountField::server ? m_server
            : result.field == AccountField::login             ? m_login
                                                              : m_password;
        box->setFocus();
        box->selectAll();
        return;
    }
    reload(result.idx);
}

void AccountsTab::toggle_default()
{
    if (const auto idx = selected("select account")) {
        qv::toggle_default(m_session, *idx);
        reload(idx);
    }
}

void AccountsTab::delete_account()
{
    if (const auto idx = selected("select account")) {
        if (qv::delete_account(m_session, *idx))
            reload();
    }
}

void AccountsTab::refresh_account_data()
{
    if (const auto idx = checked_for_request("select account")) {
        qv::refresh_account_data(m_session, *idx);
        reload(idx);
    }
}

void AccountsTab::save_list()
{
    std::vector<std::string> lines = account_lines(load_accounts(m_session.init_db()));
    save_text_file_as(m_session, "accounts.txt", m_session.dirs().app, lines);
}

} // namespace qv
