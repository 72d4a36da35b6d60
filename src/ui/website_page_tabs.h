#pragma once

#include "online/website_options.h"
#include "ui/area_page.h"

#include <QStringList>

#include <functional>
#include <string>
#include <vector>

class QCheckBox;
class QListWidget;
class QPushButton;
class QVBoxLayout;

namespace qv {

// A page tab of the website: the ticks of its page options, the list it makes pages of (events or days, many
// may be chosen) and its "view" buttons. What the ticks hold is the state of the window, not settings.
class WebsitePageTab : public AreaPage
{
    Q_OBJECT

public:
    // A line of the list and the id it carries (0 for days).
    struct Line
    {
        std::string text;
        std::int64_t id = 0;
    };
    using Loader = std::function<std::vector<Line>(Session&)>;

    WebsitePageTab(Session& session, const QStringList& ticks, const QString& list_caption, Loader loader,
        QWidget* parent = nullptr);

    void init() override;
    void clear() override;
    void refresh_lists(Lists which) override;

    QCheckBox* tick(const QString& caption) const;
    bool ticked(const QString& caption) const;
    void set_ticked(const QString& caption, bool on);
    QListWidget* list() const { return m_list; }
    QPushButton* add_view_button(const QString& caption, std::function<void()> action);
    QPushButton* button(const QString& caption) const;

    // The chosen lines, top to bottom: their texts, or the ids they carry.
    std::vector<std::string> chosen_lines() const;
    std::vector<std::int64_t> chosen_ids() const;
    // The current line's id when it is chosen.
    std::optional<std::int64_t> current_id() const;
    std::optional<std::string> current_line() const;

public slots:
    void load_list();

private:
    Session& m_session;
    Loader m_loader;
    std::vector<QCheckBox*> m_ticks;
    QListWidget* m_list;
    QVBoxLayout* m_buttons;
};

// The four page tabs, as the website tab reads their options.
struct WebsitePageTabs
{
    WebsitePageTab* draws = nullptr;
    WebsitePageTab* schedules = nullptr;
    WebsitePageTab* player_times = nullptr;
    WebsitePageTab* results = nullptr;
};

WebsitePageTabs make_website_page_tabs(Session& session, QWidget* parent);

// What each tab's ticks and list say.
WebsiteDrawOptions draw_options(const WebsitePageTab& tab);
WebsiteScheduleOptions schedule_options(const WebsitePageTab& tab);
WebsitePlayerTimesOptions player_times_options(const WebsitePageTab& tab);
WebsiteResultsOptions results_options(const WebsitePageTab& tab);

} // namespace qv
