#pragma once

#include "print/PrintRun.h"

#include <QDialog>

#include <vector>

class QLabel;
class QPrintPreviewWidget;
class QPrinter;
class QToolButton;

namespace quorrel {

/// What will be printed, as it will look on paper: to be turned, looked at closely, printed or
/// written into a file.
class Preview : public QDialog {
    Q_OBJECT

public:
    Preview(Session& session, PaintedJob job, QWidget* parent);
    ~Preview() override;

    /// Where to look for what was printed from here last; empty for nothing.
    const QString& Done() const { return m_done; }

private:
    QToolButton* AddButton(const char* name, const QString& text, const QKeySequence& key,
                           void (Preview::*action)());
    void TurnBack();
    void TurnOn();
    void ZoomIn();
    void ZoomOut();
    void FitWidth();
    void FitPage();
    void Print();
    void WritePdf();
    void Guarded(const std::function<void()>& action);
    void ShowPlace();

    Session& m_session;
    const PaintedJob m_job;
    std::unique_ptr<QPrinter> m_paper;
    QPrintPreviewWidget* m_pages;
    QLabel* lblPage;
    QToolButton *cmdPrevious, *cmdNext;
    QString m_done;
};

/// Lays out a report and shows it. Says what `Preview::Done` says.
QString ShowPreview(Session& session, QWidget* over, const PrintJob& job);

/// Shows documents that are laid out.
QString ShowPreview(Session& session, QWidget* over, std::vector<PrintedPages> documents);

/// Shows a page that paints itself.
QString ShowPreview(Session& session, QWidget* over, const PaintedJob& job);

} // namespace quorrel
