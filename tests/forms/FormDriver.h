// A form's real controls by their names, and what a user does with them.
#pragma once

#include "platform/Windows.h"

#include <QAction>
#include <QApplication>
#include <QListWidget>
#include <QMenuBar>
#include <QWidget>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace korvel {

template <typename Control, typename FormType>
Control& control(FormType& form, const std::string& name) {
    auto* found = dynamic_cast<QWidget&>(form).template findChild<Control*>(QString::fromStdString(name));
    if (found == nullptr) throw std::runtime_error("no control named " + name);
    return *found;
}

// Chooses a menu item as a user can: only where it is enabled.
template <typename FormType>
void choose(FormType& form, const std::string& name) {
    auto& item = control<QAction>(form, name);
    ASSERT_TRUE(item.isEnabled()) << name;
    item.trigger();
}

// Lets events pass until the condition holds; false after ten seconds.
bool waitFor(const std::function<bool()>& condition);

// Shows the form as the active window, so that its controls can take the focus.
void showActive(QWidget& form);
// What Qt has queued, focus and layout among it.
void passEvents();
// With the mouse, in the middle of the control, on the box of a check box, or on a line of the list.
void click(QWidget& control);
void clickLine(QListWidget& list, int line, Qt::KeyboardModifiers keys = Qt::NoModifier);

// The texts of the selected lines, from the top.
std::vector<std::string> selectedLines(const QListWidget& list);

// The menu tree, an item a line: two blanks a level, name, '|', caption.
std::string menuListing(const QMenuBar& bar);
// The names of the items that are greyed, themselves or with their submenu, in the same order.
std::vector<std::string> greyedItems(const QMenuBar& bar);

// Closes the form's window, as its control does.
void closeWindow(ShownForm& form);

// A hidden or shown form that the program has made; fails where there is none.
QWidget& formNamed(const std::string& name);

} // namespace korvel
