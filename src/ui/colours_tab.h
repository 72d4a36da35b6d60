#pragma once

#include <QWidget>

#include <map>
#include <string>

class QPushButton;

namespace qv {

class Session;

// The control panel's colours: each picked in the colour dialog or set back to its default, written at once.
class ColoursTab : public QWidget
{
    Q_OBJECT

public:
    ColoursTab(Session& session, QWidget* parent = nullptr);

    QPushButton* swatch(const std::string& key) const { return m_swatches.at(key); }
    QPushButton* defaults_button(const std::string& key) const { return m_defaults.at(key); }

private:
    void store(const std::string& key, const QColor& color);
    void show_color(const std::string& key);

    Session& m_session;
    std::map<std::string, QPushButton*> m_swatches;
    std::map<std::string, QPushButton*> m_defaults;
};

} // namespace qv
