#pragma once

#include "platform/Text.h"

#include <QStringListModel>
#include <QStyledItemDelegate>

#include <algorithm>

namespace quorrel {

/// What is painted of a text that stands on one line, whatever line breaks it has: more than there
/// is room for, less than takes time.
inline QString PaintedLine(const QString& text) {
    constexpr int kLength = 500;
    return OneLine(text.left(kLength));
}

/// Shows the texts of a `QStringListModel`, each on one line. Every line gets the room of the
/// longest, which alone is measured.
class LineDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale&) const override {
        return PaintedLine(value.toString());
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
