#pragma once

#include "platform/Text.h"
#include "widgets/LineModel.h"

#include <QAbstractItemView>
#include <QPainter>
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

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
        const QString aside = index.data(LineModel::kAsideRole).toString();
        if (!view || aside.isEmpty())
            return;
        PaintAside(*painter, option, aside, view->viewport()->width());
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

private:
    /// At the right edge of what is seen, over whatever of the line reaches there.
    static void PaintAside(QPainter& painter, const QStyleOptionViewItem& option,
                           const QString& aside, int right) {
        constexpr int gap = 4;
        const int width = option.fontMetrics.horizontalAdvance(aside) + 2 * gap;
        const QRect place(right - width, option.rect.top(), width, option.rect.height());
        const bool selected = option.state.testFlag(QStyle::State_Selected);
        painter.fillRect(
            place, option.palette.color(selected ? QPalette::Highlight : QPalette::AlternateBase));
        painter.setPen(option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
        painter.setFont(option.font);
        painter.drawText(place.adjusted(gap, 0, -gap, 0), Qt::AlignRight | Qt::AlignVCenter, aside);
    }
};

} // namespace quorrel
