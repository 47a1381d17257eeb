#include "pinning/CylinderDrawing.h"

#include "pinning/CylinderPainter.h"
#include "pinning/PinText.h"

#include <QPainter>

namespace quorrel {

CylinderDrawing::CylinderDrawing(QWidget* parent) : QWidget(parent) {
    setAccessibleName(tr("Drawing of the cylinder"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void CylinderDrawing::SetCylinder(const Cylinder& cylinder) {
    m_cylinder = cylinder;
    const QStringList lines = DescribeCylinder(cylinder) + DescribeFlaws(cylinder);
    setAccessibleDescription(lines.join(QStringLiteral(".\n")));
    update();
}

void CylinderDrawing::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintCylinder(painter, rect(), m_cylinder, LookOn(palette()));
}

} // namespace quorrel
