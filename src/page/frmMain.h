#pragma once

#include "page/KeyRecord.h"
#include "page/KeySelection.h"
#include "page/PageView.h"
#include "pinning/PinningChart.h"
#include "widgets/Form.h"

#include <QMainWindow>
#include <QSet>
#include <QTimer>

#include <memory>
#include <vector>

class QAction;
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

    /// Names the forms that can be asked for. What leads to another one is dimmed.
    void OfferForms(const QSet<QString>& names);

protected:
    void Activated() override;
    void Reload() override;
    bool Unloading() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

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

    struct LevelLabels {
        QLabel *caption, *id, *description;
    };

    /// An entry of the menu that leads to a form, and whether the user has the right to it.
    struct FormEntry {
        QAction* action;
        const char* form;
        bool allowed;
    };

    void LoadForm();
    void ApplyPermissions();
    void ShowSystem();
    void ShowSpecialCuts();
    void ApplyLevelCaptions();
    void SetFonts();
    std::vector<FormEntry> FormEntries() const;
    void WatchMenu();
    void WatchHelpMenu();
    void WatchLists();
    void WatchRecord();
    void HoldDescription();
    void SelectWhole(QObject* field);
    void RaiseCase(QObject* field);
    KeyRecordText ScreenText() const;
    void ShowText(const KeyRecordText& text);
    bool SavePending(int leastLabel);
    bool MayDropRecord(int leastLabel);
    bool MayMoveOn(int leastLabel);
    bool SaveOrDrop();
    void AskFor(const QString& formName, const QString& subject = {});
    void LeaveSystem(const QString& formName);
    bool MayLeaveFor(const char* formName);
    void BringUp(int page, int cell);
    void ShowPinning();
    PinningRequest SelectedKey() const;
    void AddShortcuts();
    void LoadDepartmentList();
    void SetCompactLayout();
    void SetLargeLayout();
    void ClickPicture1();
    void ShowPage(int page);
    void ToggleLegend();
    void TurnPage(int page);
    void StayOnPage();
    void ShowPageNumber();
    void SelectCell(int cell, Manner manner);
    void ShowLevels(const KeySelection& selection);
    void PaintCells(const KeySelection& selection);
    std::array<LevelLabels, kLevels> Levels() const;

    std::unique_ptr<Ui::frmMain> ui;
    PageView m_page;
    KeyRecord m_record;
    int m_selectedCell = 0;
    int m_insertionEnd = 0;  ///< in the description: where the text that came last ends
    int m_cellIconSize = 0;  ///< 0 compact, 1 large
    QSet<QString> m_offered; ///< names of the forms that can be asked for
    QTimer m_timer1{this};   ///< counts idle time
};

} // namespace quorrel
