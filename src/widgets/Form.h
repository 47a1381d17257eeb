#pragma once

#include "store/Session.h"

#include <QAbstractButton>
#include <QAction>
#include <QCloseEvent>
#include <QDialog>
#include <QGuiApplication>
#include <QPointer>
#include <QShowEvent>
#include <QTimer>

#include <functional>
#include <map>
#include <type_traits>
#include <utility>

class QLabel;
class QLineEdit;

namespace quorrel {

/// Name of the property that holds the help topic of a window or of one of its controls.
inline constexpr const char* kHelpContext = "helpContext";

/// Shows the hourglass pointer for as long as it lives.
class BusyPointer {
public:
    BusyPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyPointer() { QGuiApplication::restoreOverrideCursor(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};

/// What every form tells the program. It shows nothing and hides nothing itself: the program
/// brings up what comes next first, and lets the form go only when that stands.
class FormEvents : public QObject {
    Q_OBJECT

signals:
    /// The user wants the help topic of a context number.
    void HelpWanted(int context);
    /// The user has left the form, and nothing speaks against it.
    void Closed();
    /// Another workstation has deleted the open key system.
    void SystemLost();
};

/// What every form has, whichever window class it is: the session, one place for what a failed
/// event says, the boxes that do something when they are left, the question before typed text is
/// dropped, a line at its foot, and its place on the screen.
class FormCore {
public:
    FormCore(const FormCore&) = delete;
    FormCore& operator=(const FormCore&) = delete;
    virtual ~FormCore();

    FormEvents& Events() { return m_events; }

    /// Takes the form off the screen and out of memory, without a question.
    void LetGo();

protected:
    FormCore(QWidget& window, Session& session);

    /// The form has come up: shown for the first time, or again.
    virtual void Activated() {}

    /// The user leaves the form. Returning false keeps it open.
    virtual bool Unloading() { return true; }

    /// Names what would be lost if the form were left now, as in "What you have typed for door
    /// A-101"; empty when what it shows is what is stored.
    virtual QString Unsaved() const { return {}; }

    /// What the form shows is not what the file holds. Reads it anew.
    virtual void Reload() {}

    /// Asks before what was typed is dropped. True when nothing would be lost, or may be.
    bool MayDrop();

    /// Leaves the form by a command that does so without a question, such as "Done".
    void Leave();

    /// Runs what an event does. A failure is told in a box and leaves the form as it is; one that
    /// comes of another workstation shows what holds now.
    void Guarded(const std::function<void()>& action);

    /// What is to happen when a box of the form is left: by the focus going elsewhere within the
    /// window, and before any command of the form acts, since neither a shortcut nor the Enter key
    /// moves the focus. `action` returning false keeps the command from acting.
    void OnLeaving(QWidget* box, std::function<bool()> action);

    /// Connects an event of a control to its handler.
    template <class Sender, class Signal, class Action>
    void On(Sender* sender, Signal signal, Action action) {
        constexpr bool command =
            std::is_base_of_v<QAbstractButton, Sender> || std::is_base_of_v<QAction, Sender>;
        QObject::connect(sender, signal, &m_events, [this, action](auto... arguments) {
            Guarded([&] {
                if (!command || LeaveBox())
                    Call(action, arguments...);
            });
        });
    }

    /// Reads what goes with the text of a box while that is typed. A file that is in use keeps
    /// nobody from typing on: the foot says so, and it is read a moment later. A command that
    /// finds it unread reads it instead of acting. `read` takes the text that stands in the box by
    /// then. What goes with a text that the program has put there is read at once.
    void WhileTyping(QLineEdit* box, const std::function<void()>& read);

    /// Gives the form its help topic, for F1 and for its help button.
    void OfferHelp(int context, QAbstractButton* button = nullptr);

    /// Gives the form a line at its foot, in which `Tell` says what was stored.
    void OfferFoot();
    void Tell(const QString& text);
    /// Says what was stored, after `show` has read anew what the form shows of it. It stays stored
    /// when that cannot be read, and the message says so.
    void TellDone(const QString& what, const std::function<void()>& show);

    /// Where the form comes up for the first time, as shares of the free room to its left and
    /// above it: two halves are the middle. Later it comes back to where the user left it.
    void PlaceAt(double left, double above);

    // The moments of a window's life, for the class that is the window.
    void WindowShown(bool byProgram);
    void WindowHidden();
    bool WindowMayClose();

    Session& m_session;

private:
    class FocusWatch;

    /// Calls a handler, with what its signal carries if it takes that.
    template <class Action, class... Arguments>
    static void Call(Action& action, Arguments&... arguments) {
        if constexpr (std::is_invocable_v<Action, Arguments...>)
            action(arguments...);
        else
            action();
    }

    /// Does what leaving the box with the focus does. False when the command is not to act.
    bool LeaveBox();
    void ReadTyped();

    QWidget& m_window;
    FormEvents m_events;
    std::map<QWidget*, std::function<bool()>> m_boxes;    ///< and what leaving them does
    std::map<QLineEdit*, std::function<void()>> m_toRead; ///< of boxes that were typed into
    QTimer m_readLater;
    bool m_readsLate = false; ///< the foot says so
    QLabel* m_foot = nullptr;
    std::pair<double, double> m_share{0.5, 0.5}; ///< of the free room, left and above
    bool m_placed = false;
    bool m_leaving = false; ///< by a command that asks no question
    int m_actions = 0;      ///< that are under way, one within another
    bool m_letGo = false;
};

/// A form over the window class that it is.
template <class Window>
class FormOver : public Window, public FormCore {
public:
    explicit FormOver(Session& session) : FormCore(static_cast<QWidget&>(*this), session) {}

protected:
    void showEvent(QShowEvent* event) override {
        WindowShown(!event->spontaneous());
        Window::showEvent(event);
        if (!event->spontaneous())
            Guarded([this] { Activated(); });
    }

    void hideEvent(QHideEvent* event) override {
        Window::hideEvent(event);
        if (!event->spontaneous())
            WindowHidden();
    }

    void closeEvent(QCloseEvent* event) override { event->setAccepted(WindowMayClose()); }
};

/// A form other than the main one. Escape closes it as its window button does.
class Form : public FormOver<QDialog> {
    Q_OBJECT

public:
    explicit Form(Session& session) : FormOver<QDialog>(session) {}

    void reject() override { close(); }
};

} // namespace quorrel
