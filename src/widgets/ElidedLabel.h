#pragma once

#include <QLabel>

namespace quorrel {

/// A label for a text of any length: on one line, cut with an ellipsis where the room ends, the
/// whole text as its tool tip then. Its width is never more than it is given.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSize SizeFor(int characters) const;
};

} // namespace quorrel
