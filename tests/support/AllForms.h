#pragma once

#include "holders/KeyHolders.h"
#include "page/frmMain.h"
#include "platform/Recordset.h"
#include "platform/Text.h"
#include "store/DoorTables.h"
#include "store/HolderTables.h"
#include "store/SystemTables.h"
#include "support/FormDriver.h"
#include "widgets/TextList.h"

#include <functional>

namespace quorrel::test {

/// A text longer than any window is wide.
inline QString LongText(const QString& begin) {
    return (begin + QStringLiteral(" in the north wing & <beyond> ").repeated(12)).left(250);
}

/// A file with one system and something in each of its tables, and the program on it.
class RecordedSite : public RunningProgram {
public:
    explicit RecordedSite(SystemType type) {
        NewSystem system = StandardSystem(LongText(QStringLiteral("Pier")), "27152");
        system.address = LongText(QStringLiteral("Quay 1"));
        system.notes = LongText(QStringLiteral("Notes"));
        system.type = type;
        if (type == SystemType::ICCore23)
            system.special = QStringLiteral("27352");
        m_number = CreateKeySystem(session, system).SystemID;
        Transaction writing(session.Keys());
        NameKeys();
        for (const char* name : {"STORES", "OFFICE"}) {
            DepartmentRow department;
            department.Department = QLatin1String(name);
            AddRow(department);
        }
        for (const char* name : {"East gate", "West gate"}) {
            DoorsRow door;
            door.DoorLabel = QLatin1String(name);
            door.DoorDescription = LongText(QStringLiteral("Leads"));
            door.Text1 = QStringLiteral("Lever of ") + QLatin1String(name);
            door.CutsLabel = Padded(QStringLiteral("K0"), 12);
            AddRow(door);
        }
        HandOutUnits();
        writing.Commit();
    }

private:
    template <class Row>
    void AddRow(Row row) {
        row.SystemNumber = m_number;
        Recordset<Row>::Add(session.Keys(), row);
    }

    void NameKeys() {
        const auto named = Query<PatternsRow>().Where(&PatternsRow::PageNumber, 1);
        for (PatternsRow row : Recordset<PatternsRow>(session.Keys(), named).Rows()) {
            if (row.Position > 2 && row.Position < 80)
                continue;
            row.Label = Padded(QStringLiteral("K%1").arg(row.Position), 12);
            row.Description = LongText(QStringLiteral("Opens"));
            Recordset<PatternsRow>::Update(session.Keys(), row);
        }
    }

    void HandOutUnits() {
        KeyUsersRow holder;
        holder.UserIDNumber = QStringLiteral("1001");
        holder.Lastname = LongText(QStringLiteral("Marsh"));
        holder.Firstname = QStringLiteral("Edith");
        AddRow(holder);
        for (const char* unit : {"1", "2"}) {
            KeyUnitRow issued;
            issued.KeyID = Padded(QStringLiteral("K0"), 12);
            issued.UnitID = QLatin1String(unit);
            AddRow(issued);
        }
        UsertoUnitRow held;
        held.KeyID = Padded(QStringLiteral("K0"), 12);
        held.UnitID = QStringLiteral("1");
        held.UserID = holder.UserIDNumber;
        AddRow(held);
        LostKeysRow lost;
        lost.KeyID = held.KeyID;
        AddRow(lost);
        ReturnKeyRow returned;
        returned.KeyID = held.KeyID;
        AddRow(returned);
    }

    int m_number = 0;
};

/// Highlights a line of a list as a click on it does.
inline void ChooseLine(QWidget* form, const char* list, int row) {
    Find<TextList>(form, list)->SetCurrentRow(row);
    emit Find<TextList>(form, list)->Clicked();
    QCoreApplication::processEvents();
}

/// How a form is brought up.
struct FormRoad {
    const char* form;
    const char* from; ///< the form before it, null at the start of the program
    std::function<void(RunningProgram&, QWidget* before)> go;
    /// Brings records into what it shows.
    std::function<void(QWidget* form)> fill = [](QWidget*) {};
    SystemType system = SystemType::Standard;

    friend void PrintTo(const FormRoad& road, std::ostream* out) { *out << road.form; }
};

/// Each form of the program. A new one is a line here.
inline const std::vector<FormRoad>& AllForms() {
    const auto choose = [](const char* entry) {
        return [entry](RunningProgram&, QWidget* main) { Choose(main, entry); };
    };
    const auto click = [](const char* button) {
        return [button](RunningProgram&, QWidget* before) { Click(before, button); };
    };
    const auto master = [](QWidget* form) { Type(form, "txtMasterKey", "395172"); };
    const auto lists = [](QWidget* form) {
        for (const char* button : {"cmdKeyList", "cmdListDoors", "cmdListUsers"})
            Click(form, button);
    };
    const auto door = [](QWidget* form) {
        ChooseLine(form, "lstKeyIDs", 0);
        Type(form, "cmbDoorLabel", "East gate");
    };
    const auto unit = [](QWidget* form) {
        ChooseLine(form, "lstKeyIDs", 0);
        ChooseLine(form, "lstKeyHolders", 0);
        Click(form, "cmdShowKeys");
    };
    const auto crossKey = [](const char* form) {
        return [form](RunningProgram& run, QWidget* doors) {
            Click(doors, "ckCrossKeyed");
            Click(doors, "cmdViewXK");
            QWidget* page = run.Form(form);
            Type(page, "txtKeyID_1", "K0");
            Type(page, "txtKeyID_2", "K1");
            run.boxes.Expect(QStringLiteral("This will take several minutes"));
            Click(page, "cmdAccess");
        };
    };
    const auto chosen = [](const char* list) {
        return [list](QWidget* form) {
            ChooseLine(form, list, 0);
            Click(form, "cmdAddTo");
        };
    };
    const auto found = [](QWidget* form) { ChooseLine(form, "lstUserList", 0); };
    static const std::vector<FormRoad> forms = {
        {"frmStart", nullptr,
         [](RunningProgram& run, QWidget*) {
             run.RecordCompany();
             run.program.Start(true);
         }},
        {"frmFirst", nullptr, [](RunningProgram& run, QWidget*) { run.program.Start(false); }},
        {"frmLogon", nullptr,
         [](RunningProgram& run, QWidget*) {
             run.RecordCompany();
             run.program.Start(false);
         }},
        {"frmOpenFile", "frmLogon",
         [](RunningProgram& run, QWidget* logon) {
             run.boxes.Expect(QStringLiteral("Activate Auto-Logoff Y/N?"), BoxAnswer::No);
             Click(logon, "cmdLogon");
         }},
        {"frmCreateFile", "frmOpenFile", click("cmdNew"), master},
        {"frmMain", "frmOpenFile", click("cmdOpen"), lists},
        {"frmDoors", "frmMain", choose("mnuAssignDoors"), door},
        {"frmCrossKeyed", "frmDoors", crossKey("frmCrossKeyed")},
        {"frmCrossKeyedIC", "frmDoors", crossKey("frmCrossKeyedIC"), [](QWidget*) {},
         SystemType::ICCore23},
        {"frmFindKey", "frmMain", choose("mnuCurrent"), found},
        {"frmKeyUsers", "frmMain", choose("mnuAssignUsers"), unit},
        {"frmCompanyInfo", "frmMain", choose("mnuCompanyInfo")},
        {"frmDepartments", "frmMain", choose("mnuEditDepartment")},
        {"frmEditHardware", "frmMain", choose("mnuEditHardware")},
        {"frmPermissions", "frmMain", choose("mnuUsersAdd")},
        {"frmNetwork", "frmMain", choose("mnuNetwork")},
        {"frmDrive", "frmNetwork", click("cmdBrowse_1")},
        {"frmDBLostKeys", "frmMain", choose("mnuLost")},
        {"frmDBReturnKey", "frmMain", choose("mnuReturned")},
        {"frmManufacturer", "frmMain", choose("mnuPinSizes")},
        {"frmPinningChart", "frmMain", click("cmdPinning")},
        {"frmPinningChartIC", "frmMain", click("cmdPinning"), [](QWidget*) {},
         SystemType::ICCore23},
        {"frmPrinter", "frmMain", choose("mnuFilePrinter")},
        {"frmPrintHardware", "frmMain", choose("mnuHardware"), chosen("lstAllHardware")},
        {"frmKeysbyUsers", "frmMain", choose("mnuKeysByUsers"), chosen("lstAllUsers")},
        {"frmKeysbyDepartment", "frmMain", choose("mnuKeysByDepartment"),
         chosen("lstAllDepartments")},
        {"frmDoorsList", "frmMain", choose("mnuPrintDoors"), chosen("lstAllKeys")},
        {"frmUKDoorsList", "frmMain", choose("mnuUnKeyed"), chosen("lstAllKeys")},
        {"frmPrintKeyPages", "frmMain", choose("mnuPrintKeyChart"), chosen("lstAllKeys")},
        {"frmPrintPinning", "frmMain", choose("mnuPrintChart"), chosen("lstAllKeys")},
        {"frmAbout", "frmMain", choose("mnuHelpAbout")},
        {"frmExit", "frmMain", choose("mnuFileExit")},
        {"frmLogoff", "frmMain", [](RunningProgram&, QWidget* main) {
             emit qobject_cast<frmMain*>(main)->LogoffWanted();
         }}};
    return forms;
}

/// The whole program with a form of it on the screen, brought up on a user's road.
class FormOnScreen {
public:
    explicit FormOnScreen(const FormRoad& road) : m_site(road.system) {
        form = BringUp(road);
        form->activateWindow();
        QCoreApplication::processEvents();
    }

    RunningProgram& Site() { return m_site; }

private:
    QWidget* BringUp(const FormRoad& road) {
        QWidget* before = nullptr;
        for (const FormRoad& other : AllForms())
            if (road.from && QLatin1String(other.form) == QLatin1String(road.from))
                before = BringUp(other);
        road.go(m_site, before);
        QWidget* shown = m_site.Form(road.form);
        if (!shown)
            throw std::logic_error(road.form);
        road.fill(shown);
        return shown;
    }

    RecordedSite m_site;

public:
    QWidget* form = nullptr;
};

} // namespace quorrel::test
