#include "widgets/ScreenBoxes.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>

namespace quorrel {

namespace {

QMessageBox::StandardButtons Offered(BoxButtons buttons) {
    switch (buttons) {
    case BoxButtons::OkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case BoxButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case BoxButtons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon IconFor(BoxIcon icon) {
    switch (icon) {
    case BoxIcon::Information:
        return QMessageBox::Information;
    case BoxIcon::Question:
        return QMessageBox::Question;
    case BoxIcon::Warning:
        return QMessageBox::Warning;
    case BoxIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

/// "Images (*.bmp)|*.bmp" names a filter and its patterns; the toolkit wants "Images (*.bmp)".
QString ToolkitFilter(const QString& filter) {
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString name = parts[i].section(QStringLiteral(" ("), 0, 0);
        const QString patterns = QString(parts[i + 1]).replace(u';', u' ');
        filters.append(QStringLiteral("%1 (%2)").arg(name, patterns));
    }
    return filters.join(QStringLiteral(";;"));
}

} // namespace

BoxAnswer ScreenBoxes::ShowMessage(const QString& text, const QString& title, BoxButtons buttons,
                                   BoxIcon icon) {
    QMessageBox box(QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setWindowTitle(title);
    box.setIcon(IconFor(icon));
    box.setStandardButtons(Offered(buttons));
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    if (buttons == BoxButtons::YesNo) {
        box.setEscapeButton(QMessageBox::No);
        // A warning is not to be waved through with the Enter key.
        box.setDefaultButton(icon == BoxIcon::Warning ? QMessageBox::No : QMessageBox::Yes);
    }
    switch (box.exec()) {
    case QMessageBox::Yes:
        return BoxAnswer::Yes;
    case QMessageBox::No:
        return BoxAnswer::No;
    case QMessageBox::Cancel:
        return BoxAnswer::Cancel;
    default:
        return buttons == BoxButtons::OkCancel && box.result() != QMessageBox::Ok
                   ? BoxAnswer::Cancel
                   : BoxAnswer::Ok;
    }
}

QString ScreenBoxes::OpenFile(const QString& title, const QString& filter) {
    return QFileDialog::getOpenFileName(QApplication::activeWindow(), title, {},
                                        ToolkitFilter(filter));
}

QString ScreenBoxes::SaveFile(const QString& title, const QString& filter,
                              const QString& proposal) {
    QFileDialog dialog(QApplication::activeWindow(), title, {}, ToolkitFilter(filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.selectFile(proposal);
    dialog.setDefaultSuffix(QFileInfo(proposal).suffix());
    return dialog.exec() ? dialog.selectedFiles().value(0) : QString();
}

std::optional<QString> ScreenBoxes::Input(const QString& text, const QString& title,
                                          const QString& proposal) {
    bool accepted = false;
    const QString typed = QInputDialog::getText(QApplication::activeWindow(), title, text,
                                                QLineEdit::Normal, proposal, &accepted);
    return accepted ? std::optional(typed) : std::nullopt;
}

} // namespace quorrel
