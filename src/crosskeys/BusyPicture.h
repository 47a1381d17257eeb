#pragma once

#include <QWidget>

namespace quorrel {

/// A key that turns while something long is worked out.
class BusyPicture : public QWidget {
    Q_OBJECT

public:
    static constexpr int kFirstFrame = 186;
    static constexpr int kLastFrame = 209;

    explicit BusyPicture(QWidget* parent = nullptr);

    /// Comes up at the first frame.
    void Begin();
    /// Goes on to the next frame, after the last to the first.
    void Advance();

    QSize sizeHint() const override { return {28, 28}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_frame = kFirstFrame;
};

} // namespace quorrel
