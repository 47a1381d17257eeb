#include "reports/frmSelection.h"

#include "platform/Text.h"
#include "print/Preview.h"
#include "print/Printers.h"
#include "reports/PrintCommands.h"
#include "store/Conflict.h"
#include "ui_Selection.h"
#include "widgets/HelpContexts.h"

#include <QApplication>

#include <algorithm>
#include <set>
#include <utility>

namespace quorrel {

namespace {

QStringList TextsOfEntries(const std::vector<ReportEntry>& entries) {
    QStringList texts;
    for (const ReportEntry& entry : entries)
        texts += OneLine(entry.text);
    return texts;
}

} // namespace

frmSelection::frmSelection(Session& session, const SelectionReport& report)
    : Form(session), ui(std::make_unique<Ui::Selection>()), m_report(report) {
    ui->setupUi(this);
    NameControls();
    OfferHelp(help::kReports, ui->cmdHelp);
    OfferFoot();
    ui->picQV->ShowLogo(session.Company.CompanyLogo);
    WatchControls();
    Guarded([this] { ReadCandidates(); });
    ShowChosen(-1);
}

frmSelection::~frmSelection() = default;

void frmSelection::NameControls() {
    setObjectName(m_report.form);
    setWindowTitle(m_report.title);
    ui->lstAll->setObjectName(QStringLiteral("lstAll") + m_report.lists);
    ui->lstPrint->setObjectName(QStringLiteral("lstPrint") + m_report.lists);
    ui->Label2->setText(m_report.candidates);
    ui->Label3->setText(m_report.atMost > 0 ? tr("To print (%1 at most)").arg(m_report.atMost)
                                            : tr("To print"));
    ui->lstAll->setAccessibleName(ui->Label2->text());
    ui->lstPrint->setAccessibleName(ui->Label3->text());
    ui->ckOption->setText(m_report.option);
    ui->ckOption->setVisible(!m_report.option.isEmpty());
    if (m_report.option.isEmpty())
        ui->ckOption->setFocusPolicy(Qt::NoFocus);
}

void frmSelection::WatchControls() {
    On(ui->txtSearch, &QLineEdit::textChanged, [this] { ShowCandidates(); });
    ui->lstAll->SetSearchBox(ui->txtSearch);
    // They could not be read when the form came up.
    On(ui->lstAll, &TextList::LinesWanted, [this] {
        if (m_all.empty())
            ReadCandidates();
    });
    On(ui->lstAll, &TextList::Clicked, [this] { ShowAbout(); });
    On(ui->lstAll, &TextList::DoubleClicked, [this] { AddChosen(); });
    On(ui->lstAll, &TextList::EnterPressed, [this] { AddChosen(); });
    On(ui->lstPrint, &TextList::DoubleClicked, [this] { Remove(); });
    On(ui->cmdAddTo, &QPushButton::clicked, [this] { AddChosen(); });
    On(ui->cmdAddAll, &QPushButton::clicked, [this] { AddAll(); });
    On(ui->cmdRemove, &QPushButton::clicked, [this] { Remove(); });
    On(ui->cmdPrint, &QPushButton::clicked, [this] { Print(); });
    On(ui->cmdPreview, &QPushButton::clicked, [this] { ShowAsPrinted(); });
    On(ui->cmdCancel, &QPushButton::clicked, [this] { Leave(); });
}

void frmSelection::ReadCandidates() {
    const BusyPointer busy;
    RequireSystem(m_session);
    m_all = m_report.list(m_session);
    ShowCandidates();
}

/// Shows what holds: another workstation has changed it.
void frmSelection::Reload() {
    ReadCandidates();
}

void frmSelection::ShowCandidates() {
    const QString begin = ui->txtSearch->text();
    m_listed.clear();
    std::copy_if(m_all.begin(), m_all.end(), std::back_inserter(m_listed),
                 [&](const ReportEntry& entry) {
                     return entry.text.startsWith(begin, Qt::CaseInsensitive);
                 });
    ui->lstAll->SetLines(TextsOfEntries(m_listed));
    ui->Label4->setText(tr("%1 of %2 listed").arg(m_listed.size()).arg(m_all.size()));
    for (QPushButton* button : {ui->cmdAddTo, ui->cmdAddAll})
        button->setEnabled(!m_listed.empty());
}

void frmSelection::ShowChosen(int highlighted) {
    ui->lstPrint->SetLines(TextsOfEntries(m_chosen));
    ui->lstPrint->SetCurrentRow(std::min(highlighted, ui->lstPrint->Count() - 1));
    ui->Label5->setText(tr("%1 to print").arg(m_chosen.size()));
    const bool some = !m_chosen.empty();
    ui->cmdRemove->setEnabled(some);
    for (QPushButton* button : {ui->cmdPrint, ui->cmdPreview})
        button->setEnabled(some && m_session.SessionPermissions.RunReports);
}

void frmSelection::ShowAbout() {
    const int row = ui->lstAll->CurrentRow();
    if (m_report.about && row >= 0)
        Tell(m_report.about(m_session, m_listed[row]));
}

/// False where it is there already.
bool frmSelection::Add(const ReportEntry& entry) {
    if (std::find(m_chosen.begin(), m_chosen.end(), entry) != m_chosen.end())
        return false;
    m_chosen.push_back(entry);
    return true;
}

void frmSelection::AddChosen() {
    const int row = ui->lstAll->CurrentRow();
    if (row < 0) {
        Tell(tr("Choose a line on the left first"));
        return;
    }
    const QString name = Named(m_listed[row].text.trimmed());
    if (m_report.atMost > 0 && std::cmp_greater_equal(m_chosen.size(), m_report.atMost))
        Tell(tr("%1 is not added: no more than %2 can be printed at a time")
                 .arg(name)
                 .arg(m_report.atMost));
    else if (!Add(m_listed[row]))
        Tell(tr("%1 is there already").arg(name));
    else
        ShowChosen(static_cast<int>(m_chosen.size()) - 1);
}

void frmSelection::AddAll() {
    std::set<std::pair<RowKey, QString>> there;
    for (const ReportEntry& entry : m_chosen)
        there.emplace(entry.key, entry.text);
    int left = 0;
    for (const ReportEntry& entry : m_listed) {
        if (there.contains({entry.key, entry.text}))
            continue;
        if (m_report.atMost > 0 && std::cmp_greater_equal(m_chosen.size(), m_report.atMost))
            ++left;
        else
            m_chosen.push_back(entry);
    }
    ShowChosen(-1);
    if (left > 0)
        Tell(tr("%1 are not added: no more than %2 can be printed at a time")
                 .arg(left)
                 .arg(m_report.atMost));
}

void frmSelection::Remove() {
    const int row = ui->lstPrint->CurrentRow();
    if (row < 0) {
        QApplication::beep();
        Tell(tr("Choose a line on the right first"));
        return;
    }
    m_chosen.erase(m_chosen.begin() + row);
    ShowChosen(row);
}

PrintJob frmSelection::Job() {
    PrintJob job;
    job.name = m_report.title;
    job.print = [this, head = HeadOfReports(m_session)](Printer& printer) {
        return m_report.print(m_session, printer, head, m_chosen, ui->ckOption->isChecked());
    };
    return job;
}

void frmSelection::Print() {
    RequireSystem(m_session);
    if (m_report.tellsOfPrinter)
        TellingOfPrinter(m_session, [this] { PrintCopies(); });
    else
        PrintCopies();
}

void frmSelection::PrintCopies() {
    int copies = 1;
    if (m_report.asksCopies) {
        const auto choice = ChoosePrinter(m_session);
        if (!choice)
            return;
        copies = choice->copies;
    }
    PrintRun run(m_session, m_report.title);
    if (!run.IsReady())
        return;
    const BusyPointer busy;
    if (run.Print(Job(), copies))
        Tell(run.Done());
}

void frmSelection::ShowAsPrinted() {
    RequireSystem(m_session);
    Tell(ShowPreview(m_session, this, Job()));
}

} // namespace quorrel
