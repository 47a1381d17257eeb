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
    explicit HelpWindow(const QString& helpFile);

    /// Shows the topic of a context number; the first one when the file has no such topic.
    void ShowTopic(int context);

    /// Shows all topics with the cursor in the search box.
    void ShowIndex();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void FilterTopics(const QString& words);
    void ShowRow(int row);
    void ComeUp();

    std::vector<HelpTopic> m_topics;
    QLineEdit* m_search;
    QListWidget* m_list;
    QTextBrowser* m_text;
};

} // namespace quorrel
