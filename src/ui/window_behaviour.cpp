#include "ui/window_behaviour.h"

#include <QDialog>
#include <QKeyEvent>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>

#include <algorithm>

namespace qv {

namespace {

bool is_enter(const QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent*>(event)->key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

class EnterFilter : public QObject
{
public:
    EnterFilter(QLineEdit* box, std::function<void()> action)
        : QObject(box)
        , m_action(std::move(action))
    {
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (!is_enter(event))
            return false;
        m_action();
        return true;
    }

private:
    std::function<void()> m_action;
};

class EscapeFilter : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape)
            return false;
        static_cast<QWidget*>(watched)->close();
        return true;
    }
};

} // namespace

void set_main_button(QDialog* window, QPushButton* main)
{
    for (auto* button : window->findChildren<QPushButton*>()) {
        button->setDefault(false);
        button->setAutoDefault(true);
    }
    main->setDefault(true);
}

void no_main_button(QDialog* window)
{
    // A dialog makes its first button that may be a default the default one: none may be.
    for (auto* button : window->findChildren<QPushButton*>()) {
        button->setDefault(false);
        button->setAutoDefault(false);
    }
}

void run_on_enter(QLineEdit* box, std::function<void()> action)
{
    box->installEventFilter(new EnterFilter(box, std::move(action)));
}

void close_on_escape(QWidget* window)
{
    // Keys a box does not use rise to its window: Esc pressed anywhere in it arrives here.
    window->installEventFilter(new EscapeFilter(window));
}

void set_tab_chain(const std::vector<QWidget*>& widgets)
{
    QWidget* previous = nullptr;
    for (auto* widget : widgets) {
        if (previous)
            QWidget::setTabOrder(previous, widget);
        previous = widget;
    }
}

void fit_characters(QLineEdit* box, int characters)
{
    const auto metrics = box->fontMetrics();
    // The size hint is seventeen x wide plus the frame and margins: keep the frame and margins.
    const int frame = box->sizeHint().width() - 17 * metrics.horizontalAdvance(QLatin1Char('x'));
    box->setMinimumWidth(metrics.horizontalAdvance(QString(characters, QLatin1Char('n'))) + frame);
}

QPushButton* button_with_text(const QWidget* window, const QString& caption)
{
    for (auto* each : window->findChildren<QPushButton*>())
        if (each->text() == caption)
            return each;
    return nullptr;
}

void show_over_parent(QWidget* window)
{
    // Polish and lay out first, so the size that is centred is the size that shows.
    window->ensurePolished();
    if (auto* layout = window->layout())
        layout->activate();
    // A window given its size on purpose keeps it.
    if (!window->testAttribute(Qt::WA_Resized))
        window->adjustSize();
    if (auto* parent = window->parentWidget()) {
        const QRect anchor = parent->window()->geometry();
        QPoint place = anchor.center() - window->rect().center();
        // A window larger than the one it came from stays on the screen, its title bar within reach.
        if (const auto* screen = parent->window()->screen()) {
            const QRect room = screen->availableGeometry();
            place.setX(std::clamp(place.x(), room.left(), std::max(room.left(), room.right() - window->width())));
            place.setY(std::clamp(place.y(), room.top(), std::max(room.top(), room.bottom() - window->height())));
        }
        window->move(place);
    }
    window->show();
    window->raise();
}

} // namespace qv
