// A form's real controls by their names, and what a user does with them.
#pragma once

#include "platform/Windows.h"

#include <QAction>
#include <QApplication>
#include <QWidget>
#include <gtest/gtest.h>

#include <functional>
#include <string>

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
