#include "Tour.h"

#include "platform/Files.h"
#include "store/DatabaseFiles.h"
#include "widgets/HelpContexts.h"
#include "widgets/HelpTopics.h"

#include <QDir>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QTest>

#include <algorithm>

namespace quorrel::tour {

namespace {

constexpr const char* kCompany = "Harbour Lock & Safe";
constexpr const char* kPolicy = "Keys remain the property of the company.\n"
                                "A lost key is to be reported the same day.\n"
                                "Keys are not to be copied or lent.\n";

/// A company logo as a user might have one on disk.
QString PaintLogo(const QString& folder) {
    QImage logo(320, 120, QImage::Format_RGB32);
    logo.fill(QColor(0x12, 0x4e, 0x66));
    QPainter painter(&logo);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QColor(0xf2, 0xc1, 0x4e));
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(QPointF(60, 50), 30, 30);
    painter.drawPolygon(QPolygonF({{50, 60}, {70, 60}, {82, 105}, {38, 105}}));
    painter.setPen(Qt::white);
    QFont font = painter.font();
    font.setPixelSize(38);
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(QRect(110, 0, 205, 120), Qt::AlignVCenter, QStringLiteral("Harbour"));
    painter.end();
    const QString path = QDir(folder).filePath(QStringLiteral("logo.bmp"));
    if (!logo.save(path))
        throw WalkFailed(QStringLiteral("Cannot save the logo %1").arg(path));
    return path;
}

void WatchSplash(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Enter("frmStart");
    walker.CheckText(QStringLiteral("lblTitle"), QStringLiteral("Quorrel"));
    // The key has turned far enough to be seen as one.
    QTest::qWait(800);
    walker.Picture(QStringLiteral("splash"));
    walker.Press(Qt::Key_Space);
}

void ReadWelcome(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Enter("frmFirst");
    walker.ExpectGone("frmStart");
    walker.CheckContains(QStringLiteral("Label2"), QStringLiteral("tamarisk"));
    walker.Picture(QStringLiteral("welcome"));
    CheckHelp(tour, "frmFirst", help::kFirstRun);
    const QString question = QStringLiteral("Did you read the Logon Information?");
    walker.ExpectBox(question, QMessageBox::No, QStringLiteral("welcome-question"));
    walker.Click(QStringLiteral("Command1"));
    walker.Enter("frmFirst");
    walker.ExpectBox(question, QMessageBox::Yes, QStringLiteral("welcome-read"));
    walker.Click(QStringLiteral("Command1"));
}

void FillCompany(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Enter("frmCompanyInfo");
    walker.ExpectGone("frmFirst");
    walker.Picture(QStringLiteral("company-empty"));
    CheckHelp(tour, "frmCompanyInfo", help::kCompany);
    walker.Type(QStringLiteral("txtCompanyName"), QLatin1String(kCompany));
    walker.Type(QStringLiteral("txtCompanyAddress"),
                QStringLiteral("14 Quay Street\nPort Ellery 20417"));
    walker.Type(QStringLiteral("txtCompanySlogan"),
                QStringLiteral("Call us day or night: 555 0142"));
    walker.Type(QStringLiteral("txtCompanyMemo"), QStringLiteral("Workshop closed on Sundays"));
    walker.Type(QStringLiteral("txtKeyPolicy"), QLatin1String(kPolicy));
    const QString logo = PaintLogo(tour.session.ProgramFolder);
    walker.ExpectFileDialog(logo, QStringLiteral("company-browse"));
    walker.Click(QStringLiteral("cmdBrowse2"));
    walker.CheckText(QStringLiteral("txtPicPath"), logo);
    walker.Check(!walker.Find<QLabel>(QStringLiteral("imgLogo")).pixmap().isNull(),
                 QStringLiteral("The logo is not shown"));
    walker.CheckContains(QStringLiteral("lblPolicyLength"), QStringLiteral("of 1000 characters"));
    walker.Picture(QStringLiteral("company-filled"));
    walker.Click(QStringLiteral("cmdSave"));
}

void LogOn(Tour& tour) {
    Walker& walker = tour.walker;
    walker.Enter("frmLogon");
    walker.ExpectGone("frmCompanyInfo");
    walker.Check(tour.session.ProgramTitle == QStringLiteral("Quorrel for ") + kCompany,
                 QStringLiteral("The title is \"%1\"").arg(tour.session.ProgramTitle));
    walker.Picture(QStringLiteral("logon"));
    CheckHelp(tour, "frmLogon", help::kLogon);
    walker.Type(QStringLiteral("txtPassword"), QStringLiteral("juniper"));
    walker.ExpectBox(QStringLiteral("Invalid Entry, please check User Name and Password"),
                     QMessageBox::Ok, QStringLiteral("logon-refused"));
    walker.Click(QStringLiteral("cmdLogon"));
    walker.Type(QStringLiteral("txtPassword"), QStringLiteral("tamarisk"));
    walker.ExpectBox(QStringLiteral("Activate Auto-Logoff Y/N?"), QMessageBox::No,
                     QStringLiteral("logon-auto-logoff"));
    walker.Click(QStringLiteral("cmdLogon"));
    walker.ExpectGone("frmLogon");
    walker.Check(!tour.session.AutoLogoffActive, QStringLiteral("Auto-logoff is on"));
    walker.Check(tour.session.LoggedUser == QStringLiteral("Administrator"),
                 QStringLiteral("\"%1\" is logged on").arg(tour.session.LoggedUser));
}

} // namespace

void CheckHelp(Tour& tour, const char* window, int context, const QString& picture) {
    const auto topics =
        ReadHelpTopics(PathIn(tour.session.ProgramFolder, QLatin1String(kHelpFile)));
    const auto topic = std::find_if(topics.begin(), topics.end(), [&](const HelpTopic& candidate) {
        return candidate.context == context;
    });
    Walker& walker = tour.walker;
    walker.Check(topic != topics.end(), QStringLiteral("No help for context %1").arg(context));
    walker.Press(Qt::Key_F1);
    walker.Enter("frmHelp");
    const auto* line = walker.Find<QListWidget>(QStringLiteral("lstTopics")).currentItem();
    walker.Check(line && line->text() == topic->title,
                 QStringLiteral("F1 does not open \"%1\"").arg(topic->title));
    walker.Check(walker.TextOf(QStringLiteral("txtTopic")).startsWith(topic->title),
                 QStringLiteral("The help does not show \"%1\"").arg(topic->title));
    if (!picture.isEmpty())
        walker.Picture(picture);
    walker.Press(Qt::Key_Escape);
    walker.ExpectGone("frmHelp");
    walker.Enter(window);
}

void WalkStart(Tour& tour) {
    tour.Take({{"Splash", WatchSplash},
               {"First run", ReadWelcome},
               {"Company", FillCompany},
               {"Log on", LogOn}});
}

} // namespace quorrel::tour
