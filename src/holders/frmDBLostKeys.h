#pragma once

#include "holders/KeyLogModel.h"
#include "widgets/Form.h"

#include <memory>

namespace Ui {
class frmDBLostKeys;
}

namespace quorrel {

/// Shows the log of lost keys in a grid that can be edited; for the returned keys it is the form
/// `frmDBReturnKey`.
class frmDBLostKeys : public Form {
    Q_OBJECT

public:
    frmDBLostKeys(Session& session, KeyLog log);
    ~frmDBLostKeys() override;

protected:
    void Activated() override;
    bool Unloading() override;

private:
    template <class Action>
    void Trapped(Action&& action);
    void TellFailure(const QString& description);
    void WatchButtons();
    void SizeColumns();
    void ReadAnew();
    void SortBy(int column);
    void ShowRecord();
    void OpenNewRecord();
    void DeleteRecord();
    void Update();
    void Refresh();
    bool MayDropPending();

    std::unique_ptr<Ui::frmDBLostKeys> ui;
    const KeyLog m_log;
    KeyLogModel m_model;
    std::optional<int> m_sortedBy; ///< column; none: table order
};

} // namespace quorrel
