#include "widgets/ScreenBoxes.h"

#include "widgets/PrinterBox.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QProgressDialog>

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

constexpr int kInputWidth = 320;
constexpr int kTitleButtons = 160; ///< the room that a window's own buttons take beside its title

/// Keeps the hourglass away while a box waits for the user.
class PlainPointer {
public:
    PlainPointer() {
        for (; QGuiApplication::overrideCursor(); ++m_waiting)
            QGuiApplication::restoreOverrideCursor();
    }
    ~PlainPointer() {
        for (; m_waiting > 0; --m_waiting)
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
    PlainPointer(const PlainPointer&) = delete;
    PlainPointer& operator=(const PlainPointer&) = delete;

private:
    int m_waiting = 0; ///< how many actions had the hourglass
};

class ProgressOnScreen : public Progress {
public:
    ProgressOnScreen(const QString& text, const QString& title, int steps)
        : m_dialog(text, QObject::tr("Cancel"), 0, steps, QApplication::activeWindow()) {
        m_dialog.setWindowTitle(title);
        m_dialog.setWindowModality(Qt::ApplicationModal);
        m_dialog.setMinimumDuration(kSoon);
    }

    bool Advance(int stepsDone) override {
        m_dialog.setValue(stepsDone);
        return !m_dialog.wasCanceled();
    }

private:
    static constexpr int kSoon = 400; ///< milliseconds; what takes less shows nothing

    PlainPointer m_pointer;
    QProgressDialog m_dialog;
};

} // namespace

BoxAnswer ScreenBoxes::ShowMessage(const QString& text, const QString& title, BoxButtons buttons,
                                   BoxIcon icon) {
    const PlainPointer pointer;
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

QString ScreenBoxes::ShowOpenFile(const QString& title, const QString& filter) {
    const PlainPointer pointer;
    QFileDialog dialog(QApplication::activeWindow(), title, {}, ToolkitFilter(filter));
    dialog.setFileMode(QFileDialog::ExistingFile);
    return dialog.exec() ? dialog.selectedFiles().value(0) : QString();
}

QString ScreenBoxes::ShowSaveFile(const QString& title, const QString& filter,
                                  const QString& proposal) {
    const PlainPointer pointer;
    QFileDialog dialog(QApplication::activeWindow(), title, {}, ToolkitFilter(filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.selectFile(proposal);
    dialog.setDefaultSuffix(QFileInfo(proposal).suffix());
    return dialog.exec() ? dialog.selectedFiles().value(0) : QString();
}

std::optional<QString> ScreenBoxes::ShowInput(const QString& text, const QString& title,
                                              const QString& proposal) {
    const PlainPointer pointer;
    QInputDialog dialog(QApplication::activeWindow());
    dialog.setWindowTitle(title);
    dialog.setLabelText(text);
    dialog.setTextValue(proposal);
    // Wide enough for its title and for a Key ID or a name.
    const int titleWidth = dialog.fontMetrics().horizontalAdvance(title);
    dialog.setMinimumWidth(std::max(kInputWidth, titleWidth + kTitleButtons));
    return dialog.exec() ? std::optional(dialog.textValue()) : std::nullopt;
}

std::optional<PrinterChoice> ScreenBoxes::ShowPrinters(const PrinterChoice& proposal) {
    const PlainPointer pointer;
    PrinterBox box(proposal, QApplication::activeWindow());
    return box.exec() ? std::optional(box.Choice()) : std::nullopt;
}

std::unique_ptr<Progress> ScreenBoxes::BeginProgress(const QString& text, const QString& title,
                                                     int steps) {
    return std::make_unique<ProgressOnScreen>(text, title, steps);
}

} // namespace quorrel
