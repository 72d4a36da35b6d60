#pragma once

#include <QDialog>

#include <functional>
#include <string>
#include <vector>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace qv {

// The reserves of the event for one first-round slot: "accept" hands the chosen one on.
class ReplacementsWindow : public QDialog
{
    Q_OBJECT

public:
    using Accept = std::function<bool(const std::string& reserve)>;

    ReplacementsWindow(
        const std::string& current, const std::vector<std::string>& reserves, Accept accept, QWidget* parent = nullptr);

    QListWidget* reserves() const { return m_reserves; }
    QPushButton* accept_button() const { return m_accept; }
    void accept_choice();

private:
    QListWidget* m_reserves;
    QPushButton* m_accept;
    Accept m_on_accept;
};

// A small window of text fields over one slot: the slot's full name on top, each field with its current value;
// "accept" hands the fields on and closes when the change was made.
class SlotFieldsWindow : public QDialog
{
    Q_OBJECT

public:
    struct Field
    {
        std::string caption;
        std::string value;
        int max_length = 0; // 0: no limit
    };
    using Accept = std::function<bool(const std::vector<std::string>& values)>;

    SlotFieldsWindow(const std::string& name, const std::string& title, const std::string& current,
        const std::vector<Field>& fields, Accept accept, QWidget* parent = nullptr);

    QLineEdit* field(int index) const { return m_boxes.at(static_cast<std::size_t>(index)); }
    QPushButton* accept_button() const { return m_accept; }
    void accept_values();

private:
    std::vector<QLineEdit*> m_boxes;
    QPushButton* m_accept;
    Accept m_on_accept;
};

} // namespace qv
