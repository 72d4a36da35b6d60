#include "ui/start_page.h"

#include "ui/qt_text.h"

#include <QCommandLinkButton>
#include <QLabel>
#include <QVBoxLayout>

#include <filesystem>

namespace qv {

StartPage::StartPage(QWidget* parent)
    : QWidget(parent)
    , m_new(new QCommandLinkButton(QStringLiteral("new tournament"),
          QStringLiteral("an empty tournament file, ready for players and events (Ctrl+N)"), this))
    , m_open(new QCommandLinkButton(
          QStringLiteral("open tournament"), QStringLiteral("a tournament file made before (Ctrl+O)"), this))
    , m_no_recent(new QLabel(QStringLiteral("no tournament opened yet"), this))
    , m_recent(new QWidget(this))
    , m_recent_layout(new QVBoxLayout(m_recent))
{
    setObjectName(QStringLiteral("start_page"));
    auto* heading = new QLabel(QStringLiteral("quorvelin"), this);
    QFont big = heading->font();
    big.setPointSizeF(big.pointSizeF() * 2);
    big.setBold(true);
    heading->setFont(big);
    auto* about = new QLabel(QStringLiteral("A tournament file (.qvd) holds one tournament: its players, events, "
                                            "entries, draws, schedule and results."),
        this);
    about->setWordWrap(true);
    auto* recent_heading = new QLabel(QStringLiteral("recent tournaments"), this);
    QFont bold = recent_heading->font();
    bold.setBold(true);
    recent_heading->setFont(bold);
    m_recent_layout->setContentsMargins(0, 0, 0, 0);
    m_recent_layout->setSpacing(0);

    auto* column = new QVBoxLayout;
    column->addWidget(heading);
    column->addWidget(about);
    column->addSpacing(12);
    column->addWidget(m_new);
    column->addWidget(m_open);
    column->addSpacing(12);
    column->addWidget(recent_heading);
    column->addWidget(m_no_recent);
    column->addWidget(m_recent);
    column->addStretch();
    auto* centred = new QWidget(this);
    centred->setLayout(column);
    centred->setMaximumWidth(560);
    auto* layout = new QHBoxLayout(this);
    layout->addStretch();
    layout->addWidget(centred, 1);
    layout->addStretch();

    connect(m_new, &QCommandLinkButton::clicked, this, &StartPage::newRequested);
    connect(m_open, &QCommandLinkButton::clicked, this, &StartPage::openRequested);
}

void StartPage::show_recent(const std::vector<std::string>& files)
{
    // Deleted later: the list may be shown anew from a click on one of its own buttons.
    for (auto* button : recent_buttons()) {
        button->hide();
        button->setParent(nullptr);
        button->deleteLater();
    }
    QWidget* previous = m_open;
    for (const auto& file : files) {
        const QString path = qs(file);
        auto* button = new QCommandLinkButton(qs(std::filesystem::path(file).filename().string()), path, m_recent);
        button->setObjectName(QStringLiteral("recent"));
        m_recent_layout->addWidget(button);
        connect(button, &QCommandLinkButton::clicked, this, [this, path] { emit recentChosen(path); });
        // Made later than the rest of the page, yet reached by Tab in the order they stand.
        setTabOrder(previous, button);
        previous = button;
    }
    m_no_recent->setVisible(files.empty());
}

QList<QCommandLinkButton*> StartPage::recent_buttons() const
{
    return m_recent->findChildren<QCommandLinkButton*>(QStringLiteral("recent"));
}

} // namespace qv
