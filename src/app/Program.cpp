#include "app/Program.h"

#include "access/frmCompanyInfo.h"
#include "access/frmDepartments.h"
#include "access/frmEditHardware.h"
#include "access/frmLogoff.h"
#include "access/frmLogon.h"
#include "access/frmPermissions.h"
#include "crosskeys/frmCrossKeyed.h"
#include "doors/frmDoors.h"
#include "holders/frmDBLostKeys.h"
#include "holders/frmKeyUsers.h"
#include "page/frmMain.h"
#include "pinning/frmManufacturer.h"
#include "pinning/frmPinningChart.h"
#include "platform/Files.h"
#include "reports/SelectionReport.h"
#include "reports/SystemPrints.h"
#include "reports/frmPrinter.h"
#include "reports/frmSelection.h"
#include "search/frmFindKey.h"
#include "start/Startup.h"
#include "start/frmAbout.h"
#include "start/frmDrive.h"
#include "start/frmExit.h"
#include "start/frmFirst.h"
#include "start/frmNetwork.h"
#include "start/frmStart.h"
#include "store/DatabaseFiles.h"
#include "store/WindowPlaces.h"
#include "systems/KeySystems.h"
#include "systems/frmCreateFile.h"
#include "systems/frmOpenFile.h"
#include "widgets/Form.h"
#include "widgets/HelpContexts.h"
#include "widgets/HelpWindow.h"
#include "widgets/Manners.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>

namespace quorrel {

Program::Program(Session& session) : m_session(session), m_openers(FormsOfMain()) {
    InstallManners();
    qApp->installEventFilter(this);
}

Program::~Program() {
    for (const Loaded& form : m_forms) {
        // What hiding makes a form do, it does while it is still whole.
        if (form.window)
            form.window->hide();
        delete form.window.data();
    }
}

/// The forms that the main form leads to by their names.
std::map<QString, Program::Opener> Program::FormsOfMain() {
    const auto name = [](const char* form) { return QString::fromLatin1(form); };
    std::map<QString, Opener> forms = {
        {name("frmAbout"),
         [this](auto& asking, auto&) { Open<frmAbout>(asking, SystemInformationTool()); }},
        {name("frmCompanyInfo"),
         [this](auto& asking, auto&) {
             m_session.CompanyInfoEmpty = false;
             Open<frmCompanyInfo>(asking);
         }},
        {name("frmDBLostKeys"),
         [this](auto& asking, auto&) { Open<frmDBLostKeys>(asking, KeyLog::Lost); }},
        {name("frmDBReturnKey"),
         [this](auto& asking, auto&) { Open<frmDBLostKeys>(asking, KeyLog::Returned); }},
        {name("frmDepartments"), [this](auto& asking, auto&) { Open<frmDepartments>(asking); }},
        {name("frmEditHardware"), [this](auto& asking, auto&) { Open<frmEditHardware>(asking); }},
        {name("frmDoors"),
         [this](auto& asking, auto& label) {
             auto* doors = LoadDoors();
             ShowOver(*doors, asking);
             if (!label.isEmpty())
                 doors->AskFor(label);
         }},
        {name("frmExit"),
         [this](auto& asking, auto&) {
             When(Open<frmExit>(asking), &frmExit::Ended, [this] { End(); });
         }},
        {name("frmFindKey"), [this](auto& asking, auto&) { ShowFind(asking); }},
        {name("frmKeyUsers"),
         [this](auto& asking, auto& number) {
             auto* users = Open<frmKeyUsers>(asking);
             if (!number.isEmpty())
                 users->ShowHolder(number);
         }},
        {name("frmManufacturer"),
         [this](auto& asking, auto& brand) { Open<frmManufacturer>(asking, brand); }},
        {name("frmNetwork"), [this](auto& asking, auto&) { ShowNetwork(&asking); }},
        {name("frmPermissions"), [this](auto& asking, auto&) { Open<frmPermissions>(asking); }},
        {name("frmPrinter"), [this](auto& asking, auto&) { Open<frmPrinter>(asking); }}};
    for (const SelectionReport& report : SelectionReports())
        forms.emplace(report.form,
                      [this, &report](auto& asking, auto&) { Open<frmSelection>(asking, report); });
    return forms;
}

void Program::Guarded(const std::function<void()>& action) {
    try {
        action();
    } catch (const std::exception& error) {
        m_session.boxes.Message(QString::fromUtf8(error.what()), m_session.ProgramTitle,
                                BoxButtons::Ok, BoxIcon::Warning);
    }
}

template <class FormType, class... Arguments>
FormType* Program::Load(Arguments&&... arguments) {
    std::erase_if(m_forms, [](const Loaded& form) { return form.window.isNull(); });
    auto* form = new FormType(m_session, std::forward<Arguments>(arguments)...);
    m_forms.push_back({form, form});
    When(&form->Events(), &FormEvents::HelpWanted, [this](int context) { ShowHelp(context); });
    When(&form->Events(), &FormEvents::SystemLost, [this] { LeaveGoneSystem(); });
    return form;
}

template <class FormType, class Signal, class Action>
void Program::When(FormType* form, Signal signal, Action action) {
    connect(form, signal, this,
            [this, action](const auto&... arguments) { Guarded([&] { action(arguments...); }); });
}

FormCore& Program::CoreOf(QWidget& window) const {
    for (const Loaded& form : m_forms)
        if (form.window == &window)
            return *form.core;
    throw ProgrammingError("A window that is no form");
}

void Program::WhenClosed(QWidget& window, const std::function<void()>& action) {
    FormCore& form = CoreOf(window);
    When(&form.Events(), &FormEvents::Closed, [action, &form] {
        action();
        form.LetGo();
    });
}

void Program::BringBack(QWidget& window) {
    window.show();
    window.raise();
    window.activateWindow();
}

void Program::ShowOver(QWidget& next, QWidget& opener) {
    const QPointer<QWidget> back = &opener;
    WhenClosed(next, [this, back] {
        if (back)
            BringBack(*back);
        else
            End();
    });
    BringBack(next);
    opener.hide();
}

void Program::ShowInsteadOf(QWidget& next, QWidget* former) {
    BringBack(next);
    if (former && former == m_main && m_find)
        CoreOf(*m_find).LetGo();
    if (former)
        CoreOf(*former).LetGo();
}

/// Shows a working form over the one that asks for it.
template <class FormType, class... Arguments>
FormType* Program::Open(QWidget& asking, Arguments&&... arguments) {
    auto* form = Load<FormType>(std::forward<Arguments>(arguments)...);
    ShowOver(*form, asking);
    return form;
}

QWidget* Program::LoadedForm(const QString& objectName) const {
    for (const Loaded& form : m_forms)
        if (form.window && form.window->objectName() == objectName)
            return form.window;
    return nullptr;
}

// From the start to the main form.

void Program::Start(bool splash) {
    auto* start = Load<frmStart>();
    When(start, &frmStart::FilesNotFound,
         [this, start](const QString& failure) { FilesNotFound(*start, failure); });
    When(start, &frmStart::FirstRunFound, [this, start] { ShowFirst(*start); });
    When(start, &frmStart::LogonWanted, [this, start] { ShowLogon(*start); });
    start->Begin(splash);
}

void Program::FilesNotFound(QWidget& start, const QString& failure) {
    if (!failure.isEmpty())
        m_session.boxes.Message(failure, QStringLiteral("Quorrel"), BoxButtons::Ok,
                                BoxIcon::Warning);
    ShowNetwork(nullptr);
    CoreOf(start).LetGo();
}

void Program::ShowFirst(QWidget& former) {
    auto* first = Load<frmFirst>();
    When(first, &frmFirst::CompanyWanted, [this, first] {
        auto* company = Load<frmCompanyInfo>();
        When(&company->Events(), &FormEvents::Closed, [this, company] { ShowLogon(*company); });
        ShowInsteadOf(*company, first);
    });
    WhenClosed(*first, [this] { End(); });
    ShowInsteadOf(*first, &former);
}

void Program::ShowLogon(QWidget& former) {
    auto* logon = Load<frmLogon>();
    When(logon, &frmLogon::LoggedOn, [this, logon] { ShowSystems(logon); });
    WhenClosed(*logon, [this] { End(); });
    ShowInsteadOf(*logon, &former);
}

void Program::ShowSystems(QWidget* former) {
    if (ListKeySystems(m_session).empty()) {
        ShowCreate(former);
        return;
    }
    auto* systems = Load<frmOpenFile>();
    When(systems, &frmOpenFile::SystemOpened, [this, systems] { ShowMain(*systems); });
    When(systems, &frmOpenFile::NewSystemWanted, [this, systems] { ShowCreate(systems); });
    WhenClosed(*systems, [this] { End(); });
    ShowInsteadOf(*systems, former);
}

void Program::ShowCreate(QWidget* former) {
    auto* create = Load<frmCreateFile>();
    When(create, &frmCreateFile::SystemCreated, [this, create] { ShowMain(*create); });
    When(create, &frmCreateFile::PinSizesWanted,
         [this, create](const QString& brand) { ShowPinSizesBeside(*create, brand); });
    When(&create->Events(), &FormEvents::Closed, [this, create] {
        // Where the file holds no system there is nothing to go back to.
        if (ListKeySystems(m_session).empty())
            End();
        else
            ShowSystems(create);
    });
    ShowInsteadOf(*create, former);
}

void Program::ShowPinSizesBeside(frmCreateFile& create, const QString& brand) {
    auto* sizes = Load<frmManufacturer>(brand);
    const QPointer<QWidget> behind = &create;
    WhenClosed(*sizes, [this, behind] {
        if (m_main)
            BringBack(*m_main);
        else if (behind)
            BringBack(*behind);
    });
    BringBack(*sizes);
}

void Program::ShowMain(QWidget& former) {
    m_main = Load<frmMain>();
    WatchMain(*m_main);
    ShowInsteadOf(*m_main, &former);
}

void Program::WatchMain(frmMain& main) {
    QSet<QString> names{QStringLiteral("frmOpenFile"), QStringLiteral("frmCreateFile")};
    for (const auto& opener : m_openers)
        names.insert(opener.first);
    main.OfferForms(names);
    main.OfferReports([this](MainReport report, bool preview) {
        return PrintMainReport(m_session, m_main, report, preview);
    });
    When(&main, &frmMain::FormWanted, [this](const QString& form, const QString& subject) {
        m_openers.at(form)(*m_main, subject);
    });
    When(&main, &frmMain::SystemLeft, [this](const QString& form) {
        if (form == QLatin1String("frmCreateFile"))
            ShowCreate(m_main);
        else
            ShowSystems(m_main);
    });
    When(&main.Events(), &FormEvents::Closed,
         [this] { m_openers.at(QStringLiteral("frmExit"))(*m_main, {}); });
    When(&main, &frmMain::LogoffWanted, [this] { ShowLogoff(); });
    When(&main, &frmMain::PinningWanted,
         [this](const PinningRequest& request) { ShowPinning(request); });
    When(&main, &frmMain::HelpIndexWanted, [this] { Help().ShowIndex(); });
}

/// The open system has been deleted by somebody else: whatever works on it goes.
void Program::LeaveGoneSystem() {
    std::vector<Loaded> former;
    std::swap(former, m_forms);
    try {
        ShowSystems(nullptr);
    } catch (...) {
        m_forms.insert(m_forms.end(), former.begin(), former.end());
        throw;
    }
    for (const Loaded& form : former)
        if (form.window)
            form.core->LetGo();
    m_forms.insert(m_forms.end(), former.begin(), former.end());
}

// Working forms.

void Program::ShowPinning(const PinningRequest& request) {
    auto chart = LoadPinningChart(m_session, request);
    // The chart of a core has always asked for itself once more.
    if (chart && request.IsCore())
        chart = LoadPinningChart(m_session, request);
    if (chart)
        Open<frmPinningChart>(*m_main, *chart);
}

frmDoors* Program::LoadDoors() {
    auto* doors = Load<frmDoors>(DoorWindows{false, true});
    When(doors, &frmDoors::CrossKeyWanted, [this, doors](const DoorsRow& door) {
        Open<frmCrossKeyed>(*doors, door, m_main->SelectedKey());
    });
    return doors;
}

/// The find form waits hidden, with its texts, while what it has found is on the screen.
void Program::ShowFind(QWidget& asking) {
    if (m_find) {
        BringBack(*m_find);
        asking.hide();
    } else {
        m_find = LoadFind();
        ShowOver(*m_find, asking);
    }
}

frmFindKey* Program::LoadFind() {
    auto* find = Load<frmFindKey>();
    When(find, &frmFindKey::KeyFound, [this](const KeyHit& hit, const QString& told) {
        const int page = PageToShow(m_session, hit);
        BringBack(*m_main);
        m_find->hide();
        m_main->ShowFound(page, hit.position, told);
    });
    When(find, &frmFindKey::UnitsWanted, [this](const QString& keyID, const QString& told) {
        auto* users = Load<frmKeyUsers>();
        users->SearchKey(keyID, told);
        ShowFromFind(*users);
    });
    When(find, &frmFindKey::DoorWanted, [this](const QString& label) {
        auto* doors = LoadDoors();
        ShowFromFind(*doors);
        doors->AskFor(label);
    });
    return find;
}

/// Shows a form that leads back to the main form.
void Program::ShowFromFind(QWidget& next) {
    ShowOver(next, *m_main);
    m_find->hide();
}

/// Without a form that asks there is nothing to go back to: the files could not be opened.
void Program::ShowNetwork(QWidget* asking) {
    auto* network = Load<frmNetwork>();
    When(network, &frmNetwork::MapFolderWanted, [this, network] {
        auto* drive = Open<frmDrive>(*network, network->MapFolder());
        connect(drive, &frmDrive::FolderChosen, network, &frmNetwork::SetMapFolder);
    });
    if (asking) {
        ShowOver(*network, *asking);
    } else {
        WhenClosed(*network, [this] { End(); });
        BringBack(*network);
    }
}

void Program::ShowLogoff() {
    if (m_logoff)
        return;
    m_logoff = Load<frmLogoff>();
    When(m_logoff.data(), &frmLogoff::Ended, [this] { End(); });
    WhenClosed(*m_logoff, [] {});
    BringBack(*m_logoff);
}

HelpWindow& Program::Help() {
    if (!m_help)
        m_help =
            std::make_unique<HelpWindow>(PathIn(m_session.ProgramFolder, QLatin1String(kHelpFile)),
                                         m_session.Places[QStringLiteral("frmHelp")]);
    return *m_help;
}

void Program::ShowHelp(int context) {
    Help().ShowTopic(context);
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
            Guarded([&] { ShowHelp(context.toInt()); });
            return true;
        }
    }
    return false;
}

/// Ends without asking any form: whatever was done is stored already. A box that is open is
/// declined first, so that the action that asks in it comes to its end on forms and databases that
/// still are.
void Program::End() {
    if (std::exchange(m_ended, true))
        return;
    m_session.boxes.End();
    if (m_help)
        m_help->hide();
    m_help.reset();
    for (const Loaded& form : m_forms)
        if (form.window)
            form.window->hide();
    FinishEnd();
}

void Program::FinishEnd() {
    if (auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
        box->reject();
        QTimer::singleShot(0, this, &Program::FinishEnd);
        return;
    }
    for (auto form = m_forms.rbegin(); form != m_forms.rend(); ++form)
        if (form->window)
            form->core->LetGo();
    SavePlaces(m_session);
    CloseDatabases(m_session);
    emit Ended();
}

} // namespace quorrel
