#pragma once

#include <QScrollArea>

#include <vector>

class QGridLayout;
class QLabel;

namespace quorrel {

struct KeyLook;

/// Tells what the pictures of the cells mean, side by side or below one another as there is room.
/// Where there is too little of it for all of them, they scroll: no window grows for its legend.
class Legend : public QScrollArea {
    Q_OBJECT

public:
    explicit Legend(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {60, 60}; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Entry {
        QLabel *picture, *words;
    };

    void Add(const KeyLook& look, const QString& words);
    void Arrange(int columns);

    QGridLayout* m_grid;
    std::vector<Entry> m_entries;
    int m_columns = 0;
};

} // namespace quorrel
