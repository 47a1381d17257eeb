#pragma once

#include <QTableView>

namespace quorrel {

/// A grid of records that are edited in place.
class RecordGrid : public QTableView {
    Q_OBJECT

public:
    /// The role by which the model tells that a cell's text is not stored yet; it shows in bold.
    static constexpr int kPendingRole = Qt::UserRole;

    explicit RecordGrid(QWidget* parent = nullptr);

    /// Makes a record the current one, keeping the column. Does nothing where there is none.
    void GoTo(int row);

    /// Takes what an open editor holds. A shortcut key leaves it open, unlike a click elsewhere.
    void FinishEditing();

signals:
    /// The Down key was pressed on the last record.
    void NewRecordWanted();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
};

} // namespace quorrel
