#pragma once

#include "print/Printer.h"
#include "reports/ReportEntry.h"
#include "reports/ReportHead.h"
#include "store/Session.h"

#include <QStringList>

#include <functional>
#include <vector>

namespace quorrel {

/// A report on what the user chooses from a list: what its form is called and shows, and what is
/// listed and printed.
struct SelectionReport {
    QString form;       ///< name of the form
    QString lists;      ///< what the names of its lists end in, such as "Keys" of `lstAllKeys`
    QString title;      ///< of the form and of the document
    QString candidates; ///< heading of the list to choose from
    bool asksCopies = false;
    bool tellsOfPrinter = false; ///< has a message of its own for a printer that does not answer
    int atMost = 0;              ///< how many may be chosen; 0: all
    QString option;              ///< a choice that the form offers besides; empty for none

    std::function<std::vector<ReportEntry>(Session&)> list;
    /// What is told of a candidate that is clicked; may be empty.
    std::function<QString(Session&, const ReportEntry&)> about;
    /// Prints a copy. Gives the names of what is not there any more.
    std::function<QStringList(Session&, Printer&, const ReportHead&,
                              const std::vector<ReportEntry>& chosen, bool option)>
        print;
};

/// The reports that are printed of what is chosen from a list.
const std::vector<SelectionReport>& SelectionReports();

} // namespace quorrel
