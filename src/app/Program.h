#pragma once

#include "store/Session.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <map>
#include <memory>
#include <vector>

class QWidget;

namespace quorrel {

class FormCore;
class HelpWindow;
class frmCreateFile;
class frmDoors;
class frmFindKey;
class frmLogoff;
class frmMain;
enum class KeyLog;
struct PinningRequest;

/// The flow of the program: the only place that knows all forms. Forms say what they want by
/// signals; this brings up the next form first and only then takes the one before it away. What
/// fails in between is told, and the form that asked stays.
class Program : public QObject {
    Q_OBJECT

public:
    explicit Program(Session& session);
    ~Program() override;

    /// Begins at `frmStart`.
    void Start(bool splash);

    /// The form that is loaded under a name, or null.
    QWidget* LoadedForm(const QString& objectName) const;

    /// Opens the help window at the topic of a context number.
    void ShowHelp(int context);

signals:
    /// The program has ended: all forms are gone and the databases closed.
    void Ended();

protected:
    /// Mouse movement ends idleness, F1 opens the topic of what is in use.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Shows a form in place of the one that asks for it, with what it is to bring up.
    using Opener = std::function<void(QWidget& asking, const QString& subject)>;

    struct Loaded {
        QPointer<QWidget> window;
        FormCore* core; ///< of that window
    };

    void Guarded(const std::function<void()>& action);

    /// Makes a form and takes it into care; it is not shown yet.
    template <class FormType, class... Arguments>
    FormType* Load(Arguments&&... arguments);
    /// What happens when the user leaves a form, before it goes.
    void WhenClosed(QWidget& window, const std::function<void()>& action);
    /// Runs a slot of a form's signal.
    template <class FormType, class Signal, class Action>
    void When(FormType* form, Signal signal, Action action);

    /// Puts a form on the screen in place of others: the ones that lead to it hide and come back
    /// when it is left, or go for good.
    void ShowOver(QWidget& next, QWidget& opener);
    void ShowInsteadOf(QWidget& next, QWidget* former);
    void BringBack(QWidget& window);
    FormCore& CoreOf(QWidget& window) const;

    template <class FormType, class... Arguments>
    FormType* Open(QWidget& asking, Arguments&&... arguments);

    void FilesNotFound(QWidget& start, const QString& failure);
    void ShowFirst(QWidget& former);
    void ShowLogon(QWidget& former);
    void ShowSystems(QWidget* former);
    void ShowCreate(QWidget* former);
    void ShowMain(QWidget& former);
    void WatchMain(frmMain& main);
    void LeaveGoneSystem();
    void ShowPinning(const PinningRequest& request);
    frmDoors* LoadDoors();
    void ShowFind(QWidget& asking);
    frmFindKey* LoadFind();
    void ShowFromFind(QWidget& next);
    void ShowPinSizesBeside(frmCreateFile& create, const QString& brand);
    void ShowNetwork(QWidget* asking);
    void ShowLogoff();
    HelpWindow& Help();
    void End();
    void FinishEnd();

    std::map<QString, Opener> FormsOfMain();

    Session& m_session;
    /// The forms that working forms lead to, and what shows them.
    const std::map<QString, Opener> m_openers;
    std::vector<Loaded> m_forms;
    QPointer<frmMain> m_main;
    QPointer<frmFindKey> m_find; ///< hidden while what it has found is on the screen
    QPointer<frmLogoff> m_logoff;
    std::unique_ptr<HelpWindow> m_help;
    bool m_ended = false;
};

} // namespace quorrel
