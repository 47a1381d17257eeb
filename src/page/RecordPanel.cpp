#include "page/RecordPanel.h"

#include "platform/Text.h"
#include "ui_RecordPanel.h"
#include "widgets/Manners.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>

namespace quorrel {

namespace {

constexpr int kDescriptionLength = 250;

bool IsPageKey(const QKeyEvent& press) {
    return press.modifiers() == Qt::NoModifier &&
           (press.key() == Qt::Key_PageUp || press.key() == Qt::Key_PageDown);
}

} // namespace

RecordPanel::RecordPanel(QWidget* parent)
    : QGroupBox(parent), ui(std::make_unique<Ui::RecordPanel>()) {
    ui->setupUi(this);
    QFont digits = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    digits.setPointSizeF(font().pointSizeF() * 1.15);
    digits.setBold(true);
    ui->lblCuts->setFont(digits);
    connect(ui->txtKeyID, &QLineEdit::textChanged, this, &RecordPanel::Changed);
    connect(ui->txtKeyway, &QLineEdit::textChanged, this, &RecordPanel::Changed);
    connect(ui->cmbDepartment, &QComboBox::currentTextChanged, this, &RecordPanel::Changed);
    connect(ui->txtDescription->document(), &QTextDocument::contentsChange, this,
            [this](int place, int, int added) { m_insertionEnd = place + added; });
    connect(ui->txtDescription, &QPlainTextEdit::textChanged, this, [this] {
        HoldDescription();
        emit Changed();
    });
    for (QObject* box : std::initializer_list<QObject*>{ui->txtKeyID, ui->txtKeyway,
                                                        ui->cmbDepartment, ui->txtDescription})
        box->installEventFilter(this);
}

RecordPanel::~RecordPanel() = default;

void RecordPanel::SetEditable(bool editable) {
    ui->txtKeyID->setReadOnly(!editable);
    ui->txtKeyway->setReadOnly(!editable);
    ui->txtDescription->setReadOnly(!editable);
    ui->cmbDepartment->setEnabled(editable);
}

KeyRecordText RecordPanel::Text() const {
    return {ui->txtKeyID->text(), ui->txtKeyway->text(), ui->cmbDepartment->currentText(),
            ui->txtDescription->toPlainText()};
}

void RecordPanel::ShowText(const KeyRecordText& text) {
    ui->txtDescription->setPlainText(text.description);
    ui->cmbDepartment->setCurrentText(text.department);
    ui->txtKeyID->setText(text.keyID);
    ui->txtKeyway->setText(text.keyway);
}

void RecordPanel::ShowKeyID(const QString& keyID) {
    ui->txtKeyID->setText(keyID);
}

void RecordPanel::ShowKey(const KeySelection& selection, const QString& place) {
    m_place = place;
    ui->lblSerial->setText(selection.serial);
    ui->lblDate->setText(selection.dateText);
    ui->lblCuts->setText(selection.cuts);
}

void RecordPanel::ShowEdited(bool edited) {
    const QString key =
        m_place.isEmpty() ? tr("Selected Key") : tr("Selected Key - %1").arg(m_place);
    setTitle(edited ? tr("%1 (not stored yet)").arg(key) : key);
}

void RecordPanel::ShowDepartments(const QStringList& departments) {
    ui->cmbDepartment->SetTexts(departments, ui->cmbDepartment->currentText().toUpper());
}

void RecordPanel::LeaveBox() {
    for (QWidget* box :
         std::initializer_list<QWidget*>{ui->txtKeyID, ui->txtKeyway, ui->cmbDepartment})
        if (box->hasFocus())
            RaiseCase(box);
}

void RecordPanel::FocusKeyID() {
    ui->txtKeyID->setFocus();
}

void RecordPanel::SelectKeyway() {
    ui->txtKeyway->setSelection(0, 12);
}

QWidget* RecordPanel::BoxAfter(const QObject* box) const {
    if (box == ui->txtKeyway)
        return ui->txtKeyID;
    if (box == ui->txtKeyID)
        return ui->cmbDepartment;
    return box == ui->cmbDepartment ? ui->txtDescription : nullptr;
}

/// Pressed once more than needed, Enter must not put a line end in the place of the whole text: the
/// caret goes to its end instead. Returns whether the whole text was selected.
bool RecordPanel::KeepWholeDescription() {
    const QTextCursor cursor = ui->txtDescription->textCursor();
    const auto selected = cursor.selectionEnd() - cursor.selectionStart();
    if (selected == 0 || selected != ui->txtDescription->toPlainText().size())
        return false;
    ui->txtDescription->moveCursor(QTextCursor::End);
    return true;
}

bool RecordPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn)
        QTimer::singleShot(0, this, [this, watched] { EnterBox(watched); });
    if (event->type() == QEvent::FocusOut)
        RaiseCase(watched);
    if (event->type() == QEvent::ShortcutOverride && watched == ui->txtDescription &&
        IsPageKey(*static_cast<QKeyEvent*>(event)) &&
        ui->txtDescription->verticalScrollBar()->maximum() > 0) {
        event->accept(); // It has more lines than it shows, and moves through them itself.
        return true;
    }
    if (event->type() == QEvent::KeyPress && IsEnter(*static_cast<QKeyEvent*>(event))) {
        if (watched == ui->txtDescription) {
            if (KeepWholeDescription())
                return true;
        } else if (QWidget* next = BoxAfter(watched)) {
            next->setFocus();
            return true;
        }
    }
    return QGroupBox::eventFilter(watched, event);
}

/// Selects the whole text of a box that has got the focus.
void RecordPanel::EnterBox(QObject* box) {
    if (box == ui->txtDescription && ui->txtDescription->hasFocus())
        ui->txtDescription->selectAll();
    if (box == ui->cmbDepartment && ui->cmbDepartment->hasFocus())
        ui->cmbDepartment->lineEdit()->selectAll();
    if (auto* edit = qobject_cast<QLineEdit*>(box); edit && edit->hasFocus())
        edit->selectAll();
}

void RecordPanel::RaiseCase(QObject* box) {
    if (box == ui->txtKeyID) {
        const QString text = ui->txtKeyID->text().toUpper();
        // A blank that takes the Key ID away stays until the key is left.
        ui->txtKeyID->setText(text.trimmed().isEmpty() ? text.left(1) : RightTrimmed(text));
    }
    if (box == ui->txtKeyway)
        ui->txtKeyway->setText(ui->txtKeyway->text().toUpper());
    if (box == ui->cmbDepartment)
        ui->cmbDepartment->setEditText(ui->cmbDepartment->currentText().toUpper());
}

/// Holds the description to the length that is kept: what is too much is refused where it came in.
void RecordPanel::HoldDescription() {
    const auto excess = ui->txtDescription->toPlainText().size() - kDescriptionLength;
    if (excess <= 0)
        return;
    QTextCursor cursor(ui->txtDescription->document());
    cursor.joinPreviousEditBlock();
    cursor.setPosition(
        std::min(m_insertionEnd, ui->txtDescription->document()->characterCount() - 1));
    cursor.movePosition(QTextCursor::Left, QTextCursor::KeepAnchor, static_cast<int>(excess));
    cursor.removeSelectedText();
    cursor.endEditBlock();
    emit DescriptionFull();
}

} // namespace quorrel
