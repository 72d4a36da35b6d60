#pragma once

#include "drawengine/seeding_patterns.h"

#include <QDialog>
#include <QPointer>

#include <cstdint>
#include <optional>
#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace qv {

class Session;

// The position list both pattern windows show, one "pos,seed" line per slot; the lines are what gets saved.
class PositionList
{
public:
    explicit PositionList(QListWidget* list)
        : m_list(list)
    {
    }
    std::vector<SeedPosition> positions() const;
    void show(const std::vector<SeedPosition>& positions);
    std::optional<std::size_t> chosen() const;

private:
    QListWidget* m_list;
};

// "new seeding pattern": a size, a name and the seeds of the slots.
class NewSeedingPatternWindow : public QDialog
{
    Q_OBJECT

public:
    NewSeedingPatternWindow(Session& session, QWidget* parent = nullptr);

    QListWidget* sizes() const { return m_sizes; }
    QListWidget* positions() const { return m_positions; }
    QLineEdit* name_box() const { return m_name; }
    QLineEdit* seed_box() const { return m_seed; }
    QPushButton* button(const QString& caption) const;

signals:
    void patternSaved(qint64 idx, int drawsize);

public slots:
    void choose_size(int row);
    void set();
    void clear();
    void save();

private:
    std::optional<int> chosen_size() const;

    Session& m_session;
    QListWidget* m_sizes;
    QLabel* m_heading;
    QListWidget* m_positions;
    PositionList m_lines;
    QLineEdit* m_seed;
    QLineEdit* m_name;
};

// "seeding patterns": the sizes, the patterns of the chosen size and the slots of the chosen pattern.
class SeedingPatternsWindow : public QDialog
{
    Q_OBJECT

public:
    SeedingPatternsWindow(Session& session, QWidget* parent = nullptr);

    QListWidget* sizes() const { return m_sizes; }
    QListWidget* patterns() const { return m_patterns; }
    QListWidget* positions() const { return m_positions; }
    QLabel* patterns_heading() const { return m_patterns_heading; }
    QLabel* positions_heading() const { return m_positions_heading; }
    QLineEdit* name_box() const { return m_name; }
    QLineEdit* seed_box() const { return m_seed; }
    QPushButton* button(const QString& caption) const;
    NewSeedingPatternWindow* new_pattern_window() const { return m_new_window; }

public slots:
    void choose_size(int row);
    void choose_pattern(int row);
    void delete_pattern();
    void set_default();
    void save();
    void add_new();
    void clear();
    void set();
    void rename();
    void export_list();
    // Reads the patterns of the chosen size again and chooses idx among them when it is still there.
    void reload_patterns(std::optional<std::int64_t> keep);

private:
    std::optional<int> chosen_size() const;
    std::optional<std::int64_t> chosen_idx() const;
    void enable_editing(bool on);

    Session& m_session;
    QListWidget* m_sizes;
    QLabel* m_patterns_heading;
    QListWidget* m_patterns;
    QLabel* m_positions_heading;
    QListWidget* m_positions;
    PositionList m_lines;
    QLineEdit* m_seed;
    QLineEdit* m_name;
    QPointer<NewSeedingPatternWindow> m_new_window;
};

// Opens "seeding patterns" as a window of its own that deletes itself when closed.
SeedingPatternsWindow* open_seeding_patterns(Session& session, QWidget* parent = nullptr);

} // namespace qv
