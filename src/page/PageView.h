#pragma once

#include "engine/PageGeometry.h"
#include "store/Session.h"
#include "store/SystemTables.h"

#include <QStringList>

#include <array>
#include <string>

namespace quorrel {

/// What a user can change of a key, as the file has it, and the cuts that it is known by: a part of
/// the table's columns.
struct KeyTextsRow {
    using Self = KeyTextsRow;
    using Whole = PatternsRow;
    RowKey key = 0;
    int SystemNumber = 0;
    QString Cuts;
    QString Label;
    QString KeyWay;
    QString Department;
    QString Description;

    static constexpr auto Columns() {
        return std::tuple{QUORREL_COLUMN(SystemNumber), QUORREL_COLUMN(Cuts),
                          QUORREL_COLUMN(Label),        QUORREL_COLUMN(KeyWay),
                          QUORREL_COLUMN(Department),   QUORREL_COLUMN(Description)};
    }
};

/// One cell of the page in memory. Its texts are cut to what their boxes hold.
struct PageCell {
    QString keyLabel;    ///< up to 20 characters; a blank first character: no label
    QString keyway;      ///< up to 8 characters
    QString description; ///< up to 250 characters
    QString department;  ///< up to 34 characters
    QString date;        ///< the day the label was made
    double serial = 0;
    bool isMaster = false;
    bool isUnreadable = false; ///< it has a row whose cuts cannot be read; then it is blank
    std::string tag;           ///< the cuts and the mark; `kEmptyCellTag` for an empty cell
    QString toolTip;
    KeyTextsRow stored; ///< the row that it was filled from

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
    /// A cell for which the page has no row keeps what it held. Throws `DatabaseError`; the page
    /// that was loaded before is then whole as it was.
    void LoadPageView();

    /// The departments of the system, in table order.
    QStringList ListDepartments() const;

    const OpenSystem& System() const { return m_session.System; }
    const PageCell& Cell(int index) const { return m_cells.at(static_cast<std::size_t>(index)); }

    /// The page whose keys are in the cells; 0 before the first.
    int LoadedPage() const { return m_loadedPage; }

    /// How many cells of the page cannot be read.
    int CountUnreadable() const;

    /// Takes a key's texts, as they were stored, and the date of its label into a cell.
    void SetRecord(int index, const KeyTextsRow& stored, const QString& date);

    /// Set by `LoadPageView`; the next click on a cell clears it and gives no warning.
    bool LoadingPage = false;

private:
    using Cells = std::array<PageCell, kAllCells>;

    std::string PlainCuts(const QString& stored) const;
    std::array<std::string, 5> ReadLevelTexts(int page) const;
    void LoadLevels(Cells& cells, int page) const;
    void LoadKeys(Cells& cells, int page) const;
    void LoadDates(Cells& cells, int page) const;
    void Fill(PageCell& cell, const PatternsRow& row) const;
    void SetTexts(PageCell& cell, const KeyTextsRow& stored) const;

    Session& m_session;
    int m_loadedPage = 0;
    Cells m_cells;
};

} // namespace quorrel
