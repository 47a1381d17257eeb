#pragma once

#include "crosskeys/KeysWithAccess.h"

#include <QWidget>

#include <memory>

namespace Ui {
class AccessPanel;
}

namespace quorrel {

/// The keys with access to a cross-keyed door, and the cuts that belong to no key.
class AccessPanel : public QWidget {
    Q_OBJECT

public:
    explicit AccessPanel(QWidget* parent = nullptr);
    ~AccessPanel() override;

    /// Whether cuts may be read; asterisks stand for them otherwise.
    void OfferCuts(bool mayReadCuts);

    /// Shows who has access. Beside each key stands in which chambers it differs from the door's
    /// present key, whose cuts are given where it has one.
    void ShowAccess(const KeysWithAccess& access, const std::string& doorCuts);

    /// Empties the lists, with what there is to say of that.
    void Clear(const QString& why = {});

    /// Shows the picture of being at work, and takes it on by a frame at each further call.
    void Work();
    void Rest();

private:
    std::unique_ptr<Ui::AccessPanel> ui;
    bool m_mayReadCuts = false;
};

} // namespace quorrel
