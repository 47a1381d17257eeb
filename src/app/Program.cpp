#include "app/Program.h"

#include "access/frmCompanyInfo.h"
#include "access/frmDepartments.h"
#include "access/frmEditHardware.h"
#include "access/frmLogoff.h"
#include "access/frmLogon.h"
#include "access/frmPermissions.h"
#include "doors/frmDoors.h"
#include "holders/frmDBLostKeys.h"
#include "holders/frmKeyUsers.h"
#include "page/frmMain.h"
#include "pinning/frmManufacturer.h"
#include "pinning/frmPinningChart.h"
#include "platform/Files.h"
#include "start/Startup.h"
#include "start/frmAbout.h"
#include "start/frmDrive.h"
#include "start/frmExit.h"
#include "start/frmFirst.h"
#include "start/frmNetwork.h"
#include "start/frmStart.h"
#include "store/DatabaseFiles.h"
#include "systems/KeySystems.h"
#include "systems/frmCreateFile.h"
#include "systems/frmOpenFile.h"
#include "widgets/HelpContexts.h"
#include "widgets/HelpWindow.h"
#include "widgets/Manners.h"

#include <QApplication>
#include <QKeyEvent>

namespace quorrel {

Program::Program(Session& session)
    : m_session(session),
      m_formsOfMain{
          {QStringLiteral("frmAbout"), [this](auto&) { ShowAbout(); }},
          {QStringLiteral("frmCompanyInfo"), [this](auto&) { ShowCompany(true); }},
          {QStringLiteral("frmCreateFile"), [this](auto&) { ShowCreate(); }},
          {QStringLiteral("frmDBLostKeys"), [this](auto&) { ShowLog(KeyLog::Lost); }},
          {QStringLiteral("frmDBReturnKey"), [this](auto&) { ShowLog(KeyLog::Returned); }},
          {QStringLiteral("frmDepartments"), [this](auto&) { ShowDepartments(); }},
          {QStringLiteral("frmEditHardware"), [this](auto&) { ShowEditHardware(); }},
          {QStringLiteral("frmDoors"), [this](auto& label) { ShowDoors(label); }},
          {QStringLiteral("frmExit"), [this](auto&) { ShowExit(); }},
          {QStringLiteral("frmKeyUsers"), [this](auto& number) { ShowKeyUsers(number); }},
          {QStringLiteral("frmManufacturer"), [this](auto& brand) { ShowPinSizes(brand); }},
          {QStringLiteral("frmNetwork"), [this](auto&) { ShowNetwork(); }},
          {QStringLiteral("frmOpenFile"), [this](auto&) { ShowSystems(); }},
          {QStringLiteral("frmPermissions"), [this](auto&) { ShowPermissions(); }}} {
    InstallManners();
    qApp->installEventFilter(this);
}

Program::~Program() {
    for (const auto& form : m_forms) {
        // What hiding makes a form do, it does while it is still whole.
        if (form)
            form->hide();
        delete form.data();
    }
}

/// Takes a new form into care and gives it what every form needs.
template <class FormType>
FormType* Program::Load(FormType* form) {
    std::erase_if(m_forms, [](const QPointer<QWidget>& known) { return known.isNull(); });
    m_forms.emplace_back(form);
    connect(form, &FormType::HelpWanted, this, &Program::ShowHelp);
    return form;
}

QWidget* Program::LoadedForm(const QString& objectName) const {
    for (const auto& form : m_forms)
        if (form && form->objectName() == objectName)
            return form;
    return nullptr;
}

void Program::Start(bool splash) {
    auto* start = Load(new frmStart(m_session));
    connect(start, &frmStart::FilesNotFound, this, [this, start](const QString& failure) {
        start->close();
        FilesNotFound(failure);
    });
    connect(start, &frmStart::FirstRunFound, this, [this, start] {
        ShowFirst();
        start->close();
    });
    connect(start, &frmStart::LogonWanted, this, [this, start] {
        start->close();
        ShowLogon();
    });
    start->Begin(splash);
}

void Program::FilesNotFound(const QString& failure) {
    m_session.boxes.Message(failure, QStringLiteral("Quorrel"), BoxButtons::Ok, BoxIcon::Warning);
    // The settings can point at other key files, but they lie in `Sysinfo.qvx` themselves.
    if (m_session.SysinfoDatabase)
        ShowNetwork();
    else
        End();
}

void Program::ShowFirst() {
    auto* first = Load(new frmFirst(m_session));
    connect(first, &frmFirst::CompanyWanted, this, [this] { ShowCompany(false); });
    connect(first, &frmFirst::Ended, this, &Program::End);
    first->show();
}

void Program::ShowLogon() {
    auto* logon = Load(new frmLogon(m_session));
    connect(logon, &frmLogon::LoggedOn, this, &Program::ShowSystems);
    connect(logon, &frmLogon::Ended, this, &Program::End);
    logon->show();
}

void Program::ShowSystems() {
    if (ListKeySystems(m_session).empty()) {
        ShowCreate();
        return;
    }
    auto* systems = Load(new frmOpenFile(m_session));
    connect(systems, &frmOpenFile::SystemOpened, this, &Program::ShowMain);
    connect(systems, &frmOpenFile::NewSystemWanted, this, &Program::ShowCreate);
    connect(systems, &frmOpenFile::NoSystems, this, &Program::ShowCreate);
    connect(systems, &frmOpenFile::Ended, this, &Program::End);
    systems->show();
}

void Program::ShowCreate() {
    auto* create = Load(new frmCreateFile(m_session));
    connect(create, &frmCreateFile::SystemCreated, this, &Program::ShowMain);
    connect(create, &frmCreateFile::PinSizesWanted, this, &Program::ShowPinSizes);
    connect(create, &frmCreateFile::Cancelled, this, &Program::ShowSystems);
    connect(create, &frmCreateFile::Ended, this, &Program::End);
    create->show();
}

void Program::ShowMain() {
    if (!m_main) {
        m_main = Load(new frmMain(m_session));
        QSet<QString> names;
        for (const auto& form : m_formsOfMain)
            names.insert(form.first);
        m_main->OfferForms(names);
        const auto leadsTo = [this](auto signal, const char* form) {
            connect(m_main, signal, this, [this, form](const QString& subject) {
                ShowFromMain(QLatin1String(form), subject);
            });
        };
        connect(m_main, &frmMain::FormWanted, this,
                [this](const QString& form) { ShowFromMain(form); });
        leadsTo(&frmMain::PinSizesWanted, "frmManufacturer");
        leadsTo(&frmMain::DoorWanted, "frmDoors");
        leadsTo(&frmMain::KeyUserWanted, "frmKeyUsers");
        connect(m_main, &frmMain::LogoffWanted, this, &Program::ShowLogoff);
        connect(m_main, &frmMain::PinningWanted, this, &Program::ShowPinning);
        connect(m_main, &frmMain::HelpIndexWanted, this, &Program::ShowHelpIndex);
    }
    m_main->show();
}

void Program::ShowFromMain(const QString& formName, const QString& subject) {
    m_formsOfMain.at(formName)(subject);
}

void Program::ShowCompany(bool fromMain) {
    if (fromMain)
        m_session.CompanyInfoEmpty = false;
    auto* company = Load(new frmCompanyInfo(m_session));
    connect(company, &frmCompanyInfo::Closed, this, [this, fromMain] {
        if (fromMain)
            ShowMain();
        else
            ShowLogon();
    });
    company->show();
}

void Program::ShowExit() {
    auto* exit = Load(new frmExit(m_session));
    connect(exit, &frmExit::Ended, this, &Program::End);
    connect(exit, &frmExit::Cancelled, this, &Program::ShowMain);
    exit->show();
}

void Program::ShowAbout() {
    auto* about = Load(new frmAbout(m_session, SystemInformationTool()));
    connect(about, &frmAbout::Closed, this, &Program::ShowMain);
    about->show();
}

void Program::ShowLogoff() {
    if (m_logoff)
        return;
    m_logoff = Load(new frmLogoff(m_session));
    connect(m_logoff, &frmLogoff::Ended, this, &Program::End);
    m_logoff->show();
    m_logoff->raise();
    m_logoff->activateWindow();
}

void Program::ShowPinSizes(const QString& brand) {
    auto* sizes = Load(new frmManufacturer(m_session, brand));
    connect(sizes, &frmManufacturer::Closed, this, [this] {
        if (m_main)
            ShowMain();
    });
    sizes->show();
}

void Program::ShowPinning(const PinningRequest& request) {
    auto chart = LoadPinningChart(m_session, request);
    // The chart of a core has always asked for itself once more.
    if (chart && request.IsCore())
        chart = LoadPinningChart(m_session, request);
    if (!chart)
        return;
    auto* form = Load(new frmPinningChart(m_session, *chart));
    connect(form, &frmPinningChart::Closed, this, &Program::ShowMain);
    m_main->hide();
    form->show();
}

void Program::ShowNetwork() {
    m_network = Load(new frmNetwork(m_session));
    connect(m_network, &frmNetwork::MapFolderWanted, this, &Program::ShowDrive);
    // Where the files could not be opened there is nothing to go back to.
    connect(m_network, &frmNetwork::Closed, this, [this] {
        if (m_main)
            ShowMain();
        else
            End();
    });
    m_network->show();
}

void Program::ShowKeyUsers(const QString& number) {
    auto* users = Load(new frmKeyUsers(m_session));
    connect(users, &frmKeyUsers::Closed, this, &Program::ShowMain);
    if (!number.isEmpty())
        users->ShowHolder(number);
    users->show();
}

void Program::ShowDepartments() {
    auto* departments = Load(new frmDepartments(m_session));
    connect(departments, &frmDepartments::Closed, this, &Program::ShowMain);
    departments->show();
}

void Program::ShowEditHardware() {
    auto* hardware = Load(new frmEditHardware(m_session));
    connect(hardware, &frmEditHardware::Closed, this, &Program::ShowMain);
    hardware->show();
}

void Program::ShowLog(KeyLog log) {
    auto* form = Load(new frmDBLostKeys(m_session, log));
    connect(form, &frmDBLostKeys::Closed, this, &Program::ShowMain);
    form->show();
}

void Program::ShowPermissions() {
    auto* permissions = Load(new frmPermissions(m_session));
    connect(permissions, &frmPermissions::Closed, this, [this] {
        if (m_main)
            ShowMain();
    });
    permissions->show();
}

void Program::ShowDrive() {
    auto* drive = Load(new frmDrive(m_session, m_network->MapFolder()));
    connect(drive, &frmDrive::FolderChosen, m_network, &frmNetwork::SetMapFolder);
    connect(drive, &frmDrive::Closed, m_network, &QWidget::show);
    drive->show();
}

void Program::ShowDoors(const QString& label) {
    auto* doors = Load(new frmDoors(m_session));
    connect(doors, &frmDoors::Closed, this, &Program::ShowMain);
    doors->show();
    if (!label.isEmpty())
        doors->AskFor(label);
}

HelpWindow& Program::Help() {
    if (!m_help)
        m_help =
            std::make_unique<HelpWindow>(PathIn(m_session.ProgramFolder, QLatin1String(kHelpFile)));
    return *m_help;
}

void Program::ShowHelp(int context) {
    Help().ShowTopic(context);
}

void Program::ShowHelpIndex() {
    Help().ShowIndex();
}

bool Program::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseMove) {
        m_session.IdleTickCounter = 0;
        // Over whichever window: a box that is open takes the mouse for itself.
        if (m_logoff)
            m_logoff->MouseMoved();
    }
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1 ||
        !watched->isWidgetType())
        return false;
    for (auto* widget = static_cast<QWidget*>(watched); widget; widget = widget->parentWidget()) {
        if (const QVariant context = widget->property(kHelpContext); context.isValid()) {
            ShowHelp(context.toInt());
            return true;
        }
    }
    return false;
}

void Program::End() {
    if (std::exchange(m_ended, true))
        return;
    // Unloaded without asking them: whatever was done is stored already.
    for (auto form = m_forms.rbegin(); form != m_forms.rend(); ++form) {
        if (!*form)
            continue;
        (*form)->hide();
        (*form)->deleteLater();
    }
    m_help.reset();
    CloseDatabases(m_session);
    emit Ended();
}

} // namespace quorrel
