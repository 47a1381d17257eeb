#include "page/Legend.h"

#include "engine/CellStates.h"
#include "widgets/KeyPainter.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>

#include <algorithm>

namespace quorrel {

Legend::Legend(QWidget* parent) : QScrollArea(parent), m_grid(new QGridLayout(new QWidget)) {
    setWidget(m_grid->parentWidget());
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    static constexpr const char* texts[5][2] = {
        {"Unselected Key  No ID", "Unselected Key with ID"},
        {"Selected Key  No ID", "Selected Key with ID"},
        {"Active Sub Key  No ID", "Active Sub Key with ID "},
        {"Active Pre-Master  No ID", "Active Pre-Master with ID"},
        {"Active Sub-Master  No ID", "Active Sub-Master with ID"}};
    m_grid->setVerticalSpacing(3);
    for (int state = 0; state < 5; ++state)
        for (int labelled = 0; labelled < 2; ++labelled)
            Add(LookOfState(state + labelled * cellstate::kLabelled), tr(texts[state][labelled]));
    Add(LookOfState(cellstate::kNotRecommended), tr("Blue Line-Not Recomended"));
    Arrange(2);
}

void Legend::Add(const KeyLook& look, const QString& words) {
    const double ratio = devicePixelRatioF();
    QPixmap pixmap(QSize(32, 16) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    PaintKey(painter, QRectF(1, 0, 30, 16), look);
    painter.end();
    m_entries.push_back({new QLabel(widget()), new QLabel(words, widget())});
    m_entries.back().picture->setPixmap(pixmap);
    m_entries.back().words->setWordWrap(true); // Else they would say how wide the window is.
}

void Legend::Arrange(int columns) {
    if (columns == std::exchange(m_columns, columns))
        return;
    for (std::size_t place = 0; place < m_entries.size(); ++place) {
        const int row = static_cast<int>(place) / columns;
        const int column = static_cast<int>(place) % columns * 2;
        m_grid->addWidget(m_entries[place].picture, row, column);
        m_grid->addWidget(m_entries[place].words, row, column + 1);
    }
    m_grid->setColumnStretch(1, 1);
    m_grid->setColumnStretch(3, columns - 1);
    m_grid->setRowStretch(static_cast<int>(m_entries.size()), 1); // Rows keep together at the top.
}

QSize Legend::sizeHint() const {
    return {60, m_grid->totalHeightForWidth(viewport()->width())};
}

void Legend::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    int widest = 0;
    for (const Entry& entry : m_entries)
        widest = std::max(widest, fontMetrics().horizontalAdvance(entry.words->text()));
    const int picture = m_entries.front().picture->sizeHint().width();
    Arrange(viewport()->width() > 2 * (widest + picture) + 5 * m_grid->horizontalSpacing() ? 2 : 1);
    updateGeometry();
}

} // namespace quorrel
