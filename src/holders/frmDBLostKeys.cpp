#include "holders/frmDBLostKeys.h"

#include "store/Conflict.h"
#include "ui_frmDBLostKeys.h"
#include "widgets/HelpContexts.h"

#include <QTimer>

namespace quorrel {

namespace {

/// Characters that the columns show at first.
constexpr int kWidths[kLogColumns] = {13, 11, 14, 13, 22, 19, 24, 15, 10};

static_assert(KeyLogModel::kPendingRole == RecordGrid::kPendingRole);

} // namespace

frmDBLostKeys::frmDBLostKeys(Session& session, KeyLog log)
    : Form(session), ui(std::make_unique<Ui::frmDBLostKeys>()), m_log(log),
      m_model(session, log, [this](const QString& reason) {
          // Not in the middle of painting.
          QTimer::singleShot(0, this, [this, reason] { TellFailure(reason); });
      }) {
    const bool lost = log == KeyLog::Lost;
    setObjectName(lost ? QStringLiteral("frmDBLostKeys") : QStringLiteral("frmDBReturnKey"));
    ui->setupUi(this);
    setWindowTitle(lost ? tr("Lost Keys Recorded") : tr("Returned Keys Recorded"));
    OfferHelp(lost ? help::kLostKeys : help::kReturnedKeys);
    OfferFoot();
    ui->grdDataGrid->setModel(&m_model);
    ui->grdDataGrid->setAccessibleName(windowTitle());
    SizeColumns();
    WatchButtons();
    QHeaderView* heads = ui->grdDataGrid->horizontalHeader();
    heads->setSectionsClickable(true);
    On(heads, &QHeaderView::sectionClicked,
       [this](int column) { Trapped([&] { SortBy(column); }); });
    On(ui->grdDataGrid, &RecordGrid::NewRecordWanted, [this] { OpenNewRecord(); });
    On(ui->grdDataGrid->selectionModel(), &QItemSelectionModel::currentRowChanged,
       [this] { ShowRecord(); });
}

frmDBLostKeys::~frmDBLostKeys() = default;

void frmDBLostKeys::WatchButtons() {
    const auto on = [this](QAbstractButton* button, auto action) {
        On(button, &QAbstractButton::clicked, [this, action] {
            Trapped([&] {
                ui->grdDataGrid->FinishEditing();
                action();
            });
        });
    };
    on(ui->cmdAdd, [this] { OpenNewRecord(); });
    on(ui->cmdDelete, [this] { DeleteRecord(); });
    on(ui->cmdUpdate, [this] { Update(); });
    on(ui->cmdRefresh, [this] { Refresh(); });
    on(ui->cmdClose, [this] { close(); });
    const auto row = [this] { return ui->grdDataGrid->currentIndex().row(); };
    on(ui->cmdFirst, [this] { ui->grdDataGrid->GoTo(0); });
    on(ui->cmdPrevious, [this, row] { ui->grdDataGrid->GoTo(std::max(0, row() - 1)); });
    on(ui->cmdNext,
       [this, row] { ui->grdDataGrid->GoTo(std::min(row() + 1, m_model.rowCount() - 1)); });
    on(ui->cmdLast, [this] { ui->grdDataGrid->GoTo(m_model.rowCount() - 1); });
}

void frmDBLostKeys::SizeColumns() {
    const int character = fontMetrics().horizontalAdvance(QStringLiteral("0123456789")) / 10;
    QHeaderView* numbers = ui->grdDataGrid->verticalHeader();
    numbers->setFixedWidth(10 * character);
    int wanted = numbers->width() + 4 * character;
    for (int column = 0; column < kLogColumns; ++column) {
        ui->grdDataGrid->setColumnWidth(column, kWidths[column] * character);
        wanted += kWidths[column] * character;
    }
    resize(std::min(wanted, screen()->availableSize().width() * 9 / 10), height());
    ui->datPrimaryRS->setMinimumWidth(16 * character);
}

/// Runs an action; what fails in it is told as an error of the data.
template <class Action>
void frmDBLostKeys::Trapped(Action&& action) {
    try {
        action();
    } catch (const SystemGone&) {
        throw; // Nothing of the system can be shown any more.
    } catch (const std::exception& error) {
        TellFailure(QString::fromUtf8(error.what()));
    }
}

void frmDBLostKeys::TellFailure(const QString& description) {
    Guarded([&] {
        m_session.boxes.Message(tr("Data error event hit err:") + description,
                                m_session.ProgramTitle, BoxButtons::Ok, BoxIcon::Warning);
    });
}

void frmDBLostKeys::Activated() {
    if (m_model.PendingCount() > 0)
        return;
    Trapped([this] {
        m_sortedBy.reset();
        ReadAnew();
    });
    ui->grdDataGrid->setFocus();
}

/// Reads the rows and goes to the first.
void frmDBLostKeys::ReadAnew() {
    const BusyPointer busy;
    m_model.Refresh(m_sortedBy);
    QHeaderView* heads = ui->grdDataGrid->horizontalHeader();
    heads->setSortIndicatorShown(m_sortedBy.has_value());
    heads->setSortIndicator(m_sortedBy.value_or(-1), Qt::AscendingOrder);
    ui->grdDataGrid->GoTo(0);
    ShowRecord();
}

void frmDBLostKeys::SortBy(int column) {
    ui->grdDataGrid->FinishEditing();
    // The log of lost keys has always left an empty grid as it is.
    if (m_log == KeyLog::Lost && m_model.StoredCount() == 0)
        return;
    m_sortedBy = column;
    ReadAnew();
}

void frmDBLostKeys::ShowRecord() {
    ui->datPrimaryRS->setText(tr("Record: %1").arg(ui->grdDataGrid->currentIndex().row() + 1));
}

void frmDBLostKeys::OpenNewRecord() {
    ui->grdDataGrid->FinishEditing();
    const int row = m_model.OpenNewRow();
    ui->grdDataGrid->setCurrentIndex(m_model.index(row, 0));
    ui->grdDataGrid->setFocus();
}

void frmDBLostKeys::DeleteRecord() {
    const int row = ui->grdDataGrid->currentIndex().row();
    if (row < 0)
        return;
    if (const QString obstacle = m_model.Delete(row); !obstacle.isEmpty()) {
        TellFailure(obstacle);
        return;
    }
    ui->grdDataGrid->GoTo(std::min(row, m_model.rowCount() - 1));
    ShowRecord();
    Tell(tr("Record deleted"));
}

void frmDBLostKeys::Update() {
    const int pending = m_model.PendingCount();
    QString obstacle;
    {
        const BusyPointer busy;
        obstacle = m_model.Update();
    }
    ShowRecord();
    if (!obstacle.isEmpty())
        TellFailure(obstacle);
    else
        Tell(pending == 1 ? tr("1 record written") : tr("%1 records written").arg(pending));
}

bool frmDBLostKeys::MayDropPending() {
    const int pending = m_model.PendingCount();
    return pending == 0 || m_session.boxes.ConfirmsLoss(
                               tr("Changes that were not written back with Update would be "
                                  "lost (records: %1). Drop them?")
                                   .arg(pending),
                               m_session.ProgramTitle);
}

void frmDBLostKeys::Refresh() {
    if (!MayDropPending())
        return;
    const RowKey shown = m_model.KeyOf(ui->grdDataGrid->currentIndex().row());
    m_model.DropPending();
    ReadAnew();
    ui->grdDataGrid->GoTo(m_model.RowOf(shown));
}

bool frmDBLostKeys::Unloading() {
    ui->grdDataGrid->FinishEditing();
    return MayDropPending();
}

} // namespace quorrel
