#pragma once

#include "page/KeyLists.h"

#include <QWidget>

#include <array>
#include <functional>
#include <memory>

class QLineEdit;
class QPushButton;

namespace Ui {
class ListArea;
}

namespace quorrel {

class TextList;

/// The lists beside the page: all Key IDs, and the doors and the holders of the selected key. Each
/// has a box with the text that its lines are to begin with, and asks to be filled when its button
/// is clicked, Enter is pressed in the box, the box is left, or the list is entered while empty.
class ListArea : public QWidget {
    Q_OBJECT

public:
    explicit ListArea(QWidget* parent = nullptr);
    ~ListArea() override;

    void ShowKeys(std::vector<KeyLine> keys);
    void ShowDoors(std::vector<SubjectLine> doors, Session& session);
    void ShowUsers(std::vector<SubjectLine> users);

    /// Empties the lists that belong to the selected key.
    void ClearKey();

    /// True once the Key IDs have been listed: from then on the list is to follow what is stored.
    bool ListsKeys() const { return m_listsKeys; }
    QString KeyFilter() const;

    /// Highlights the key of a row in the list of Key IDs, if it is there, which is no click.
    void ShowSelected(RowKey key);

    /// Moves the focus from one list's box to the next one's, from elsewhere to the first.
    void FocusNext();

signals:
    void KeysWanted(const QString& filter);
    void DoorsWanted(const QString& filter);
    void UsersWanted(const QString& filter);
    void KeyChosen(int page, int cell);
    void DoorChosen(const QString& label);
    void UserChosen(const QString& userID);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Pane {
        QLineEdit* filter;
        QPushButton* button;
        TextList* list;
        std::function<void()> fill;
    };

    void AlignPanes();
    void Watch(const Pane& pane);

    std::unique_ptr<Ui::ListArea> ui;
    std::array<Pane, 3> m_panes;
    bool m_listsKeys = false;
    RowKey m_selected = 0;
    std::vector<KeyLine> m_keys;
    std::vector<SubjectLine> m_doors;
    std::vector<SubjectLine> m_users;
};

} // namespace quorrel
