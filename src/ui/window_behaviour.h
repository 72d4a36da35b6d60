#pragma once

#include <QString>

#include <functional>
#include <vector>

class QDialog;
class QLineEdit;
class QPushButton;
class QWidget;

namespace qv {

// What every small window does alike: Enter does its main action, Esc closes it, Tab follows the eye, it opens
// over the window it came from, sized for what it shows.

// Enter in a box presses main. A button the user has tabbed to takes Enter itself.
void set_main_button(QDialog* window, QPushButton* main);
// A window with no main action: Enter in a box presses nothing.
void no_main_button(QDialog* window);
// Enter in this box runs the action and nothing else (a search box in a window whose main button saves).
void run_on_enter(QLineEdit* box, std::function<void()> action);
// Esc closes a window that is not a dialog; dialogs close on Esc by themselves.
void close_on_escape(QWidget* window);
// Tab goes through the widgets in the order given.
void set_tab_chain(const std::vector<QWidget*>& widgets);
// Wide enough to show this many characters of ordinary text at the box's font.
void fit_characters(QLineEdit* box, int characters);
// The push button of a window that shows this text, or null.
QPushButton* button_with_text(const QWidget* window, const QString& caption);
// Shows a window sized for its content, its centre over the centre of the window it was opened from.
void show_over_parent(QWidget* window);

} // namespace qv
#include "ui/window_behaviour.h"
