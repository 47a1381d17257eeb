#pragma once

#include "print/PrintRun.h"
#include "reports/SelectionReport.h"
#include "widgets/Form.h"

#include <memory>

namespace Ui {
class Selection;
}

namespace quorrel {

/// Lets the user choose what a report is printed of. One form for all such reports: it takes its
/// name, its captions and its lists from the report.
class frmSelection : public Form {
    Q_OBJECT

public:
    frmSelection(Session& session, const SelectionReport& report);
    ~frmSelection() override;

protected:
    void Reload() override;

private:
    void NameControls();
    void WatchControls();
    void ReadCandidates();
    void ShowCandidates();
    void ShowChosen(int highlighted);
    void ShowAbout();
    bool Add(const ReportEntry& entry);
    void AddChosen();
    void AddAll();
    void Remove();
    void Print();
    void PrintCopies();
    void ShowAsPrinted();
    PrintJob Job();

    std::unique_ptr<Ui::Selection> ui;
    const SelectionReport& m_report;
    std::vector<ReportEntry> m_all;    ///< that may be chosen
    std::vector<ReportEntry> m_listed; ///< of these, as the search box has it
    std::vector<ReportEntry> m_chosen;
};

} // namespace quorrel
