#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qstringlist.h>
#include <QtWidgets/qwidget.h>

#include <memory>

namespace Velmora::Framework {

class ProjectFrontPagePrivate;

// The start page of the document area while no project is open: buttons to create or open
// a project, and the solutions opened lately, kept in the settings under recentKey().
class VELMORA_FRAMEWORK_EXPORT ProjectFrontPage : public QWidget
{
    Q_OBJECT

public:
    explicit ProjectFrontPage(QWidget *parent = nullptr);
    ~ProjectFrontPage() override;

    static QString recentKey();
    // Newest first, at most maxRecent(); an unreadable stored value reads as none, with a
    // warning.
    static QStringList recentSolutions();
    // Puts path first in the list (absolute, without duplicates) and stores it.
    static void addRecentSolution(const QString &path);
    static int maxRecent();

public Q_SLOTS:
    // Reads the list from the settings again; solutions whose file is gone are not shown.
    void refresh();

Q_SIGNALS:
    void newProjectRequested();
    void openProjectRequested();
    void openSolutionRequested(const QString &path);

protected:
    void showEvent(QShowEvent *event) override;

private:
    std::unique_ptr<ProjectFrontPagePrivate> const d;
};

} // namespace Velmora::Framework
