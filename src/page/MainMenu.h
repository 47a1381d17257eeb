#pragma once

#include "store/Session.h"

#include <QMenuBar>
#include <QSet>

#include <memory>
#include <vector>

class QAction;

namespace Ui {
class MainMenu;
}

namespace quorrel {

/// What is printed of the system as a whole, or of the page on the screen.
enum class MainReport { System, Page, Keys };

/// The menu of the main form. Its entries ask for the forms that they lead to.
class MainMenu : public QMenuBar {
    Q_OBJECT

public:
    explicit MainMenu(QWidget* parent = nullptr);
    ~MainMenu() override;

    /// Dims what the user has no right to, and what leads to a form that is not among `offered`.
    void Offer(const Permissions& may, const QSet<QString>& offered);

    /// What is said of an entry or a button that leads nowhere yet.
    static QString NotYet();

signals:
    void FormWanted(const QString& form);
    /// A report is to be printed, or shown as it will be.
    void ReportWanted(MainReport report, bool preview);
    void ContentsWanted();
    void IndexWanted();

private:
    /// An entry that leads to a form, and whether the user has the right to it.
    struct FormEntry {
        QAction* action;
        const char* form;
        bool allowed;
    };

    /// An entry that prints or shows a report.
    struct PrintEntry {
        QAction* action;
        MainReport report;
        bool preview;
    };

    std::vector<FormEntry> FormEntries(const Permissions& may) const;
    std::vector<PrintEntry> PrintEntries() const;

    std::unique_ptr<Ui::MainMenu> ui;
};

} // namespace quorrel
