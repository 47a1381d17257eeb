#pragma once

#include "page/KeyRecord.h"
#include "page/KeySelection.h"
#include "page/PageView.h"
#include "pinning/PinningChart.h"
#include "widgets/Form.h"

#include <QMainWindow>
#include <QTimer>

#include <memory>

class QLabel;

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

protected:
    void Activated() override;
    bool Unloading() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void NewSystemWanted();
    void OpenSystemWanted();
    void CompanyWanted();
    void NetworkWanted();
    void PinSizesWanted(const QString& brand);
    void PinningWanted(const PinningRequest& request);
    void AboutWanted();
    void ExitWanted();
    void HelpWanted(int context);
    void HelpIndexWanted();
    /// The workstation has been left alone.
    void LogoffWanted();

private:
    struct LevelLabels {
        QLabel *caption, *id, *description;
    };

    void LoadForm();
    void ApplyPermissions();
    void ShowSystem();
    void ShowSpecialCuts();
    void ApplyLevelCaptions();
    void BuildLegend();
    void SetFonts();
    void WatchMenu();
    void WatchRecord();
    void HoldDescription();
    void SelectWhole(QObject* field);
    void RaiseCase(QObject* field);
    void SavePending(int leastLabel);
    void RepeatLastRecord();
    void ShowPinning();
    PinningRequest SelectedKey() const;
    void AddShortcuts();
    void LoadDepartmentList();
    void LoadLogo();
    void SetCompactLayout();
    void SetLargeLayout();
    void ClickPicture1();
    void TurnPage(int page);
    void StayOnPage();
    void ShowPageNumber();
    void SelectCell(int cell, bool warn);
    void ShowRecord(const KeySelection& selection);
    void ShowLevels(const KeySelection& selection);
    void PaintCells(const KeySelection& selection);
    std::array<LevelLabels, kLevels> Levels() const;
    void LeaveSystem();

    std::unique_ptr<Ui::frmMain> ui;
    PageView m_page;
    KeyRecord m_record;
    int m_selectedCell = 0;
    int m_cellIconSize = 0; ///< 0 compact, 1 large
    bool m_leavingSystem = false;
    QTimer m_timer1{this}; ///< counts idle time
};

} // namespace quorrel
