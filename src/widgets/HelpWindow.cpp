#include "widgets/HelpWindow.h"

#include "widgets/WindowPlace.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QSplitter>
#include <QTextBrowser>
#include <QTextTable>
#include <QVBoxLayout>

#include <algorithm>

namespace quorrel {

namespace {

/// Gives the tables of a text thin lines and room, which Markdown has no words for.
void SetTables(QTextDocument& text, const QColor& lines) {
    for (QTextFrame* frame : text.rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (!table)
            continue;
        QTextTableFormat format = table->format();
        format.setBorderCollapse(true);
        format.setBorder(1);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderBrush(lines);
        format.setCellPadding(5);
        format.setTopMargin(4);
        format.setBottomMargin(10);
        table->setFormat(format);
    }
}

} // namespace

HelpWindow::HelpWindow(const QString& helpFile, QString& place)
    : m_place(place), m_topics(ReadHelpTopics(helpFile)), m_search(new QLineEdit),
      m_list(new QListWidget), m_text(new QTextBrowser) {
    setObjectName(QStringLiteral("frmHelp"));
    setWindowTitle(tr("Quorrel - Help"));
    m_search->setObjectName(QStringLiteral("txtSearch"));
    m_search->setPlaceholderText(tr("Search the help"));
    m_search->setAccessibleName(tr("Search the help"));
    m_search->setClearButtonEnabled(true);
    m_list->setObjectName(QStringLiteral("lstTopics"));
    m_list->setAccessibleName(tr("Help topics"));
    m_text->setObjectName(QStringLiteral("txtTopic"));
    m_text->setAccessibleName(tr("Help text"));
    m_text->setOpenLinks(false);

    auto* left = new QWidget;
    auto* leftLayout = new QVBoxLayout(left);
    leftLayout->setContentsMargins(0, 0, 0, 0);
    leftLayout->addWidget(m_search);
    leftLayout->addWidget(m_list);
    auto* splitter = new QSplitter;
    splitter->setObjectName(QStringLiteral("splHelp"));
    splitter->addWidget(left);
    splitter->addWidget(m_text);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({240, 560});
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(splitter);
    resize(900, 620);

    if (m_topics.empty())
        m_text->setPlainText(tr("The help file %1 cannot be found.").arg(helpFile));
    for (const HelpTopic& topic : m_topics)
        m_list->addItem(topic.title);
    connect(m_search, &QLineEdit::textChanged, this, &HelpWindow::FilterTopics);
    connect(m_list, &QListWidget::currentRowChanged, this, &HelpWindow::ShowRow);
}

void HelpWindow::ShowTopic(int context) {
    m_search->clear();
    const auto topic =
        std::find_if(m_topics.begin(), m_topics.end(),
                     [&](const HelpTopic& candidate) { return candidate.context == context; });
    const auto row = topic == m_topics.end() ? 0 : std::distance(m_topics.begin(), topic);
    m_list->setCurrentRow(static_cast<int>(row));
    ComeUp();
    m_list->setFocus();
}

void HelpWindow::ShowIndex() {
    m_search->clear();
    m_list->setCurrentRow(0);
    ComeUp();
    m_search->setFocus();
}

void HelpWindow::FilterTopics(const QString& words) {
    for (int row = 0; row < m_list->count(); ++row) {
        const HelpTopic& topic = m_topics[static_cast<std::size_t>(row)];
        m_list->item(row)->setHidden(!topic.text.contains(words.trimmed(), Qt::CaseInsensitive));
    }
    const auto hits = [this] {
        for (int row = 0; row < m_list->count(); ++row)
            if (!m_list->item(row)->isHidden())
                return row;
        return -1;
    }();
    if (hits >= 0 && (m_list->currentRow() < 0 || m_list->currentItem()->isHidden()))
        m_list->setCurrentRow(hits);
}

void HelpWindow::ShowRow(int row) {
    if (row < 0)
        return;
    m_text->setMarkdown(m_topics[static_cast<std::size_t>(row)].text);
    m_text->document()->setDocumentMargin(14);
    QColor lines = m_text->palette().color(QPalette::Text);
    lines.setAlphaF(0.35F);
    SetTables(*m_text->document(), lines);
}

void HelpWindow::ComeUp() {
    if (!isVisible())
        PlaceWindow(*this, m_place, {0.5, 0.25});
    show();
    raise();
    activateWindow();
}

void HelpWindow::hideEvent(QHideEvent* event) {
    m_place = PlaceOf(*this);
    QWidget::hideEvent(event);
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace quorrel
