#pragma once

#include "engine/PinStack.h"

#include <QWidget>

namespace quorrel {

/// The drawing of a cylinder, which also tells in words what it shows.
class CylinderDrawing : public QWidget {
    Q_OBJECT

public:
    explicit CylinderDrawing(QWidget* parent = nullptr);

    void SetCylinder(const Cylinder& cylinder);

    QSize sizeHint() const override { return {680, 500}; }
    QSize minimumSizeHint() const override { return {420, 310}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Cylinder m_cylinder;
};

} // namespace quorrel
