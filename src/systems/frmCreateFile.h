#pragma once

#include "engine/SystemDefinition.h"
#include "systems/NewSystem.h"
#include "widgets/Form.h"

#include <memory>

class QLineEdit;

namespace Ui {
class frmCreateFile;
}

namespace quorrel {

/// Defines a key system, with a live preview of its usable change keys, and creates it.
class frmCreateFile : public Form {
    Q_OBJECT

public:
    explicit frmCreateFile(Session& session);
    ~frmCreateFile() override;

signals:
    /// The system is stored and open in the session.
    void SystemCreated();
    /// A brand without pin sizes was added.
    void PinSizesWanted(const QString& brand);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

    QString Unsaved() const override;

private:
    void WatchFields();
    void Clamp(QLineEdit* field, const NumberLimits& limits);
    void ShowType(int type);
    void FillBrands();
    bool CheckBrand();
    SystemDefinition Definition() const;
    NewSystem Describe() const;
    void MasterChanged();
    void RefreshPreview();
    void PreviewUsableKeys();
    void ShowUsableKeys(const SystemDefinition& definition);
    bool RefusesVariance(const SystemDefinition& definition);
    void DrawMaster();
    void Create();
    QWidget* FieldOf(Refusal::Field field) const;

    std::unique_ptr<Ui::frmCreateFile> ui;
    NewSystem m_asOpened;
};

} // namespace quorrel
