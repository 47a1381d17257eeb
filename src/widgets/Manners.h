#pragma once

#include <QString>

class QKeyEvent;

namespace quorrel {

/// Teaches the application what holds in each of its windows:
/// - the wheel changes a combo box, a spin box or a slider only while it has the focus;
/// - the Enter key is pressed once, however long it is held: it leads from box to box, and what it
///   leads to must neither be set going nor be overwritten by the same press;
/// - tool tips show a text as it is, whatever markup it looks like;
/// - a label that shows a value is read by a screen reader with its caption: the label's accessible
///   name, or the text of the label that has it for its buddy.
/// Needs a `QApplication`; calls after the first do nothing.
void InstallManners();

/// Whether it is either of the two Enter keys.
bool IsEnter(const QKeyEvent& press);

/// The rich text by which a tool tip shows a text as it is.
QString PlainTip(const QString& text);

} // namespace quorrel
