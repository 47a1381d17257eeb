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

class Form;
class HelpWindow;
class frmLogoff;
class frmMain;
class frmNetwork;
enum class KeyLog;
struct PinningRequest;

/// The flow of the program: the only place that knows all forms. Forms ask for one another by
/// signals; this shows, hides and unloads them.
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
    template <class FormType>
    FormType* Load(FormType* form);
    void ShowFirst();
    void ShowLogon();
    void ShowSystems();
    void ShowCreate();
    void ShowMain();
    void ShowFromMain(const QString& formName, const QString& subject = {});
    void ShowCompany(bool fromMain);
    void ShowExit();
    void ShowAbout();
    void ShowLogoff();
    void ShowPinSizes(const QString& brand);
    void ShowPinning(const PinningRequest& request);
    void ShowNetwork();
    void ShowKeyUsers(const QString& number = {});
    void ShowDepartments();
    void ShowEditHardware();
    void ShowLog(KeyLog log);
    void ShowPermissions();
    void ShowDrive();
    /// Shows the doors, with the door of a label if one is given.
    void ShowDoors(const QString& label = {});
    void ShowHelpIndex();
    void FilesNotFound(const QString& failure);
    HelpWindow& Help();
    void End();

    Session& m_session;
    /// The forms that the main form leads to, and what shows them. Some take what they are to
    /// bring up.
    const std::map<QString, std::function<void(const QString& subject)>> m_formsOfMain;
    std::vector<QPointer<QWidget>> m_forms;
    QPointer<frmMain> m_main;
    QPointer<frmNetwork> m_network;
    QPointer<frmLogoff> m_logoff;
    std::unique_ptr<HelpWindow> m_help;
    bool m_ended = false;
};

} // namespace quorrel
