#pragma once

#include <QListWidget>

#include <functional>
#include <initializer_list>
#include <map>
#include <utility>

namespace qv {

// A list of operations by caption, as the analysis windows show them: a click runs the line.
class ActionList : public QListWidget
{
public:
    using Actions = std::initializer_list<std::pair<const char*, std::function<void()>>>;

    ActionList(Actions actions, QWidget* parent)
        : QListWidget(parent)
    {
        for (const auto& [caption, action] : actions) {
            addItem(QString::fromLatin1(caption));
            m_actions[QString::fromLatin1(caption)] = action;
        }
        setMaximumHeight(sizeHintForRow(0) * count() + 2 * frameWidth() + 2);
        setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
        connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { run(item->text()); });
    }
    // Runs the line of this caption; a caption the list does not hold does nothing.
    void run(const QString& caption)
    {
        if (const auto found = m_actions.find(caption); found != m_actions.end())
            found->second();
    }

private:
    std::map<QString, std::function<void()>> m_actions;
};

} // namespace qv
