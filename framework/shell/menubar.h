#pragma once

#include "velmoraframework_global.h"

#include <QtWidgets/qmenubar.h>

namespace Velmora::Framework {

// A menu bar whose context menu is its main window's pop-up menu (the toolbars and docks to
// show or hide).
class VELMORA_FRAMEWORK_EXPORT Menubar : public QMenuBar
{
    Q_OBJECT

public:
    explicit Menubar(QWidget *parent);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
};

} // namespace Velmora::Framework
