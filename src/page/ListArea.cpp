#include "page/ListArea.h"

#include "doors/CrossKeyMark.h"

#include "ui_ListArea.h"

#include <QFocusEvent>

#include <algorithm>

namespace quorrel {

namespace {

template <class Line>
QStringList TextsOf(const std::vector<Line>& lines) {
    QStringList texts;
    texts.reserve(static_cast<qsizetype>(lines.size()));
    for (const Line& line : lines)
        texts.append(line.text);
    return texts;
}

/// What the highlighted line stands for.
QString SubjectOf(const TextList& list, const std::vector<SubjectLine>& lines) {
    return lines.at(static_cast<std::size_t>(list.CurrentRow())).subject;
}

} // namespace

ListArea::ListArea(QWidget* parent) : QWidget(parent), ui(std::make_unique<Ui::ListArea>()) {
    ui->setupUi(this);
    AlignPanes();
    m_panes = {Pane{ui->txtSearchAll, ui->cmdKeyList, ui->lstAllIDs,
                    [this] { emit KeysWanted(ui->txtSearchAll->text()); }},
               Pane{ui->txtSearchDoor, ui->cmdListDoors, ui->lstActiveDoors,
                    [this] { emit DoorsWanted(ui->txtSearchDoor->text()); }},
               Pane{ui->txtSearchUser, ui->cmdListUsers, ui->lstKeyUsers,
                    [this] { emit UsersWanted(ui->txtSearchUser->text()); }}};
    for (const Pane& pane : m_panes)
        Watch(pane);
    connect(ui->lstAllIDs, &TextList::Clicked, this, [this] {
        const KeyLine key = m_keys.at(static_cast<std::size_t>(ui->lstAllIDs->CurrentRow()));
        emit KeyChosen(key.page, key.cell);
    });
    connect(ui->lstActiveDoors, &TextList::Clicked, this, [this] {
        if (const QString label = SubjectOf(*ui->lstActiveDoors, m_doors); !label.isEmpty())
            emit DoorChosen(label);
    });
    connect(ui->lstKeyUsers, &TextList::Clicked, this, [this] {
        if (const QString id = SubjectOf(*ui->lstKeyUsers, m_users); !id.isEmpty())
            emit UserChosen(id);
    });
}

ListArea::~ListArea() = default;

/// Gives the boxes of all lists the same place, and most of the width.
void ListArea::AlignPanes() {
    int widest = 0;
    for (const QLabel* caption : {ui->Label3, ui->lblDoors, ui->lblKeyUsers})
        widest = std::max(widest, caption->sizeHint().width());
    for (QLabel* caption : {ui->Label3, ui->lblDoors, ui->lblKeyUsers})
        caption->setMinimumWidth(widest);
    for (QLineEdit* filter : {ui->txtSearchAll, ui->txtSearchDoor, ui->txtSearchUser})
        filter->setMinimumWidth(widest);
    for (QPushButton* button : {ui->cmdKeyList, ui->cmdListDoors, ui->cmdListUsers})
        button->setFixedWidth(2 * fontMetrics().horizontalAdvance(button->text()));
}

void ListArea::Watch(const Pane& pane) {
    connect(pane.button, &QPushButton::clicked, this, pane.fill);
    connect(pane.list, &TextList::LinesWanted, this, pane.fill);
    pane.list->SetLeadsElsewhere();
    pane.list->SetSearchBox(pane.filter, TextList::OnEnter::LinesWanted);
    pane.filter->installEventFilter(this);
}

bool ListArea::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut && isVisible()) {
        // A box whose window is left for another one is not left itself.
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        for (const Pane& pane : m_panes)
            if (watched == pane.filter && reason != Qt::ActiveWindowFocusReason &&
                reason != Qt::PopupFocusReason)
                pane.fill();
    }
    return QWidget::eventFilter(watched, event);
}

void ListArea::ShowKeys(std::vector<KeyLine> keys) {
    m_keys = std::move(keys);
    m_listsKeys = true;
    ui->lstAllIDs->SetLines(TextsOf(m_keys));
    ShowSelected(m_selected);
}

QString ListArea::KeyFilter() const {
    return ui->txtSearchAll->text();
}

void ListArea::ShowSelected(RowKey key) {
    m_selected = key;
    const auto line = std::find_if(m_keys.begin(), m_keys.end(),
                                   [key](const KeyLine& shown) { return shown.key == key; });
    ui->lstAllIDs->SetCurrentRow(line == m_keys.end() ? -1
                                                      : static_cast<int>(line - m_keys.begin()));
}

void ListArea::ShowDoors(std::vector<SubjectLine> doors, Session& session) {
    m_doors = std::move(doors);
    ui->lstActiveDoors->Refill(TextsOf(m_doors));
    for (std::size_t row = 0; row < m_doors.size(); ++row)
        if (const RowKey door = m_doors[row].crossKeyed; door != 0)
            MarkCrossKeyed(*ui->lstActiveDoors, static_cast<int>(row), session, door);
}

void ListArea::ShowUsers(std::vector<SubjectLine> users) {
    m_users = std::move(users);
    ui->lstKeyUsers->Refill(TextsOf(m_users));
}

void ListArea::ClearKey() {
    m_doors.clear();
    ui->lstActiveDoors->SetLines({});
    ShowUsers({});
}

void ListArea::FocusNext() {
    const Pane* next = m_panes.data();
    for (const Pane& pane : m_panes)
        if (pane.filter->hasFocus() && &pane != &m_panes.back())
            next = &pane + 1;
    next->filter->setFocus(Qt::ShortcutFocusReason);
    next->filter->selectAll();
}

} // namespace quorrel
