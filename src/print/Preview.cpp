#include "print/Preview.h"

#include "print/Printers.h"
#include "print/SheetPainter.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QScreen>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace quorrel {

namespace {

constexpr int kWidth = 900, kHeight = 700;
constexpr double kShareOfScreen = 0.85;

/// The documents one behind the other, as a job of the layout that they share.
PaintedJob JobOf(std::vector<PrintedPages> documents) {
    const PrintedPages& first = documents.front();
    const SheetLayout layout = first.layout;
    return {first.title,
            layout.paper.width > layout.paper.height ? QPageLayout::Landscape
                                                     : QPageLayout::Portrait,
            [documents = std::move(documents), layout](QPagedPaintDevice& device) {
                SetUpPaper(device, layout);
                SheetPress press(device);
                for (const PrintedPages& document : documents)
                    for (const PrintedSheet& sheet : document.sheets)
                        press.Take(sheet, document.layout);
                press.End();
            }};
}

} // namespace

Preview::Preview(Session& session, PaintedJob job, QWidget* parent)
    : QDialog(parent), m_session(session), m_job(std::move(job)),
      m_paper(std::make_unique<QPrinter>(QPrinter::HighResolution)),
      m_pages(new QPrintPreviewWidget(m_paper.get(), this)), lblPage(new QLabel(this)) {
    setObjectName(QStringLiteral("Preview"));
    setWindowTitle(tr("Preview - %1").arg(m_job.name));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    // Pages are drawn for a device that is there on every machine.
    m_paper->setOutputFormat(QPrinter::PdfFormat);
    m_paper->setPageOrientation(m_job.orientation);
    const Paper paper = PaperOf(PresentPrinter(session).DeviceName);
    m_paper->setPageSize(
        QPageSize({paper.width, paper.height}, QPageSize::Point, {}, QPageSize::FuzzyMatch));
    connect(m_pages, &QPrintPreviewWidget::paintRequested, this,
            [this](QPrinter* printer) { m_job.paint(*printer); });
    connect(m_pages, &QPrintPreviewWidget::previewChanged, this, &Preview::ShowPlace);

    auto* layout = new QVBoxLayout(this);
    auto* buttons = new QHBoxLayout;
    layout->addLayout(buttons);
    layout->addWidget(m_pages, 1);
    const auto add = [&](QToolButton* button) {
        buttons->addWidget(button);
        return button;
    };
    cmdPrevious = add(AddButton("cmdPrevious", tr("&Back"), Qt::Key_PageUp, &Preview::TurnBack));
    lblPage->setObjectName(QStringLiteral("lblPage"));
    buttons->addWidget(lblPage);
    cmdNext = add(AddButton("cmdNext", tr("&Next"), Qt::Key_PageDown, &Preview::TurnOn));
    buttons->addStretch();
    add(AddButton("cmdZoomOut", tr("S&maller"), QKeySequence::ZoomOut, &Preview::ZoomOut));
    add(AddButton("cmdZoomIn", tr("&Larger"), QKeySequence::ZoomIn, &Preview::ZoomIn));
    add(AddButton("cmdFitWidth", tr("Whole &Width"), {}, &Preview::FitWidth));
    add(AddButton("cmdFitPage", tr("Whole Pa&ge"), {}, &Preview::FitPage));
    buttons->addStretch();
    add(AddButton("cmdPrint", tr("&Print"), QKeySequence::Print, &Preview::Print));
    add(AddButton("cmdPdf", tr("&Save as PDF"), QKeySequence::Save, &Preview::WritePdf));
    add(AddButton("cmdClose", tr("&Close"), {}, &Preview::accept));

    const QSize free = screen()->availableSize() * kShareOfScreen;
    resize(std::min(kWidth, free.width()), std::min(kHeight, free.height()));
    m_pages->setAccessibleName(tr("Pages as they will be printed"));
    m_pages->setFocus();
    m_pages->fitInView();
}

Preview::~Preview() {
    // It draws on the device, and so goes first.
    delete m_pages;
}

QToolButton* Preview::AddButton(const char* name, const QString& text, const QKeySequence& key,
                                void (Preview::*action)()) {
    auto* button = new QToolButton(this);
    button->setText(text);
    button->setObjectName(QLatin1String(name));
    const auto run = [this, action] { Guarded([&] { (this->*action)(); }); };
    connect(button, &QToolButton::clicked, this, run);
    if (!key.isEmpty()) {
        button->setToolTip(key.toString(QKeySequence::NativeText));
        connect(new QShortcut(key, this), &QShortcut::activated, this, run);
    }
    return button;
}

void Preview::Guarded(const std::function<void()>& action) {
    try {
        action();
    } catch (const std::exception& error) {
        m_session.boxes.Message(QString::fromUtf8(error.what()), m_session.ProgramTitle,
                                BoxButtons::Ok, BoxIcon::Warning);
    }
}

void Preview::ShowPlace() {
    const int page = m_pages->currentPage();
    lblPage->setText(tr("Page %1 of %2").arg(page).arg(m_pages->pageCount()));
    cmdPrevious->setEnabled(page > 1);
    cmdNext->setEnabled(page < m_pages->pageCount());
}

void Preview::TurnBack() {
    m_pages->setCurrentPage(std::max(1, m_pages->currentPage() - 1));
    ShowPlace();
}

void Preview::TurnOn() {
    m_pages->setCurrentPage(std::min(m_pages->pageCount(), m_pages->currentPage() + 1));
    ShowPlace();
}

void Preview::ZoomIn() {
    m_pages->zoomIn();
}

void Preview::ZoomOut() {
    m_pages->zoomOut();
}

void Preview::FitWidth() {
    m_pages->fitToWidth();
}

void Preview::FitPage() {
    m_pages->fitInView();
}

void Preview::Print() {
    const auto choice = ChoosePrinter(m_session);
    if (!choice)
        return;
    if (const QString done = PrintPainted(m_session, m_job, choice->copies); !done.isEmpty())
        m_done = done;
}

void Preview::WritePdf() {
    if (const QString done = PaintIntoPdf(m_session, m_job); !done.isEmpty())
        m_done = done;
}

QString ShowPreview(Session& session, QWidget* over, const PrintJob& job) {
    return ShowPreview(session, over, LayOut(session, job));
}

QString ShowPreview(Session& session, QWidget* over, std::vector<PrintedPages> documents) {
    return documents.empty() ? QString() : ShowPreview(session, over, JobOf(std::move(documents)));
}

QString ShowPreview(Session& session, QWidget* over, const PaintedJob& job) {
    Preview preview(session, job, over);
    preview.exec();
    return preview.Done();
}

} // namespace quorrel
