#pragma once

#include "engine/PageGeometry.h"
#include "store/Session.h"
#include "store/SystemTables.h"

#include <QStringList>

#include <array>
#include <string>

namespace quorrel {

/// One cell of the page in memory.
struct PageCell {
    QString keyLabel;    ///< up to 20 characters; a blank first character: no label
    QString keyway;      ///< up to 8 characters
    QString description; ///< up to 250 characters
    QString department;  ///< up to 34 characters
    QString date;        ///< the day the label was made
    double serial = 0;
    bool isMaster = false;
    std::string tag; ///< the cuts and the mark; `kEmptyCellTag` for an empty cell
    QString toolTip;

    bool HasLabel() const { return !keyLabel.isEmpty() && keyLabel[0] != u' '; }
    bool IsBlank() const;
};

/// The page model behind the main form: one page of the keys of the open system.
class PageView {
public:
    explicit PageView(Session& session);

    /// Sets every cell to the empty one.
    void ClearPageCells();

    /// Reads the keys of the session's `CurrentPage` into the cells; page 0 is raised to 1 after.
    /// A cell for which the page has no row keeps what it held.
    void LoadPageView();

    /// The departments of the system, in table order.
    QStringList ListDepartments() const;

    const OpenSystem& System() const { return m_session.System; }
    const PageCell& Cell(int index) const { return m_cells.at(static_cast<std::size_t>(index)); }

    /// The page whose keys are in the cells; 0 before the first.
    int LoadedPage() const { return m_loadedPage; }

    /// Takes a key's record as it was stored into a cell.
    void SetRecord(int index, const QString& label, const QString& keyway,
                   const QString& department, const QString& description, const QString& date);

    /// Set by `LoadPageView`; the next click on a cell clears it and gives no warning.
    bool LoadingPage = false;

private:
    std::array<std::string, 5> ReadLevelTexts() const;
    void FillCell(int index, const PatternsRow& row, const std::string& cuts);
    QString ToolTipOf(const PageCell& cell) const;
    void LoadDates();

    Session& m_session;
    int m_loadedPage = 0;
    std::array<PageCell, kAllCells> m_cells;
};

} // namespace quorrel
