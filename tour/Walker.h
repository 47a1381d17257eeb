#pragma once

#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include <deque>
#include <functional>
#include <stdexcept>

class QMenu;

namespace quorrel {
class Program;
}

namespace quorrel::tour {

/// Something on the way was not as it should be.
class WalkFailed : public std::runtime_error {
public:
    explicit WalkFailed(const QString& what) : std::runtime_error(what.toStdString()) {}
};

/// Walks the program's windows like a user: with keys and mouse clicks on controls that it finds
/// by name, looking at what they show. All of it throws `WalkFailed` when it cannot be done.
class Walker {
public:
    /// Pictures go to the folder, which is made when it is not there.
    Walker(const Program& program, const QString& pictureFolder);

    /// Takes one step of the way; a failure within it is told with the step's name.
    void Step(const QString& name, const std::function<void()>& walk);

    /// Waits for a window to be shown, wholly on the screen with all that is in it. All that
    /// follows happens in it.
    void Enter(const char* window);

    /// Waits for a window to be gone from the screen.
    void ExpectGone(const char* window);

    QWidget& Window() const;

    /// A control of the window by its name.
    template <class Control = QWidget>
    Control& Find(const QString& name) const {
        auto* control = Window().findChild<Control*>(name);
        if (!control)
            throw NotFound(name);
        return *control;
    }

    /// Clicks a control with the mouse.
    void Click(const QString& name);

    /// Clicks a line of a list: that of a place, or the first that begins with a text.
    void ClickLine(const QString& name, int line);
    void ClickLine(const QString& name, const QString& begin);

    /// Replaces the text of a control by typing.
    void Type(const QString& name, const QString& text);

    /// Presses a key in a control.
    void Press(const QString& name, Qt::Key key);

    /// Presses a key in the window itself.
    void Press(Qt::Key key);

    /// Opens a menu of the menu bar and clicks one of its lines.
    void ChooseFromMenu(const char* menu, const char* action);

    /// The next action brings up a message box: it must contain the text, is kept as a picture and
    /// gets the answer.
    void ExpectBox(const QString& text, QMessageBox::StandardButton answer, const QString& picture);

    /// The next action brings up a file dialog: the path is typed into it.
    void ExpectFileDialog(const QString& path, const QString& picture);

    /// The next action brings up an input box: the text is typed into it.
    void ExpectInput(const QString& text, const QString& picture);

    /// Keeps a picture of the window.
    void Picture(const QString& name);

    /// Keeps a picture of a menu of the menu bar.
    void PictureOfMenu(const char* menu, const QString& name);

    void Check(bool fact, const QString& what) const;
    void CheckText(const QString& control, const QString& expected) const;
    void CheckContains(const QString& control, const QString& part) const;
    void CheckFocus(const QString& control) const;

    /// What a control shows as its text.
    QString TextOf(const QString& control) const;

private:
    void CheckFit() const;

    enum class Dialog { Box, Files, Input };
    struct Expected {
        Dialog dialog;
        QString text; ///< what a box says, or what is to be typed
        QMessageBox::StandardButton answer;
        QString picture;
    };

    QWidget* ShownWindow(const QString& name) const;
    WalkFailed NotFound(const QString& name) const;
    QWidget& Usable(const QString& name) const;
    void Activate() const;
    QMenu& OpenMenu(const char* menu);
    void Settle();
    void Watch();
    void Meet(QWidget& dialog);
    void Answer(QMessageBox& box, const Expected& expected);
    void TypeInto(QDialog& dialog, const Expected& expected);
    void Keep(QWidget& window, const QString& name);
    void Note(const QString& failure);

    const Program& m_program;
    QString m_pictures;
    QPointer<QWidget> m_window;
    QTimer m_watch;
    QPointer<QWidget> m_met; ///< the dialog that was there when last looked
    std::deque<Expected> m_expected;
    QString m_failure; ///< what went wrong where nothing can be thrown
    QString m_step;
    int m_count = 0;
};

} // namespace quorrel::tour
