#pragma once

#include <QWidget>

namespace quorrel {

/// The program's emblem: a key that turns about its axis. Drawn in vectors, for any scale.
class KeyArt : public QWidget {
    Q_OBJECT

public:
    explicit KeyArt(QWidget* parent = nullptr) : QWidget(parent) {}

    /// How far the key has turned, in turns; a whole number shows it flat.
    void SetTurn(double turn);

    QSize sizeHint() const override { return {360, 170}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double m_turn = 0;
};

/// Paints the emblem into an icon's square.
QPixmap KeyEmblem(int size);

} // namespace quorrel
