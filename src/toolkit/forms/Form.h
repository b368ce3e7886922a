// A form is its controls and its handlers. Controls are members, each made by one builder call that reads as
// a designer's listing: name, caption, place in twips on a screen of 9600 by 6780.
#pragma once

#include "basic/FormScaling.h"
#include "basic/Palette.h"
#include "platform/Platform.h"
#include "toolkit/desktop/Theme.h"
#include "toolkit/forms/Handlers.h"
#include "toolkit/forms/Looks.h"
#include "toolkit/forms/Shape.h"
#include "toolkit/forms/Watches.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

#include <functional>
#include <vector>

namespace korvel {

constexpr Place at(double left, double top, double width, double height) {
    return {left, top, width, height};
}

struct Look {
    double fontSize = looks::designText; // points
    bool bold = false;
    QWidget* in = nullptr; // the frame that holds the control; none: the form
    Qt::Alignment align = Qt::AlignLeft | Qt::AlignVCenter;
    bool wraps = false;
};

// Whether a form's controls stay as they are built or wait for ScaleFormControls, so that nothing is laid out
// twice.
enum class Scaling { none, follows };

class Form : public QMainWindow, public ShownForm {
  public:
    Form(Platform& services, const char* name, const std::string& caption, Scaling scaling = Scaling::none);

    std::string formName() const override { return objectName().toStdString(); }
    void activate() final;
    bool wasActivated() const { return m_activated; }
    std::string caption() const { return windowTitle().toStdString(); }

    // The outer frame, title bar included; fitted to it once the desktop has told the frame's width. Twips.
    void setOuterPlace(const Place& place);
    const Place& outerPlace() const { return m_outer; }

    // What F1 does; nothing while the form is busy.
    void setHelp(std::function<void()> help);
    // The same for Ctrl+E.
    void setExplore(std::function<void()> explore);

    // Called when the form has closed.
    std::function<void()> closed;

  protected:
    // What the form does when it is shown, or shown again after a modal form above it has returned.
    virtual void onActivate() {}
    // Before the form closes; false keeps it open.
    virtual bool onClose() { return true; }
    virtual void onResize() {}
    // The desktop has become light or dark: what has colours of its own takes those of theme().
    virtual void onTheme() {}
    Theme theme() const { return themeOf(palette()); }
    // Works at something during which events pass.
    virtual bool isBusy() const { return false; }
    // Keys that no control took; true when used.
    virtual bool onKey(int, Qt::KeyboardModifiers) { return false; }

    QLabel& label(const char* name, const std::string& caption, Place place, Look look = {});
    QPushButton& button(const char* name, const std::string& caption, Place place, Look look = {});
    QCheckBox& checkBox(const std::string& name, const std::string& caption, Place place, Look look = {});
    QRadioButton& optionButton(const std::string& name, const std::string& caption, Place place,
                               Look look = {});
    QLineEdit& textBox(const std::string& name, const std::string& accessibleName, Place place,
                       Look look = {});
    QListWidget& listBox(const char* name, const std::string& accessibleName, Place place, Look look = {});
    QComboBox& comboBox(const std::string& name, const std::string& accessibleName, Place place,
                        Look look = {});
    QFrame& frame(const char* name, Place place, Look look = {});
    QProgressBar& progressBar(const char* name, Place place, Look look = {});
    Shape& shape(const std::string& name, Shape::Kind kind, Rgb fill, Place place);
    // Any other control, registered with its type's name for the scaling.
    void place(QWidget& control, const std::string& typeName, Place place,
               double fontSize = looks::designText);

    QMenu& submenu(const char* name, const std::string& caption, QMenu* in = nullptr);
    QAction& menuItem(const char* name, const std::string& caption, QMenu* in = nullptr);

    // Rescales every control in place and returns to whole lines in the lists.
    void ScaleFormControls(double scaleX, double scaleY);
    // A list's height is taken down to a whole number of lines.
    static void showWholeLines(QListWidget& list);
    // The window can't be made smaller than it takes to show all controls where they are.
    void keepRoomForControls();
    Place controlPlace(const QWidget& control) const;
    void setControlPlace(QWidget& control, const Place& place);
    // A given ground. What stands on it looks as on a desktop that is as light as this ground.
    static void setBackground(QWidget& control, Rgb colour);
    static void clearBackground(QWidget& control);
    static void setTextColour(QWidget& control, Rgb colour);
    static void setFontSize(QWidget& control, double points, bool bold);

    template <typename Sender, typename Signal, typename Action>
    void on(Sender& sender, Signal signal, Action action) {
        connect(&sender, signal, this, m_handlers.guarded(std::move(action)));
    }
    template <typename Action>
    void onClick(QAction& item, Action action) {
        on(item, &QAction::triggered, std::move(action));
    }
    void onEnter(QWidget& control, std::function<void()> action);
    LeaveWatch& onLeave(QWidget& control, std::function<void()> action);
    // A key that works wherever the focus is in this form.
    void onShortcut(const QKeySequence& keys, std::function<void()> action);
    static void tip(QWidget& control, std::function<std::string()> text);
    static void tip(QWidget& control, const std::string& text);

    QWidget& client() { return *m_client; }
    Platform& services() { return m_services; }
    Handlers& handlers() { return m_handlers; }

    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void onShortcutUnlessBusy(const QKeySequence& keys, std::function<void()> action);
    struct Placed {
        QWidget* control;
        ControlLayout layout;
        bool bold;
    };

    template <typename Control>
    Control& added(Control* control, const std::string& name, const std::string& typeName,
                   const std::string& accessibleName, Place place, const Look& look);
    QWidget* parentFor(const Look& look) const { return look.in != nullptr ? look.in : m_client; }
    void apply(const Placed& placed);
    void fitOuterFrame();

    Platform& m_services;
    Handlers m_handlers;
    QWidget* m_client;
    std::vector<Placed> m_placed;
    Place m_outer;
    Scaling m_scaling;
    bool m_fitted = false;
    bool m_activated = false;
};

} // namespace korvel
