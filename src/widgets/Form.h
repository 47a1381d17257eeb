#pragma once

#include "store/Session.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QDialog>
#include <QGuiApplication>
#include <QScreen>
#include <QShowEvent>

#include <exception>
#include <utility>

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

/// Puts a window on the screen, with these shares of the free room to its left and above it: two
/// halves are the middle, two quarters nearer to the top left corner.
inline void PlaceOnScreen(QWidget& window, double left, double above) {
    const QRect free = window.screen()->availableGeometry();
    window.move(free.x() + static_cast<int>((free.width() - window.width()) * left),
                free.y() + static_cast<int>((free.height() - window.height()) * above));
}

inline void PlaceOnScreen(QWidget& window, double share = 0.5) {
    PlaceOnScreen(window, share, share);
}

/// What every form has in common, over the window class that it is: the session, one place for
/// what a failed event says, and the two moments of a form's life that the rules speak of.
/// A form that is closed is deleted; one that is hidden lives on.
template <class Window>
class FormOver : public Window {
public:
    explicit FormOver(Session& session) : m_session(session) {
        this->setAttribute(Qt::WA_DeleteOnClose);
    }

protected:
    /// The form has come up: shown for the first time, or again.
    virtual void Activated() {}

    /// The form is about to be unloaded. Returning false keeps it open.
    virtual bool Unloading() { return true; }

    /// Runs what an event does. A failure is told in a box and leaves the form as it is.
    template <class Action>
    void Guarded(Action&& action) {
        try {
            action();
        } catch (const std::exception& error) {
            while (QGuiApplication::overrideCursor())
                QGuiApplication::restoreOverrideCursor();
            m_session.boxes.Message(QString::fromUtf8(error.what()), m_session.ProgramTitle,
                                    BoxButtons::Ok, BoxIcon::Warning);
        }
    }

    /// Connects an event of a control to its handler.
    template <class Sender, class Signal, class Action>
    void On(Sender* sender, Signal signal, Action action) {
        QObject::connect(sender, signal, this, [this, action](auto&&... arguments) {
            Guarded([&] {
                if constexpr (std::is_invocable_v<Action, decltype(arguments)...>)
                    action(std::forward<decltype(arguments)>(arguments)...);
                else
                    action();
            });
        });
    }

    void showEvent(QShowEvent* event) override {
        Window::showEvent(event);
        if (!event->spontaneous())
            Guarded([this] { Activated(); });
    }

    void closeEvent(QCloseEvent* event) override {
        bool unload = false; // What could not be stored stays on the form.
        Guarded([&] { unload = Unloading(); });
        event->setAccepted(unload);
    }

    Session& m_session;
};

/// A form other than the main one. Escape closes it as its window button does.
class Form : public FormOver<QDialog> {
    Q_OBJECT

public:
    explicit Form(Session& session) : FormOver<QDialog>(session) {}

    void reject() override { close(); }

signals:
    /// The user wants the help topic of a context number.
    void HelpWanted(int context);

protected:
    /// Gives the form its help topic, for F1 and for its help button.
    void OfferHelp(int context, QAbstractButton* button = nullptr) {
        setProperty(kHelpContext, context);
        if (button)
            On(button, &QAbstractButton::clicked, [this, context] { emit HelpWanted(context); });
    }
};

} // namespace quorrel
