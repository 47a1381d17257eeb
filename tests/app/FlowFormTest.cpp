#include "access/IdleWatch.h"
#include "access/frmLogoff.h"
#include "page/frmMain.h"
#include "store/DatabaseFiles.h"
#include "support/FileInUse.h"
#include "support/FormDriver.h"

#include <QEventLoop>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>
#include <QVBoxLayout>

/// \file
/// The flow from window to window, above all where something fails on the way.

namespace quorrel::test {
namespace {

TEST(Flow, AFileInUseKeepsTheLogonOnTheScreen) {
    RunningProgram run;
    CreateKeySystem(run.session, StandardSystem("Pier", "2715"));
    run.RecordCompany();
    run.program.Start(false);
    QWidget* logon = run.Form("frmLogon");
    std::unique_ptr<FileInUse> inUse;
    run.boxes.Expect("Activate Auto-Logoff Y/N?", BoxAnswer::No);
    run.boxes.WhileNextIsUp([&] { inUse = std::make_unique<FileInUse>(run); });
    run.boxes.Expect("in use by another workstation");
    Click(logon, "cmdLogon");
    EXPECT_EQ(run.Form("frmLogon"), logon);
    inUse.reset();
    run.boxes.Expect("Activate Auto-Logoff Y/N?", BoxAnswer::No);
    Click(logon, "cmdLogon");
    EXPECT_TRUE(run.Form("frmOpenFile"));
    EXPECT_FALSE(run.IsLoaded("frmLogon"));
}

TEST(Flow, AFormStaysUntilItsOwnActionHasEnded) {
    RunningProgram run;
    QWidget* main = run.OpenMain(StandardSystem("Pier", "2715"));
    Choose(main, "mnuAssignUsers");
    const QPointer<QWidget> users = run.Form("frmKeyUsers");
    run.boxes.WhileNextIsUp([&] {
        users->close();
        QEventLoop box;
        QTimer::singleShot(0, &box, &QEventLoop::quit);
        box.exec();
        EXPECT_TRUE(users) << "deleted under the action that asks";
        EXPECT_TRUE(main->isVisible());
    });
    run.boxes.Expect("All Users require an ID Number or Label!");
    Click(users, "cmdAddUser");
    EXPECT_FALSE(run.IsLoaded("frmKeyUsers"));
}

TEST(Flow, AFileInUseKeepsWhoeverGivesUpANewSystem) {
    RunningProgram run;
    CreateKeySystem(run.session, StandardSystem("Pier", "2715"));
    run.StartAndLogOn();
    Click(run.Form("frmOpenFile"), "cmdNew");
    QWidget* create = run.Form("frmCreateFile");
    {
        const FileInUse inUse(run);
        run.boxes.Expect("in use by another workstation");
        Click(create, "cmdCancel");
        EXPECT_EQ(run.Form("frmCreateFile"), create);
        EXPECT_FALSE(run.ended);
    }
    Type(create, "txtSystemName", "Typed");
    run.boxes.Expect("The new key system is not saved", BoxAnswer::No);
    create->close();
    EXPECT_EQ(run.Form("frmCreateFile"), create);
    Click(create, "cmdCancel"); // The command to give up asks nothing.
    EXPECT_TRUE(run.Form("frmOpenFile"));
}

TEST(Flow, ASplashThatFailsLeavesAWindow) {
    RunningProgram run;
    run.RecordCompany();
    run.program.Start(true);
    QWidget* splash = run.Form("frmStart");
    const FileInUse inUse(run);
    run.boxes.Expect("in use by another workstation");
    QTest::keyClick(splash, Qt::Key_Space);
    EXPECT_TRUE(run.Form("frmNetwork"));
    EXPECT_FALSE(run.IsLoaded("frmStart"));
    Click(run.Form("frmNetwork"), "cmdExit");
    EXPECT_TRUE(run.ended);
}

TEST(Flow, WhatIsStoredIsToldThoughItCannotBeReadBack) {
    class Storing : public Form {
    public:
        explicit Storing(Session& session) : Form(session) {
            setLayout(new QVBoxLayout);
            OfferFoot();
        }
        using FormCore::TellDone;
    };
    TestProgram program;
    Storing form(program.session);
    const auto read = [&] { ListKeySystems(program.session); };
    {
        const FileInUse inUse(program);
        program.boxes.Expect("A1 stored.\n\nThis window could not be brought up to date after");
        form.TellDone("A1 stored", read);
    }
    EXPECT_EQ(LabelText(&form, "lblFoot"), "A1 stored");
    form.TellDone("A2 stored", read);
    EXPECT_EQ(LabelText(&form, "lblFoot"), "A2 stored");
}

TEST(Flow, ASystemThatIsGoneLeadsToTheList) {
    RunningProgram run;
    CreateKeySystem(run.session, StandardSystem("School", "2715"));
    QPointer<QWidget> main = run.OpenMain(StandardSystem("Pier", "2715"));
    Choose(main, "mnuEditDepartment");
    auto* departments = dynamic_cast<FormCore*>(run.Form("frmDepartments"));
    ASSERT_TRUE(departments);
    emit departments->Events().SystemLost();
    EXPECT_TRUE(run.Form("frmOpenFile"));
    EXPECT_FALSE(run.IsLoaded("frmDepartments"));
    EXPECT_FALSE(main);
}

TEST(Flow, TheWarningOfInactivityStandsAboveABoxAndItsEndDeclinesTheBox) {
    for (const bool moved : {true, false}) {
        RunningProgram run;
        auto* main = qobject_cast<frmMain*>(run.OpenMain(StandardSystem("Pier", "2715")));
        run.session.AutoLogoffActive = true;
        auto box = std::make_unique<QMessageBox>(QMessageBox::Question, "Question", "Sure?",
                                                 QMessageBox::Yes | QMessageBox::No, main);
        QTimer::singleShot(0, main, [&] {
            emit main->LogoffWanted();
            auto* warning = qobject_cast<frmLogoff*>(run.Form("frmLogoff"));
            EXPECT_EQ(QApplication::activeModalWidget(), warning) << "the box keeps the input";
            if (moved) {
                Click(warning, "CancelButton");
                EXPECT_EQ(QApplication::activeModalWidget(), box.get());
                box->reject();
                return;
            }
            for (int second = 0; second < 200 && !box->isHidden() && !run.ended; ++second)
                warning->Tick();
        });
        box->exec();
        box.reset(); // As one that stands on the stack of the action that asks.
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        EXPECT_EQ(run.ended, !moved);
        // Whatever still asks, asks nobody.
        if (!moved) {
            EXPECT_EQ(run.boxes.Message("Too late", "Title", BoxButtons::YesNo), BoxAnswer::No);
        }
    }
}

} // namespace
} // namespace quorrel::test
