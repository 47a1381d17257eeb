#include "platform/Recordset.h"
#include "start/Startup.h"
#include "store/ProgramTables.h"
#include "store/WindowPlaces.h"
#include "support/AllForms.h"
#include "widgets/WindowPlace.h"

#include <QScreen>
#include <QScrollArea>
#include <QSplitter>

namespace quorrel::test {
namespace {

class WindowPlace : public testing::TestWithParam<FormRoad> {};

bool Scrolls(const QWidget* control, const QWidget* form) {
    for (const QWidget* at = control->parentWidget(); at && at != form; at = at->parentWidget())
        if (qobject_cast<const QAbstractScrollArea*>(at))
            return true;
    return false;
}

TEST_P(WindowPlace, LiesWhollyOnTheScreenWithAllThatIsInIt) {
    const FormOnScreen shown(GetParam());
    const QWidget* form = shown.form;
    const QRect screen = form->screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(form->frameGeometry()))
        << form->frameGeometry().width() << " x " << form->frameGeometry().height();
    for (const QWidget* control : form->findChildren<QWidget*>()) {
        if (control->window() != form || !control->isVisible() || Scrolls(control, form))
            continue;
        const QRect place(control->mapTo(form, QPoint()), control->size());
        EXPECT_TRUE(form->rect().contains(place))
            << control->objectName().toStdString() << " (" << control->metaObject()->className()
            << ") lies outside";
    }
}

INSTANTIATE_TEST_SUITE_P(All, WindowPlace, testing::ValuesIn(AllForms()),
                         [](const auto& road) { return std::string(road.param.form); });

TEST(WindowPlaces, AWindowComesBackToWhereItWasAndAsItWas) {
    RecordedSite site(SystemType::Standard);
    site.StartAndLogOn();
    Click(site.Form("frmOpenFile"), "cmdOpen");
    QWidget* main = site.Form("frmMain");
    main->move(0, 20); // It is as wide as this screen.
    const QPoint place = main->pos();
    auto* splitter = Find<QSplitter>(main, "splMain");
    splitter->setSizes({splitter->width() - 250, 250});
    const QList<int> sizes = splitter->sizes();
    for (int visit = 0; visit < 2; ++visit) {
        Choose(main, "mnuEditDepartment");
        QWidget* departments = site.Form("frmDepartments");
        if (visit == 0) {
            departments->move(77, 55);
            departments->resize(departments->width() + 40, departments->height() + 30);
        }
        static QRect left;
        if (visit == 0)
            left = {departments->pos(), departments->size()};
        EXPECT_EQ(QRect(departments->pos(), departments->size()), left) << visit;
        Click(departments, "cmdExit");
        EXPECT_EQ(main->pos(), place);
        EXPECT_EQ(splitter->sizes(), sizes);
    }
}

TEST(WindowPlaces, AreKeptForTheNextRun) {
    RunningProgram site;
    QWidget* form = site.OpenMain(StandardSystem("Pier", "2715"));
    form->move(31, 47);
    form->resize(form->width() + 20, form->height());
    const QString place = quorrel::PlaceOf(*form);
    Choose(form, "mnuFileExit");
    Click(site.Form("frmExit"), "cmdExit");
    EXPECT_TRUE(site.ended);

    site.session.Places.clear();
    QString failure;
    ASSERT_TRUE(LoadStartupFiles(site.session, failure)) << failure.toStdString();
    EXPECT_EQ(site.session.Places["frmMain"], place);
    // A place of this run stands against the stored one, and is stored in place of it.
    for (const char* now : {"1,2,300,200,0", "3,4,300,200,1"}) {
        site.session.Places["frmMain"] = QString::fromLatin1(now);
        SavePlaces(site.session);
        LoadPlaces(site.session);
        EXPECT_EQ(site.session.Places["frmMain"], now);
        const Recordset<WindowPlaceRow> stored(
            *site.session.SysinfoDatabase,
            Query<WindowPlaceRow>().Where(&WindowPlaceRow::Form, QStringLiteral("frmMain")));
        EXPECT_EQ(stored.Count(), 1);
        EXPECT_EQ(stored.First()->Place, now);
    }
}

TEST(WindowPlaces, APlaceThatIsNotOnTheScreenIsBroughtThere) {
    QWidget window;
    window.resize(300, 200);
    const QRect screen = window.screen()->availableGeometry();
    for (const char* place : {"-900,-900,300,200,0", "99999,99999,300,200,0", "5,5,99999,99999,0",
                              "nonsense", "", "1,2", ";;x=;=,,", "0,0,0,0,0"}) {
        PlaceWindow(window, QString::fromLatin1(place), {0.5, 0.5});
        EXPECT_TRUE(screen.contains(window.frameGeometry())) << place;
        EXPECT_GT(window.width(), 100) << place;
    }
    PlaceWindow(window, "17,19,310,210,0", {0.5, 0.5});
    EXPECT_EQ(window.pos(), QPoint(17, 19));
    EXPECT_EQ(window.size(), QSize(310, 210));
}

} // namespace
} // namespace quorrel::test
