#pragma once

#include "holders/KeyLogs.h"

#include <QAbstractTableModel>

#include <functional>

namespace quorrel {

/// A log as a grid shows it. All it holds of the stored rows is their keys in the order shown and
/// those rows that were looked at; edits and added rows stay here until `Update` writes them all.
/// Added rows stand at the end; a blank one is not written.
class KeyLogModel : public QAbstractTableModel {
public:
    /// True for a cell whose text is not written yet.
    static constexpr int kPendingRole = Qt::UserRole;

    /// `tellFailure` is called with the reason when rows that are to be shown cannot be read; it
    /// may come in the middle of painting. Until the next `Refresh` they stay empty.
    KeyLogModel(Session& session, KeyLog log, std::function<void(const QString&)> tellFailure);

    /// Reads the rows anew, in table order or ascending by a column. What is pending stays.
    void Refresh(std::optional<int> sortedBy = {});

    /// Forgets what is pending; the rows are as they were read.
    void DropPending();

    /// Rows with an edit and rows added.
    int PendingCount() const;
    int StoredCount() const { return static_cast<int>(m_keys.size()); }

    /// The key of a row, 0 for an added one; the row of a key, 0 when it is not there.
    RowKey KeyOf(int row) const;
    int RowOf(RowKey key) const;

    /// Adds a blank row, unless the last one is blank already. Gives its place.
    int OpenNewRow();

    /// Deletes a row, pending edits included. Gives what stood in the way; nothing when it is done.
    QString Delete(int row);

    /// Writes everything that is pending, or nothing. Gives what stood in the way, after which the
    /// rows concerned show what is stored with the edits on top; nothing when it is done.
    QString Update();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    bool IsAdded(int row) const { return row >= StoredCount(); }
    LogEntry& Added(int row) { return m_added.at(static_cast<std::size_t>(row - StoredCount())); }
    const LogEntry* Find(int row) const;
    bool IsPending(int row) const;
    bool IsGone(int row) const;
    void ReadAround(int row) const;
    void ReadInto(int first, int last) const;
    void Edit(int row, std::size_t column, const QString& text);
    void DropBlankRows();
    void TakeWritten(const std::vector<LogChange>& changes, std::size_t edited);
    QString Merge(const std::vector<LogConflict>& conflicts);
    void MoveToAdded(std::vector<int> rows);
    void Changed(int row);

    Session& m_session;
    KeyLog m_log;
    std::function<void(const QString&)> m_tellFailure;
    std::vector<RowKey> m_keys;    ///< of the stored rows, in the order shown
    std::vector<LogEntry> m_added; ///< below them
    std::unordered_map<RowKey, LogChange> m_edits;
    /// Rows that were looked at; nothing for one that is gone.
    mutable std::unordered_map<RowKey, std::optional<LogEntry>> m_seen;
    mutable bool m_failed = false; ///< reading them has failed
};

} // namespace quorrel
