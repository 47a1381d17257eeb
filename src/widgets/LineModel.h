#pragma once

#include <QHash>
#include <QIcon>
#include <QPixmap>
#include <QStringListModel>

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

namespace quorrel {

/// What stands beside a line without being a part of it, and a tip that says it in words.
struct Aside {
    QString text;
    QString tip;
};

/// Lines of text, some of which may carry a mark, an icon with a tip that tells what it stands for,
/// or an aside.
class LineModel : public QStringListModel {
public:
    using QStringListModel::QStringListModel;

    static constexpr int kAsideRole = Qt::UserRole;

    /// Replaces all lines; none is marked after.
    void SetLines(const QStringList& lines) {
        m_marks.clear();
        m_asides.clear();
        setStringList(lines);
    }

    /// `tip` is asked when the user wants to know.
    void SetMark(int row, const QIcon& icon, std::function<QString()> tip) {
        m_marks[row] = {icon, std::move(tip)};
        emit dataChanged(index(0), index(rowCount() - 1), {Qt::DecorationRole});
    }

    /// Sets the asides of the lines from `first` on.
    void SetAsides(int first, std::vector<Aside> asides) {
        m_asides.resize(std::max(m_asides.size(), static_cast<std::size_t>(first)));
        m_asides.erase(m_asides.begin() + first, m_asides.end());
        std::move(asides.begin(), asides.end(), std::back_inserter(m_asides));
        emit dataChanged(index(first), index(rowCount() - 1), {kAsideRole});
    }

    QString TipOf(int row) const {
        QStringList parts;
        if (const auto mark = m_marks.constFind(row); mark != m_marks.constEnd())
            parts += mark->tip();
        parts += AsideOf(row).tip;
        parts.removeAll(QString());
        return parts.join(u'\n');
    }

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override {
        if (role == Qt::AccessibleDescriptionRole)
            return TipOf(index.row());
        if (role == kAsideRole)
            return AsideOf(index.row()).text;
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
        std::function<QString()> tip;
    };

    Aside AsideOf(int row) const {
        const auto place = static_cast<std::size_t>(row);
        return place < m_asides.size() ? m_asides[place] : Aside();
    }

    QHash<int, Mark> m_marks;
    std::vector<Aside> m_asides; ///< of the first lines
};

} // namespace quorrel
