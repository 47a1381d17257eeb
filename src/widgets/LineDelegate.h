#pragma once

#include <QStringListModel>
#include <QStyledItemDelegate>

#include <algorithm>

namespace quorrel {

/// Shows the texts of a `QStringListModel`, each on one line whatever line breaks it has. Every
/// line gets the room of the longest, which alone is measured.
class LineDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale&) const override {
        QString text = value.toString();
        text.replace(QLatin1String("\r\n"), QLatin1String("  "));
        for (const char16_t lineBreak : {u'\r', u'\n', u'\u2028', u'\u2029'})
            text.replace(QChar(lineBreak), u' ');
        return text;
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
