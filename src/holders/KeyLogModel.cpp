#include "holders/KeyLogModel.h"

#include <algorithm>
#include <set>

namespace quorrel {

namespace {

/// Rows that are read at a time; more than a screen shows.
constexpr int kBlock = 128;
/// Rows that are kept once they were looked at.
constexpr std::size_t kMostSeen = 12800;

/// Takes over what is stored now, but for the texts that the user has changed.
void Rebase(LogChange& change, const LogEntry& stored) {
    LogEntry wanted = stored;
    for (std::size_t i = 0; i < wanted.texts.size(); ++i)
        if (change.wanted.texts[i] != change.read.texts[i])
            wanted.texts[i] = change.wanted.texts[i];
    change = {stored, wanted};
}

} // namespace

KeyLogModel::KeyLogModel(Session& session, KeyLog log,
                         std::function<void(const QString&)> tellFailure)
    : m_session(session), m_log(log), m_tellFailure(std::move(tellFailure)) {}

void KeyLogModel::Refresh(std::optional<int> sortedBy) {
    auto keys = ListLog(m_session, m_log, sortedBy);
    std::set<RowKey> vanished;
    for (const auto& [key, change] : m_edits)
        vanished.insert(key);
    for (auto key = keys.begin(); key != keys.end() && !vanished.empty(); ++key)
        vanished.erase(*key);
    keys.insert(keys.end(), vanished.begin(), vanished.end());
    beginResetModel();
    m_keys = std::move(keys);
    std::erase_if(m_added, [](const LogEntry& entry) { return entry.IsBlank(); });
    m_seen.clear();
    m_failed = false;
    endResetModel();
}

void KeyLogModel::DropPending() {
    beginResetModel();
    m_edits.clear();
    m_added.clear();
    endResetModel();
}

int KeyLogModel::PendingCount() const {
    const auto typed = std::count_if(m_added.begin(), m_added.end(),
                                     [](const LogEntry& entry) { return !entry.IsBlank(); });
    return static_cast<int>(m_edits.size()) + static_cast<int>(typed);
}

RowKey KeyLogModel::KeyOf(int row) const {
    return row < 0 || IsAdded(row) ? 0 : m_keys[static_cast<std::size_t>(row)];
}

int KeyLogModel::RowOf(RowKey key) const {
    const auto place = std::find(m_keys.begin(), m_keys.end(), key);
    return place == m_keys.end() ? 0 : static_cast<int>(place - m_keys.begin());
}

int KeyLogModel::OpenNewRow() {
    const int last = rowCount();
    if (!m_added.empty() && m_added.back().IsBlank())
        return last - 1;
    beginInsertRows({}, last, last);
    m_added.emplace_back();
    endInsertRows();
    return last;
}

QString KeyLogModel::Delete(int row) {
    const LogEntry* shown = Find(row);
    if (!shown && !IsGone(row))
        return QStringLiteral("This record could not be read.");
    const RowKey key = KeyOf(row);
    if (shown && key != 0) {
        const auto edit = m_edits.find(key);
        const LogEntry read = edit == m_edits.end() ? *shown : edit->second.read;
        if (const auto conflict = DeleteLogEntry(m_session, m_log, read)) {
            Merge({*conflict});
            return QStringLiteral(
                "This record was changed at another workstation after it was read, and has "
                "not been deleted. It is shown now as it is stored.");
        }
    }
    beginRemoveRows({}, row, row);
    if (IsAdded(row)) {
        m_added.erase(m_added.begin() + row - StoredCount());
    } else {
        m_keys.erase(m_keys.begin() + row);
        m_edits.erase(key);
        m_seen.erase(key);
    }
    endRemoveRows();
    return {};
}

QString KeyLogModel::Update() {
    DropBlankRows();
    std::vector<LogChange> changes;
    changes.reserve(m_edits.size() + m_added.size());
    for (const auto& [key, change] : m_edits)
        changes.push_back(change);
    std::sort(changes.begin(), changes.end(), [](const LogChange& left, const LogChange& right) {
        return left.read.key < right.read.key;
    });
    const std::size_t edited = changes.size();
    for (const LogEntry& entry : m_added)
        changes.push_back({{}, entry});
    if (changes.empty())
        return {};
    const auto conflicts = WriteLog(m_session, m_log, changes);
    if (!conflicts.empty())
        return QStringLiteral(
                   "Nothing has been written. Another workstation was at work on these records "
                   "after they were read:\n\n%1\n\nLook them over and click Update again.")
            .arg(Merge(conflicts));
    TakeWritten(changes, edited);
    return {};
}

/// What was pending is stored: the added rows, which stand below the others, become stored ones
/// where they are.
void KeyLogModel::TakeWritten(const std::vector<LogChange>& changes, std::size_t edited) {
    for (std::size_t i = 0; i < changes.size(); ++i) {
        const LogEntry& written = changes[i].wanted;
        m_seen[written.key] = written;
        if (i >= edited)
            m_keys.push_back(written.key);
    }
    m_edits.clear();
    m_added.clear();
    const int last = rowCount() - 1;
    emit dataChanged(index(0, 0), index(last, kLogColumns - 1));
    emit headerDataChanged(Qt::Vertical, 0, last);
}

/// Brings rows up to what is stored, with the edits on top; an edited row that is gone becomes one
/// to be added. Gives a line for each.
QString KeyLogModel::Merge(const std::vector<LogConflict>& conflicts) {
    QStringList lines;
    std::vector<int> gone;
    for (const auto& [key, stored] : conflicts) {
        const int row = RowOf(key);
        m_seen[key] = stored;
        if (!stored) {
            gone.push_back(row);
            lines += QStringLiteral("Record %1 was deleted. What was to be written of it stands at "
                                    "the end now, as a new record.")
                         .arg(row + 1);
            continue;
        }
        lines += QStringLiteral("Record %1 was changed. It is shown as it is stored now, with your "
                                "own changes in their places.")
                     .arg(row + 1);
        if (const auto edit = m_edits.find(key); edit != m_edits.end()) {
            Rebase(edit->second, *stored);
            if (edit->second.wanted == edit->second.read)
                m_edits.erase(edit);
        }
        Changed(row);
    }
    MoveToAdded(gone);
    return lines.join(u'\n');
}

/// Makes rows to be added of edited ones that are stored no more.
void KeyLogModel::MoveToAdded(std::vector<int> rows) {
    std::sort(rows.begin(), rows.end());
    for (std::size_t moved = 0; moved < rows.size(); ++moved) {
        const int row = rows[moved] - static_cast<int>(moved);
        LogEntry entry = m_edits.extract(KeyOf(row)).mapped().wanted;
        entry.key = 0;
        entry.number = 0;
        beginRemoveRows({}, row, row);
        m_keys.erase(m_keys.begin() + row);
        endRemoveRows();
        const int end = rowCount();
        beginInsertRows({}, end, end);
        m_added.push_back(std::move(entry));
        endInsertRows();
    }
}

void KeyLogModel::DropBlankRows() {
    for (int row = rowCount() - 1; IsAdded(row) && row >= 0; --row) {
        if (!Added(row).IsBlank())
            continue;
        beginRemoveRows({}, row, row);
        m_added.erase(m_added.begin() + row - StoredCount());
        endRemoveRows();
    }
}

int KeyLogModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : StoredCount() + static_cast<int>(m_added.size());
}

int KeyLogModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kLogColumns;
}

QVariant KeyLogModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const LogEntry* entry = Find(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    if (role == kPendingRole) {
        if (!entry || column == kLogTexts || !IsPending(index.row()))
            return false;
        const auto edit = m_edits.find(entry->key);
        return edit == m_edits.end() ||
               edit->second.read.texts[column] != edit->second.wanted.texts[column];
    }
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return {};
    if (!entry)
        return column == 0 && IsGone(index.row()) ? QStringLiteral("(deleted)") : QString();
    if (column == kLogTexts)
        return entry->key == 0 ? QString() : QString::number(entry->number);
    return entry->texts[column];
}

QVariant KeyLogModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Horizontal)
        return LogColumns(m_log).value(section);
    if (IsAdded(section) && !IsPending(section))
        return QStringLiteral("*");
    return QString::number(section + 1) + (IsPending(section) ? QStringLiteral(" *") : QString());
}

Qt::ItemFlags KeyLogModel::flags(const QModelIndex& index) const {
    const auto plain = QAbstractTableModel::flags(index);
    const bool editable = index.column() != kLogTexts && Find(index.row());
    return editable ? plain | Qt::ItemIsEditable : plain;
}

bool KeyLogModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !(flags(index) & Qt::ItemIsEditable))
        return false;
    Edit(index.row(), static_cast<std::size_t>(index.column()), value.toString());
    Changed(index.row());
    return true;
}

void KeyLogModel::Edit(int row, std::size_t column, const QString& text) {
    if (IsAdded(row)) {
        Added(row).texts[column] = text;
        return;
    }
    const LogEntry shown = *Find(row);
    const auto edit = m_edits.try_emplace(shown.key, LogChange{shown, shown}).first;
    edit->second.wanted.texts[column] = text;
    if (edit->second.wanted == edit->second.read)
        m_edits.erase(edit);
}

void KeyLogModel::Changed(int row) {
    emit dataChanged(index(row, 0), index(row, kLogColumns - 1));
    emit headerDataChanged(Qt::Vertical, row, row);
}

const LogEntry* KeyLogModel::Find(int row) const {
    if (row < 0 || row >= rowCount())
        return nullptr;
    if (IsAdded(row))
        return &m_added[static_cast<std::size_t>(row - StoredCount())];
    const RowKey key = KeyOf(row);
    if (const auto edit = m_edits.find(key); edit != m_edits.end())
        return &edit->second.wanted;
    ReadAround(row);
    const auto seen = m_seen.find(key);
    return seen != m_seen.end() && seen->second ? &*seen->second : nullptr;
}

bool KeyLogModel::IsPending(int row) const {
    if (IsAdded(row))
        return !m_added[static_cast<std::size_t>(row - StoredCount())].IsBlank();
    return m_edits.count(KeyOf(row)) > 0;
}

bool KeyLogModel::IsGone(int row) const {
    const auto seen = m_seen.find(KeyOf(row));
    return seen != m_seen.end() && !seen->second;
}

/// Makes sure that a row was read, and with it those around it, which come into view next.
void KeyLogModel::ReadAround(int row) const {
    if (m_failed || m_seen.count(KeyOf(row)) > 0)
        return;
    if (m_seen.size() > kMostSeen)
        m_seen.clear();
    const int first = row / kBlock * kBlock;
    try {
        ReadInto(first, std::min(first + kBlock, StoredCount()));
    } catch (const std::exception& error) {
        m_failed = true;
        m_tellFailure(QString::fromUtf8(error.what()));
    }
}

void KeyLogModel::ReadInto(int first, int last) const {
    const std::vector<RowKey> keys(m_keys.begin() + first, m_keys.begin() + last);
    const auto entries = ReadLog(m_session, m_log, keys);
    for (const RowKey key : keys) {
        const auto entry = entries.find(key);
        m_seen[key] = entry == entries.end() ? std::nullopt : std::optional(entry->second);
    }
}

} // namespace quorrel
