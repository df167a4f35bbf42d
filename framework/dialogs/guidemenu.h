#pragma once

#include "velmoraframework_global.h"

#include <QtWidgets/qmenu.h>

namespace Velmora::Framework {

// Lists the PDF guides of a help folder, one item per "*.pdf" file; an item opens the file
// with the desktop's default viewer. The list is read again each time the menu opens.
class VELMORA_FRAMEWORK_EXPORT GuideMenu : public QMenu
{
    Q_OBJECT

public:
    explicit GuideMenu(const QString &helpFolder, QWidget *parent = nullptr);
    ~GuideMenu() override;

    QString helpFolder() const;
    void refresh();

private:
    QString m_helpFolder;
};

} // namespace Velmora::Framework
