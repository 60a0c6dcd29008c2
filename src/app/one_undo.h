#pragma once

#include <QEvent>
#include <QMenu>

namespace korva {

// The page has one undo for all that is edited on it (cmdUndo, cmdRedo). A widget for text has another of its
// own, which would take back less than an edit, and of a text that is not its own.

/// True for a key of undo or redo, which the widget leaves to the page: it is ignored then.
bool LeavesToPage(QEvent& event);
/// Takes undo and redo out of the standard menu of a text that can be edited, where they stand first.
void TakeUndoOut(QMenu& menu);

}  // namespace korva
