#pragma once

#include <QStyledItemDelegate>

namespace quorrel {

/// Shows an item on one line, whatever line breaks its text has.
class OneLineDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale&) const override {
        QString text = value.toString();
        text.replace(QLatin1String("\r\n"), QLatin1String("  "));
        for (const char16_t lineBreak : {u'\r', u'\n', u'\u2028', u'\u2029'})
            text.replace(QChar(lineBreak), u' ');
        return text;
    }
};

} // namespace quorrel
