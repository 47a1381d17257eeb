#include "widgets/PrinterBox.h"

#include "print/Printers.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace quorrel {

namespace {

constexpr int kMostCopies = 99;

QSpinBox* NumberBox(QWidget* parent, const char* name, int first, int last, int value) {
    auto* box = new QSpinBox(parent);
    box->setObjectName(QLatin1String(name));
    box->setRange(first, last);
    box->setValue(value);
    return box;
}

} // namespace

PrinterBox::PrinterBox(const PrinterChoice& proposal, QWidget* parent)
    : QDialog(parent), cmbPrinter(new QComboBox(this)), lblWhere(new QLabel(this)),
      txtCopies(NumberBox(this, "txtCopies", 1, kMostCopies, proposal.copies)) {
    setObjectName(QStringLiteral("PrinterBox"));
    setWindowTitle(tr("Print"));
    cmbPrinter->setObjectName(QStringLiteral("cmbPrinter"));
    for (const PrinterEntry& printer : ListPrinters())
        cmbPrinter->addItem(printer.DeviceName, printer.Port);
    cmbPrinter->setCurrentText(proposal.printer);
    lblWhere->setWordWrap(true);
    lblWhere->setTextFormat(Qt::PlainText);

    auto* layout = new QVBoxLayout(this);
    auto* rows = new QFormLayout;
    rows->addRow(tr("Prin&ter"), cmbPrinter);
    rows->addRow(QString(), lblWhere);
    rows->addRow(tr("&Copies"), txtCopies);
    if (proposal.lastPage > 0)
        rows->addRow(tr("Pages"), MakePages(proposal));
    layout->addLayout(rows);
    auto* buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, Qt::Horizontal, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("&Print"));
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(cmbPrinter, &QComboBox::currentTextChanged, this, &PrinterBox::ShowPrinter);
    ShowPrinter();
}

QWidget* PrinterBox::MakePages(const PrinterChoice& proposal) {
    auto* pages = new QWidget(this);
    auto* row = new QHBoxLayout(pages);
    row->setContentsMargins(0, 0, 0, 0);
    optAll = new QRadioButton(tr("&All"), pages);
    optAll->setObjectName(QStringLiteral("optAll"));
    auto* optFrom = new QRadioButton(tr("&From"), pages);
    optFrom->setObjectName(QStringLiteral("optFrom"));
    txtFrom = NumberBox(pages, "txtFrom", 1, proposal.lastPage, proposal.firstPage);
    txtTo = NumberBox(pages, "txtTo", 1, proposal.lastPage, proposal.lastPage);
    txtFrom->setAccessibleName(tr("From page"));
    txtTo->setAccessibleName(tr("To page"));
    for (QWidget* part : std::initializer_list<QWidget*>{optAll, optFrom, txtFrom})
        row->addWidget(part);
    row->addWidget(new QLabel(tr("to"), pages));
    row->addWidget(txtTo);
    optAll->setChecked(true);
    for (QSpinBox* box : {txtFrom, txtTo})
        connect(box, &QSpinBox::valueChanged, optFrom, [optFrom] { optFrom->setChecked(true); });
    connect(txtFrom, &QSpinBox::valueChanged, txtTo, &QSpinBox::setMinimum);
    return pages;
}

void PrinterBox::ShowPrinter() {
    lblWhere->setText(cmbPrinter->currentData().toString());
    // A file is written once.
    txtCopies->setEnabled(!IsPdfPrinter(cmbPrinter->currentText()));
}

PrinterChoice PrinterBox::Choice() const {
    PrinterChoice choice{cmbPrinter->currentText(), txtCopies->isEnabled() ? txtCopies->value() : 1,
                         1, 0};
    if (optAll && !optAll->isChecked()) {
        choice.firstPage = txtFrom->value();
        choice.lastPage = txtTo->value();
    }
    return choice;
}

} // namespace quorrel
