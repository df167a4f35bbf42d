#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qlist.h>
#include <QtCore/qstringlist.h>
#include <QtWidgets/qdialog.h>

#include <memory>
#include <optional>

namespace Velmora::Framework {

class ExampleDialogPrivate;

// The example browser: every sub-folder of the example folders that a "meta.ini" describes,
// grouped by its category and shown as a gallery of pictures. Opening an example copies its
// folder to a place the user picks and asks for the copy's solution or project to be opened.
class VELMORA_FRAMEWORK_EXPORT ExampleDialog : public QDialog
{
    Q_OBJECT

public:
    // One example, its paths absolute and inside its folder.
    struct Example
    {
        QString folder;
        QString name;
        QString description;
        QString category;
        QString picture; // empty when the example has none
        QString openFile; // the ".sln-qel" or ".qprj" file
    };

    // Reads the sub-folders of each of roots; examples whose category is not one of groups
    // are skipped, and the groups keep the order given.
    ExampleDialog(const QStringList &roots, const QStringList &groups, QWidget *parent = nullptr);
    ~ExampleDialog() override;

    static QStringList defaultGroups();
    // Reads folder's "meta.ini"; nothing, with one warning saying why, when it is missing,
    // malformed, too large, incomplete or points outside the folder.
    static std::optional<Example> readExample(const QString &folder);

    QStringList groups() const;
    QList<Example> examples(const QString &group) const;
    void setCurrentExample(const QString &group, int index);

    // Copies example's folder into targetParent and answers the copied file to open; empty,
    // with the reason in *error, when the copy is refused or fails (nothing is left behind).
    static QString copyExample(const Example &example, const QString &targetParent,
                               QString *error);

public Q_SLOTS:
    // Asks for a folder, copies the current example there and emits openRequested.
    void openCurrent();

Q_SIGNALS:
    void openRequested(const QString &path);

private:
    void showGroup(int group);
    // Shows the examples of the group whose name or description holds the search text.
    void applyFilter();
    void showDescription();

    std::unique_ptr<ExampleDialogPrivate> const d;
};

} // namespace Velmora::Framework
