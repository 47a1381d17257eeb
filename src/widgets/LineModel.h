#pragma once

#include <QHash>
#include <QIcon>
#include <QPixmap>
#include <QStringListModel>

#include <utility>

namespace quorrel {

/// Lines of text, some of which may carry a mark: an icon with a tip that tells what it stands for.
class LineModel : public QStringListModel {
public:
    using QStringListModel::QStringListModel;

    /// Replaces all lines; none is marked after.
    void SetLines(const QStringList& lines) {
        m_marks.clear();
        setStringList(lines);
    }

    void SetMark(int row, const QIcon& icon, const QString& tip) {
        m_marks[row] = {icon, tip};
        emit dataChanged(index(0), index(rowCount() - 1), {Qt::DecorationRole});
    }

    QString TipOf(int row) const { return m_marks.value(row).tip; }

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override {
        if (role == Qt::AccessibleDescriptionRole)
            return TipOf(index.row());
        if (role != Qt::DecorationRole || m_marks.isEmpty())
            return QStringListModel::data(index, role);
        // A line without a mark keeps the room of one, so that the columns stay in line.
        static const QIcon none = [] {
            QPixmap empty(64, 64);
            empty.fill(Qt::transparent);
            return QIcon(empty);
        }();
        const auto mark = m_marks.constFind(index.row());
        return mark == m_marks.constEnd() ? none : mark->icon;
    }

private:
    struct Mark {
        QIcon icon;
        QString tip;
    };

    QHash<int, Mark> m_marks;
};

} // namespace quorrel
