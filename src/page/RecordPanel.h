#pragma once

#include "page/KeyRecord.h"
#include "page/KeySelection.h"

#include <QGroupBox>

#include <memory>

namespace Ui {
class RecordPanel;
}

namespace quorrel {

/// The record of the selected key in the boxes that it is typed in, and what else there is to say
/// of the key.
class RecordPanel : public QGroupBox {
    Q_OBJECT

public:
    explicit RecordPanel(QWidget* parent = nullptr);
    ~RecordPanel() override;

    void SetEditable(bool editable);

    /// What stands in the boxes.
    KeyRecordText Text() const;
    void ShowText(const KeyRecordText& text);
    void ShowKeyID(const QString& keyID);

    /// Shows what cannot be typed; `place` says which key it is, as in "Block Master, page 12".
    void ShowKey(const KeySelection& selection, const QString& place);

    /// Says whether what stands in the boxes is not stored yet.
    void ShowEdited(bool edited);

    void ShowDepartments(const QStringList& departments);

    /// Does what leaving the box with the focus does: most of its text becomes capitals.
    void LeaveBox();

    void FocusKeyID();
    void SelectKeyway();

signals:
    /// Something has been typed, or filled in.
    void Changed();
    /// The description has no room for what was typed into it.
    void DescriptionFull();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void EnterBox(QObject* box);
    void RaiseCase(QObject* box);
    void HoldDescription();
    QWidget* BoxAfter(const QObject* box) const;
    bool KeepWholeDescription();

    std::unique_ptr<Ui::RecordPanel> ui;
    QString m_place;
    int m_insertionEnd = 0; ///< in the description: where the text that came last ends
};

} // namespace quorrel
