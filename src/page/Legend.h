#pragma once

#include <QGroupBox>

namespace quorrel {

/// Tells what the pictures of the cells mean.
class Legend : public QGroupBox {
    Q_OBJECT

public:
    explicit Legend(QWidget* parent = nullptr);
};

} // namespace quorrel
