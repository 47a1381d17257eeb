#pragma once

#include "page/KeyRecord.h"
#include "page/KeySelection.h"
#include "page/MainMenu.h"
#include "page/PageView.h"
#include "pinning/PinningChart.h"
#include "widgets/Form.h"

#include <QMainWindow>
#include <QSet>
#include <QTimer>

#include <memory>

namespace Ui {
class frmMain;
}

namespace quorrel {

/// The workspace of an open key system and the hub of all other forms.
class frmMain : public FormOver<QMainWindow> {
    Q_OBJECT

public:
    explicit frmMain(Session& session);
    ~frmMain() override;

    /// Brings up a cell of the page, as a click on it does.
    void ClickCell(int cell);

    /// Turns to a page and clicks a cell of it, once a search has led there. `told` says more.
    void ShowFound(int page, int cell, const QString& told);

    /// The selected key as the chart wants it.
    PinningRequest SelectedKey() const;

    /// Names the forms that can be asked for. What leads to another one is dimmed.
    void OfferForms(const QSet<QString>& names);

    /// What prints a report, or shows it as it will be printed; says where to look for it.
    using ReportPrinter = std::function<QString(MainReport report, bool preview)>;
    void OfferReports(const ReportPrinter& print) { m_print = print; }

protected:
    void Activated() override;
    void Reload() override;
    bool Unloading() override;

signals:
    /// A form is wanted in place of this one, with what it is to bring up.
    void FormWanted(const QString& formName, const QString& subject);
    /// The system is left for a form that opens or creates another.
    void SystemLeft(const QString& formName);
    void PinningWanted(const PinningRequest& request);
    void HelpIndexWanted();
    /// The workstation has been left alone.
    void LogoffWanted();

private:
    /// How a key comes to be selected: by the user, who is warned of it; because its page has just
    /// been read; or again, as it was.
    enum class Manner { Clicked, PageTurned, Again };

    void WatchMenu();
    void WatchPage();
    void WatchLists();
    void WatchRecord();
    void WatchButtons();
    void AddShortcuts();
    void LoadForm();
    void ApplyPermissions();

    // Pending edits.
    bool IsEdited() const;
    void ShowText(const KeyRecordText& text);
    bool SavePending(int leastLabel);
    bool MayDropRecord(int leastLabel);
    bool MayMoveOn(int leastLabel);
    bool SaveOrDrop();
    void ShowStored();

    // Ways to other forms.
    void AskForEntry(const QString& formName);
    void AskFor(const QString& formName, const QString& subject = {});
    void LeaveSystem(const QString& formName);
    bool MayLeaveFor(const char* formName);
    void ShowPinning();
    void PrintReport(MainReport report, bool preview);

    // The page and its selected cell.
    void BringUp(int page, int cell);
    void ShowPage(int page);
    void TurnPage(int page);
    void StayOnPage();
    void SelectCell(int cell, Manner manner);
    void WarnOf(const KeySelection& selection);
    void SetCompactLayout();
    void SetLargeLayout();
    void ToggleLayout();

    std::unique_ptr<Ui::frmMain> ui;
    PageView m_page;
    KeyRecord m_record;
    int m_selectedCell = 0;
    QSet<QString> m_offered; ///< names of the forms that can be asked for
    ReportPrinter m_print;
    QList<int> m_compactWidths; ///< of the splitter, while the large layout has widened the page
    QTimer m_timer1{this};      ///< counts idle time
};

} // namespace quorrel
