#include "toolkit/desktop/QtWindows.h"

#include "toolkit/forms/Form.h"

#include <QApplication>
#include <QEventLoop>

#include <cstdio>
#include <cstdlib>

namespace korvel {

namespace {

Form& formOf(ShownForm& shown) {
    return dynamic_cast<Form&>(shown);
}

// Queued, so that the form is on the screen when what it does on activation begins.
void activateSoon(Form& form) {
    QMetaObject::invokeMethod(
        &form, [&form] { form.activate(); }, Qt::QueuedConnection);
}

// At once, as nothing more of the program may run: no other handler, no form's end.
[[noreturn]] void endNow(int status) {
    std::fflush(nullptr);
    std::_Exit(status);
}

} // namespace

void QtWindows::showModal(ShownForm& shown) {
    Form& form = formOf(shown);
    QEventLoop loop;
    form.closed = [&loop] { loop.quit(); };
    form.setWindowModality(Qt::ApplicationModal);
    m_shown.push_back(&form);
    form.show();
    form.raise();
    activateSoon(form);
    loop.exec();
    form.closed = {};
    m_shown.pop_back();
    if (!m_shown.empty()) m_shown.back()->activate();
}

void QtWindows::showModeless(ShownForm& shown) {
    Form& form = formOf(shown);
    if (m_shown.empty()) m_shown.push_back(&form);
    form.show();
    form.raise();
    form.activateWindow();
    activateSoon(form);
}

void QtWindows::close(ShownForm& form) {
    formOf(form).close();
}

void QtWindows::endProgram() {
    endNow(EXIT_SUCCESS);
}

void QtWindows::failProgram(const RunTimeError& error) {
    m_dialogs.show({error.message(), "", Icon::critical, Buttons::ok});
    endNow(EXIT_FAILURE);
}

void QtWindows::updateScreen() {
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void QtWindows::passEvents() {
    QApplication::processEvents();
}

} // namespace korvel
