#pragma once

#include "pinning/PinSizes.h"
#include "widgets/Form.h"

#include <memory>

class QLineEdit;

namespace Ui {
class frmManufacturer;
}

namespace quorrel {

/// Keeps the pin sizes of each lock brand.
class frmManufacturer : public Form {
    Q_OBJECT

public:
    /// Comes up with the sizes of `brand`.
    frmManufacturer(Session& session, const QString& brand);
    ~frmManufacturer() override;

protected:
    QString Unsaved() const override;
    void Reload() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void WatchSizes();
    void FillBrands(const QString& shown);
    void ShowSizes(const PinSizes& sizes);
    PinSizes TypedSizes() const;
    void ShowBrand(const std::optional<ManufacturerRow>& brand);
    bool BrandLeft();
    void PointTyped(int box);
    void Save();
    void DeleteBrand();

    std::unique_ptr<Ui::frmManufacturer> ui;
    std::array<QLineEdit*, 20> m_sizes{};   ///< `txtBottom_0` to `_9`, then `txtTop_0` to `_9`
    std::optional<ManufacturerRow> m_shown; ///< the brand as it was brought up
    PinSizes m_shownSizes;                  ///< as its boxes showed them then
};

} // namespace quorrel
