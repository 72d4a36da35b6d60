#pragma once

#include "drawengine/open_draw.h"
#include "drawengine/rr_draw.h"

#include <QWidget>

#include <functional>

class QLabel;
class QPushButton;
class QTableWidget;
class QTableWidgetItem;

namespace qv {

class Session;

// The columns of the match list.
enum class RrColumn { match = 0, top, bottom, points1, points2, score };

// The open round robin on screen: the mode line, the player table, the grid of wins by player number, the
// match list and the standings. A click on a name in the match list marks or unmarks the winner; the points and score
// boxes take typing when the mode leaves them open. Every act goes to the round-robin operations, which write the
// shadow columns of a saved draw, and then the owner is told so that its save button can show the change.
class RrDrawView : public QWidget
{
    Q_OBJECT

public:
    using Changed = std::function<void()>;

    RrDrawView(
        Session& session, DrawState& draw, OpenRoundRobin& rr, Changed on_change = {}, QWidget* parent = nullptr);

    // Takes everything again from the model.
    void refresh();

    QLabel* drawtype_label() const { return m_drawtype; }
    // One row per player: number, player, country, ar, frn, psex.
    QTableWidget* players() const { return m_players; }
    QTableWidget* grid() const { return m_grid; }
    QTableWidget* match_list() const { return m_matches; }
    QTableWidget* standings() const { return m_standings; }
    // Shown only while app.screenscrape is "allow screenscrape".
    QPushButton* screenscrape_button() const { return m_screenscrape; }
    // The match list's cell of a match (1-based) and column.
    QTableWidgetItem* match_cell(int match, RrColumn column) const;

    // The user's acts on a match line, as the cells make them.
    void click_name(int match, RrWinner side);
    // False, changing nothing, when the mode locks the box.
    bool type_points(int match, RrWinner side, const QString& text);
    bool type_score(int match, const QString& text);
    // What the long score window hands back for a line.
    void set_long_score(int match, const QString& score, const QString& longscore);

public slots:
    // "screen scrape": the draw to a text file of the user's choice.
    bool screen_scrape();

signals:
    // A double click on a score box: the long score of that match is wanted.
    void longScoreRequested(int match);

private:
    void cell_clicked(int row, int column);
    void cell_double_clicked(int row, int column);
    void cell_changed(QTableWidgetItem* item);
    void changed();
    void fill_players();
    void fill_grid();
    void fill_matches();
    void fill_standings();

    Session& m_session;
    DrawState& m_draw;
    OpenRoundRobin& m_rr;
    Changed m_on_change;
    bool m_filling = false;

    QLabel* m_drawtype;
    QPushButton* m_screenscrape;
    QTableWidget* m_players;
    QTableWidget* m_grid;
    QTableWidget* m_matches;
    QTableWidget* m_standings;
};

} // namespace qv
