#pragma once

#include <QWidget>

#include <map>
#include <string>

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace qv {

class Session;

// The control panel's options: ticks, two choices and four numbers, each written to its setting at once.
class OptionsTab : public QWidget
{
    Q_OBJECT

public:
    OptionsTab(Session& session, QWidget* parent = nullptr);

    QCheckBox* tick(const std::string& key) const { return m_ticks.at(key); }
    QComboBox* on_file_save() const { return m_on_file_save; }
    QComboBox* default_draw_type() const { return m_draw_type; }
    QLineEdit* number(const std::string& key) const { return m_numbers.at(key); }

private:
    void repaint_markers();

    Session& m_session;
    std::map<std::string, QCheckBox*> m_ticks;
    QComboBox* m_on_file_save;
    QComboBox* m_draw_type;
    std::map<std::string, QLineEdit*> m_numbers;
    bool m_telling = false; // a refusal is on screen: the box losing the focus to it must not ask again
};

// Areas show their markers in the colours and with the footprint the settings say; after a change of those
// settings the markers are painted again.
void repaint_area_markers(Session& session);

} // namespace qv
