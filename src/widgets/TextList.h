#pragma once

#include "widgets/LineModel.h"

#include <QListView>

class QLineEdit;

namespace quorrel {

/// A list of lines of text that stays quick with tens of thousands of them. Its lines stand in
/// columns of characters, hence in a font of one width, and are told apart by their place.
///
/// Chosen is what is highlighted, and nothing else. Each change of the highlight by the user is the
/// click, by mouse or keys alike, and so is a click on the line that is highlighted already. The
/// focus, the other mouse buttons and changes by code are none.
class TextList : public QListView {
    Q_OBJECT

public:
    explicit TextList(QWidget* parent = nullptr);

    /// Replaces all lines; none is highlighted after.
    void SetLines(const QStringList& lines);

    /// Replaces all lines; the highlighted one stays so where it is among them still. A line is
    /// known by its first `compared` characters, by the whole of it when that is -1.
    void Refill(const QStringList& lines, int compared = -1);

    const QStringList Lines() const { return m_lines.stringList(); }
    int Count() const { return m_lines.rowCount(); }

    /// The place of the highlighted line, -1 when there is none.
    int CurrentRow() const;
    /// Highlights a line, or none for -1. No click.
    void SetCurrentRow(int row);
    /// The highlighted line; empty when there is none.
    QString CurrentText() const;

    /// For a list whose click leads elsewhere, to another page or form: keys and a press only move
    /// the highlight; letting go of the mouse button and Enter are the click.
    void SetLeadsElsewhere() { m_leadsElsewhere = true; }

    /// A box that searches this list: Down goes from there to the highlighted line, Enter to the
    /// first. Where `fills` is given, Enter asks for the lines instead.
    enum class OnEnter { FirstLine, LinesWanted };
    void SetSearchBox(QLineEdit* box, OnEnter onEnter = OnEnter::FirstLine);

    /// Puts a mark before a line, until the lines are replaced. Its text stays as it is.
    void SetMark(int row, const QIcon& icon, const QString& tip) {
        m_lines.SetMark(row, icon, [tip] { return tip; });
    }
    /// As `SetMark`, with a tip that is made when the user wants to know.
    void SetMark(int row, const QIcon& icon, std::function<QString()> tip) {
        m_lines.SetMark(row, icon, std::move(tip));
    }

    /// Puts texts beside the lines from a row on, at the right edge and until the lines are
    /// replaced; those of rows after them go.
    void SetAsides(int first, std::vector<Aside> asides) {
        m_lines.SetAsides(first, std::move(asides));
    }
    QString AsideOf(int row) const {
        return m_lines.index(row).data(LineModel::kAsideRole).toString();
    }

signals:
    void Clicked();
    void DoubleClicked();

    /// Enter was pressed on the highlighted line, which is a click as well.
    void EnterPressed();

    /// It has got the focus and has nothing to choose from, or Enter in its search box asks for it.
    void LinesWanted();

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void selectionChanged(const QItemSelection& now, const QItemSelection& before) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

private:
    template <class Move>
    bool ByUser(Move&& move);
    void GoTo(int row);
    void Moved();
    QString TipAt(const QPoint& place) const;

    LineModel m_lines;
    bool m_leadsElsewhere = false;
    OnEnter m_onEnter = OnEnter::FirstLine;
    bool m_quiet = false;      ///< the highlight is being moved, and whoever moves it tells
    bool m_pressed = false;    ///< the left button went down on a line and is down
    bool m_justFilled = false; ///< within the event that is being handled
};

} // namespace quorrel
