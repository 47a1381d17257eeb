#pragma once

#include "platform/Text.h"

#include <QStringListModel>
#include <QStyledItemDelegate>

#include <algorithm>

namespace quorrel {

/// Characters of a line that are painted: more than a list has room for, fewer than take time.
inline constexpr int kPaintedLength = 500;

/// Shows the texts of a `QStringListModel`, each on one line whatever line breaks it has. Every
/// line gets the room of the longest, which alone is measured.
class LineDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale&) const override {
        return OneLine(value.toString().left(kPaintedLength));
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QStringList lines = static_cast<const QStringListModel*>(index.model())->stringList();
        const auto longest =
            std::max_element(lines.begin(), lines.end(), [](const QString& a, const QString& b) {
                return a.size() < b.size();
            });
        return QStyledItemDelegate::sizeHint(
            option, index.siblingAtRow(static_cast<int>(longest - lines.begin())));
    }
};

} // namespace quorrel
