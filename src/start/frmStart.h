#pragma once

#include "widgets/Form.h"

#include <QVariantAnimation>

#include <memory>

namespace Ui {
class frmStart;
}

namespace quorrel {

/// The program's entry: finds and opens the files under a short splash and says how to go on.
class frmStart : public Form {
    Q_OBJECT

public:
    explicit frmStart(Session& session);
    ~frmStart() override;

    /// Opens the files; shows the splash when wanted. A key or a click ends the splash at once.
    void Begin(bool splash);

signals:
    /// The files cannot be used; the text says why, unless the user knows.
    void FilesNotFound(const QString& failure);
    /// No company is recorded yet.
    void FirstRunFound();
    void LogonWanted();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void EndSplash();

    std::unique_ptr<Ui::frmStart> ui;
    QVariantAnimation m_splash;
    bool m_ended = false;
};

} // namespace quorrel
