#include "widgets/Form.h"

#include "platform/DatabaseError.h"
#include "store/Conflict.h"
#include "widgets/ElidedLabel.h"
#include "widgets/WindowPlace.h"

#include <QBoxLayout>
#include <QEvent>
#include <QFocusEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include <exception>
#include <utility>

namespace quorrel {

/// Sees a box of a form lose the focus.
class FormCore::FocusWatch : public QObject {
public:
    FocusWatch(QWidget* box, const FormEvents* form, std::function<void()> left)
        : QObject(box), m_form(form), m_left(std::move(left)) {
        box->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        // A window that loses the focus, or a list that drops down, does not leave the box.
        if (event->type() == QEvent::FocusOut && m_form) {
            const auto reason = static_cast<QFocusEvent*>(event)->reason();
            if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason)
                m_left();
        }
        return false;
    }

private:
    QPointer<const FormEvents> m_form; ///< gone before its boxes are
    std::function<void()> m_left;
};

FormCore::FormCore(QWidget& window, Session& session) : m_session(session), m_window(window) {
    constexpr int moment = 1000;
    m_readLater.setSingleShot(true);
    m_readLater.setInterval(moment);
    QObject::connect(&m_readLater, &QTimer::timeout, &m_events,
                     [this] { Guarded([this] { ReadTyped(); }); });
}

FormCore::~FormCore() = default;

void FormCore::LetGo() {
    m_letGo = true;
    m_window.hide();
    if (m_actions == 0)
        m_window.deleteLater();
}

bool FormCore::MayDrop() {
    const QString unsaved = Unsaved();
    return unsaved.isEmpty() ||
           m_session.boxes.ConfirmsLoss(
               unsaved + QStringLiteral(" is not saved. Leave without saving it?"),
               m_session.ProgramTitle);
}

void FormCore::Leave() {
    m_leaving = true;
    m_window.close();
    m_leaving = false;
}

void FormCore::Guarded(const std::function<void()>& action) {
    const auto tell = [this](const QString& text) {
        Tell({}); // What was done before is no longer the last action.
        m_session.boxes.Message(text, m_session.ProgramTitle, BoxButtons::Ok, BoxIcon::Warning);
    };
    ++m_actions;
    try {
        action();
    } catch (const SystemGone& gone) {
        tell(QString::fromUtf8(gone.what()));
        emit m_events.SystemLost();
    } catch (const ChangedElsewhere& conflict) {
        tell(QString::fromUtf8(conflict.what()));
        // What was typed is in the message; a failure to read is told in turn.
        Guarded([this] { Reload(); });
    } catch (const ProgrammingError& error) {
        tell(QStringLiteral("Quorrel has made a mistake of its own and has not gone on with what "
                            "you asked for. Nothing of it was stored. Please tell those who keep "
                            "the program.\n\n(%1)")
                 .arg(QString::fromUtf8(error.what())));
    } catch (const std::exception& error) {
        tell(QString::fromUtf8(error.what()));
    }
    // A form that was let go while a box of its action was up stays until the action has ended.
    if (--m_actions == 0 && m_letGo)
        m_window.deleteLater();
}

void FormCore::OnLeaving(QWidget* box, std::function<bool()> action) {
    m_boxes[box] = std::move(action);
    new FocusWatch(box, &m_events, [this, box] {
        if (!m_letGo)
            Guarded([&] { m_boxes.at(box)(); });
    });
}

void FormCore::WhileTyping(QLineEdit* box, const std::function<void()>& read) {
    if (!box->isModified()) {
        m_toRead.erase(box);
        read();
        return;
    }
    m_toRead[box] = read;
    if (!m_readLater.isActive())
        ReadTyped();
}

void FormCore::ReadTyped() {
    const auto reads = m_toRead;
    if (std::exchange(m_readsLate, false))
        Tell({});
    try {
        const ShortPatience patience(m_session.Keys());
        for (const auto& [box, read] : reads)
            read();
    } catch (const DatabaseError& error) {
        if (error.kind() != DatabaseError::Kind::Busy)
            throw;
        Tell(QStringLiteral("The file is in use by another workstation. What goes with the typed "
                            "text follows in a moment."));
        m_readsLate = true;
        m_readLater.start();
        return;
    }
    m_toRead.clear();
}

bool FormCore::LeaveBox() {
    if (m_readLater.isActive()) {
        const auto reads = m_toRead;
        for (const auto& [box, read] : reads)
            read();
        m_readLater.stop();
        m_toRead.clear();
        m_readsLate = false;
        Tell(QStringLiteral("What goes with the typed text came up only now. Nothing was done yet: "
                            "look at it, and choose again."));
        return false;
    }
    for (const auto& [box, action] : m_boxes)
        if (box->hasFocus())
            return action();
    return true;
}

void FormCore::OfferHelp(int context, QAbstractButton* button) {
    m_window.setProperty(kHelpContext, context);
    if (button)
        On(button, &QAbstractButton::clicked,
           [this, context] { emit m_events.HelpWanted(context); });
}

void FormCore::OfferFoot() {
    m_foot = new ElidedLabel(&m_window);
    m_foot->setObjectName(QStringLiteral("lblFoot"));
    m_foot->setTextFormat(Qt::PlainText);
    m_foot->setAccessibleName(QStringLiteral("Last action"));
    if (auto* box = qobject_cast<QBoxLayout*>(m_window.layout()))
        box->addWidget(m_foot);
    else if (auto* grid = qobject_cast<QGridLayout*>(m_window.layout()))
        grid->addWidget(m_foot, grid->rowCount(), 0, 1, -1);
}

void FormCore::Tell(const QString& text) {
    if (m_foot)
        m_foot->setText(text);
}

void FormCore::TellDone(const QString& what, const std::function<void()>& show) {
    try {
        show();
    } catch (const DatabaseError& error) {
        m_session.boxes.Message(
            what + QStringLiteral(".\n\nThis window could not be brought up to date after it: ") +
                QString::fromUtf8(error.what()),
            m_session.ProgramTitle, BoxButtons::Ok, BoxIcon::Warning);
    }
    Tell(what);
}

void FormCore::PlaceAt(double left, double above) {
    m_share = {left, above};
}

void FormCore::WindowShown(bool byProgram) {
    if (!byProgram)
        return;
    if (!std::exchange(m_placed, true))
        FitIntoScreen(m_window);
    PlaceWindow(m_window, m_session.Places[m_window.objectName()], m_share);
}

void FormCore::WindowHidden() {
    m_session.Places[m_window.objectName()] = PlaceOf(m_window);
}

bool FormCore::WindowMayClose() {
    if (m_letGo)
        return true;
    Guarded([this] {
        if ((m_leaving || MayDrop()) && Unloading())
            emit m_events.Closed();
    });
    return m_letGo;
}

} // namespace quorrel
