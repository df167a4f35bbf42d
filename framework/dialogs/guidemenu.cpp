#include "guidemenu.h"

#include <QtCore/qdir.h>
#include <QtCore/qurl.h>
#include <QtGui/qdesktopservices.h>

namespace Velmora::Framework {

GuideMenu::GuideMenu(const QString &helpFolder, QWidget *parent)
    : QMenu(tr("guide"), parent), m_helpFolder(helpFolder)
{
    setObjectName(QStringLiteral("GuideMenu"));
    connect(this, &QMenu::aboutToShow, this, &GuideMenu::refresh);
    refresh();
}

GuideMenu::~GuideMenu() = default;

QString GuideMenu::helpFolder() const
{
    return m_helpFolder;
}

void GuideMenu::refresh()
{
    clear();
    const QStringList guides =
        QDir(m_helpFolder).entryList({QStringLiteral("*.pdf")}, QDir::Files, QDir::Name);
    for (const QString &guide : guides) {
        // The folder as given, not cleaned: it is usually relative to the executable's folder.
        const QString path = m_helpFolder + QLatin1Char('/') + guide;
        connect(addAction(guide), &QAction::triggered, this,
                [path] { QDesktopServices::openUrl(QUrl::fromLocalFile(path)); });
    }
    if (guides.isEmpty())
        addAction(tr("No guides installed"))->setEnabled(false);
}

} // namespace Velmora::Framework
