#pragma once

#include <QLabel>

namespace quorrel {

/// A label for a text of any length: on one line, cut with an ellipsis where the room ends, the
/// whole text as its tool tip then. No text makes its window larger.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    /// Where the text is cut: at its end unless another place is set.
    void SetElideMode(Qt::TextElideMode mode) { m_elideMode = mode; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSize SizeFor(int width) const;

    Qt::TextElideMode m_elideMode = Qt::ElideRight;
};

} // namespace quorrel
