#include "ui/court_windows.h"

#include "core/match_record.h"
#include "core/session.h"
#include "scheduling/court_settings.h"
#include "ui/qt_text.h"
#include "ui/time_choosers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace qv {

namespace {

QPushButton* add_button(QHBoxLayout* row, QWidget* parent, const char* caption, bool main_action)
{
    auto* button = new QPushButton(QString::fromLatin1(caption), parent);
    button->setAutoDefault(main_action);
    button->setDefault(main_action);
    row->addWidget(button);
    return button;
}

} // namespace

SetCourtStartWindow::SetCourtStartWindow(Session& session, std::string sdate, std::int64_t cid,
    const std::string& starttime, std::function<void()> on_saved, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_sdate(std::move(sdate))
    , m_cid(cid)
    , m_on_saved(std::move(on_saved))
    , m_choosers(new TimeChoosers(this))
    , m_scope(new QComboBox(this))
{
    setObjectName(QStringLiteral("setcourt_nm_st"));
    const auto& settings = session.settings();
    const auto court = settings.text("app.generic_court");
    setWindowTitle(qs(court + " start time"));
    for (const auto& scope : start_time_scopes(court, settings.text("app.generic_courts")))
        m_scope->addItem(qs(scope));
    m_choosers->set_choice(parse_starttime(starttime));

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(qs(m_sdate + "  " + court + " " + court_list_cid_word(m_cid)), this));
    layout->addWidget(m_choosers);
    layout->addWidget(m_scope);
    auto* buttons = new QHBoxLayout;
    auto* ok = add_button(buttons, this, "ok", true);
    auto* clear = add_button(buttons, this, "clear", false);
    auto* close = add_button(buttons, this, "close", false);
    layout->addLayout(buttons);
    connect(ok, &QPushButton::clicked, this, &SetCourtStartWindow::save);
    connect(clear, &QPushButton::clicked, m_choosers, &TimeChoosers::clear);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

bool SetCourtStartWindow::save()
{
    const auto scope = static_cast<StartTimeScope>(std::max(0, m_scope->currentIndex()));
    if (!setcourt_nm_st(m_session, m_sdate, m_cid, m_choosers->choice(), scope))
        return false;
    if (m_on_saved)
        m_on_saved();
    accept();
    return true;
}

SetCourtNameWindow::SetCourtNameWindow(Session& session, std::string sdate, std::int64_t cid,
    const std::string& courtname, std::function<void()> on_saved, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_sdate(std::move(sdate))
    , m_cid(cid)
    , m_on_saved(std::move(on_saved))
    , m_name(new QLineEdit(qs(courtname), this))
    , m_all_days(new QCheckBox(this))
{
    setObjectName(QStringLiteral("set_court_name"));
    const auto court = session.settings().text("app.generic_court");
    setWindowTitle(qs(court + " name"));
    m_all_days->setText(qs(court_name_all_days_caption(court)));
    m_name->setMinimumWidth(260);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(qs(court_name_heading(m_cid, court)), this));
    layout->addWidget(m_name);
    layout->addWidget(m_all_days);
    auto* buttons = new QHBoxLayout;
    auto* ok = add_button(buttons, this, "ok", true);
    auto* close = add_button(buttons, this, "close", false);
    layout->addLayout(buttons);
    connect(ok, &QPushButton::clicked, this, &SetCourtNameWindow::save);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

void SetCourtNameWindow::save()
{
    set_court_name(m_session, m_sdate, m_cid, to_std(m_name->text()), m_all_days->isChecked());
    if (m_on_saved)
        m_on_saved();
    accept();
}

} // namespace qv
