#pragma once

#include "store/Session.h"

#include <QWidget>

#include <memory>

namespace Ui {
class StatusLine;
}

namespace quorrel {

/// The line at the foot of the main form: what was stored last, and on what the user works.
class StatusLine : public QWidget {
    Q_OBJECT

public:
    explicit StatusLine(QWidget* parent = nullptr);
    ~StatusLine() override;

    /// Says what has been done last; empty for nothing.
    void Tell(const QString& text);

    /// Shows the user, the automatic log-off, how many keys of the open system are named, and the
    /// key file.
    void ShowFacts(Session& session);

private:
    std::unique_ptr<Ui::StatusLine> ui;
};

} // namespace quorrel
