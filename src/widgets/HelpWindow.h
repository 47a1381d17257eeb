#pragma once

#include "widgets/HelpTopics.h"

#include <QWidget>

class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace quorrel {

/// The help window: the topics on the left, narrowed by a search over their words, the chosen one
/// on the right. Stays open beside the forms.
class HelpWindow : public QWidget {
    Q_OBJECT

public:
    /// `place` is where it stands when it shows, as `PlaceOf` has it; hidden, it keeps its place
    /// there, so that it must outlive the window.
    HelpWindow(const QString& helpFile, QString& place);

    /// Shows the topic of a context number; the first one when the file has no such topic.
    void ShowTopic(int context);

    /// Shows all topics with the cursor in the search box.
    void ShowIndex();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void FilterTopics(const QString& words);
    void ShowRow(int row);
    void ComeUp();

    QString& m_place;
    std::vector<HelpTopic> m_topics;
    QLineEdit* m_search;
    QListWidget* m_list;
    QTextBrowser* m_text;
};

} // namespace quorrel
