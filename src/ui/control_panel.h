#pragma once

#include "core/sports_vocabulary.h"

#include <QWidget>

#include <array>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace qv {

class Session;

// "control panel": the sports vocabulary, picked from a list of sports and edited in six boxes.
class ControlPanel : public QWidget
{
    Q_OBJECT

public:
    ControlPanel(Session& session, QWidget* parent = nullptr);

    QListWidget* sports() const { return m_sports; }
    QLineEdit* word_box(int field) const { return m_words.at(static_cast<std::size_t>(field)); }
    QPushButton* save_button() const { return m_save; }
    SportWords words() const;

public slots:
    void choose_sport(int row);
    void save();

private:
    void show_words(const SportWords& words);

    Session& m_session;
    QListWidget* m_sports;
    std::array<QLineEdit*, 6> m_words {};
    QPushButton* m_save;
};

} // namespace qv
