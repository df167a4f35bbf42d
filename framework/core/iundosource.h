#pragma once

#include "velmoraframework_global.h"
#include "core/ibase.h"

#include <QtCore/qstring.h>

namespace Velmora::Framework {

class Environment;

// Undo and redo offered by an editor widget. The environment asks the widget that has the
// focus for it and drives the ribbon's Undo and Redo actions with it; list IUndoSource in the
// widget's Q_INTERFACES. A QUndoStack answers every question directly.
class VELMORA_FRAMEWORK_EXPORT IUndoSource : public virtual IBase
{
public:
    ~IUndoSource() override = default;

    virtual bool canUndo() const = 0;
    virtual bool canRedo() const = 0;
    virtual QString undoText() const = 0;
    virtual QString redoText() const = 0;
    virtual void undo() = 0;
    virtual void redo() = 0;
    // The source becomes (or stops being) the one the environment drives; while attached it
    // calls Environment::updateCommandStack(itself) whenever what it can undo changes.
    virtual void attach(Environment *environment) = 0;
    virtual void detach(Environment *environment) = 0;
};

} // namespace Velmora::Framework

Q_DECLARE_INTERFACE(Velmora::Framework::IUndoSource, VELMORA_IID_IUNDOSOURCE)
