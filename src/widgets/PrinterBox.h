#pragma once

#include "platform/Boxes.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QRadioButton;
class QSpinBox;

namespace quorrel {

/// Asks for a printer, for how many copies and, of a report that has them, for which pages.
class PrinterBox : public QDialog {
    Q_OBJECT

public:
    /// Pages are asked for where the proposal names a last one.
    PrinterBox(const PrinterChoice& proposal, QWidget* parent);

    PrinterChoice Choice() const;

private:
    QWidget* MakePages(const PrinterChoice& proposal);
    void ShowPrinter();

    QComboBox* cmbPrinter;
    QLabel* lblWhere;
    QSpinBox* txtCopies;
    QRadioButton* optAll = nullptr;
    QSpinBox *txtFrom = nullptr, *txtTo = nullptr;
};

} // namespace quorrel
